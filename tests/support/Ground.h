#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <string>
#include <vector>

/// What a test has to expect differently on the bundled OpenSG, which has one object per container, and on an installed
/// one, which has one per aspect. Tests of what only the bundled one allows are in KinderTest.cpp, which is built for
/// it alone; those that need the application's fields of osg::Node are in NodeFlagsTest.cpp and
/// LightLinkStandInTest.cpp.
namespace ground {

/// How many references a copy of a container adds to what it holds, and how many destructors run when it is destroyed.
extern const osg::Int32 objectsPerContainer;

/// Whether an attachment is added or removed as a whole if a listener to its change throws. An OpenSG that announces
/// the attachment in the middle of adding or removing it leaves half of it done then.
extern const bool listenersToAttachmentsMayThrow;

/// What a probe logs when it is destroyed: the call, then one destructor for each of its objects.
std::vector<std::string> destruction(std::vector<std::string> meanwhile = {});

} // namespace ground
