#include <moUndoStack/material/moWrappedFieldUndoCommand.h>

#include <moUtils/moMessage.h>

moWrappedFieldUndoCommand::moWrappedFieldUndoCommand(const moUndoString& text, moFieldBaseUndoCommand<>* command,
                                                     unsigned int firstId, unsigned int secondId, QUndoCommand* parent)
    : moUndoCommand(text, parent),
      m_wrapped(command && !command->parent() ? command : nullptr),
      m_firstId(firstId),
      m_secondId(secondId),
      m_wrappedContainerId(command ? command->containerId() : 0)
{
}

moWrappedFieldUndoCommand::~moWrappedFieldUndoCommand() = default;

bool moWrappedFieldUndoCommand::mergeWith(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    const auto& newer = static_cast<const moWrappedFieldUndoCommand&>(*other);
    adoptCreationTime(newer);
    return !m_wrapped || m_wrapped->mergeWith(newer.m_wrapped.get());
}

bool moWrappedFieldUndoCommand::canMergeWith(const QUndoCommand* other) const
{
    if (!moUndoCommand::canMergeWith(other)) return false;
    const auto* newer = castLike(*this, other);
    if (!newer || newer->m_firstId != m_firstId || newer->m_secondId != m_secondId) return false;
    // Without a command of their own there is nothing that could be lost.
    if (!m_wrapped || !newer->m_wrapped) return m_wrapped == newer->m_wrapped;
    return m_wrapped->canMergeWith(newer->m_wrapped.get());
}

void moWrappedFieldUndoCommand::setContainerKeys(moMessage& message, const char* firstKey, const char* secondKey) const
{
    message.set("container", m_wrappedContainerId, true);
    setIdUnlessNull(message, firstKey, m_firstId);
    setIdUnlessNull(message, secondKey, m_secondId);
}
