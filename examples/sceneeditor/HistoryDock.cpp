#include <sceneeditor/HistoryDock.h>

#include <moUndoStack/core/moUndoStack.h>

#include <QtWidgets/QTreeWidget>

HistoryDock::HistoryDock(const QString& title, const char* name, moUndoStack& stack, QWidget* parent)
    : QDockWidget(title, parent)
{
    setObjectName(name);
    auto* const list = new QTreeWidget;
    list->setHeaderHidden(true);
    setWidget(list);
    const auto show = [&stack, list] {
        list->clear();
        for (int i = 0; i < stack.size(); ++i) {
            auto* const row = new QTreeWidgetItem(list, {stack.command(i)->text()});
            row->setDisabled(i >= stack.index());
        }
    };
    connect(&stack, &moUndoStack::redoPerformed, list, show);
    connect(&stack, &moUndoStack::undoPerformed, list, show);
    connect(&stack, &moUndoStack::cleared, list, show);
}
