// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLSection.h"

#include <QString>

class PLProject;

/// The name that a page has between the two moves of a change of case: "aquilane-unique.tmp" in the page's
/// folder. The old name is written into it where it fits, so that no crash can lose a page.
QString PLTemporaryPathForRename(const QString &pagePath);

/// The hidden name of a new cover that is being put in place: ".couverture-unique.extension" in the folder.
QString PLTemporaryPathForCover(const QString &folder, const QString &extension);

/// True for the name of a file that PLTemporaryPathForRename can have named.
bool PLIsTemporaryNameForRename(const QString &fileName);

/// Gives the pages of a section that a crash or a failing disk left under a temporary name their names back.
void PLRecoverRenames(const PLProject &project, PLSection section);

/// Puts right what a crash left in a notebook: pages that were being renamed get their old name back (or a
/// free one, if it is taken or unknown); temporary files of writes and of covers that were never finished are
/// deleted.
void PLRecoverNotebook(const PLProject &project);
