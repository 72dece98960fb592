#include <sceneeditor/HistoryDock.h>

#include <moUndoStack/core/moUndoHistoryModel.h>

#include <QtWidgets/QTreeView>

HistoryDock::HistoryDock(const QString& title, const char* name, moUndoStack& stack, QWidget* parent)
    : QDockWidget(title, parent)
{
    setObjectName(name);
    auto* const view = new QTreeView;
    view->setObjectName(QString(name) + "View");
    (new moUndoHistoryModel(stack, view))->showIn(*view);
    setWidget(view);
}
