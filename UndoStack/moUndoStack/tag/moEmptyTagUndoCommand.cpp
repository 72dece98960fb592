#include <moUndoStack/tag/moEmptyTagUndoCommand.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moAddEmptyTagUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moSubEmptyTagUndoCommand)

moEmptyTagUndoCommand::moEmptyTagUndoCommand(const moUndoString& text, std::string tag, TAG_TYPE type)
    : moTagUndoCommand(text)
{
    setTag(std::move(tag), type);
}

void moEmptyTagUndoCommand::undo() {}

void moEmptyTagUndoCommand::redo() {}
