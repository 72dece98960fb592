#pragma once

#include <OpenSG/OSGNode.h>

#include <type_traits>

/// The two fields that the application's osg::Node has more than OpenSG's own, and the one place of the library that
/// knows of the difference. Here is what holds without them: no node has a flag, and none can be marked.
template<class Node, class = void>
struct moNodeFlagsOf
{
    static constexpr bool exist = false;
    static osg::BitVector externalFlagsMask() { return osg::FieldBits::NoField; }
    static osg::UInt32 getFlags(const osg::NodePtr&) { return 0; }
    static osg::UInt32 getExternalFlags(const osg::NodePtr&) { return 0; }
    static void setExternalFlags(const osg::NodePtr&, osg::UInt32) {}
};

template<class Node>
struct moNodeFlagsOf<Node,
                     std::void_t<decltype(std::declval<Node&>().setExternalFlags(std::declval<Node&>().getFlags()))>>
{
    static constexpr bool exist = true;
    static osg::BitVector externalFlagsMask() { return Node::ExternalFlagsFieldMask; }
    static osg::UInt32 getFlags(const osg::NodePtr& node) { return static_cast<const Node&>(*node).getFlags(); }
    static osg::UInt32 getExternalFlags(const osg::NodePtr& node)
    {
        return static_cast<const Node&>(*node).getExternalFlags();
    }
    static void setExternalFlags(const osg::NodePtr& node, osg::UInt32 flags)
    {
        static_cast<Node&>(*node).setExternalFlags(flags);
    }
};

using moNodeFlags = moNodeFlagsOf<osg::Node>;
