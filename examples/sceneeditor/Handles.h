#pragma once

#include <sceneeditor/ScenePainter.h>

#include <moOpenSGUtils/moNodePtr.h>
#include <moUndoStack/core/moUndoCommandBase.h>

#include <QtCore/QPointF>
#include <QtCore/QSize>
#include <QtGui/QPolygonF>

#include <array>
#include <memory>
#include <vector>

class QPainter;

/// What the handles of the viewport do.
enum class Tool
{
    Move,
    Rotate,
    Scale
};

/// The handles of a tool at one moment: where they are on the screen, and which commands a drag of them makes.
///
/// Moving goes along the axes of the world. Turning changes one of the three angles, about the axis that this angle
/// turns about. Scaling goes along the axes of the node. All selected nodes take part, each about its own pivot; one
/// that lies below another selected node follows that one.
class Handles
{
public:
    enum Part
    {
        NoPart = -1,
        X,
        Y,
        Z,
        Centre
    };

    Handles() = default;
    /// At the last of the nodes that has a transform.
    Handles(const std::vector<osg::NodePtr>& nodes, Tool tool, const View& view, const QSize& size);

    bool isEmpty() const { return m_targets.empty() || !m_isVisible; }

    /// The part that is close to a point of the screen.
    Part partAt(const QPointF& point) const;

    /// A point of the screen where a part can be grasped.
    QPointF graspOf(Part part) const;

    void paint(QPainter& painter, Part highlighted) const;

    /// The command for a part that was dragged: from the values that the nodes had when the handles were made.
    /// \param first  the first command of a drag: it does not merge into the step before it.
    /// Null if there is nothing to do.
    std::unique_ptr<moUndoCommandBase> drag(Part part, const QPointF& from, const QPointF& to, bool first) const;

private:
    struct Target
    {
        moNodePtr node;
        osg::Vec3f translation, rotation, scale;
    };
    struct Axis
    {
        osg::Vec3f direction; ///< in the world
        QPolygonF line;       ///< on the screen
    };

    void place(const osg::NodePtr& node, const QSize& size);
    bool hasPart(Part part) const;
    osg::Vec3f moved(Part part, const QPointF& by) const;
    float turnedBy(Part part, const QPointF& from, const QPointF& to) const;
    osg::Vec3f scaledBy(Part part, const QPointF& by) const;
    moUndoCommandBase* commandFor(const Target& target, Part part, const QPointF& from, const QPointF& to, bool first,
                                  QUndoCommand* parent) const;

    Tool m_tool = Tool::Move;
    View m_view;
    std::vector<Target> m_targets;
    std::array<Axis, 3> m_axes;
    QPointF m_centre;
    double m_pixelsPerUnit = 1.; ///< at the place of the handles
    bool m_isVisible = false;
};
