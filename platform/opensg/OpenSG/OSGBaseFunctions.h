#pragma once

#include <OpenSG/OSGBaseTypes.h>

namespace osg {

enum SystemState
{
    Startup = 1,
    Running = 2,
    Shutdown = 3
};
OSG_BASELIB_DLLMAPPING extern SystemState GlobalSystemState;

/// Initialises all registered container types and makes their prototypes; registers osgExit with atexit. The arguments
/// are not read, apart from the version: another major version is refused. Called again while running it changes
/// nothing.
OSG_BASELIB_DLLMAPPING bool osgInit(Int32 argc, Char8** argv, UInt16 major = OSG_MAJOR_VERSION,
                                    UInt16 minor = OSG_MINOR_VERSION, UInt16 release = OSG_RELEASE_VERSION,
                                    bool debug = false, bool dll = true, bool mt = true);
/// Destroys the prototypes. Containers still alive stay alive, and can be released later.
OSG_BASELIB_DLLMAPPING bool osgExit();

} // namespace osg
