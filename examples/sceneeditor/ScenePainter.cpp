#include <sceneeditor/ScenePainter.h>

#include <sceneeditor/EditorSession.h>

#include <moOpenSGUberLight/OSGUberLight.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGTransform.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

osg::Matrix toWorldOf(const osg::NodePtr& node, const osg::Matrix& parentToWorld)
{
    osg::Matrix matrix = parentToWorld;
    if (const auto transform = osg::TransformPtr::dcast(node->getCore())) matrix.mult(transform->getMatrix());
    return matrix;
}

/// Length one, or zero for what has no direction.
osg::Vec3f direction(const osg::Vec3f& vector)
{
    const float length = vector.length();
    return length > 0.f && std::isfinite(length) ? vector * (1.f / length) : osg::Vec3f(0.f, 0.f, 0.f);
}

osg::Vec3f colorOf(const osg::FieldContainerPtr& container)
{
    // What the renderer sees of a material: red, green and blue of its first colour.
    if (const auto material = osg::UberMaterialPtr::dcast(container)) {
        const auto& data = *material->getMFColorComponentData();
        if (data.size() >= 3) return osg::Vec3f(data[0], data[1], data[2]);
    }
    return osg::Vec3f(0.8f, 0.8f, 0.8f);
}

osg::Vec3f vector(const QColor& color)
{
    return osg::Vec3f(static_cast<float>(color.redF()), static_cast<float>(color.greenF()),
                      static_cast<float>(color.blueF()));
}

} // namespace

osg::Vec3f transformed(const osg::Matrix& m, const osg::Vec3f& p)
{
    return osg::Vec3f(m[0][0] * p[0] + m[1][0] * p[1] + m[2][0] * p[2] + m[3][0],
                      m[0][1] * p[0] + m[1][1] * p[1] + m[2][1] * p[2] + m[3][1],
                      m[0][2] * p[0] + m[1][2] * p[1] + m[2][2] * p[2] + m[3][2]);
}

osg::Vec3f turned(const osg::Matrix& m, const osg::Vec3f& d)
{
    return osg::Vec3f(m[0][0] * d[0] + m[1][0] * d[1] + m[2][0] * d[2],
                      m[0][1] * d[0] + m[1][1] * d[1] + m[2][1] * d[2],
                      m[0][2] * d[0] + m[1][2] * d[1] + m[2][2] * d[2]);
}

CameraSpace::CameraSpace(const View& view)
    : m_eye(view.eye()), m_right(view.right()), m_up(view.up()), m_forward(view.forward())
{
}

osg::Vec3f CameraSpace::fromWorld(const osg::Vec3f& point) const
{
    const osg::Vec3f away = point - m_eye;
    return osg::Vec3f(away.dot(m_right), away.dot(m_up), -away.dot(m_forward));
}

bool CameraSpace::project(const osg::Vec3f& point, const QSize& size, QPointF& screen) const
{
    const osg::Vec3f seen = fromWorld(point);
    if (!(seen[2] <= -Raster::nearest)) return false;
    screen = Raster::project(seen, size);
    constexpr double far = 1e6;
    return std::abs(screen.x()) < far && std::abs(screen.y()) < far;
}

void Box::extend(const osg::Vec3f& point)
{
    if (!std::isfinite(point[0]) || !std::isfinite(point[1]) || !std::isfinite(point[2])) return;
    if (isEmpty) smallest = largest = point;
    isEmpty = false;
    for (osg::UInt32 i = 0; i < 3; ++i) {
        smallest[i] = std::min(smallest[i], point[i]);
        largest[i] = std::max(largest[i], point[i]);
    }
}

void ScenePainter::setScene(EditorSession& session)
{
    m_shapes.clear();
    m_materials.clear();
    m_triangleCount = 0;
    const Model& model = session.model();
    for (const LoadedMesh& mesh : model.meshes) {
        Shape shape{&mesh, {}};
        for (const osg::Vec3f& point : mesh.points)
            shape.box.extend(point);
        for (const osg::NodePtr& node : mesh.nodes)
            m_shapes[osg::getContainerId(node)].push_back(shape);
        m_triangleCount += mesh.corners.size() / 3 * mesh.nodes.size();
    }
    for (const osg::FieldContainerRefPtr& container : model.containers) {
        if (osg::UberMaterialPtr::dcast(container.get())) m_materials.push_back(container.get());
    }
}

void ScenePainter::paint(EditorSession& session, const QSize& size, const Look& look)
{
    const View& view = session.camera().view();
    m_camera = CameraSpace(view);
    m_eye = view.eye();
    m_paintedCount = 0;
    m_raster.begin(size, look.background.rgb());
    m_lights.clear();
    const osg::NodePtr root = session.model().root.get();
    if (root == osg::NullFC) return;
    findLights(root, osg::Matrix());
    paintNode(session, root, osg::Matrix(), false, look);
}

osg::NodePtr ScenePainter::nodeAt(const QPoint& pixel) const
{
    const osg::UInt32 id = m_raster.itemAt(pixel);
    if (id == 0) return osg::NullFC;
    return osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

void ScenePainter::findLights(const osg::NodePtr& node, const osg::Matrix& parentToWorld)
{
    if (!node->getActive()) return;
    const osg::Matrix toWorld = toWorldOf(node, parentToWorld);
    const auto core = osg::UberLightPtr::dcast(node->getCore());
    if (core && core->getOn()) {
        Light light;
        light.isFar = core->getLightType() == osg::UberLight::DirectionalLight;
        light.place = transformed(toWorld, osg::Vec3f(0.f, 0.f, 0.f));
        light.direction = direction(turned(toWorld, osg::Vec3f(0.f, 0.f, 1.f)));
        const osg::Color3f& color = core->getDiffuse();
        light.color = osg::Vec3f(color.red(), color.green(), color.blue()) * core->getIntensity();
        m_lights.push_back(light);
    }
    for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
        findLights(node->getChild(i), toWorld);
}

void ScenePainter::paintNode(EditorSession& session, const osg::NodePtr& node, const osg::Matrix& parentToWorld,
                             bool selected, const Look& look)
{
    if (!node->getActive()) return;
    const osg::Matrix toWorld = toWorldOf(node, parentToWorld);
    selected = selected || session.isSelected(node);
    const osg::UInt32 id = osg::getContainerId(node);
    const auto shapes = m_shapes.find(id);
    if (shapes != m_shapes.end()) {
        for (const Shape& shape : shapes->second) {
            const std::size_t material = shape.mesh->material;
            osg::Vec3f base = colorOf(material < m_materials.size() ? m_materials[material] : osg::FieldContainerPtr());
            if (selected) base = base * 0.5f + vector(look.highlight) * 0.5f;
            paintShape(shape, toWorld, base, id, look.boxes);
        }
    }
    for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
        paintNode(session, node->getChild(i), toWorld, selected, look);
}

void ScenePainter::paintShape(const Shape& shape, const osg::Matrix& toWorld, const osg::Vec3f& base, osg::UInt32 id,
                              bool box)
{
    if (!box) {
        setPoints(shape.mesh->points, toWorld);
        const std::vector<osg::UInt32>& corners = shape.mesh->corners;
        for (std::size_t i = 0; i + 2 < corners.size(); i += 3)
            paintTriangle(corners[i], corners[i + 1], corners[i + 2], base, id);
        return;
    }
    if (shape.box.isEmpty) return;
    std::vector<osg::Vec3f> points;
    for (int corner = 0; corner < 8; ++corner) {
        const auto part = [&](osg::UInt32 axis) {
            return ((corner >> axis) & 1) != 0 ? shape.box.largest[axis] : shape.box.smallest[axis];
        };
        points.emplace_back(part(0), part(1), part(2));
    }
    setPoints(points, toWorld);
    static constexpr std::array<std::array<std::size_t, 4>, 6> sides{
        {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}}};
    for (const auto& side : sides) {
        paintTriangle(side[0], side[1], side[2], base, id);
        paintTriangle(side[0], side[2], side[3], base, id);
    }
}

void ScenePainter::setPoints(const std::vector<osg::Vec3f>& points, const osg::Matrix& toWorld)
{
    m_points.clear();
    m_seen.clear();
    for (const osg::Vec3f& point : points) {
        m_points.push_back(transformed(toWorld, point));
        m_seen.push_back(m_camera.fromWorld(m_points.back()));
    }
}

void ScenePainter::paintTriangle(std::size_t a, std::size_t b, std::size_t c, const osg::Vec3f& base, osg::UInt32 id)
{
    ++m_paintedCount;
    m_raster.triangle(m_seen[a], m_seen[b], m_seen[c], shade(m_points[a], m_points[b], m_points[c], base), id);
}

QRgb ScenePainter::shade(const osg::Vec3f& a, const osg::Vec3f& b, const osg::Vec3f& c, const osg::Vec3f& base) const
{
    const osg::Vec3f centre = (a + b + c) * (1.f / 3.f);
    osg::Vec3f normal = direction((b - a).cross(c - a));
    const osg::Vec3f toEye = direction(m_eye - centre);
    if (normal.dot(toEye) < 0.f) normal = normal * -1.f;
    osg::Vec3f light(0.f, 0.f, 0.f);
    for (const Light& each : m_lights) {
        const osg::Vec3f away = each.place - centre;
        // A distance below one brightens no more.
        const float reach = each.isFar ? 1.f : 1.f / std::max(1.f, away.squareLength());
        const float facing = normal.dot(each.isFar ? each.direction : direction(away));
        if (facing > 0.f) light += each.color * (facing * reach);
    }
    // A lamp at the camera, so that nothing is black, and a soft limit, so that nothing is white.
    const float headlight = 0.35f + 0.2f * normal.dot(toEye);
    const auto channel = [&](osg::UInt32 i) {
        const float bright = base[i] * (headlight + 0.75f * (1.f - std::exp(-0.5f * light[i])));
        return static_cast<int>(std::clamp(std::isfinite(bright) ? bright : 0.f, 0.f, 1.f) * 255.f);
    };
    return qRgb(channel(0), channel(1), channel(2));
}

Box ScenePainter::boxOf(const osg::NodePtr& node) const
{
    Box box;
    if (node == osg::NullFC) return box;
    const osg::NodePtr parent = node->getParent();
    extendBox(box, node, parent == osg::NullFC ? osg::Matrix() : parent->getToWorld());
    return box;
}

void ScenePainter::extendBox(Box& box, const osg::NodePtr& node, const osg::Matrix& parentToWorld) const
{
    const osg::Matrix toWorld = toWorldOf(node, parentToWorld);
    const auto shapes = m_shapes.find(osg::getContainerId(node));
    if (shapes == m_shapes.end()) {
        if (node->getNChildren() == 0) box.extend(transformed(toWorld, osg::Vec3f(0.f, 0.f, 0.f)));
    } else {
        for (const Shape& shape : shapes->second)
            for (const osg::Vec3f& point : shape.mesh->points)
                box.extend(transformed(toWorld, point));
    }
    for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
        extendBox(box, node->getChild(i), toWorld);
}
