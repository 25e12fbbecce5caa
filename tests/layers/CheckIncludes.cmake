# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# cmake -DLAYER=<folder> -DSOURCES=<folder of the layers> -DQT_INCLUDES=<Qt's include folders> -P CheckIncludes.cmake
# Fails if a file of the layer includes what its layer may not.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Layers.cmake)

# <QString> must be a header of one of the layer's modules, <QtCore/QString> names its module.
function(is_allowed_qt_header header result)
    set(${result} FALSE PARENT_SCOPE)
    foreach(module IN LISTS ${LAYER}_qt_modules)
        if(header MATCHES "^Qt${module}/")
            set(${result} TRUE PARENT_SCOPE)
        endif()
        foreach(folder IN LISTS QT_INCLUDES)
            # Every module's folder stands beside the core's; on macOS it is a framework.
            cmake_path(GET folder PARENT_PATH parent)
            if(EXISTS ${parent}/Qt${module}/${header} OR EXISTS ${parent}/Qt${module}.framework/Headers/${header})
                set(${result} TRUE PARENT_SCOPE)
            endif()
        endforeach()
    endforeach()
endfunction()

function(is_allowed_project_header header result)
    cmake_path(GET header PARENT_PATH folder)
    set(${result} FALSE PARENT_SCOPE)
    if(folder IN_LIST ${LAYER}_may_include OR header IN_LIST ${LAYER}_may_include)
        set(${result} TRUE PARENT_SCOPE)
    endif()
endfunction()

set(breaches "")
file(GLOB_RECURSE files ${SOURCES}/${LAYER}/*.h ${SOURCES}/${LAYER}/*.cpp)
foreach(file IN LISTS files)
    file(STRINGS ${file} includes REGEX "^[ \t]*#[ \t]*include")
    foreach(include IN LISTS includes)
        set(allowed TRUE)
        if(include MATCHES "include[ \t]*(\"([^\"]+)\")")
            is_allowed_project_header(${CMAKE_MATCH_2} allowed)
        elseif(include MATCHES "include[ \t]*(<(Q[^>]*|q[a-z]+\\.h)>)")
            is_allowed_qt_header(${CMAKE_MATCH_2} allowed)
        endif()
        if(NOT allowed)
            string(APPEND breaches "\n  ${file} includes ${CMAKE_MATCH_1}")
        endif()
    endforeach()
endforeach()
if(breaches)
    message(FATAL_ERROR "Not for the layer ${LAYER} (tests/layers/Layers.cmake):${breaches}")
endif()
