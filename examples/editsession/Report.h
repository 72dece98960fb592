#pragma once

#include <scene/MessageEntry.h>

#include <QtCore/QByteArray>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

#include <vector>

class QTextStream;
class QUndoCommand;
class moMessage;

/// What happened in a session, as data; can be printed and written as JSON.
struct Report
{
    using Entry = MessageEntry;

    struct Message
    {
        QString phase; ///< the chapter, or whether steps were being undone or redone
        QString name;
        std::vector<Entry> entries;
    };

    struct Step
    {
        explicit Step(const QUndoCommand& command);

        QString text;
        QString description;
        std::vector<Step> children;
    };

    struct Check
    {
        QString what;
        bool passed;
        std::size_t rounded = 0; ///< where scenes were compared: values that differ by rounding only
    };

    QString modelFile;
    std::size_t nodeCount = 0;
    std::size_t lightCount = 0;
    std::size_t materialCount = 0;

    std::vector<Step> history;
    std::vector<Message> messages;
    std::vector<Check> checks;

    QByteArray digestAfterLoad;
    QByteArray digestAfterEdits;
    QByteArray digestAfterUndoAll;
    QByteArray digestAfterRedoAll;

    QString interruptedIn; ///< the phase in which the session was broken off; null if it was not

    void addMessage(const QString& phase, const char* name, const moMessage& message);
    void check(const QString& what, bool passed, std::size_t rounded = 0) { checks.push_back({what, passed, rounded}); }

    /// Whether every check passed.
    bool passed() const;

    /// As text for a reader: long lists are shortened, values that differ by rounding are counted.
    void print(QTextStream& stream) const;
    /// Everything, as JSON.
    QByteArray toJson() const;
};
