// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLProjectItem.h"

#include <QByteArray>

#include <optional>

/// What a page's file held when it was last read or written here. What another program has put there since is
/// then seen before it is overwritten.
class PLPageOnDisk final
{
public:
    /// What was just read or written.
    void remember(const QByteArray &bytes);

    /// The file's bytes if they are others than those remembered; none if they are the same, or if there is
    /// no file any more. A file that is there and cannot be read is an error.
    std::optional<QByteArray> changedBytes(const PLProjectItem &item, PLError *error = nullptr) const;

private:
    QByteArray m_fingerprint; ///< empty while there is nothing to compare with
};

/// Writes these bytes into a new page beside this one, of the same number and "title 2". Null with the error
/// if that fails.
[[nodiscard]] PLProjectItemPointer PLKeepBesidePage(const PLProjectItem &item, const QByteArray &bytes,
                                                    PLError *error);
