#pragma once

#include <QtCore/QString>

#include <memory>

/// The host's texts: three strings that all copies share.
class moUndoString
{
public:
    moUndoString();
    moUndoString(const QString& text, const QString& description, const QString& group);
    moUndoString(const char* literal, const QString& group);

    QString text() const;
    QString description() const;

private:
    struct Texts;
    std::shared_ptr<const Texts> m_texts;
};
