#pragma once

#include <moUndoStack/core/moHeldFunction.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <QUndoCommand>
#include <QtCore/QMetaType>
#include <QtCore/QObject>

#include <functional>
#include <memory>
#include <vector>

class QString;
class QUndoStack;
class moMessage;
class moMultiCommand;
class moStackCalls;
class moUndoCommandBase;
struct moStackCall;

/// Runs commands, records them, takes them back and reports each step: the one entry point for edits that can be
/// undone.
///
/// There are two stacks, get(DefaultStack) and get(SecondStack), made at the first get() and destroyed at process exit.
/// Recording is off until beginUndo() is called; commands are then only run. Both stacks share the recording counters
/// and the composition. Main thread only.
///
/// **Notifications.** A step is reported to three kinds of listener, in this order: signal, message callback, the
/// command's changed callbacks. Intended: a jump over several steps is reported once, for the command at the new
/// boundary, because Qt reports the new index once. See docs/oddities.md#a-jump-is-one-report. Intended: clear() of a
/// stack that held commands is reported as undoPerformed (redoPerformed if all was undone) with a null command, before
/// cleared(), because Qt reports index 0 when the stack is already empty. See
/// docs/oddities.md#clear-reports-a-null-command.
///
/// **Calls from listeners and commands.** A slot, message callback, changed callback or a command's own undo, redo or
/// merge may call the stack. While a stack is at work on a recorded step, a call that would change it (add,
/// addOrExecute of a command to be recorded, undo, redo, reset, mark, clear, beginMacro, endMacro, setClean, resetClean,
/// setUndoLimit, a click into the history) waits: it is carried out, in the order of the calls, when the step at hand has been run and reported,
/// before the outermost call returns. So no command is deleted while a listener is told about it, and every listener
/// hears of the steps in the order in which they happened. Whether a command is recorded is decided when it is handed
/// in, not when its turn comes. Unrecorded commands are run and reported at once. Beginning and ending a composition
/// does not wait, because commands are made in between; adding the composite does.
///
/// The queries (canUndo(), index(), currentCommand(), isClean() and the like) answer as if the step at hand and all calls
/// that wait had been carried out: `while (stack.canUndo()) stack.undo();` does in a listener what it does outside. A
/// push that waits, or whose redo() is running, counts as a step of its own: whether it is merged, or throws, is seen
/// only when its turn comes. From the notification of a step on, that step is as Qt's stack has it.
///
/// **Exceptions.** A step happens whole or not at all; see moStep. An exception reaches the caller of the outermost
/// operation, after the calls that waited were carried out; if several are thrown, the first goes on and the others are
/// logged. The stack stays usable:
///  - a listener, or other foreign code that a step calls after its write, throws: the step stands, and the rest of it
///    is done. Only Qt itself leaves out the slots behind one that throws.
///  - redo() of a command being pushed fails to write and throws: the command is deleted, stack and scene are as
///    before. A moUndoCommandBase that has a parent is not deleted: its parent owns it.
///  - undo() or redo() of a recorded command fails to write and throws: the index stays, the scene is as before.
///  - mergeWith() of the top command throws: the newer command is deleted. Its edit stays and counts as part of the top
///    command. Steps that could have been redone are deleted, as with any push.
///  - a command fails to write in the middle of a jump over several steps (reset(), or a click into the history) or of
///    a macro: the index stays where it was, but the commands before the failing one have been run, and QUndoStack
///    offers no way to move the index. Call clear() then: the history no longer fits the scene.
///  - the same in a jump back, after a command of your own turned obsolete (QUndoCommand::setObsolete()) and was
///    deleted by Qt: the history is cleared. See docs/oddities.md#a-jump-that-fails-behind-an-obsolete-command.
///
/// The stack cannot put back a destroyed container, nor what a function of a moGenericFunctionUndoCommand or a command
/// class of your own wrote before it threw.
class MO_UNDO_STACK_EXPORT moUndoStack : public QObject
{
    Q_OBJECT

public:
    /// Which of the two stacks.
    enum StackType
    {
        DefaultStack = 0, ///< for all edits that do not name a stack
        SecondStack = 1   ///< for an editor with a history of its own
    };

    /// Gets the message of each step. Arguments: "moURManager::redo" or "moURManager::undo", the message (valid during
    /// the call), and 0. The result is ignored.
    using MessageCallback = bool (*)(const char*, moMessage&, int);

    /// The stack of a type. Intended: any number that is no type gives the default stack, so that an edit always has
    /// one. See docs/oddities.md#any-other-number-is-the-default-stack.
    static moUndoStack& get(unsigned int type = DefaultStack);

    /// Whether commands are recorded: at least one beginUndo() is open, and no beginBlockUndo().
    static bool undoEnabled();

    /// Whether a beginBlockUndo() is open.
    static bool undoBlocked();

    /// Switches recording on, for both stacks. Calls nest: recording stays on until each has its endUndo().
    static void beginUndo();

    /// Ends one beginUndo(). Without one, an error is logged and nothing changes.
    static void endUndo();

    /// Switches recording off, whatever beginUndo() says, for both stacks. Calls nest.
    static void beginBlockUndo();

    /// Ends one beginBlockUndo(). Without one, an error is logged and nothing changes.
    static void endBlockUndo();

    /// Calls clear() on both stacks, on the default one first.
    static void clearAll();

    /// The innermost composite being composed if recording is on, else null: the default parent of new commands. Not
    /// owned by the caller.
    static QUndoCommand* getCurrentCommandParent();

    /// Whether a composite is being composed on either stack, whatever the counters say.
    static bool isComposing();

    /// Takes the command over, runs it and records it, or merges it into the top one and deletes it. Null is ignored.
    ///
    /// Intended: records also while recording is off, because only addOrExecute() asks. See
    /// docs/oddities.md#add-records-while-recording-is-off.
    ///
    /// Intended: does nothing while a composite is being composed. A command made meanwhile is a child of the composite
    /// already; one that was made before is neither run nor recorded, and the caller still owns it. See
    /// docs/oddities.md#add-does-nothing-while-composing.
    void add(QUndoCommand* command);

    /// Takes the command over. If recording is on, records it as add() does; otherwise runs it, reports it (index -1)
    /// and deletes it. Null is ignored. While a composite is being composed, a command that would be recorded is left
    /// alone: one that was made before the composition is still the caller's.
    /// Intended: a command with a parent is pushed even while recording is off and nothing is being composed, because
    /// only commands without one are asked about. Then both the stack and the parent own it, so the caller must not
    /// delete the parent. See docs/oddities.md#a-command-with-a-parent-is-pushed.
    void addOrExecute(moUndoCommandBase* command);

    /// Starts a composite: commands made from now on become its children, if recording is on. Compositions nest. The
    /// composite owns its children. Do not delete a child: the composite is not told (Qt's own rule).
    ///
    /// The children are built before any of them is run: each sees the scene as it is when it is made. Where commands
    /// edit one list by position, add those that remove from the highest position down, those that insert from the
    /// lowest one up: Remove(0) twice removes two items and keeps one.
    ///
    /// \param text          Qt's command text. Empty: endMultiCommand() makes one from the texts of the children, see
    ///                      docs/oddities.md#made-up-texts.
    /// \param description   the longer text. Empty: endMultiCommand() makes one from that of the first child.
    /// \param mergeEnabled  whether newer composites may be merged into this one. Pass false if a child cannot merge
    ///                      and does not say so in canMergeWith(), see moUndoCommand: generic function commands, those
    ///                      of the list of transform variants, moApplyTransformationVariantUndoCommand. The callbacks
    ///                      of a composite that is merged into an older one are deleted with it.
    void beginMultiCommand(const QString& text, const QString& description, bool mergeEnabled);

    /// Ends the innermost composition and, if it was the outermost one, hands the composite to addOrExecute(). A
    /// composite without children is deleted. If nothing is being composed, or the composition was begun on the other
    /// stack, an error is logged and nothing changes.
    ///
    /// Intended: a nested composite that was begun while recording was off is neither run nor recorded, because it has
    /// no parent. It is deleted at process exit and not before, because it may be the parent of commands. See
    /// docs/oddities.md#nested-composites-that-belong-to-nobody.
    void endMultiCommand();

    /// Ends the innermost composition and drops its composite: the children are neither run nor recorded, and their
    /// changed callbacks are removed. The edits of the compositions around it stay. The children are deleted with the
    /// outermost composite: at once if that is the one which is cancelled. If nothing is being composed, or the
    /// composition was begun on the other stack, an error is logged and nothing changes. See moCompositionScope, which
    /// cancels when an exception leaves it.
    ///
    /// A composite with a cancelled one inside does not merge.
    void cancelMultiCommand();

    /// Starts a macro of Qt: what is added until endMacro() becomes one step, reported once, when it ends. Each command
    /// is run as it is added. If one of them fails to write when the macro is undone or redone, the commands before it
    /// stay undone or redone: only a composite happens whole or not at all.
    void beginMacro(const QString& text);

    /// Ends the innermost macro. Without one, Qt warns and nothing changes.
    void endMacro();

    /// Whether undo() would move; false while a macro is open. While calls wait: the answer once they are done.
    bool canUndo() const;

    /// Whether redo() would move; false while a macro is open. While calls wait: the answer once they are done.
    bool canRedo() const;

    /// The command that undo() would take back; null if there is none. While calls wait: the answer once they are done;
    /// then it may be a command that has not run yet, and null stands for a macro that has not begun.
    const QUndoCommand* currentCommand() const;

    /// Number of recorded steps, done and undone. While calls wait: the answer once they are done.
    int size() const;

    /// Whether size() is 0.
    bool isEmpty() const;

    /// Number of steps that are done: where the next push goes. While calls wait: the answer once they are done.
    int index() const;

    /// The step at a position, 0 to size() - 1; null if there is none. While calls wait: as currentCommand().
    const QUndoCommand* command(int index) const;

    /// Text of the step that undo() would take back, as an action shows it: what follows the first line break of the
    /// command's text, else all of it. Empty if canUndo() is false.
    QString undoText() const;

    /// Text of the step that redo() would do, likewise. Empty if canRedo() is false.
    QString redoText() const;

    /// Declares the present state the clean one, e.g. because it was saved. No newer command is merged into a step at
    /// which the stack is clean, so the clean state stays within reach. Unlike mark(), the clean index is lost, not
    /// kept, when its step is deleted: by a push after undo, or by the limit. In a macro Qt warns and nothing changes.
    /// A composition under way does not count. What runs without being recorded does not change the clean state. Waits
    /// like the calls that change the history.
    void setClean();

    /// Whether the stack is at the clean index; false while a macro is open. True at first and after clear(). While
    /// calls wait: the answer once they are done.
    bool isClean() const;

    /// The index at which the stack is clean; -1 if there is none. While calls wait: the answer once they are done.
    int cleanIndex() const;

    /// From now on no state is clean, until setClean() or clear(). Steps can be merged again. Waits like the calls that
    /// change the history.
    void resetClean();

    /// Keeps at most this number of steps: a push beyond it deletes the oldest. 0, the default, or less: no limit. The
    /// mark for reset() and the clean index move with their steps; a mark whose step was deleted is at 0, the oldest
    /// state that can be reached. Does not change merging. If the stack is not empty, Qt warns and nothing changes.
    /// Stays through clear(). Waits like the calls that change the history.
    void setUndoLimit(int limit);

    /// What setUndoLimit() set. While calls wait: the answer once they are done.
    int undoLimit() const;

    /// Goes to the state in which this number of steps is done, reported as one step. Out of range: the nearest. While
    /// a macro is open, Qt warns and nothing changes.
    void setIndex(int index);

    /// Sets the one message callback of this stack. Null, the default: none. A message is built only if there is a
    /// callback or a listener.
    void setMessageCallback(MessageCallback callback);

    /// Gets the message of each step, as MessageCallback does.
    using MessageListener = std::function<void(const char*, moMessage&, int)>;

    /// Sets the one message listener of this stack: a callback that may have a state. It is called after the message
    /// callback with the same message, also with what that has changed in it. An empty function, the default: none. It
    /// may be replaced while it runs. Nothing is called once the stack is destroyed at process exit; remove it before
    /// what it refers to is destroyed.
    void setMessageListener(MessageListener listener);

Q_SIGNALS:
    /// A command was done, with `added` true, or redone, with `added` false. A merge reports the older command, with
    /// `added` true. `command` is null after clear().
    void redoPerformed(const QUndoCommand* command, bool added);

    /// A command was undone. `command` is null after clear().
    void undoPerformed(const QUndoCommand* command);

    /// The stack was cleared. Emitted last, also if it was empty before.
    void cleared();

public Q_SLOTS:
    /// Takes the last step back. Nothing happens if there is none; while a macro is open, Qt warns.
    void undo();

    /// Does the last undone step again. Nothing happens if there is none; while a macro is open, Qt warns.
    void redo();

    /// Deletes all commands and, with a warning, the composition under way; sets the mark to 0.
    void clear();

    /// Remembers the index for reset(). One mark per stack, 0 at first.
    void mark();

    /// Goes back or forward to the mark, reported as one step. If fewer steps are left, Qt goes to the last one.
    void reset();

    /// Shows the history of this stack in a window of its own, which keeps the size and the place that the user gives
    /// it. Without a QApplication an error is logged and nothing happens.
    void showHistory();

protected:
    /// Called by Qt at each connection: from the first one on, steps emit signals.
    void connectNotify(const QMetaMethod& signal) override;

private Q_SLOTS:
    void indexChanged(int i);

private:
    friend class moStackCalls;
    friend struct moUndoStacks;

    moUndoStack();
    ~moUndoStack() override;

    friend class moCompositionScope;
    friend class moMacroScope;
    friend class moUndoHistoryModel;
    friend class moUndoStackState;

    /// A composition under way. Its number tells it from all others, also from later ones at the same address.
    struct Composition
    {
        moMultiCommand* composite;
        StackType type;
        unsigned int number;
    };

    static QUndoCommand* currentMultiCommand();
    static bool isChildOfMultiCommand(const QUndoCommand* command);
    static void clearMultiCommands();
    bool checkComposition(const char* function) const;
    static void cancelInnermost();
    static void abandon(moMultiCommand* composite);

    StackType getType() const;
    bool owns(const QUndoCommand* command) const;
    void drop(QUndoCommand* command) const;
    void pushNow(QUndoCommand* command);
    void carryOut(const moStackCall& call);
    void jump(int index);
    void deleteHistory();
    void giveUpHistory();
    void deleteCommands();
    bool hasMessages() const { return m_messageCallback || m_messageListener; }
    QString textAt(int index) const;

    void report(int i, bool forward);
    void sendMessage(const QUndoCommand* command, const char* name, int index, bool added) const;
    void sendRedoNotification(const QUndoCommand* command, int index, bool added);
    void sendUndoNotification(const QUndoCommand* command, int index);
    void callChangedCB(const QUndoCommand* command, bool done);

    Q_DECL_HIDDEN static unsigned int s_undoEnableCount;
    Q_DECL_HIDDEN static unsigned int s_blockUndoCount;
    Q_DECL_HIDDEN static std::vector<Composition> s_multiCommands;
    Q_DECL_HIDDEN static unsigned int s_compositionCount;
    Q_DECL_HIDDEN static std::vector<moMultiCommand*> s_abandoned;

    QUndoStack* m_stack;
    std::unique_ptr<moStackCalls> m_calls;
    int m_lastIndex = 0;
    MessageCallback m_messageCallback = nullptr;
    moUndoDetail::HeldFunction<void(const char*, moMessage&, int)> m_messageListener;
    bool m_hadSlots = false;
    bool m_isHeard = false; ///< whether there was a slot or is a message callback or listener
};

// For listeners that keep a signal's arguments as variants.
Q_DECLARE_METATYPE(const QUndoCommand*)
