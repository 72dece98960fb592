include(CMakeFindDependencyMacro)
find_dependency(moUndoStack COMPONENTS Platform) # the OpenSG that was built with the library
include("${CMAKE_CURRENT_LIST_DIR}/HostPlatformTargets.cmake")
