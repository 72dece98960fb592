#include <support/Ground.h>

#include <moOpenSGUtils/moLights.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGRefPtr.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using osg::UberLight;
using osg::Vec3f;

const float notANumber = std::numeric_limits<float>::quiet_NaN();
const float infinity = std::numeric_limits<float>::infinity();

class LightsTest : public testing::Test
{
protected:
    void SetUp() override { light.get()->setCore(UberLight::create()); }

    const osg::NodeRefPtr light{osg::Node::create()};
};

TEST_F(LightsTest, WhatIsSetIsGot)
{
    moLights::setOn(light, false);
    moLights::setDiffuse(light, Vec3f(.1f, 2.f, -3.f));
    moLights::setGlossy(light, Vec3f(.4f, .5f, .6f));
    moLights::setLightValue(light, 7.f);
    moLights::setPenumbraAngle(light, 8.f);
    moLights::setConeAngle(light, 9.f);
    moLights::setLightVisualizationVisible(light, false);
    moLights::setLightProfile(light, "lamp.ies", 10.f);
    EXPECT_FALSE(moLights::getOn(light));
    EXPECT_EQ(moLights::getDiffuse(light), Vec3f(.1f, 2.f, -3.f));
    EXPECT_EQ(moLights::getGlossy(light), Vec3f(.4f, .5f, .6f));
    EXPECT_EQ(moLights::getLightValue(light), 7.f);
    EXPECT_EQ(moLights::getPenumbraAngle(light), 8.f);
    EXPECT_EQ(moLights::getConeAngle(light), 9.f);
    EXPECT_FALSE(moLights::getLightVisualizationVisible(light));
    EXPECT_EQ(moLights::getLightProfileValue(light), 10.f);
}

TEST_F(LightsTest, AnglesAreKeptWithinZeroAndHundredEighty)
{
    for (const auto& [given, kept] :
         {std::pair{-1.f, 0.f}, {0.f, 0.f}, {180.f, 180.f}, {181.f, 180.f}, {infinity, 180.f}}) {
        moLights::setConeAngle(light, given);
        moLights::setPenumbraAngle(light, given);
        EXPECT_EQ(moLights::getConeAngle(light), kept) << given;
        EXPECT_EQ(moLights::getPenumbraAngle(light), kept) << given;
    }
}

TEST_F(LightsTest, ALightValueBelowZeroIsSetAsZero)
{
    moLights::setLightValue(light, -1.f);
    EXPECT_EQ(moLights::getLightValue(light), 0.f);
}

TEST_F(LightsTest, NotANumberChangesNothing)
{
    moLights::setLightValue(light, 3.f);
    moLights::setConeAngle(light, 30.f);
    moLights::setPenumbraAngle(light, 20.f);
    moLights::setLightProfile(light, "lamp.ies", 10.f);
    moLights::setLightValue(light, notANumber);
    moLights::setConeAngle(light, notANumber);
    moLights::setPenumbraAngle(light, notANumber);
    moLights::setLightProfile(light, "other.ies", notANumber);
    EXPECT_EQ(moLights::getLightValue(light), 3.f);
    EXPECT_EQ(moLights::getConeAngle(light), 30.f);
    EXPECT_EQ(moLights::getPenumbraAngle(light), 20.f);
    EXPECT_EQ(moLights::getLightProfileValue(light), 10.f);
}

TEST_F(LightsTest, ChangingTheAttenuationRescalesTheLightValue)
{
    moLights::setLightValue(light, 3.f);
    moLights::setAttenuation(light, UberLight::QuadraticAttenuation);
    EXPECT_EQ(moLights::getAttenuation(light), UberLight::QuadraticAttenuation);
    EXPECT_FLOAT_EQ(moLights::getLightValue(light), 12.f) << "the attenuation distance is 2";
}

TEST_F(LightsTest, OnlyAKnownTypeNameChangesTheType)
{
    moLights::changeLightType(light, "Spot");
    for (const char* name : {static_cast<const char*>(nullptr), "", "spot", "Candle"}) {
        moLights::changeLightType(light, name);
        EXPECT_EQ(moLights::getLightTypeName(light), "Spot");
    }
    moLights::setLightProfileShape(light);
    EXPECT_EQ(moLights::getLightTypeName(light), "Profile");
}

TEST_F(LightsTest, TheDefaultUnitIsThatOfTheType)
{
    moLights::setLightUnit(light, UberLight::Watt);
    EXPECT_EQ(moLights::getLightUnit(light), UberLight::Watt);
    moLights::setDefaultLightUnit(light);
    EXPECT_EQ(moLights::getLightUnit(light), UberLight::Candela);
    EXPECT_FLOAT_EQ(moLights::getLightValue(light), 1.f);
}

TEST_F(LightsTest, WhatIsNoLightAnswersZeroAndIgnoresEverySetter)
{
    const osg::NodeRefPtr empty(osg::Node::create());
    const osg::NodeRefPtr group(osg::makeNodeFor(osg::Group::create()));
    const osg::NodeRefPtr transform(osg::makeNodeFor(osg::Transform3D::create()));
    const osg::RefPtr<osg::LensFlareEffectPtr> effect(osg::LensFlareEffect::create());
    EXPECT_TRUE(moLights::isLight(light));
    for (const osg::NodePtr& node : {osg::NodePtr(), empty.get(), group.get(), transform.get()}) {
        EXPECT_FALSE(moLights::isLight(node));
        moLights::setOn(node, true);
        moLights::setDiffuse(node, Vec3f(1.f, 1.f, 1.f));
        moLights::setGlossy(node, Vec3f(1.f, 1.f, 1.f));
        moLights::setLightValue(node, 1.f);
        moLights::setPenumbraAngle(node, 1.f);
        moLights::setConeAngle(node, 1.f);
        moLights::setAttenuation(node, UberLight::LinearAttenuation);
        moLights::setLightVisualizationVisible(node, true);
        moLights::changeLightType(node, "Spot");
        moLights::setLightUnit(node, UberLight::Watt);
        moLights::setDefaultLightUnit(node);
        moLights::setLightProfileShape(node);
        moLights::setLightProfile(node, nullptr, 1.f);
        moLights::setLensFlareEffect(node, effect);
        moLights::addLensFlareElements(node, {1});
        moLights::removeLensFlareElements(node, {1});
        EXPECT_FALSE(moLights::getOn(node));
        EXPECT_EQ(moLights::getDiffuse(node), Vec3f(0.f, 0.f, 0.f));
        EXPECT_EQ(moLights::getGlossy(node), Vec3f(0.f, 0.f, 0.f));
        EXPECT_EQ(moLights::getLightValue(node), 0.f);
        EXPECT_EQ(moLights::getPenumbraAngle(node), 0.f);
        EXPECT_EQ(moLights::getConeAngle(node), 0.f);
        EXPECT_EQ(moLights::getAttenuation(node), UberLight::NoAttenuation);
        EXPECT_FALSE(moLights::getLightVisualizationVisible(node));
        EXPECT_EQ(moLights::getLightTypeName(node), "");
        EXPECT_EQ(moLights::getLightUnit(node), UberLight::Candela);
        EXPECT_EQ(moLights::getLightProfileValue(node), 0.f);
        EXPECT_TRUE(moLights::getLensFlareEffect(node) == osg::NullFC);
    }
    EXPECT_EQ(effect.get().getRefCount(), 1);
}

TEST_F(LightsTest, ElementsGoIntoTheLightsEffectAndIdsOfOthersAreSkipped)
{
    moLights::setLensFlareEffect(light, osg::LensFlareEffect::create());
    const auto element = osg::LensFlareElement::create();
    const auto line = osg::LensFlareGhostLine::create();
    const auto ghost = osg::LensFlareGhost::create();
    const auto id = [](const auto& container) { return osg::getContainerId(container); };
    const auto& elements = moLights::getLensFlareEffect(light)->getElements();
    moLights::addLensFlareElements(light, {id(line), id(light.get()), 0, id(ghost), id(element)});
    ASSERT_EQ(elements.size(), 2u);
    moLights::addLensFlareGhosts(line, {id(element), id(ghost), id(ghost)});
    ASSERT_EQ(line->getGhosts().size(), 1u);
    moLights::addLensFlareGhosts(osg::NullFC, {id(ghost)});
    moLights::removeLensFlareGhosts(osg::NullFC, {id(ghost)});
    moLights::removeLensFlareGhosts(line, {id(element), id(ghost)});
    EXPECT_TRUE(line->getGhosts().empty());
    moLights::removeLensFlareElements(light, {id(line), id(element)});
    EXPECT_TRUE(elements.empty());
}

/// An effect with an element and a ghost line with one ghost.
osg::LensFlareEffectPtr makeEffect()
{
    const auto effect = osg::LensFlareEffect::create();
    effect->setSize(4.f);
    effect->addElement(osg::LensFlareElement::create());
    const auto line = osg::LensFlareGhostLine::create();
    line->addGhost(osg::LensFlareGhost::create());
    line->getGhosts()[0]->setPosition(.5f);
    effect->addElement(line);
    return effect;
}

TEST(LensFlareClone, ASharedCloneListsTheVerySameElements)
{
    EXPECT_EQ(LensFlareEffectCloneSharedElements, 1);
    const osg::RefPtr<osg::LensFlareEffectPtr> effect(makeEffect());
    osg::LensFlareEffectPtr clone = moLights::cloneLensFlareEffect(effect, LensFlareEffectCloneSharedElements);
    EXPECT_EQ(clone.getRefCount(), 0);
    EXPECT_EQ(clone->getSize(), 4.f);
    ASSERT_EQ(clone->getElements().size(), 2u);
    for (osg::UInt32 i = 0; i < 2; ++i) {
        EXPECT_TRUE(clone->getElements(i) == effect->getElements(i));
        EXPECT_EQ(effect->getElements(i).getRefCount(), 1 + ground::objectsPerContainer);
    }
    osg::subRefCP(clone);
    EXPECT_EQ(effect->getElements(0).getRefCount(), 1);
}

TEST(LensFlareClone, ADeepCloneHasElementsAndGhostsOfItsOwn)
{
    const osg::RefPtr<osg::LensFlareEffectPtr> effect(makeEffect());
    const osg::RefPtr<osg::LensFlareEffectPtr> clone(moLights::cloneLensFlareEffect(effect, LensFlareEffectCloneDeep));
    ASSERT_EQ(clone->getElements().size(), 2u);
    for (osg::UInt32 i = 0; i < 2; ++i) {
        EXPECT_FALSE(clone->getElements(i) == effect->getElements(i));
        EXPECT_EQ(effect->getElements(i).getRefCount(), ground::objectsPerContainer)
            << "the other objects' of the clone";
    }
    const auto line = osg::LensFlareGhostLinePtr::dcast(effect->getElements(1));
    const auto copy = osg::LensFlareGhostLinePtr::dcast(clone->getElements(1));
    ASSERT_EQ(copy->getGhosts().size(), 1u);
    EXPECT_FALSE(copy->getGhosts(0) == line->getGhosts(0));
    EXPECT_EQ(copy->getGhosts(0)->getPosition(), .5f);
    EXPECT_EQ(line->getGhosts(0).getRefCount(), ground::objectsPerContainer);
}

TEST(LensFlareClone, OfNullIsNull)
{
    EXPECT_TRUE(moLights::cloneLensFlareEffect(osg::NullFC, LensFlareEffectCloneSharedElements) == osg::NullFC);
}

} // namespace
