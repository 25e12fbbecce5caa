// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The trash of Linux desktops, as the freedesktop.org trash rules, version 1.0, have it.

#include "storage/PLFiles.h"
#include "storage/PLTrash.h"
#include "storage/PLUnixFile.h"

#include <QDateTime>
#include <QStandardPaths>

#include <cstdlib>
#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostNamesTried = 10000;
constexpr qsizetype longestStem = 200; // bytes; leaves room for a counter and ".trashinfo" in 255

/// The file that goes to the trash.
struct Doomed
{
    QByteArray folder; ///< without links in it
    QByteArray name;
    dev_t disk = 0;
};

/// A trash folder, with `files` and `info` in it.
struct TrashFolder
{
    QByteArray path;
    QByteArray top; ///< what the remembered paths are relative to; empty in the home trash
};

QByteArray joined(const QByteArray &folder, const QByteArray &name)
{
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

int look(const QByteArray &path, Doomed &file)
{
    const PLPlace place = PLPlaceOf(path);
    const std::unique_ptr<char, decltype(&std::free)> folder(::realpath(place.folder.constData(), nullptr),
                                                             &std::free);
    struct stat status;
    if (!folder)
        return errno;
    if (const int failure = PLFailureOf([&] { return ::stat(folder.get(), &status); }))
        return failure;
    file = {QByteArray(folder.get()), place.name, status.st_dev};
    const QByteArray whole = joined(file.folder, file.name);
    return PLFailureOf([&] { return ::lstat(whole.constData(), &status); });
}

/// 0 if the folder is on this disk, EXDEV if it is on another one.
int lookForDisk(const QByteArray &folder, dev_t disk)
{
    struct stat status;
    const int failure = PLFailureOf([&] { return ::stat(folder.constData(), &status); });
    return failure != 0 || status.st_dev == disk ? failure : EXDEV;
}

/// The folder where the file's disk is mounted.
QByteArray topFolder(const Doomed &file)
{
    QByteArray top = file.folder;
    while (top != "/" && lookForDisk(PLPlaceOf(top).folder, file.disk) == 0)
        top = PLPlaceOf(top).folder;
    return top;
}

/// A true folder, not a link that somebody laid; `wanted` are permission bits it must have.
bool isTrueFolder(const QByteArray &path, mode_t wanted, bool isOwn)
{
    struct stat status;
    return PLFailureOf([&] { return ::lstat(path.constData(), &status); }) == 0 && S_ISDIR(status.st_mode) &&
           (status.st_mode & wanted) == wanted && (!isOwn || status.st_uid == ::getuid());
}

/// The user's own trash folder at this path; made if it is missing.
bool isUsable(const QByteArray &path)
{
    return PLMakeFolders(path, 0700) == 0 && isTrueFolder(path, 0, true);
}

QList<TrashFolder> trashFoldersOfDisk(const Doomed &file)
{
    QList<TrashFolder> folders;
    const QByteArray top = topFolder(file);
    const QByteArray user = QByteArray::number(::getuid());
    const QByteArray shared = joined(top, ".Trash");
    // An administrator has made it for all; without the sticky bit anybody could empty anybody's.
    if (isTrueFolder(shared, S_ISVTX, false))
        folders.append({joined(shared, user), top});
    folders.append({joined(top, ".Trash-" + user), top});
    return folders;
}

/// The name to try in the trash: "Marie.md", "Marie 2.md"…
QByteArray trashName(const QByteArray &name, int count)
{
    if (count == 1 && name.size() <= longestStem)
        return name;
    const qsizetype stop = name.lastIndexOf('.');
    const QByteArray extension = stop > 0 && name.size() - stop <= 10 ? name.sliced(stop) : QByteArray();
    QByteArray stem = name.first(qMin(longestStem, name.size() - extension.size()));
    while (!PLDecodedUTF8(stem) && stem.size() > 1)
        stem.chop(1); // the cut went through a character
    return stem + ' ' + QByteArray::number(count) + extension;
}

QByteArray information(const Doomed &file, const TrashFolder &trash)
{
    QByteArray path = joined(file.folder, file.name);
    if (!trash.top.isEmpty())
        path = path.sliced(joined(trash.top, "").size());
    const QString date = QDateTime::currentDateTime().toString(u"yyyy-MM-ddTHH:mm:ss");
    return "[Trash Info]\nPath=" + path.toPercentEncoding("/") + "\nDeletionDate=" + date.toLatin1() + '\n';
}

/// Takes a name in the trash by its information file, then moves the file there.
bool moveUnderName(const Doomed &file, const TrashFolder &trash, const QByteArray &name, PLError *error)
{
    const QString folder = QString::fromUtf8(trash.path);
    const QString infoPath = folder + u"/info/"_s + QString::fromUtf8(name) + u".trashinfo"_s;
    if (!PLWriteFile(infoPath, information(file, trash), PLWriteMode::CreateNew, error))
        return false;
    const QString path = QString::fromUtf8(joined(file.folder, file.name));
    if (PLMoveFile(path, folder + u"/files/"_s + QString::fromUtf8(name), error))
        return true;
    ::unlink(PLNativePath(infoPath).constData());
    return false;
}

bool moveInto(const Doomed &file, const TrashFolder &trash, PLError *error)
{
    for (const char *part : {"", "files", "info"}) {
        if (!isUsable(*part ? joined(trash.path, part) : trash.path))
            return PLFail(error, PLFileError(EACCES));
    }
    PLError failure;
    for (int count = 1; count <= mostNamesTried; ++count) {
        if (moveUnderName(file, trash, trashName(file.name, count), &failure))
            return true;
        if (failure.code != EEXIST)
            break;
    }
    return PLFail(error, failure);
}

bool moveIntoHomeTrash(const Doomed &file, PLError *error)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QByteArray path = joined(PLNativePath(data), "Trash");
    if (const int failure = PLMakeFolders(path, 0700))
        return PLFail(error, PLFileError(failure));
    if (const int failure = lookForDisk(path, file.disk))
        return PLFail(error, PLFileError(failure));
    return moveInto(file, {path, QByteArray()}, error);
}

} // namespace

bool PLMoveToTrash(const QString &path, PLError *error)
{
    Doomed file;
    if (const int failure = look(PLNativePath(path), file))
        return PLFail(error, PLFileError(failure));
    PLError failure;
    if (moveIntoHomeTrash(file, &failure))
        return true;
    if (failure.code == EXDEV) {
        const QList<TrashFolder> folders = trashFoldersOfDisk(file);
        for (const TrashFolder &trash : folders) {
            if (moveInto(file, trash, &failure))
                return true;
        }
    }
    return PLFail(error, failure);
}
