#include <moUndoStack/material/moContainerTouch.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moStep.h>

#include <moOpenSGUberMaterial/OSGUberMaterial.h>
#include <moUtils/moMessage.h>

void moContainerTouch::touch(unsigned int containerId, unsigned long long fieldMask)
{
    // Intended: nothing is written. See docs/oddities.md#a-change-is-announced-though-nothing-was-written.
    announceChange(findContainer<osg::FieldContainerPtr>(containerId), fieldMask);
}

void moContainerTouch::touchSettingsAndMaterial(unsigned int settingsId, unsigned int materialId)
{
    moStep::run([=] {
        touch(settingsId, osg::ColorComponentSettingsBase::PlanarProjectionFieldMask);
        touch(materialId, osg::UberMaterialBase::ColorComponentDataFieldMask);
    });
}

void moContainerTouch::setIdUnlessNull(moMessage& message, const char* key, unsigned int id)
{
    if (id != 0) message.set(key, id, true);
}
