#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtCore/QPair>
#include <QtCore/QPointer>
#include <QtCore/QStack>
#include <QtWidgets/QUndoCommand>

#include <exception>
#include <functional>
#include <vector>

class QString;
class QUndoStack;
class QUndoView;
class moMessage;
class moMultiCommand;
class moUndoCommandBase;

/// Records commands, runs them, takes them back and tells everybody: the one entry point for edits that can be undone.
///
/// There are two stacks, get(DefaultStack) and get(SecondStack), made at the first get() and destroyed at process exit.
/// Recording is off until beginUndo() is called; commands are then only run. Both stacks share the recording counters
/// and the composition. Main thread only.
///
/// **Notifications.** A step is reported to three kinds of listener, in this order: signal, message callback, the
/// command's changed callbacks. A jump over several steps is reported once, for the command at the new boundary. After
/// clear() of a stack that held commands, Qt reports index 0 when it is already empty: that arrives as undoPerformed
/// (redoPerformed if all was undone) with a null command, before cleared().
///
/// **Calls from listeners and commands.** A slot, message callback, changed callback or a command's own undo, redo or
/// merge may call the stack. While a stack is at work on a recorded step, a call that would change it (add,
/// addOrExecute of a command to be recorded, undo, redo, reset, mark, clear, beginMacro, endMacro, a click into the
/// history) waits: it is carried out, in the order of the calls, when the step at hand has been run and reported,
/// before the outermost call returns. So no command is deleted while somebody is told about it, and every listener
/// hears of the steps in the order in which they happened. Whether a command is recorded is decided when it is handed
/// in, not when its turn comes. Commands that are not recorded are run and reported at once. Beginning and ending a
/// composition does not wait, as commands are made in between; adding the composite does.
///
/// **Exceptions.** What a listener or a command throws reaches the caller of the outermost operation, after the calls
/// that waited were carried out; if several throw, the first goes on and the others are logged. The stack stays usable:
///  - redo() of a command being pushed throws: the command is deleted, the stack is as before. A moUndoCommandBase that
///    has a parent is left to its parent.
///  - mergeWith() of the top command throws: the newer command is deleted. Its edit stays and counts as part of the top
///    command. Steps that could have been redone are gone, as with any push.
///  - a listener throws: the step stands; the listeners after that one are not told.
///  - undo() or redo() of a recorded command throws: the index stays.
///  - a command throws in the middle of a jump over several steps (reset(), or a click into the history): the index
///    stays where it was, but the commands before the failing one have been run, and QUndoStack offers no way to say
///    so. clear() is then the only way to a history that is true.
class MO_UNDO_STACK_EXPORT moUndoStack : public QObject
{
    Q_OBJECT

public:
    /// Which stack. The default one takes what nobody assigned; the second is for an editor with a history of its own.
    enum StackType
    {
        DefaultStack = 0,
        SecondStack = 1
    };

    /// Told of every step: name of the message, the message, 0. What it returns is not looked at.
    using MessageCallback = bool (*)(const char*, moMessage&, int);

    /// The stack of a type; the default stack for any number that is no type.
    static moUndoStack& get(unsigned int type = DefaultStack);

    /// Whether commands are recorded: beginUndo() is open and beginBlockUndo() is not.
    static bool undoEnabled();
    static bool undoBlocked();

    /// Nested switches. An end without its begin is logged and ignored.
    static void beginUndo();
    static void endUndo();
    static void beginBlockUndo();
    static void endBlockUndo();

    /// Clears both stacks, the default one first.
    static void clearAll();

    /// The innermost composite being composed if recording is on, else null: the default parent of new commands.
    static QUndoCommand* getCurrentCommandParent();

    /// Whether a composite is being composed on either stack, whatever the counters say.
    static bool isComposing();

    /// Records a command that the caller has built: takes it over and runs it, or merges it into the top one and
    /// deletes it. Null is ignored. While a composite is being composed nothing happens, and the command stays the
    /// caller's: a command made meanwhile is a child of the composite.
    void add(QUndoCommand* command);

    /// Takes the command over and records it as add() does if recording is on; otherwise runs it, reports it (index -1)
    /// and deletes it. Null is ignored; while a composite is being composed, a command that would be recorded is left
    /// alone. A command with a parent is pushed whatever the counters say, even if nothing is being composed. This is
    /// intended; who does that must not let the parent delete it as well.
    void addOrExecute(moUndoCommandBase* command);

    /// Starts a composite: commands made from now on become its children, if recording is on. Compositions nest. The
    /// composite owns its children; as Qt's, they do not sign off, so nobody else may delete one.
    ///
    /// \param text          may be empty: endMultiCommand() then makes one from the children.
    /// \param mergeEnabled  whether later composites may be merged into this one.
    void beginMultiCommand(const QString& text, const QString& description, bool mergeEnabled);

    /// Ends the innermost composition and, if it was the outermost one, hands the composite to addOrExecute(). One
    /// without children is dropped. Logged and ignored if nothing is being composed, or if that was begun on the other
    /// stack. A nested composite that was begun while recording was off belongs to nobody: it is neither recorded nor
    /// run.
    void endMultiCommand();

    /// Groups what is added until endMacro() into one step of Qt's own kind. Reported once, when it ends. Each command
    /// is run as it is added. If one of them throws when the macro is taken back or done again, those before it stay as
    /// they are: only a composite happens whole or not at all.
    void beginMacro(const QString& text);
    void endMacro();

    bool canUndo() const;
    bool canRedo() const;

    /// The command that undo() would take back; null if there is none.
    const QUndoCommand* currentCommand() const;

    /// Number of recorded steps, done and undone.
    int size() const;
    bool isEmpty() const;

    /// One callback per stack; null (the default) switches messages off, and none is built then.
    void setMessageCallback(MessageCallback callback);

Q_SIGNALS:
    /// A command was done. `added` is true the first time and after a merge, false for a redo. `command` is null after
    /// clear().
    void redoPerformed(const QUndoCommand* command, bool added);

    /// A command was undone. `command` is null after clear().
    void undoPerformed(const QUndoCommand* command);

    /// The stack was emptied; comes last.
    void cleared();

public Q_SLOTS:
    void undo();
    void redo();

    /// Deletes all commands and the composition under way (with a warning), resets the mark.
    void clear();

    /// Remembers the index; reset() goes back or forward to it, reported as one step.
    void mark();
    void reset();

    /// Shows the history in a window of its own, which keeps the size and the place that the user gives it. Needs a
    /// QApplication: without one, a line is logged and nothing happens.
    void showHistory();

private Q_SLOTS:
    void indexChanged(int i);

private:
    friend struct moUndoStacks;

    moUndoStack();
    ~moUndoStack() override;

    static QUndoCommand* currentMultiCommand();
    static bool isChildOfMultiCommand(const QUndoCommand* command);
    static void clearMultiCommands();
    static void abandon(moMultiCommand* composite);

    StackType getType() const;
    void push(QUndoCommand* command);
    void drop(QUndoCommand* command) const;
    bool owns(const QUndoCommand* command) const;

    template<class Call>
    void perform(Call call);
    template<class Call>
    void work(const Call& call);
    void keepException();
    void jump(int index);
    void closeHistory();
    void deleteCommands();

    void reportIndexChange(int i);
    void sendMessage(const QUndoCommand* command, const char* name, int index, bool added) const;
    void sendMessage(const char* name, int index, bool added) const;
    void sendRedoNotification(const QUndoCommand* command, int index, bool added);
    void callChangedCB(const QUndoCommand* command, bool done);

    static unsigned int s_undoEnableCount;
    static unsigned int s_blockUndoCount;
    static QStack<QPair<moMultiCommand*, StackType>> s_multiCommands;
    static std::vector<moMultiCommand*> s_abandoned;

    QUndoStack* m_stack;
    int m_lastIndex = 0;
    bool m_pushing = false;
    int m_markIndex = 0;
    int m_busyDepth = 0;
    QPointer<QUndoView> m_historyView;
    MessageCallback m_messageCallback = nullptr;
    std::vector<std::function<void()>> m_waiting;
    std::exception_ptr m_exception;
};

// For listeners that keep a signal's arguments as variants.
Q_DECLARE_METATYPE(const QUndoCommand*)
