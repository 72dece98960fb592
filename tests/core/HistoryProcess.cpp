// How a process ends: one that has shown the histories, in every combination of when, what became of them, how the
// process ends and what becomes of the application object; one whose commands call the stacks while they are deleted,
// one with listeners, and one that is still composing. Exit status 0: all as it should be, and nothing crashed on the
// way out.

#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moUndoStack.h>

#include <moUndoUtils/moUndoString.h>
#include <moUtils/moLog.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoView>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

int s_argc = 1;
char s_name[] = "history_process";
char* s_argv[] = {s_name, nullptr};

int s_errors = 0;

void check(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "failed: %s\n", what);
    ++s_errors;
}

void record(moUndoStack& stack)
{
    moUndoStack::beginUndo();
    for (int i = 0; i < 3; ++i)
        stack.addOrExecute(new moGenericFunctionUndoCommand(
            moUndoString("step", ""), [] {}, [] {}, nullptr));
    moUndoStack::endUndo();
}

int visibleHistories()
{
    int count = 0;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        count += qobject_cast<const QUndoView*>(widget) && widget->isVisible() ? 1 : 0;
    return count;
}

/// Qt makes parts of itself at the first destruction of a window, and destroys them at process end.
void destroyAWindow()
{
    QWidget window;
    window.show();
    QApplication::processEvents();
}

void showBoth()
{
    for (const unsigned int type : {0U, 1U}) {
        moUndoStack& stack = moUndoStack::get(type);
        record(stack);
        stack.showHistory();
        stack.undo();
    }
    QApplication::processEvents();
    check(visibleHistories() == 2, "both histories are on the screen");
}

void hideBoth(bool close)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (!qobject_cast<QUndoView*>(widget)) continue;
        if (close)
            widget->close();
        else
            widget->hide();
    }
    QApplication::processEvents();
    check(visibleHistories() == 0, "no history is on the screen");
}

/// When the histories are made, what becomes of them, how the process ends, and what becomes of the application object.
struct Case
{
    std::string made, left, end, application;
};

void liveThrough(const Case& how)
{
    if (how.made == "after") destroyAWindow();
    if (how.made == "never")
        for (const unsigned int type : {0U, 1U})
            record(moUndoStack::get(type));
    else
        showBoth();
    if (how.made == "before") destroyAWindow();
    if (how.made != "never" && how.left != "shown") hideBoth(how.left == "closed");
}

void end(const std::string& how)
{
    const int status = s_errors == 0 ? 0 : 1;
    if (how == "exit") std::exit(status);
    if (how == "quick_exit") std::quick_exit(status);
}

void liveAndEnd(const Case& how)
{
    if (how.application == "stack") {
        const QApplication application(s_argc, s_argv);
        liveThrough(how);
        end(how.end);
    } else if (how.application == "heap") {
        auto application = std::make_unique<QApplication>(s_argc, s_argv);
        liveThrough(how);
        application.reset();
        end(how.end);
    } else if (how.application == "leaked") {
        static const QApplication* s_application = new QApplication(s_argc, s_argv);
        check(s_application != nullptr, "there is an application");
        liveThrough(how);
        end(how.end);
    } else if (how.application == "static") {
        static const QApplication s_application(s_argc, s_argv);
        liveThrough(how);
        end(how.end);
    } else if (how.application == "static-after-stacks") {
        moUndoStack::get();
        static const QApplication s_application(s_argc, s_argv);
        liveThrough(how);
        end(how.end);
    } else {
        for (int i = 0; i < 2; ++i) {
            const QApplication application(s_argc, s_argv);
            liveThrough(how);
            if (i == 1) end(how.end);
        }
    }
}

void showNothing()
{
    int lines = 0;
    moLog::setListener([&lines](moLog::Kind, const std::string&) { ++lines; });
    moUndoStack::get(0).showHistory();
    moLog::setListener({});
    check(lines == 1, "one line says that there is no QApplication");
}

/// What a command may hold: something that calls both stacks when it goes.
class LateCaller
{
public:
    LateCaller() = default;
    LateCaller(const LateCaller&) = delete;
    LateCaller& operator=(const LateCaller&) = delete;
    ~LateCaller()
    {
        for (const unsigned int type : {0U, 1U}) {
            moUndoStack& stack = moUndoStack::get(type);
            stack.undo();
            stack.redo();
            stack.beginMacro("late");
            stack.endMacro();
            stack.reset();
            stack.clear();
            stack.add(new moGenericFunctionUndoCommand(
                moUndoString("late", ""), [] {}, [] {}, nullptr));
            // Too late for main() to say that something is left.
            if (stack.size() > 0 || stack.canUndo() || stack.canRedo() || stack.currentCommand()) std::_Exit(1);
        }
    }
};

moUndoCommand* holdingALateCaller()
{
    const auto held = std::make_shared<LateCaller>();
    return new moGenericFunctionUndoCommand(
        moUndoString("step", ""), [held] {}, [held] {}, nullptr);
}

void leaveLateCallers()
{
    moUndoStack::beginUndo();
    for (const unsigned int type : {0U, 1U}) {
        moUndoStack& stack = moUndoStack::get(type);
        for (int i = 0; i < 3; ++i)
            stack.addOrExecute(holdingALateCaller());
        stack.undo();
    }
    moUndoStack::endUndo();
}

/// Fails the process if there are any left at its very end.
class Counted
{
public:
    Counted() { ++s_alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --s_alive; }

    static void checkAtExit()
    {
        static const struct AtExit
        {
            ~AtExit()
            {
                if (s_alive != 0) std::_Exit(1);
            }
        } s_atExit;
        Q_UNUSED(s_atExit)
    }

private:
    static int s_alive;
};
int Counted::s_alive = 0;

/// A composition, in it one that belongs to nobody, as recording was off for a moment; both have a child.
void leaveACompositionOpen()
{
    Counted::checkAtExit();
    const auto makeChild = [] {
        const auto held = std::make_shared<Counted>();
        new moGenericFunctionUndoCommand(
            moUndoString("child", ""), [held] {}, [held] {}, moUndoStack::getCurrentCommandParent());
    };
    moUndoStack& stack = moUndoStack::get();
    moUndoStack::beginUndo();
    stack.beginMultiCommand("outer", "", true);
    makeChild();
    moUndoStack::beginBlockUndo();
    stack.beginMultiCommand("inner", "", true);
    moUndoStack::endBlockUndo();
    makeChild();
}

/// Listeners of every kind on both stacks, with steps to undo and to redo: nobody is told how the stacks end.
void leaveListeners()
{
    static bool s_ending = false;
    const auto fail = [] {
        if (s_ending) std::_Exit(1);
    };
    moUndoStack::beginUndo();
    for (const unsigned int type : {0U, 1U}) {
        moUndoStack& stack = moUndoStack::get(type);
        record(stack);
        auto* const watched = new moGenericFunctionUndoCommand(
            moUndoString("step", ""), [] {}, [] {}, nullptr);
        watched->setChangedCB([fail](bool) { fail(); });
        stack.addOrExecute(watched);
        stack.undo();
        QObject::connect(&stack, &moUndoStack::undoPerformed, &stack, fail);
        QObject::connect(&stack, &moUndoStack::redoPerformed, &stack, fail);
        QObject::connect(&stack, &moUndoStack::cleared, &stack, fail);
        stack.setMessageCallback([](const char*, moMessage&, int) {
            if (s_ending) std::_Exit(1);
            return false;
        });
    }
    moUndoStack::endUndo();
    s_ending = true;
}

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const std::string how = argc > 1 ? argv[1] : "";

    if (argc == 5) {
        liveAndEnd({how, argv[2], argv[3], argv[4]});
    } else if (how == "core-application") {
        const QCoreApplication application(s_argc, s_argv);
        showNothing();
    } else if (how == "late-calls") {
        leaveLateCallers();
    } else if (how == "late-listeners") {
        leaveListeners();
    } else if (how == "open-composition") {
        leaveACompositionOpen();
    } else if (how == "no-application") {
        showNothing();
    } else {
        std::fprintf(stderr, "unknown case '%s'\n", how.c_str());
        return 2;
    }
    return s_errors == 0 ? 0 : 1;
}
