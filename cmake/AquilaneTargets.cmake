# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The flags every target shares, and one function for each kind of target.

add_library(aquilane_flags INTERFACE)
target_include_directories(aquilane_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_definitions(aquilane_flags INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING
    QT_DISABLE_DEPRECATED_BEFORE=0x060400 U_NO_DEFAULT_INCLUDE_UTF_HEADERS=1)
if(NOT MSVC)
    target_compile_options(aquilane_flags INTERFACE -Wall -Wextra -Wshadow $<$<BOOL:${AQUILANE_WERROR}>:-Werror>)
endif()
if(AQUILANE_SANITIZE)
    target_compile_options(aquilane_flags INTERFACE -fsanitize=${AQUILANE_SANITIZE} -fno-sanitize-recover=all
                           -fno-omit-frame-pointer)
    target_link_options(aquilane_flags INTERFACE -fsanitize=${AQUILANE_SANITIZE})
endif()

# aquilane_library(<folder> SOURCES <files...> LINK <libraries...>): the static library of one folder of src/.
function(aquilane_library folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_library(aquilane_${folder} STATIC ${arg_SOURCES})
    target_link_libraries(aquilane_${folder} PUBLIC aquilane_flags ${arg_LINK})
endfunction()

# aquilane_test(<Name> LINK <libraries...>): a Qt Test program made of <Name>.cpp, run by CTest off-screen.
function(aquilane_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LINK")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE AQUILANE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE aquilane_flags ${arg_LINK} Qt6::Test)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp")
    set_property(GLOBAL APPEND PROPERTY AQUILANE_TEST_NAMES ${name})
endfunction()
