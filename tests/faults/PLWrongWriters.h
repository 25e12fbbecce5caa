// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLNotebookOperations.h"

/// Ways to save a page that are in use and wrong. A proof that finds nothing wrong with one of them proves
/// nothing.
struct PLWrongWriter
{
    PLNotebookOperation operation;
    bool mayDamage = false;   ///< a power cut can leave neither the old nor the new text
    bool mayBeUndone = false; ///< a power cut after the answer can bring the old text back
};

QList<PLWrongWriter> PLWrongWriters();
