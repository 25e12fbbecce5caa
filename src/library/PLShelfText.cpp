// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfText.h"

#include "library/PLShelfCanvas.h"
#include "theme/PLTheme.h"

#include <QTextLayout>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestText = 400; // more than any of the boxes can show
constexpr int overhang = 3;            // of slanted letters, outside of the box

struct TextLook
{
    int size;
    QFont::Weight weight;
    bool isItalic;
    int fallbackSize; // for the system's font, if there is no Georgia
    QRgb color;
    float alpha;
};

const TextLook &lookOf(PLShelfText style)
{
    static constexpr TextLook looks[] = {
        {12, QFont::Bold, false, 12, 0xFFF6E8C8, 1},     // a spine's title
        {15, QFont::Bold, false, 14, 0xFFF6E8C8, 1},     // a cover's title
        {11, QFont::Normal, true, 11, 0xFFE8D6B0, 0.9F}, // a cover's author
        {12, QFont::Normal, false, 12, 0xFFFAECD2, 0.95F},
        {12, QFont::Normal, false, 12, 0xFFFAECD2, 0.55F}, // the label of a missing notebook
        {16, QFont::Normal, true, 16, 0xFFF5E4C8, 0.9F},   // the message of an empty library
    };
    return looks[int(style)];
}

QTextOption wrapped()
{
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

/// The rest of a text on its last line.
void paintLastLine(QPainter &painter, const QString &text, const QRectF &line)
{
    const QString shown = QFontMetricsF(painter.font()).elidedText(text, Qt::ElideRight, line.width());
    painter.drawText(line, Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine | Qt::TextDontClip, shown);
}

/// Whole lines only; the last one that fits stands for all that follow.
void paintLines(QPainter &painter, const QString &text, const QRectF &box)
{
    QTextLayout layout(text, painter.font());
    layout.setTextOption(wrapped());
    layout.beginLayout();
    double y = box.top();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(box.width());
        const bool isLast = y + 2 * line.height() > box.bottom();
        if (isLast && line.textStart() + line.textLength() < text.size()) {
            paintLastLine(painter, text.sliced(line.textStart()),
                          QRectF(box.left(), y, box.width(), line.height()));
            break;
        }
        line.draw(&painter, QPointF(box.left(), y));
        y += line.height();
    }
    layout.endLayout();
}

QImage textPicture(PLShelfText style, const QString &text, const QSize &size, double scale)
{
    const QSize pixels(qCeil((size.width() + 2 * overhang) * scale), qCeil(size.height() * scale));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    PLPaintShelfText(painter, style, text, QRectF(QPointF(overhang, 0), QSizeF(size)));
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

} // namespace

QFont PLFontOfShelfText(PLShelfText style)
{
    const TextLook &look = lookOf(style);
    QFont font = PLTheme::serifFont(look.size, look.weight, look.fallbackSize);
    font.setItalic(look.isItalic);
    return font;
}

QColor PLColorOfShelfText(PLShelfText style)
{
    QColor color = lookOf(style).color;
    color.setAlphaF(lookOf(style).alpha);
    return color;
}

QString PLDrawableText(const QString &text)
{
    QString drawable = text.first(qMin(text.size(), longestText));
    if (!drawable.isEmpty() && drawable.back().isHighSurrogate())
        drawable.chop(1);
    for (QChar &character : drawable) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return drawable;
}

void PLDrawShelfText(PLShelfCanvas &canvas, PLShelfText style, const QString &text, const QRect &box)
{
    if (box.isEmpty() || text.isEmpty())
        return;
    const QString drawable = style == PLShelfText::EmptyMessage ? text : PLDrawableText(text);
    const PLSpriteKey key{.kind = PLSpriteKey::Kind::Text,
                          .style = int(style),
                          .text = drawable,
                          .size = box.size(),
                          .scale = canvas.scale()};
    const QImage picture = canvas.sprites().sprite(
        key, [&] { return textPicture(style, drawable, box.size(), canvas.scale()); });
    canvas.drawSprite(box, picture, QPoint(qRound(overhang * canvas.scale()), 0));
}

void PLPaintShelfText(QPainter &painter, PLShelfText style, const QString &text, const QRectF &box)
{
    painter.setFont(PLFontOfShelfText(style));
    painter.setPen(PLColorOfShelfText(style));
    if (style == PLShelfText::EmptyMessage) {
        painter.drawText(box, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text);
        return;
    }
    if (style == PLShelfText::CoverTitle)
        paintLines(painter, text, box);
    else
        paintLastLine(painter, text, box);
}
