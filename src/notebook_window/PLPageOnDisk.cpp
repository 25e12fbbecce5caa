// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLPageOnDisk.h"

#include "storage/PLFileNames.h"

#include <QCryptographicHash>

#include <cerrno>

namespace {

constexpr int mostNamesTried = 100; // that others take at the same moment

QByteArray fingerprintOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

} // namespace

void PLPageOnDisk::remember(const QByteArray &bytes)
{
    m_fingerprint = fingerprintOf(bytes);
}

std::optional<QByteArray> PLPageOnDisk::changedBytes(const PLProjectItem &item, PLError *error) const
{
    if (m_fingerprint.isEmpty())
        return std::nullopt;
    PLError failure;
    std::optional<QByteArray> bytes = PLReadFile(item.path(), &failure);
    if (!bytes && PLSomethingExistsAt(item.path()))
        PLFail(error, failure);
    if (!bytes || fingerprintOf(*bytes) == m_fingerprint)
        return std::nullopt;
    return bytes;
}

PLProjectItemPointer PLKeepBesidePage(const PLProjectItem &item, const QByteArray &bytes, PLError *error)
{
    const QString path = item.path();
    const QUrl folder = QUrl::fromLocalFile(path.first(path.lastIndexOf(u'/') + 1));
    PLError failure;
    for (int tries = 0; tries < mostNamesTried; ++tries) {
        const QUrl url = PLAvailableURL(folder, item.title(), item.number(), item.section(), QUrl());
        if (PLWriteFile(PLStandardizedPath(url), bytes, PLWriteMode::CreateNew, &failure))
            return PLProjectItem::itemWithURL(url, item.section());
        if (failure.code != EEXIST)
            break;
    }
    PLFail(error, failure);
    return nullptr;
}
