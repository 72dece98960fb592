#include <moUndoStack/tag/moAttachedTagUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <iostream>
#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moAddTagUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moSubTagUndoCommand)

namespace {

struct TagField
{
    osg::TagAttachmentPtr attachment;
    osg::MField<std::string>* tags = nullptr;
};

/// Leaves tags null if there is no attachment, or if the field is no list of strings.
TagField findTagField(const osg::AttachmentContainerPtr& container, osg::UInt32 fieldId)
{
    TagField found;
    if (container == osg::NullFC) return found;
    found.attachment = osg::TagAttachmentPtr::dcast(container->findAttachment(osg::TagAttachment::getClassType()));
    if (found.attachment != osg::NullFC)
        found.tags = dynamic_cast<osg::MField<std::string>*>(found.attachment->getField(fieldId));
    return found;
}

template<class Edit>
void editTagField(const osg::AttachmentContainerPtr& container, osg::UInt32 fieldId, osg::BitVector mask, Edit edit)
{
    const TagField field = findTagField(container, fieldId);
    if (!field.tags) return;
    const ContainerEdit bracket(field.attachment, mask);
    edit(field);
}

} // namespace

moAttachedTagUndoCommand::moAttachedTagUndoCommand(const moUndoString& text, osg::AttachmentContainerPtr container,
                                                   osg::UInt64 fieldMask, osg::UInt32 fieldId, std::string tag,
                                                   osg::MField<std::string>* newTags,
                                                   osg::MField<osg::UInt64> oldValues,
                                                   osg::MField<osg::UInt64> newValues)
    : moTagUndoCommand(text),
      m_fieldId(fieldId),
      m_fieldMask(fieldMask),
      m_container(std::make_unique<ContainerReference>(container))
{
    const TagField field = findTagField(container, fieldId);
    // Intended: all lists stay empty, because the command replaces whole lists. One that exists by the time of a redo
    // is emptied. See docs/oddities.md#a-late-tag-attachment-is-emptied.
    if (!field.tags) return;

    m_oldTags = *field.tags;
    if (newTags) m_newTags = *newTags;
    m_oldValues.swap(oldValues);
    m_newValues.swap(newValues);

    const bool isUserTag = fieldId == osg::TagAttachment::UserTagsFieldId;
    const bool isSystemTag = fieldId == osg::TagAttachment::SystemTagsFieldId;
    // Intended: another list is edited, because types derived from the attachment may have some. See
    // docs/oddities.md#an-unsupported-list-of-tags-is-edited.
    if (!isUserTag && !isSystemTag) std::cout << "Tag type is not Undo Redo supported!";
    setTag(std::move(tag), isUserTag ? USER_TAG : SYSTEM_TAG);
}

moAttachedTagUndoCommand::~moAttachedTagUndoCommand() = default;

void moAttachedTagUndoCommand::undo()
{
    apply(m_oldTags, m_oldValues);
}

void moAttachedTagUndoCommand::redo()
{
    apply(m_newTags, m_newValues);
}

osg::AttachmentContainerPtr moAttachedTagUndoCommand::getContainer() const
{
    return m_container->find<osg::AttachmentContainerPtr>();
}

void moAttachedTagUndoCommand::apply(const osg::MField<std::string>& tags, const osg::MField<osg::UInt64>& values)
{
    moStep::run([&] {
        // Copied before the first edit: if memory runs out, neither edit is made.
        osg::MField<std::string> newTags = tags;
        osg::MField<osg::UInt64> newStamps = values;
        editTagField(getContainer(), m_fieldId, m_fieldMask,
                     [&newTags](const TagField& field) { field.tags->swap(newTags); });
        // Intended: one edit for the caller, so one mask for both. See
        // docs/oddities.md#stamps-are-announced-as-tags.
        editTagField(getContainer(), m_fieldId, m_fieldMask,
                     [&newStamps](const TagField& field) { field.attachment->getMFTagStamps()->swap(newStamps); });
    });
}
