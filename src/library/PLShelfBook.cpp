// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfBook.h"

#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "storage/PLRecentProjects.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

PLShelfBook PLShelfBookAtURL(const QUrl &folder)
{
    PLShelfBook book;
    book.url = folder;
    book.title = QFileInfo(PLStandardizedPath(folder)).fileName();
    const auto metadata = PLProject::metadataOfProjectAtURL(folder);
    book.available = metadata.has_value();
    if (!metadata)
        return book;
    const QString title = metadata->value(u"titre"_s);
    if (!title.isEmpty())
        book.title = title;
    book.author = metadata->value(u"auteur"_s);
    return book;
}

std::vector<PLShelfBook> PLKnownShelfBooks()
{
    std::vector<PLShelfBook> books;
    const QList<QUrl> folders = PLRecentProjects::URLs();
    for (const QUrl &folder : folders)
        books.push_back(PLShelfBookAtURL(folder));
    return books;
}
