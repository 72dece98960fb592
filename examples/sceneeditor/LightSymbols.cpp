#include <sceneeditor/LightSymbols.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/ScenePainter.h>

#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moNodeUtils.h>

#include <QtCore/QLineF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double radius = 6.;

QColor shown(const osg::Vec3f& color)
{
    const auto channel = [&color](osg::UInt32 i) {
        return static_cast<int>(std::clamp(std::isfinite(color[i]) ? color[i] : 0.f, 0.f, 1.f) * 255.f);
    };
    return QColor(channel(0), channel(1), channel(2));
}

} // namespace

LightSymbols::LightSymbols(EditorSession& session, const QSize& size)
{
    const CameraSpace camera(session.camera().view());
    QPointF place;
    for (const LoadedLight& light : session.model().lights) {
        const osg::NodePtr& node = light.node;
        if (!moLights::getLightVisualizationVisible(node)) continue;
        const osg::Vec3f centre = transformed(node->getToWorld(), osg::Vec3f(0.f, 0.f, 0.f));
        if (!camera.project(centre, size, place)) continue;
        m_lights.push_back(
            {node, place, shown(moLights::getDiffuse(node)), moLights::getOn(node), session.isSelected(node)});
    }
    for (const osg::NodePtr& node : session.selection()) {
        if (moNodeUtils::findTransform(node) == osg::NullFC) continue;
        if (camera.project(moNodeUtils::getTransformNodeRotatePivot(node, true, -1), size, place))
            m_pivots.push_back(place);
    }
}

void LightSymbols::paint(QPainter& painter) const
{
    for (const Symbol& light : m_lights) {
        painter.setPen(QPen(light.isSelected ? painter.pen().color() : QColor(Qt::black), light.isSelected ? 2. : 1.));
        painter.setBrush(light.isOn ? QBrush(light.color) : QBrush(Qt::NoBrush));
        painter.drawEllipse(light.place, radius, radius);
        if (!light.isOn) continue;
        for (int ray = 0; ray < 8; ++ray) {
            QLineF line(light.place, light.place + QPointF(radius * 1.9, 0.));
            line.setAngle(ray * 45.);
            painter.drawLine(QLineF(line.pointAt(0.68), line.p2()));
        }
    }
    painter.setPen(QPen(Qt::white, 1.));
    for (const QPointF& pivot : m_pivots) {
        painter.drawLine(pivot - QPointF(8., 0.), pivot + QPointF(8., 0.));
        painter.drawLine(pivot - QPointF(0., 8.), pivot + QPointF(0., 8.));
    }
}

osg::NodePtr LightSymbols::nodeAt(const QPointF& point) const
{
    for (const Symbol& light : m_lights) {
        if (QLineF(point, light.place).length() <= radius + 2.) return light.node.getPtr();
    }
    return osg::NullFC;
}
