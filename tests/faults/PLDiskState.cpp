// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLDiskState.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// By system calls and not by the toolkit: tens of thousands of states are built.

namespace {

QStringList namesIn(const QByteArray &folder)
{
    QStringList names;
    const std::unique_ptr<DIR, int (*)(DIR *)> reader(::opendir(folder.constData()), &::closedir);
    while (const dirent *entry = reader ? ::readdir(reader.get()) : nullptr) {
        if (qstrcmp(entry->d_name, ".") != 0 && qstrcmp(entry->d_name, "..") != 0)
            names.append(QFile::decodeName(entry->d_name));
    }
    return names;
}

QByteArray bytesOfFile(const QByteArray &path, qint64 size)
{
    const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    QByteArray bytes(size, Qt::Uninitialized);
    const ssize_t count = file < 0 ? -1 : ::read(file, bytes.data(), size_t(size));
    ::close(file);
    bytes.truncate(qMax<qint64>(0, count));
    return bytes;
}

bool makeFile(const QByteArray &path, const PLDiskEntry &entry)
{
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, entry.mode);
    const bool isWhole =
        file >= 0 &&
        ::write(file, entry.bytes.constData(), size_t(entry.bytes.size())) == entry.bytes.size() &&
        ::fchmod(file, entry.mode) == 0;
    ::close(file);
    return isWhole;
}

void readBelow(const QByteArray &root, const QByteArray &folder, PLDiskState &state)
{
    const QStringList names = namesIn(folder.isEmpty() ? root : root + '/' + folder);
    for (const QString &name : names) {
        const QByteArray native = QFile::encodeName(name);
        const QByteArray path = folder.isEmpty() ? native : folder + '/' + native;
        const QByteArray whole = root + '/' + path;
        struct stat status = {};
        if (::lstat(whole.constData(), &status) != 0)
            continue;
        if (S_ISDIR(status.st_mode)) {
            state.addFolder(path);
            readBelow(root, path, state);
        } else {
            state.addFile(path, bytesOfFile(whole, status.st_size), status.st_mode & 07777);
        }
    }
}

bool take(const QByteArray &path, const PLDiskEntry &entry)
{
    return (entry.isFolder ? ::rmdir(path.constData()) : ::unlink(path.constData())) == 0;
}

bool make(const QByteArray &path, const PLDiskEntry &entry)
{
    return entry.isFolder ? ::mkdir(path.constData(), 0777) == 0 : makeFile(path, entry);
}

} // namespace

PLDiskState PLDiskState::read(const QString &folder)
{
    PLDiskState state;
    readBelow(QFile::encodeName(folder), QByteArray(), state);
    return state;
}

bool PLDiskState::build(const QString &folder) const
{
    return build(folder, read(folder));
}

bool PLDiskState::build(const QString &folder, const PLDiskState &present) const
{
    const QByteArray root = QFile::encodeName(folder) + '/';
    const auto isIn = [](const PLDiskState &state, const auto &item) {
        const auto found = state.m_entries.find(item.first);
        return found != state.m_entries.end() && found->second == item.second;
    };
    // What a folder holds comes behind it, so it is taken away from the end.
    for (auto item = present.m_entries.rbegin(); item != present.m_entries.rend(); ++item) {
        if (!isIn(*this, *item) && !take(root + item->first, item->second))
            return false;
    }
    return std::all_of(m_entries.begin(), m_entries.end(), [&](const auto &item) {
        return isIn(present, item) || make(root + item.first, item.second);
    });
}

PLDiskState &PLDiskState::addFile(const QByteArray &path, const QByteArray &bytes, unsigned mode)
{
    m_entries[path] = {false, mode, bytes};
    return *this;
}

PLDiskState &PLDiskState::addFolder(const QByteArray &path)
{
    m_entries[path] = {true, 0, QByteArray()};
    return *this;
}

QByteArray PLDiskState::bytesOf(const QByteArray &path) const
{
    const auto found = m_entries.find(path);
    return found == m_entries.end() || found->second.isFolder ? QByteArray() : found->second.bytes;
}

QByteArray PLDiskState::fingerprint() const
{
    size_t halves[] = {0x51ed270b, 0x9e3779b9};
    for (const auto &[path, entry] : m_entries) {
        for (size_t &half : halves)
            half = qHashMulti(half, path, entry.isFolder, entry.mode, entry.bytes);
    }
    return QByteArray(reinterpret_cast<const char *>(halves), sizeof halves);
}
