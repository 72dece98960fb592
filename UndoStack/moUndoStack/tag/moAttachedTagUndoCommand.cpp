#include <moUndoStack/tag/moAttachedTagUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <algorithm>
#include <iostream>
#include <utility>
#include <vector>

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

/// Gives the list other strings in two parts. All that needs memory is done at construction and leaves the list as it
/// is; write() cannot fail. Reuses the memory of the strings that are there.
class Rewrite
{
public:
    Rewrite(osg::MField<std::string>& list, const osg::MField<std::string>& wanted)
        : m_list(list), m_wanted(wanted), m_shared(std::min(list.size(), wanted.size()))
    {
        m_added.assign(wanted.begin() + m_shared, wanted.end());
        m_list.reserve(wanted.size());
        for (osg::UInt32 i = 0; i < m_shared; ++i)
            if (m_list[i].capacity() < wanted[i].size()) m_list[i].reserve(wanted[i].size());
    }

    void write()
    {
        m_list.resize(m_wanted.size());
        for (osg::UInt32 i = 0; i < m_shared; ++i)
            m_list[i] = m_wanted[i];
        for (osg::UInt32 i = m_shared; i < m_wanted.size(); ++i)
            m_list[i].swap(m_added[i - m_shared]);
    }

private:
    osg::MField<std::string>& m_list;
    const osg::MField<std::string>& m_wanted;
    osg::UInt32 m_shared;
    std::vector<std::string> m_added;
};

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
        const TagField found = findTagField(getContainer(), m_fieldId);
        if (!found.tags) return;
        // Prepared before the first edit: if memory runs out, neither edit is made.
        osg::MField<osg::UInt64> newStamps = values;
        Rewrite rewrite(*found.tags, tags);
        {
            const ContainerEdit bracket(found.attachment, m_fieldMask);
            rewrite.write();
        }
        // Intended: one edit for the caller, so one mask for both. See
        // docs/oddities.md#stamps-are-announced-as-tags.
        // Looked up again: a listener to the first edit may have detached the attachment.
        const TagField again = findTagField(getContainer(), m_fieldId);
        if (!again.tags) return;
        const ContainerEdit bracket(again.attachment, m_fieldMask);
        again.attachment->getMFTagStamps()->swap(newStamps);
    });
}
