#pragma once

#include <QtWidgets/QDockWidget>

class QTreeWidget;
class QTreeWidgetItem;
class moUndoStack;
class moUndoStackState;

/// The history of a stack as a tree: the state at the beginning, its steps, below composites their children. A click
/// goes to a state. The present state is selected, the clean one is marked, undone steps are dimmed; descriptions are
/// tool tips.
class HistoryDock : public QDockWidget
{
    Q_OBJECT

public:
    /// \param name  the object name.
    HistoryDock(const QString& title, const char* name, moUndoStack& stack, const moUndoStackState& state,
                QWidget* parent = nullptr);

private:
    void show();
    void showStep(QTreeWidgetItem& row, int index);

    moUndoStack& m_stack;
    QTreeWidget* m_list;
};
