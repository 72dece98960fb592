include_guard(GLOBAL)
include(CMakePackageConfigHelpers)

configure_package_config_file(cmake/moUndoStackConfig.cmake.in ${PROJECT_BINARY_DIR}/moUndoStackConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/moUndoStack)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/moUndoStackConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/moUndoStackConfig.cmake ${PROJECT_BINARY_DIR}/moUndoStackConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/moUndoStack)
if(MO_OPENSG STREQUAL "installed")
    install(FILES cmake/FindOpenSG.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/moUndoStack)
endif()
if(MO_PLATFORM STREQUAL "reference")
    install(EXPORT moUndoStackTargets NAMESPACE mo:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/moUndoStack)
endif()
