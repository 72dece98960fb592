# Runs between the installation into the packages' folders and their packing.
file(GLOB_RECURSE libraries ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/DevelopmentPackage/*.so.*)
if(NOT libraries)
    message(FATAL_ERROR "no libraries below ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/DevelopmentPackage")
endif()
file(REMOVE ${libraries})
