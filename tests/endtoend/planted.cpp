// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// A library that says when it is loaded: it makes the file that AQUILANE_PLANTED names.

#include <cstdio>
#include <cstdlib>

namespace {

struct Planted
{
    Planted()
    {
        const char *path = std::getenv("AQUILANE_PLANTED");
        if (std::FILE *file = path ? std::fopen(path, "w") : nullptr)
            std::fclose(file);
    }
} planted;

} // namespace
