// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// make_zoo <new folder> [full]: makes every hostile notebook of the tests, to be opened by hand. With "full"
// the large ones are as large as they get, about 1.5 GB together.

#include "zoo/PLZoo.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <sys/stat.h>

int main(int count, char **arguments)
{
    const bool isFullSize = count == 3 && std::strcmp(arguments[2], "full") == 0;
    if ((count != 2 && !isFullSize) || ::mkdir(arguments[1], 0777) != 0) {
        std::fprintf(stderr, "Usage: %s <a folder that is not there yet> [full]\n", arguments[0]);
        return 1;
    }
    const std::unique_ptr<char, decltype(&std::free)> root(::realpath(arguments[1], nullptr), &std::free);
    for (const PLZooFamily &family : PLZooFamilies) {
        const QByteArray folder = QByteArray(root.get()) + '/' + family.name + '/';
        for (const PLZooNotebook &notebook : family.notebooks())
            notebook.make(PLZooCage(folder + notebook.name, folder + "outside/" + notebook.name, isFullSize));
    }
    return 0;
}
