#pragma once

#include <QtCore/QString>

#include <deque>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

class QUndoCommand;
class QUndoStack;

/// A call that changes Qt's stack, as data: so it can wait, and what it will change can be told in advance.
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
        Clear,
        BeginMacro,
        EndMacro
    };

    Kind kind;
    QUndoCommand* command = nullptr; ///< of a push
    int index = 0;                   ///< of a jump: where to
    QString text = {};               ///< of a macro
};

/// Where a stack stands: what its queries tell.
struct moStackPlace
{
    int index = 0;
    int count = 0;
    int mark = 0;
    int openMacros = 0;

    bool operator==(const moStackPlace& other) const
    {
        return index == other.index && count == other.count && mark == other.mark && openMacros == other.openMacros;
    }
};

/// Where a stack will stand when the calls that were made have been carried out, as far as that can be told: a push
/// counts as a step of its own, although it may be merged or throw.
class moStackOutlook
{
public:
    moStackOutlook(const QUndoStack& stack, const moStackPlace& now) : m_stack(stack), m_known(now.count), m_place(now)
    {
    }

    void add(const moStackCall& call);

    const moStackPlace& place() const { return m_place; }

    /// Null where there is none, and for a macro that has not begun yet.
    const QUndoCommand* command(int position) const;

private:
    void push(const QUndoCommand* command);
    void goTo(int index);

    const QUndoStack& m_stack;
    int m_known; ///< the commands below this position are those of m_stack, the others are coming
    std::vector<const QUndoCommand*> m_coming;
    moStackPlace m_place;
};

/// The calls of one stack, one at a time:
///
///     at rest ──perform()──▶ at work: the call at hand is carried out ──no call waits──▶ at rest; exceptions are thrown
///                              │  ▲ perform() from a listener or a command: the call waits
///                              │  └─────────────────────────────┐
///                              └──the first that waits, if any──┘
///
/// The call at hand is *settled* when Qt's stack has moved: what it did is to be seen there, and is reported.
/// Exceptions do not keep the calls that wait from being carried out (see moStep).
class moStackCalls
{
public:
    using CarryOut = std::function<void(const moStackCall&)>;

    moStackCalls(const QUndoStack& stack, CarryOut carryOut) : m_stack(stack), m_carryOut(std::move(carryOut)) {}

    /// Carries a call out, and those that come meanwhile; or lets it wait, if the stack is at work.
    void perform(const moStackCall& call);

    bool isAtWork() const { return m_atHand; }

    /// To be told when Qt's stack has moved.
    void settle()
    {
        if (!m_settled) settleNow();
    }

    /// Whether the call at hand adds something: a push, or the end of a macro.
    bool isAdding() const;

    /// From now on the stack is empty and calls are ignored. The commands that they hand over stay the caller's.
    void close();
    bool isClosed() const;

    /// As they will be when all calls have been carried out that were made so far; at rest, as they are.
    moStackPlace place();
    const QUndoCommand* command(int position);

    void setMark(int index) { m_mark = index; }
    int mark() const { return m_mark; }

private:
    struct Waiting
    {
        moStackCall call;
        moStackPlace expected;
    };

    void expect(Waiting& waiting);
    void work(const moStackCall& call);
    void settleNow();
    moStackPlace now() const;
    moStackOutlook& outlook();

    const QUndoStack& m_stack;
    CarryOut m_carryOut;
    const moStackCall* m_atHand = nullptr;
    bool m_settled = true;
    int m_mark = 0;
    int m_openMacros = 0;
    std::deque<Waiting> m_waiting;

    /// Made when somebody asks, and kept as long as the calls do what it told: a loop of queries and calls costs no
    /// more for each turn than the one before.
    std::optional<moStackOutlook> m_outlook;
    moStackPlace m_expected; ///< after the call at hand, by m_outlook
};
