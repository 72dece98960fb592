#include <moOpenSGUberMaterial/OSGUberMaterial.h>

namespace osg {

OSG_CONTAINER_IMPL(UberMaterial, ChunkMaterial, OSG_UBERMATERIAL_FIELDS)

UberMaterial::UberMaterial(const UberMaterial& source) : Inherited(source)
{
    for (const ColorComponentSettingsPtr& settings : _mfColorComponents)
        addRefCP(settings);
}

UberMaterial::~UberMaterial()
{
    MFColorComponentSettingsPtr released;
    released.swap(_mfColorComponents);
    for (const ColorComponentSettingsPtr& settings : released)
        subRefCP(settings);
}

void UberMaterial::addColorComponent(const ColorComponentSettingsPtr& settings)
{
    if (settings == NullFC || _mfColorComponents.find(settings) != _mfColorComponents.end()) return;
    addRefCP(settings);
    _mfColorComponents.push_back(settings);
}

void UberMaterial::subColorComponent(const ColorComponentSettingsPtr& settings)
{
    const auto found = _mfColorComponents.find(settings);
    if (found == _mfColorComponents.end()) return;
    const ColorComponentSettingsPtr removed = *found;
    _mfColorComponents.erase(found);
    subRefCP(removed);
}

void UberMaterial::changed(BitVector whichField, UInt32 origin)
{
    if ((whichField & (ColorComponentsFieldMask | ColorComponentDataFieldMask)) != 0) {
        _mfColorComponentData.clear();
        for (const ColorComponentSettingsPtr& settings : _mfColorComponents) {
            const Real32 factor = settings->getEnabled() ? settings->getIntensity() : 0.0f;
            _mfColorComponentData.push_back(settings->getRed() * factor);
            _mfColorComponentData.push_back(settings->getGreen() * factor);
            _mfColorComponentData.push_back(settings->getBlue() * factor);
            _mfColorComponentData.push_back(settings->getPlanarProjection() ? 1.0f : 0.0f);
        }
    }
    Inherited::changed(whichField, origin);
}

} // namespace osg
