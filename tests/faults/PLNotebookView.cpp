// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLNotebookView.h"

#include "faults/PLDiskState.h"
#include "storage/PLProject.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QByteArray notebookPrefix = "Roman/";
const QByteArray trashPrefix = "home/Trash/";

QUrl notebookURL(const QString &folder)
{
    return QUrl::fromLocalFile(folder + u"/Roman"_s);
}

/// What is shown as the notebook's cover, under its name.
QByteArray shownCover(const QString &folder, const PLDiskState &state)
{
    const QUrl url = PLProject::coverImageURLForProjectAtURL(notebookURL(folder));
    if (url.isEmpty())
        return {};
    const QByteArray name = QFile::encodeName(url.fileName());
    return name + ": " + state.bytesOf(notebookPrefix + name);
}

/// Where a file in the trash goes back to, without the day it was deleted.
QByteArray originOf(const QByteArray &name, const PLDiskState &state)
{
    const QByteArray information = state.bytesOf(trashPrefix + "info/" + name + ".trashinfo");
    const qsizetype date = information.indexOf("\nDeletionDate=");
    return date < 0 || !information.endsWith('\n') ? QByteArray("nowhere") : information.first(date);
}

/// A second cover waits to be deleted, behind the one that is shown.
bool isCover(const QByteArray &path)
{
    return path.startsWith(notebookPrefix + "couverture.");
}

} // namespace

void PLNotebookView::lookAtPages(const QString &folder)
{
    PLError error;
    const auto project = PLProject::openProjectAtURL(notebookURL(folder), &error);
    if (!project) {
        failure = error.message;
        return;
    }
    title = project->title();
    notes = project->notes();
    for (const PLSection section : PLAllSections) {
        const std::vector<PLProjectItemPointer> items = project->itemsInSection(section);
        for (const PLProjectItemPointer &item : items) {
            const QByteArray path =
                QFile::encodeName(item->fileURL().toLocalFile()).sliced(QFile::encodeName(folder).size() + 1);
            const QString text = item->readContents(&error);
            pages[path].text = text;
            if (text.isNull())
                failure += QString::fromUtf8(path) + u": "_s + error.message;
        }
    }
}

void PLNotebookView::lookAtFiles(const PLDiskState &state)
{
    for (const auto &[path, entry] : state.entries()) {
        if (entry.isFolder || isCover(path) || path == notebookPrefix + "projet.md")
            continue;
        if (const auto page = pages.find(path); page != pages.end()) {
            page->second.mode = entry.mode;
            continue;
        }
        if (path.startsWith(trashPrefix + "files/")) {
            const QByteArray name = path.sliced((trashPrefix + "files/").size());
            trashed[name] = originOf(name, state) + '\n' + entry.bytes;
        } else if (!path.startsWith(trashPrefix)) {
            others[path] = entry.bytes;
        }
    }
}

PLNotebookView PLNotebookView::open(const QString &folder, PLDiskState *left)
{
    PLNotebookView view;
    view.isNotebook = PLProject::isProjectFolderAtURL(notebookURL(folder));
    if (view.isNotebook)
        view.lookAtPages(folder);
    const PLDiskState state = PLDiskState::read(folder);
    if (view.isNotebook)
        view.cover = shownCover(folder, state);
    view.lookAtFiles(state);
    if (left)
        *left = state;
    return view;
}

QString PLNotebookView::description() const
{
    QStringList lines{isNotebook ? u"notebook “%1”, notes of %2"_s.arg(title).arg(notes.size())
                                 : u"no notebook"_s};
    if (!failure.isEmpty())
        lines << u"failure: "_s + failure;
    for (const auto &[path, page] : pages)
        lines << u"%1: %2 characters, mode %3"_s.arg(QString::fromUtf8(path))
                     .arg(page.text.size())
                     .arg(page.mode, 0, 8);
    lines << u"cover of %1 bytes"_s.arg(cover.size());
    for (const auto &[name, bytes] : trashed)
        lines << u"trash: %1, %2 bytes"_s.arg(QString::fromUtf8(name)).arg(bytes.size());
    for (const auto &[path, bytes] : others)
        lines << u"other: %1, %2 bytes"_s.arg(QString::fromUtf8(path)).arg(bytes.size());
    return lines.join(u"; "_s);
}
