#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>

#include <OpenSG/OSGCountedField.h>

namespace osg {

OSG_CONTAINER_IMPL(UBRDFMaterial, ChunkMaterial, OSG_UBRDFMATERIAL_FIELDS)

UBRDFMaterial::UBRDFMaterial(const UBRDFMaterial& source) : Inherited(source)
{
    addRefCP(getEnvironment());
}

UBRDFMaterial::~UBRDFMaterial()
{
    assignCounted(_sfEnvironment.getValue(), NullFC);
}

void UBRDFMaterial::setEnvironment(const MaterialPtr& environment)
{
    if (environment.getCPtr() != this) assignCounted(_sfEnvironment.getValue(), environment);
}

} // namespace osg
