#pragma once

#include <QtWidgets/QDockWidget>

class EditorSession;
class QTreeWidget;
class moMessage;

/// Each message of the stack of edits as it arrives, with its keys below it. Shows the latest ones.
class MessagesDock : public QDockWidget
{
    Q_OBJECT

public:
    static constexpr int keptMessages = 200;

    explicit MessagesDock(EditorSession& session, QWidget* parent = nullptr);

private:
    void add(const QString& name, const moMessage& message);

    QTreeWidget* m_list;
};
