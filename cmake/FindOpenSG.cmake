# Finds an installed OpenSG 1.8: headers <OpenSG/OSGConfig.h>, libraries OSGBase and OSGSystem. Looks below OpenSG_ROOT first.
#
# Defines the target OpenSG::OpenSG. Its options follow from how that version is written; docs/opensg.md says why.
include(FindPackageHandleStandardArgs)

find_path(OpenSG_INCLUDE_DIR OpenSG/OSGConfig.h)
find_library(OpenSG_Base_LIBRARY OSGBase)
find_library(OpenSG_System_LIBRARY OSGSystem)
if(OpenSG_INCLUDE_DIR)
    file(STRINGS ${OpenSG_INCLUDE_DIR}/OpenSG/OSGConfig.h line REGEX "define +OSG_VERSION_STRING")
    string(REGEX MATCH "[0-9]+\\.[0-9]+(\\.[0-9]+)?" OpenSG_VERSION "${line}")
endif()

find_package_handle_standard_args(OpenSG
    REQUIRED_VARS OpenSG_Base_LIBRARY OpenSG_System_LIBRARY OpenSG_INCLUDE_DIR
    VERSION_VAR OpenSG_VERSION)

if(OpenSG_FOUND AND NOT TARGET OpenSG::OpenSG)
    find_package(Threads REQUIRED)
    # GLOBAL: for the whole project, not only for the folder that calls find_package.
    add_library(OpenSG::OpenSG INTERFACE IMPORTED GLOBAL)
    target_include_directories(OpenSG::OpenSG SYSTEM INTERFACE ${OpenSG_INCLUDE_DIR} ${OpenSG_INCLUDE_DIR}/OpenSG)
    target_compile_definitions(OpenSG::OpenSG INTERFACE _OSG_HAVE_CONFIGURED_H_ OSG_BUILD_DLL)
    target_compile_options(OpenSG::OpenSG INTERFACE
        -fno-strict-aliasing -fno-delete-null-pointer-checks -fwrapv)
    target_link_libraries(OpenSG::OpenSG INTERFACE
        -Wl,--no-as-needed ${OpenSG_System_LIBRARY} ${OpenSG_Base_LIBRARY} Threads::Threads)
endif()
