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
public:
    /// A page whose fields are derived from the file name. Nothing is read.
    static std::shared_ptr<PLProjectItem> itemWithURL(const QUrl &fileURL, PLSection section);

    /// The same by its path, in the form of PLStandardizedPath. A listing makes thousands: no URL is made
    /// here.
    static std::shared_ptr<PLProjectItem> itemWithPath(const QString &path, PLSection section);

    /// "03 - La fuite.md" for a numbered page of the book, else "La fuite.md". The title is used as it is.
    static QString fileNameForTitle(const QString &title, qint64 number, PLSection section);

    /// Trims each tag, makes commas spaces, drops the empty ones and those already met in another case.
    static QStringList normalizedTags(const QStringList &tags);
    static QStringList tagsFromString(const QString &text);
    static QString stringFromTags(const QStringList &tags);

    QUrl fileURL() const { return QUrl::fromLocalFile(m_path); }
    /// The file's path in the form of PLStandardizedPath: what files are compared by.
    const QString &path() const { return m_path; }
    PLSection section() const { return m_section; }
    /// The chapter number; 0 for none, and always 0 outside the book.
    qint64 number() const { return m_number; }
    QString title() const { return m_title; }

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

    /// Makes this item the page at another URL, as after a rename.
    void setFileURL(const QUrl &fileURL);

    /// "<PLProjectItem Le départ (7)>"
    QString debugDescription() const;

private:
    explicit PLProjectItem(PLSection section) : m_section(section) {}

    void setPath(const QString &path);

    QString m_path;
    PLSection m_section;
    qint64 m_number = 0;
    QString m_title;
};

using PLProjectItemPointer = std::shared_ptr<PLProjectItem>;
