// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The cover picture of a notebook's folder.

#include "i18n/PLLocalization.h"
#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "storage/PLRecovery.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString coverPath(const QUrl &folder, const QString &extension)
{
    return PLStandardizedPath(folder) + u"/couverture."_s + extension;
}

/// Deletes every cover but the one to keep, links that lead nowhere too: they would stand in a new cover's
/// way.
bool deleteCovers(const QUrl &folder, const QString &kept, PLError *error)
{
    const QStringList extensions = PLProject::coverImageExtensions();
    for (const QString &extension : extensions) {
        const QString path = coverPath(folder, extension);
        if (path != kept && !PLDeleteFile(path, error))
            return false;
    }
    return true;
}

/// In lower case; empty for a name that only begins with a full stop.
QString extensionOf(const QString &path)
{
    const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
    const qsizetype stop = name.lastIndexOf(u'.');
    return stop > 0 ? name.sliced(stop + 1).toLower() : QString();
}

/// The new cover beside the old one, then the old one deleted; or the new one taken away again.
bool succeed(const QString &copy, const QString &target, const QString &old, PLError *error)
{
    if (!PLMoveFile(copy, target, error))
        return false;
    if (old.isEmpty() || PLDeleteFile(old, error))
        return true;
    if (PLSomethingExistsAt(old))
        (void)PLDeleteFile(target);
    return false;
}

/// One cover stays to the last, so that no crash leaves a notebook without: the one that will be replaced, or
/// the one that is shown.
bool replaceCovers(const QString &copy, const QString &target, const QUrl &folder, PLError *error)
{
    const bool isReplacing = PLSomethingExistsAt(target);
    const QString last =
        isReplacing ? target : PLStandardizedPath(PLProject::coverImageURLForProjectAtURL(folder));
    if (!deleteCovers(folder, last, error))
        return false;
    return isReplacing ? PLReplaceFile(copy, target, error) : succeed(copy, target, last, error);
}

} // namespace

QStringList PLProject::coverImageExtensions()
{
    return {u"jpg"_s, u"jpeg"_s, u"png"_s, u"gif"_s, u"tif"_s, u"tiff"_s, u"bmp"_s};
}

QUrl PLProject::coverImageURLForProjectAtURL(const QUrl &folder)
{
    const QStringList extensions = coverImageExtensions();
    for (const QString &extension : extensions) {
        const QString path = coverPath(folder, extension);
        if (QFileInfo::exists(path))
            return QUrl::fromLocalFile(path);
    }
    return {};
}

bool PLProject::removeCoverImageForProjectAtURL(const QUrl &folder, PLError *error)
{
    return deleteCovers(folder, QString(), error);
}

bool PLProject::setCoverImageFromURL(const QUrl &image, const QUrl &folder, PLError *error)
{
    const QString source = PLStandardizedPath(image);
    const QString extension = extensionOf(source);
    if (!coverImageExtensions().contains(extension))
        return PLFail(
            error,
            {PLApplicationErrorDomain, PLErrorRefused,
             PLLocalizedString(u"Ce fichier n'est pas une image reconnue (JPEG, PNG, GIF, TIFF ou BMP)."_s)});
    const QString target = coverPath(folder, extension);
    if (source == target)
        return true;
    const QString copy = PLTemporaryPathForCover(PLStandardizedPath(folder), extension);
    if (!PLCopyFile(source, copy, error))
        return false;
    if (replaceCovers(copy, target, folder, error))
        return true;
    (void)PLDeleteFile(copy);
    return false;
}
