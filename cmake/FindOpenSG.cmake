# Finds an installed OpenSG 1.8: headers <OpenSG/OSGConfig.h>, libraries OSGBase and OSGSystem. Looks below OpenSG_ROOT first.
#
# Defines the target mo::OpenSG. Its options follow from how that version is written: its pointer tests and its reading of
# handles rely on -fno-delete-null-pointer-checks and -fno-strict-aliasing, its hash maps are deprecated headers, and a
# program that uses no symbol of OSGSystem itself must link it all the same, or the types are missing at osgInit().
include(FindPackageHandleStandardArgs)

find_path(OpenSG_INCLUDE_DIR OpenSG/OSGConfig.h)
find_library(OpenSG_Base_LIBRARY OSGBase)
find_library(OpenSG_System_LIBRARY OSGSystem)
if(OpenSG_INCLUDE_DIR AND EXISTS ${OpenSG_INCLUDE_DIR}/OpenSG/OSGConfigured.h)
    file(STRINGS ${OpenSG_INCLUDE_DIR}/OpenSG/OSGConfigured.h line REGEX "define +OSG_VERSION_STRING")
    string(REGEX MATCH "[0-9]+\\.[0-9]+(\\.[0-9]+)?" OpenSG_VERSION "${line}")
endif()

find_package_handle_standard_args(OpenSG
    REQUIRED_VARS OpenSG_Base_LIBRARY OpenSG_System_LIBRARY OpenSG_INCLUDE_DIR
    VERSION_VAR OpenSG_VERSION)

if(OpenSG_FOUND AND NOT TARGET mo::OpenSG)
    add_library(mo::OpenSG INTERFACE IMPORTED)
    target_include_directories(mo::OpenSG SYSTEM INTERFACE ${OpenSG_INCLUDE_DIR} ${OpenSG_INCLUDE_DIR}/OpenSG)
    target_compile_definitions(mo::OpenSG INTERFACE _OSG_HAVE_CONFIGURED_H_)
    target_compile_options(mo::OpenSG INTERFACE -fno-delete-null-pointer-checks -fno-strict-aliasing -Wno-deprecated)
    target_link_libraries(mo::OpenSG INTERFACE -Wl,--no-as-needed ${OpenSG_System_LIBRARY} ${OpenSG_Base_LIBRARY})
endif()
