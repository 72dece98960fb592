# Runs between the installation into the packages' folders and their packing.

# The components Library and Platform are complete: what the runtime package has of them is removed from the other one.
set(folder ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
file(GLOB_RECURSE twice ${folder}/DevelopmentPackage/*.so.*)
file(GLOB_RECURSE libraries ${folder}/RuntimePackage/*.so.*)
if(NOT twice OR NOT libraries)
    message(FATAL_ERROR "no libraries below ${folder}")
endif()
file(REMOVE ${twice})

# The compiler's name, which stripping leaves in.
execute_process(COMMAND strip --remove-section=.comment ${libraries} COMMAND_ERROR_IS_FATAL ANY)
