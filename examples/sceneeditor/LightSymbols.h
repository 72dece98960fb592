#pragma once

#include <moOpenSGUtils/moNodePtr.h>

#include <QtCore/QPointF>
#include <QtCore/QSize>
#include <QtGui/QColor>

#include <vector>

class EditorSession;
class QPainter;

/// The symbols that the viewport shows for what has no mesh: lights, and the pivots of selected nodes.
class LightSymbols
{
public:
    LightSymbols(EditorSession& session, const QSize& size);

    void paint(QPainter& painter) const;

    /// The light whose symbol is there; null for none.
    osg::NodePtr nodeAt(const QPointF& point) const;

private:
    struct Symbol
    {
        moNodePtr node;
        QPointF place;
        QColor color;
        bool isOn;
        bool isSelected;
    };
    std::vector<Symbol> m_lights;
    std::vector<QPointF> m_pivots;
};
