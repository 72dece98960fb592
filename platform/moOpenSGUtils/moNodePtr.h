#pragma once

#include <OpenSG/OSGNode.h>

/// A handle of a node that cannot dangle: it keeps the node's container id and finds the node each time it is asked.
///
/// It holds no reference. Two of them are equal when they were made from the same node, be it alive or gone.
class moNodePtr
{
public:
    moNodePtr() = default;

    /// Implicit: wherever a moNodePtr is wanted a node may be given.
    /// \param node  alive or null.
    moNodePtr(const osg::NodePtr& node);

    /// Null when the node was destroyed or there was none.
    osg::NodePtr getPtr() const;

    explicit operator bool() const;

    friend bool operator==(const moNodePtr& a, const moNodePtr& b) { return a.m_id == b.m_id; }
    friend bool operator!=(const moNodePtr& a, const moNodePtr& b) { return !(a == b); }

private:
    osg::UInt32 m_id = 0;
};
