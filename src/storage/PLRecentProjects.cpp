// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLRecentProjects.h"

#include "foundation/PLPreferences.h"
#include "storage/PLFiles.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostEntries = 15;

bool isText(const QVariant &entry)
{
    return entry.typeId() == QMetaType::QString;
}

/// The list as it is stored, with what is not text in it.
QVariantList storedEntries()
{
    const QVariant value = PLPreferences::store().value(u"PLRecentProjects"_s);
    if (!value.isValid())
        return {};
    // The ini file gives a list of one entry back as that entry. Bytes would become a list of characters.
    const bool isList = value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList;
    return isList ? value.toList() : QVariantList{value};
}

void store(const QVariantList &entries)
{
    PLPreferences::store().setValue(u"PLRecentProjects"_s, entries);
    PLPreferences::store().sync();
}

QVariantList entriesWithout(const QString &path)
{
    QVariantList entries = storedEntries();
    entries.removeIf([&](const QVariant &entry) { return isText(entry) && entry.toString() == path; });
    return entries;
}

} // namespace

QStringList PLRecentProjects::paths()
{
    QStringList paths;
    const QVariantList entries = storedEntries();
    for (const QVariant &entry : entries) {
        if (isText(entry))
            paths.append(entry.toString());
    }
    return paths;
}

QList<QUrl> PLRecentProjects::URLs()
{
    QList<QUrl> urls;
    const QStringList stored = paths();
    for (const QString &path : stored)
        urls.append(QUrl::fromLocalFile(path.endsWith(u'/') ? path : path + u'/'));
    return urls;
}

void PLRecentProjects::addURL(const QUrl &folder)
{
    const QString path = PLStandardizedPath(folder);
    QVariantList entries = entriesWithout(path);
    entries.prepend(path);
    if (entries.size() > mostEntries)
        entries.resize(mostEntries);
    store(entries);
}

void PLRecentProjects::removeURL(const QUrl &folder)
{
    store(entriesWithout(PLStandardizedPath(folder)));
}
