// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The files of a notebook on systems that are not Unix, by the toolkit's own means.

#include "storage/PLFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace {

int errorNumber(QFileDevice::FileError error)
{
    switch (error) {
    case QFileDevice::NoError:
        return 0;
    case QFileDevice::PermissionsError:
        return EACCES;
    case QFileDevice::ResourceError:
        return ENOSPC;
    default:
        return EIO;
    }
}

int refusal(const QFileInfo &target, PLWriteMode mode)
{
    if (!target.exists())
        return 0;
    if (mode == PLWriteMode::CreateNew)
        return EEXIST;
    if (target.isDir())
        return EISDIR;
    if (!target.isFile())
        return EINVAL;
    return target.isWritable() ? 0 : EACCES;
}

} // namespace

bool PLWriteFile(const QString &path, const QByteArray &data, PLWriteMode mode, PLError *error)
{
    if (const int failure = refusal(QFileInfo(path), mode))
        return PLFail(error, PLFileError(failure));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return PLFail(error, PLFileError(errorNumber(file.error())));
    // commit() drops the answer of the flush that it does itself: on a full disk the page would become empty.
    if (file.write(data) == data.size() && file.flush() && file.commit())
        return true;
    const int failure = errorNumber(file.error());
    return PLFail(error, PLFileError(failure == 0 ? EIO : failure));
}

std::optional<QByteArray> PLReadFile(const QString &path, PLError *error, qint64 limit)
{
    const QFileInfo information(path);
    int failure = 0;
    if (!information.exists())
        failure = ENOENT;
    else if (!information.isFile())
        failure = information.isDir() ? EISDIR : EINVAL;
    else if (information.size() > PLLargestFileSize)
        failure = EFBIG;
    QFile file(path);
    if (failure == 0 && !file.open(QIODevice::ReadOnly))
        failure = errorNumber(file.error());
    QByteArray bytes;
    if (failure == 0) {
        bytes = limit < 0 ? file.readAll() : file.read(limit);
        failure = errorNumber(file.error());
    }
    if (failure == 0)
        return bytes;
    PLFail(error, PLFileError(failure));
    return std::nullopt;
}

bool PLMoveFile(const QString &from, const QString &to, PLError *error)
{
    if (PLSomethingExistsAt(to))
        return PLFail(error, PLFileError(EEXIST));
    QFile file(from);
    return file.rename(to) || PLFail(error, PLFileError(errorNumber(file.error())));
}

bool PLReplaceFile(const QString &from, const QString &to, PLError *error)
{
    std::error_code failure;
    std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), failure);
    return !failure || PLFail(error, PLFileError(EIO));
}

bool PLCopyFile(const QString &from, const QString &to, PLError *error)
{
    const QFileInfo source(from);
    int failure = 0;
    if (PLSomethingExistsAt(to))
        failure = EEXIST;
    else if (!source.exists())
        failure = ENOENT;
    else if (!source.isFile())
        failure = source.isDir() ? EISDIR : EINVAL;
    else if (source.size() > PLLargestFileSize)
        failure = EFBIG;
    QFile file(from);
    if (failure == 0 && file.copy(to))
        return true;
    failure = failure == 0 ? errorNumber(file.error()) : failure;
    return PLFail(error, PLFileError(failure == 0 ? EIO : failure));
}

bool PLDeleteFile(const QString &path, PLError *error)
{
    QFile file(path);
    return !PLSomethingExistsAt(path) || file.remove() ||
           PLFail(error, PLFileError(errorNumber(file.error())));
}

bool PLCreateFolder(const QString &path, PLError *error)
{
    if (QDir().mkpath(path))
        return true;
    return PLFail(error, PLFileError(PLSomethingExistsAt(path) ? EEXIST : EACCES));
}

bool PLSomethingExistsAt(const QString &path)
{
    const QFileInfo information(path);
    return information.exists() || information.isSymLink();
}

bool PLFileExistsAt(const QString &path)
{
    const QFileInfo information(path);
    return information.exists() && !information.isDir();
}

bool PLIsSameFolder(const QString &left, const QString &right)
{
    const QString path = QFileInfo(left).canonicalFilePath();
    return !path.isEmpty() && QFileInfo(path).isDir() && QFileInfo(right) == QFileInfo(path);
}

void PLSweepTemporaryFiles(const QString &)
{
    // QSaveFile has names of its own, which could be a writer's too.
}
