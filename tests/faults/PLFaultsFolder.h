// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

/// A folder to try operations in, in memory where the system has such a place: tens of thousands of notebooks
/// are built in it. The user's data folder, and with it the trash, is "home" in it.
class PLFaultsFolder final
{
public:
    PLFaultsFolder() : m_folder(placeInMemory() + QStringLiteral("/aquilane-faults-XXXXXX"))
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(path() + QStringLiteral("/home")));
    }

    /// Without links in it.
    QString path() const { return QFileInfo(m_folder.path()).canonicalFilePath(); }

private:
    static QString placeInMemory()
    {
        const QString memory = QStringLiteral("/dev/shm");
        return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    }

    QTemporaryDir m_folder;
};
