#include <moUndoStack/transform/moAddTransformVariantUndoCommand.h>

#include <moUndoStack/transform/moTransformText_p.h>
#include <moUndoStack/transform/moVariantList_p.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moAddTransformVariantUndoCommand)

moAddTransformVariantUndoCommand::moAddTransformVariantUndoCommand(osg::NodePtr node, osg::TransformVariantPtr variant,
                                                                   std::uint64_t index, QUndoCommand* parent,
                                                                   Callback callback)
    : moUndoCommand(
          transformText(sharedText(tr("Insert transform variant '%1'"), node), tr("Insert transform variant")), parent),
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
    moStep::run([this] {
        m_isDone = m_isInserted = false;
        const auto variant = m_variant->find<osg::TransformVariantPtr>();
        if (findContainer<osg::NodePtr>(m_nodeId) == osg::NullFC || variant == osg::NullFC) return;

        moVariantList list(m_nodeId);
        list.edit([&] {
            if (list.attachment() == osg::NullFC) putOnList(list);
            list.insert(m_index, variant);
        });
        m_isDone = true;
        m_isInserted = list.at(m_index) == variant;
        moStep::afterwards([this] { m_callback(m_nodeId, static_cast<int>(m_index), false); });
    });
}

void moAddTransformVariantUndoCommand::undo()
{
    moStep::run([this] {
        if (findContainer<osg::NodePtr>(m_nodeId) == osg::NullFC) return;

        moVariantList list(m_nodeId);
        list.edit([&] {
            if (!m_isDone) return;
            if (m_isInserted) list.remove(m_index);
            if (list.count() == 0 && m_attachment->find<osg::TransformVariantsAttachmentPtr>() != osg::NullFC)
                list.takeOff();
        });
        moStep::afterwards([this] { m_callback(m_nodeId, static_cast<int>(m_index), true); });
    });
}

/// Puts back the list that an earlier redo made; makes one if there is none.
void moAddTransformVariantUndoCommand::putOnList(moVariantList& list)
{
    if (const auto former = m_attachment->find<osg::TransformVariantsAttachmentPtr>()) {
        list.putOn(former);
        return;
    }
    list.create();
    *m_attachment = ContainerReference(list.attachment());
}
