// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cerrno>

#include <sys/types.h>
#include <unistd.h>

// What the Unix half of this folder shares. Functions that can fail answer 0 or the errno value.

/// A file descriptor that is closed with its owner.
class PLDescriptor final
{
public:
    explicit PLDescriptor(int number = -1) : m_number(number) {}
    ~PLDescriptor() { close(); }
    PLDescriptor(PLDescriptor &&other) noexcept : m_number(other.release()) {}
    PLDescriptor &operator=(PLDescriptor &&other) noexcept
    {
        close();
        m_number = other.release();
        return *this;
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

    /// Closes now, for those who must know whether it worked: some disks tell only here that a write failed.
    int close()
    {
        // A close that a signal interrupted has closed: trying again could close somebody else's file.
        return m_number < 0 || ::close(release()) == 0 || errno == EINTR ? 0 : errno;
    }

private:
    int release()
    {
        const int number = m_number;
        m_number = -1;
        return number;
    }

    int m_number;
};

/// How often a call that a signal interrupts is made again. Some network disks answer so for ever once their
/// server has gone; an error can then be told, where a loop without end would take the unsaved text with it.
inline constexpr int PLMostRetries = 10'000;

/// Makes a system call again when a signal interrupts it.
template <typename Call>
auto PLRetried(Call call)
{
    auto result = call();
    for (int retries = 0; result < 0 && errno == EINTR && retries < PLMostRetries; ++retries)
        result = call();
    return result;
}

/// Makes a call that answers 0 for success, and again when a signal interrupts it.
template <typename Call>
int PLFailureOf(Call call)
{
    return PLRetried(call) == 0 ? 0 : errno;
}

/// A path as the system takes it; empty, which no call accepts, for one with a NUL in it.
QByteArray PLNativePath(const QString &path);

/// A path cut before its last element.
struct PLPlace
{
    QByteArray folder; ///< "." for a bare name
    QByteArray name;
};
PLPlace PLPlaceOf(const QByteArray &path);

/// Opens a regular file of at most PLLargestFileSize to read it, without ever waiting for a FIFO's or a
/// device's other end; `size` becomes its size in bytes.
int PLOpenForReading(const QString &path, PLDescriptor &file, qint64 &size);

/// Writes all of the bytes.
int PLWriteAll(const PLDescriptor &file, QByteArrayView bytes);

/// Opens a folder to work in it; not open, with errno set, if that fails.
PLDescriptor PLOpenFolder(const QByteArray &path);

/// Makes the names in a folder safe on the disk.
int PLFlushFolder(const PLDescriptor &folder);

/// Renames, and fails with EEXIST if the new name is taken.
int PLRenameWithoutReplacing(const PLDescriptor &fromFolder, const QByteArray &from,
                             const PLDescriptor &toFolder, const QByteArray &to);

/// Creates a folder and those above it; `mode` as for mkdir. A folder that is there is left as it is.
int PLMakeFolders(const QByteArray &path, mode_t mode);
