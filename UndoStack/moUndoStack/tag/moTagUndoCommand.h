#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <string>

/// What all tag commands have in common: the tag that the command is about, and the kind of that tag.
///
/// Tag commands never merge, inside a composite neither: they switch merging off. Their constructors take no parent: it
/// is the composite being composed, if there is one. Message: "id" only.
class MO_UNDO_STACK_EXPORT moTagUndoCommand : public moUndoCommand
{
public:
    /// The two kinds of tags, each a string list of osg::TagAttachment.
    enum TAG_TYPE
    {
        USER_TAG = 0,  ///< field 4, given by the user
        SYSTEM_TAG = 1 ///< field 5, given by the application
    };

    explicit moTagUndoCommand(const moUndoString& text);

    void undo() override = 0;
    void redo() override = 0;

    /// USER_TAG unless a derived command has set it.
    TAG_TYPE getTagType() const { return m_tagType; }
    /// Empty unless a derived command has set it.
    std::string getTagString() const { return m_tagString; }

protected:
    void setTag(std::string tag, TAG_TYPE type);

private:
    TAG_TYPE m_tagType = USER_TAG;
    std::string m_tagString;
};
