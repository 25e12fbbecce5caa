# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The start of the program beside that of one bare window. It watches an X server, so only where there is X.
find_path(XCB_INCLUDE_DIR xcb/xcb.h)
find_library(XCB_LIBRARY xcb)
if(XCB_INCLUDE_DIR AND XCB_LIBRARY)
    add_executable(bare_window bare_window.cpp)
    target_link_libraries(bare_window PRIVATE aquilane_flags Qt6::Widgets)

    add_executable(cover_picture cover_picture.cpp)
    target_link_libraries(cover_picture PRIVATE aquilane_flags Qt6::Gui)

    add_executable(start_bench start_bench.cpp start_watch.cpp)
    target_include_directories(start_bench PRIVATE ${XCB_INCLUDE_DIR})
    target_link_libraries(start_bench PRIVATE aquilane_flags ${XCB_LIBRARY})
    add_dependencies(start_bench aquilane bare_window cover_picture)
endif()
