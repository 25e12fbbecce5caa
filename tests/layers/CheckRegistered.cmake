# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# cmake -DREGISTERED=<names> -DTESTS=<folder> -P CheckRegistered.cmake
# Fails if there is a test program's source that no aquilane_test() names.
cmake_minimum_required(VERSION 3.25)

set(forgotten "")
file(GLOB_RECURSE files ${TESTS}/*Test.cpp)
foreach(file IN LISTS files)
    cmake_path(GET file STEM name)
    if(NOT name IN_LIST REGISTERED)
        string(APPEND forgotten "\n  ${file}")
    endif()
endforeach()
if(NOT files)
    message(FATAL_ERROR "There are no tests in ${TESTS}")
endif()
if(forgotten)
    message(FATAL_ERROR "Not registered with aquilane_test(), so never run:${forgotten}")
endif()
