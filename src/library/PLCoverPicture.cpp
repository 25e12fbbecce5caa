// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLCoverPicture.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace {

constexpr qint64 mostPixels = 50'000'000; // a telephone's largest photograph, but for its show-off modes
constexpr int mostMemory = 128;           // MiB for one picture that cannot be scaled while it is read

struct Format
{
    const char *name;
    QByteArrayView start; ///< of every file of the format
};

constexpr Format formats[] = {
    {"jpeg", "\xFF\xD8\xFF"},
    {"png", "\x89PNG\r\n\x1A\n"},
    {"gif", "GIF87a"},
    {"gif", "GIF89a"},
    {"bmp", "BM"},
    {"tiff", {"II*\0", 4}},
    {"tiff", {"MM\0*", 4}},
};
constexpr qint64 longestStart = 8;

/// A file that knows whether its reader wanted more than there is: the picture has been cut short then. Some
/// readers of the toolkit tell nobody and give what there is, with the rest in grey.
class PLPictureFile final : public QFile
{
public:
    using QFile::QFile;

    /// Begins to watch. A reader that asks for what it needs gets less then; one that fills a buffer gets
    /// less at every end, and nothing when it asks beyond.
    void watch(bool asksForWhatItNeeds)
    {
        m_asksForWhatItNeeds = asksForWhatItNeeds;
        m_isTooShort = false;
    }
    bool isTooShort() const { return m_isTooShort; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        const qint64 count = QFile::readData(data, size);
        m_isTooShort = m_isTooShort || (count < size && (count <= 0 || m_asksForWhatItNeeds));
        return count;
    }

private:
    bool m_asksForWhatItNeeds = false;
    bool m_isTooShort = false;
};

/// Empty for none of ours. Asking the toolkit instead would load every plugin for pictures, those for formats
/// that can fetch other files among them.
QByteArray formatOfFile(QFile &file)
{
    const QByteArray start = file.peek(longestStart);
    for (const Format &format : formats) {
        if (start.startsWith(format.start))
            return format.name;
    }
    return {};
}

bool isReadable(const QSize &size)
{
    return !size.isEmpty() && qint64(size.width()) * size.height() <= mostPixels;
}

} // namespace

QSize PLThumbnailSize(const QSizeF &picture, double longestSide)
{
    if (picture.width() < 1 || picture.height() < 1)
        return {};
    const double scale = qMin(1.0, longestSide / qMax(picture.width(), picture.height()));
    return {qRound(picture.width() * scale), qRound(picture.height() * scale)};
}

QImage PLReadCoverPicture(const QString &path, int longestSide)
{
    PLPictureFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    const QByteArray format = formatOfFile(file);
    if (format.isEmpty())
        return {};
    QImageReader::setAllocationLimit(mostMemory);
    QImageReader reader(&file, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const QSize wanted = PLThumbnailSize(size, longestSide);
    if (!isReadable(size) || wanted.isEmpty())
        return {};
    if (wanted != size)
        reader.setScaledSize(wanted);
    file.watch(format == "bmp");
    const QImage picture = reader.read();
    if (picture.isNull() || file.isTooShort())
        return {};
    return picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                             : QImage::Format_RGB32);
}
