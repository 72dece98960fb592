#pragma once

#include <OpenSG/OSGImage.h>

#include <vector>

/// An image one pixel high, with one byte of grey per pixel and no reference.
inline osg::ImagePtr makeImage(const std::vector<osg::UInt8>& pixels)
{
    osg::ImagePtr image = osg::Image::create();
    image->set(osg::Image::OSG_L_PF, static_cast<osg::Int32>(pixels.size()), 1, 1, 1, 1, 0.0, pixels.data());
    return image;
}
