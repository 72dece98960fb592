#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moUndoHistoryModel.h>
#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/core/moUndoStack.h>

#include <moUndoUtils/moUndoString.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QTreeView>

#include <iostream>

namespace {

//! [dock]
QTreeView* dockHistory(QMainWindow& window, moUndoStack& stack)
{
    auto* const dock = new QDockWidget("History", &window);
    auto* const view = new QTreeView(dock);
    auto* const model = new moUndoHistoryModel(stack, dock);
    model->showIn(*view);
    dock->setWidget(view);
    window.addDockWidget(Qt::RightDockWidgetArea, dock);
    return view;
}
//! [dock]

//! [rows]
void print(const QTreeView& view, const QModelIndex& parent = {}, const std::string& indent = "  ")
{
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex step = model.index(row, 0, parent);
        std::cout << indent << step.data().toString().toStdString()
                  << (step.data(moUndoHistoryModel::CleanRole).toBool() ? ", clean" : "")
                  << (step.data(moUndoHistoryModel::DoneRole).toBool() ? "" : ", undone")
                  << (step == view.currentIndex() ? ", current" : "") << '\n';
        print(view, step, indent + "  ");
    }
}
//! [rows]

moUndoCommandBase* edit(const char* text)
{
    return new moGenericFunctionUndoCommand(
        moUndoString(text, ""), [] {}, [] {}, moUndoStack::getCurrentCommandParent());
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    moUndoStack& stack = moUndoStack::get();
    const QTreeView* const view = dockHistory(window, stack);
    window.show();
    const moRecordingScope recording;
    //! [use]
    stack.addOrExecute(edit("Move"));
    stack.setClean(); // saved
    {
        const moCompositionScope composition(stack, "Align");
        edit("Turn");
        edit("Scale");
    }
    std::cout << "edited\n";
    print(*view);
    stack.undo();
    std::cout << "undone\n";
    print(*view);
    //! [use]

    stack.clear();
    return 0;
}
