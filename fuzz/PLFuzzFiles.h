// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "PLFuzzInput.h"

#include <QDir>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

/// The pattern of a QTemporaryDir, in memory where the system has such a place: a fuzzer makes many files.
inline QString PLFuzzFolderPattern(const QString &what)
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QDir(memory).exists() ? memory : QDir::tempPath()) + QStringLiteral("/aquilane-") + what +
           QStringLiteral("-XXXXXX");
}

/// Makes the file, or gives it these bytes, by the system's own means.
inline void PLWriteFuzzFile(const QByteArray &path, const QByteArray &bytes)
{
    const int file = open(path.constData(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0600);
    PLRequire(file >= 0 && write(file, bytes.constData(), size_t(bytes.size())) == bytes.size(),
              "a file can be made");
    close(file);
}
