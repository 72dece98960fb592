#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/tag/moTagUndoCommand.h>

#include <moOpenSGExt/OSGTagAttachment.h>

#include <OpenSG/OSGAttachmentContainer.h>

#include <memory>

class ContainerReference;

/// Replaces one list of tags, and the stamps, in the tag attachment of a scene object.
///
/// \param container  the tagged object; held for the life of the command. Null makes the command inert.
/// \param fieldMask  passed to the edit bracket of the tags and, as it stands, to that of the stamps. A mirror that
///                   reads masks never hears of the stamps unless this names their field, too.
/// \param fieldId    the string list within the attachment: 4 or 5. Any other list of strings is edited, too, and
///                   counts as SYSTEM_TAG, after a line on standard output.
/// \param tag        the tag that was added or removed, for getTagString().
/// \param newTags    the whole list after the change; copied, stays the caller's. Null stands for an empty list.
/// \param oldValues  the stamps before the change.
/// \param newValues  the stamps after the change.
///
/// Old value: the tags are read at construction, the stamps are the caller's. When the object has no tag attachment
/// with such a list at construction, the command keeps empty lists, an empty tag and USER_TAG; without one at undo or
/// redo nothing happens. Never merges. id() is -1; the two derived commands have ids of their own.
class MO_UNDO_STACK_EXPORT moAttachedTagUndoCommand : public moTagUndoCommand
{
public:
    moAttachedTagUndoCommand(const moUndoString& text, osg::AttachmentContainerPtr container, osg::UInt64 fieldMask,
                             osg::UInt32 fieldId, std::string tag, osg::MField<std::string>* newTags,
                             osg::MField<osg::UInt64> oldValues, osg::MField<osg::UInt64> newValues);
    ~moAttachedTagUndoCommand() override;

    void undo() override;
    void redo() override;

    osg::AttachmentContainerPtr getContainer() const;

private:
    void apply(const osg::MField<std::string>& tags, const osg::MField<osg::UInt64>& values);

    osg::MField<std::string> m_oldTags;
    osg::MField<std::string> m_newTags;
    osg::MField<osg::UInt64> m_oldValues;
    osg::MField<osg::UInt64> m_newValues;
    osg::UInt32 m_fieldId;
    osg::BitVector m_fieldMask;
    std::unique_ptr<ContainerReference> m_container;
};

/// The addition of a tag. It behaves as moAttachedTagUndoCommand does; its id tells listeners that it adds.
class MO_UNDO_STACK_EXPORT moAddTagUndoCommand : public moAttachedTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    using moAttachedTagUndoCommand::moAttachedTagUndoCommand;
};

/// The removal of a tag. It behaves as moAttachedTagUndoCommand does; its id tells listeners that it removes.
class MO_UNDO_STACK_EXPORT moSubTagUndoCommand : public moAttachedTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    using moAttachedTagUndoCommand::moAttachedTagUndoCommand;
};
