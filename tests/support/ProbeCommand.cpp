#include <support/ProbeCommand.h>

#include <moUndoUtils/moUndoString.h>

#include <utility>

namespace {

int s_liveCount = 0;

} // namespace

ProbeCommand::ProbeCommand(const std::string& text, QUndoCommand* parent)
    : moUndoCommand(moUndoString(QString::fromStdString(text), QString::fromStdString("about " + text), "Probes"),
                    parent),
      m_name(text)
{
    ++s_liveCount;
}

ProbeCommand::~ProbeCommand()
{
    --s_liveCount;
    if (m_destroyed) m_destroyed();
}

int ProbeCommand::liveCount()
{
    return s_liveCount;
}

void ProbeCommand::undo()
{
    if (m_log) m_log->push_back("undo " + m_name);
    if (m_undo) m_undo();
}

void ProbeCommand::redo()
{
    if (m_log) m_log->push_back("redo " + m_name);
    if (m_redo) m_redo();
}

bool ProbeCommand::mergeWith(const QUndoCommand* other)
{
    return m_merge && m_merge(other);
}

ProbeCommand* ProbeCommand::withId(int id)
{
    m_id = id;
    return this;
}

ProbeCommand* ProbeCommand::onRedo(std::function<void()> function)
{
    m_redo = std::move(function);
    return this;
}

ProbeCommand* ProbeCommand::onUndo(std::function<void()> function)
{
    m_undo = std::move(function);
    return this;
}

ProbeCommand* ProbeCommand::onMerge(std::function<bool(const QUndoCommand*)> function)
{
    m_merge = std::move(function);
    return this;
}

ProbeCommand* ProbeCommand::onDestroyed(std::function<void()> function)
{
    m_destroyed = std::move(function);
    return this;
}

ProbeCommand* ProbeCommand::loggingTo(std::vector<std::string>& log)
{
    m_log = &log;
    return this;
}
