#pragma once

#include <OpenSG/OSGNode.h>

/// What the application knows about one loaded scene; of it, the top node.
///
/// The scene's top node is not the root of the scene graph: above it the application hangs what belongs to no scene,
/// such as cameras and helpers. Main thread only.
class moSceneData
{
public:
    moSceneData() = default;
    moSceneData(const moSceneData&) = delete;
    moSceneData& operator=(const moSceneData&) = delete;

    /// The node below which everything of the scene lies; null while no scene is set.
    osg::NodePtr getSceneNode() const { return m_sceneNode; }

    /// Sets the top node; null unsets it. The scene data keeps a reference on the node until another one is set.
    ///
    /// The reference of the last node is not given back at process end, when the scene graph may be destroyed already: an
    /// application that closes its scene sets null.
    void setSceneNode(const osg::NodePtr& node);

private:
    osg::NodePtr m_sceneNode;
};
