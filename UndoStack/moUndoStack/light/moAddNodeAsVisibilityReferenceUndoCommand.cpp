#include <moUndoStack/light/moAddNodeAsVisibilityReferenceUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/light/moNodeFlags_p.h>

#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

MO_UNDO_COMMAND_ID_IMPL(moAddNodeAsVisibilityReferenceUndoCommand)

namespace {

constexpr osg::UInt32 visibilityReferenceExternalFlag = 0x10;

} // namespace

moAddNodeAsVisibilityReferenceUndoCommand::moAddNodeAsVisibilityReferenceUndoCommand(osg::UberLightPtr light,
                                                                                     osg::NodePtr node, bool remove,
                                                                                     QUndoCommand* parent)
    : moUndoCommand(moUndoString("Add Node as Visibility Reference", QString()), parent),
      m_lightId(containerId(light)),
      m_nodeId(containerId(node)),
      m_remove(remove)
{
}

void moAddNodeAsVisibilityReferenceUndoCommand::undo()
{
    apply(!m_remove);
}

void moAddNodeAsVisibilityReferenceUndoCommand::redo()
{
    apply(m_remove);
}

void moAddNodeAsVisibilityReferenceUndoCommand::apply(bool remove)
{
    moStep::run([this, remove] {
        const auto light = findContainer<osg::UberLightPtr>(m_lightId);
        const auto node = findContainer<osg::NodePtr>(m_nodeId);
        if (!light || !node) return;

        // Holds the node until its edit is closed: the light may give back the last reference. A node without any
        // reference is not held, because giving that one back would destroy it.
        const ContainerReference held(node.getRefCount() > 0 ? node : osg::NodePtr());
        // In this order, so that the light's edit is closed first.
        const ContainerEdit nodeEdit(moNodeFlags::exist ? node : osg::NodePtr(), moNodeFlags::externalFlagsMask());
        const ContainerEdit lightEdit(light, osg::UberLightBase::VisibilityReferenceFieldMask);
        moStep::writeThroughSibling([&] { light->setVisibilityReference(remove ? osg::NodePtr() : node); });
        // Looks the node up again: replacing the light's former reference may have destroyed it.
        const auto marked = findContainer<osg::NodePtr>(m_nodeId);
        if (!marked) return;
        const osg::UInt32 flags = moNodeFlags::getExternalFlags(marked);
        moNodeFlags::setExternalFlags(marked, remove ? flags & ~visibilityReferenceExternalFlag
                                                     : flags | visibilityReferenceExternalFlag);
    });
}

void moAddNodeAsVisibilityReferenceUndoCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    message.set("lightCommand", m_lightId, true);
}
