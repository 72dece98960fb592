#include <support/Ground.h>

#include <moOpenSGUberLight/OSGUberLight.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using osg::UberLight;

class UberLightTest : public testing::Test
{
protected:
    osg::RefPtr<osg::UberLightPtr> light{UberLight::create()};
};

TEST_F(UberLightTest, ALightIsATransform)
{
    EXPECT_TRUE(UberLight::getClassType().isDerivedFrom(osg::Transform3D::getClassType()));
    EXPECT_EQ(osg::UInt32(UberLight::OnFieldId), osg::UInt32(osg::Transform3D::NextFieldId));
}

TEST_F(UberLightTest, ChangingTheAttenuationRescalesTheIntensityToTheSameAtTheAttenuationDistance)
{
    light->setAttenuationDistance(3.f);
    light->setIntensity(10.f);
    light->setAttenuation(UberLight::LinearAttenuation);
    EXPECT_FLOAT_EQ(light->getIntensity(), 30.f);
    light->setAttenuation(UberLight::QuadraticAttenuation);
    EXPECT_FLOAT_EQ(light->getIntensity(), 90.f);
    light->setAttenuation(UberLight::QuadraticAttenuation);
    EXPECT_FLOAT_EQ(light->getIntensity(), 90.f);
    light->setAttenuation(UberLight::NoAttenuation);
    EXPECT_FLOAT_EQ(light->getIntensity(), 10.f);
}

TEST_F(UberLightTest, WithoutAnAttenuationDistanceTheIntensityStays)
{
    for (const float distance : {0.f, -1.f, std::numeric_limits<float>::quiet_NaN()}) {
        light->setAttenuationDistance(distance);
        light->setAttenuation(UberLight::NoAttenuation);
        light->setAttenuation(UberLight::QuadraticAttenuation);
        EXPECT_EQ(light->getAttenuation(), UberLight::QuadraticAttenuation);
        EXPECT_EQ(light->getIntensity(), 1.f);
    }
}

TEST_F(UberLightTest, ValuesOutsideTheEnumerationsChangeNothing)
{
    light->setAttenuation(UberLight::LinearAttenuation);
    const float intensity = light->getIntensity();
    light->setAttenuation(static_cast<UberLight::LightAttenuation>(3));
    EXPECT_EQ(light->getAttenuation(), UberLight::LinearAttenuation);
    light->setLightType(static_cast<UberLight::LightType>(6));
    EXPECT_EQ(light->getLightType(), UberLight::PointLight);
    light->setLightUnit(static_cast<UberLight::LightUnit>(4));
    EXPECT_EQ(light->getLightUnit(), UberLight::Candela);
    EXPECT_EQ(light->getIntensity(), intensity);
}

TEST_F(UberLightTest, StoredNumbersOutsideTheEnumerationsReadAsTheDefaults)
{
    light->UberLightBase::setAttenuation(-1);
    light->UberLightBase::setLightType(77);
    light->UberLightBase::setLightUnit(-5);
    EXPECT_EQ(light->getAttenuation(), UberLight::NoAttenuation);
    EXPECT_EQ(light->getLightType(), UberLight::PointLight);
    EXPECT_EQ(light->getLightUnit(), UberLight::Candela);
}

TEST_F(UberLightTest, EveryTypeIsFoundByItsName)
{
    for (const auto type : {UberLight::DirectionalLight, UberLight::PointLight, UberLight::SpotLight,
                            UberLight::AreaLight, UberLight::SphereLight, UberLight::ProfileLight}) {
        UberLight::LightType found = type == UberLight::PointLight ? UberLight::SpotLight : UberLight::PointLight;
        EXPECT_TRUE(UberLight::findLightType(UberLight::lightTypeName(type), found));
        EXPECT_EQ(found, type);
    }
    EXPECT_STREQ(UberLight::lightTypeName(static_cast<UberLight::LightType>(6)), "");
}

TEST_F(UberLightTest, NoOtherNameIsATypes)
{
    UberLight::LightType type = UberLight::AreaLight;
    for (const char* name : {static_cast<const char*>(nullptr), "", "spot", "Spot ", "Spo"}) {
        EXPECT_FALSE(UberLight::findLightType(name, type));
    }
    EXPECT_EQ(type, UberLight::AreaLight);
}

TEST_F(UberLightTest, OnlyAreaAndSphereLightsKeepAScale)
{
    const osg::Vec3f scale(2.f, 3.f, 4.f), none(1.f, 1.f, 1.f);
    light->setScale(scale);
    light->setLightType(UberLight::AreaLight);
    EXPECT_EQ(light->getScale(), scale);
    light->setLightType(UberLight::SphereLight);
    EXPECT_EQ(light->getScale(), scale);
    light->setLightType(UberLight::ProfileLight);
    EXPECT_EQ(light->getScale(), none);
    light->setScale(scale);
    light->setLightType(UberLight::ProfileLight);
    EXPECT_EQ(light->getScale(), scale) << "the type did not change";
}

TEST_F(UberLightTest, ANewTypeBringsItsUnitAndTheLightShinesAsBefore)
{
    const float fullSphere = 12.566371f;
    light->setIntensity(2.f);
    light->setLightType(UberLight::AreaLight);
    EXPECT_EQ(light->getLightUnit(), UberLight::Lumen);
    EXPECT_FLOAT_EQ(light->getIntensity(), 2.f * fullSphere);
    light->setLightType(UberLight::DirectionalLight);
    EXPECT_EQ(light->getLightUnit(), UberLight::Lux);
    EXPECT_FLOAT_EQ(light->getIntensity(), 2.f);
    light->setLightUnit(UberLight::Watt);
    EXPECT_FLOAT_EQ(light->getIntensity(), 2.f * fullSphere / 683.f);
    EXPECT_EQ(UberLight::defaultLightUnit(static_cast<UberLight::LightType>(-1)), UberLight::Candela);
}

TEST_F(UberLightTest, LensFlareEffectAndVisibilityReferenceAreHeldUntilTheyAreReplacedOrTheLightGoes)
{
    const osg::RefPtr<osg::LensFlareEffectPtr> effect(osg::LensFlareEffect::create());
    const osg::RefPtr<osg::LensFlareEffectPtr> otherEffect(osg::LensFlareEffect::create());
    const osg::NodeRefPtr node(osg::Node::create()), otherNode(osg::Node::create());
    light->setLensFlareEffect(effect);
    light->setLensFlareEffect(effect);
    light->setVisibilityReference(node);
    light->setVisibilityReference(node);
    EXPECT_EQ(effect.get().getRefCount(), 2);
    EXPECT_EQ(node.get().getRefCount(), 2);
    light->setLensFlareEffect(otherEffect);
    light->setVisibilityReference(otherNode);
    EXPECT_EQ(effect.get().getRefCount(), 1);
    EXPECT_EQ(node.get().getRefCount(), 1);
    light = osg::UberLightPtr();
    EXPECT_EQ(otherEffect.get().getRefCount(), 1);
    EXPECT_EQ(otherNode.get().getRefCount(), 1);
}

TEST_F(UberLightTest, ACopyHoldsTheSameContainersOnItsOwn)
{
    const osg::RefPtr<osg::LensFlareEffectPtr> effect(osg::LensFlareEffect::create());
    const osg::NodeRefPtr node(osg::Node::create());
    light->setLensFlareEffect(effect);
    light->setVisibilityReference(node);
    light->setIntensity(5.f);
    osg::UberLightPtr copy = osg::UberLightPtr::dcast(light->shallowCopy());
    EXPECT_EQ(copy->getIntensity(), 5.f);
    EXPECT_TRUE(copy->getLensFlareEffect() == effect.get());
    EXPECT_TRUE(copy->getVisibilityReference() == node.get());
    light = osg::UberLightPtr();
    EXPECT_EQ(effect.get().getRefCount(), 1 + ground::objectsPerContainer);
    EXPECT_EQ(node.get().getRefCount(), 1 + ground::objectsPerContainer);
    osg::subRefCP(copy);
    EXPECT_EQ(effect.get().getRefCount(), 1);
    EXPECT_EQ(node.get().getRefCount(), 1);
}

} // namespace
