#include <support/Ground.h>
#include <support/UndoTest.h>

#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <OpenSG/OSGFieldContainerFactory.h>

namespace {

class UBRDFMaterial : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        material = osg::UBRDFMaterial::create();
        sky = osg::UberMaterial::create();
        osg::addRefCP(material);
        osg::addRefCP(sky);
    }

    void TearDown() override
    {
        osg::subRefCP(material);
        osg::subRefCP(sky);
        UndoTest::TearDown();
    }

    osg::UBRDFMaterialPtr material;
    osg::MaterialPtr sky;
};

TEST_F(UBRDFMaterial, HoldsItsEnvironmentUntilItIsReplaced)
{
    material->setEnvironment(sky);
    EXPECT_EQ(sky.getRefCount(), 2);
    material->setEnvironment(sky);
    EXPECT_EQ(sky.getRefCount(), 2);
    material->setEnvironment(osg::NullFC);
    EXPECT_EQ(sky.getRefCount(), 1);
    EXPECT_EQ(material->getEnvironment(), osg::NullFC);
}

TEST_F(UBRDFMaterial, ReplacingTheOnlyHolderOfAnEnvironmentDestroysIt)
{
    const osg::MaterialPtr dusk = osg::UberMaterial::create();
    const osg::UInt32 id = dusk.getFieldContainerId();
    material->setEnvironment(dusk);
    material->setEnvironment(sky);
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
    EXPECT_EQ(material->getEnvironment(), sky);
}

TEST_F(UBRDFMaterial, GivesItsEnvironmentBackWhenItGoes)
{
    material->setEnvironment(sky);
    osg::subRefCP(material);
    EXPECT_EQ(sky.getRefCount(), 1);
}

TEST_F(UBRDFMaterial, CopyHoldsTheSameEnvironment)
{
    material->setEnvironment(sky);
    const auto copy = osg::UBRDFMaterialPtr::dcast(material->shallowCopy());
    EXPECT_EQ(copy->getEnvironment(), sky);
    EXPECT_EQ(sky.getRefCount(), 2 + ground::objectsPerContainer);
    osg::subRefCP(copy);
    EXPECT_EQ(sky.getRefCount(), 2);
}

TEST_F(UBRDFMaterial, CannotBeItsOwnEnvironment)
{
    material->setEnvironment(sky);
    material->setEnvironment(material);
    EXPECT_EQ(material->getEnvironment(), sky);
    EXPECT_EQ(material.getRefCount(), 1);
}

} // namespace
