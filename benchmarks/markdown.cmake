# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The renderer beside two others, which nothing else of the project uses.
find_path(MD4C_INCLUDE_DIR md4c-html.h REQUIRED)
find_library(MD4C_HTML_LIBRARY md4c-html REQUIRED)
find_path(CMARK_INCLUDE_DIR cmark.h REQUIRED)
find_library(CMARK_LIBRARY cmark REQUIRED)

add_executable(markdown_bench markdown_bench.cpp)
target_include_directories(markdown_bench PRIVATE ${MD4C_INCLUDE_DIR} ${CMARK_INCLUDE_DIR})
target_link_libraries(markdown_bench PRIVATE aquilane_markdown ${MD4C_HTML_LIBRARY} ${CMARK_LIBRARY} ICU::uc)
