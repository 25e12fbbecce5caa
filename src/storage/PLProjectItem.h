// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLError.h"
#include "storage/PLFiles.h"
#include "storage/PLSection.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>

/// One page: its file, and the section, number and title that the file's name gives it.
/// Pages are handed around as shared pointers, since the sidebar and the editor hold the same one.
class PLProjectItem final
{
    struct Private
    {
    };

public:
    /// For itemWithURL and itemInFolder alone, which make the pointers.
    PLProjectItem(Private, PLSection section) : m_section(section) {}

    /// A page whose fields are derived from the file name. Nothing is read.
    static std::shared_ptr<PLProjectItem> itemWithURL(const QUrl &fileURL, PLSection section);

    /// The same by its name in a folder, whose path is in the form of PLStandardizedPath with a slash at the
    /// end. A listing makes thousands, which share that one text.
    static std::shared_ptr<PLProjectItem> itemInFolder(const QString &folder, const QString &fileName,
                                                       PLSection section);

    /// "03 - La fuite.md" for a numbered page of the book, else "La fuite.md". The title is used as it is.
    static QString fileNameForTitle(const QString &title, qint64 number, PLSection section);

    /// What PLPageTags.h has of tags.
    static QStringList normalizedTags(const QStringList &tags);
    static QStringList tagsFromString(const QString &text);
    static QString stringFromTags(const QStringList &tags);

    QUrl fileURL() const { return QUrl::fromLocalFile(path()); }
    /// The file's path in the form of PLStandardizedPath: what files are compared by.
    QString path() const { return m_folder + m_fileName; }
    const QString &fileName() const { return m_fileName; }
    PLSection section() const { return m_section; }
    /// The chapter number; 0 for none, and always 0 outside the book.
    qint64 number() const { return m_number; }
    QString title() const;

    /// The whole text of the file, null with the error if it cannot be read. Line ends are as in the file.
    /// `bytes` gets what the text was made of.
    [[nodiscard]] QString readContents(PLError *error = nullptr, QByteArray *bytes = nullptr) const;
    /// Writes the text as UTF-8, whole or not at all (PLWriteFile).
    [[nodiscard]] bool writeContents(const QString &text, PLError *error = nullptr,
                                     PLWriteMode mode = PLWriteMode::Replace) const;
    /// The tags of the header. Only the start of the page is read: 512 bytes, more if a header goes on there.
    QStringList readTags() const;

    /// True if both are the same file: the standardised paths are equal, case included. False against null.
    bool isSameFileAsItem(const PLProjectItem *other) const;

    /// True if this is the path of the file.
    bool hasPath(QStringView path) const;

    /// Makes this item the page at another URL, as after a rename.
    void setFileURL(const QUrl &fileURL);

    /// "<PLProjectItem Le départ (7)>"
    QString debugDescription() const;

private:
    void setFile(const QString &folder, const QString &fileName);

    QString m_folder; ///< with a slash at the end
    QString m_fileName;
    PLSection m_section;
    qint64 m_number = 0;
    QString m_chapterTitle; ///< without the number; null if the title is the file's name
};

using PLProjectItemPointer = std::shared_ptr<PLProjectItem>;
