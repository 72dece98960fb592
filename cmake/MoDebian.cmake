include_guard(GLOBAL)

# Two packages: libmoundostack1, what a program needs at run time, and libmoundostack-dev, the rest. scripts/package makes, checks and tries them.
set(MO_PACKAGE_MAINTAINER "moUndoStack developers <moundostack@packages.invalid>" CACHE STRING "Who answers for the Debian packages")
set(runtime libmoundostack${PROJECT_VERSION_MAJOR})
set(development libmoundostack-dev)
set(revision 1)
set(debian ${CMAKE_CURRENT_LIST_DIR}/debian)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT ${MO_PACKAGE_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${debian}/before-packing.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${debian}/after-packing.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL Runtime ${runtime} Library Platform ${development})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${revision})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(about "Commands that edit an OpenSG scene graph, two stacks that record, undo, redo
and merge them, and reports of each step.")
set(CPACK_DEBIAN_RUNTIMEPACKAGE_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIMEPACKAGE_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIMEPACKAGE_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIMEPACKAGE_PACKAGE_CONTROL_EXTRA ${debian}/triggers)
set(CPACK_DEBIAN_RUNTIMEPACKAGE_DESCRIPTION "${about}

This package contains the shared libraries.")
set(CPACK_DEBIAN_DEVELOPMENTPACKAGE_PACKAGE_NAME ${development})
set(CPACK_DEBIAN_DEVELOPMENTPACKAGE_PACKAGE_SECTION libdevel)
set(qt "qtbase5-dev (>= 5.15)")
if(MO_QT EQUAL 6)
    set(qt "qt6-base-dev (>= 6.4)")
endif()
set(CPACK_DEBIAN_DEVELOPMENTPACKAGE_PACKAGE_DEPENDS
    "${runtime} (= ${PROJECT_VERSION}-${revision}), ${qt}, libboost-dev")
set(CPACK_DEBIAN_DEVELOPMENTPACKAGE_DESCRIPTION "${about}

This package contains the headers and the CMake package.")

# What Debian wants in every package, and what lintian is to overlook, with the reasons.
configure_file(${debian}/changelog.in ${PROJECT_BINARY_DIR}/debian/changelog @ONLY)
execute_process(COMMAND gzip -9nc ${PROJECT_BINARY_DIR}/debian/changelog OUTPUT_FILE ${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz
                COMMAND_ERROR_IS_FATAL ANY)
foreach(package IN ITEMS ${runtime} ${development})
    install(FILES ${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz ${debian}/copyright
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${package} EXCLUDE_FROM_ALL)
    if(EXISTS ${debian}/${package}.lintian-overrides)
        install(FILES ${debian}/${package}.lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
                RENAME ${package} COMPONENT ${package} EXCLUDE_FROM_ALL)
    endif()
endforeach()

include(CPack)
cpack_add_component_group(RuntimePackage)
cpack_add_component_group(DevelopmentPackage)
foreach(component IN ITEMS Runtime ${runtime})
    cpack_add_component(${component} GROUP RuntimePackage)
endforeach()
foreach(component IN ITEMS Library Platform ${development})
    cpack_add_component(${component} GROUP DevelopmentPackage)
endforeach()
