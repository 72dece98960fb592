#include "Probe.h"
#include <support/OSGAllFields.h>

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
    static bool isValid(const NodePtr& node) { return node->getSFVolume()->getValue().isValid(); }
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
    // The same core again is taken out and put in.
    const UInt32 coreId = getContainerId(group);
    EXPECT_THAT(editsOf([&] { root->setCore(group); }),
                ElementsAre(Pair(coreId, NodeCore::ParentsFieldMask), Pair(coreId, NodeCore::ParentsFieldMask)));
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

TEST_F(NodeTree, ACoreThatIsReplacedIsStillSetWhenItIsTold)
{
    const AllSingleFieldsPtr former = AllSingleFields::create();
    addRefCP(former);
    root->setCore(former);
    NodeCorePtr seen;
    former->onChanged = [&](BitVector, UInt32) { seen = root->getCore(); };
    root->setCore(NullFC);
    EXPECT_EQ(seen, former);
    former->onChanged = {};
    subRefCP(former);
}

TEST_F(NodeTree, ANewCoreAndNoneInvalidateTheVolumeBeforeTheBracketCloses)
{
    const GroupPtr group = Group::create();
    const UInt32 coreId = getContainerId(group), id = getContainerId(root);
    root->updateVolume();
    EXPECT_THAT(editsOf([&] {
                    const CPEditor edit(root, Node::CoreFieldMask);
                    root->setCore(group);
                }),
                ElementsAre(Pair(coreId, NodeCore::ParentsFieldMask), Pair(id, Node::VolumeFieldMask),
                            Pair(id, Node::CoreFieldMask)));
    root->updateVolume();
    EXPECT_THAT(editsOf([&] { root->setCore(NullFC); }),
                ElementsAre(Pair(coreId, NodeCore::ParentsFieldMask), Pair(id, Node::VolumeFieldMask)));
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

TEST_F(NodeTree, ACopyHasNeitherParentNorChildrenAndSharesTheCore)
{
    const GroupPtr group = Group::create();
    root->addChild(a);
    a->addChild(b);
    a->setCore(group);
    a->setTravMask(5);
    const NodePtr copy = NodePtr::dcast(a->shallowCopy());
    EXPECT_EQ(copy->getParent(), NullFC);
    EXPECT_EQ(copy->getNChildren(), 0u);
    EXPECT_EQ(copy->getCore(), group);
    EXPECT_EQ(group.getRefCount(), 2);
    EXPECT_THAT(group->getParents().getValues(), ElementsAre(a, copy));
    EXPECT_EQ(copy->getTravMask(), 5u);
    subRefCP(copy);
    EXPECT_EQ(group.getRefCount(), 1);
    const GroupPtr coreCopy = GroupPtr::dcast(group->shallowCopy());
    EXPECT_TRUE(coreCopy->getParents().empty());
    subRefCP(coreCopy);
}

TEST_F(NodeTree, ANodeIsActiveWhenAllBitsOfItsTraversalMaskAreOn)
{
    EXPECT_EQ(root->getTravMask(), 0xFFFFFFFFu);
    EXPECT_TRUE(root->getActive());
    root->setActive(false);
    EXPECT_EQ(root->getTravMask(), 0u);
    EXPECT_FALSE(root->getActive());
    root->setTravMask(0xFFFFFFFEu);
    EXPECT_FALSE(root->getActive());
    root->setActive(true);
    EXPECT_EQ(root->getTravMask(), 0xFFFFFFFFu);
    root->setOcclusionMask(3);
    EXPECT_EQ(root->getOcclusionMask(), 3);
}

TEST_F(NodeTree, ANewNodeInvalidatesItsVolumeAndTellsOfIt)
{
    const auto edits = editsOf([] { subRefCP(Node::create()); });
    ASSERT_EQ(edits.size(), 1u);
    EXPECT_EQ(edits[0].second, Node::VolumeFieldMask);
    EXPECT_FALSE(isValid(root));
}

TEST_F(NodeTree, UpdatingTellsTheChildrenFirst)
{
    root->addChild(a);
    a->addChild(b);
    EXPECT_THAT(editsOf([&] { root->updateVolume(); }), ElementsAre(Pair(getContainerId(b), Node::VolumeFieldMask),
                                                                    Pair(getContainerId(a), Node::VolumeFieldMask),
                                                                    Pair(getContainerId(root), Node::VolumeFieldMask)));
}

TEST_F(NodeTree, AnEditedTraversalMaskTellsTheParentOnceMoreThanItInvalidates)
{
    root->addChild(a);
    a->addChild(b);
    const auto edit = [&](const NodePtr& node) { return editsOf([&] { endEditCP(node, Node::TravMaskFieldMask); }); };
    const auto of = [](const NodePtr& node, BitVector mask) {
        return ChangeList::ChangeEntry(getContainerId(node), mask);
    };
    EXPECT_THAT(edit(b), ElementsAre(of(b, Node::TravMaskFieldMask), of(a, Node::VolumeFieldMask)));
    root->updateVolume();
    EXPECT_THAT(edit(b), ElementsAre(of(b, Node::TravMaskFieldMask), of(a, Node::VolumeFieldMask),
                                     of(root, Node::VolumeFieldMask), of(a, Node::VolumeFieldMask)));
    EXPECT_THAT(edit(root), ElementsAre(of(root, Node::TravMaskFieldMask)));
    root->updateVolume();
    EXPECT_THAT(edit(root), ElementsAre(of(root, Node::TravMaskFieldMask), of(root, Node::VolumeFieldMask)));
}

TEST_F(NodeTree, TheHandleByWhichAChildIsRemovedIsNullWhenThatDestroysIt)
{
    const NodePtr child = Node::create();
    const NodePtr held = Node::create();
    addRefCP(held);
    root->addChild(child);
    root->addChild(held);
    const NodePtr argument = child;
    root->subChild(argument);
    EXPECT_FALSE(argument);
    EXPECT_TRUE(child) << "another handle is left as it was";
    root->subChild(held);
    EXPECT_TRUE(held);
    subRefCP(held);
}

TEST_F(NodeTree, ADestroyedTreeEndsWithEachNodesCoreBeforeItsChildren)
{
    const auto make = [](const NodePtr& parent) {
        const NodePtr node = makeNodeFor(Group::create());
        if (parent) parent->addChild(node);
        return node;
    };
    const NodePtr top = make(NullFC);
    const NodePtr first = make(top);
    const NodePtr below = make(first);
    const NodePtr second = make(top);
    std::vector<UInt32> expected;
    for (const NodePtr& node : {top, first, below, second}) {
        expected.push_back(getContainerId(node));
        expected.push_back(getContainerId(node->getCore()));
    }
    changes->setReadOnly(false);
    changes->clearAll();
    const NodePtr released = top;
    subRefCP(released);
    EXPECT_EQ(std::vector<UInt32>(changes->beginDestroyed(), changes->endDestroyed()), expected);
}

TEST_F(NodeTree, AReplacedChildIsToldFirst)
{
    root->addChild(a);
    EXPECT_THAT(
        editsOf([&] { root->replaceChildBy(a, b); }),
        ElementsAre(Pair(getContainerId(a), Node::ParentFieldMask), Pair(getContainerId(b), Node::ParentFieldMask)));
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
    EXPECT_TRUE(isValid(root) && isValid(a) && isValid(b));

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
    EXPECT_FALSE(isValid(b));
    EXPECT_TRUE(isValid(a) && isValid(root));
    b->updateVolume();
    EXPECT_TRUE(isValid(b));
}

TEST_F(NodeTree, EditsOfANodeInvalidateItsOwnOrItsParentsVolumeOrNone)
{
    root->addChild(a);
    const auto validAfter = [&](BitVector mask) {
        root->updateVolume();
        endEditCP(a, mask);
        return std::make_pair(isValid(a), isValid(root));
    };
    EXPECT_EQ(validAfter(Node::AttachmentsFieldMask), std::make_pair(true, true));
    EXPECT_EQ(validAfter(Node::TravMaskFieldMask), std::make_pair(true, false));
    EXPECT_EQ(validAfter(Node::ChildrenFieldMask), std::make_pair(false, false));
    EXPECT_EQ(validAfter(Node::CoreFieldMask), std::make_pair(false, false));
}

TEST_F(NodeTree, AClonedTreeSharesCoresAndMasksButNoAttachments)
{
    const GroupPtr group = Group::create();
    root->setCore(group);
    root->addChild(a);
    setName(a, "child");
    a->setTravMask(6);
    const NodePtr copy = cloneTree(root);
    EXPECT_EQ(copy->getCore(), group);
    EXPECT_EQ(copy.getRefCount(), 0);
    ASSERT_EQ(copy->getNChildren(), 1u);
    EXPECT_NE(copy->getChild(0), a);
    EXPECT_EQ(getName(copy->getChild(0)), nullptr);
    EXPECT_EQ(copy->getChild(0)->getTravMask(), 6u);
    subRefCP(copy);
}

} // namespace
