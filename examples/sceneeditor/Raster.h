#pragma once

#include <OpenSG/OSGVector.h>

#include <QtGui/QImage>

#include <vector>

/// Paints triangles into an image, nearest first wins, and remembers what was painted where. Needs no GPU.
///
/// Points are in the space of the camera: x to the right, y up, and z towards the viewer, so that what can be seen has a
/// negative z.
class Raster
{
public:
    /// Half the height of the image at distance 1.
    static constexpr float halfHeight = 0.41421356f; // 45 degrees from top to bottom

    /// Nothing nearer than this is painted.
    static constexpr float nearest = 0.01f;

    /// Begins an image. An empty size counts as one pixel.
    void begin(const QSize& size, QRgb background);

    /// Paints a triangle, from both sides. Points that are not finite make it invisible.
    /// \param id  what itemAt() answers there; not 0.
    void triangle(const osg::Vec3f& a, const osg::Vec3f& b, const osg::Vec3f& c, QRgb color, osg::UInt32 id);

    const QImage& image() const { return m_image; }

    /// The id of what was painted at a pixel; 0 for the background and outside of the image.
    osg::UInt32 itemAt(const QPoint& pixel) const;

    /// Where a point that lies in front of the camera is on the screen.
    static QPointF project(const osg::Vec3f& point, const QSize& size);

private:
    struct Corner
    {
        float x;
        float y;
        float nearness; ///< 1 / distance, which is linear on the screen
    };

    Corner toScreen(const osg::Vec3f& point) const;
    void fill(const Corner& a, const Corner& b, const Corner& c, QRgb color, osg::UInt32 id);

    QImage m_image;
    std::vector<float> m_nearness;
    std::vector<osg::UInt32> m_items;
};
