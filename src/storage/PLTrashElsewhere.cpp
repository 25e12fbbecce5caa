// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The trash of macOS and Windows, by the toolkit's own means.

#include "storage/PLFiles.h"
#include "storage/PLTrash.h"

#include <QFile>

#include <cerrno>

bool PLMoveToTrash(const QString &path, PLError *error)
{
    QFile file(path);
    return file.moveToTrash() || PLFail(error, PLFileError(file.exists() ? EACCES : ENOENT));
}
