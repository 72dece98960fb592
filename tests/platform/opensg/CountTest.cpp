#include "Probe.h"
#include <support/Ground.h>

#include <OpenSG/OSGCountedField.h>
#include <OpenSG/OSGRefPtr.h>

namespace {

using namespace osg;

class CountTest : public OpenSG
{
};

TEST_F(CountTest, IsZeroForEveryKindOfNewContainer)
{
    const NodePtr created = Node::create();
    const NodePtr empty = Node::createEmpty();
    const FieldContainerPtr copied = created->shallowCopy();
    const FieldContainerPtr byName = factory->createFieldContainer("Node");
    for (const FieldContainerPtr& container : {FieldContainerPtr(created), FieldContainerPtr(empty), copied, byName}) {
        ASSERT_TRUE(container);
        EXPECT_EQ(container.getRefCount(), 0);
        subRefCP(container);
    }
}

TEST_F(CountTest, GoesUpAndDownAndIsTheSameThroughEveryHandle)
{
    const NodePtr node = Node::create();
    const FieldContainerPtr other = node;
    addRefCP(node);
    addRefCP(other);
    EXPECT_EQ(node.getRefCount(), 2);
    EXPECT_EQ(getRefCount(other), 2);
    subRefCP(other);
    EXPECT_EQ(node.getRefCount(), 1);
    EXPECT_TRUE(other);
    subRefCP(node);
    EXPECT_FALSE(node);
}

TEST_F(CountTest, BelowOneDestroysSoAFreshContainerIsDeletedByOneSubRef)
{
    const ProbePtr probe = Probe::create();
    const UInt32 id = getContainerId(probe);
    subRefCP(probe);
    EXPECT_EQ(factory->getContainer(id), NullFC);
    EXPECT_EQ(takeLog(), ground::destruction());
}

TEST_F(CountTest, MakesOnlyTheHandleNullThroughWhichItDestroyedEvenIfThatIsConst)
{
    const NodePtr released = Node::create();
    const NodePtr other = released;
    const FieldContainer* const address = other.getBaseCPtr();
    subRefCP(released);
    EXPECT_FALSE(released);
    EXPECT_EQ(other.getBaseCPtr(), address);
}

TEST_F(CountTest, IgnoresNull)
{
    NodePtr null;
    addRefCP(null);
    subRefCP(null);
    clearRefCP(null);
    setRefdCP(null, NullFC);
    addRefCP(NullFC);
    subRefCP(NullFC);
    EXPECT_FALSE(null);
    EXPECT_EQ(getRefCount(null), 0);
}

TEST_F(CountTest, MovesFromOneContainerToTheOtherWithSetRefd)
{
    const NodePtr a = Node::create();
    const NodePtr b = Node::create();
    addRefCP(a);
    addRefCP(b);
    NodePtr holder;
    setRefdCP(holder, a);
    EXPECT_EQ(a.getRefCount(), 2);
    setRefdCP(holder, a);
    EXPECT_EQ(a.getRefCount(), 2);
    setRefdCP(holder, b);
    EXPECT_EQ(holder, b);
    EXPECT_EQ(a.getRefCount(), 1);
    EXPECT_EQ(b.getRefCount(), 2);
    clearRefCP(holder);
    EXPECT_FALSE(holder);
    EXPECT_EQ(b.getRefCount(), 1);
    subRefCP(a);
    subRefCP(b);
}

TEST_F(CountTest, IsGivenBackBySetRefdAndClearRefBeforeTheMemberChanges)
{
    ProbePtr member;
    std::vector<bool> stillThere;
    const auto watched = [&] {
        const ProbePtr probe = Probe::create();
        const FieldContainer* const address = probe.getBaseCPtr();
        probe->whenDestroyed = [&member, &stillThere, address](UInt32) {
            stillThere.push_back(member.getBaseCPtr() == address);
        };
        return probe;
    };
    setRefdCP(member, watched());
    setRefdCP(member, watched());
    clearRefCP(member);
    EXPECT_EQ(stillThere, (std::vector<bool>{true, true}));
}

TEST_F(CountTest, IsGivenBackByAssignCountedAfterTheMemberChanged)
{
    NodePtr member;
    const NodePtr parent = Node::create();
    const NodePtr child = Node::create();
    parent->addChild(child);
    assignCounted(member, parent);
    EXPECT_EQ(parent.getRefCount(), 1);
    assignCounted(member, member);
    EXPECT_EQ(parent.getRefCount(), 1);
    // Only the old container holds the new one.
    assignCounted(member, child);
    EXPECT_EQ(member, child);
    EXPECT_EQ(child.getRefCount(), 1);
    EXPECT_EQ(child->getParent(), NullFC);
    assignCounted(member, NullFC);
    EXPECT_FALSE(member);
}

TEST_F(CountTest, ReadsZeroInOnDestroyOrMinusOneIfNobodyEverCounted)
{
    std::vector<Int32> counts;
    for (const bool counted : {true, false}) {
        const ProbePtr probe = Probe::create();
        Probe* const object = probe.getCPtr();
        probe->whenDestroyed = [&counts, object](UInt32) { counts.push_back(ProbePtr(object).getRefCount()); };
        if (counted) addRefCP(probe);
        subRefCP(probe);
    }
    EXPECT_EQ(counts, (std::vector<Int32>{0, -1}));
}

TEST_F(CountTest, EndsInTheOrderChangeListLookUpOnDestroyDestructor)
{
    changes->setReadOnly(false);
    const ProbePtr probe = Probe::create();
    const UInt32 probeId = getContainerId(probe);
    probe->whenDestroyed = [&](UInt32 id) {
        Probe::s_log.push_back("id " + std::string(id == probeId ? "kept" : "lost"));
        Probe::s_log.push_back("found " + std::to_string(bool(factory->getContainer(id))));
        Probe::s_log.push_back("entries " + std::to_string(changes->sizeDestroyed()));
    };
    subRefCP(probe);
    EXPECT_EQ(takeLog(), ground::destruction({"id kept", "found 0", "entries 1"}));
    EXPECT_EQ(*changes->beginDestroyed(), probeId);
}

TEST_F(CountTest, OfASubtreeEndsWithItsRootExceptForWhatSomebodyElseHolds)
{
    const NodePtr root = Node::create();
    const NodePtr held = Node::create();
    const NodePtr child = makeNodeFor(Group::create());
    const UInt32 childId = getContainerId(child);
    root->addChild(held);
    root->addChild(child);
    addRefCP(held);
    subRefCP(root);
    EXPECT_EQ(factory->getContainer(childId), NullFC);
    EXPECT_EQ(held->getParent(), NullFC);
    EXPECT_EQ(held.getRefCount(), 1);
    subRefCP(held);
}

TEST_F(CountTest, DoesNotChangeWhenAHandleFieldIsWritten)
{
    const NodePtr node = Node::create();
    const GroupPtr group = Group::create();
    node->getSFCore()->setValue(group);
    EXPECT_EQ(group.getRefCount(), 0);
    EXPECT_TRUE(group->getParents().empty());
    node->getSFCore()->setValue(NullFC);
    subRefCP(node);
    subRefCP(group);
}

TEST_F(CountTest, IsKeptUpByARefPtrAsLongAsItLives)
{
    const NodePtr node = Node::create();
    addRefCP(node);
    {
        NodeRefPtr holder(node);
        NodeRefPtr second = holder;
        EXPECT_EQ(node.getRefCount(), 3);
        second = NodePtr();
        EXPECT_EQ(node.getRefCount(), 2);
        beginEditCP(holder);
        endEditCP(holder);
        const NodePtr handle = holder;
        EXPECT_EQ(handle, node);
        EXPECT_EQ(holder->getNChildren(), 0u);
    }
    EXPECT_EQ(node.getRefCount(), 1);
    EXPECT_FALSE((std::is_convertible_v<NodePtr, NodeRefPtr>));
    EXPECT_TRUE(!NodeRefPtr());
    subRefCP(node);
}

} // namespace
