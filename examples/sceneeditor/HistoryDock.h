#pragma once

#include <QtWidgets/QDockWidget>

class moUndoStack;

/// The history of a stack as a tree: its steps, below composites their children. A click goes to a state. The library's
/// model marks the present state and the clean one, dims undone steps and has the descriptions as tool tips.
class HistoryDock : public QDockWidget
{
    Q_OBJECT

public:
    /// \param name  the object name.
    HistoryDock(const QString& title, const char* name, moUndoStack& stack, QWidget* parent = nullptr);
};
