// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLNotebookOperations.h"

/// What became of an operation in all the power cuts that could have struck it.
struct PLCrashProof
{
    qint64 states = 0;             ///< different ones, each built on disk and opened
    qint64 damaged = 0;            ///< those that show neither what was before nor what was to be
    qint64 acknowledgedButOld = 0; ///< those after the answer that are not what was to be
    QString fault;                 ///< the first of them, or why nothing could be proved

    /// Does the operation in the folder, whatever is in it, and opens each state that may be left. If
    /// `forgottenFlush` is not negative, as if that flush of it, counted from 0, had not been made.
    static PLCrashProof of(const PLNotebookOperation &operation, const QString &folder,
                           int forgottenFlush = -1);

    /// How many flushes the operation makes.
    static int flushesOf(const PLNotebookOperation &operation, const QString &folder);
};
