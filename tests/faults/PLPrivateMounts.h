// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Disks that only this process sees, mounted without the system's knowledge or leave.
class PLPrivateMounts final
{
public:
    PLPrivateMounts() = delete;

    /// Gives the process its own view of what is mounted; null, or why that is not allowed. To be called
    /// before there is a second thread.
    static QString enter();
};

/// A file system in memory that is mounted on an empty folder as long as this lives.
class PLMountedDisk final
{
public:
    /// The options are those of tmpfs, such as "size=1M,nr_inodes=50".
    PLMountedDisk(const QString &mountPoint, const QByteArray &options);
    ~PLMountedDisk();
    PLMountedDisk(const PLMountedDisk &) = delete;
    PLMountedDisk &operator=(const PLMountedDisk &) = delete;

    bool isMounted() const { return m_isMounted; }
    [[nodiscard]] bool setReadOnly(bool isReadOnly) const;

private:
    QByteArray m_mountPoint;
    bool m_isMounted = false;
};

/// A folder that is shown at another place, and can go from there and come back.
class PLBoundFolder final
{
public:
    PLBoundFolder(const QString &folder, const QString &mountPoint);
    ~PLBoundFolder() { take(); }
    PLBoundFolder(const PLBoundFolder &) = delete;
    PLBoundFolder &operator=(const PLBoundFolder &) = delete;

    [[nodiscard]] bool show();
    void take();

private:
    QByteArray m_folder;
    QByteArray m_mountPoint;
    bool m_isShown = false;
};
