// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QFile>

// Files of tests, by the toolkit's own means, so that nothing of what is tested is believed.

/// The bytes of a file; null if it cannot be read.
inline QByteArray PLBytesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray bytes = file.readAll();
    return bytes.isNull() ? QByteArray("") : bytes;
}

/// Makes a file of these bytes, and the folders above it. False if that fails.
inline bool PLMakeFile(const QString &path, const QByteArray &bytes = QByteArray())
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.flush();
}

/// The names of everything in a folder, hidden things too, sorted by code point.
inline QStringList PLNamesIn(const QString &folder)
{
    QStringList names =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    names.sort();
    return names;
}

/// A picture of 3 by 2.
inline QByteArray PLPictureBytes()
{
    return QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAMAAAACCAIAAAASFvFNAAAAEElEQVR4nGM4uXMKBDHAWQ"
                                  "B+egyFzcFVCwAAAABJRU5ErkJggg==");
}
