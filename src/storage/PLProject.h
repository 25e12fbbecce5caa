// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLError.h"
#include "storage/PLProjectItem.h"
#include "storage/PLSection.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

/// A page and its tags, as they were on the disk when both were read.
struct PLTaggedItem
{
    PLProjectItemPointer item;
    QStringList tags;
};

/// An open notebook: a folder with `projet.md` at its root and one sub-folder for each section.
/// It holds no list of pages: the disk is the only model, and every listing reads it again.
class PLProject final
{
public:
    using Fields = QHash<QString, QString>;

    // What a section is called; nothing here touches the disk.
    static QString folderNameForSection(PLSection section);
    static QString displayNameForSection(PLSection section);
    static QString addActionTitleForSection(PLSection section);
    static QString defaultTitleForSection(PLSection section);
    /// The text a new page of this section starts with.
    static QString templateForSection(PLSection section, const QString &title);

    // Questions about a folder.
    static QUrl metadataURLForFolder(const QUrl &folder);
    /// True if the folder holds a `projet.md` that is not a folder.
    static bool isProjectFolderAtURL(const QUrl &folder);
    /// The notebook's title, or the folder's name; null if it is not a notebook.
    static QString titleOfProjectAtURL(const QUrl &folder);
    /// The fields of `projet.md` by lower-case key; empty if unreadable, nothing if it is not a notebook.
    static std::optional<Fields> metadataOfProjectAtURL(const QUrl &folder);

    /// Makes the folder a notebook, or opens the one that is there. Files in it are left untouched.
    static std::unique_ptr<PLProject> createProjectAtURL(const QUrl &folder, const QString &title,
                                                         PLError *error = nullptr);
    static std::unique_ptr<PLProject> openProjectAtURL(const QUrl &folder, PLError *error = nullptr);

    // The cover: a picture named "couverture" with one of these extensions, in the notebook's folder.
    static QStringList coverImageExtensions();
    /// The first that exists, in the order of the extensions; empty for none.
    static QUrl coverImageURLForProjectAtURL(const QUrl &folder);
    /// Deletes the covers of every extension. True if there was none.
    [[nodiscard]] static bool removeCoverImageForProjectAtURL(const QUrl &folder, PLError *error = nullptr);
    /// Copies the picture into the notebook as its one cover. The old one stays until the new one is safe;
    /// what is in the file is not looked at, only its extension.
    [[nodiscard]] static bool setCoverImageFromURL(const QUrl &image, const QUrl &folder,
                                                   PLError *error = nullptr);

    explicit PLProject(const QUrl &folderURL);

    QUrl folderURL() const { return m_folderURL; }

    QString title() const { return m_title; }
    void setTitle(const QString &title) { m_title = title; }
    QString author() const { return m_author; }
    void setAuthor(const QString &author) { m_author = author; }
    /// The day of creation, "yyyy-MM-dd" when the program made it.
    QString created() const { return m_created; }
    void setCreated(const QString &created) { m_created = created; }
    /// The free text of `projet.md` after its header.
    QString notes() const { return m_notes; }
    void setNotes(const QString &notes) { m_notes = notes; }

    [[nodiscard]] bool ensureFolders(PLError *error = nullptr) const;
    /// Rewrites `projet.md` with its four keys and the notes; other keys that were there are dropped.
    [[nodiscard]] bool saveMetadata(PLError *error = nullptr) const;
    QUrl URLForSection(PLSection section) const;

    /// The pages of a section, read from the disk: the book by number then title, the others by title.
    std::vector<PLProjectItemPointer> itemsInSection(PLSection section) const;
    /// The same with the tags of each page, read while the folder is: the quickest way to all tags.
    std::vector<PLTaggedItem> taggedItemsInSection(PLSection section) const;
    QUrl availableURLInFolder(const QUrl &folder, const QString &title, qint64 number, PLSection section,
                              const QUrl &ignoringURL) const;
    /// A new page with the section's template; null with the error. Without a title it gets the default one.
    [[nodiscard]] PLProjectItemPointer
    createItemInSection(PLSection section, const QString &title = QString(), PLError *error = nullptr) const;
    /// Renames the file and updates the item. A chapter keeps its number.
    [[nodiscard]] bool renameItem(PLProjectItem &item, const QString &title, PLError *error = nullptr) const;
    [[nodiscard]] bool trashItem(const PLProjectItem &item, PLError *error = nullptr) const;

private:
    [[nodiscard]] bool writeMetadata(PLWriteMode mode, PLError *error) const;

    QUrl m_folderURL;
    QString m_title;
    QString m_author;
    QString m_created;
    QString m_notes;
};
