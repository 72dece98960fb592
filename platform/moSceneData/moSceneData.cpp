#include <moSceneData/moSceneData.h>

void moSceneData::setSceneNode(const osg::NodePtr& node)
{
    osg::setRefdCP(m_sceneNode, node);
}
