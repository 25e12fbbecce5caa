// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooSnapshot.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <climits>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray hashOf(int folder, const char *name)
{
    QFile file;
    const int descriptor = ::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return "unreadable";
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(&file);
    return hash.result();
}

QByteArray targetOf(int folder, const char *name)
{
    QByteArray target(PATH_MAX, '\0');
    const ssize_t length = ::readlinkat(folder, name, target.data(), size_t(target.size()));
    return target.first(qMax<ssize_t>(0, length));
}

PLZooEntry entryOf(int folder, const char *name, const struct stat &status)
{
    const qint64 changed = status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec;
    if (S_ISREG(status.st_mode))
        return {status.st_mode, changed, hashOf(folder, name)};
    if (S_ISLNK(status.st_mode))
        return {status.st_mode, changed, targetOf(folder, name)};
    return {status.st_mode, 0, QByteArray()};
}

/// By descriptors, so that a path may be longer than a system call takes.
void take(int parent, const char *name, const QByteArray &path, PLZooSnapshot &snapshot)
{
    const int folder = ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    DIR *reader = folder < 0 ? nullptr : ::fdopendir(folder);
    if (!reader)
        return;
    while (const dirent *entry = ::readdir(reader)) {
        const QByteArray child(entry->d_name);
        struct stat status;
        if (child == "." || child == ".." ||
            ::fstatat(folder, child.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        const QByteArray childPath = path + '/' + child;
        snapshot.insert(childPath, entryOf(folder, child.constData(), status));
        if (S_ISDIR(status.st_mode))
            take(folder, child.constData(), childPath, snapshot);
    }
    ::closedir(reader);
}

QString shown(const QByteArray &path)
{
    return QString::fromLatin1(path.toPercentEncoding("/ "));
}

} // namespace

PLZooSnapshot PLTakeZooSnapshot(const QList<QByteArray> &folders)
{
    PLZooSnapshot snapshot;
    for (const QByteArray &folder : folders)
        take(AT_FDCWD, folder.constData(), folder, snapshot);
    return snapshot;
}

QStringList PLZooChanges(const PLZooSnapshot &before, const PLZooSnapshot &after,
                         const QSet<QByteArray> &allowed)
{
    QStringList changes;
    for (auto old = before.begin(); old != before.end(); ++old) {
        const auto now = after.constFind(old.key());
        if (allowed.contains(old.key()) || (now != after.constEnd() && *now == *old))
            continue;
        changes.append((now == after.constEnd() ? u"gone: "_s : u"changed: "_s) + shown(old.key()));
    }
    for (auto now = after.begin(); now != after.end(); ++now) {
        if (!before.contains(now.key()) && !allowed.contains(now.key()))
            changes.append(u"new: "_s + shown(now.key()));
    }
    return changes;
}

QList<QByteArray> PLZooHoldings(const PLZooSnapshot &snapshot)
{
    QList<QByteArray> holdings;
    for (const PLZooEntry &entry : snapshot) {
        if (!S_ISDIR(entry.mode))
            holdings.append(QByteArray::number(entry.mode & S_IFMT, 8) + ' ' + entry.contents);
    }
    std::sort(holdings.begin(), holdings.end());
    return holdings;
}
