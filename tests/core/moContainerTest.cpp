#include <support/UndoTest.h>

#include <moUndoStack/core/moContainer_p.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGTransform.h>

#include <stdexcept>
#include <utility>

namespace {

TEST(Containers, NullHandleHasTheIdZeroAndZeroFindsNothing)
{
    EXPECT_EQ(containerId(osg::NullFC), 0U);
    EXPECT_EQ(containerId(osg::NodePtr()), 0U);
    EXPECT_EQ(findContainer<osg::FieldContainerPtr>(0), osg::NullFC);
    EXPECT_EQ(findContainer<osg::NodePtr>(~0U), osg::NullFC);
}

TEST(Containers, AreFoundAsTheirOwnTypeAndAsThoseItIsDerivedFrom)
{
    osg::TransformPtr transform = osg::Transform::create();
    const unsigned int id = containerId(transform);
    EXPECT_EQ(findContainer<osg::TransformPtr>(id), transform);
    EXPECT_EQ(findContainer<osg::GroupPtr>(id), transform);
    EXPECT_EQ(findContainer<osg::FieldContainerPtr>(id), transform);
    EXPECT_EQ(findContainer<osg::NodePtr>(id), osg::NullFC);
    osg::subRefCP(transform);
    EXPECT_EQ(findContainer<osg::TransformPtr>(id), osg::NullFC);
}

TEST(ContainerReference, KeepsAContainerAliveForItsLife)
{
    osg::NodePtr node = osg::Node::create();
    const unsigned int id = containerId(node);
    {
        const ContainerReference reference(node);
        EXPECT_EQ(node.getRefCount(), 1);
        EXPECT_EQ(reference.id(), id);
        EXPECT_EQ(reference.find<osg::NodePtr>(), node);
        EXPECT_EQ(reference.find<osg::TransformPtr>(), osg::NullFC);
    }
    EXPECT_EQ(findContainer<osg::NodePtr>(id), osg::NullFC);
}

TEST(ContainerReference, IsHandedOnByMoving)
{
    osg::NodePtr node = osg::Node::create();
    osg::addRefCP(node);
    {
        ContainerReference first(node);
        const ContainerReference moved(std::move(first));
        EXPECT_EQ(node.getRefCount(), 2);
        ContainerReference assigned;
        EXPECT_EQ(assigned.id(), 0U);
        assigned = ContainerReference(node);
        EXPECT_EQ(node.getRefCount(), 3);
        assigned = ContainerReference();
        EXPECT_EQ(node.getRefCount(), 2);
    }
    EXPECT_EQ(node.getRefCount(), 1);
    osg::subRefCP(node);
}

TEST(ContainerReference, DoesNothingAtItsEndWhenTheContainerWasDestroyed)
{
    osg::NodePtr node = osg::Node::create();
    {
        const ContainerReference reference(node);
        osg::subRefCP(node);
        EXPECT_EQ(findContainer<osg::NodePtr>(reference.id()), osg::NullFC);
    }
    const ContainerReference ofNothing(osg::NullFC);
    EXPECT_EQ(ofNothing.id(), 0U);
}

TEST(ContainerEdit, ClosesOnceWithItsMaskAlsoWhenTheEditThrows)
{
    osg::ChangeList& changes = *osg::Thread::getCurrentChangeList();
    osg::NodePtr node = osg::Node::create();
    const unsigned int id = containerId(node);
    changes.setReadOnly(false);
    changes.clearAll();
    try {
        const ContainerEdit edit(node, osg::Node::TravMaskFieldMask);
        EXPECT_EQ(changes.sizeChanged(), 0U) << "nothing is told while the edit is open";
        throw std::runtime_error("edit");
    } catch (const std::runtime_error&) {
        ASSERT_EQ(changes.sizeChanged(), 1U);
        EXPECT_EQ(*changes.beginChanged(), std::make_pair(id, osg::BitVector(osg::Node::TravMaskFieldMask)));
    }
    changes.clearAll();
    {
        const ContainerEdit ofNothing(osg::NullFC, ~osg::BitVector(0));
    }
    EXPECT_EQ(changes.sizeChanged(), 0U);
    changes.setReadOnly(true);
    osg::subRefCP(node);
}

TEST(ContainerEdit, IsNotClosedForAContainerThatWasDestroyedMeanwhile)
{
    osg::ChangeList& changes = *osg::Thread::getCurrentChangeList();
    osg::NodePtr node = osg::Node::create();
    changes.setReadOnly(false);
    changes.clearAll();
    {
        const ContainerEdit edit(node, osg::Node::TravMaskFieldMask);
        osg::subRefCP(node);
    }
    EXPECT_EQ(changes.sizeChanged(), 0U);
    changes.clearAll();
    changes.setReadOnly(true);
}

} // namespace
