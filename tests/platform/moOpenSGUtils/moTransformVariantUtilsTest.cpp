#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace moTransformVariantUtils;
using Variant = osg::TransformVariant;

namespace {

/// One row per component of three floats: its getter and its flag.
struct Component
{
    const char* name;
    osg::Vec3f (*get)(const osg::Transform3DPtr&, int, bool);
    osg::UInt64 flag;
    float defaultValue;
};

const std::vector<Component> components{
    {"translation", getTranslation, Variant::ApplyTranslation, 0},
    {"orientation", getRotationPivotOrientation, Variant::ApplyRotationPivotOrientation, 0},
    {"rotation", getRotation, Variant::ApplyRotation, 0},
    {"rotation pivot", getRotationPivot, Variant::ApplyRotationPivot, 0},
    {"rotation pivot translation", getRotationPivotTranslation, Variant::ApplyRotationPivotTranslation, 0},
    {"scale", getScale, Variant::ApplyScale, 1},
    {"scale pivot", getScalePivot, Variant::ApplyScalePivot, 0},
    {"scale pivot translation", getScalePivotTranslation, Variant::ApplyScalePivotTranslation, 0}};

void fill(const osg::NodePtr& node, float value, int mode, const char* order, int variantIndex)
{
    const auto v = [value](float i) { return osg::Vec3f(value + i, 0, 0); };
    moNodeUtils::setTransformNodeValues(node, v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), mode, order, false, v(0),
                                        0, variantIndex);
}

class moTransformVariantUtilsTest : public testing::Test
{
protected:
    moTransformVariantUtilsTest() : m_holder(osg::makeNodeFor(osg::Transform3D::create())), node(m_holder.get())
    {
        live = moNodeUtils::getTransform3D(node, -1);
        moNodeUtils::createTransformVariantsAttachment(node);
        for (const char* name : {"A", "B"})
            moNodeUtils::insertTransformVariant(node, moNodeUtils::getTransformVariantCount(node),
                                                recordTransformVariant(live, name));
    }

private:
    osg::NodeRefPtr m_holder;

protected:
    osg::NodePtr node;
    osg::Transform3DPtr live;
};

} // namespace

TEST_F(moTransformVariantUtilsTest, FindsTheVariantsOfACoreOnItsNode)
{
    EXPECT_EQ(getTransformVariant(live, 0), moNodeUtils::getTransformVariant(node, 0));
    EXPECT_EQ(getTransformVariant(live, 1), moNodeUtils::getTransformVariant(node, 1));
    EXPECT_EQ(getTransformVariant(live, 2), osg::NullFC);
    EXPECT_EQ(getTransformVariant(live, -1), osg::NullFC);
    EXPECT_EQ(getTransformVariant(osg::NullFC, 0), osg::NullFC);
    const osg::RefPtr<osg::Transform3DPtr> loose(osg::Transform3D::create());
    EXPECT_EQ(getTransformVariant(loose.get(), 0), osg::NullFC);
}

TEST_F(moTransformVariantUtilsTest, OfASharedCoreTheFirstNodeWithAListCounts)
{
    const osg::Transform3DPtr core = osg::Transform3D::create();
    const osg::NodeRefPtr first(osg::makeNodeFor(core));
    const osg::NodeRefPtr second(osg::makeNodeFor(core));
    moNodeUtils::createTransformVariantsAttachment(second.get());
    moNodeUtils::insertTransformVariant(second.get(), 0, recordTransformVariant(core, "C"));
    EXPECT_EQ(moTransformVariantUtils::getName(getTransformVariant(core, 0)), "C");
}

TEST_F(moTransformVariantUtilsTest, CarriesTheSupposedState)
{
    EXPECT_EQ(getSupposedState(live), -1);
    setSupposedState(live, 12345);
    EXPECT_EQ(getSupposedState(live), 12345);
    setSupposedState(osg::NullFC, 1);
    EXPECT_EQ(getSupposedState(osg::NullFC), -1);
}

TEST_F(moTransformVariantUtilsTest, NamesAndFlagsAreThoseOfTheVariant)
{
    const osg::TransformVariantPtr variant = getTransformVariant(live, 0);
    setName(variant, "open");
    setApplyFlags(variant, 0x8000000000000001u);
    EXPECT_EQ(moTransformVariantUtils::getName(variant), "open");
    EXPECT_EQ(getApplyFlags(variant), 0x8000000000000001u);
    setName(osg::NullFC, "open");
    setApplyFlags(osg::NullFC, 1);
    EXPECT_EQ(moTransformVariantUtils::getName(osg::NullFC), "");
    EXPECT_EQ(getApplyFlags(osg::NullFC), 0u);
}

TEST_F(moTransformVariantUtilsTest, AsAppliedAComponentIsTheVariantsIfItsFlagIsOnAndTheLiveOneIfNot)
{
    fill(node, 100, 0, "XYZ", -1);
    fill(node, 200, 1, "ZYX", 0);
    for (std::size_t i = 0; i < components.size(); ++i) {
        const Component& component = components[i];
        SCOPED_TRACE(component.name);
        const float place = float(i);
        setApplyFlags(getTransformVariant(live, 0), component.flag);
        EXPECT_EQ(component.get(live, 0, true)[0], 200 + place);
        EXPECT_EQ(component.get(live, 0, false)[0], 200 + place);
        setApplyFlags(getTransformVariant(live, 0), ~component.flag);
        EXPECT_EQ(component.get(live, 0, true)[0], 100 + place);
        EXPECT_EQ(component.get(live, 0, false)[0], 200 + place);
    }
    setApplyFlags(getTransformVariant(live, 0), Variant::ApplyRotationMode);
    EXPECT_EQ(getRotationMode(live, 0, true), 1);
    EXPECT_EQ(getEulerRotationOrder(live, 0, true), "XYZ");
    setApplyFlags(getTransformVariant(live, 0), Variant::ApplyEulerRotationOrder);
    EXPECT_EQ(getRotationMode(live, 0, true), 0);
    EXPECT_EQ(getRotationMode(live, 0, false), 1);
    EXPECT_EQ(getEulerRotationOrder(live, 0, true), "ZYX");
}

TEST_F(moTransformVariantUtilsTest, WithoutVariantOrCoreTheValuesAreTheDefaults)
{
    fill(node, 100, 1, "ZYX", -1);
    moNodeUtils::insertTransformVariant(node, 2, Variant::create()); // no core of its own
    for (const bool asApplied : {false, true})
        for (const int index : {-2, -1, 2, 3}) {
            for (const Component& component : components) {
                SCOPED_TRACE(component.name);
                const float d = component.defaultValue;
                EXPECT_EQ(component.get(live, index, asApplied), osg::Vec3f(d, d, d));
                EXPECT_EQ(component.get(osg::NullFC, index, asApplied), osg::Vec3f(d, d, d));
            }
            EXPECT_EQ(getRotationMode(live, index, asApplied), 0);
            EXPECT_EQ(getEulerRotationOrder(live, index, asApplied), "XYZ");
        }
}

TEST_F(moTransformVariantUtilsTest, ARecordedVariantHasAllValuesOfItsSourceAndIsNotHeld)
{
    fill(node, 7, 1, "YZX", -1);
    moNodeUtils::setTransformNodeShear(node, 1, 2, 3);
    moNodeUtils::setTransformNodeRotationDirection(node, 0, 1, 0, 2, false, -1);
    const osg::RefPtr<osg::TransformVariantPtr> variant(recordTransformVariant(live, "C"));
    EXPECT_EQ(variant.get().getRefCount(), 1);
    EXPECT_EQ(variant->getName(), "C");
    const osg::Transform3DPtr own = variant->getTransform();
    ASSERT_NE(own, osg::NullFC);
    EXPECT_NE(own, live);
    EXPECT_EQ(own.getRefCount(), 1);
    EXPECT_EQ(own->getMatrix(), live->getMatrix());
    for (osg::UInt32 id = osg::Transform3DBase::TranslationFieldId; id < osg::Transform3DBase::NextFieldId; ++id) {
        std::string of;
        std::string from;
        own->getField(id)->getValueByStr(of);
        live->getField(id)->getValueByStr(from);
        EXPECT_EQ(of, from) << own->getType().getFieldDescription(id)->getCName();
    }
}

TEST_F(moTransformVariantUtilsTest, AVariantRecordedFromNothingHasNoCore)
{
    const osg::RefPtr<osg::TransformVariantPtr> variant(recordTransformVariant(osg::NullFC, "C"));
    EXPECT_EQ(variant->getName(), "C");
    EXPECT_EQ(variant->getTransform(), osg::NullFC);
}
