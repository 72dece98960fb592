#pragma once

#include <OpenSG/OSGAttachmentContainer.h>

namespace osg {

class Image;
typedef FCPtr<AttachmentContainerPtr, Image> ImagePtr;

// clang-format off
//         type               Name                 description            default
#define OSG_IMAGE_FIELDS(SINGLE, MULTI) \
    MULTI (FieldContainerPtr, Parents,             "parents") \
    SINGLE(Int32,             Dimension,           "dimension",           0) \
    SINGLE(Int32,             Width,               "width",               0) \
    SINGLE(Int32,             Height,              "height",              1) \
    SINGLE(Int32,             Depth,               "depth",               1) \
    SINGLE(Int32,             Bpp,                 "bpp",                 1) \
    SINGLE(Int32,             MipMapCount,         "mipMapCount",         1) \
    SINGLE(Int32,             FrameCount,          "frameCount",          1) \
    SINGLE(Time,              FrameDelay,          "frameDelay",          0.0) \
    SINGLE(UInt32,            PixelFormat,         "pixelFormat",         0u) \
    MULTI (UInt8,             Pixel,               "pixel") \
    SINGLE(Int32,             FrameSize,           "frameSize",           0) \
    SINGLE(String,            Name,                "name",                "") \
    SINGLE(Int32,             DataType,            "dataType",            0x1401) \
    SINGLE(Int32,             ComponentSize,       "componentSize",       1) \
    SINGLE(Int32,             SideCount,           "sideCount",           1) \
    SINGLE(Int32,             SideSize,            "sideSize",            0) \
    SINGLE(Bool,              ForceCompressedData, "forceCompressedData", false) \
    SINGLE(Bool,              ForceAlphaChannel,   "forceAlphaChannel",   false) \
    SINGLE(Bool,              ForceColorChannel,   "forceColorChannel",   false) \
    SINGLE(Bool,              ForceAlphaBinary,    "forceAlphaBinary",    false) \
    SINGLE(Real32,            ResX,                "resX",                72.0f) \
    SINGLE(Real32,            ResY,                "resY",                72.0f) \
    SINGLE(UInt16,            ResUnit,             "resUnit",             UInt16(2))
// clang-format on

OSG_CONTAINER_BASE(Image, AttachmentContainer, OSG_IMAGE_FIELDS)

/// Uncompressed pixels with a format: for each side and frame all mip map levels one after the other, rows without
/// padding.
///
/// Those who show an image enter themselves as its parents and are told of its changes. The field name is the image's
/// own and has nothing to do with osg::setName.
class OSG_BASELIB_DLLMAPPING Image : public ImageBase
{
    OSG_CONTAINER_OWNING(Image)

public:
    /// Values of OpenGL.
    enum PixelFormat
    {
        OSG_INVALID_PF = 0,
        OSG_A_PF = 0x1906,
        OSG_RGB_PF = 0x1907,
        OSG_RGBA_PF = 0x1908,
        OSG_L_PF = 0x1909,
        OSG_LA_PF = 0x190A,
        OSG_BGR_PF = 0x80E0,
        OSG_BGRA_PF = 0x80E1
    };
    enum Type
    {
        OSG_INVALID_IMAGEDATATYPE = 0,
        OSG_UINT8_IMAGEDATA = 0x1401,
        OSG_UINT16_IMAGEDATA = 0x1403,
        OSG_UINT32_IMAGEDATA = 0x1405,
        OSG_FLOAT32_IMAGEDATA = 0x1406,
        OSG_FLOAT16_IMAGEDATA = 0x140B
    };

    /// Makes this an image of that size, in two edits of its own: the format, then the pixels. A size below 1 becomes 1.
    ///
    /// \param data      getSize() bytes to copy; null gives zeros.
    /// \param allocMem  false leaves the image without pixels.
    /// \return whether there are pixels: not for an unknown format or type, or without memory.
    bool set(UInt32 pixelFormat, Int32 width, Int32 height = 1, Int32 depth = 1, Int32 mipmapCount = 1,
             Int32 frameCount = 1, Time frameDelay = 0.0, const UInt8* data = nullptr, Int32 type = OSG_UINT8_IMAGEDATA,
             bool allocMem = true, Int32 sideCount = 1);
    /// A copy of another image's pixels and format; false for null.
    bool set(ImagePtr image);
    /// Copies getSize() bytes, in an edit of its own; false for an image without a format. Null is only warned about.
    bool setData(const UInt8* data);

    /// Null without pixels.
    UInt8* getData(UInt32 mipmap = 0, UInt32 frame = 0, UInt32 side = 0);
    /// Bytes of all sides, frames and levels, as the format says.
    UInt32 getSize() const;
    bool isValid() const { return !getPixel().empty(); }

    void addParent(const FieldContainerPtr& parent);
    void subParent(const FieldContainerPtr& parent);

    /// Recomputes the sizes and tells the parents (origin Child; the mask is the field that the parent handle's
    /// position names, all fields if it names none).
    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Image() = default;
    /// A copy names the same parents, as it has always been.
    Image(const Image& source) = default;

    static void initMethod();
    using Inherited::getComponentSize;

private:
    bool createData(const UInt8* data, bool allocMem);
    UInt64 calcMipmapSize(Int32 level) const;
    void calcSizes();
};

OSG_HANDLE_FIELDS(ImagePtr)

} // namespace osg
