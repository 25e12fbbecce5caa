// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewImages.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView imageExtensions[] = {u"png",  u"jpg", u"jpeg", u"gif", u"webp",
                                           u"avif", u"svg", u"bmp",  u"ico"};

bool isOnThisMachine(const QUrl &url)
{
    return url.isLocalFile() && url.host().isEmpty();
}

bool hasImageExtension(const QString &path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    return std::find(std::begin(imageExtensions), std::end(imageExtensions), extension) !=
           std::end(imageExtensions);
}

/// The notebook of a page's folder with a "/" at its end, links followed; empty if there is none. A folder
/// right below the root stands for itself: the whole disk is no notebook.
QString notebookOfFolder(const QUrl &folder)
{
    QDir place(QDir(folder.toLocalFile()).canonicalPath());
    if (!isOnThisMachine(folder) || place.path().isEmpty() || place.path() == u"."_s || place.isRoot())
        return QString();
    QDir above = place;
    if (above.cdUp() && !above.isRoot())
        place = above;
    return place.path() + u'/';
}

} // namespace

bool PLPreviewMayShowImage(const QUrl &image, const QUrl &baseURL)
{
    if (!isOnThisMachine(image) || !hasImageExtension(image.toLocalFile()))
        return false;
    const QString notebook = notebookOfFolder(baseURL);
    const QFileInfo file(QFileInfo(image.toLocalFile()).canonicalFilePath());
    return !notebook.isEmpty() && file.isFile() && hasImageExtension(file.filePath()) &&
           file.filePath().startsWith(notebook);
}
