#include "Probe.h"

#include <OpenSG/OSGSimpleAttachments.h>

#include <functional>

namespace {

using namespace osg;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class NodeTree : public OpenSG
{
protected:
    void SetUp() override
    {
        OpenSG::SetUp();
        root = Node::create();
        a = Node::create();
        b = Node::create();
        c = Node::create();
        for (const NodePtr& node : {root, a, b, c})
            addRefCP(node);
    }
    void TearDown() override
    {
        for (NodePtr* node : {&root, &a, &b, &c})
            clearRefCP(*node);
        OpenSG::TearDown();
    }
    static std::vector<NodePtr> childrenOf(const NodePtr& node)
    {
        return {node->getMFChildren()->begin(), node->getMFChildren()->end()};
    }
    void addAll()
    {
        for (const NodePtr& node : {a, b, c})
            root->addChild(node);
    }
    /// The edits that a call makes, by container and mask.
    std::vector<ChangeList::ChangeEntry> editsOf(const std::function<void()>& call)
    {
        changes->setReadOnly(false);
        changes->clearAll();
        call();
        const std::vector<ChangeList::ChangeEntry> edits(changes->beginChanged(), changes->endChanged());
        changes->setReadOnly(true);
        changes->clearAll();
        return edits;
    }

    NodePtr root, a, b, c;
};

TEST_F(NodeTree, ANodeHoldsOneReferenceOnEachChildAndIsItsParent)
{
    root->addChild(a);
    EXPECT_EQ(a->getParent(), root);
    EXPECT_EQ(a.getRefCount(), 2);
    EXPECT_EQ(root.getRefCount(), 1);
    EXPECT_EQ(root->getNChildren(), 1u);
    EXPECT_EQ(root->getChild(0), a);
    EXPECT_EQ(root->findChild(a), 0);
    EXPECT_EQ(root->findChild(b), -1);
    root->subChild(a);
    EXPECT_EQ(a->getParent(), NullFC);
    EXPECT_EQ(a.getRefCount(), 1);
}

TEST_F(NodeTree, ChildrenKeepTheirOrder)
{
    addAll();
    EXPECT_THAT(childrenOf(root), ElementsAre(a, b, c));
    root->subChild(UInt32(1));
    EXPECT_THAT(childrenOf(root), ElementsAre(a, c));
    root->insertChild(1, b);
    EXPECT_THAT(childrenOf(root), ElementsAre(a, b, c));
    root->insertChild(0, c);
    EXPECT_THAT(childrenOf(root), ElementsAre(c, a, b));
}

TEST_F(NodeTree, AChildInsertedAgainLandsAtTheIndexOfTheShortenedList)
{
    addAll();
    root->insertChild(2, a);
    EXPECT_THAT(childrenOf(root), ElementsAre(b, c, a));
    EXPECT_EQ(a.getRefCount(), 2);
}

TEST_F(NodeTree, AParentLosesAChildThatAnotherNodeTakes)
{
    root->addChild(a);
    b->addChild(a);
    EXPECT_THAT(childrenOf(root), IsEmpty());
    EXPECT_EQ(a->getParent(), b);
    EXPECT_EQ(a.getRefCount(), 2);
}

TEST_F(NodeTree, AChildThatNobodyElseHoldsSurvivesAMoveButNotARemoval)
{
    const NodePtr child = Node::create();
    const UInt32 id = getContainerId(child);
    root->addChild(child);
    b->addChild(child);
    EXPECT_EQ(factory->getContainer(id), child);
    b->subChild(child);
    EXPECT_EQ(factory->getContainer(id), NullFC);
}

TEST_F(NodeTree, NullChildrenAreIgnored)
{
    root->addChild(NullFC);
    root->insertChild(0, NullFC);
    EXPECT_THAT(childrenOf(root), IsEmpty());
    root->addChild(a);
    root->replaceChild(0, NullFC);
    EXPECT_FALSE(root->replaceChildBy(a, NullFC));
    EXPECT_THAT(childrenOf(root), ElementsAre(a));
}

TEST_F(NodeTree, WrongIndicesAndStrangersAreHarmless)
{
    addAll();
    EXPECT_EQ(root->getChild(3), NullFC);
    root->insertChild(99, a);
    EXPECT_THAT(childrenOf(root), ElementsAre(b, c, a));
    root->replaceChild(99, a);
    testing::internal::CaptureStderr();
    root->subChild(UInt32(99));
    root->subChild(root);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WARNING:  Node::subChild: no child at 99\n"
                                                      "WARNING:  Node::subChild: not a child of this node\n");
    EXPECT_THAT(childrenOf(root), ElementsAre(b, c, a));
}

TEST_F(NodeTree, AReplacedChildTakesItsPlace)
{
    root->addChild(a);
    root->addChild(b);
    root->replaceChild(0, c);
    EXPECT_THAT(childrenOf(root), ElementsAre(c, b));
    EXPECT_EQ(a->getParent(), NullFC);
    EXPECT_EQ(a.getRefCount(), 1);
    EXPECT_EQ(c->getParent(), root);
    EXPECT_TRUE(root->replaceChildBy(b, a));
    EXPECT_THAT(childrenOf(root), ElementsAre(c, a));
    EXPECT_FALSE(root->replaceChildBy(b, a));
    EXPECT_TRUE(root->replaceChildBy(c, a));
    EXPECT_THAT(childrenOf(root), ElementsAre(a));
    EXPECT_TRUE(root->replaceChildBy(a, a));
    EXPECT_EQ(a.getRefCount(), 2);
}

TEST_F(NodeTree, MovingAChildEditsTheChildAndItsFormerParentButNotTheNewOne)
{
    root->addChild(a);
    const UInt32 childId = getContainerId(a);
    EXPECT_THAT(editsOf([&] { b->addChild(a); }),
                ElementsAre(Pair(childId, Node::ParentFieldMask), Pair(getContainerId(root), Node::ChildrenFieldMask),
                            Pair(childId, Node::ParentFieldMask)));
    EXPECT_THAT(editsOf([&] { b->subChild(a); }), ElementsAre(Pair(childId, Node::ParentFieldMask)));
}

TEST_F(NodeTree, ANodeHoldsAReferenceOnItsCoreAndIsItsParent)
{
    const GroupPtr group = Group::create();
    addRefCP(group);
    root->setCore(group);
    EXPECT_EQ(root->getCore(), group);
    EXPECT_EQ(group.getRefCount(), 2);
    EXPECT_THAT(group->getParents().getValues(), ElementsAre(root));
    EXPECT_THAT(editsOf([&] { root->setCore(group); }), IsEmpty());
    EXPECT_EQ(group.getRefCount(), 2);
    root->setCore(NullFC);
    EXPECT_EQ(root->getCore(), NullFC);
    EXPECT_EQ(group.getRefCount(), 1);
    EXPECT_TRUE(group->getMFParents()->empty());
    subRefCP(group);
}

TEST_F(NodeTree, ASharedCoreHasOneParentAndOneReferencePerNode)
{
    const GroupPtr group = Group::create();
    root->setCore(group);
    a->setCore(group);
    EXPECT_EQ(group.getRefCount(), 2);
    EXPECT_THAT(group->getParents().getValues(), ElementsAre(root, a));
}

TEST_F(NodeTree, ACoreThatIsReplacedMayBeDestroyedAndBothCoresAreEdited)
{
    const GroupPtr first = Group::create();
    const UInt32 firstId = getContainerId(first);
    root->setCore(first);
    const GroupPtr second = Group::create();
    EXPECT_THAT(editsOf([&] { root->setCore(second); }),
                ElementsAre(Pair(firstId, NodeCore::ParentsFieldMask),
                            Pair(getContainerId(second), NodeCore::ParentsFieldMask)));
    EXPECT_EQ(factory->getContainer(firstId), NullFC);
}

TEST_F(NodeTree, ADestroyedParentLeavesItsChildrenWithoutOneAndEditsThem)
{
    const NodePtr parent = Node::create();
    parent->addChild(a);
    const UInt32 id = getContainerId(a);
    EXPECT_THAT(editsOf([&] { subRefCP(parent); }), ElementsAre(Pair(id, Node::ParentFieldMask)));
    EXPECT_EQ(a->getParent(), NullFC);
    EXPECT_EQ(a.getRefCount(), 1);
}

TEST_F(NodeTree, ACopyHasNeitherParentNorChildrenNorCore)
{
    const GroupPtr group = Group::create();
    root->addChild(a);
    a->addChild(b);
    a->setCore(group);
    a->setTravMask(5);
    a->setFlags(6);
    a->setExternalFlags(7);
    const NodePtr copy = NodePtr::dcast(a->shallowCopy());
    EXPECT_EQ(copy->getParent(), NullFC);
    EXPECT_EQ(copy->getNChildren(), 0u);
    EXPECT_EQ(copy->getCore(), NullFC);
    EXPECT_EQ(group.getRefCount(), 1);
    EXPECT_EQ(copy->getTravMask(), 5u);
    EXPECT_EQ(copy->getFlags(), 6u);
    EXPECT_EQ(copy->getExternalFlags(), 7u);
    subRefCP(copy);
    const GroupPtr coreCopy = GroupPtr::dcast(group->shallowCopy());
    EXPECT_TRUE(coreCopy->getParents().empty());
    subRefCP(coreCopy);
}

TEST_F(NodeTree, FlagsAndExternalFlagsFollowTheCore)
{
    EXPECT_EQ(root->getFlags(), 0u);
    root->setFlags(0x80000000u);
    root->setExternalFlags(3);
    EXPECT_EQ(dynamic_cast<SFUInt32*>(root->getField("flags"))->getValue(), 0x80000000u);
    EXPECT_EQ(dynamic_cast<SFUInt32*>(root->getField(Node::ExternalFlagsFieldId))->getValue(), 3u);
}

TEST_F(NodeTree, ANodeIsActiveUnlessItsTraversalMaskIsEmpty)
{
    EXPECT_EQ(root->getTravMask(), 0xFFFFFFFFu);
    EXPECT_TRUE(root->getActive());
    root->setActive(false);
    EXPECT_EQ(root->getTravMask(), 0u);
    EXPECT_FALSE(root->getActive());
    root->setActive(true);
    EXPECT_EQ(root->getTravMask(), 0xFFFFFFFFu);
    root->setOcclusionMask(3);
    EXPECT_EQ(root->getOcclusionMask(), 3);
}

TEST_F(NodeTree, TheMatrixToTheWorldIsTheProductOfTheTransformsFromTheRoot)
{
    const auto moved = [](Real32 x) {
        const TransformPtr transform = Transform::create();
        transform->getMatrix().setTranslate(x, 0, 0);
        return transform;
    };
    root->setCore(moved(1));
    a->setCore(Group::create());
    b->setCore(moved(10));
    root->addChild(a);
    a->addChild(b);
    EXPECT_EQ(b->getToWorld()[3], Vec4f(11, 0, 0, 1));
    Matrix matrix;
    a->getToWorld(matrix);
    EXPECT_EQ(matrix[3], Vec4f(1, 0, 0, 1));
    EXPECT_EQ(c->getToWorld(), Matrix());
}

TEST_F(NodeTree, AnEditedTransformInvalidatesVolumesUpToTheFirstThatIsInvalidOrStatic)
{
    const TransformPtr transform = Transform::create();
    root->addChild(a);
    a->addChild(b);
    b->setCore(transform);
    root->updateVolume();
    EXPECT_TRUE(root->getVolume().isValid() && a->getVolume().isValid() && b->getVolume().isValid());

    const UInt32 coreId = getContainerId(transform);
    EXPECT_THAT(editsOf([&] { endEditCP(transform, Transform::MatrixFieldMask); }),
                ElementsAre(Pair(coreId, Transform::MatrixFieldMask), Pair(getContainerId(b), Node::VolumeFieldMask),
                            Pair(getContainerId(a), Node::VolumeFieldMask),
                            Pair(getContainerId(root), Node::VolumeFieldMask)));
    EXPECT_THAT(editsOf([&] { endEditCP(transform, Transform::MatrixFieldMask); }),
                ElementsAre(Pair(coreId, Transform::MatrixFieldMask)));

    root->updateVolume();
    a->getSFVolume()->getValue().setStatic();
    endEditCP(transform, Transform::MatrixFieldMask);
    EXPECT_FALSE(b->getVolume().isValid());
    EXPECT_TRUE(a->getVolume().isValid() && root->getVolume().isValid());
    EXPECT_TRUE(b->getVolume(true).isValid());
}

TEST_F(NodeTree, EditsOfANodeInvalidateItsOwnOrItsParentsVolumeOrNone)
{
    root->addChild(a);
    const auto validAfter = [&](BitVector mask) {
        root->updateVolume();
        endEditCP(a, mask);
        return std::make_pair(a->getVolume().isValid(), root->getVolume().isValid());
    };
    EXPECT_EQ(validAfter(Node::FlagsFieldMask), std::make_pair(true, true));
    EXPECT_EQ(validAfter(Node::TravMaskFieldMask), std::make_pair(true, false));
    EXPECT_EQ(validAfter(Node::ChildrenFieldMask), std::make_pair(false, false));
    EXPECT_EQ(validAfter(Node::CoreFieldMask), std::make_pair(false, false));
}

TEST_F(NodeTree, AClonedTreeSharesCoresAndAttachments)
{
    const GroupPtr group = Group::create();
    root->setCore(group);
    root->addChild(a);
    setName(a, "child");
    const NodePtr copy = cloneTree(root);
    EXPECT_EQ(copy->getCore(), group);
    EXPECT_EQ(copy.getRefCount(), 0);
    ASSERT_EQ(copy->getNChildren(), 1u);
    EXPECT_NE(copy->getChild(0), a);
    EXPECT_STREQ(getName(copy->getChild(0)), "child");
    EXPECT_EQ(cloneTree(NullFC), NullFC);
    subRefCP(copy);
}

} // namespace
