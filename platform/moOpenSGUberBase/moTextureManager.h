#pragma once

#include <OpenSG/OSGImage.h>

#include <cstddef>
#include <unordered_map>

/// Lets textures share their images: images of the same size, format and pixels are represented by one of them.
///
/// The manager holds no references. It knows its images by container id; one that has been destroyed is forgotten, one
/// that has been edited no longer stands for what it was. Main thread only.
class moTextureManager
{
public:
    static moTextureManager* the();

    /// The managed image that equals `image`, which may be `image` itself. No reference is added or released.
    ///
    /// \param share  whether `image` becomes the managed one when there is none that equals it. With false an image
    /// that
    ///               has no equal comes back and stays unknown.
    ///
    /// Null gives null. An image without pixels equals no other and comes back as it is, unmanaged. An image wider or
    /// higher than maxTextureSize() cannot become a texture: null.
    osg::ImagePtr getImage(const osg::ImagePtr& image, bool share);

    /// Longest edge that a texture can have, in pixels. 16384 at first.
    osg::Int32 maxTextureSize() const { return m_maxTextureSize; }
    void setMaxTextureSize(osg::Int32 pixels) { m_maxTextureSize = pixels; }

    moTextureManager(const moTextureManager&) = delete;
    moTextureManager& operator=(const moTextureManager&) = delete;

private:
    moTextureManager() = default;

    void forgetDestroyedImages();

    std::unordered_multimap<std::size_t, osg::UInt32> m_imageIds; // by hash of the content
    osg::Int32 m_maxTextureSize = 16384;
};
