#pragma once

#include <support/EditTrace.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <OpenSG/OSGNode.h>
#include <moOpenSGUberLight/OSGLensFlareEffect.h>
#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>
#include <moOpenSGUberLight/OSGLightLinkSet.h>
#include <moOpenSGUberLight/OSGUberLight.h>

#include <QUndoCommand>

#include <string>
#include <vector>

/// A root, below it the top node of scene 0, and below that the lights and nodes that a test makes.
///
/// Containers made here are held with one reference until drop() or the end of the test.
class LightTest : public UndoTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    template<class Ptr>
    Ptr keep(const Ptr& container)
    {
        osg::addRefCP(container);
        m_kept.push_back(osg::getContainerId(container));
        return container;
    }

    /// Gives the test's own reference back; the container is destroyed if it was the last.
    void drop(const osg::FieldContainerPtr& container);

    /// A node below the top node with a core of the type. Its name identifies it in descriptions.
    template<class Core>
    osg::NodePtr makeNode(const std::string& name)
    {
        return place(sceneNode, name, Core::create());
    }
    osg::NodePtr makeLight(const std::string& name = "light") { return makeNode<osg::UberLight>(name); }

    /// The same, with a core that reports its changes to EditTrace. The last one is goodbye, when the node is
    /// destroyed.
    osg::NodePtr makeTracedLight();
    static constexpr const char* goodbye = "TracedUberLight parents 1";
    /// A set that reports its changes to EditTrace.
    static osg::LightLinkSetPtr makeTracedSet();

    /// A node with the core, below the parent, which alone holds it.
    osg::NodePtr place(const osg::NodePtr& parent, const std::string& name, const osg::NodeCorePtr& core);

    /// Removes the node from its parent. This destroys it with its core, unless something else holds it.
    void destroy(osg::NodePtr node);

    osg::NodePtr root;
    osg::NodePtr sceneNode;

private:
    std::vector<unsigned int> m_kept;
};

osg::UberLightPtr coreOf(const osg::NodePtr& light);
osg::UInt32 idOf(const osg::FieldContainerPtr& container);

/// All properties of a light, in one line.
std::string describeLight(const osg::NodePtr& light);
/// All settings of an effect, and the ids of its elements.
std::string describeEffect(const osg::LensFlareEffectPtr& effect);
/// The names of the nodes, in order: "a b c".
std::string namesOf(const osg::MFNodePtr& nodes);
/// The ids of the containers of a list, in order.
template<class List>
std::vector<unsigned int> idsOf(const List& list)
{
    std::vector<unsigned int> ids;
    for (const auto& container : list)
        ids.push_back(osg::getContainerId(container));
    return ids;
}

/// Collects the edits that are closed while it exists, as (container id, mask).
class EditLog
{
public:
    EditLog();
    ~EditLog();
    EditLog(const EditLog&) = delete;
    EditLog& operator=(const EditLog&) = delete;

    using Edit = std::pair<osg::UInt32, osg::BitVector>;
    std::vector<Edit> take();
};
