// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLRecovery.h"

#include "foundation/PLPattern.h"
#include "storage/PLFileNames.h"
#include "storage/PLFiles.h"
#include "storage/PLProject.h"

#include <QFileInfo>
#include <QUuid>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestName = 255; // bytes, on every common disk
constexpr int mostNamesTried = 100;
constexpr auto encoding = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

/// The file name that a temporary name was made from; empty if it says none that a page can have.
QString nameWrittenInto(const QString &encoded)
{
    const auto decoded = QByteArray::fromBase64Encoding(encoded.toLatin1(), encoding);
    const QString name = decoded ? PLDecodedUTF8(*decoded).value_or(QString()) : QString();
    const bool isPageName = !name.contains(u'/') && !name.contains(QChar(QChar::Null)) &&
                            !name.startsWith(u'.') && name.endsWith(u".md", Qt::CaseInsensitive);
    return isPageName ? name : QString();
}

bool moveToFreeName(const QString &path, const QString &name, const PLProject &project, PLSection section)
{
    const PLProjectItemPointer page = PLProjectItem::itemWithURL(QUrl::fromLocalFile(u"/"_s + name), section);
    const QString title = PLSanitizedFileName(name.isEmpty() ? QString() : page->title());
    PLError failure{QString(), EEXIST, QString()};
    for (int tries = 0; tries < mostNamesTried && failure.code == EEXIST; ++tries) {
        const QUrl url =
            PLAvailableURL(project.URLForSection(section), title, page->number(), section, QUrl());
        if (PLMoveFile(path, PLStandardizedPath(url), &failure))
            return true;
    }
    return false;
}

/// Gives a page that a crash left under its temporary name a name of a page.
void giveNameBack(const QString &path, const QString &oldName, const PLProject &project, PLSection section)
{
    const QString folder = path.first(path.lastIndexOf(u'/') + 1);
    if (oldName.isEmpty() || !PLMoveFile(path, folder + oldName))
        moveToFreeName(path, oldName, project, section);
}

/// With the encoded old name as the first group.
const PLPattern &temporaryNamePattern()
{
    static const std::optional<PLPattern> pattern =
        PLPattern::compiled(u"^aquilane-[A-Za-z0-9_-]{22}(?:\\.([A-Za-z0-9_-]+))?\\.tmp$"_s);
    return *pattern;
}

/// Only what PLTemporaryPathForCover can have named.
void sweepUnfinishedCovers(const QString &folder)
{
    static const std::optional<PLPattern> pattern =
        PLPattern::compiled(u"^\\.couverture-[0-9a-f]{8}-(?:[0-9a-f]{4}-){3}[0-9a-f]{12}\\.([a-z]+)\\z"_s);
    const QStringList names = PLFileNamesInFolder(folder);
    for (const QString &name : names) {
        const std::optional<QStringList> groups = pattern->firstMatch(name);
        if (!groups || !PLProject::coverImageExtensions().contains(groups->at(1)))
            continue;
        const QString path = folder + u'/' + name;
        if (const QFileInfo file(path); file.isFile() && !file.isSymLink())
            (void)PLDeleteFile(path);
    }
}

} // namespace

QString PLTemporaryPathForRename(const QString &pagePath)
{
    const qsizetype nameStart = pagePath.lastIndexOf(u'/') + 1;
    const QString unique = QString::fromLatin1(QUuid::createUuid().toRfc4122().toBase64(encoding));
    const QString oldName = QString::fromLatin1(pagePath.sliced(nameStart).toUtf8().toBase64(encoding));
    const QString name = u"aquilane-"_s + unique + u'.' + oldName + u".tmp"_s;
    const QString folder = pagePath.first(nameStart);
    return folder + (name.size() <= longestName ? name : u"aquilane-"_s + unique + u".tmp"_s);
}

QString PLTemporaryPathForCover(const QString &folder, const QString &extension)
{
    return folder + u"/.couverture-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces) + u'.' +
           extension;
}

bool PLIsTemporaryNameForRename(const QString &fileName)
{
    return fileName.startsWith(u"aquilane-") && temporaryNamePattern().firstMatch(fileName).has_value();
}

void PLRecoverRenames(const PLProject &project, PLSection section)
{
    const QString folder = PLStandardizedPath(project.URLForSection(section));
    const QStringList names = PLFileNamesInFolder(folder);
    for (const QString &name : names) {
        if (const std::optional<QStringList> groups = temporaryNamePattern().firstMatch(name))
            giveNameBack(folder + u'/' + name, nameWrittenInto(groups->at(1)), project, section);
    }
}

void PLRecoverNotebook(const PLProject &project)
{
    PLSweepTemporaryFiles(PLStandardizedPath(project.folderURL()));
    sweepUnfinishedCovers(PLStandardizedPath(project.folderURL()));
    for (const PLSection section : PLAllSections) {
        PLSweepTemporaryFiles(PLStandardizedPath(project.URLForSection(section)));
        PLRecoverRenames(project, section);
    }
}
