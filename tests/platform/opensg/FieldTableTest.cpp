#include "Probe.h"

namespace {

using namespace osg;
using testing::ElementsAre;

class FieldTable : public OpenSG
{
};

static_assert(+Probe::EnabledFieldId == +AttachmentContainer::NextFieldId && Probe::EnabledFieldId == 2);
static_assert(Probe::NextFieldId == Probe::EnabledFieldId + 6u);
static_assert(ProbeBase::LabelFieldMask == BitVector(1) << Probe::LabelFieldId);
static_assert(TagProbe::ValuesFieldId == 3, "after parents and internal");
static_assert(AbstractProbe::LevelFieldId == 1);
static_assert(std::is_same_v<Probe::Ptr, ProbePtr>);

TEST_F(FieldTable, GivesIdsMasksAndDescriptionsInTheOrderOfItsRows)
{
    const FieldContainerType& type = Probe::getClassType();
    std::vector<std::string> fields;
    for (UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const FieldDescription* const description = type.getFieldDescription(id);
        fields.push_back(std::string(description->getFieldType().getCName()) + ' ' + description->getCName());
    }
    EXPECT_THAT(fields, ElementsAre("SFAttachmentMap attachments", "SFBool enabled", "SFVec3f direction",
                                    "SFString label", "MFNodePtr targets", "MFInt64 numbers", "SFProbePtr follower"));
}

TEST_F(FieldTable, GivesEveryFieldItsDefault)
{
    const ProbePtr probe = Probe::create();
    EXPECT_TRUE(probe->getEnabled());
    EXPECT_EQ(probe->getDirection(), Vec3f(1, 2, 3));
    EXPECT_EQ(probe->getLabel(), "probe");
    EXPECT_TRUE(probe->getTargets().empty());
    EXPECT_TRUE(probe->getNumbers().empty());
    EXPECT_EQ(probe->getFollower(), NullFC);
    subRefCP(probe);
}

TEST_F(FieldTable, GivesAccessorsThatAllReachTheSameField)
{
    const ProbePtr probe = Probe::create();
    const Probe& constant = *probe;
    probe->setLabel("a");
    EXPECT_EQ(&probe->getLabel(), &probe->getSFLabel()->getValue());
    EXPECT_EQ(&constant.getLabel(), &probe->getLabel());
    EXPECT_EQ(probe->getField(Probe::LabelFieldId), probe->getSFLabel());
    probe->getMFNumbers()->push_back(4);
    probe->getNumbers().push_back(5);
    probe->getNumbers(0) = 3;
    EXPECT_EQ(constant.getNumbers(0), 3);
    EXPECT_THAT(constant.getNumbers().getValues(), ElementsAre(3, 5));
    EXPECT_EQ(probe->getField("numbers"), probe->getMFNumbers());
    subRefCP(probe);
}

TEST_F(FieldTable, CopiesValuesAndHandlesWithoutCounting)
{
    const ProbePtr probe = Probe::create();
    const NodePtr node = Node::create();
    probe->setLabel("copied");
    probe->getTargets().push_back(node);
    probe->setFollower(probe);
    const ProbePtr copy = ProbePtr::dcast(probe->shallowCopy());
    EXPECT_NE(copy, probe);
    EXPECT_EQ(copy->getLabel(), "copied");
    EXPECT_EQ(copy->getTargets(0), node);
    EXPECT_EQ(copy->getFollower(), probe);
    EXPECT_EQ(node.getRefCount(), 0);
    EXPECT_EQ(probe.getRefCount(), 0);
    subRefCP(copy);
    subRefCP(probe);
    subRefCP(node);
}

TEST_F(FieldTable, CallsTheClassWhenAContainerWasMade)
{
    const ProbePtr empty = Probe::createEmpty();
    EXPECT_EQ(empty->number(), 1u);
    const ProbePtr copy = ProbePtr::dcast(empty->shallowCopy());
    EXPECT_EQ(copy->number(), 2u);
    subRefCP(empty);
    subRefCP(copy);
}

TEST_F(FieldTable, MayHaveNoRows)
{
    EXPECT_EQ(SpecialProbe::getClassType().getNumFieldDescs(), Probe::getClassType().getNumFieldDescs());
    const SpecialProbePtr probe = SpecialProbe::create();
    EXPECT_STREQ(probe->getTypeName(), "SpecialProbe");
    EXPECT_EQ(probe->getTypeId(), SpecialProbe::getClassTypeId());
    EXPECT_EQ(probe->getGroupId(), SpecialProbe::getClassType().getGroupId());
    EXPECT_EQ(probe->getContainerSize(), sizeof(SpecialProbe));
    EXPECT_EQ(&probe->getType(), &SpecialProbe::getClassType());
    EXPECT_EQ(ProbePtr::dcast(probe), probe);
    const FieldContainerPtr copy = probe->shallowCopy();
    EXPECT_EQ(&copy->getType(), &SpecialProbe::getClassType());
    subRefCP(copy);
    subRefCP(probe);
}

TEST_F(FieldTable, OfAnAbstractClassMakesNoContainer)
{
    EXPECT_TRUE(AbstractProbe::getClassType().isAbstract());
    EXPECT_EQ(AbstractProbe::getClassType().getNumFieldDescs(), 1u);
    EXPECT_EQ(factory->createFieldContainer("AbstractProbe"), NullFC);
}

TEST_F(FieldTable, NamesTheGroup)
{
    EXPECT_STREQ(factory->findGroupName(TagProbe::getClassType().getGroupId()), "tags");
    EXPECT_STREQ(factory->findGroupName(Probe::getClassType().getGroupId()), "Probe");
}

} // namespace
