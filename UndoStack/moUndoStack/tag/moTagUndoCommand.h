#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <string>

/// Base of the tag commands: keeps the tag that the command is about, and its kind.
///
/// Never merges, also not inside a composite: tag commands switch merging off. Message: "id" only.
///
/// Intended: unlike those of other families, the constructors take no parent; it is the composite being composed, if
/// any. This is part of the interface. See docs/oddities.md#parent-callback-variant-index.
class MO_UNDO_STACK_EXPORT moTagUndoCommand : public moUndoCommand
{
public:
    /// The two kinds of tags, each a string list of osg::TagAttachment.
    enum TAG_TYPE
    {
        USER_TAG = 0,  ///< field 4, given by the user
        SYSTEM_TAG = 1 ///< field 5, given by the application
    };

    /// Switches merging off. Parent: the composite being composed, if any.
    explicit moTagUndoCommand(const moUndoString& text);

    /// Takes the tag operation back.
    void undo() override = 0;
    /// Does the tag operation.
    void redo() override = 0;

    /// The kind of the tag; USER_TAG until setTag() was called.
    TAG_TYPE getTagType() const { return m_tagType; }
    /// The tag; empty until setTag() was called.
    std::string getTagString() const { return m_tagString; }

protected:
    /// Sets what getTagString() and getTagType() return.
    void setTag(std::string tag, TAG_TYPE type);

private:
    TAG_TYPE m_tagType = USER_TAG;
    std::string m_tagString;
};
