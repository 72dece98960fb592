#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/tag/moTagUndoCommand.h>

/// Shows a tag operation of another system in the history and in the messages.
///
/// Intended: undo() and redo() do nothing, because the other system has done the operation. For one that undo is to
/// take back use moAddTagUndoCommand or moSubTagUndoCommand. See docs/oddities.md#commands-of-empty-tags-do-nothing.
///
/// Never merges. id() is -1; the two derived commands have ids of their own. Message: "id" only.
class MO_UNDO_STACK_EXPORT moEmptyTagUndoCommand : public moTagUndoCommand
{
public:
    /// Parent: the composite being composed, if any.
    /// \param tag   for getTagString().
    /// \param type  for getTagType().
    moEmptyTagUndoCommand(const moUndoString& text, std::string tag, TAG_TYPE type);

    /// Does nothing.
    void undo() override;
    /// Does nothing.
    void redo() override;
};

/// An empty tag operation that stands for an addition.
class MO_UNDO_STACK_EXPORT moAddEmptyTagUndoCommand : public moEmptyTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// The same as in moEmptyTagUndoCommand.
    using moEmptyTagUndoCommand::moEmptyTagUndoCommand;
};

/// An empty tag operation that stands for a removal.
class MO_UNDO_STACK_EXPORT moSubEmptyTagUndoCommand : public moEmptyTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// The same as in moEmptyTagUndoCommand.
    using moEmptyTagUndoCommand::moEmptyTagUndoCommand;
};
