#pragma once

#include <sceneeditor/properties/PropertyDock.h>

#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGTransform3D.h>
#include <OpenSG/OSGVector.h>

#include <QtCore/QCoreApplication>

#include <optional>

/// The components of the transform of the current node, or of one of its variants.
class TransformDock : public PropertyDock
{
    Q_DECLARE_TR_FUNCTIONS(TransformDock)

public:
    explicit TransformDock(EditorSession& session, QWidget* parent = nullptr);

private:
    struct Row;

    void addFrame();
    void addRow(const Row& row);
    void addRotation();
    void addOrientation();

    /// The transform that is shown; null if there is none.
    osg::Transform3DPtr transform() const;
    std::optional<osg::Vec3f> direction() const;
    void setQuaternion(const osg::Quaternion& rotation);
    void setDirection(const osg::Vec3f& direction, int axis);

    int m_variant = -1;         ///< that is shown; -1: the node's own transform
    bool m_isWorld = false;     ///< whether translation and pivots are those of the world
    int m_axis = 0;             ///< that points along the next direction
    bool m_isNormalised = true; ///< whether the next direction is stored with length one
};
