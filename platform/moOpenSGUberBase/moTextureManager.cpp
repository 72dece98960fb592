#include <moOpenSGUberBase/moTextureManager.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <string_view>
#include <tuple>

namespace {

/// All that makes two images the same texture.
auto content(const osg::ImagePtr& image)
{
    const auto& pixels = *image->getMFPixel();
    return std::make_tuple(image->getWidth(), image->getHeight(), image->getDepth(), image->getMipMapCount(),
                           image->getFrameCount(), image->getSideCount(), image->getFrameDelay(),
                           image->getPixelFormat(), image->getDataType(),
                           pixels.empty() ? std::string_view()
                                          : std::string_view(reinterpret_cast<const char*>(&pixels[0]), pixels.size()));
}

std::size_t contentHash(const osg::ImagePtr& image)
{
    return std::hash<std::string_view>()(std::get<std::string_view>(content(image)));
}

osg::ImagePtr imageOf(osg::UInt32 id)
{
    return osg::ImagePtr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

} // namespace

moTextureManager* moTextureManager::the()
{
    static moTextureManager s_manager;
    return &s_manager;
}

osg::ImagePtr moTextureManager::getImage(const osg::ImagePtr& image, bool share)
{
    if (image == osg::NullFC || image->getMFPixel()->empty()) return image;
    if (std::max(image->getWidth(), image->getHeight()) > m_maxTextureSize) return osg::NullFC;

    forgetDestroyedImages();
    const std::size_t hash = contentHash(image);
    const auto [begin, end] = m_imageIds.equal_range(hash);
    const auto equal = std::find_if(
        begin, end, [wanted = content(image)](const auto& entry) { return content(imageOf(entry.second)) == wanted; });
    if (equal != end) return imageOf(equal->second);

    if (share) m_imageIds.emplace(hash, image.getFieldContainerId());
    return image;
}

void moTextureManager::forgetDestroyedImages()
{
    for (auto entry = m_imageIds.begin(); entry != m_imageIds.end();)
        entry = imageOf(entry->second) == osg::NullFC ? m_imageIds.erase(entry) : std::next(entry);
}
