// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLCoverThumbnails.h"

#include "library/PLCoverPicture.h"
#include "storage/PLFiles.h"

#include <QDateTime>
#include <QFileInfo>

namespace {

/// 0 for a file without one.
double secondsOfDate(const QDateTime &date)
{
    constexpr qint64 referenceDate = 978'307'200'000; // 2001-01-01 00:00 UTC, in milliseconds since 1970
    return date.isValid() ? double(date.toMSecsSinceEpoch() - referenceDate) / 1000 : 0;
}

} // namespace

QString PLCoverThumbnails::keyForImageAtURL(const QUrl &image)
{
    const QString path = PLStandardizedPath(image);
    const double seconds = secondsOfDate(QFileInfo(path).lastModified());
    return path + u'|' + QString::number(seconds, 'f', 6);
}

QImage PLCoverThumbnails::knownThumbnailForImageAtURL(const QUrl &image) const
{
    return m_thumbnails.value(keyForImageAtURL(image));
}

QImage PLCoverThumbnails::thumbnailForImageAtURL(const QUrl &image)
{
    const QString key = keyForImageAtURL(image);
    const QImage known = m_thumbnails.value(key);
    if (!known.isNull())
        return known;
    const QImage thumbnail = PLReadCoverPicture(PLStandardizedPath(image), qRound(longestSide * m_scale));
    if (!thumbnail.isNull())
        m_thumbnails.insert(key, thumbnail);
    return thumbnail;
}
