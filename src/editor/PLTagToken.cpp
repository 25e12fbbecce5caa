// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagToken.h"

#include "theme/PLTheme.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int padding = 8;           // between the text and the ends of the token
constexpr int longestMeasured = 400; // UTF-16 units; more never fits

struct TokenColors
{
    QColor fill;
    QColor line;
    QColor text;
};

TokenColors colorsForState(PLTagToken::State state)
{
    const QColor color = PLTheme::tagsColor();
    switch (state) {
    case PLTagToken::State::Selected:
        return {color, PLTheme::shadowed(color, 0.15), Qt::white};
    case PLTagToken::State::SelectedWithoutFocus:
        return {PLTheme::highlighted(color, 0.62), PLTheme::highlighted(color, 0.4), PLTheme::inkColor()};
    case PLTagToken::State::Normal:
        break;
    }
    return {PLTheme::highlighted(color, 0.86), PLTheme::highlighted(color, 0.6),
            PLTheme::shadowed(color, 0.35)};
}

} // namespace

QFont PLTagToken::font()
{
    return PLTheme::systemFont(12);
}

QString PLTagToken::shownText(const QString &tag, int maximumWidth)
{
    const QString line = tag.left(longestMeasured).simplified();
    return QFontMetrics(font()).elidedText(line, Qt::ElideRight, maximumWidth - 2 * padding);
}

int PLTagToken::width(const QString &shownText)
{
    return QFontMetrics(font()).horizontalAdvance(shownText) + 2 * padding;
}

void PLTagToken::draw(QPainter &painter, const QRectF &rect, const QString &shownText, State state)
{
    const TokenColors colors = colorsForState(state);
    const QRectF outline = rect.adjusted(0.5, 0.5, -0.5, -0.5); // a line of one point, drawn sharp
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // the tag's own script decides, not the interface's
    painter.setPen(QPen(colors.line, 1));
    painter.setBrush(colors.fill);
    painter.drawRoundedRect(outline, outline.height() / 2, outline.height() / 2);
    painter.setPen(colors.text);
    painter.setFont(font());
    painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, shownText);
    painter.restore();
}
