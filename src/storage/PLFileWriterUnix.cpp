// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "storage/PLUnixFile.h"

#include <QRandomGenerator>

#include <climits>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr int mostLinksFollowed = 40; // as Linux does
constexpr int mostNamesTried = 100;

/// The file that a write is about.
struct Target
{
    PLDescriptor folder;
    QByteArray name;
    bool exists = false;
    mode_t permissions = 0; ///< of the file that exists
};

/// Follows the links at the end of the path; a dangling one leads to the file that is to be created.
int followLinks(QByteArray &path)
{
    for (int links = 0; links <= mostLinksFollowed; ++links) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t length =
            PLRetried([&] { return ::readlink(path.constData(), target.data(), size_t(target.size())); });
        if (length < 0)
            return errno == EINVAL || errno == ENOENT ? 0 : errno;
        target.truncate(length);
        path = target.startsWith('/') ? target : PLPlaceOf(path).folder + '/' + target;
    }
    return ELOOP;
}

/// Why the file that is there cannot be replaced, or 0.
int refusal(const Target &target, const struct stat &status, PLWriteMode mode)
{
    if (mode == PLWriteMode::CreateNew)
        return EEXIST;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    if (!S_ISREG(status.st_mode))
        return EINVAL;
    // A rename would replace a file that nobody may write to; any other program would refuse.
    const int folder = target.folder.number();
    return PLFailureOf([&] { return ::faccessat(folder, target.name.constData(), W_OK, AT_EACCESS); });
}

int findTarget(QByteArray path, PLWriteMode mode, Target &target)
{
    if (const int failure = mode == PLWriteMode::Replace ? followLinks(path) : 0)
        return failure;
    const PLPlace place = PLPlaceOf(path);
    if (place.name.isEmpty())
        return path.isEmpty() ? ENOENT : EISDIR;
    target.name = place.name;
    target.folder = PLOpenFolder(place.folder);
    if (!target.folder.isOpen())
        return errno;
    struct stat status;
    const int failure = PLFailureOf([&] {
        return ::fstatat(target.folder.number(), target.name.constData(), &status, AT_SYMLINK_NOFOLLOW);
    });
    if (failure != 0)
        return failure == ENOENT ? 0 : failure;
    target.exists = true;
    target.permissions = status.st_mode & 07777;
    return refusal(target, status, mode);
}

QByteArray temporaryName()
{
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate(), 16);
    return QByteArrayLiteral(".aquilane-") + number.rightJustified(8, '0') + QByteArrayLiteral(".tmp");
}

/// A new file beside the target, for its owner only while it will replace one.
int createTemporary(const Target &target, QByteArray &name, PLDescriptor &file)
{
    const mode_t mode = target.exists ? 0600 : 0666;
    for (int tries = 0; tries < mostNamesTried; ++tries) {
        name = temporaryName();
        file = PLDescriptor(PLRetried([&] {
            return ::openat(target.folder.number(), name.constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        }));
        if (file.isOpen())
            return 0;
        if (errno != EEXIST)
            return errno;
    }
    return EEXIST;
}

int keepPermissions(const PLDescriptor &file, const Target &target)
{
    if (!target.exists)
        return 0;
    const int failure = PLFailureOf([&] { return ::fchmod(file.number(), target.permissions); });
    // Disks without permissions, as most memory sticks, refuse this; the text matters more.
    return failure == EPERM || failure == ENOTSUP || failure == ENOSYS ? 0 : failure;
}

int fill(PLDescriptor &file, const Target &target, const QByteArray &data)
{
    if (const int failure = PLWriteAll(file, data))
        return failure;
    if (const int failure = keepPermissions(file, target))
        return failure;
    if (const int failure = PLFailureOf([&] { return ::fsync(file.number()); }))
        return failure;
    return file.close();
}

int putInPlace(const Target &target, const QByteArray &temporary, PLWriteMode mode)
{
    if (mode == PLWriteMode::CreateNew)
        return PLRenameWithoutReplacing(target.folder, temporary, target.folder, target.name);
    const int folder = target.folder.number();
    return PLFailureOf(
        [&] { return ::renameat(folder, temporary.constData(), folder, target.name.constData()); });
}

int writeFile(const QString &path, const QByteArray &data, PLWriteMode mode)
{
    Target target;
    if (const int failure = findTarget(PLNativePath(path), mode, target))
        return failure;
    QByteArray temporary;
    PLDescriptor file;
    if (const int failure = createTemporary(target, temporary, file))
        return failure;
    int failure = fill(file, target, data);
    if (failure == 0)
        failure = putInPlace(target, temporary, mode);
    if (failure != 0) {
        ::unlinkat(target.folder.number(), temporary.constData(), 0);
        return failure;
    }
    failure = PLFlushFolder(target.folder);
    // A new file that was reported as failed must not be there when the writer tries again.
    if (failure != 0 && mode == PLWriteMode::CreateNew)
        ::unlinkat(target.folder.number(), target.name.constData(), 0);
    return failure;
}

} // namespace

bool PLWriteFile(const QString &path, const QByteArray &data, PLWriteMode mode, PLError *error)
{
    const int failure = writeFile(path, data, mode);
    return failure == 0 || PLFail(error, PLFileError(failure));
}
