#include "Probe.h"

namespace {

using namespace osg;

class FactoryTest : public OpenSG
{
};

TEST_F(FactoryTest, GivesNullForZeroForUnknownAndForDestroyedIds)
{
    const NodePtr node = Node::create();
    const UInt32 id = getContainerId(node);
    EXPECT_EQ(factory->getContainer(0), NullFC);
    EXPECT_EQ(factory->getContainer(id), node);
    EXPECT_EQ(factory->getContainer(id + 1), NullFC);
    EXPECT_EQ(factory->getContainer(0xFFFFFFFFu), NullFC);
    subRefCP(node);
    EXPECT_EQ(factory->getContainer(id), NullFC);
}

TEST_F(FactoryTest, CountsIdsUpInTheOrderOfCreationAndNeverUsesOneAgain)
{
    const NodePtr first = Node::create();
    const UInt32 id = getContainerId(first);
    subRefCP(first);
    const GroupPtr second = Group::create();
    EXPECT_EQ(getContainerId(second), id + 1);
    const FieldContainerPtr third = second->shallowCopy();
    EXPECT_EQ(getContainerId(third), id + 2);
    subRefCP(second);
    subRefCP(third);
}

TEST_F(FactoryTest, KeepsTheStoreIndexedByIdWithNullInThePlacesOfTheDestroyed)
{
    const NodePtr node = Node::create();
    const UInt32 id = getContainerId(node);
    const auto& store = *factory->getFieldContainerStore();
    EXPECT_EQ(store[0], NullFC);
    EXPECT_EQ(store[id], node);
    EXPECT_EQ(store.size(), id + 1);
    subRefCP(node);
    EXPECT_EQ(store[id], NullFC);
    EXPECT_EQ(store.size(), id + 1);
}

TEST_F(FactoryTest, CountsWhatLives)
{
    const std::size_t before = liveContainerCount();
    const NodePtr node = makeNodeFor(Group::create());
    EXPECT_EQ(liveContainerCount(), before + 2);
    subRefCP(node);
    EXPECT_EQ(liveContainerCount(), before);
}

TEST_F(FactoryTest, GivesIdsToPrototypesAndHoldsOneReferenceOnEach)
{
    const FieldContainerPtr prototype = Node::getClassType().getPrototype();
    ASSERT_TRUE(prototype);
    EXPECT_GT(getContainerId(prototype), 0u);
    EXPECT_EQ(factory->getContainer(getContainerId(prototype)), prototype);
    EXPECT_EQ(prototype.getRefCount(), 1);
}

TEST_F(FactoryTest, FindsTypesByExactNameAndById)
{
    EXPECT_EQ(factory->findType("Transform"), &Transform::getClassType());
    EXPECT_EQ(factory->findType(Transform::getClassTypeId()), &Transform::getClassType());
    EXPECT_EQ(factory->findType("transform"), nullptr);
    EXPECT_EQ(factory->findType(""), nullptr);
    EXPECT_EQ(factory->findType(0u), nullptr);
    EXPECT_EQ(factory->findUninitializedType("Transform"), nullptr);
}

TEST_F(FactoryTest, EnumeratesItsTypesById)
{
    UInt32 count = 0;
    for (auto type = factory->beginTypes(); type != factory->endTypes(); ++type, ++count)
        EXPECT_EQ(type->first, type->second->getId());
    EXPECT_EQ(count, factory->getNumTypes());
    EXPECT_GT(count, 10u);
}

TEST_F(FactoryTest, CreatesByNameAndGivesNullForUnknownAbstractAndWrongKinds)
{
    const NodePtr node = factory->createNode("Node");
    const NodeCorePtr core = factory->createNodeCore("Transform");
    const AttachmentPtr attachment = factory->createAttachment("Name");
    EXPECT_TRUE(node && core && attachment);
    EXPECT_TRUE(TransformPtr::dcast(core));
    subRefCP(node);
    subRefCP(core);
    subRefCP(attachment);

    EXPECT_EQ(factory->createFieldContainer("Nothing"), NullFC);
    EXPECT_EQ(factory->createFieldContainer("node"), NullFC);
    for (const Char8* abstract : {"FieldContainer", "AttachmentContainer", "NodeCore", "Attachment", "Material"})
        EXPECT_EQ(factory->createFieldContainer(abstract), NullFC) << abstract;
    EXPECT_EQ(factory->createNode("Transform"), NullFC);
    EXPECT_EQ(factory->createNodeCore("Node"), NullFC);
    EXPECT_EQ(factory->createAttachment("Node"), NullFC);
}

TEST_F(FactoryTest, KnowsGroupsByNameAndNumber)
{
    const UInt16 group = factory->findGroupId("name");
    EXPECT_NE(group, 0);
    EXPECT_STREQ(factory->findGroupName(group), "name");
    EXPECT_EQ(factory->findGroupId("Name"), 0);
    EXPECT_EQ(factory->findGroupId("tags"), TagProbe::getClassType().getGroupId());
}

} // namespace
