#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <string>
#include <vector>

/// What the same test rightly finds different on the two grounds: the bundled OpenSG has one object per container, an
/// installed one has one per aspect. What only the bundled one forgives is in KinderTest.cpp, which is built for it alone;
/// what needs the application's fields of osg::Node is in NodeFlagsTest.cpp and LightLinkStandInTest.cpp.
namespace ground {

/// How often a copy of a container counts what it holds, and how many destructors run when it is destroyed.
extern const osg::Int32 objectsPerContainer;

/// Whether an attachment is in its place, or gone from it, whatever a listener to its own change throws. OpenSG tells the
/// attachment in the middle of adding it and of taking it off: what is thrown then leaves half of it done.
extern const bool listenersToAttachmentsMayThrow;

/// What a probe writes down when it is destroyed: the call, then one destructor for each of its objects.
std::vector<std::string> destruction(std::vector<std::string> meanwhile = {});

} // namespace ground
