#pragma once

#include <OpenSG/OSGNode.h>

#include <string>
#include <vector>

/// What the same test rightly finds different on the two grounds: the bundled OpenSG has one object per container, an
/// installed one has one per aspect. What only the bundled one forgives is in KinderTest.cpp, which is built for it alone;
/// what needs the application's fields of osg::Node is in NodeFlagsTest.cpp.
namespace ground {

#ifdef MO_OPENSG_BUNDLED
constexpr osg::Int32 objectsPerContainer = 1;
#else
constexpr osg::Int32 objectsPerContainer = 2;
#endif

/// What a probe writes down when it is destroyed: the call, then one destructor for each of its objects.
inline std::vector<std::string> destruction(std::vector<std::string> meanwhile = {})
{
    meanwhile.insert(meanwhile.begin(), "onDestroy");
    meanwhile.insert(meanwhile.end(), objectsPerContainer, "~Probe");
    return meanwhile;
}

} // namespace ground
