// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "storage/PLUnixFile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

/// Reads up to `limit` bytes; `size` is only where to begin, as the file may be growing.
int readAll(const PLDescriptor &file, qint64 size, qint64 limit, QByteArray &bytes)
{
    bytes.resize(qMin(size + 1, limit));
    qsizetype length = 0;
    while (length < limit) {
        if (length == bytes.size())
            bytes.resize(qMin(2 * length, limit));
        const size_t room = size_t(bytes.size() - length);
        const ssize_t count = PLRetried([&] { return ::read(file.number(), bytes.data() + length, room); });
        if (count < 0)
            return errno;
        if (count == 0)
            break;
        length += count;
    }
    bytes.truncate(length);
    return length > PLLargestFileSize ? EFBIG : 0;
}

bool isSameFolder(const PLDescriptor &left, const PLDescriptor &right)
{
    struct stat leftStatus;
    struct stat rightStatus;
    return ::fstat(left.number(), &leftStatus) == 0 && ::fstat(right.number(), &rightStatus) == 0 &&
           leftStatus.st_dev == rightStatus.st_dev && leftStatus.st_ino == rightStatus.st_ino;
}

int flushFolders(const PLDescriptor &from, const PLDescriptor &to)
{
    const int failure = PLFlushFolder(to);
    return failure != 0 || isSameFolder(from, to) ? failure : PLFlushFolder(from);
}

int moveFile(const PLPlace &from, const PLPlace &to)
{
    const PLDescriptor fromFolder = PLOpenFolder(from.folder);
    if (!fromFolder.isOpen())
        return errno;
    const PLDescriptor toFolder = PLOpenFolder(to.folder);
    if (!toFolder.isOpen())
        return errno;
    if (const int failure = PLRenameWithoutReplacing(fromFolder, from.name, toFolder, to.name))
        return failure;
    const int failure = flushFolders(fromFolder, toFolder);
    if (failure == 0)
        return 0;
    // What is answered is where the file is. If it cannot even go back, it has been moved.
    return PLRenameWithoutReplacing(toFolder, to.name, fromFolder, from.name) == 0 ? failure : 0;
}

/// Makes a system call that changes the names in a folder, and flushes the folder.
template <typename Call>
int inFolder(const QByteArray &path, Call call)
{
    const PLDescriptor folder = PLOpenFolder(path);
    if (!folder.isOpen())
        return errno;
    const int failure = PLFailureOf([&] { return call(folder.number()); });
    return failure == 0 ? PLFlushFolder(folder) : failure;
}

/// What is not there need not be deleted; but a folder that cannot be opened or flushed is a failure.
int deleteFile(const PLPlace &place)
{
    const PLDescriptor folder = PLOpenFolder(place.folder);
    if (!folder.isOpen())
        return errno;
    const int failure = PLFailureOf([&] { return ::unlinkat(folder.number(), place.name.constData(), 0); });
    if (failure == ENOENT)
        return 0;
    return failure == 0 ? PLFlushFolder(folder) : failure;
}

bool isTemporaryName(const QString &name)
{
    constexpr QStringView prefix = u".aquilane-";
    constexpr QStringView suffix = u".tmp";
    constexpr qsizetype digits = 8;
    if (name.size() != prefix.size() + digits + suffix.size() || !name.startsWith(prefix) ||
        !name.endsWith(suffix))
        return false;
    const QStringView number = QStringView(name).sliced(prefix.size(), digits);
    return std::all_of(number.begin(), number.end(), [](QChar digit) {
        return (digit >= u'0' && digit <= u'9') || (digit >= u'a' && digit <= u'f');
    });
}

bool isRegularFile(const PLDescriptor &folder, const QByteArray &name)
{
    struct stat status;
    return ::fstatat(folder.number(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISREG(status.st_mode);
}

} // namespace

std::optional<QByteArray> PLReadFile(const QString &path, PLError *error, qint64 limit)
{
    PLDescriptor file;
    qint64 size = 0;
    QByteArray bytes;
    int failure = PLOpenForReading(path, file, size);
    if (failure == 0)
        failure = readAll(file, size, limit < 0 ? PLLargestFileSize + 1 : limit, bytes);
    if (failure == 0)
        return bytes;
    PLFail(error, PLFileError(failure));
    return std::nullopt;
}

bool PLMoveFile(const QString &from, const QString &to, PLError *error)
{
    const int failure = moveFile(PLPlaceOf(PLNativePath(from)), PLPlaceOf(PLNativePath(to)));
    return failure == 0 || PLFail(error, PLFileError(failure));
}

bool PLReplaceFile(const QString &from, const QString &to, PLError *error)
{
    const PLPlace source = PLPlaceOf(PLNativePath(from));
    const PLPlace target = PLPlaceOf(PLNativePath(to));
    const int failure = inFolder(target.folder, [&](int folder) {
        return ::renameat(folder, source.name.constData(), folder, target.name.constData());
    });
    return failure == 0 || PLFail(error, PLFileError(failure));
}

bool PLDeleteFile(const QString &path, PLError *error)
{
    const int failure = deleteFile(PLPlaceOf(PLNativePath(path)));
    return failure == 0 || PLFail(error, PLFileError(failure));
}

bool PLCreateFolder(const QString &path, PLError *error)
{
    const int failure = PLMakeFolders(PLNativePath(path), 0777);
    return failure == 0 || PLFail(error, PLFileError(failure));
}

bool PLSomethingExistsAt(const QString &path)
{
    struct stat status;
    const QByteArray native = PLNativePath(path);
    return PLFailureOf([&] { return ::lstat(native.constData(), &status); }) == 0;
}

bool PLFileExistsAt(const QString &path)
{
    struct stat status;
    const QByteArray native = PLNativePath(path);
    return PLFailureOf([&] { return ::stat(native.constData(), &status); }) == 0 && !S_ISDIR(status.st_mode);
}

bool PLIsSameFolder(const QString &left, const QString &right)
{
    struct stat leftStatus;
    struct stat rightStatus;
    return ::stat(PLNativePath(left).constData(), &leftStatus) == 0 &&
           ::stat(PLNativePath(right).constData(), &rightStatus) == 0 && S_ISDIR(leftStatus.st_mode) &&
           leftStatus.st_dev == rightStatus.st_dev && leftStatus.st_ino == rightStatus.st_ino;
}

void PLSweepTemporaryFiles(const QString &path)
{
    const PLDescriptor folder = PLOpenFolder(PLNativePath(path));
    if (!folder.isOpen())
        return;
    const QStringList names = PLFileNamesInFolder(path);
    for (const QString &name : names) {
        const QByteArray native = PLNativePath(name);
        if (isTemporaryName(name) && isRegularFile(folder, native))
            ::unlinkat(folder.number(), native.constData(), 0);
    }
}
