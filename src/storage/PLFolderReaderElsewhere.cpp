// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// A folder's files on systems that are not Unix, by the toolkit's own means.

#include "storage/PLFiles.h"
#include "storage/PLFolderReader.h"

#include <QDirIterator>

struct PLFolderReader::Private
{
    explicit Private(const QString &folder) : entries(folder, QDir::Files | QDir::Hidden | QDir::System) {}

    QDirIterator entries;
    QString name;
    QByteArray start;
};

PLFolderReader::PLFolderReader(const QString &folder) : m_private(std::make_unique<Private>(folder)) {}

PLFolderReader::~PLFolderReader() = default;

bool PLFolderReader::next()
{
    if (!m_private->entries.hasNext())
        return false;
    m_private->entries.next();
    m_private->name = m_private->entries.fileName();
    return true;
}

const QString &PLFolderReader::name() const
{
    return m_private->name;
}

std::optional<QByteArrayView> PLFolderReader::start()
{
    const std::optional<QByteArray> bytes = PLReadFile(m_private->entries.filePath(), nullptr, startSize);
    if (!bytes)
        return std::nullopt;
    m_private->start = *bytes;
    return QByteArrayView(m_private->start);
}
