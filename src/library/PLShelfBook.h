// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QString>
#include <QUrl>

#include <vector>

/// A known notebook as the library shows it.
struct PLShelfBook
{
    QUrl url;
    QString title;         ///< the notebook's, or the folder's name
    QString author;        ///< null for none
    QImage cover;          ///< a thumbnail, null for none
    bool available = true; ///< its metadata could be read
};

/// The notebook at this place, as it is on the disk now.
PLShelfBook PLShelfBookAtURL(const QUrl &folder);

/// Every known notebook, most recently opened first.
std::vector<PLShelfBook> PLKnownShelfBooks();
