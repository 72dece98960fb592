#include "Probe.h"

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMaterialGroup.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <map>
#include <set>

namespace {

using namespace osg;

class HandleTest : public OpenSG
{
};

// The hierarchy of handles, which generic code is written against.
static_assert(std::is_same_v<NodeCorePtr, FCPtr<AttachmentContainerPtr, NodeCore>>);
static_assert(std::is_same_v<GroupPtr, FCPtr<NodeCorePtr, Group>>);
static_assert(std::is_same_v<TransformPtr, FCPtr<GroupPtr, Transform>>);
static_assert(std::is_same_v<ImagePtr, FCPtr<AttachmentContainerPtr, Image>>);
static_assert(std::is_same_v<MaterialPtr, FCPtr<AttachmentContainerPtr, Material>>);
static_assert(std::is_same_v<TransformPtr::StoredObjectType, Transform>);
static_assert(std::is_same_v<TransformPtr::ObjectType, TransformPtr>);
static_assert(std::is_same_v<TransformPtr::Inherited, GroupPtr>);
static_assert(std::is_same_v<NodePtr::Inherited, AttachmentContainerPtr>);
static_assert(std::is_base_of_v<FieldContainerPtr, NullFieldContainerPtr>);

template<class T>
struct IsFCPtr : std::false_type
{
};
template<class Base, class T>
struct IsFCPtr<FCPtr<Base, T>> : std::true_type
{
};
static_assert(!IsFCPtr<NodePtr>::value && !IsFCPtr<AttachmentPtr>::value && !IsFCPtr<AttachmentContainerPtr>::value);

template<class T, class = void>
struct HasGetPtr : std::false_type
{
};
template<class T>
struct HasGetPtr<T, std::void_t<decltype(std::declval<T>()->getPtr())>> : std::true_type
{
};
static_assert(!HasGetPtr<NodePtr>::value && !HasGetPtr<NodeCorePtr>::value && !HasGetPtr<FieldContainerPtr>::value);

template<class T, class = void>
struct HasAddRef : std::false_type
{
};
template<class T>
struct HasAddRef<T, std::void_t<decltype(std::declval<T>().addRef())>> : std::true_type
{
};
static_assert(!HasAddRef<NodePtr>::value);

TEST_F(HandleTest, IsUpcastImplicitlyAndNeverDowncastWithoutDcast)
{
    EXPECT_TRUE((std::is_convertible_v<TransformPtr, GroupPtr>));
    EXPECT_TRUE((std::is_convertible_v<TransformPtr, FieldContainerPtr>));
    EXPECT_TRUE((std::is_convertible_v<NodePtr, AttachmentContainerPtr>));
    EXPECT_TRUE((std::is_convertible_v<NullFieldContainerPtr, TransformPtr>));
    EXPECT_FALSE((std::is_constructible_v<TransformPtr, GroupPtr>));
    EXPECT_FALSE((std::is_constructible_v<NodePtr, FieldContainerPtr>));
    EXPECT_FALSE((std::is_constructible_v<NodePtr, NodeCorePtr>));
}

TEST_F(HandleTest, DoesNotCountWhenItIsCopiedAssignedOrDestroyed)
{
    const NodePtr node = Node::create();
    {
        NodePtr copy = node;
        FieldContainerPtr upcast = copy;
        copy = node;
        upcast = copy;
        EXPECT_EQ(node.getRefCount(), 0);
    }
    EXPECT_EQ(node.getRefCount(), 0);
    subRefCP(node);
}

TEST_F(HandleTest, IsNullAtFirstAndEqualsZeroNullNullptrAndNullFC)
{
    const NodePtr handle;
    EXPECT_FALSE(handle);
    EXPECT_TRUE(!handle);
    EXPECT_TRUE(handle == 0);
    EXPECT_TRUE(handle == NULL);
    EXPECT_TRUE(handle == nullptr);
    EXPECT_TRUE(handle == NullFC);
    EXPECT_EQ(handle.getCPtr(), nullptr);
    EXPECT_EQ(handle.getRefCount(), 0);
}

TEST_F(HandleTest, OfAContainerIsTrueAndDiffersFromEveryNull)
{
    NodePtr handle = Node::create();
    EXPECT_TRUE(handle);
    EXPECT_TRUE(handle != 0 && handle != nullptr && handle != NullFC);
    subRefCP(handle);
    handle = NullFC;
    EXPECT_FALSE(handle);
}

TEST_F(HandleTest, DcastGivesNullForNullAndForAContainerOfAnotherClass)
{
    const NodePtr node = Node::create();
    EXPECT_EQ(NodePtr::dcast(NullFC), NullFC);
    EXPECT_EQ(TransformPtr::dcast(FieldContainerPtr()), NullFC);
    EXPECT_EQ(TransformPtr::dcast(node), NullFC);
    EXPECT_EQ(NodeCorePtr::dcast(node), NullFC);
    EXPECT_EQ(AttachmentPtr::dcast(node), NullFC);
    subRefCP(node);
}

TEST_F(HandleTest, DcastFindsTheClassItselfAndItsBasesButNoDerivedClass)
{
    const TransformPtr transform = Transform::create();
    const GroupPtr group = Group::create();
    const FieldContainerPtr any = transform;
    EXPECT_EQ(TransformPtr::dcast(any), transform);
    EXPECT_EQ(GroupPtr::dcast(any), transform);
    EXPECT_EQ(NodeCorePtr::dcast(any), transform);
    EXPECT_EQ(AttachmentContainerPtr::dcast(any), transform);
    EXPECT_EQ(dynamic_pointer_cast<TransformPtr>(any), transform);
    EXPECT_EQ(TransformPtr::dcast(group), NullFC);
    subRefCP(transform);
    subRefCP(group);
}

TEST_F(HandleTest, ComparesByContainerAcrossHandleTypes)
{
    const GroupPtr group = Group::create();
    const NodePtr node = makeNodeFor(group);
    EXPECT_FALSE(group == node);
    EXPECT_TRUE(group != node);
    EXPECT_TRUE(node->getCore() == group);
    EXPECT_TRUE(FieldContainerPtr(node) == node);
    EXPECT_NE(group < node, node < group);
    subRefCP(node);
}

TEST_F(HandleTest, IsNeverLessThanNull)
{
    const NodePtr node = Node::create();
    EXPECT_FALSE(node < NullFC);
    EXPECT_FALSE(NodePtr() < NullFC);
    subRefCP(node);
}

TEST_F(HandleTest, WorksAsKeyOfMapsAndSets)
{
    const NodePtr a = Node::create();
    const NodePtr b = Node::create();
    std::map<FieldContainerPtr, int> map{{a, 1}, {b, 2}, {NullFC, 3}};
    EXPECT_EQ(map.size(), 3u);
    EXPECT_EQ(map[b], 2);
    EXPECT_EQ(map[NullFC], 3);
    EXPECT_EQ((std::set<NodePtr>{a, b, a}.size()), 2u);
    subRefCP(a);
    subRefCP(b);
}

TEST_F(HandleTest, CarriesAParentFieldPositionThatIsNoPartOfItsEquality)
{
    const NodePtr node = Node::create();
    NodePtr other = node;
    EXPECT_EQ(other.getParentFieldPos(), 0xFFFF);
    other.setParentFieldPos(3);
    EXPECT_EQ(other, node);
    EXPECT_EQ(FieldContainerPtr(other).getParentFieldPos(), 3);
    EXPECT_EQ(NodePtr::dcast(FieldContainerPtr(other)).getParentFieldPos(), 3);
    subRefCP(node);
}

TEST_F(HandleTest, GivesTheIdThatTheFactoryKnows)
{
    const NodePtr node = Node::create();
    EXPECT_EQ(getContainerId(node), node.getFieldContainerId());
    EXPECT_EQ(factory->getContainer(getContainerId(node)), node);
    EXPECT_EQ(getCPtr(node), node.operator->());
    EXPECT_EQ(get_pointer(node), &*node);
    subRefCP(node);
}

TEST(HandleDeathTest, OfNothingCannotBeAskedForItsId)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    volatile UInt32 id = 0;
    EXPECT_DEATH(id = NodePtr().getFieldContainerId(), "");
    EXPECT_EQ(id, 0u);
}

TEST_F(HandleTest, CanBeMadeFromItsObject)
{
    const NodePtr node = Node::create();
    EXPECT_EQ(NodePtr(node.getCPtr()), node);
    EXPECT_EQ(NodePtr(*node), node);
    EXPECT_FALSE((std::is_convertible_v<Node*, NodePtr>));
    subRefCP(node);
}

} // namespace
