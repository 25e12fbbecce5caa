# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# cmake -DDOCUMENT=<file> -DTESTS=<folder> -P CheckNamedTests.cmake
# Fails if the document names a test (`Class::slot`, `endtoend_name`) that there is not.
cmake_minimum_required(VERSION 3.25)

set(missing "")
file(READ ${DOCUMENT} text)
string(REGEX MATCHALL "`(PL[A-Za-z]+Test::[A-Za-z]+|endtoend_[a-z]+)`" names "${text}")
foreach(name IN LISTS names)
    string(REPLACE "`" "" name ${name})
    string(REGEX REPLACE ".*::" "" slot ${name})
    string(REGEX REPLACE "::.*|endtoend_" "" stem ${name})
    file(GLOB_RECURSE file ${TESTS}/${stem}.cpp ${TESTS}/endtoend/${stem}.sh)
    set(source "")
    if(file)
        file(READ ${file} source)
    endif()
    if(NOT file OR NOT (name MATCHES "^endtoend" OR source MATCHES "void ${slot}\\(\\);"))
        string(APPEND missing "\n  ${name}")
    endif()
endforeach()
if(NOT names OR missing)
    message(FATAL_ERROR "${DOCUMENT} names tests that there are not:${missing}")
endif()
