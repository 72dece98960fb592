#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGLog.h>

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

void Image::initMethod()
{
    for (const UInt32 id : {+FrameSizeFieldId, +ComponentSizeFieldId, +SideSizeFieldId})
        getClassType().getFieldDescription(id)->setInternal();
}

bool Image::set(UInt32 pixelFormat, Int32 width, Int32 height, Int32 depth, Int32 mipmapCount, Int32 frameCount,
                Time frameDelay, const UInt8* data, Int32 type, bool allocMem, Int32 sideCount)
{
    const ImagePtr self(this);
    constexpr BitVector formatMask = WidthFieldMask | HeightFieldMask | DepthFieldMask | MipMapCountFieldMask |
                                     FrameCountFieldMask | FrameDelayFieldMask | PixelFormatFieldMask |
                                     DataTypeFieldMask;
    const auto atLeastOne = [](Int32 size) { return std::max(size, 1); };
    beginEditCP(self, formatMask);
    setPixelFormat(pixelFormat);
    setDataType(type);
    setWidth(atLeastOne(width));
    setHeight(atLeastOne(height));
    setDepth(atLeastOne(depth));
    setMipMapCount(atLeastOne(mipmapCount));
    setFrameCount(atLeastOne(frameCount));
    setFrameDelay(frameDelay);
    setSideCount(atLeastOne(sideCount));
    endEditCP(self, formatMask);
    return createData(data, allocMem);
}

bool Image::createData(const UInt8* data, bool allocMem)
{
    const ImagePtr self(this);
    constexpr BitVector dataMask =
        DimensionFieldMask | BppFieldMask | PixelFieldMask | FrameSizeFieldMask | ComponentSizeFieldMask;
    beginEditCP(self, dataMask);
    setDimension(getDepth() > 1 ? 3 : getHeight() > 1 ? 2 : 1);
    setBpp(componentsOf(getPixelFormat()) * bytesOf(getDataType()));
    calcSizes();
    // A copy first: the data may be this image's own.
    const UInt64 size = product(static_cast<UInt64>(getFrameSize()), getFrameCount());
    std::vector<UInt8> pixels(allocMem && size <= s_maxSize ? getSize() : 0u);
    if (data) std::copy_n(data, pixels.size(), pixels.begin());
    _mfPixel.setValues(pixels);
    endEditCP(self, dataMask);
    return !pixels.empty();
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
    if (!data) {
        SWARNING << "Image::setData: no data" << std::endl;
        return false;
    }
    return createData(data, true);
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
        // No field is 0xFFFF, and 63 then: intended, it has always been so.
        changedCP(parent, BitVector(1) << (parent.getParentFieldPos() % 64), ChangedOrigin::Child);
    }
    Inherited::changed(whichField, origin);
}

} // namespace osg
