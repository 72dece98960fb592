# Runs between the installation into the packages' folders and their packing.

# The components Library and Platform are complete: what the runtime package has of them is removed from the other one.
set(folder ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
file(GLOB_RECURSE runtime RELATIVE ${folder}/RuntimePackage ${folder}/RuntimePackage/*)
if(NOT runtime)
    message(FATAL_ERROR "nothing below ${folder}/RuntimePackage")
endif()
foreach(file IN LISTS runtime)
    file(REMOVE ${folder}/DevelopmentPackage/${file})
endforeach()
execute_process(COMMAND find ${folder}/DevelopmentPackage -type d -empty -delete COMMAND_ERROR_IS_FATAL ANY)

# The compiler's name, which stripping leaves in.
file(GLOB_RECURSE libraries ${folder}/RuntimePackage/*.so.*)
execute_process(COMMAND strip --remove-section=.comment ${libraries} COMMAND_ERROR_IS_FATAL ANY)
