#include <moUndoStack/core/moStackCalls_p.h>

#include <QUndoStack>

#include <algorithm>
#include <new>
#include <utility>

using Kind = moStackCall::Kind;

// --- moStackOutlook -------------------------------------------------------------------------------------------------

void moStackOutlook::push(const QUndoCommand* command)
{
    // A push deletes the steps that could have been redone.
    m_known = std::min(m_known, m_place.index);
    m_coming.resize(static_cast<std::size_t>(m_place.index - m_known));
    m_coming.push_back(command);
    m_place.count = m_place.index + 1;
    if (m_place.clean > m_place.index) m_place.clean = -1;
}

/// With a limit, the oldest step goes when there is one too many: all positions change by one.
void moStackOutlook::keepLimit()
{
    if (m_place.limit <= 0 || m_place.count <= m_place.limit) return;
    for (; m_known > 0; --m_known)
        m_coming.push_front(m_stack.command(m_known - 1));
    m_coming.pop_front();
    --m_place.count;
    --m_place.index;
    m_place.mark = std::max(m_place.mark - 1, 0);
    m_place.clean = std::max(m_place.clean - 1, -1);
}

void moStackOutlook::goTo(int index)
{
    // While a macro is open, Qt's stack refuses to move.
    if (m_place.openMacros == 0) m_place.index = std::clamp(index, 0, m_place.count);
}

void moStackOutlook::add(const moStackCall& call)
{
    switch (call.kind) {
    case Kind::Push:
        if (m_place.openMacros > 0) break; // becomes a child of the macro
        push(call.command);
        keepLimit();
        goTo(m_place.count);
        break;
    case Kind::Undo:
        goTo(m_place.index - 1);
        break;
    case Kind::Redo:
        goTo(m_place.index + 1);
        break;
    case Kind::Jump:
        goTo(call.number);
        break;
    case Kind::Mark:
        m_place.mark = m_place.index;
        break;
    case Kind::Reset:
        goTo(m_place.mark);
        break;
    case Kind::Clear:
        m_known = 0;
        m_coming.clear();
        m_place = {0, 0, 0, 0, 0, m_place.limit, m_place.clears + 1};
        break;
    case Kind::BeginMacro:
        if (m_place.openMacros == 0) push(nullptr);
        ++m_place.openMacros;
        break;
    case Kind::EndMacro:
        if (m_place.openMacros == 0) break;
        if (--m_place.openMacros > 0) break;
        keepLimit();
        goTo(m_place.count);
        break;
    case Kind::SetClean:
        if (m_place.openMacros == 0) m_place.clean = m_place.index;
        break;
    case Kind::ResetClean:
        m_place.clean = -1;
        break;
    case Kind::SetLimit:
        if (m_place.count == 0) m_place.limit = call.number;
        break;
    }
}

const QUndoCommand* moStackOutlook::command(int position) const
{
    if (position < 0 || position >= m_place.count) return nullptr;
    return position < m_known ? m_stack.command(position) : m_coming[static_cast<std::size_t>(position - m_known)];
}

// --- moStackCalls ---------------------------------------------------------------------------------------------------

void moStackCalls::wait(const moStackCall& call)
{
    if (isClosed()) return;
    m_waiting.push_back({call, call.text ? *call.text : QString(), {}});
    m_waiting.back().call.text = nullptr;
    expect(m_waiting.back());
}

/// Keeps the outlook up to date, if there is one. If memory runs out, the next query makes a new one.
void moStackCalls::expect(Waiting& waiting)
{
    if (!m_outlook) return;
    try {
        m_outlook->add(waiting.call);
        waiting.expected = m_outlook->place();
    } catch (...) {
        m_outlook.reset();
    }
}

/// What few calls change, after Qt's stack has moved.
void moStackCalls::keepUp()
{
    if (m_atHand->kind >= Kind::Clear) countMacros();
    if (m_mark > 0 && isAdding()) moveMark();
    if (m_outlook) compareOutlook();
}

void moStackCalls::countMacros()
{
    switch (m_atHand->kind) {
    case Kind::BeginMacro:
        ++m_openMacros;
        break;
    case Kind::EndMacro:
        m_openMacros = std::max(m_openMacros - 1, 0);
        break;
    case Kind::Clear:
        m_openMacros = 0;
        ++m_clears;
        break;
    default:
        break;
    }
}

void moStackCalls::compareOutlook()
{
    if (!(now() == m_expected)) m_outlook.reset();
}

/// The mark stays at its step when the limit has deleted the oldest one.
void moStackCalls::moveMark()
{
    if (m_openMacros == 0) m_mark = std::max(m_mark - dropped(), 0);
}

/// How many of the oldest steps the call at hand has deleted, because there were more than the limit.
int moStackCalls::dropped() const
{
    const int count = m_stack.count();
    if (m_atHand->kind == Kind::EndMacro) return m_countBefore - count;
    return hasAppended() ? m_indexBefore + 1 - count : 0;
}

/// Whether the push at hand was neither merged nor failed.
bool moStackCalls::hasAppended() const
{
    return m_stack.command(m_stack.count() - 1) == m_atHand->command;
}

moStackMove moStackCalls::move() const
{
    const int count = m_stack.count();
    moStackMove move;
    switch (m_atHand->kind) {
    case Kind::Push:
        move.appended = m_openMacros == 0 && hasAppended();
        move.merged = m_openMacros == 0 && !move.appended;
        move.kept = move.appended || m_openMacros > 0 ? m_indexBefore : count;
        move.dropped = m_openMacros == 0 ? dropped() : 0;
        break;
    case Kind::BeginMacro:
    case Kind::EndMacro:
        move.kept = m_indexBefore;
        if (m_openMacros > 0) break;
        move.dropped = dropped();
        move.appended = m_stack.index() + move.dropped > m_indexBefore;
        if (!move.appended) move.kept = count; // there was no macro
        break;
    case Kind::Clear:
        break;
    default:
        move.kept = count;
        move.unknown = count != m_countBefore; // commands of the caller that turned obsolete
        break;
    }
    return move;
}

const moStackMoves& moStackCalls::moves()
{
    if (!m_moves) m_moves = std::make_unique<moStackMoves>();
    return *m_moves;
}

bool moStackCalls::isClearing() const
{
    return m_atHand && m_atHand->kind == Kind::Clear && !m_settled;
}

bool moStackCalls::isAdding() const
{
    return m_atHand && (m_atHand->kind == Kind::Push || m_atHand->kind == Kind::EndMacro);
}

namespace {

const moStackCall closing{Kind::Clear};
const moStackCall clearing{Kind::Clear};

} // namespace

void moStackCalls::turnIntoClear()
{
    m_atHand = &clearing;
    m_outlook.reset();
}

void moStackCalls::close()
{
    m_atHand = &closing;
    m_settled = false;
    m_outlook.reset();
}

bool moStackCalls::isClosed() const
{
    return m_atHand == &closing;
}

moStackPlace moStackCalls::place()
{
    return m_atHand ? outlook().place() : now();
}

const QUndoCommand* moStackCalls::command(int position)
{
    return m_atHand ? outlook().command(position) : m_stack.command(position);
}

moStackPlace moStackCalls::now() const
{
    return {m_stack.index(),      m_stack.count(),     m_mark,  m_openMacros,
            m_stack.cleanIndex(), m_stack.undoLimit(), m_clears};
}

moStackOutlook& moStackCalls::outlook()
{
    if (!m_outlook) {
        m_outlook.emplace(m_stack, now());
        if (!m_settled) {
            m_outlook->add(*m_atHand);
            m_expected = m_outlook->place();
        }
        for (Waiting& waiting : m_waiting)
            expect(waiting);
    }
    if (!m_outlook) throw std::bad_alloc();
    return *m_outlook;
}
