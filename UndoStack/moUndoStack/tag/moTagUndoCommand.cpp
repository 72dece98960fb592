#include <moUndoStack/tag/moTagUndoCommand.h>

#include <utility>

moTagUndoCommand::moTagUndoCommand(const moUndoString& text) : moUndoCommand(text, nullptr)
{
    // A composite would merge two of them and lose the newer tags: it does not look at what mergeWith() answers.
    setMergeEnabled(false);
}

void moTagUndoCommand::setTag(std::string tag, TAG_TYPE type)
{
    m_tagString = std::move(tag);
    m_tagType = type;
}
