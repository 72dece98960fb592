#include <moSceneData/moSceneData.h>

#include <OpenSG/OSGCountedField.h>

void moSceneData::setSceneNode(const osg::NodePtr& node)
{
    osg::assignCounted(m_sceneNode, node);
}
