#pragma once

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGImage.h>

namespace osg {

class ColorComponentSettings;
typedef FCPtr<AttachmentContainerPtr, ColorComponentSettings> ColorComponentSettingsPtr;

// clang-format off
//         type      Name               description          default
#define OSG_COLORCOMPONENTSETTINGS_FIELDS(SINGLE, MULTI) \
    SINGLE(Bool,     Enabled,           "enabled",           true) \
    SINGLE(Real32,   Red,               "red",               1.0f) \
    SINGLE(Real32,   Green,             "green",             1.0f) \
    SINGLE(Real32,   Blue,              "blue",              1.0f) \
    SINGLE(Real32,   Intensity,         "intensity",         1.0f) \
    SINGLE(UInt32,   BlendMode,         "blendMode",         0) \
    SINGLE(Int32,    TextureUnit,       "textureUnit",       -1) \
    SINGLE(Bool,     PlanarProjection,  "planarProjection",  false) \
    SINGLE(String,   Label,             "label",             "") \
    MULTI (String,   TexturePaths,      "texturePaths")
// clang-format on

OSG_CONTAINER_BASE(ColorComponentSettings, AttachmentContainer, OSG_COLORCOMPONENTSETTINGS_FIELDS)
OSG_HANDLE_FIELDS(ColorComponentSettingsPtr)

/// One colour of a material: a constant colour times an intensity, or a texture that is laid on as the settings say.
///
/// The colour is three scalar fields, linear and unclamped, so that each channel can be dragged on its own. A texture
/// unit below 0 means no texture; planarProjection lays the texture on along a plane instead of by texture coordinates.
class ColorComponentSettings : public ColorComponentSettingsBase
{
    OSG_CONTAINER(ColorComponentSettings)
};

} // namespace osg
