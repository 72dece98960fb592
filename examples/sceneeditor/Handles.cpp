#include <sceneeditor/Handles.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLineF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_set>

namespace {

constexpr int ownTransform = -1;
constexpr double handleLength = 80.; // pixels
constexpr double reach = 7.;         // pixels: how close is on it
constexpr std::array<Handles::Part, 4> parts{Handles::Centre, Handles::X, Handles::Y, Handles::Z};

const std::array<QColor, 3>& axisColors()
{
    static const std::array<QColor, 3> colors{QColor(230, 70, 70), QColor(90, 190, 80), QColor(80, 130, 240)};
    return colors;
}

osg::Vec3f unit(osg::UInt32 axis)
{
    osg::Vec3f vector(0.f, 0.f, 0.f);
    vector[axis] = 1.f;
    return vector;
}

osg::Vec3f normalised(const osg::Vec3f& vector)
{
    const float length = vector.length();
    return length > 0.f && std::isfinite(length) ? vector * (1.f / length) : osg::Vec3f(0.f, 0.f, 0.f);
}

bool isFinite(const osg::Vec3f& v)
{
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

osg::Matrix parentToWorld(const osg::NodePtr& node)
{
    const osg::NodePtr parent = node->getParent();
    return parent == osg::NullFC ? osg::Matrix() : parent->getToWorld();
}

/// The axes that the three angles of a node turn about, in the space of its parent. The last axis of the order is fixed
/// there; each of the others is turned by those behind it.
std::array<osg::Vec3f, 3> anglesAxes(const osg::NodePtr& node)
{
    std::string order = moNodeUtils::getTransformNodeEulerRotationOrder(node, ownTransform);
    std::string sorted = order;
    std::sort(sorted.begin(), sorted.end());
    if (sorted != "XYZ") order = "XYZ";
    const osg::Vec3f angles = moNodeUtils::getTransformNodeRotation(node, ownTransform);

    std::array<osg::Vec3f, 3> axes;
    osg::Quaternion behind;
    for (std::size_t i = order.size(); i > 0; --i) {
        const auto axis = static_cast<osg::UInt32>(order[i - 1] - 'X');
        behind.multVec(unit(axis), axes[axis]);
        osg::Quaternion turn;
        turn.setValueAsAxisRad(unit(axis), angles[axis] * 0.0174532925f);
        behind.mult(turn);
    }
    return axes;
}

/// Nodes with a transform, without those that lie below another one.
std::vector<osg::NodePtr> topmost(const std::vector<osg::NodePtr>& nodes)
{
    std::vector<osg::NodePtr> result;
    std::unordered_set<osg::UInt32> moved;
    for (const osg::NodePtr& node : nodes)
        if (moNodeUtils::findTransform(node) != osg::NullFC) moved.insert(osg::getContainerId(node));
    for (const osg::NodePtr& node : nodes) {
        if (moved.count(osg::getContainerId(node)) == 0) continue;
        osg::NodePtr above = node->getParent();
        while (above != osg::NullFC && moved.count(osg::getContainerId(above)) == 0)
            above = above->getParent();
        if (above == osg::NullFC) result.push_back(node);
    }
    return result;
}

double distance(const QPolygonF& line, const QPointF& point)
{
    double smallest = 1e9;
    for (int i = 1; i < line.size(); ++i) {
        const QPointF along = line[i] - line[i - 1];
        const double length = QPointF::dotProduct(along, along);
        const double part =
            length > 0. ? std::clamp(QPointF::dotProduct(point - line[i - 1], along) / length, 0., 1.) : 0.;
        smallest = std::min(smallest, QLineF(point, line[i - 1] + along * part).length());
    }
    return smallest;
}

} // namespace

Handles::Handles(const std::vector<osg::NodePtr>& nodes, Tool tool, const View& view, const QSize& size)
    : m_tool(tool), m_view(view)
{
    const std::vector<osg::NodePtr> moved = topmost(nodes);
    for (const osg::NodePtr& node : moved)
        m_targets.push_back({node, moNodeUtils::getTransformNodeTranslation(node, false, ownTransform),
                             moNodeUtils::getTransformNodeRotation(node, ownTransform),
                             moNodeUtils::getTransformNodeScale(node, ownTransform)});
    if (!moved.empty()) place(moved.back(), size);
}

void Handles::place(const osg::NodePtr& node, const QSize& size)
{
    constexpr bool inWorld = true;
    const osg::Vec3f centre = m_tool == Tool::Scale
                                  ? moNodeUtils::getTransformNodeScalePivot(node, inWorld, ownTransform)
                                  : moNodeUtils::getTransformNodeRotatePivot(node, inWorld, ownTransform);
    const CameraSpace camera(m_view);
    m_isVisible = isFinite(centre) && camera.project(centre, size, m_centre);
    if (!m_isVisible) return;
    m_pixelsPerUnit = size.height() / 2. / static_cast<double>(Raster::halfHeight * -camera.fromWorld(centre)[2]);
    const auto length = static_cast<float>(handleLength / m_pixelsPerUnit);

    std::array<osg::Vec3f, 3> axes{unit(0), unit(1), unit(2)};
    if (m_tool == Tool::Rotate) axes = anglesAxes(node);
    const osg::Matrix space = m_tool == Tool::Rotate ? parentToWorld(node) : node->getToWorld();
    for (osg::UInt32 i = 0; i < 3; ++i) {
        Axis& axis = m_axes[i];
        axis.direction = normalised(m_tool == Tool::Move ? axes[i] : turned(space, axes[i]));
        QPointF point;
        if (m_tool != Tool::Rotate) {
            axis.line << m_centre;
            if (camera.project(centre + axis.direction * length, size, point)) axis.line << point;
            continue;
        }
        // A ring about the axis.
        const osg::Vec3f across = normalised(axis.direction.cross(unit(std::abs(axis.direction[0]) < 0.9f ? 0 : 1)));
        const osg::Vec3f other = axis.direction.cross(across);
        constexpr int pieces = 48;
        for (int piece = 0; piece <= pieces; ++piece) {
            const float angle = 6.2831853f * static_cast<float>(piece) / pieces;
            if (camera.project(centre + (across * std::cos(angle) + other * std::sin(angle)) * length, size, point))
                axis.line << point;
        }
    }
}

bool Handles::hasPart(Part part) const
{
    if (isEmpty() || part == NoPart) return false;
    if (part == Centre) return m_tool != Tool::Rotate;
    const QPolygonF& line = m_axes[static_cast<std::size_t>(part)].line;
    if (line.size() < 2) return false;
    // An axis that points at the viewer cannot be dragged along.
    return m_tool == Tool::Rotate || QLineF(line.first(), line.last()).length() > reach;
}

Handles::Part Handles::partAt(const QPointF& point) const
{
    for (const Part part : parts) {
        if (!hasPart(part)) continue;
        const double away = part == Centre ? QLineF(point, m_centre).length()
                                           : distance(m_axes[static_cast<std::size_t>(part)].line, point);
        if (away <= reach) return part;
    }
    return NoPart;
}

QPointF Handles::graspOf(Part part) const
{
    if (part == Centre || !hasPart(part)) return m_centre;
    const QPolygonF& line = m_axes[static_cast<std::size_t>(part)].line;
    if (m_tool != Tool::Rotate) return line.last();
    // The first place where no other ring is.
    for (const QPointF& point : line)
        if (partAt(point) == part) return point;
    return line.first();
}

void Handles::paint(QPainter& painter, Part highlighted) const
{
    if (isEmpty()) return;
    for (const Part part : {X, Y, Z}) {
        if (!hasPart(part)) continue;
        const auto axis = static_cast<std::size_t>(part);
        painter.setPen(QPen(axisColors()[axis], part == highlighted ? 4. : 2.));
        painter.setBrush(axisColors()[axis]);
        painter.drawPolyline(m_axes[axis].line);
        const QPointF end = m_axes[axis].line.last();
        if (m_tool == Tool::Move) painter.drawEllipse(end, 4., 4.);
        if (m_tool == Tool::Scale) painter.drawRect(QRectF(end - QPointF(4., 4.), QSizeF(8., 8.)));
    }
    if (!hasPart(Centre)) return;
    painter.setPen(QPen(Qt::black, 1.));
    painter.setBrush(highlighted == Centre ? Qt::yellow : Qt::white);
    painter.drawEllipse(m_centre, 5., 5.);
}

std::unique_ptr<moUndoCommandBase> Handles::drag(Part part, const QPointF& from, const QPointF& to, bool first) const
{
    if (!hasPart(part)) return nullptr;
    if (m_targets.size() == 1)
        return std::unique_ptr<moUndoCommandBase>(commandFor(m_targets.front(), part, from, to, first, nullptr));

    static constexpr std::array<const char*, 3> texts{QT_TRANSLATE_NOOP("Handles", "Move %1 Nodes"),
                                                      QT_TRANSLATE_NOOP("Handles", "Rotate %1 Nodes"),
                                                      QT_TRANSLATE_NOOP("Handles", "Scale %1 Nodes")};
    const QString text =
        QCoreApplication::translate("Handles", texts[static_cast<std::size_t>(m_tool)]).arg(m_targets.size());
    auto all = std::make_unique<moMultiCommand>(moUndoString(text, text, "Transform Commands"), nullptr);
    for (const Target& target : m_targets) {
        // Each time with as many children as before: composites of different size do not merge.
        if (!commandFor(target, part, from, to, first, all.get())) return nullptr;
    }
    return all;
}

/// How far a drag of the part moves, in the world.
osg::Vec3f Handles::moved(Part part, const QPointF& by) const
{
    if (part == Centre)
        return m_view.right() * static_cast<float>(by.x() / m_pixelsPerUnit) +
               m_view.up() * static_cast<float>(-by.y() / m_pixelsPerUnit);
    const Axis& axis = m_axes[static_cast<std::size_t>(part)];
    const QPointF along = axis.line.last() - axis.line.first();
    const double units = handleLength / m_pixelsPerUnit * QPointF::dotProduct(by, along) /
                         std::max(1e-6, QPointF::dotProduct(along, along));
    return axis.direction * static_cast<float>(units);
}

/// Degrees about the axis of the part.
float Handles::turnedBy(Part part, const QPointF& from, const QPointF& to) const
{
    double degrees = QLineF(m_centre, from).angleTo(QLineF(m_centre, to));
    if (degrees > 180.) degrees -= 360.;
    const bool towardsViewer = m_axes[static_cast<std::size_t>(part)].direction.dot(m_view.forward()) < 0.f;
    return static_cast<float>(towardsViewer ? degrees : -degrees);
}

osg::Vec3f Handles::scaledBy(Part part, const QPointF& by) const
{
    constexpr float smallest = 0.01f;
    if (part == Centre) {
        const float factor = std::max(smallest, 1.f + static_cast<float>((by.x() - by.y()) / 100.));
        return osg::Vec3f(factor, factor, factor);
    }
    const QPolygonF& line = m_axes[static_cast<std::size_t>(part)].line;
    const QPointF along = line.last() - line.first();
    osg::Vec3f factors(1.f, 1.f, 1.f);
    factors[static_cast<osg::UInt32>(part)] =
        std::max(smallest, 1.f + static_cast<float>(QPointF::dotProduct(by, along) /
                                                    std::max(1e-6, QPointF::dotProduct(along, along))));
    return factors;
}

moUndoCommandBase* Handles::commandFor(const Target& target, Part part, const QPointF& from, const QPointF& to,
                                       bool first, QUndoCommand* parent) const
{
    const osg::NodePtr node = target.node.getPtr();
    if (node == osg::NullFC) return nullptr;
    constexpr double noLimit = -1.;
    const moMergeOption merge = first ? moMergeOption(false) : moMergeOption(noLimit);
    switch (m_tool) {
    case Tool::Move: {
        // In the space of the parent: undo is exact there.
        osg::Matrix toParent;
        if (!toParent.invertFrom(parentToWorld(node))) toParent = osg::Matrix();
        const osg::Vec3f value = target.translation + turned(toParent, moved(part, to - from));
        if (!isFinite(value)) return nullptr;
        return new moTranslationUndoCommand(node, value, false, merge, parent, {}, ownTransform);
    }
    case Tool::Rotate: {
        osg::Vec3f value = target.rotation;
        value[static_cast<osg::UInt32>(part)] += turnedBy(part, from, to);
        if (!isFinite(value)) return nullptr;
        return new moRotationUndoCommand(node, value, merge, parent, {}, ownTransform);
    }
    case Tool::Scale:
        break;
    }
    const osg::Vec3f factors = scaledBy(part, to - from);
    osg::Vec3f value = target.scale;
    for (osg::UInt32 i = 0; i < 3; ++i)
        value[i] *= factors[i];
    if (!isFinite(value)) return nullptr;
    return new moScaleUndoCommand(node, value, merge, parent, {}, ownTransform);
}
