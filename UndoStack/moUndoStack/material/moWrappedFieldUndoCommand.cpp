#include <moUndoStack/material/moWrappedFieldUndoCommand.h>

#include <moUtils/moMessage.h>

moWrappedFieldUndoCommand::moWrappedFieldUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                                     unsigned int ownerId, unsigned int componentId,
                                                     QUndoCommand* parent)
    : moUndoCommand(text, parent),
      m_runBy(whoRuns(command)),
      m_ownCommand(m_runBy == RunBy::Wrapper ? command : nullptr),
      m_ownerId(ownerId),
      m_componentId(componentId),
      m_fieldContainerId(command ? command->containerId() : 0)
{
}

moWrappedFieldUndoCommand::~moWrappedFieldUndoCommand() = default;

moWrappedFieldUndoCommand::RunBy moWrappedFieldUndoCommand::whoRuns(const moFieldBaseUndoCommand<>* command)
{
    if (!command) return RunBy::Nobody;
    return command->parent() ? RunBy::ItsParent : RunBy::Wrapper;
}

bool moWrappedFieldUndoCommand::mergeWith(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    const auto& newer = static_cast<const moWrappedFieldUndoCommand&>(*other);
    adoptCreationTime(newer);
    return !m_ownCommand || m_ownCommand->mergeWith(newer.m_ownCommand.get());
}

bool moWrappedFieldUndoCommand::canMergeWith(const QUndoCommand* other) const
{
    if (!moUndoCommand::canMergeWith(other)) return false;
    const auto* newer = castLike(*this, other);
    if (!newer || newer->m_ownerId != m_ownerId || newer->m_componentId != m_componentId) return false;
    // If neither runs its field command, a merge loses nothing.
    if (!m_ownCommand || !newer->m_ownCommand) return m_ownCommand == newer->m_ownCommand;
    return m_ownCommand->canMergeWith(newer->m_ownCommand.get());
}

void moWrappedFieldUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    message.set("container", m_fieldContainerId, true);
}
