#include <sceneeditor/Camera.h>

#include <moUndoUtils/moUndoString.h>

#include <cmath>

namespace {

float radians(float degrees)
{
    return degrees * 0.0174532925f;
}

} // namespace

osg::Vec3f View::forward() const
{
    const float level = std::cos(radians(pitch));
    return osg::Vec3f(-std::sin(radians(yaw)) * level, -std::sin(radians(pitch)), -std::cos(radians(yaw)) * level);
}

osg::Vec3f View::right() const
{
    return osg::Vec3f(std::cos(radians(yaw)), 0.f, -std::sin(radians(yaw)));
}

osg::Vec3f View::up() const
{
    return right().cross(forward());
}

bool operator==(const View& a, const View& b)
{
    return a.target == b.target && a.distance == b.distance && a.yaw == b.yaw && a.pitch == b.pitch;
}

void Camera::setView(const View& view)
{
    m_view = view;
    Q_EMIT changed();
}

MO_UNDO_COMMAND_ID_IMPL(ViewUndoCommand)

ViewUndoCommand::ViewUndoCommand(const QString& text, Camera& camera, const View& view)
    : moUndoCommand(moUndoString(text, text, "View Commands"), nullptr), m_camera(&camera), m_view(view)
{
}

void ViewUndoCommand::undo()
{
    redo();
}

void ViewUndoCommand::redo()
{
    if (!m_camera) return;
    const View before = m_camera->view();
    m_camera->setView(m_view);
    m_view = before;
}

bool ViewUndoCommand::canMergeWith(const QUndoCommand* other) const
{
    if (!moUndoCommand::canMergeWith(other)) return false;
    const auto* newer = castLike(*this, other);
    return newer && newer->m_camera == m_camera && newer->text() == text();
}

bool ViewUndoCommand::mergeWith(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    adoptCreationTime(*static_cast<const moUndoCommand*>(other));
    return true;
}
