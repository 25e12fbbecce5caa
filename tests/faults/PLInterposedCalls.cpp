// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The functions of the C library that touch files, in front of the C library's own. Those that the model of
// the disk does not know are recorded as such, so that no test can overlook them.

#include "faults/PLFileCallRecorder.h"
#include "faults/PLInterposed.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

using Kind = PLFileCall::Kind;

/// The C library's own function of this name.
#define AQUILANE_REAL(name)                                                                                  \
    ([] {                                                                                                    \
        static const auto function = reinterpret_cast<decltype(&::name)>(::dlsym(RTLD_NEXT, #name));         \
        return function;                                                                                     \
    }())

/// Makes the call, or the fault that is to strike, and writes down what came of it.
template <typename Real>
auto made(PLFileCall call, Real real) -> decltype(real())
{
    call.error = PLInterposed::errorFor(call);
    if (call.error != 0) {
        PLInterposed::note(call);
        errno = call.error;
        return -1;
    }
    const auto result = real();
    const int error = errno;
    call.error = result < 0 ? error : 0;
    PLInterposed::note(call);
    errno = error;
    return result;
}

template <typename Real>
int madeOnPath(Kind kind, int folder, const char *path, Real real)
{
    const std::optional<QByteArray> below = PLInterposed::pathBelow(folder, path);
    if (!below)
        return real();
    PLFileCall call;
    call.kind = kind;
    call.path = *below;
    return made(call, real);
}

template <typename Real>
auto madeOnFile(Kind kind, int number, Real real) -> decltype(real())
{
    const std::optional<PLFileCall> call = PLInterposed::callOnFile(number, kind);
    return call ? made(*call, real) : real();
}

struct Names
{
    int fromFolder;
    const char *from;
    int toFolder;
    const char *to;
};

template <typename Real>
int madeOnNames(Kind kind, const Names &names, Real real)
{
    const std::optional<QByteArray> from = PLInterposed::pathBelow(names.fromFolder, names.from);
    const std::optional<QByteArray> to = PLInterposed::pathBelow(names.toFolder, names.to);
    if (!from && !to)
        return real();
    PLFileCall call;
    call.kind = from && to ? kind : Kind::Unknown; // in or out of the recorded folder
    call.path = from.value_or(QByteArray());
    call.otherPath = to.value_or(QByteArray());
    return made(call, real);
}

int opened(int folder, const char *path, int flags, mode_t mode)
{
    const auto real = [&] { return AQUILANE_REAL(openat)(folder, path, flags, mode); };
    const std::optional<QByteArray> below = PLInterposed::pathBelow(folder, path);
    if (!below)
        return real();
    struct stat status = {};
    const bool isThere = AQUILANE_REAL(fstatat)(folder, path, &status, 0) == 0;
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    PLFileCall call;
    call.path = *below;
    call.kind = isUnnamed ? Kind::Unknown : (flags & O_CREAT) && !isThere ? Kind::Create : Kind::Open;
    call.isFolder = isThere && S_ISDIR(status.st_mode);
    call.error = PLInterposed::errorFor(call);
    const int number = call.error == 0 ? real() : -1;
    if (number < 0) {
        call.error = call.error != 0 ? call.error : errno;
        PLInterposed::note(call);
        errno = call.error;
        return -1;
    }
    AQUILANE_REAL(fstat)(number, &status);
    call.mode = status.st_mode & 07777;
    PLInterposed::noteOpened(call, number);
    if ((flags & O_TRUNC) && isThere && !call.isFolder)
        PLInterposed::note(*PLInterposed::callOnFile(number, Kind::Truncate));
    return number;
}

ssize_t written(int number, const void *bytes, size_t count)
{
    std::optional<PLFileCall> call = PLInterposed::callOnFile(number, Kind::Write);
    if (!call)
        return AQUILANE_REAL(write)(number, bytes, count);
    call->error = PLInterposed::errorFor(*call);
    ssize_t result = -1;
    if (call->error == 0) {
        result = AQUILANE_REAL(write)(number, bytes, PLInterposed::bytesTaken(*call, count));
        call->error = result < 0 ? errno : 0;
    }
    if (result > 0) {
        call->offset = ::lseek(number, 0, SEEK_CUR) - result;
        call->bytes = QByteArray(static_cast<const char *>(bytes), result);
    }
    PLInterposed::note(*call);
    errno = call->error;
    return result;
}

int flushed(int number, int (*real)(int))
{
    return madeOnFile(Kind::Flush, number,
                      [&] { return PLFileCallRecorder::isFlushing() ? real(number) : 0; });
}

int truncated(int number, off_t size)
{
    std::optional<PLFileCall> call = PLInterposed::callOnFile(number, Kind::Truncate);
    const auto real = [&] { return AQUILANE_REAL(ftruncate)(number, size); };
    if (!call)
        return real();
    call->offset = size;
    return made(*call, real);
}

} // namespace

extern "C" {

int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return opened(folder, path, flags, mode);
}

int openat64(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return opened(folder, path, flags, mode);
}

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return opened(AT_FDCWD, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return opened(AT_FDCWD, path, flags, mode);
}

int creat(const char *path, mode_t mode)
{
    return opened(AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, mode);
}

DIR *opendir(const char *path)
{
    DIR *folder = nullptr;
    madeOnPath(Kind::Read, AT_FDCWD, path, [&] {
        folder = AQUILANE_REAL(opendir)(path);
        return folder ? 0 : -1;
    });
    return folder;
}

ssize_t read(int number, void *bytes, size_t count)
{
    return madeOnFile(Kind::Read, number, [&] { return AQUILANE_REAL(read)(number, bytes, count); });
}

ssize_t write(int number, const void *bytes, size_t count)
{
    return written(number, bytes, count);
}

ssize_t pwrite(int number, const void *bytes, size_t count, off_t offset)
{
    return madeOnFile(Kind::Unknown, number,
                      [&] { return AQUILANE_REAL(pwrite)(number, bytes, count, offset); });
}

ssize_t pwrite64(int number, const void *bytes, size_t count, off64_t offset)
{
    return madeOnFile(Kind::Unknown, number,
                      [&] { return AQUILANE_REAL(pwrite64)(number, bytes, count, offset); });
}

ssize_t writev(int number, const iovec *pieces, int count)
{
    return madeOnFile(Kind::Unknown, number, [&] { return AQUILANE_REAL(writev)(number, pieces, count); });
}

int fsync(int number)
{
    return flushed(number, AQUILANE_REAL(fsync));
}

int fdatasync(int number)
{
    return flushed(number, AQUILANE_REAL(fdatasync));
}

int close(int number)
{
    const std::optional<PLFileCall> call = PLInterposed::callOnFile(number, Kind::Close);
    if (!call)
        return AQUILANE_REAL(close)(number);
    PLInterposed::forget(number);
    // What reports an error has closed all the same, as on Linux.
    const int result = AQUILANE_REAL(close)(number);
    return made(*call, [&] { return result; });
}

int rename(const char *from, const char *to) noexcept
{
    return madeOnNames(Kind::Rename, {AT_FDCWD, from, AT_FDCWD, to},
                       [&] { return AQUILANE_REAL(rename)(from, to); });
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    return madeOnNames(Kind::Rename, {fromFolder, from, toFolder, to},
                       [&] { return AQUILANE_REAL(renameat)(fromFolder, from, toFolder, to); });
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    const Kind kind = (flags & ~unsigned(RENAME_NOREPLACE)) == 0 ? Kind::Rename : Kind::Unknown;
    return madeOnNames(kind, {fromFolder, from, toFolder, to},
                       [&] { return AQUILANE_REAL(renameat2)(fromFolder, from, toFolder, to, flags); });
}

int link(const char *from, const char *to) noexcept
{
    return madeOnNames(Kind::Link, {AT_FDCWD, from, AT_FDCWD, to},
                       [&] { return AQUILANE_REAL(link)(from, to); });
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return madeOnNames(Kind::Link, {fromFolder, from, toFolder, to},
                       [&] { return AQUILANE_REAL(linkat)(fromFolder, from, toFolder, to, flags); });
}

int unlink(const char *path) noexcept
{
    return madeOnPath(Kind::Unlink, AT_FDCWD, path, [&] { return AQUILANE_REAL(unlink)(path); });
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    const Kind kind = flags & AT_REMOVEDIR ? Kind::RemoveFolder : Kind::Unlink;
    return madeOnPath(kind, folder, path, [&] { return AQUILANE_REAL(unlinkat)(folder, path, flags); });
}

int remove(const char *path) noexcept
{
    return madeOnPath(Kind::Unknown, AT_FDCWD, path, [&] { return AQUILANE_REAL(remove)(path); });
}

int rmdir(const char *path) noexcept
{
    return madeOnPath(Kind::RemoveFolder, AT_FDCWD, path, [&] { return AQUILANE_REAL(rmdir)(path); });
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return madeOnPath(Kind::MakeFolder, AT_FDCWD, path, [&] { return AQUILANE_REAL(mkdir)(path, mode); });
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    return madeOnPath(Kind::MakeFolder, folder, path,
                      [&] { return AQUILANE_REAL(mkdirat)(folder, path, mode); });
}

int symlink(const char *target, const char *path) noexcept
{
    return madeOnPath(Kind::Unknown, AT_FDCWD, path, [&] { return AQUILANE_REAL(symlink)(target, path); });
}

int chmod(const char *path, mode_t mode) noexcept
{
    return madeOnPath(Kind::Unknown, AT_FDCWD, path, [&] { return AQUILANE_REAL(chmod)(path, mode); });
}

int fchmod(int number, mode_t mode) noexcept
{
    std::optional<PLFileCall> call = PLInterposed::callOnFile(number, Kind::SetMode);
    const auto real = [&] { return AQUILANE_REAL(fchmod)(number, mode); };
    if (!call)
        return real();
    call->mode = mode;
    return made(*call, real);
}

int truncate(const char *path, off_t size) noexcept
{
    return madeOnPath(Kind::Unknown, AT_FDCWD, path, [&] { return AQUILANE_REAL(truncate)(path, size); });
}

int ftruncate(int number, off_t size) noexcept
{
    return truncated(number, size);
}

int ftruncate64(int number, off64_t size) noexcept
{
    return truncated(number, size);
}

int stat(const char *path, struct stat *status) noexcept
{
    return madeOnPath(Kind::Look, AT_FDCWD, path, [&] { return AQUILANE_REAL(stat)(path, status); });
}

int lstat(const char *path, struct stat *status) noexcept
{
    return madeOnPath(Kind::Look, AT_FDCWD, path, [&] { return AQUILANE_REAL(lstat)(path, status); });
}

int fstat(int number, struct stat *status) noexcept
{
    return madeOnFile(Kind::Look, number, [&] { return AQUILANE_REAL(fstat)(number, status); });
}

int fstatat(int folder, const char *path, struct stat *status, int flags) noexcept
{
    return madeOnPath(Kind::Look, folder, path,
                      [&] { return AQUILANE_REAL(fstatat)(folder, path, status, flags); });
}

// NOLINTNEXTLINE(readability-function-size): five arguments, as the call has
int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept
{
    return madeOnPath(Kind::Look, folder, path,
                      [&] { return AQUILANE_REAL(statx)(folder, path, flags, mask, status); });
}

int faccessat(int folder, const char *path, int type, int flags) noexcept
{
    return madeOnPath(Kind::Look, folder, path,
                      [&] { return AQUILANE_REAL(faccessat)(folder, path, type, flags); });
}

ssize_t readlink(const char *path, char *target, size_t size) noexcept
{
    const auto real = [&] { return AQUILANE_REAL(readlink)(path, target, size); };
    const std::optional<QByteArray> below = PLInterposed::pathBelow(AT_FDCWD, path);
    if (!below)
        return real();
    PLFileCall call;
    call.kind = Kind::Look;
    call.path = *below;
    return made(call, real);
}
} // extern "C"
