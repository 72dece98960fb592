#pragma once

#include <OpenSG/OSGChunkMaterial.h>

namespace osg {

class SimpleMaterial;
typedef FCPtr<ChunkMaterialPtr, SimpleMaterial> SimpleMaterialPtr;

// clang-format off
//         type     Name           description      default
#define OSG_SIMPLEMATERIAL_FIELDS(SINGLE, MULTI) \
    SINGLE(Color3f, Ambient,       "ambient",       0, 0, 0) \
    SINGLE(Color3f, Diffuse,       "diffuse",       0, 0, 0) \
    SINGLE(Color3f, Specular,      "specular",      0, 0, 0) \
    SINGLE(Real32,  Shininess,     "shininess",     1) \
    SINGLE(Color3f, Emission,      "emission",      0, 0, 0) \
    SINGLE(Real32,  Transparency,  "transparency",  0) \
    SINGLE(Bool,    Lit,           "lit",           true) \
    SINGLE(GLenum,  ColorMaterial, "colorMaterial", 0x1201)
// clang-format on

OSG_CONTAINER_BASE(SimpleMaterial, ChunkMaterial, OSG_SIMPLEMATERIAL_FIELDS)

/// The classic material: four colours, shininess and transparency (0 is opaque).
class OSG_BASELIB_DLLMAPPING SimpleMaterial : public SimpleMaterialBase
{
    OSG_CONTAINER(SimpleMaterial)

public:
    bool isTransparent() const override;
};

OSG_HANDLE_FIELDS(SimpleMaterialPtr)

} // namespace osg
