#include <moUndoStack/moUndoCommands.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTransform3D.h>

#include <iostream>
#include <stdexcept>

namespace {

//! [watched]
/// Says when it is deleted.
class WatchedCommand : public moGenericFunctionUndoCommand
{
public:
    using moGenericFunctionUndoCommand::moGenericFunctionUndoCommand;
    ~WatchedCommand() override { std::cout << "  deleted: " << text().toStdString() << '\n'; }
};
//! [watched]

WatchedCommand* make(
    const char* text, const std::function<void()>& redo = [] {})
{
    return new WatchedCommand(
        moUndoString(text, "Editor Commands"), [] {}, redo, nullptr);
}

} // namespace

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    moUndoStack& stack = moUndoStack::get();
    //! [causes]
    std::cout << "recording is off\n";
    stack.addOrExecute(make("not recorded"));

    moUndoStack::beginUndo();
    std::cout << "its redo() throws\n";
    try {
        stack.addOrExecute(make("failing", [] { throw std::runtime_error("disk full"); }));
    } catch (const std::runtime_error& error) {
        std::cout << "  the caller gets: " << error.what() << '\n';
    }

    std::cout << "another one is pushed after an undo\n";
    stack.addOrExecute(make("undone"));
    stack.undo();
    stack.addOrExecute(make("newer"));

    std::cout << "the stack is cleared\n";
    stack.clear();
    //! [causes]
    return 0;
}
