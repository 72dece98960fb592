#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>

namespace osg {

OSG_CONTAINER_IMPL(UBRDFMaterial, Material, OSG_UBRDFMATERIAL_FIELDS)

UBRDFMaterial::UBRDFMaterial(const UBRDFMaterial& source) : Inherited(source)
{
    addRefCP(getEnvironment());
}

UBRDFMaterial::~UBRDFMaterial()
{
    subRefCP(getEnvironment());
}

void UBRDFMaterial::setEnvironment(const MaterialPtr& environment)
{
    if (environment.getCPtr() != this) setRefdCP(_sfEnvironment.getValue(), environment);
}

} // namespace osg
