#pragma once

#include <moUndoStack/core/moStackMoves_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoStack.h>

#include <QUndoStack>
#include <QtCore/QString>

#include <deque>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// A call that changes Qt's stack, as data, so that it can wait and its effect can be computed in advance.
struct moStackCall
{
    enum class Kind
    {
        Push,
        Undo,
        Redo,
        Jump,
        Mark,
        Reset,
        // From here on: those that settle() looks at one by one.
        Clear,
        BeginMacro,
        EndMacro,
        SetClean,
        ResetClean,
        SetLimit
    };

    Kind kind;
    int number = 0;                  ///< of a jump: the index; of a limit: how many steps
    QUndoCommand* command = nullptr; ///< of a push
    const QString* text = nullptr;   ///< of a macro; null while the call waits
};

/// The state of a stack that its queries read.
struct moStackPlace
{
    int index = 0;
    int count = 0;
    int mark = 0;
    int openMacros = 0;
    int clean = 0;  ///< -1: none
    int limit = 0;  ///< 0: none
    int clears = 0; ///< how often the stack was cleared

    bool operator==(const moStackPlace& other) const
    {
        return index == other.index && count == other.count && mark == other.mark && openMacros == other.openMacros &&
               clean == other.clean && limit == other.limit && clears == other.clears;
    }
};

/// The state of a stack after all calls made so far, computed before they are carried out. A push counts as a step of
/// its own, although it may be merged or throw.
class moStackOutlook
{
public:
    moStackOutlook(const QUndoStack& stack, const moStackPlace& now) : m_stack(stack), m_known(now.count), m_place(now)
    {
    }

    /// Applies one more call.
    void add(const moStackCall& call);

    const moStackPlace& place() const { return m_place; }

    /// The command at a position; null if there is none, and for a macro that has not begun yet.
    const QUndoCommand* command(int position) const;

private:
    void push(const QUndoCommand* command);
    void keepLimit();
    void goTo(int index);

    const QUndoStack& m_stack;
    int m_known; ///< below this position the commands are those of m_stack, from there on those of m_coming
    std::deque<const QUndoCommand*> m_coming;
    moStackPlace m_place;
};

/// The calls of one stack, one at a time:
///
///     at rest ──perform()──▶ at work: the call at hand is carried out ──no call waits──▶ at rest; exceptions are thrown
///                              │  ▲ perform() from a listener or a command: the call waits
///                              │  └─────────────────────────────┐
///                              └──the first that waits, if any──┘
///
/// The call at hand is *settled* once Qt's stack has moved: from then on Qt's stack shows its effect, and the step is
/// reported. Exceptions do not keep the calls that wait from being carried out (see moStep).
class moStackCalls
{
public:
    /// \param stack  Qt's stack, which `owner` works on; owner's carryOut() carries out a call.
    moStackCalls(const QUndoStack& stack, moUndoStack& owner) : m_stack(stack), m_owner(owner) {}

    /// Carries out the call and those that come meanwhile. If the stack is at work, lets the call wait.
    void perform(const moStackCall& call);

    /// Whether there is a call at hand.
    bool isAtWork() const { return m_atHand; }

    /// Called once Qt's stack has moved.
    void settle()
    {
        if (m_settled) return;
        m_settled = true;
        if (m_atHand->kind >= Kind::Clear || m_mark > 0 || m_outlook) keepUp();
    }

    /// Whether Qt's stack is being cleared, also for good. Its commands must not be looked at then.
    bool isClearing() const;

    /// Number of the call at hand; at rest, of the last one.
    unsigned int number() const { return m_number; }

    /// Whether the call at hand adds something: a push, or the end of a macro.
    bool isAdding() const;

    /// The call at hand becomes one that clears the stack.
    void turnIntoClear();

    /// From now on the queries answer as for an empty stack, and calls are ignored. The caller still owns the commands
    /// that it pushes.
    void close();
    /// Whether close() was called.
    bool isClosed() const;

    /// The state after all calls made so far; at rest, the state of Qt's stack.
    moStackPlace place();
    /// The command at a position, likewise; null if there is none.
    const QUndoCommand* command(int position);

    /// Tells what each call did. Made at the first use, because few stacks have companions.
    const moStackMoves& moves();

    /// Sets the index for reset().
    void setMark(int index) { m_mark = index; }
    /// The index for reset(), by the calls that were carried out.
    int mark() const { return m_mark; }

private:
    using Kind = moStackCall::Kind;

    struct Waiting
    {
        moStackCall call;
        QString text; ///< of the call
        moStackPlace expected;
    };

    void wait(const moStackCall& call);
    void expect(Waiting& waiting);
    void workOff();
    void work(const moStackCall& call);
    void keepUp();
    void countMacros();
    void compareOutlook();
    void moveMark();
    int dropped() const;
    bool hasAppended() const;
    moStackMove move() const;
    moStackPlace now() const;
    moStackOutlook& outlook();

    const QUndoStack& m_stack;
    moUndoStack& m_owner;
    const moStackCall* m_atHand = nullptr;
    bool m_settled = true;
    unsigned int m_number = 0;
    int m_mark = 0;
    int m_openMacros = 0;
    int m_clears = 0;
    int m_countBefore = 0; ///< number of steps when the call at hand began
    int m_indexBefore = 0;
    std::unique_ptr<moStackMoves> m_moves;
    std::deque<Waiting> m_waiting;

    /// Made at the first query and kept as long as the calls do what it computed: each turn of a loop of queries and
    /// calls then costs the same.
    std::optional<moStackOutlook> m_outlook;
    moStackPlace m_expected; ///< what m_outlook computed for the end of the call at hand
};

// Every step runs what follows. It is inlined as a whole, together with moUndoStack::carryOut(), of which each function of
// the stack keeps its own case: 38 instructions of 1103 in an undo.

Q_ALWAYS_INLINE void moStackCalls::perform(const moStackCall& call)
{
    if (m_atHand) {
        wait(call);
        return;
    }
    moStep::runOutermost([ this, &call ]() __attribute__((always_inline)) {
        work(call);
        if (!m_waiting.empty()) workOff();
        m_outlook.reset();
    });
}

Q_ALWAYS_INLINE void moStackCalls::work(const moStackCall& call)
{
    m_atHand = &call;
    ++m_number;
    m_settled = false;
    if (m_moves || m_mark > 0) { // for move() and moveMark(); to ask Qt costs 14 instructions in each step
        m_indexBefore = m_stack.index();
        m_countBefore = m_stack.count();
    }
    moStep::attempt([ this, &call ]() __attribute__((always_inline)) { m_owner.carryOut(call); });
    settle();
    if (m_moves) moStep::attempt([this] { Q_EMIT m_moves->moved(move()); });
    m_atHand = nullptr;
}

/// Carries out the calls that wait, and those that come meanwhile.
inline void moStackCalls::workOff()
{
    while (!m_waiting.empty()) {
        Waiting next = std::move(m_waiting.front());
        m_waiting.pop_front();
        next.call.text = &next.text;
        m_expected = next.expected;
        work(next.call);
    }
}
