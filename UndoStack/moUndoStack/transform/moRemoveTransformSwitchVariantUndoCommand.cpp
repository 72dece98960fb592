#include <moUndoStack/transform/moRemoveTransformSwitchVariantUndoCommand.h>

#include <moUndoStack/transform/moTransformText_p.h>
#include <moUndoStack/transform/moVariantList_p.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moRemoveTransformSwitchVariantUndoCommand)

moRemoveTransformSwitchVariantUndoCommand::moRemoveTransformSwitchVariantUndoCommand(osg::NodePtr node,
                                                                                     std::uint64_t index,
                                                                                     QUndoCommand* parent,
                                                                                     Callback callback)
    : moUndoCommand(
          transformText(sharedText(tr("Remove transform variant '%1'"), node), tr("Remove transform variant")), parent),
      m_nodeId(containerId(node)),
      m_variant(std::make_unique<ContainerReference>(moNodeUtils::getTransformVariant(node, index))),
      m_attachment(std::make_unique<ContainerReference>(moNodeUtils::getTransformVariantsAttachment(node))),
      m_index(index),
      m_callback(std::move(callback))
{
}

moRemoveTransformSwitchVariantUndoCommand::~moRemoveTransformSwitchVariantUndoCommand() = default;

void moRemoveTransformSwitchVariantUndoCommand::redo()
{
    moStep::run([this] {
        if (findContainer<osg::NodePtr>(m_nodeId) == osg::NullFC) return;

        moVariantList list(m_nodeId);
        list.edit([&] {
            list.remove(m_index);
            if (list.count() == 0) list.takeOff();
        });
        moStep::afterwards([this] { m_callback(m_nodeId, static_cast<int>(m_index), false); });
    });
}

void moRemoveTransformSwitchVariantUndoCommand::undo()
{
    moStep::run([this] {
        const auto node = findContainer<osg::NodePtr>(m_nodeId);
        const auto variant = m_variant->find<osg::TransformVariantPtr>();
        const auto attachment = m_attachment->find<osg::TransformVariantsAttachmentPtr>();
        if (node == osg::NullFC || variant == osg::NullFC || attachment == osg::NullFC) return;

        moVariantList list(m_nodeId);
        list.edit([&] {
            if (list.attachment() == osg::NullFC) list.putOn(attachment);
            list.insert(m_index, variant);
        });
        moStep::afterwards([this] { m_callback(m_nodeId, static_cast<int>(m_index), true); });
    });
}
