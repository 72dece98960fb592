include_guard(GLOBAL)

# mo_choice(<option> <help> <known values>...): a cache variable with one of these values, by default the first.
function(mo_choice option help)
    list(GET ARGN 0 default)
    set(${option} ${default} CACHE STRING "${help}")
    set_property(CACHE ${option} PROPERTY STRINGS ${ARGN})
    if(NOT ${option} IN_LIST ARGN)
        list(JOIN ARGN ", " known)
        message(FATAL_ERROR "${option} is \"${${option}}\", but must be one of: ${known}")
    endif()
endfunction()
