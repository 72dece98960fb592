#include "Probe.h"

#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGStringFields.h>

#include <memory>

namespace {

using namespace osg;
using testing::ElementsAre;

// Fields of one C++ type that are different field types.
static_assert(std::is_same_v<SFBool, SField<bool, 2>> && std::is_same_v<MFBool, MField<bool, 2>>);
static_assert(!std::is_same_v<SFBool, SField<bool>>);
static_assert(std::is_same_v<SFTime, SField<Real64, 1>> && std::is_same_v<SFReal64, SField<Real64>>);
static_assert(std::is_same_v<SFBitVector, SField<UInt64, 1>> && std::is_same_v<SFUInt64, SField<UInt64>>);
static_assert(std::is_same_v<SFGLenum, SField<GLenum, 1>>);
static_assert(std::is_same_v<SFNodeCorePtr, SField<NodeCorePtr>>);
static_assert(std::is_same_v<SFImagePtr, SField<ImagePtr>>);
static_assert(std::is_same_v<SFVec3f::StoredType, Vec3f>);
static_assert(sizeof(SFNodePtr) == 24 && sizeof(SFFieldContainerPtr) == 24);
static_assert(!std::is_copy_assignable_v<Field> && std::is_abstract_v<Field>);

class Fields : public OpenSG
{
};

TEST_F(Fields, AreReachedByIdAndByNameAndNullForAnythingElse)
{
    const TransformPtr transform = Transform::create();
    EXPECT_EQ(transform->getField(Transform::MatrixFieldId), transform->getSFMatrix());
    EXPECT_EQ(transform->getField("matrix"), transform->getSFMatrix());
    EXPECT_EQ(transform->getField("Matrix"), nullptr);
    EXPECT_EQ(transform->getField(""), nullptr);
    EXPECT_EQ(transform->getField(UInt32(0)), nullptr);
    EXPECT_EQ(transform->getField(UInt32(99)), nullptr);
    subRefCP(transform);
}

TEST_F(Fields, HaveTheNamesOfTheirTypedefs)
{
    const NodePtr node = Node::create();
    EXPECT_STREQ(SFReal32::getClassType().getCName(), "SFReal32");
    EXPECT_STREQ(MFString::getClassType().getCName(), "MFString");
    EXPECT_STREQ(node->getField("core")->getType().getCName(), "SFNodeCorePtr");
    EXPECT_STREQ(SFReal32::getClassType().getContentType().getCName(), "Real32");
    EXPECT_STREQ(SFBool::getClassType().getContentType().getCName(), "bool");
    EXPECT_STREQ(MFString::getClassType().getContentType().getCName(), "string");
    EXPECT_STREQ(node->getField("children")->getContentType().getCName(), "NodePtr");
    EXPECT_EQ(node->getField("children")->getCardinality(), FieldType::MULTI_FIELD);
    EXPECT_EQ(node->getField("core")->getCardinality(), FieldType::SINGLE_FIELD);
    EXPECT_EQ(FieldType::SINGLE_FIELD, 0);
    EXPECT_EQ(FieldType::MULTI_FIELD, 1);
    subRefCP(node);
}

TEST_F(Fields, OfHandlesAreTypedAndNoFieldsOfFieldContainerPtr)
{
    const NodePtr node = Node::create();
    Field* const core = node->getField("core");
    EXPECT_NE(dynamic_cast<SFNodeCorePtr*>(core), nullptr);
    EXPECT_EQ(dynamic_cast<SFFieldContainerPtr*>(core), nullptr);
    EXPECT_EQ(dynamic_cast<MFNodePtr*>(core), nullptr);
    subRefCP(node);
}

TEST_F(Fields, WithOneValueHaveSizeOneAreNeverEmptyAndGiveReferences)
{
    SFReal32 field(1.5f);
    EXPECT_EQ(field.getSize(), 1u);
    EXPECT_FALSE(field.isEmpty());
    field.getValue() = 2.5f;
    EXPECT_EQ(field.getValue(), 2.5f);
    SFReal32 other;
    EXPECT_EQ(other.getValue(), 0.0f);
    other.setValue(field);
    EXPECT_EQ(other.getValue(), 2.5f);
    other.setValue(3.5f);
    field = other;
    EXPECT_EQ(field.getValue(), 3.5f);
}

TEST_F(Fields, WithAListBehaveLikeAVector)
{
    MFInt32 field;
    EXPECT_TRUE(field.empty() && field.isEmpty());
    field.push_back(1);
    field.push_back(3);
    field.insert(field.begin() + 1, 2);
    field.addValue(4);
    EXPECT_EQ(field.getSize(), 4u);
    EXPECT_THAT(field.getValues(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(field.find(3) - field.begin(), 2);
    EXPECT_TRUE(field.find(9) == field.end());
    field.erase(field.begin());
    field.erase(field.begin(), field.begin() + 2);
    EXPECT_THAT(field.getValues(), ElementsAre(4));
    field.resize(3, 7);
    field.setValue(8, 1);
    EXPECT_EQ(field.getValue(1), 8);
    EXPECT_EQ(field[0], 4);
    EXPECT_EQ(field.front() + field.back(), 11);
    field.setValues(std::vector<Int32>{5, 6});
    MFInt32 other;
    other.swap(field);
    EXPECT_THAT(other.getValues(), ElementsAre(5, 6));
    EXPECT_TRUE(field.empty());
    field.setValues(other);
    field.clear();
    field = other;
    EXPECT_THAT(field.getValues(), ElementsAre(5, 6));
    EXPECT_THAT(std::vector<Int32>(field.rbegin(), field.rend()), ElementsAre(6, 5));
}

TEST_F(Fields, WithAListOfBoolsBehaveLikeOneToo)
{
    MFBool field;
    field.push_back(true);
    field.push_back(false);
    field[1] = true;
    EXPECT_THAT(field.getValues(), ElementsAre(true, true));
}

TEST_F(Fields, TakeOverTheValueOfTheSameTypeAndIgnoreAnother)
{
    SFReal32 real(1.0f);
    real.setAbstrValue(SFReal32(2.0f));
    EXPECT_EQ(real.getValue(), 2.0f);
    real.setAbstrValue(SFReal64(3.0));
    real.setAbstrValue(MFReal32(4));
    EXPECT_EQ(real.getValue(), 2.0f);

    SFTime time(1.0);
    time.setAbstrValue(SFReal64(3.0));
    EXPECT_EQ(time.getValue(), 1.0);

    MFString strings;
    MFString source;
    source.push_back("a");
    strings.setAbstrValue(source);
    EXPECT_THAT(strings.getValues(), ElementsAre("a"));
    strings.setAbstrValue(SFString("b"));
    EXPECT_THAT(strings.getValues(), ElementsAre("a"));
}

TEST_F(Fields, AreMadeByNameOrIdOfAKnownTypeOnly)
{
    FieldFactory& fields = FieldFactory::the();
    for (const Char8* name : {"SFBool", "SFInt8", "SFUInt64", "SFReal32", "MFString", "SFVec3f", "MFPnt3f", "SFColor4f",
                              "SFQuaternion", "SFMatrix", "MFNodePtr", "SFAttachmentMap", "SFProbePtr"}) {
        const std::unique_ptr<Field> field(fields.createField(name));
        ASSERT_TRUE(field) << name;
        EXPECT_STREQ(field->getType().getCName(), name);
        const std::unique_ptr<Field> again(fields.createField(field->getType().getId()));
        EXPECT_EQ(again->getType().getId(), field->getType().getId());
        EXPECT_EQ(fields.getFieldType(name), &field->getType());
    }
    EXPECT_EQ(fields.createField("SFNothing"), nullptr);
    EXPECT_EQ(fields.createField("Real32"), nullptr);
    EXPECT_EQ(fields.createField(Node::getClassTypeId()), nullptr);
    EXPECT_EQ(fields.getFieldType("SFNothing"), nullptr);
    EXPECT_GT(FieldFactory::getNFieldTypes(), 90u);
}

TEST_F(Fields, OfAContainerAreCopiedIntoAnEmptyFieldOfTheirTypeAndBack)
{
    const TransformPtr transform = Transform::create();
    transform->getMatrix().setTranslate(1, 2, 3);
    Field* const live = transform->getField("matrix");
    const std::unique_ptr<Field> kept(FieldFactory::the().createField(live->getType().getId()));
    kept->setAbstrValue(*live);
    transform->setMatrix(Matrix());
    live->setAbstrValue(*kept);
    EXPECT_EQ(transform->getMatrix()[3], Vec4f(1, 2, 3, 1));
    subRefCP(transform);
}

TEST_F(Fields, AreOverwrittenByTextOrGrowByItAsLists)
{
    SFInt32 number(1);
    number.pushValueByStr("42");
    EXPECT_EQ(number.getValue(), 42);
    MFInt32 numbers;
    numbers.pushValueByStr("1");
    numbers.pushValueByStr("-2");
    EXPECT_THAT(numbers.getValues(), ElementsAre(1, -2));
    std::string text;
    EXPECT_EQ(numbers.getValueByStr(text), "1, -2");
}

} // namespace
