#include <moUndoStack/core/moMultiCommand.h>

#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStack.h>

#include <moUndoUtils/moUndoString.h>

#include <typeinfo>
#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moMultiCommand)

namespace {

using Step = void (QUndoCommand::*)();

/// Runs the step of each child in turn and then the after function. If a child's step does not happen, those before it
/// are taken back in the opposite order, and the after function is not called.
///
/// childAt(i) is the i-th child to run, null after the last one. It is asked each time: a child may add others.
template<class ChildAt>
void runWhole(const ChildAt& childAt, Step step, Step opposite, const std::function<void()>& after)
{
    moStep::run([&] {
        int through = 0;
        try {
            while (QUndoCommand* const child = childAt(through)) {
                (child->*step)();
                ++through;
            }
        } catch (...) {
            while (through > 0)
                moStep::takeBack([&] { (childAt(--through)->*opposite)(); });
            throw;
        }
        if (after) moStep::afterwards(after);
    });
}

} // namespace

moMultiCommand::moMultiCommand(const moUndoString& text) : moMultiCommand(text, nullptr) {}

moMultiCommand::moMultiCommand(const moUndoString& text, QUndoCommand* parent)
    : moUndoCommandBase(text, parent ? parent : moUndoStack::getCurrentCommandParent())
{
}

moMultiCommand::moMultiCommand(const moUndoString& text, QUndoCommand* /*parent*/, bool mergeEnabled)
    : moUndoCommandBase(text, moUndoStack::getCurrentCommandParent()), m_mergeEnabled(mergeEnabled)
{
}

moMultiCommand::moMultiCommand(const moUndoString& text, std::function<void()> after)
    : moUndoCommandBase(text, moUndoStack::getCurrentCommandParent()), m_after(std::move(after))
{
}

moMultiCommand::~moMultiCommand() = default;

void moMultiCommand::undo()
{
    if (m_cancelled) return;
    const int last = childCount() - 1;
    const auto fromTheLast = [this, last](int i) { return childAt(last - i); };
    runWhole(fromTheLast, &QUndoCommand::undo, &QUndoCommand::redo, m_after);
}

void moMultiCommand::redo()
{
    if (m_cancelled) return;
    const auto fromTheFirst = [this](int i) { return childAt(i); };
    runWhole(fromTheFirst, &QUndoCommand::redo, &QUndoCommand::undo, m_after);
}

bool moMultiCommand::mergeWith(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    for (int i = 0; i < childCount(); ++i)
        childAt(i)->mergeWith(other->child(i));
    setText(other->text());
    return true;
}

void moMultiCommand::makeMessage(moMessage& message) const
{
    if (const auto* first = dynamic_cast<const moUndoCommand*>(firstChild())) first->makeMessage(message);
}

bool moMultiCommand::canMergeWith(const QUndoCommand* other) const
{
    if (!other || !m_mergeEnabled || m_cancelled || isCancelled(other) || other->id() != id() ||
        other->childCount() != childCount())
        return false;
    for (int i = 0; i < childCount(); ++i) {
        const auto* command = dynamic_cast<const moUndoCommandBase*>(child(i));
        if (!command || !command->canMergeWith(other->child(i))) return false;
    }
    return true;
}

void moMultiCommand::setMergeEnabled(bool enabled)
{
    m_mergeEnabled = enabled;
}

bool moMultiCommand::isMergeEnabled() const
{
    return m_mergeEnabled;
}

bool moMultiCommand::hasChild(const QUndoCommand* command) const
{
    for (int i = 0; i < childCount(); ++i) {
        if (child(i) == command) return true;
    }
    return false;
}

/// From now on the composite does nothing. It and its children exist as long as its parent, which cannot release them.
void moMultiCommand::cancel()
{
    m_cancelled = true;
    removeChangedCBs();
}

bool moMultiCommand::isCancelled(const QUndoCommand* command)
{
    // Only composites that the stack itself has made are cancelled, so none of a derived class.
    if (!command || typeid(*command) != typeid(moMultiCommand)) return false;
    return static_cast<const moMultiCommand*>(command)->m_cancelled;
}

/// The first child that is no cancelled composite; null if there is none.
const QUndoCommand* moMultiCommand::firstChild() const
{
    int i = 0;
    while (isCancelled(child(i)))
        ++i;
    return child(i);
}

/// The positions of the children of any command but the composites that were cancelled.
std::vector<int> moMultiCommand::positionsOf(const QUndoCommand& command)
{
    std::vector<int> positions;
    for (int i = 0; i < command.childCount(); ++i) {
        if (!isCancelled(command.child(i))) positions.push_back(i);
    }
    return positions;
}

/// The children at these positions.
std::vector<const QUndoCommand*> moMultiCommand::childrenOf(const QUndoCommand& command)
{
    std::vector<const QUndoCommand*> children;
    for (const int position : positionsOf(command))
        children.push_back(command.child(position));
    return children;
}

QUndoCommand* moMultiCommand::childAt(int index) const
{
    // Qt returns children as const only; this command owns them.
    return const_cast<QUndoCommand*>(child(index));
}
