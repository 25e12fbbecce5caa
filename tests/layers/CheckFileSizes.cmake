# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# cmake -DPROJECT=<folder> -P CheckFileSizes.cmake
# Fails if a file has grown past what one reads in one go. Above 300 lines (150 for a header) is already a hint.
cmake_minimum_required(VERSION 3.25)

set(too_long "")

# check_length(<most lines> <patterns>...)
function(check_length limit)
    file(GLOB_RECURSE files ${ARGN})
    foreach(file IN LISTS files)
        file(READ ${file} text)
        string(REGEX REPLACE "[^\n]+" "" line_ends "${text}")
        string(LENGTH "${line_ends}" lines)
        if(lines GREATER limit)
            string(APPEND too_long "\n  ${file}: ${lines} lines, at most ${limit}")
        endif()
    endforeach()
    set(too_long "${too_long}" PARENT_SCOPE)
endfunction()

check_length(400 ${PROJECT}/src/*.cpp ${PROJECT}/benchmarks/*.cpp ${PROJECT}/fuzz/*.cpp ${PROJECT}/examples/*.cpp)
check_length(180 ${PROJECT}/src/*.h ${PROJECT}/tests/*.h ${PROJECT}/benchmarks/*.h ${PROJECT}/examples/*.h)
# A test is a list of cases, read one at a time.
check_length(600 ${PROJECT}/tests/*.cpp)
if(too_long)
    message(FATAL_ERROR "To be divided:${too_long}")
endif()
