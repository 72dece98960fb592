#include <moUndoStack/transform/moAddTransformVariantUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/transform/moTransformText_p.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moAddTransformVariantUndoCommand)

moAddTransformVariantUndoCommand::moAddTransformVariantUndoCommand(osg::NodePtr node, osg::TransformVariantPtr variant,
                                                                   std::uint64_t index, QUndoCommand* parent,
                                                                   Callback callback)
    : moUndoCommand(
          transformText(tr("Insert transform variant '%1'").arg(nodeName(node)), tr("Insert transform variant")),
          parent),
      m_nodeId(containerId(node)),
      m_variant(std::make_unique<ContainerReference>(variant)),
      m_attachment(std::make_unique<ContainerReference>()),
      m_index(index),
      m_callback(std::move(callback))
{
}

moAddTransformVariantUndoCommand::~moAddTransformVariantUndoCommand() = default;

void moAddTransformVariantUndoCommand::redo()
{
    const auto node = findContainer<osg::NodePtr>(m_nodeId);
    const auto variant = m_variant->find<osg::TransformVariantPtr>();
    if (node == osg::NullFC || variant == osg::NullFC) return;

    if (moNodeUtils::getTransformVariantsAttachment(node) == osg::NullFC) {
        if (const auto attachment = m_attachment->find<osg::TransformVariantsAttachmentPtr>())
            moNodeUtils::setTransformVariantsAttachment(node, attachment);
        else
            *m_attachment = ContainerReference(moNodeUtils::createTransformVariantsAttachment(node));
    }
    moNodeUtils::insertTransformVariant(node, m_index, variant);
    m_callback(m_nodeId, static_cast<int>(m_index), false);
}

void moAddTransformVariantUndoCommand::undo()
{
    const auto node = findContainer<osg::NodePtr>(m_nodeId);
    if (node == osg::NullFC) return;

    moNodeUtils::removeTransformVariant(node, m_index);
    if (moNodeUtils::getTransformVariantCount(node) == 0 &&
        m_attachment->find<osg::TransformVariantsAttachmentPtr>() != osg::NullFC)
        moNodeUtils::removeTransformVariantsAttachment(node);
    m_callback(m_nodeId, static_cast<int>(m_index), true);
}
