#include "Probe.h"
#include <support/Ground.h>

#include <OpenSG/OSGSimpleAttachments.h>

namespace {

using namespace osg;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

static_assert(std::is_same_v<Name::StoredFieldType, SFString> && std::is_same_v<Name::PtrType, NamePtr>);
static_assert(!std::is_base_of_v<AttachmentContainer, Attachment>);

class Attachments : public OpenSG
{
protected:
    void SetUp() override
    {
        OpenSG::SetUp();
        container = Probe::create();
    }
    void TearDown() override
    {
        subRefCP(container);
        OpenSG::TearDown();
    }
    static TagProbePtr makeTag()
    {
        const TagProbePtr tag = TagProbe::create();
        addRefCP(tag);
        return tag;
    }

    ProbePtr container;
};

TEST_F(Attachments, AreCountedLinkedAndFoundByGroupOrType)
{
    const TagProbePtr tag = makeTag();
    container->addAttachment(tag);
    EXPECT_EQ(tag.getRefCount(), 2);
    EXPECT_THAT(tag->getParents().getValues(), ElementsAre(container));
    EXPECT_EQ(container->findAttachment(factory->findGroupId("tags")), tag);
    EXPECT_EQ(container->findAttachment(TagProbe::getClassType()), tag);
    EXPECT_EQ(container->findAttachment(TagProbe::getClassType(), 1), NullFC);
    EXPECT_EQ(container->findAttachment(Name::getClassType()), NullFC);
    EXPECT_EQ(container->getSFAttachments()->getValue().begin()->first, UInt32(TagProbe::getClassType().getGroupId())
                                                                            << 16);
    container->subAttachment(tag);
    EXPECT_EQ(tag.getRefCount(), 1);
    EXPECT_TRUE(tag->getParents().empty());
    EXPECT_TRUE(container->getSFAttachments()->getValue().empty());
    subRefCP(tag);
}

TEST_F(Attachments, ReplaceTheOneOfTheSameGroupAndBinding)
{
    const TagProbePtr first = makeTag();
    const TagProbePtr second = TagProbe::create();
    container->addAttachment(first);
    container->addAttachment(second);
    EXPECT_EQ(container->findAttachment(TagProbe::getClassType()), second);
    EXPECT_EQ(first.getRefCount(), 1);
    EXPECT_TRUE(first->getParents().empty());
    container->addAttachment(first, 1);
    EXPECT_EQ(container->findAttachment(TagProbe::getClassType(), 1), first);
    EXPECT_EQ(container->getSFAttachments()->getValue().size(), 2u);
    subRefCP(first);
}

TEST_F(Attachments, AreDestroyedWhenTheyAreReplacedAndNobodyElseHoldsThem)
{
    const TagProbePtr first = TagProbe::create();
    const UInt32 id = getContainerId(first);
    container->addAttachment(first);
    container->addAttachment(TagProbe::create());
    EXPECT_EQ(factory->getContainer(id), NullFC);
}

TEST_F(Attachments, DoNotChangeWhenTheSameIsAddedAgain)
{
    const TagProbePtr tag = makeTag();
    container->addAttachment(tag);
    container->addAttachment(tag);
    EXPECT_EQ(tag.getRefCount(), 2);
    EXPECT_THAT(tag->getParents().getValues(), ElementsAre(container));
    subRefCP(tag);
}

TEST_F(Attachments, AreRemovedByPlaceEvenIfAnotherOneStandsThere)
{
    const TagProbePtr stored = makeTag();
    const TagProbePtr other = makeTag();
    container->addAttachment(stored);
    changes->setReadOnly(false);
    container->subAttachment(other);
    // The argument is told, not the one that was removed.
    EXPECT_THAT((std::vector<ChangeList::ChangeEntry>(changes->beginChanged(), changes->endChanged())),
                ElementsAre(Pair(getContainerId(other), Attachment::ParentsFieldMask)));
    EXPECT_TRUE(stored->getParents().empty());
    EXPECT_EQ(container->findAttachment(TagProbe::getClassType()), NullFC);
    EXPECT_EQ(stored.getRefCount(), 1);
    EXPECT_EQ(other.getRefCount(), 1);
    container->subAttachment(other);
    EXPECT_EQ(other.getRefCount(), 1);
    subRefCP(stored);
    subRefCP(other);
}

TEST_F(Attachments, IgnoreNull)
{
    container->addAttachment(NullFC);
    EXPECT_TRUE(container->getSFAttachments()->getValue().empty());
}

TEST_F(Attachments, AreEditedWhenTheyAreLinkedButTheContainerIsNot)
{
    changes->setReadOnly(false);
    const TagProbePtr tag = makeTag();
    const UInt32 id = getContainerId(tag);
    changes->clearAll();
    container->addAttachment(tag);
    container->subAttachment(tag);
    EXPECT_THAT((std::vector<ChangeList::ChangeEntry>(changes->beginChanged(), changes->endChanged())),
                ElementsAre(Pair(id, Attachment::ParentsFieldMask), Pair(id, Attachment::ParentsFieldMask)));
    EXPECT_THAT(takeLog(), IsEmpty());
    subRefCP(tag);
}

TEST_F(Attachments, AreReleasedWithTheirContainer)
{
    const TagProbePtr held = makeTag();
    const ProbePtr other = Probe::create();
    other->addAttachment(held);
    setName(other, "gone");
    subRefCP(other);
    EXPECT_EQ(held.getRefCount(), 1);
    EXPECT_TRUE(held->getParents().empty());
    subRefCP(held);
}

TEST_F(Attachments, AreSharedWithACopyWhereTheyAllHaveBindingZero)
{
    const TagProbePtr tag = makeTag();
    container->addAttachment(tag, 3);
    const ProbePtr copy = ProbePtr::dcast(container->shallowCopy());
    EXPECT_EQ(copy->findAttachment(TagProbe::getClassType(), 3), NullFC);
    EXPECT_EQ(copy->findAttachment(TagProbe::getClassType()), tag);
    EXPECT_EQ(tag.getRefCount(), 2 + ground::objectsPerContainer);
    EXPECT_EQ(tag->getParents().size(), 1u + static_cast<std::size_t>(ground::objectsPerContainer));
    subRefCP(copy);
    EXPECT_THAT(tag->getParents().getValues(), ElementsAre(container));
    subRefCP(tag);
}

TEST_F(Attachments, HaveParentsThatCanBeAddedFoundAndRemoved)
{
    const TagProbePtr tag = makeTag();
    tag->addParent(container);
    tag->addParent(NullFC);
    EXPECT_EQ(tag->findParent(NullFC), 1);
    EXPECT_EQ(tag->findParent(tag), -1);
    tag->subParent(tag);
    tag->subParent(container);
    tag->subParent(NullFC);
    EXPECT_TRUE(tag->getParents().empty());
    EXPECT_FALSE(tag->getInternal().getValue());
    subRefCP(tag);
}

TEST_F(Attachments, CopyWithoutParents)
{
    const TagProbePtr tag = makeTag();
    container->addAttachment(tag);
    tag->getValues().push_back(5);
    const TagProbePtr copy = TagProbePtr::dcast(tag->shallowCopy());
    EXPECT_TRUE(copy->getParents().empty());
    EXPECT_THAT(copy->getValues().getValues(), ElementsAre(5u));
    subRefCP(copy);
    subRefCP(tag);
}

class NameTest : public Attachments
{
};

TEST_F(NameTest, IsNullForNullAndForAContainerWithoutOne)
{
    EXPECT_EQ(getName(container), nullptr);
    EXPECT_EQ(getName(NullFC), nullptr);
    setName(container, static_cast<const Char8*>(nullptr));
    EXPECT_EQ(getName(container), nullptr);
}

TEST_F(NameTest, IsAnAttachmentThatIsEditedInPlace)
{
    setName(container, "first");
    const NamePtr name = NamePtr::dcast(container->findAttachment(Name::getClassType()));
    ASSERT_TRUE(name);
    setName(container, std::string("second"));
    EXPECT_STREQ(getName(container), "second");
    EXPECT_EQ(container->findAttachment(Name::getClassType()), name);
    EXPECT_EQ(getName(container), name->getFieldPtr()->getValue().c_str());
    EXPECT_EQ(name->getField().getValue(), "second");
    EXPECT_EQ(FieldContainerPtr(name)->getField("name"), name->getFieldPtr());
    EXPECT_STREQ(name->getTypeName(), "Name");
}

TEST_F(NameTest, HasTheFieldIdThreeAsInEverySimpleAttachment)
{
    EXPECT_EQ(+Name::SimpleFieldId, 3u);
}

TEST_F(NameTest, IsReportedByTheContainerOnlyWhenItIsNew)
{
    changes->setReadOnly(false);
    const std::string added = "changed " + std::to_string(AttachmentContainer::AttachmentsFieldMask) + " from 1";
    setName(container, "first");
    EXPECT_THAT(takeLog(), ElementsAre(added));
    const UInt32 id = getContainerId(container->findAttachment(Name::getClassType()));
    changes->clearAll();
    setName(container, "second");
    EXPECT_THAT(takeLog(), IsEmpty());
    EXPECT_THAT((std::vector<ChangeList::ChangeEntry>(changes->beginChanged(), changes->endChanged())),
                ElementsAre(Pair(id, FieldBits::AllFields)));
    setName(container, static_cast<const Char8*>(nullptr));
    EXPECT_THAT(takeLog(), IsEmpty());
    EXPECT_EQ(getName(container), nullptr);
    EXPECT_EQ(factory->getContainer(id), NullFC);
}

} // namespace
