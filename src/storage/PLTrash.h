// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLError.h"

#include <QString>

/// Moves a file to the desktop's trash, from where its file manager can restore it. On Linux this is the
/// freedesktop trash: the home trash on the disk of the home folder, `.Trash/uid` or `.Trash-uid` at the top
/// of another disk. A failure leaves the file where it is; nothing is ever deleted.
[[nodiscard]] bool PLMoveToTrash(const QString &path, PLError *error = nullptr);
