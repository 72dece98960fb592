#include <support/Ground.h>
#include <support/UndoTest.h>

#include <moOpenSGUberMaterial/OSGUberMaterial.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UberMaterial : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        material = osg::UberMaterial::create();
        settings = osg::ColorComponentSettings::create();
        osg::addRefCP(material);
        osg::addRefCP(settings);
    }

    void TearDown() override
    {
        osg::subRefCP(material);
        osg::subRefCP(settings);
        UndoTest::TearDown();
    }

    osg::UberMaterialPtr material;
    osg::ColorComponentSettingsPtr settings;
};

TEST_F(UberMaterial, HoldsEachOfItsSettingsOnce)
{
    material->addColorComponent(settings);
    material->addColorComponent(settings);
    EXPECT_EQ(settings.getRefCount(), 2);
    EXPECT_THAT(material->getColorComponents().getValues(), ElementsAre(settings));

    material->subColorComponent(settings);
    material->subColorComponent(settings);
    EXPECT_EQ(settings.getRefCount(), 1);
    EXPECT_THAT(material->getColorComponents().getValues(), IsEmpty());
}

TEST_F(UberMaterial, IgnoresNullSettings)
{
    material->addColorComponent(osg::NullFC);
    material->subColorComponent(osg::NullFC);
    EXPECT_THAT(material->getColorComponents().getValues(), IsEmpty());
}

TEST_F(UberMaterial, GivesItsSettingsBackWhenItGoes)
{
    material->addColorComponent(settings);
    osg::subRefCP(material);
    EXPECT_EQ(settings.getRefCount(), 1);
}

TEST_F(UberMaterial, CopyHoldsTheSameSettings)
{
    material->addColorComponent(settings);
    const auto copy = osg::UberMaterialPtr::dcast(material->shallowCopy());
    EXPECT_THAT(copy->getColorComponents().getValues(), ElementsAre(settings));
    EXPECT_EQ(settings.getRefCount(), 2 + ground::objectsPerContainer);
    osg::subRefCP(copy);
    EXPECT_EQ(settings.getRefCount(), 2);
}

TEST_F(UberMaterial, PacksTheColourDataOnlyWhenToldOfAChange)
{
    osg::beginEditCP(material, osg::UberMaterial::ColorComponentsFieldMask);
    material->addColorComponent(settings);
    osg::endEditCP(material, osg::UberMaterial::ColorComponentsFieldMask);
    EXPECT_THAT(material->getColorComponentData().getValues(), ElementsAre(1.0f, 1.0f, 1.0f, 0.0f));

    settings->setRed(0.5f);
    settings->setGreen(0.25f);
    settings->setIntensity(2.0f);
    settings->setPlanarProjection(true);
    EXPECT_THAT(material->getColorComponentData().getValues(), ElementsAre(1.0f, 1.0f, 1.0f, 0.0f));

    osg::changedCP(material, osg::UberMaterial::SortKeyFieldMask);
    EXPECT_THAT(material->getColorComponentData().getValues(), ElementsAre(1.0f, 1.0f, 1.0f, 0.0f));

    osg::changedCP(material, osg::UberMaterial::ColorComponentDataFieldMask);
    EXPECT_THAT(material->getColorComponentData().getValues(), ElementsAre(1.0f, 0.5f, 2.0f, 1.0f));

    settings->setEnabled(false);
    osg::changedCP(material, osg::UberMaterial::ColorComponentDataFieldMask);
    EXPECT_THAT(material->getColorComponentData().getValues(), ElementsAre(0.0f, 0.0f, 0.0f, 1.0f));
}

} // namespace
