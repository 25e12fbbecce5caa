// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "storage/PLUnixFile.h"

#include <cstdio>

#include <fcntl.h>

namespace {

constexpr qsizetype chunkSize = qsizetype{256} * 1024; // bytes

/// Copies to the end of the source, which must not come before `size` bytes: it would have been cut short
/// while it was copied.
int copyBytes(const PLDescriptor &source, const PLDescriptor &target, qint64 size)
{
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    for (qint64 copied = 0;;) {
        const ssize_t count =
            PLRetried([&] { return ::read(source.number(), chunk.data(), size_t(chunk.size())); });
        if (count < 0)
            return errno;
        if (count == 0)
            return copied < size ? EIO : 0;
        copied += count;
        if (copied > PLLargestFileSize)
            return EFBIG;
        if (const int failure = PLWriteAll(target, QByteArrayView(chunk).first(count)))
            return failure;
    }
}

int fill(PLDescriptor &target, const PLDescriptor &source, qint64 size)
{
    if (const int failure = copyBytes(source, target, size))
        return failure;
    if (const int failure = PLFailureOf([&] { return ::fsync(target.number()); }))
        return failure;
    return target.close();
}

int copyFile(const QString &from, const QByteArray &to)
{
    PLDescriptor source;
    qint64 size = 0;
    if (const int failure = PLOpenForReading(from, source, size))
        return failure;
    PLDescriptor target(PLRetried(
        [&] { return ::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666); }));
    if (!target.isOpen())
        return errno;
    const int failure = fill(target, source, size);
    if (failure != 0)
        ::unlink(to.constData());
    return failure;
}

} // namespace

bool PLCopyFile(const QString &from, const QString &to, PLError *error)
{
    const int failure = copyFile(from, PLNativePath(to));
    return failure == 0 || PLFail(error, PLFileError(failure));
}
