// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What stands around a book: the label below a cover, and the rings.

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "library/PLShelfBook.h"
#include "library/PLShelfBookDrawing.h"
#include "library/PLShelfCanvas.h"
#include "library/PLShelfText.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int ringDistance = 5;
constexpr double ringRadius = 5;
constexpr double ringWidth = 3;

void drawRing(PLShelfCanvas &canvas, const QRect &book, QRgb rgb)
{
    QColor color(rgb);
    color.setAlphaF(0.95F);
    const double scale = canvas.scale();
    const double distance = ringDistance * scale;
    QPainter &painter = canvas.painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, ringWidth * scale));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(
        QRectF(canvas.deviceRect(book)).adjusted(-distance, -distance, distance, distance),
        ringRadius * scale, ringRadius * scale);
    painter.restore();
}

} // namespace

QRect PLLabelBoxOfCover(const QRect &cover)
{
    return QRect(cover.x() - 15, cover.y() + cover.height() + 24, cover.width() + 30, 18);
}

void PLDrawLabelOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &cover)
{
    if (book.available)
        PLDrawShelfText(canvas, PLShelfText::Label, book.title, PLLabelBoxOfCover(cover));
    else
        PLDrawShelfText(canvas, PLShelfText::MissingLabel,
                        PLFormat(PLLocalizedString(u"%@ (introuvable)"_s), {book.title}),
                        PLLabelBoxOfCover(cover));
}

void PLDrawSelectionRing(PLShelfCanvas &canvas, const QRect &book)
{
    drawRing(canvas, book, 0xFFFFDE96);
}

void PLDrawDropRing(PLShelfCanvas &canvas, const QRect &book)
{
    drawRing(canvas, book, 0xFF8CC8FF);
}
