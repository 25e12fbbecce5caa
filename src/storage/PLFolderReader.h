// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QString>

#include <memory>
#include <optional>

/// Goes through the files of a folder one by one, in no order, hidden ones too. Left out are folders, links
/// to folders, and names that are not valid Unicode, since no path could reach those files. There is nothing
/// to go through in a folder that cannot be read.
class PLFolderReader final
{
public:
    explicit PLFolderReader(const QString &folder);
    ~PLFolderReader();

    /// Goes to the next file; false after the last one.
    bool next();
    /// The name of the file.
    const QString &name() const;

    static constexpr qsizetype startSize = 512;
    /// The first startSize bytes of the file, all of it if there are fewer; valid until the next call.
    /// Nothing for what is not plainly a regular file, or cannot be read: PLReadFile says more of those.
    std::optional<QByteArrayView> start();

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
