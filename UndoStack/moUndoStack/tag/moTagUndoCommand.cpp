#include <moUndoStack/tag/moTagUndoCommand.h>

#include <utility>

moTagUndoCommand::moTagUndoCommand(const moUndoString& text) : moUndoCommand(text, nullptr)
{
    // A composite asks only this of its children: the newer tags would be lost.
    setMergeEnabled(false);
}

void moTagUndoCommand::setTag(std::string tag, TAG_TYPE type)
{
    m_tagString = std::move(tag);
    m_tagType = type;
}
