#include <sceneeditor/Raster.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

bool isFinite(const osg::Vec3f& point)
{
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

/// Clamped before it becomes an int: a corner may be far outside of the image.
int pixel(float value, int size)
{
    return static_cast<int>(std::clamp(value, 0.f, static_cast<float>(size)));
}

} // namespace

void Raster::begin(const QSize& size, QRgb background)
{
    const QSize used = size.expandedTo(QSize(1, 1));
    if (m_image.size() != used) m_image = QImage(used, QImage::Format_RGB32);
    m_image.fill(background);
    const auto pixels = static_cast<std::size_t>(used.width()) * static_cast<std::size_t>(used.height());
    m_nearness.assign(pixels, 0.f);
    m_items.assign(pixels, 0);
}

osg::UInt32 Raster::itemAt(const QPoint& at) const
{
    if (!m_image.rect().contains(at)) return 0;
    return m_items[static_cast<std::size_t>(at.y()) * static_cast<std::size_t>(m_image.width()) +
                   static_cast<std::size_t>(at.x())];
}

QPointF Raster::project(const osg::Vec3f& point, const QSize& size)
{
    const double scale = size.height() / 2. / static_cast<double>(halfHeight * -point[2]);
    return QPointF(size.width() / 2. + static_cast<double>(point[0]) * scale,
                   size.height() / 2. - static_cast<double>(point[1]) * scale);
}

Raster::Corner Raster::toScreen(const osg::Vec3f& point) const
{
    const QPointF screen = project(point, m_image.size());
    return {static_cast<float>(screen.x()), static_cast<float>(screen.y()), -1.f / point[2]};
}

void Raster::triangle(const osg::Vec3f& a, const osg::Vec3f& b, const osg::Vec3f& c, QRgb color, osg::UInt32 id)
{
    const std::array<osg::Vec3f, 3> points{a, b, c};
    // Cut off what lies behind the nearest plane: at most one corner more.
    std::array<Corner, 4> corners{};
    std::size_t count = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const osg::Vec3f& from = points[i];
        const osg::Vec3f& to = points[(i + 1) % 3];
        if (!isFinite(from)) return;
        const bool fromVisible = from[2] <= -nearest;
        if (fromVisible) corners[count++] = toScreen(from);
        if (fromVisible != (to[2] <= -nearest) && isFinite(to)) {
            osg::Vec3f cut = from + (to - from) * ((-nearest - from[2]) / (to[2] - from[2]));
            cut[2] = -nearest;
            corners[count++] = toScreen(cut);
        }
    }
    if (count >= 3) fill(corners[0], corners[1], corners[2], color, id);
    if (count == 4) fill(corners[0], corners[2], corners[3], color, id);
}

void Raster::fill(const Corner& a, const Corner& b, const Corner& c, QRgb color, osg::UInt32 id)
{
    const float area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    if (!std::isfinite(area) || std::abs(area) < 1e-6f) return;
    const int left = pixel(std::floor(std::min({a.x, b.x, c.x})), m_image.width());
    const int right = pixel(std::ceil(std::max({a.x, b.x, c.x})), m_image.width());
    const int top = pixel(std::floor(std::min({a.y, b.y, c.y})), m_image.height());
    const int bottom = pixel(std::ceil(std::max({a.y, b.y, c.y})), m_image.height());
    // The weights of b and c, and how they change from pixel to pixel.
    const float weightB = (c.y - a.y) / area, weightBDown = -(c.x - a.x) / area;
    const float weightC = -(b.y - a.y) / area, weightCDown = (b.x - a.x) / area;
    for (int y = top; y < bottom; ++y) {
        const float dx = static_cast<float>(left) + 0.5f - a.x;
        const float dy = static_cast<float>(y) + 0.5f - a.y;
        float partB = dx * weightB + dy * weightBDown;
        float partC = dx * weightC + dy * weightCDown;
        auto* const line = reinterpret_cast<QRgb*>(m_image.scanLine(y));
        const std::size_t first = static_cast<std::size_t>(y) * static_cast<std::size_t>(m_image.width());
        for (int x = left; x < right; ++x, partB += weightB, partC += weightC) {
            if (partB < 0.f || partC < 0.f || partB + partC > 1.f) continue;
            const float nearness = a.nearness + (b.nearness - a.nearness) * partB + (c.nearness - a.nearness) * partC;
            float& known = m_nearness[first + static_cast<std::size_t>(x)];
            if (nearness <= known) continue;
            known = nearness;
            line[x] = color;
            m_items[first + static_cast<std::size_t>(x)] = id;
        }
    }
}
