#include <moUndoStack/core/moUndoCommand.h>

#include <moUndoStack/core/moCommandOptions_p.h>
#include <moUndoStack/core/moUndoClock_p.h>
#include <moUndoStack/core/moUndoStack.h>

#include <moUtils/moMessage.h>

#include <unordered_map>

moUndoCommand::moUndoCommand(const moUndoString& text, QUndoCommand* parent)
    : moUndoCommandBase(text, parent ? parent : moUndoStack::getCurrentCommandParent()),
      m_creationTime(moUndoClock::seconds())
{
}

void moUndoCommand::makeMessage(moMessage& message) const
{
    message.set("id", id(), true);
}

bool moUndoCommand::canMergeWith(const QUndoCommand* other) const
{
    if (!other || other->id() != id()) return false;
    const auto* newer = castLike(*this, other);
    if (!newer) return false;
    const Options* const given = newer->m_options.get();
    if (given && !given->mergeEnabled) return false;
    const double interval = given ? given->mergeResponseDelta : defaultMergeResponseDelta;
    if (!(interval >= 0.0)) return true;
    return m_creationTime > newer->m_creationTime - interval;
}

int moUndoCommand::makeId(std::type_index type)
{
    static std::unordered_map<std::type_index, int> s_ids;
    static int s_lastId = 0;

    const auto known = s_ids.find(type);
    if (known != s_ids.end()) return known->second;
    s_ids.emplace(type, s_lastId + 1);
    return ++s_lastId;
}

void moUndoCommand::setMergeResponseDelta(const double& seconds)
{
    if (m_options || seconds != defaultMergeResponseDelta) options().mergeResponseDelta = seconds;
}

void moUndoCommand::setMergeEnabled(bool enabled)
{
    if (m_options || !enabled) options().mergeEnabled = enabled;
}
