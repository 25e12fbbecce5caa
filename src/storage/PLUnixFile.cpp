// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLUnixFile.h"

#include "storage/PLFiles.h"

#include <QFile>

#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool isFolder(const QByteArray &path)
{
    struct stat status;
    return PLFailureOf([&] { return ::stat(path.constData(), &status); }) == 0 && S_ISDIR(status.st_mode);
}

/// For file systems that cannot refuse to replace in one step.
int renameInTwoSteps(const PLDescriptor &fromFolder, const QByteArray &from, const PLDescriptor &toFolder,
                     const QByteArray &to)
{
    const int source = fromFolder.number();
    const int target = toFolder.number();
    int failure = PLFailureOf([&] { return ::linkat(source, from.constData(), target, to.constData(), 0); });
    if (failure == 0) {
        failure = PLFailureOf([&] { return ::unlinkat(source, from.constData(), 0); });
        if (failure != 0)
            ::unlinkat(target, to.constData(), 0);
        return failure;
    }
    if (failure != EPERM && failure != ENOTSUP && failure != ENOSYS)
        return failure;
    // No hard links either, as on many memory sticks: the look and the rename are as near as can be.
    struct stat status;
    failure = PLFailureOf([&] { return ::fstatat(target, to.constData(), &status, AT_SYMLINK_NOFOLLOW); });
    if (failure != ENOENT)
        return failure == 0 ? EEXIST : failure;
    return PLFailureOf([&] { return ::renameat(source, from.constData(), target, to.constData()); });
}

int makeFolder(const PLPlace &place, mode_t mode)
{
    const PLDescriptor parent = PLOpenFolder(place.folder);
    if (!parent.isOpen())
        return errno;
    const int failure = PLFailureOf([&] { return ::mkdirat(parent.number(), place.name.constData(), mode); });
    return failure == 0 ? PLFlushFolder(parent) : failure;
}

} // namespace

QByteArray PLNativePath(const QString &path)
{
    return path.contains(QChar(QChar::Null)) ? QByteArray() : QFile::encodeName(path);
}

PLPlace PLPlaceOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return {QByteArrayLiteral("."), path};
    return {path.first(qMax<qsizetype>(1, slash)), path.sliced(slash + 1)};
}

int PLOpenForReading(const QString &path, PLDescriptor &file, qint64 &size)
{
    const QByteArray native = PLNativePath(path);
    file = PLDescriptor(
        PLRetried([&] { return ::open(native.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    if (!file.isOpen())
        return errno == ENXIO ? EINVAL : errno; // ENXIO: a socket
    struct stat status;
    if (const int failure = PLFailureOf([&] { return ::fstat(file.number(), &status); }))
        return failure;
    if (!S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    size = status.st_size;
    return size > PLLargestFileSize ? EFBIG : 0;
}

int PLWriteAll(const PLDescriptor &file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t count =
            PLRetried([&] { return ::write(file.number(), bytes.data(), size_t(bytes.size())); });
        if (count < 0)
            return errno;
        if (count == 0)
            return EIO; // never seen; a loop without end would be worse than an error
        bytes = bytes.sliced(count);
    }
    return 0;
}

PLDescriptor PLOpenFolder(const QByteArray &path)
{
    return PLDescriptor(
        PLRetried([&] { return ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
}

int PLFlushFolder(const PLDescriptor &folder)
{
    const int failure = PLFailureOf([&] { return ::fsync(folder.number()); });
    // Some network and user-space file systems have nothing to flush in a folder and say so in this way.
    return failure == EINVAL || failure == ENOTSUP ? 0 : failure;
}

int PLRenameWithoutReplacing(const PLDescriptor &fromFolder, const QByteArray &from,
                             const PLDescriptor &toFolder, const QByteArray &to)
{
#ifdef RENAME_NOREPLACE
    const int failure = PLFailureOf([&] {
        return ::renameat2(fromFolder.number(), from.constData(), toFolder.number(), to.constData(),
                           RENAME_NOREPLACE);
    });
    if (failure != EINVAL && failure != ENOSYS && failure != ENOTSUP)
        return failure;
#endif
    return renameInTwoSteps(fromFolder, from, toFolder, to);
}

int PLMakeFolders(const QByteArray &path, mode_t mode)
{
    if (isFolder(path))
        return 0;
    const PLPlace place = PLPlaceOf(path);
    if (place.name.isEmpty())
        return path.size() > 1 ? PLMakeFolders(place.folder, mode) : ENOENT;
    if (const int failure = isFolder(place.folder) ? 0 : PLMakeFolders(place.folder, mode))
        return failure;
    const int failure = makeFolder(place, mode);
    // Somebody else may have made it a moment ago.
    return failure == EEXIST && isFolder(path) ? 0 : failure;
}
