#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGVector.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>

/// Where a camera looks, and from where. Angles in degrees.
struct View
{
    osg::Vec3f target;
    float distance = 10.f;
    float yaw = 30.f;   ///< about the world's y axis; 0 looks along -z
    float pitch = 25.f; ///< above the horizon

    /// From the camera to the place it looks at; length one.
    osg::Vec3f forward() const;
    osg::Vec3f right() const;
    osg::Vec3f up() const;
    osg::Vec3f eye() const { return target - forward() * distance; }
};

bool operator==(const View& a, const View& b);
inline bool operator!=(const View& a, const View& b)
{
    return !(a == b);
}

/// Holds the view and tells when it changes.
class Camera : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    const View& view() const { return m_view; }
    void setView(const View& view);

Q_SIGNALS:
    void changed();

private:
    View m_view;
};

/// A command of the application's own that edits no scene: sets the view of a camera. Destroyed cameras are skipped.
/// Merges with a newer one of the same camera and the same text.
class ViewUndoCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    ViewUndoCommand(const QString& text, Camera& camera, const View& view);

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* other) const override;
    bool mergeWith(const QUndoCommand* other) override;

private:
    QPointer<Camera> m_camera;
    View m_view; ///< the one that the next step sets
};
