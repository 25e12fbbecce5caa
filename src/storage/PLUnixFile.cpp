// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLUnixFile.h"

#include <QFile>

#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool isFolder(const QByteArray &path)
{
    struct stat status;
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// For file systems that cannot refuse to replace in one step.
int renameInTwoSteps(const PLDescriptor &fromFolder, const QByteArray &from, const PLDescriptor &toFolder,
                     const QByteArray &to)
{
    if (::linkat(fromFolder.number(), from.constData(), toFolder.number(), to.constData(), 0) == 0) {
        if (::unlinkat(fromFolder.number(), from.constData(), 0) == 0)
            return 0;
        const int failure = errno;
        ::unlinkat(toFolder.number(), to.constData(), 0);
        return failure;
    }
    if (errno != EPERM && errno != ENOTSUP && errno != ENOSYS)
        return errno;
    // No hard links either, as on many memory sticks: the look and the rename are as near as can be.
    struct stat status;
    if (::fstatat(toFolder.number(), to.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0)
        return EEXIST;
    if (errno != ENOENT)
        return errno;
    return ::renameat(fromFolder.number(), from.constData(), toFolder.number(), to.constData()) == 0 ? 0
                                                                                                     : errno;
}

int makeFolder(const PLPlace &place, mode_t mode)
{
    const PLDescriptor parent = PLOpenFolder(place.folder);
    if (!parent.isOpen())
        return errno;
    if (::mkdirat(parent.number(), place.name.constData(), mode) != 0)
        return errno;
    return PLFlushFolder(parent);
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

PLDescriptor PLOpenFolder(const QByteArray &path)
{
    return PLDescriptor(
        PLRetried([&] { return ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
}

int PLFlushFolder(const PLDescriptor &folder)
{
    if (PLRetried([&] { return ::fsync(folder.number()); }) == 0)
        return 0;
    // Some network and user-space file systems have nothing to flush in a folder and say so in this way.
    return errno == EINVAL || errno == ENOTSUP ? 0 : errno;
}

int PLRenameWithoutReplacing(const PLDescriptor &fromFolder, const QByteArray &from,
                             const PLDescriptor &toFolder, const QByteArray &to)
{
#ifdef RENAME_NOREPLACE
    if (PLRetried([&] {
            return ::renameat2(fromFolder.number(), from.constData(), toFolder.number(), to.constData(),
                               RENAME_NOREPLACE);
        }) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP)
        return errno;
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
