include_guard(GLOBAL)

# Finds the Qt that MO_QT names. The sources are the same for each; its targets are written Qt${MO_QT}::Core.
set(least_5 5.15)
set(least_6 6.4)
set(MO_QT_LEAST ${least_${MO_QT}})

# Two versions of Qt in one process destroy each other.
math(EXPR MO_QT_OTHER "11 - ${MO_QT}")
if(TARGET Qt${MO_QT_OTHER}::Core AND NOT TARGET Qt${MO_QT}::Core)
    message(FATAL_ERROR "MO_QT is ${MO_QT}, but the including project has found Qt ${MO_QT_OTHER}: set MO_QT to ${MO_QT_OTHER}")
endif()
find_package(Qt${MO_QT} ${MO_QT_LEAST} REQUIRED COMPONENTS Core Gui Widgets)
