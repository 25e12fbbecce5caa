// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// A book that stands spine out.

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

constexpr PLBookShadow spineShadow{.offset = 2, .blur = 4, .alpha = 0.55};
constexpr int bandInset = 3;
constexpr int titleMargin = 24; // kept free at each end of the spine

/// Light that falls on a rounded back.
QLinearGradient roundedBack(const QColor &color, int width)
{
    QLinearGradient light(0, 0, width, 0);
    light.setColorAt(0, PLTheme::shadowed(color, 0.45));
    light.setColorAt(0.25, color);
    light.setColorAt(0.45, PLTheme::highlighted(color, 0.18));
    light.setColorAt(0.7, color);
    light.setColorAt(1, PLTheme::shadowed(color, 0.5));
    return light;
}

void paintBands(QPainter &painter, const QSize &spine)
{
    const QColor gold = PLGoldColor();
    const int width = spine.width() - 2 * bandInset;
    painter.fillRect(QRectF(bandInset, 12, width, 2), gold);
    painter.fillRect(QRectF(bandInset, 17, width, 1), gold);
    painter.fillRect(QRectF(bandInset, spine.height() - 18, width, 1), gold);
    painter.fillRect(QRectF(bandInset, spine.height() - 14, width, 2), gold);
}

/// The title as it reads from the foot of the spine to its head.
QImage titlePicture(const QString &title, int length, double scale)
{
    const QFontMetricsF metrics(PLFontOfShelfText(PLShelfText::SpineTitle));
    const QSizeF box(length, qCeil(metrics.ascent() + metrics.descent()) + 2);
    QImage picture((box * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PLPaintShelfText(painter, PLShelfText::SpineTitle, title, QRectF(QPointF(), box));
    painter.end();
    picture.setDevicePixelRatio(1);
    return picture.transformed(QTransform().rotate(-90)); // a quarter turn moves pixels, it blurs nothing
}

QImage spinePicture(const PLShelfBook &book, const QSize &spine, const QSize &pixels, double scale)
{
    QImage picture = spineShadow.picture(pixels, scale);
    const QMargins around = spineShadow.margins(scale);
    QPainter painter(&picture);
    painter.translate(around.left(), around.top());
    painter.scale(double(pixels.width()) / spine.width(), double(pixels.height()) / spine.height());
    painter.fillRect(QRect(QPoint(), spine),
                     roundedBack(PLBookAppearance::colorForBook(book), spine.width()));
    paintBands(painter, spine);
    painter.resetTransform();
    const QImage title = titlePicture(PLDrawableText(book.title), spine.height() - 2 * titleMargin, scale);
    painter.drawImage(around.left() + (pixels.width() - title.width()) / 2,
                      around.top() + (pixels.height() - title.height()) / 2, title);
    return picture;
}

} // namespace

QColor PLGoldColor()
{
    return QColor::fromRgbF(222 / 255.F, 190 / 255.F, 120 / 255.F, 0.85F);
}

void PLDrawSpineOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &spine)
{
    const QSize pixels = canvas.deviceRect(spine).size();
    const PLSpriteKey key{.kind = PLSpriteKey::Kind::Spine,
                          .color = PLBookAppearance::colorForBook(book).rgb(),
                          .text = PLDrawableText(book.title),
                          .size = pixels,
                          .scale = canvas.scale()};
    const QImage picture = canvas.sprites().sprite(
        key, [&] { return spinePicture(book, spine.size(), pixels, canvas.scale()); });
    const QMargins around = spineShadow.margins(canvas.scale());
    canvas.drawSprite(spine, picture, QPoint(around.left(), around.top()));
}
