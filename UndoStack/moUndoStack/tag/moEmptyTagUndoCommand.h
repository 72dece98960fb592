#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/tag/moTagUndoCommand.h>

/// Records a tag operation that has no effect of its own, so that it shows on the undo stack and in its notifications.
///
/// \param tag   kept for getTagString().
/// \param type  kept for getTagType().
///
/// undo() and redo() do nothing. id() is -1; the two derived commands have ids of their own.
class MO_UNDO_STACK_EXPORT moEmptyTagUndoCommand : public moTagUndoCommand
{
public:
    moEmptyTagUndoCommand(const moUndoString& text, std::string tag, TAG_TYPE type);

    void undo() override;
    void redo() override;
};

/// An empty tag operation that stands for an addition.
class MO_UNDO_STACK_EXPORT moAddEmptyTagUndoCommand : public moEmptyTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    using moEmptyTagUndoCommand::moEmptyTagUndoCommand;
};

/// An empty tag operation that stands for a removal.
class MO_UNDO_STACK_EXPORT moSubEmptyTagUndoCommand : public moEmptyTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    using moEmptyTagUndoCommand::moEmptyTagUndoCommand;
};
