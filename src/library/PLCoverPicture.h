// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QSizeF>

/// The size of the thumbnail of a picture, each side rounded: shrunk so that the longer side is `longestSide`
/// at most, never enlarged. Empty for a picture that has a side below 1.
QSize PLThumbnailSize(const QSizeF &picture, double longestSide);

/// Reads a cover picture in its small form: JPEG, PNG, GIF (its first frame), TIFF or BMP, told by what is in
/// the file and not by its name, turned upright. Null for what cannot be read whole, for what is none of
/// these, and for a picture too large to be read in a moment. Never waits for a FIFO or a device.
QImage PLReadCoverPicture(const QString &path, int longestSide);
