#include "MaterialTest.h"

#include <moUtils/moMessage.h>

namespace osg {

MO_TRACED_CONTAINER(ColorComponentSettings, "ColorComponentSettings")
MO_TRACED_CONTAINER(UberMaterial, "UberMaterial")
MO_TRACED_CONTAINER(UBRDFMaterial, "UBRDFMaterial")

} // namespace osg

void MaterialTest::SetUp()
{
    UndoTest::SetUp();
    settings = edits.name(osg::TracedColorComponentSettings::create(), "settings");
    material = edits.name(osg::TracedUberMaterial::create(), "material");
    otherSettings = osg::TracedColorComponentSettings::create();
    otherMaterial = osg::TracedUberMaterial::create();
    glass = edits.name(osg::TracedUBRDFMaterial::create(), "glass");
    sky = osg::TracedUberMaterial::create();

    osg::addRefCP(settings);
    osg::addRefCP(material);
    osg::addRefCP(otherSettings);
    osg::addRefCP(otherMaterial);
    osg::addRefCP(glass);
    osg::addRefCP(sky);

    material->addColorComponent(settings);
    otherMaterial->addColorComponent(otherSettings);
    osg::changedCP(material, osg::UberMaterial::ColorComponentsFieldMask);
    edits.take();
}

void MaterialTest::TearDown()
{
    stack.clear();
    destroy(glass);
    destroy(material);
    destroy(otherMaterial);
    destroy(settings);
    destroy(otherSettings);
    destroy(sky);
    UndoTest::TearDown();
}

void MaterialTest::destroySettings()
{
    material->subColorComponent(settings);
    destroy(settings);
}

std::string MaterialTest::key(const char* name, unsigned int id)
{
    return ' ' + std::string(name) + "=uint:" + std::to_string(id);
}

std::string MaterialTest::messageOf(const moUndoCommandBase& command)
{
    moMessage message;
    command.makeMessage(message);
    return describe(message);
}
