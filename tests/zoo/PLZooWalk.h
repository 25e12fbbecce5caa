// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "zoo/PLZoo.h"

#include <QTemporaryDir>

/// Makes the notebooks of a family one by one, each in a folder that goes with it, and visits them.
/// AQUILANE_ZOO=full makes the large ones as large as they get.
class PLZooWalk final
{
public:
    PLZooWalk();

    /// For the `_data` of a test: one row for each notebook.
    static void addRows(const std::vector<PLZooNotebook> &notebooks);
    /// Makes and visits the notebook of the current row. What is wrong, a line each; empty if nothing is.
    QString visit(const std::vector<PLZooNotebook> &notebooks) const;
};
