// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLDiskState.h"
#include "faults/PLNotebookView.h"
#include "foundation/PLError.h"

#include <functional>

/// Something that the program does to a notebook on disk. The notebook is "Roman" in the folder it is tried
/// in; beside it are "photo.jpg" and, for the trash, "home".
struct PLNotebookOperation
{
    using Action = std::function<bool(PLError *)>;
    using Question = std::function<bool(const PLNotebookView &)>;

    const char *name = nullptr;
    PLDiskState before;
    /// Does what comes before in the program, such as opening the notebook; the answer does it, as often as
    /// the writer asks for it.
    std::function<Action(const QString &folder)> prepare;
    /// Whether the notebook may look so while the operation is only half done; null if it must not.
    Question mayBeSeen = nullptr;
    /// Whether a part of it may fail without a word, since it is done again at the next opening or is only a
    /// convenience.
    bool isPartlySilent = false;
};

/// Every operation that changes a notebook.
QList<PLNotebookOperation> PLNotebookOperations();

/// A notebook with pages in three sections, to which operations are done.
PLDiskState PLNotebookOnDisk();

/// A text of that many bytes, unlike that of any other letter, no two sectors of it alike.
QByteArray PLPageText(char letter, qsizetype size);
