// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <map>

/// A file or a folder, without its name.
struct PLDiskEntry
{
    bool isFolder = false;
    unsigned mode = 0644;
    QByteArray bytes;

    bool operator==(const PLDiskEntry &other) const = default;
};

/// Everything below one folder as a value: the entries by their path relative to it, a folder before what it
/// holds.
class PLDiskState final
{
public:
    /// What is on the disk below a folder.
    static PLDiskState read(const QString &folder);
    /// Empties the folder and builds this state in it. False if that fails.
    [[nodiscard]] bool build(const QString &folder) const;
    /// Makes this state of the present one in the folder. False if that fails.
    [[nodiscard]] bool build(const QString &folder, const PLDiskState &present) const;

    PLDiskState &addFile(const QByteArray &path, const QByteArray &bytes, unsigned mode = 0644);
    PLDiskState &addFolder(const QByteArray &path);

    const std::map<QByteArray, PLDiskEntry> &entries() const { return m_entries; }
    /// The bytes of a file; null if there is none.
    QByteArray bytesOf(const QByteArray &path) const;

    /// Tells states apart: 128 bits of hash.
    QByteArray fingerprint() const;

    bool operator==(const PLDiskState &other) const = default;

private:
    std::map<QByteArray, PLDiskEntry> m_entries;
};
