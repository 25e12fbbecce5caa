// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

/// Whether a write may take the place of a file that is there.
enum class PLWriteMode {
    Replace,   ///< a new file or a new text for an old one
    CreateNew, ///< fails with EEXIST if anything has that name, even if it appeared a moment ago
};

/// Writes a file of a notebook so that, whatever happens, what is on disk is the old text or the new one,
/// whole: a hidden temporary file beside the target is written, flushed and renamed over it, then the folder
/// flushed. True only when all of that has succeeded. A symbolic link is followed and kept, the permissions
/// are kept, what is not a regular file is never replaced. On failure the old file stands and no temporary
/// file is left.
[[nodiscard]] bool PLWriteFile(const QString &path, const QByteArray &data, PLWriteMode mode,
                               PLError *error = nullptr);

/// The largest file that is read, in bytes; a larger one is an error, at once.
inline constexpr qint64 PLLargestFileSize = 256LL * 1024 * 1024;

/// The bytes of a regular file. A folder, a FIFO, a device, a loop of links or a file above PLLargestFileSize
/// is an error, never a wait. `limit`, if not negative, stops the reading after that many bytes.
[[nodiscard]] std::optional<QByteArray> PLReadFile(const QString &path, PLError *error = nullptr,
                                                   qint64 limit = -1);

/// Renames a file, in its folder or to another one of the same disk, and flushes the folders. Never takes the
/// place of a file that is there: that is EEXIST. After a failure the file has its old name.
[[nodiscard]] bool PLMoveFile(const QString &from, const QString &to, PLError *error = nullptr);

/// Renames a file over the one that has the new name, in the same folder, and flushes the folder. Whoever
/// looks sees the one file or the other.
[[nodiscard]] bool PLReplaceFile(const QString &from, const QString &to, PLError *error = nullptr);

/// Copies a regular file to a new one, and flushes it. What PLReadFile refuses is refused, what has the new
/// name stays (EEXIST), and after a failure nothing has the new name. Its folder is not flushed: that is for
/// whoever gives the copy its final name.
[[nodiscard]] bool PLCopyFile(const QString &from, const QString &to, PLError *error = nullptr);

/// Deletes a file, or a link but not what it leads to, and flushes the folder. Never a folder. True as well
/// if there is none.
[[nodiscard]] bool PLDeleteFile(const QString &path, PLError *error = nullptr);

/// Creates a folder and those above it, and flushes their parents. No error if it is there already.
[[nodiscard]] bool PLCreateFolder(const QString &path, PLError *error = nullptr);

/// True if anything has this name, a dangling symbolic link too.
bool PLSomethingExistsAt(const QString &path);

/// True if there is something at the path, links followed, that is not a folder.
bool PLFileExistsAt(const QString &path);

/// True if both paths lead to one folder that is there, whatever links, mounts or letter case they lead
/// through.
bool PLIsSameFolder(const QString &left, const QString &right);

/// The names of all that PLFolderReader finds in a folder.
QStringList PLFileNamesInFolder(const QString &folder);

/// The path of a file URL without "." and "..", double slashes and a slash at the end: what paths are
/// compared by.
QString PLStandardizedPath(const QUrl &url);

/// Deletes the temporary files that a crash of PLWriteFile left in this folder. Never touches a page.
void PLSweepTemporaryFiles(const QString &folder);

/// Reads text of any encoding: UTF-8 if it is that throughout, UTF-16 if it begins with its mark (an error if
/// it is then broken), else Windows-1252. The result keeps every character, a leading U+FEFF too.
[[nodiscard]] std::optional<QString> PLDecodedText(QByteArrayView bytes, PLError *error = nullptr);

/// Reads text that has to be UTF-8, keeping a leading U+FEFF. An error (EILSEQ) if one byte is wrong.
[[nodiscard]] std::optional<QString> PLDecodedUTF8(QByteArrayView bytes, PLError *error = nullptr);

/// The error for an errno value: PLFileErrorDomain, the number, a sentence in the interface language.
PLError PLFileError(int errorNumber);
