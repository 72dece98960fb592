#pragma once

#include <QtWidgets/QDockWidget>

class moUndoStack;

/// The history of a stack as a tree: its steps with the children of composites. A click goes there.
class HistoryDock : public QDockWidget
{
    Q_OBJECT

public:
    HistoryDock(const QString& title, const char* name, moUndoStack& stack, QWidget* parent = nullptr);
};
