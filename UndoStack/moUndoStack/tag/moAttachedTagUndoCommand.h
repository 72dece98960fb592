#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/tag/moTagUndoCommand.h>

#include <moOpenSGExt/OSGTagAttachment.h>

#include <OpenSG/OSGAttachmentContainer.h>

#include <memory>

class ContainerReference;

/// Replaces one list of tags, and the stamps, in the tag attachment of a scene object.
///
/// Old value: the tags are read at construction; the caller gives the stamps. If the scene object has no tag attachment
/// with such a list by the time of an undo or redo, the step is a no-op.
///
/// Intended: if there is none at construction, the command keeps empty lists, an empty tag and USER_TAG. It replaces
/// whole lists, so it empties those of an attachment that exists by the time of a redo. See
/// docs/oddities.md#a-late-tag-attachment-is-emptied.
///
/// Never merges. id() is -1; the two derived commands have ids of their own. Message: "id" only.
class MO_UNDO_STACK_EXPORT moAttachedTagUndoCommand : public moTagUndoCommand
{
public:
    /// Parent: the composite being composed, if any.
    /// \param container  the tagged scene object; the command holds a reference on it. Null makes the command inert.
    /// \param fieldMask  for the edit of the tags and that of the stamps. Intended: both are one edit to the caller, so
    ///                   the stamps are announced only if the mask names their field, too. See
    ///                   docs/oddities.md#stamps-are-announced-as-tags.
    /// \param fieldId    the list within the attachment: 4 (user tags) or 5 (system tags). Intended: any other list of
    ///                   strings is edited, too, as SYSTEM_TAG and after a line on standard output, because types
    ///                   derived from osg::TagAttachment may have lists of their own. See
    ///                   docs/oddities.md#an-unsupported-list-of-tags-is-edited.
    /// \param tag        the tag that was added or removed, for getTagString().
    /// \param newTags    the whole list after the change. Copied, not owned; null means an empty list.
    /// \param oldValues  the stamps before the change.
    /// \param newValues  the stamps after the change.
    moAttachedTagUndoCommand(const moUndoString& text, osg::AttachmentContainerPtr container, osg::UInt64 fieldMask,
                             osg::UInt32 fieldId, std::string tag, osg::MField<std::string>* newTags,
                             osg::MField<osg::UInt64> oldValues, osg::MField<osg::UInt64> newValues);
    ~moAttachedTagUndoCommand() override;

    /// Writes the tags and stamps from before the change.
    void undo() override;
    /// Writes the tags and stamps from after the change.
    void redo() override;

    /// The tagged scene object; null if the command was given none or it was destroyed. Adds no reference.
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

/// The addition of a tag: a moAttachedTagUndoCommand whose id tells listeners that a tag is added.
class MO_UNDO_STACK_EXPORT moAddTagUndoCommand : public moAttachedTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// The same as in moAttachedTagUndoCommand.
    using moAttachedTagUndoCommand::moAttachedTagUndoCommand;
};

/// The removal of a tag: a moAttachedTagUndoCommand whose id tells listeners that a tag is removed.
class MO_UNDO_STACK_EXPORT moSubTagUndoCommand : public moAttachedTagUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// The same as in moAttachedTagUndoCommand.
    using moAttachedTagUndoCommand::moAttachedTagUndoCommand;
};
