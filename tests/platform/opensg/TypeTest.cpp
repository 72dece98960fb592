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
    auto nodeFields = fieldsOf(Node::getClassType());
    nodeFields.resize(6); // behind the core the application may have its own
    EXPECT_THAT(nodeFields, ElementsAre("attachments", "volume", "travMask", "parent", "children", "core"));
    EXPECT_THAT(fieldsOf(StateChunk::getClassType()), ElementsAre("parents", "internal", "ignore"));
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
    EXPECT_EQ(FieldContainer::getClassType().getCParentName(), nullptr);
}

TEST_F(TypeTest, IsAbstractWithoutAPrototypeAndGroupIsNot)
{
    EXPECT_TRUE(FieldContainer::getClassType().isAbstract());
    EXPECT_TRUE(NodeCore::getClassType().isAbstract());
    EXPECT_TRUE(Attachment::getClassType().isAbstract());
    EXPECT_TRUE(Material::getClassType().isAbstract());
    EXPECT_FALSE(Group::getClassType().isAbstract());
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
    EXPECT_STREQ(factory->findGroupName(Transform::getClassType().getGroupId()), "Transform");
    EXPECT_STREQ(factory->findGroupName(Name::getClassType().getGroupId()), "name");
    EXPECT_NE(Transform::getClassType().getGroupId(), Group::getClassType().getGroupId());
    // The static function is the root's, whatever class it is asked through.
    EXPECT_EQ(Transform::getClassGroupId(), FieldContainer::getClassType().getGroupId());
    EXPECT_EQ(Name::getClassGroupId(), FieldContainer::getClassType().getGroupId());
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

TEST_F(TypeTest, MarksLinksToParentsAndTheSizesOfAnImageAsInternalButNotItsParents)
{
    EXPECT_TRUE(Node::getClassType().findFieldDescription("parent")->isInternal());
    EXPECT_TRUE(Group::getClassType().findFieldDescription("parents")->isInternal());
    EXPECT_TRUE(Name::getClassType().findFieldDescription("parents")->isInternal());
    EXPECT_FALSE(Image::getClassType().findFieldDescription("parents")->isInternal());
    EXPECT_FALSE(Node::getClassType().findFieldDescription("children")->isInternal());
    for (const Char8* size : {"frameSize", "componentSize", "sideSize"})
        EXPECT_TRUE(Image::getClassType().findFieldDescription(size)->isInternal()) << size;
}

} // namespace
