#pragma once

#include <moOpenSGUberMaterial/OSGColorComponentSettings.h>

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGFieldTable.h>

namespace osg {

class UberMaterial;
typedef FCPtr<ChunkMaterialPtr, UberMaterial> UberMaterialPtr;

// clang-format off
//         type                       Name                 description
#define OSG_UBERMATERIAL_FIELDS(SINGLE, MULTI) \
    MULTI (ColorComponentSettingsPtr, ColorComponents,     "colorComponents") \
    MULTI (Real32,                    ColorComponentData,  "colorComponentData")
// clang-format on

OSG_CONTAINER_BASE(UberMaterial, ChunkMaterial, OSG_UBERMATERIAL_FIELDS)

/// A material whose colours stand in separate containers, the colour component settings, which several materials may
/// share. A chunk material without chunks: osg::Material itself leaves drawing to its derived classes.
///
/// The renderer reads colorComponentData: for each component red, green and blue (times the intensity, zero when the
/// component is off) and a fourth number, 1 for planar projection and 0 otherwise. The material packs the data anew
/// when it is told that colorComponents or colorComponentData changed; an edit of the settings alone does not reach it,
/// so their editor tells the material.
class UberMaterial : public UberMaterialBase
{
    OSG_CONTAINER_OWNING(UberMaterial)

public:
    /// Appends the settings and holds a reference on them. Null and settings that are there already are ignored.
    void addColorComponent(const ColorComponentSettingsPtr& settings);
    /// Takes the settings out and gives the reference back; unknown settings are ignored.
    void subColorComponent(const ColorComponentSettingsPtr& settings);

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    UberMaterial() = default;
    /// A copy shares the settings.
    UberMaterial(const UberMaterial& source);
    ~UberMaterial() override;
};

} // namespace osg
