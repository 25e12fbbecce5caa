// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLWrongWriters.h"

#include <QFile>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const char *const pageName = "01 - Départ.md";
const QByteArray newText = PLPageText('n', 2'000);

/// The section's folder and the names in it, for system calls.
struct Place
{
    QByteArray folder;

    QByteArray path(const char *name) const { return folder + '/' + name; }
};

using Save = bool (*)(const Place &place);

enum class Flush { No, Yes };

bool writeTo(const QByteArray &path, int flags, Flush flush)
{
    const int file = ::open(path.constData(), O_WRONLY | O_CLOEXEC | flags, 0644);
    const bool isWritten = ::write(file, newText.constData(), size_t(newText.size())) == newText.size() &&
                           (flush == Flush::No || ::fsync(file) == 0);
    return ::close(file) == 0 && isWritten;
}

bool flushFolder(const Place &place)
{
    const int folder = ::open(place.folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool isFlushed = ::fsync(folder) == 0;
    return ::close(folder) == 0 && isFlushed;
}

bool rename(const Place &place, const char *from, const char *to)
{
    return ::rename(place.path(from).constData(), place.path(to).constData()) == 0;
}

bool inPlace(const Place &place)
{
    return writeTo(place.path(pageName), O_TRUNC, Flush::Yes) && flushFolder(place);
}

bool inPlaceUnflushed(const Place &place)
{
    return writeTo(place.path(pageName), O_TRUNC, Flush::No);
}

bool withoutFlushingTheText(const Place &place)
{
    return writeTo(place.path(".aquilane-00000000.tmp"), O_CREAT | O_EXCL, Flush::No) &&
           rename(place, ".aquilane-00000000.tmp", pageName) && flushFolder(place);
}

bool withoutFlushingTheFolder(const Place &place)
{
    return writeTo(place.path(".aquilane-00000000.tmp"), O_CREAT | O_EXCL, Flush::Yes) &&
           rename(place, ".aquilane-00000000.tmp", pageName);
}

bool deletingFirst(const Place &place)
{
    return writeTo(place.path(".aquilane-00000000.tmp"), O_CREAT | O_EXCL, Flush::Yes) &&
           ::unlink(place.path(pageName).constData()) == 0 &&
           rename(place, ".aquilane-00000000.tmp", pageName) && flushFolder(place);
}

bool byWayOfAVisibleFile(const Place &place)
{
    return writeTo(place.path("new.md"), O_CREAT | O_EXCL, Flush::Yes) && rename(place, "new.md", pageName) &&
           flushFolder(place);
}

bool byWayOfAFileThatNobodySweeps(const Place &place)
{
    return writeTo(place.path(".page.swp"), O_CREAT | O_EXCL, Flush::Yes) &&
           rename(place, ".page.swp", pageName) && flushFolder(place);
}

PLNotebookOperation saving(const char *name, Save save)
{
    return {name, PLNotebookOnDisk(), [save](const QString &folder) -> PLNotebookOperation::Action {
                return [save, folder](PLError *) {
                    return save({QFile::encodeName(folder + u"/Roman/Livre"_s)});
                };
            }};
}

} // namespace

QList<PLWrongWriter> PLWrongWriters()
{
    return {
        {saving("over the old text", inPlace), true, false},
        {saving("over the old text, unflushed", inPlaceUnflushed), true, true},
        {saving("a new file whose text is not flushed", withoutFlushingTheText), true, true},
        {saving("a new file whose name is not flushed", withoutFlushingTheFolder), false, true},
        {saving("the old file deleted first", deletingFirst), true, false},
        {saving("a new file that is listed", byWayOfAVisibleFile), true, false},
        {saving("a new file that nobody sweeps", byWayOfAFileThatNobodySweeps), true, false},
    };
}
