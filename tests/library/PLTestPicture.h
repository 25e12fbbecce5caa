// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QtEndian>

/// Pictures to read, as the bytes of a file.
namespace PLTestPicture {

/// Grey, with a red upper left corner an eighth of each side large.
inline QImage drawn(const QSize &size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::gray);
    for (int y = 0; y < qMax(1, size.height() / 8); ++y) {
        for (int x = 0; x < qMax(1, size.width() / 8); ++x)
            picture.setPixelColor(x, y, Qt::red);
    }
    return picture;
}

/// What no format can make small.
inline QImage noise(const QSize &size)
{
    QRandomGenerator random(7);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, random.generate() | 0xFF000000);
    }
    return picture;
}

inline QByteArray encoded(const QImage &picture, const QByteArray &format)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    return writer.write(picture) ? buffer.data() : QByteArray();
}

/// A JPEG that says how the camera was held, as Exif numbers it.
inline QByteArray photograph(const QSize &size, int orientation)
{
    QByteArray entry("\x01\x12\x00\x03\x00\x00\x00\x01\x00\x00\x00\x00", 12);
    entry[9] = char(orientation);
    const QByteArray directory = QByteArray("MM\0*\0\0\0\x08\0\x01", 10) + entry + QByteArray("\0\0\0\0", 4);
    const QByteArray exif = QByteArray("Exif\0\0", 6) + directory;
    QByteArray segment("\xFF\xE1\0\0", 4);
    qToBigEndian(quint16(exif.size() + 2), segment.data() + 2);
    return encoded(drawn(size), "jpeg").insert(2, segment + exif);
}

/// A GIF of 2 × 1 pixels with two frames: the first red, the second blue.
inline QByteArray animation()
{
    const QByteArray header("GIF89a\x02\0\x01\0\x81\0\0\xFF\0\0\0\0\xFF\0\0\0\0\0\0", 25);
    const QByteArray frame("\x21\xF9\x04\0\x0A\0\0\0\x2C\0\0\0\0\x02\0\x01\0\0\x02\x02", 20);
    // Codes of 3 bits: clear, the pixel's index twice, end.
    return header + frame + QByteArray("\x04\x0A\0", 3) + frame + QByteArray("\x4C\x0A\0", 3) + ';';
}
inline constexpr qsizetype firstFrameSize = 48;

/// A screen so large, and a frame that fills it, of which nothing is there.
inline QByteArray hugeAnimation(quint16 side)
{
    QByteArray bytes = animation();
    for (const qsizetype place : {6, 8, 38, 40})
        qToLittleEndian(side, bytes.data() + place);
    return bytes;
}

inline QByteArray withJPEGSize(QByteArray bytes, quint16 side)
{
    const qsizetype frame = bytes.indexOf("\xFF\xC0");
    qToBigEndian(side, bytes.data() + frame + 5);
    qToBigEndian(side, bytes.data() + frame + 7);
    return bytes;
}

/// A whole black picture of so many pixels a side, one bit each.
inline QByteArray blackPNG(int side)
{
    QImage picture(side, side, QImage::Format_Mono);
    picture.fill(0);
    return encoded(picture, "png");
}

inline QByteArray hugeBMP(quint32 side)
{
    QByteArray bytes = encoded(drawn({8, 8}), "bmp");
    qToLittleEndian(side, bytes.data() + 18);
    qToLittleEndian(side, bytes.data() + 22);
    return bytes;
}

} // namespace PLTestPicture
