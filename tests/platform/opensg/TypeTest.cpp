#include "Probe.h"

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMaterialGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleMaterial.h>

namespace {

using namespace osg;
using testing::ElementsAre;

class TypeTest : public OpenSG
{
protected:
    static std::vector<std::string> fieldsOf(const FieldContainerType& type)
    {
        std::vector<std::string> names;
        for (UInt32 id = 1; id <= type.getNumFieldDescs(); ++id)
            names.emplace_back(type.getFieldDescription(id)->getCName());
        return names;
    }
};

TEST_F(TypeTest, NumbersTheFieldsFromOneOverTheWholeHierarchyWithInheritedOnesFirst)
{
    EXPECT_THAT(fieldsOf(Transform::getClassType()), ElementsAre("attachments", "parents", "matrix"));
    EXPECT_THAT(fieldsOf(Node::getClassType()), ElementsAre("attachments", "volume", "travMask", "parent", "children",
                                                            "core", "flags", "externalFlags"));
    EXPECT_THAT(fieldsOf(Name::getClassType()), ElementsAre("parents", "internal", "name"));
    EXPECT_THAT(fieldsOf(MaterialGroup::getClassType()), ElementsAre("attachments", "parents", "material"));
    EXPECT_THAT(fieldsOf(SimpleMaterial::getClassType()),
                ElementsAre("attachments", "sortKey", "transparencyMode", "chunks", "slots", "ambient", "diffuse",
                            "specular", "shininess", "emission", "transparency", "lit", "colorMaterial"));
    EXPECT_THAT(fieldsOf(Image::getClassType()),
                ElementsAre("attachments", "parents", "dimension", "width", "height", "depth", "bpp", "mipMapCount",
                            "frameCount", "frameDelay", "pixelFormat", "pixel", "frameSize", "name", "dataType",
                            "componentSize", "sideCount", "sideSize", "forceCompressedData", "forceAlphaChannel",
                            "forceColorChannel", "forceAlphaBinary", "resX", "resY", "resUnit"));
    EXPECT_THAT(fieldsOf(FieldContainer::getClassType()), ElementsAre());
}

TEST_F(TypeTest, DescribesEveryFieldUnderItsOwnIdWithTheMaskOfThatBit)
{
    for (auto entry = factory->beginTypes(); entry != factory->endTypes(); ++entry) {
        FieldContainerType& type = *entry->second;
        for (UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
            const FieldDescription* const description = type.getFieldDescription(id);
            EXPECT_EQ(description->getFieldId(), id) << type.getCName();
            EXPECT_EQ(description->getFieldMask(), BitVector(1) << id) << type.getCName();
            EXPECT_EQ(type.findFieldDescription(description->getCName()), description) << type.getCName();
            EXPECT_TRUE(description->isValid());
        }
    }
    EXPECT_EQ(+Node::FlagsFieldId, 7u);
    EXPECT_EQ(Node::ExternalFlagsFieldMask, BitVector(1) << 8);
    EXPECT_EQ(Image::PixelFieldMask, BitVector(1) << 12);
}

TEST_F(TypeTest, GivesNoDescriptionForZeroOrBeyondTheLastField)
{
    FieldContainerType& type = Transform::getClassType();
    EXPECT_EQ(type.getNumFieldDescs(), 3u);
    EXPECT_EQ(type.getFieldDescription(0), nullptr);
    EXPECT_NE(type.getFieldDescription(3), nullptr);
    EXPECT_EQ(type.getFieldDescription(4), nullptr);
    EXPECT_EQ(type.getFieldDescription(0xFFFFFFFFu), nullptr);
}

TEST_F(TypeTest, FindsAFieldByItsExactNameOnlyInheritedOnesIncluded)
{
    FieldContainerType& type = Transform::getClassType();
    EXPECT_EQ(type.findFieldDescription("matrix")->getFieldId(), +Transform::MatrixFieldId);
    EXPECT_EQ(type.findFieldDescription("attachments")->getFieldId(), 1u);
    EXPECT_EQ(type.findFieldDescription("Matrix"), nullptr);
    EXPECT_EQ(type.findFieldDescription(""), nullptr);
    EXPECT_EQ(type.findFieldDescription(nullptr), nullptr);
}

TEST_F(TypeTest, IsDerivedFromItselfAndItsAncestors)
{
    const FieldContainerType& transform = Transform::getClassType();
    EXPECT_TRUE(transform.isDerivedFrom(transform));
    EXPECT_TRUE(transform.isDerivedFrom(Group::getClassType()));
    EXPECT_TRUE(transform.isDerivedFrom(FieldContainer::getClassType()));
    EXPECT_FALSE(Group::getClassType().isDerivedFrom(transform));
    EXPECT_FALSE(transform.isDerivedFrom(Node::getClassType()));
}

TEST_F(TypeTest, IsNotDerivedFromAnythingWhenAskedAboutAPlainTypeBase)
{
    const FieldContainerType& transform = Transform::getClassType();
    const TypeBase& group = Group::getClassType();
    EXPECT_FALSE(transform.isDerivedFrom(group));
}

TEST_F(TypeTest, KnowsItsParentUpToFieldContainer)
{
    std::vector<std::string> names;
    for (const FieldContainerType* type = &Transform::getClassType(); type; type = type->getParent())
        names.emplace_back(type->getName().str());
    EXPECT_THAT(names, ElementsAre("Transform", "Group", "NodeCore", "AttachmentContainer", "FieldContainer"));
    EXPECT_STREQ(Transform::getClassType().getCParentName(), "Group");
    EXPECT_STREQ(Transform::getClassType().getParentName().str(), "Group");
}

TEST_F(TypeTest, IsAbstractWithoutAPrototypeAndGroupIsNot)
{
    EXPECT_TRUE(FieldContainer::getClassType().isAbstract());
    EXPECT_TRUE(NodeCore::getClassType().isAbstract());
    EXPECT_TRUE(Attachment::getClassType().isAbstract());
    EXPECT_TRUE(Material::getClassType().isAbstract());
    EXPECT_FALSE(Group::getClassType().isAbstract());
    EXPECT_EQ(NodeCore::create(), NullFC);
    EXPECT_EQ(Material::createEmpty(), NullFC);
}

TEST_F(TypeTest, SaysWhatKindOfContainerItIs)
{
    EXPECT_TRUE(Node::getClassType().isNode());
    EXPECT_TRUE(Transform::getClassType().isNodeCore());
    EXPECT_TRUE(Name::getClassType().isAttachment());
    EXPECT_FALSE(Node::getClassType().isNodeCore() || Node::getClassType().isAttachment());
    EXPECT_FALSE(Image::getClassType().isNode() || Image::getClassType().isNodeCore());
    EXPECT_TRUE(Node::getClassType().isInitialized());
}

TEST_F(TypeTest, HasTheGroupOfItsOwnNameUnlessItNamesOneAndDoesNotInheritIt)
{
    EXPECT_STREQ(factory->findGroupName(Transform::getClassGroupId()), "Transform");
    EXPECT_STREQ(factory->findGroupName(Name::getClassGroupId()), "name");
    EXPECT_NE(Transform::getClassGroupId(), Group::getClassGroupId());
}

TEST_F(TypeTest, SharesItsNumbersWithFieldTypes)
{
    EXPECT_NE(Transform::getClassType().getId(), SFReal32::getClassType().getId());
    EXPECT_NE(Transform::getClassType().getId(), SFMatrix::getClassType().getId());
    EXPECT_EQ(factory->findType(SFReal32::getClassType().getId()), nullptr);
    EXPECT_TRUE(static_cast<const TypeBase&>(Node::getClassType()) == Node::getClassType());
    EXPECT_TRUE(static_cast<const TypeBase&>(Node::getClassType()) != Group::getClassType());
}

TEST_F(TypeTest, DeclaresTheTypeOfMostFieldsRightAndOfAFewWrong)
{
    const NodePtr node = Node::create();
    const FieldDescription* const travMask = node->getType().findFieldDescription("travMask");
    EXPECT_STREQ(travMask->getFieldType().getCName(), "SFBool");
    EXPECT_STREQ(node->getField(travMask->getFieldId())->getType().getCName(), "SFUInt32");

    const NamePtr name = Name::create();
    EXPECT_STREQ(name->getType().findFieldDescription("parents")->getFieldType().getCName(), "MFNodePtr");
    EXPECT_STREQ(FieldContainerPtr(name)->getField("parents")->getType().getCName(), "MFFieldContainerPtr");

    const FieldDescription* const core = node->getType().findFieldDescription("core");
    EXPECT_EQ(core->getTypeId(), SFNodeCorePtr::getClassType().getId());
    EXPECT_EQ(core->getTypeId(), node->getField("core")->getType().getId());
    subRefCP(node);
    subRefCP(name);
}

TEST_F(TypeTest, MarksLinksToParentsAsInternalExceptThoseOfAnImage)
{
    EXPECT_TRUE(Node::getClassType().findFieldDescription("parent")->isInternal());
    EXPECT_TRUE(Group::getClassType().findFieldDescription("parents")->isInternal());
    EXPECT_TRUE(Name::getClassType().findFieldDescription("parents")->isInternal());
    EXPECT_FALSE(Image::getClassType().findFieldDescription("parents")->isInternal());
    EXPECT_FALSE(Node::getClassType().findFieldDescription("children")->isInternal());
}

TEST_F(TypeTest, ThatComesLateMakesNothingUntilPendingTypesAreInitialised)
{
    FieldContainerType late("LateProbe", "Probe", "LateProbe",
                            []() -> FieldContainerPtr { return Probe::createEmpty(); });
    EXPECT_FALSE(late.isInitialized());
    EXPECT_EQ(late.getNumFieldDescs(), 0u);
    EXPECT_EQ(late.findFieldDescription("label"), nullptr);
    EXPECT_EQ(factory->createFieldContainer("LateProbe"), NullFC);
    EXPECT_EQ(factory->findUninitializedType("LateProbe"), &late);

    EXPECT_TRUE(factory->initializePendingTypes());
    EXPECT_TRUE(late.isDerivedFrom(Probe::getClassType()));
    EXPECT_EQ(late.getNumFieldDescs(), Probe::getClassType().getNumFieldDescs());
    const FieldContainerPtr container = factory->createFieldContainer("LateProbe");
    EXPECT_TRUE(container);
    subRefCP(container);
}

TEST_F(TypeTest, StaysPendingWithoutItsParentType)
{
    FieldContainerType orphan("OrphanProbe", "NoSuchType", "OrphanProbe");
    EXPECT_FALSE(factory->initializePendingTypes());
    EXPECT_FALSE(orphan.isInitialized());
}

TEST_F(TypeTest, OfANameThatIsTakenStaysUnknown)
{
    testing::internal::CaptureStderr();
    FieldContainerType second("Probe", "Node", "Probe");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WARNING:  a second container type Probe stays unknown\n");
    EXPECT_EQ(factory->findType("Probe"), &Probe::getClassType());
}

} // namespace
