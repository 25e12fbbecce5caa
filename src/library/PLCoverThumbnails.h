// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QImage>
#include <QString>

class QUrl;

/// The thumbnails of covers that have been read, by the picture's file and its date: a picture that has
/// changed is another one. None is ever dropped.
class PLCoverThumbnails final
{
public:
    static constexpr int longestSide = 360; ///< points

    /// `scale` is that of the screen, in pixels to a point.
    explicit PLCoverThumbnails(double scale = 1) : m_scale(scale) {}

    /// The path, "|", and the date of the last change in seconds since 2001-01-01 00:00 UTC.
    static QString keyForImageAtURL(const QUrl &image);

    /// The thumbnail if it has been read, null if not.
    QImage knownThumbnailForImageAtURL(const QUrl &image) const;
    /// The thumbnail, read now if need be; null for a picture that cannot be read.
    QImage thumbnailForImageAtURL(const QUrl &image);
    qsizetype count() const { return m_thumbnails.size(); }

private:
    double m_scale;
    QHash<QString, QImage> m_thumbnails;
};
