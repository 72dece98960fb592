#pragma once

#include <sceneeditor/Camera.h>
#include <sceneeditor/Raster.h>

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGNode.h>

#include <QtGui/QColor>

#include <unordered_map>
#include <utility>
#include <vector>

class EditorSession;
struct LoadedMesh;

/// A point by a matrix.
osg::Vec3f transformed(const osg::Matrix& matrix, const osg::Vec3f& point);
/// A direction by a matrix: without its translation.
osg::Vec3f turned(const osg::Matrix& matrix, const osg::Vec3f& direction);

/// A place, a direction and a zoom as the raster wants them: the space of a camera.
class CameraSpace
{
public:
    CameraSpace() = default;
    explicit CameraSpace(const View& view);

    osg::Vec3f fromWorld(const osg::Vec3f& point) const;

    /// Where a point of the world is on a screen of that size; false if it lies behind the camera.
    bool project(const osg::Vec3f& point, const QSize& size, QPointF& screen) const;

private:
    osg::Vec3f m_eye, m_right, m_up, m_forward;
};

/// A box in the world.
struct Box
{
    osg::Vec3f smallest, largest;
    bool isEmpty = true;

    void extend(const osg::Vec3f& point);
    osg::Vec3f centre() const { return (smallest + largest) * 0.5f; }
    float radius() const { return isEmpty ? 1.f : (largest - smallest).length() * 0.5f; }
};

/// Paints the meshes of a session's scene, flat-shaded by its lights, and finds what is at a pixel.
class ScenePainter
{
public:
    /// Scenes with more triangles than that are painted as boxes while something is dragged.
    static constexpr std::size_t manyTriangles = 150'000;

    /// Takes over the meshes of another scene.
    void setScene(EditorSession& session);

    struct Look
    {
        QColor background;
        QColor highlight; ///< selected nodes, and what lies below them, are tinted with it
        bool boxes = false;
    };
    void paint(EditorSession& session, const QSize& size, const Look& look);

    const QImage& image() const { return m_raster.image(); }
    /// The node of the mesh at a pixel; null for none.
    osg::NodePtr nodeAt(const QPoint& pixel) const;
    /// How many triangles the scene has.
    std::size_t triangleCount() const { return m_triangleCount; }
    /// How many were given to the raster for the latest image.
    std::size_t paintedCount() const { return m_paintedCount; }

    /// What a node and all below it occupy, nodes without mesh as a point.
    Box boxOf(const osg::NodePtr& node) const;

private:
    struct Light
    {
        osg::Vec3f place;
        osg::Vec3f direction; ///< towards the light; for those that are far away
        osg::Vec3f color;
        bool isFar = false;
    };
    struct Shape
    {
        const LoadedMesh* mesh;
        Box box;
    };

    void findLights(const osg::NodePtr& node, const osg::Matrix& parentToWorld);
    void paintNode(EditorSession& session, const osg::NodePtr& node, const osg::Matrix& parentToWorld, bool selected,
                   const Look& look);
    void paintShape(const Shape& shape, const osg::Matrix& toWorld, const osg::Vec3f& base, osg::UInt32 id, bool box);
    void setPoints(const std::vector<osg::Vec3f>& points, const osg::Matrix& toWorld);
    void paintTriangle(std::size_t a, std::size_t b, std::size_t c, const osg::Vec3f& base, osg::UInt32 id);
    QRgb shade(const osg::Vec3f& a, const osg::Vec3f& b, const osg::Vec3f& c, const osg::Vec3f& base) const;
    void extendBox(Box& box, const osg::NodePtr& node, const osg::Matrix& parentToWorld) const;

    Raster m_raster;
    CameraSpace m_camera;
    osg::Vec3f m_eye;
    std::unordered_map<osg::UInt32, std::vector<Shape>> m_shapes; ///< by the id of the node
    std::vector<osg::FieldContainerPtr> m_materials;              ///< by the index in the model
    std::vector<Light> m_lights;
    std::vector<osg::Vec3f> m_points; ///< of the mesh at hand, in the world
    std::vector<osg::Vec3f> m_seen;   ///< the same in the space of the camera
    std::size_t m_triangleCount = 0;
    std::size_t m_paintedCount = 0;
};
