include_guard(GLOBAL)
include(GNUInstallDirs)

# Sets what all targets of the tree have in common: standard, warnings, sanitizers.
function(mo_setup_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    # No program replaces single functions of these libraries, so the compiler may inline exported ones.
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                           $<$<BOOL:${MO_WARNINGS_AS_ERRORS}>:-Werror>)
    if(MO_OPENSG STREQUAL "installed")
        # Its headers warn even as system headers: by a directive, and where they are inlined (docs/opensg.md).
        target_compile_options(${target} PRIVATE -Wno-deprecated -Wno-array-bounds)
    endif()
    if(MO_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${MO_SANITIZE} -fno-omit-frame-pointer
                               $<$<NOT:$<BOOL:${MO_SANITIZE_RECOVER}>>:-fno-sanitize-recover=all> ${MO_SANITIZE_LESS})
        target_link_options(${target} PRIVATE -fsanitize=${MO_SANITIZE})
    endif()
endfunction()

# Where the headers are installed: a folder of our own, so that those of the bundled OpenSG never stand before real ones.
set(MO_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/moundostack-${PROJECT_VERSION_MAJOR})
set(MO_TRANSLATIONDIR ${CMAKE_INSTALL_DATADIR}/moundostack-${PROJECT_VERSION_MAJOR}/translations)
set(MO_PACKAGEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/moUndoStack)

# mo_install_library(<name> <component> <header sets>...)
#
# Installs a target, with its headers, as part of a component: Library or Platform. What a program needs of it at run time is the component
# Runtime, too, which is part of no full installation: the Debian packages are made by it.
function(mo_install_library name component)
    if(NOT MO_INSTALL)
        return()
    endif()
    set(headers)
    foreach(set IN LISTS ARGN)
        list(APPEND headers FILE_SET ${set} DESTINATION ${MO_INCLUDEDIR} COMPONENT ${component})
    endforeach()
    install(TARGETS ${name} EXPORT moUndoStack${component}Targets COMPONENT ${component} ${headers})
    get_target_property(type ${name} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        install(TARGETS ${name} LIBRARY COMPONENT Runtime NAMELINK_SKIP EXCLUDE_FROM_ALL)
    endif()
    set_property(GLOBAL APPEND PROPERTY MO_INSTALLED_COMPONENTS ${component})
endfunction()

# mo_add_library(<name> ALIAS <mo::name> [LIBRARY] BASE_DIR <dirs>... HEADERS <public>... SOURCES <files>... LINK <public targets>...
#                [EXTRA_BASE_DIR <dir> EXTRA_HEADERS <public>...])
#
# LIBRARY: it is moUndoStack itself, always shared; all others are part of the platform.
# BASE_DIR is the include path: a header is included by its path below it, in the tree and installed alike.
# EXTRA_HEADERS have EXTRA_BASE_DIR as theirs.
function(mo_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "LIBRARY" "ALIAS;EXTRA_BASE_DIR" "BASE_DIR;HEADERS;EXTRA_HEADERS;SOURCES;LINK")
    set(kind)
    set(component Platform)
    if(arg_LIBRARY)
        set(kind SHARED)
        set(component Library)
    endif()
    add_library(${name} ${kind})
    add_library(${arg_ALIAS} ALIAS ${name})
    string(REPLACE "mo::" "" exported ${arg_ALIAS})
    set_target_properties(${name} PROPERTIES EXPORT_NAME ${exported} VERIFY_INTERFACE_HEADER_SETS ON INSTALL_RPATH "$ORIGIN"
                          POSITION_INDEPENDENT_CODE ON VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    target_sources(${name} PRIVATE ${arg_SOURCES}
                   PUBLIC FILE_SET HEADERS BASE_DIRS ${arg_BASE_DIR} FILES ${arg_HEADERS})
    set(header_sets HEADERS)
    if(arg_EXTRA_HEADERS)
        target_sources(${name} PUBLIC FILE_SET extra_headers TYPE HEADERS
                       BASE_DIRS ${arg_EXTRA_BASE_DIR} FILES ${arg_EXTRA_HEADERS})
        list(APPEND header_sets extra_headers)
    endif()
    target_link_libraries(${name} PUBLIC ${arg_LINK})
    mo_setup_target(${name})
    mo_install_library(${name} ${component} ${header_sets})
endfunction()

# mo_add_test(<name> SOURCES <files>... [LINK <targets>...])
#
# An executable with the main function of tests/support. With MO_WHOLE_SUITES it is one ctest test, which runs all in one
# process, shuffled; otherwise each TEST is a ctest test with a process of its own.
function(mo_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE mo_test_support ${arg_LINK})
    target_precompile_headers(${name} REUSE_FROM mo_test_support)
    mo_setup_target(${name})
    if(MO_WHOLE_SUITES)
        add_test(NAME ${name} COMMAND ${name} --gtest_shuffle --gtest_brief=1)
        set_tests_properties(${name} PROPERTIES ENVIRONMENT "${MO_TEST_ENVIRONMENT}" TIMEOUT 1800)
    else()
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES ENVIRONMENT "${MO_TEST_ENVIRONMENT}")
    endif()
endfunction()
