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
#include <QtMath>

namespace {

constexpr PLBookShadow coverShadow{.offset = 4, .blur = 7, .alpha = 0.6};
constexpr double cornerRadius = 2;
constexpr int ruleLeft = 18;
constexpr int ruleMargins = 28; // left and right together

QColor toned(Qt::GlobalColor tone, double alpha)
{
    QColor color(tone);
    color.setAlphaF(float(alpha));
    return color;
}

/// The part of a picture that fills a cover with its proportions kept, scaled to the cover's pixels. It is
/// cut out before it is scaled, or a very long and thin picture would get huge.
QImage filling(const QImage &picture, const QSize &pixels)
{
    const QSizeF size(qMax(1, picture.width()), qMax(1, picture.height()));
    const double scale = qMax(pixels.width() / size.width(), pixels.height() / size.height());
    const QSizeF partSize = QSizeF(pixels) / scale;
    const QRectF part(QPointF((size.width() - partSize.width()) / 2, (size.height() - partSize.height()) / 2),
                      partSize);
    const QRect whole = part.toAlignedRect().intersected(picture.rect());
    const QSize scaled(qCeil(whole.width() * scale), qCeil(whole.height() * scale));
    QImage filled(pixels, QImage::Format_ARGB32_Premultiplied);
    filled.fill(Qt::transparent);
    QPainter painter(&filled);
    painter.drawImage(((QPointF(whole.topLeft()) - part.topLeft()) * scale).toPoint(),
                      picture.copy(whole).scaled(scaled, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return filled;
}

/// Cloth in the book's colour with two double rules of gold.
void paintBinding(QPainter &painter, const QColor &color, const QSize &cover)
{
    QLinearGradient cloth(0, 0, 0, cover.height());
    cloth.setColorAt(0, PLTheme::highlighted(color, 0.12));
    cloth.setColorAt(1, PLTheme::shadowed(color, 0.25));
    painter.setBrush(cloth);
    painter.drawRoundedRect(QRectF(QPointF(), cover), cornerRadius, cornerRadius);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const int y : {16, 19, cover.height() - 20, cover.height() - 17})
        painter.fillRect(QRectF(ruleLeft, y, cover.width() - ruleMargins, 1), PLGoldColor());
}

void paintPicture(QPainter &painter, const QImage &picture, const QColor &color, const QSize &pixels,
                  const QSize &cover)
{
    const QRectF outline(QPointF(), cover);
    painter.setBrush(color); // seen through a picture that is not opaque
    painter.drawRoundedRect(outline, cornerRadius, cornerRadius);
    QBrush texture(filling(picture, pixels));
    texture.setTransform(QTransform::fromScale(double(cover.width()) / pixels.width(),
                                               double(cover.height()) / pixels.height()));
    painter.setBrush(texture);
    painter.drawRoundedRect(outline, cornerRadius, cornerRadius);
}

/// Light from the upper left, the joint along the back, and the thickness of the board.
void paintDepth(QPainter &painter, const QSize &cover)
{
    const double right = cover.width();
    const double bottom = cover.height();
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    QLinearGradient light(0, 0, right, bottom);
    light.setColorAt(0, toned(Qt::white, 0.14));
    light.setColorAt(0.5, toned(Qt::white, 0));
    light.setColorAt(1, toned(Qt::black, 0.12));
    painter.fillRect(QRectF(0, 0, right, bottom), light);
    QLinearGradient back(0, 0, 12, 0);
    back.setColorAt(0, toned(Qt::black, 0.26));
    back.setColorAt(0.3, toned(Qt::white, 0.06));
    back.setColorAt(0.55, toned(Qt::black, 0.04));
    back.setColorAt(0.72, toned(Qt::black, 0.30));
    back.setColorAt(0.82, toned(Qt::white, 0.16));
    back.setColorAt(1, toned(Qt::white, 0));
    painter.fillRect(QRectF(0, 0, 12, bottom), back);
    painter.fillRect(QRectF(0, 0, right, 1), toned(Qt::white, 0.22));
    painter.fillRect(QRectF(right - 1, 1, 1, bottom - 1), toned(Qt::black, 0.30));
    painter.fillRect(QRectF(0, bottom - 1, right - 1, 1), toned(Qt::black, 0.35));
}

QImage coverPicture(const PLShelfBook &book, const QSize &cover, const QSize &pixels, double scale)
{
    const QColor color = PLBookAppearance::colorForBook(book);
    QImage board(pixels, QImage::Format_ARGB32_Premultiplied);
    board.fill(Qt::transparent);
    QPainter painter(&board);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(double(pixels.width()) / cover.width(), double(pixels.height()) / cover.height());
    if (book.cover.isNull())
        paintBinding(painter, color, cover);
    else
        paintPicture(painter, book.cover, color, pixels, cover);
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintDepth(painter, cover);
    painter.end();
    QImage picture = coverShadow.picture(pixels, scale);
    const QMargins around = coverShadow.margins(scale);
    QPainter(&picture).drawImage(around.left(), around.top(), board);
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
    const QImage picture = canvas.sprites().sprite(
        key, [&] { return coverPicture(book, cover.size(), pixels, canvas.scale()); });
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
