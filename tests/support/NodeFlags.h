#pragma once

#include <OpenSG/OSGNode.h>

#include <type_traits>

/// Whether osg::Node has the application's two fields, flags and externalFlags. OpenSG's own has neither.
template<class Node, class = void>
struct HasNodeFlags : std::false_type
{
};

template<class Node>
struct HasNodeFlags<Node, std::void_t<decltype(std::declval<Node&>().getExternalFlags())>> : std::true_type
{
};

constexpr bool nodesHaveFlags = HasNodeFlags<osg::Node>::value;
