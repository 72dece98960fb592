#pragma once

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGFieldTable.h>

namespace osg {

class UBRDFMaterial;
typedef FCPtr<ChunkMaterialPtr, UBRDFMaterial> UBRDFMaterialPtr;

// clang-format off
//         type         Name          description    default
#define OSG_UBRDFMATERIAL_FIELDS(SINGLE, MULTI) \
    SINGLE(MaterialPtr, Environment,  "environment", NullFC)
// clang-format on

OSG_CONTAINER_BASE(UBRDFMaterial, ChunkMaterial, OSG_UBRDFMATERIAL_FIELDS)

/// A material with a measured reflectance, lit by the environment that another material describes.
///
/// A chunk material without chunks: osg::Material itself leaves drawing to its derived classes.
class UBRDFMaterial : public UBRDFMaterialBase
{
    OSG_CONTAINER_OWNING(UBRDFMaterial)

public:
    /// Replaces the environment: holds a reference on the new one and gives the old one's back, which may destroy it.
    /// Null takes the environment away. A material cannot light itself: passing it its own handle changes nothing.
    void setEnvironment(const MaterialPtr& environment);

protected:
    UBRDFMaterial() = default;
    /// A copy shares the environment.
    UBRDFMaterial(const UBRDFMaterial& source);
    ~UBRDFMaterial() override;
};

} // namespace osg
