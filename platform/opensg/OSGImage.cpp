#include <OpenSG/OSGImage.h>

#include <algorithm>

namespace osg {

OSG_CONTAINER_IMPL(Image, AttachmentContainer, OSG_IMAGE_FIELDS)

namespace {

constexpr UInt64 s_maxSize = 0x7FFFFFFF;

Int32 componentsOf(UInt32 pixelFormat)
{
    switch (pixelFormat) {
    case Image::OSG_A_PF:
    case Image::OSG_L_PF:
        return 1;
    case Image::OSG_LA_PF:
        return 2;
    case Image::OSG_RGB_PF:
    case Image::OSG_BGR_PF:
        return 3;
    case Image::OSG_RGBA_PF:
    case Image::OSG_BGRA_PF:
        return 4;
    default:
        return 0;
    }
}

Int32 bytesOf(Int32 type)
{
    switch (type) {
    case Image::OSG_UINT8_IMAGEDATA:
        return 1;
    case Image::OSG_UINT16_IMAGEDATA:
    case Image::OSG_FLOAT16_IMAGEDATA:
        return 2;
    case Image::OSG_UINT32_IMAGEDATA:
    case Image::OSG_FLOAT32_IMAGEDATA:
        return 4;
    default:
        return 0;
    }
}

/// A product that stops at the largest size: fields may hold anything.
UInt64 product(UInt64 a, Int32 b)
{
    return std::min(a * static_cast<UInt64>(std::max(b, 0)), s_maxSize + 1);
}

} // namespace

Image::Image(const Image& source) : Inherited(source)
{
    _mfParents.clear();
}

bool Image::set(UInt32 pixelFormat, Int32 width, Int32 height, Int32 depth, Int32 mipmapCount, Int32 frameCount,
                Time frameDelay, const UInt8* data, Int32 type, bool allocMem, Int32 sideCount)
{
    const Int32 bpp = componentsOf(pixelFormat) * bytesOf(type);
    if (bpp == 0 || std::min({width, height, depth, mipmapCount, frameCount, sideCount}) < 1 || mipmapCount > 31)
        return false;
    UInt64 largest = product(product(product(static_cast<UInt64>(width), height), depth), bpp);
    // All levels together are less than twice the first, plus a pixel each.
    largest = product(product(largest * 2 + static_cast<UInt64>(bpp) * 31, sideCount), frameCount);
    if (largest > s_maxSize) return false;

    constexpr BitVector mask = DimensionFieldMask | WidthFieldMask | HeightFieldMask | DepthFieldMask | BppFieldMask |
                               MipMapCountFieldMask | FrameCountFieldMask | FrameDelayFieldMask | PixelFormatFieldMask |
                               PixelFieldMask | FrameSizeFieldMask | DataTypeFieldMask | ComponentSizeFieldMask |
                               SideCountFieldMask | SideSizeFieldMask;
    const ImagePtr self(this);
    beginEditCP(self, mask);
    setPixelFormat(pixelFormat);
    setDataType(type);
    setWidth(width);
    setHeight(height);
    setDepth(depth);
    setDimension(depth > 1 ? 3 : height > 1 ? 2 : 1);
    setBpp(bpp);
    setMipMapCount(mipmapCount);
    setFrameCount(frameCount);
    setFrameDelay(frameDelay);
    setSideCount(sideCount);
    calcSizes();
    // A copy first: the data may be this image's own.
    std::vector<UInt8> pixels(allocMem ? getSize() : 0u);
    if (data) std::copy_n(data, pixels.size(), pixels.begin());
    _mfPixel.setValues(pixels);
    endEditCP(self, mask);
    return true;
}

bool Image::set(ImagePtr image)
{
    if (!image) return false;
    return set(image->getPixelFormat(), image->getWidth(), image->getHeight(), image->getDepth(),
               image->getMipMapCount(), image->getFrameCount(), image->getFrameDelay(), image->getData(),
               image->getDataType(), !image->getPixel().empty(), image->getSideCount());
}

bool Image::setData(const UInt8* data)
{
    if (!data || !isValid()) return false;
    const ImagePtr self(this);
    beginEditCP(self, PixelFieldMask);
    _mfPixel.setValues(std::vector<UInt8>(data, data + getSize()));
    endEditCP(self, PixelFieldMask);
    return true;
}

UInt8* Image::getData(UInt32 mipmap, UInt32 frame, UInt32 side)
{
    UInt64 offset =
        UInt64(frame) * static_cast<UInt64>(getFrameSize()) + UInt64(side) * static_cast<UInt64>(getSideSize());
    for (Int32 level = 0; level < static_cast<Int32>(std::min(mipmap, 32u)); ++level)
        offset += calcMipmapSize(level);
    return offset < _mfPixel.size() ? &_mfPixel[static_cast<UInt32>(offset)] : nullptr;
}

UInt32 Image::getSize() const
{
    return static_cast<UInt32>(product(static_cast<UInt64>(std::max(getFrameSize(), 0)), getFrameCount()));
}

UInt64 Image::calcMipmapSize(Int32 level) const
{
    const auto extent = [level](Int32 size) { return level < 31 ? std::max(size >> level, 1) : 1; };
    return product(product(product(static_cast<UInt64>(extent(getWidth())), extent(getHeight())), extent(getDepth())),
                   getBpp());
}

void Image::calcSizes()
{
    UInt64 side = 0;
    for (Int32 level = 0; level < std::min(getMipMapCount(), 31); ++level)
        side = std::min(side + calcMipmapSize(level), s_maxSize);
    setComponentSize(bytesOf(getDataType()));
    setSideSize(static_cast<Int32>(side));
    setFrameSize(static_cast<Int32>(std::min(product(side, getSideCount()), s_maxSize)));
}

void Image::addParent(const FieldContainerPtr& parent)
{
    _mfParents.push_back(parent);
}

void Image::subParent(const FieldContainerPtr& parent)
{
    const auto found = _mfParents.find(parent);
    if (found != _mfParents.end()) _mfParents.erase(found);
}

void Image::changed(BitVector whichField, UInt32 origin)
{
    calcSizes();
    // A copy: a parent may release the image when it is told.
    const MFFieldContainerPtr parents = _mfParents;
    for (const FieldContainerPtr& parent : parents) {
        const UInt16 position = parent.getParentFieldPos();
        changedCP(parent, position < 64 ? BitVector(1) << position : FieldBits::AllFields, ChangedOrigin::Child);
    }
    Inherited::changed(whichField, origin);
}

} // namespace osg
