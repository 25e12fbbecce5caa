// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLNotebookOperations.h"

#include "storage/PLProject.h"

using namespace Qt::StringLiterals;

namespace {

using Action = PLNotebookOperation::Action;
using View = PLNotebookView;

constexpr qsizetype longText = 5'000; // bytes: 10 sectors, of which a power cut can lose any
constexpr qsizetype shortText = 1'400;

const char *const metadata =
    "---\ntitre: Le phare\nauteur: A\ncreation: 2024-03-01\nformat: aquilane-1\n---\n\n";

QUrl notebook(const QString &folder)
{
    return QUrl::fromLocalFile(folder + u"/Roman"_s);
}

std::shared_ptr<PLProject> opened(const QString &folder)
{
    return PLProject::openProjectAtURL(notebook(folder));
}

PLProjectItemPointer page(const QString &folder, const QString &path, PLSection section)
{
    return PLProjectItem::itemWithURL(QUrl::fromLocalFile(folder + u"/Roman/"_s + path), section);
}

PLNotebookOperation saving(const char *name, const PLDiskState &before, const QString &path,
                           const QByteArray &text)
{
    return {name, before, [path, text](const QString &folder) -> Action {
                const PLProjectItemPointer item = page(folder, path, PLSection::Book);
                return [item, text](PLError *error) {
                    return item->writeContents(QString::fromUtf8(text), error);
                };
            }};
}

PLNotebookOperation creating(const char *name, PLSection section, const QString &title)
{
    return {name, PLNotebookOnDisk(), [section, title](const QString &folder) -> Action {
                return [project = opened(folder), section, title](PLError *error) {
                    return project->createItemInSection(section, title, error) != nullptr;
                };
            }};
}

PLNotebookOperation renaming(const char *name, const QString &path, PLSection section, const QString &title)
{
    return {name, PLNotebookOnDisk(), [path, section, title](const QString &folder) -> Action {
                return [project = opened(folder), item = page(folder, path, section), title](PLError *error) {
                    return project->renameItem(*item, title, error);
                };
            }};
}

PLNotebookOperation trashing(const char *name, const PLDiskState &before)
{
    return {name, before, [](const QString &folder) -> Action {
                return [project = opened(folder),
                        item = page(folder, u"Personnages/marie.md"_s, PLSection::Characters)](
                           PLError *error) { return project->trashItem(*item, error); };
            }};
}

PLNotebookOperation changingMetadata()
{
    return {"change the title and the notes", PLNotebookOnDisk(), [](const QString &folder) -> Action {
                const std::shared_ptr<PLProject> project = opened(folder);
                project->setTitle(u"Les naufrageurs"_s);
                project->setNotes(QString::fromUtf8(PLPageText('m', longText)));
                return [project](PLError *error) { return project->saveMetadata(error); };
            }};
}

/// Where a notebook is already, it is opened and keeps all it has.
PLNotebookOperation makingNotebookAgain(const char *name, const PLDiskState &before)
{
    return {name, before, [](const QString &folder) -> Action {
                return [folder](PLError *error) {
                    return PLProject::createProjectAtURL(notebook(folder), u"Roman"_s, error) != nullptr;
                };
            }};
}

PLNotebookOperation makingNotebook(const char *name, const PLDiskState &before)
{
    PLNotebookOperation operation = makingNotebookAgain(name, before);
    // Not a notebook yet, or one without its first page: nothing was written that could be lost.
    operation.mayBeSeen = [](const View &view) {
        return !view.isNotebook || (view.failure.isEmpty() && view.title == u"Roman" && view.pages.empty());
    };
    operation.isPartlySilent = true; // that page
    return operation;
}

PLNotebookOperation covering(const char *name, const PLDiskState &before)
{
    return {name, before, [](const QString &folder) -> Action {
                return [folder](PLError *error) {
                    return PLProject::setCoverImageFromURL(QUrl::fromLocalFile(folder + u"/photo.jpg"_s),
                                                           notebook(folder), error);
                };
            }};
}

PLNotebookOperation uncovering()
{
    PLDiskState before = PLNotebookOnDisk();
    before.addFile("Roman/couverture.png", PLPageText('o', longText))
        .addFile("Roman/couverture.jpg", PLPageText('q', shortText));
    PLNotebookOperation operation{"remove both covers", before, [](const QString &folder) -> Action {
                                      return [folder](PLError *error) {
                                          return PLProject::removeCoverImageForProjectAtURL(notebook(folder),
                                                                                            error);
                                      };
                                  }};
    operation.mayBeSeen = [](const View &view) {
        return view.cover == "couverture.png: " + PLPageText('o', longText);
    };
    return operation;
}

/// The opening of a notebook that a crash left in the middle of two changes.
PLNotebookOperation recovering()
{
    PLDiskState before = PLNotebookOnDisk();
    const QByteArray oldName = QByteArray("léa.md").toBase64(QByteArray::Base64UrlEncoding);
    before.addFile("Roman/Personnages/aquilane-ABCDEFGHIJKLMNOPQRSTUV." + oldName + ".tmp", "Léa")
        .addFile("Roman/Lieux/aquilane-ABCDEFGHIJKLMNOPQRSTUV.tmp", "un lieu")
        .addFile("Roman/Livre/.aquilane-0123abcd.tmp", "half")
        .addFile("Roman/.couverture-01234567-0123-0123-0123-0123456789ab.png", "half");
    PLNotebookOperation operation{"open what a crash left", before, [](const QString &folder) -> Action {
                                      return [folder](PLError *error) {
                                          return PLProject::openProjectAtURL(notebook(folder), error) !=
                                                 nullptr;
                                      };
                                  }};
    operation.isPartlySilent = true;
    return operation;
}

QList<PLNotebookOperation> pageOperations()
{
    const QString chapter = u"Livre/01 - Départ.md"_s;
    PLDiskState latin = PLNotebookOnDisk();
    latin.addFile("Roman/Livre/03 - Été.md", QByteArray("L'\xE9t\xE9, \xE0 la mer.\r\n").repeated(60), 0640);
    PLDiskState trashed = PLNotebookOnDisk();
    trashed.addFolder("home")
        .addFolder("home/Trash")
        .addFolder("home/Trash/files")
        .addFolder("home/Trash/info");
    trashed.addFile("home/Trash/files/marie.md", "another")
        .addFile("home/Trash/info/marie.md.trashinfo",
                 "[Trash Info]\nPath=/elsewhere/marie.md\nDeletionDate=2024-01-01T00:00:00\n");
    return {
        saving("autosave a page that has grown", PLNotebookOnDisk(), chapter, PLPageText('n', longText)),
        saving("save a page that is the same", PLNotebookOnDisk(), chapter, PLPageText('a', shortText)),
        saving("empty a page", PLNotebookOnDisk(), u"Livre/02 - Retour.md"_s, ""),
        saving("save a page that was in Windows-1252", latin, u"Livre/03 - Été.md"_s,
               QByteArray("L'été, à la mer.\n").repeated(250)),
        saving("save a page whose file has gone", PLNotebookOnDisk(), u"Livre/04 - Fin.md"_s,
               PLPageText('f', longText)),
        creating("create a chapter", PLSection::Book, QString()),
        creating("create a character with a title that is taken", PLSection::Characters, u"marie"_s),
        renaming("rename a chapter", chapter, PLSection::Book, u"L'arrivée"_s),
        renaming("change the case of a name", u"Personnages/marie.md"_s, PLSection::Characters, u"Marie"_s),
        trashing("trash a page for the first time", PLNotebookOnDisk()),
        trashing("trash a page beside one of its name", trashed),
    };
}

QList<PLNotebookOperation> notebookOperations()
{
    PLDiskState folder;
    folder.addFolder("Roman").addFolder("Roman/Livre").addFile("Roman/lisez-moi.txt", "keep");
    PLDiskState png = PLNotebookOnDisk();
    png.addFile("Roman/couverture.png", PLPageText('o', longText));
    PLDiskState jpg = PLNotebookOnDisk();
    jpg.addFile("Roman/couverture.jpg", PLPageText('o', longText));
    PLDiskState two = png;
    two.addFile("Roman/couverture.gif", PLPageText('q', shortText));
    return {
        changingMetadata(),
        makingNotebook("make a notebook", PLDiskState()),
        makingNotebook("make a folder with files a notebook", folder),
        makingNotebookAgain("make a notebook where one is", PLNotebookOnDisk()),
        covering("set a first cover", PLNotebookOnDisk()),
        covering("set a cover for one of its kind", jpg),
        covering("set a cover for one of another kind", png),
        covering("set a cover for two", two),
        uncovering(),
        recovering(),
    };
}

} // namespace

QByteArray PLPageText(char letter, qsizetype size)
{
    QByteArray text;
    for (int line = 1; text.size() < size; ++line)
        text += QByteArray(60, letter) + QByteArray::number(line) + '\n';
    return text.first(size);
}

PLDiskState PLNotebookOnDisk()
{
    PLDiskState state;
    state.addFolder("Roman").addFile("Roman/projet.md", metadata + PLPageText('p', shortText));
    for (const PLSection section : PLAllSections)
        state.addFolder("Roman/" + PLProject::folderNameForSection(section).toUtf8());
    state.addFile("Roman/Livre/01 - Départ.md", PLPageText('a', shortText))
        .addFile("Roman/Livre/02 - Retour.md", PLPageText('b', shortText), 0600)
        .addFile("Roman/Personnages/marie.md", PLPageText('c', shortText))
        .addFile("Roman/Notes/phares.md", "---\ntags: mer\n---\n\n# Phares\n")
        .addFile("Roman/Notes/brouillon.txt", "not a page")
        .addFile("photo.jpg", PLPageText('j', longText));
    return state;
}

QList<PLNotebookOperation> PLNotebookOperations()
{
    return pageOperations() + notebookOperations();
}
