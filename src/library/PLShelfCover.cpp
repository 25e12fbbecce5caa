// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// A book that shows its cover.

#include "library/PLBookAppearance.h"
#include "library/PLBookShadow.h"
#include "library/PLShelfBook.h"
#include "library/PLShelfBookDrawing.h"
#include "library/PLShelfCanvas.h"
#include "library/PLShelfText.h"
#include "theme/PLTheme.h"

#include <QLinearGradient>
#include <QPainterPath>

namespace {

constexpr PLBookShadow coverShadow{.offset = 4, .blur = 7, .alpha = 0.6};
constexpr double cornerRadius = 2;
constexpr double jointWidth = 12; // where the board meets the back
constexpr int ruleLeft = 18;
constexpr int ruleMargins = 28; // left and right together

QColor toned(Qt::GlobalColor tone, double alpha)
{
    QColor color(tone);
    color.setAlphaF(float(alpha));
    return color;
}

/// The mean of two pixels and the two below them.
QRgb meanOf(const QRgb *above, const QRgb *below)
{
    const auto mean = [=](int shift) {
        quint32 sum = 2; // to the nearest
        for (const QRgb pixel : {above[0], above[1], below[0], below[1]})
            sum += pixel >> shift & 0xFFU;
        return sum / 4 << shift;
    };
    return mean(24) | mean(16) | mean(8) | mean(0);
}

/// A picture of half the size. An odd last row or column is left out.
QImage halved(const QImage &picture)
{
    QImage half(picture.width() / 2, picture.height() / 2, picture.format());
    for (int y = 0; y < half.height(); ++y) {
        const auto *above = reinterpret_cast<const QRgb *>(picture.constScanLine(2 * y));
        const auto *below = reinterpret_cast<const QRgb *>(picture.constScanLine(2 * y + 1));
        auto *row = reinterpret_cast<QRgb *>(half.scanLine(y));
        for (int x = 0; x < half.width(); ++x, above += 2, below += 2)
            row[x] = meanOf(above, below);
    }
    return half;
}

/// The middle of a picture that fills a cover with its proportions kept, in the cover's pixels.
QImage filling(const QImage &picture, const QSize &pixels)
{
    QImage source = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    source.setDevicePixelRatio(1);
    const auto reduction = [&] {
        return qMin(double(source.width()) / pixels.width(), double(source.height()) / pixels.height());
    };
    while (reduction() >= 2) // the painter looks at four pixels only
        source = halved(source);
    const QSizeF part = QSizeF(pixels) * reduction();
    const QPointF corner((source.width() - part.width()) / 2, (source.height() - part.height()) / 2);
    QImage filled(pixels, QImage::Format_ARGB32_Premultiplied);
    filled.fill(Qt::transparent);
    QPainter painter(&filled);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(), pixels), source, QRectF(corner, part));
    return filled;
}

/// Cloth in the book's colour with two double rules of gold.
void paintBinding(QPainter &painter, const QColor &color, const QSize &cover)
{
    QLinearGradient cloth(0, 0, 0, cover.height());
    cloth.setColorAt(0, PLTheme::highlighted(color, 0.12));
    cloth.setColorAt(1, PLTheme::shadowed(color, 0.25));
    painter.fillRect(QRect(QPoint(), cover), cloth);
    for (const int y : {16, 19, cover.height() - 20, cover.height() - 17})
        painter.fillRect(QRectF(ruleLeft, y, cover.width() - ruleMargins, 1), PLGoldColor());
}

/// Light from the upper left, the joint along the back, and the thickness of the board.
void paintDepth(QPainter &painter, const QSize &cover)
{
    const double right = cover.width();
    const double bottom = cover.height();
    QLinearGradient light(0, 0, right, bottom);
    light.setColorAt(0, toned(Qt::white, 0.14));
    light.setColorAt(0.5, toned(Qt::white, 0));
    light.setColorAt(1, toned(Qt::black, 0.12));
    painter.fillRect(QRectF(0, 0, right, bottom), light);
    QLinearGradient back(0, 0, jointWidth, 0);
    back.setColorAt(0, toned(Qt::black, 0.26));
    back.setColorAt(0.3, toned(Qt::white, 0.06));
    back.setColorAt(0.55, toned(Qt::black, 0.04));
    back.setColorAt(0.72, toned(Qt::black, 0.30));
    back.setColorAt(0.82, toned(Qt::white, 0.16));
    back.setColorAt(1, toned(Qt::white, 0));
    painter.fillRect(QRectF(0, 0, jointWidth, bottom), back);
    painter.fillRect(QRectF(0, 0, right, 1), toned(Qt::white, 0.22));
    painter.fillRect(QRectF(right - 1, 1, 1, bottom - 1), toned(Qt::black, 0.30));
    painter.fillRect(QRectF(0, bottom - 1, right - 1, 1), toned(Qt::black, 0.35));
}

void cutCorners(QPainter &painter, const QSize &cover)
{
    QPainterPath corners;
    corners.addRect(QRectF(QPointF(), cover));
    corners.addRoundedRect(QRectF(QPointF(), cover), cornerRadius, cornerRadius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(corners, Qt::black);
}

/// A transparent picture of the cover's pixels, painted on in points.
QImage paintedInPoints(const QSize &cover, const QSize &pixels, const std::function<void(QPainter &)> &paint)
{
    QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(double(pixels.width()) / cover.width(), double(pixels.height()) / cover.height());
    paint(painter);
    return picture;
}

QImage shadowPicture(PLShelfCanvas &canvas, const QSize &pixels)
{
    const PLSpriteKey key{.kind = PLSpriteKey::Kind::CoverShadow, .size = pixels, .scale = canvas.scale()};
    return canvas.sprites().sprite(key, [&] { return coverShadow.picture(pixels, canvas.scale()); });
}

QImage depthPicture(PLShelfCanvas &canvas, const QSize &cover, const QSize &pixels)
{
    const PLSpriteKey key{.kind = PLSpriteKey::Kind::CoverDepth, .size = pixels, .scale = canvas.scale()};
    return canvas.sprites().sprite(key, [&] {
        return paintedInPoints(cover, pixels, [&](QPainter &painter) { paintDepth(painter, cover); });
    });
}

QImage boardPicture(PLShelfCanvas &canvas, const PLShelfBook &book, const QSize &cover, const QSize &pixels)
{
    const QColor color = PLBookAppearance::colorForBook(book);
    return paintedInPoints(cover, pixels, [&](QPainter &painter) {
        const QRectF outline(QPointF(), cover);
        painter.fillRect(outline, color); // seen through a picture that is not opaque
        if (book.cover.isNull())
            paintBinding(painter, color, cover);
        else
            painter.drawImage(outline, filling(book.cover, pixels));
        painter.drawImage(outline, depthPicture(canvas, cover, pixels));
        cutCorners(painter, cover);
    });
}

QImage coverPicture(PLShelfCanvas &canvas, const PLShelfBook &book, const QSize &cover, const QSize &pixels)
{
    QImage picture = shadowPicture(canvas, pixels);
    const QMargins around = coverShadow.margins(canvas.scale());
    QPainter(&picture).drawImage(around.left(), around.top(), boardPicture(canvas, book, cover, pixels));
    return picture;
}

} // namespace

void PLDrawCoverOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &cover)
{
    const QSize pixels = canvas.deviceRect(cover).size();
    const PLSpriteKey key{.kind = PLSpriteKey::Kind::Cover,
                          .color = PLBookAppearance::colorForBook(book).rgb(),
                          .picture = book.cover.isNull() ? 0 : book.cover.cacheKey(),
                          .size = pixels,
                          .scale = canvas.scale()};
    const QImage picture =
        canvas.sprites().sprite(key, [&] { return coverPicture(canvas, book, cover.size(), pixels); });
    const QMargins around = coverShadow.margins(canvas.scale());
    canvas.drawSprite(cover, picture, QPoint(around.left(), around.top()));
}

void PLDrawCoverTextOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &cover)
{
    PLDrawShelfText(canvas, PLShelfText::CoverTitle, book.title, PLTitleBoxOfCover(cover));
    PLDrawShelfText(canvas, PLShelfText::CoverAuthor, book.author, PLAuthorBoxOfCover(cover));
}

QRect PLTitleBoxOfCover(const QRect &cover)
{
    return QRect(cover.x() + ruleLeft, cover.x() + 36, cover.width() - ruleMargins, cover.height() - 90);
}

QRect PLAuthorBoxOfCover(const QRect &cover)
{
    return QRect(cover.x() + ruleLeft, cover.x() + cover.height() - 42, cover.width() - ruleMargins, 16);
}
