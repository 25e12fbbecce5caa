// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"
#include "editor/PLTagToken.h"
#include "theme/PLTheme.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double radius = 5;
constexpr int fadeWidth = 14; // where a row goes on out of sight
constexpr int placeholderMargin = 8;

QColor fieldColor()
{
    return PLTheme::highlighted(PLTheme::paperColor(), 0.5);
}

QColor lineColor(bool hasFocus)
{
    return hasFocus ? PLTheme::highlighted(PLTheme::tagsColor(), 0.3)
                    : PLTheme::shadowed(PLTheme::coverColor(), 0.06);
}

} // namespace

void PLTagField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawRect(painter);
}

void PLTagField::drawRect(QPainter &painter)
{
    const QRectF outline = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath shape;
    shape.addRoundedRect(outline, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape, fieldColor());
    painter.save();
    painter.setClipRect(rect().adjusted(2, 2, -2, -2));
    drawRow(painter);
    drawEnds(painter);
    painter.restore();
    painter.strokePath(shape, QPen(lineColor(hasFocus()), 1));
}

void PLTagField::drawPlaceholder(QPainter &painter)
{
    const QRect place = rect().adjusted(placeholderMargin, 0, -placeholderMargin, 0);
    const QFontMetrics metrics(PLTagToken::font());
    painter.setFont(PLTagToken::font());
    painter.setPen(PLTheme::shadowed(PLTheme::faintInkColor(), 0.1));
    painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     metrics.elidedText(m_placeholder, Qt::ElideRight, place.width()));
}

void PLTagField::drawRow(QPainter &painter)
{
    if (m_model.length() == 0 && !isComposing())
        drawPlaceholder(painter);
    const auto selected = hasFocus() ? PLTagToken::State::Selected : PLTagToken::State::SelectedWithoutFocus;
    for (int index = 0; index < int(m_layout.tokens().size()); ++index) {
        const PLTagFieldLayout::Token &token = m_layout.tokens()[size_t(index)];
        const QRectF place = token.rect.translated(rowOrigin());
        const bool isSeen = place.right() > 0 && place.left() < width();
        if (isSeen)
            PLTagToken::draw(painter, place, token.shownText,
                             m_model.isTokenSelected(index) ? selected : PLTagToken::State::Normal);
    }
    drawText(painter);
    const bool hasCaret = m_isCaretShown && hasFocus() && !m_model.hasSelection() && m_composed.cursor >= 0;
    if (m_dropPosition || hasCaret)
        painter.fillRect(rectOfCaret(m_dropPosition.value_or(m_model.caret())), PLTheme::inkColor());
}

void PLTagField::drawText(QPainter &painter)
{
    if (m_layout.textRect().isNull())
        return;
    QList<QTextLayout::FormatRange> formats = m_composed.formats;
    const int start = qBound(0, m_model.selectionStart() - m_model.textIndex(), int(m_model.text().size()));
    const int end = qBound(0, m_model.selectionEnd() - m_model.textIndex(), int(m_model.text().size()));
    if (end > start) {
        QTextLayout::FormatRange selection{start, end - start, {}};
        selection.format.setBackground(PLTheme::highlighted(PLTheme::tagsColor(), hasFocus() ? 0.6 : 0.8));
        formats.append(selection);
    }
    QPointF place = m_layout.textRect().topLeft() + rowOrigin();
    place.ry() += (PLTagToken::height - m_layout.textLayout().boundingRect().height()) / 2;
    painter.setPen(PLTheme::inkColor());
    m_layout.textLayout().draw(&painter, place, formats);
}

/// Lets the row fade out at an end beyond which it goes on.
void PLTagField::drawEnds(QPainter &painter)
{
    const double left = rowOrigin().x() + (isRightToLeft() ? -m_layout.length() : 0);
    const double right = left + m_layout.length();
    QColor none = fieldColor();
    none.setAlpha(0);
    const auto fade = [&](double from, double to) {
        QLinearGradient gradient(from, 0, to, 0);
        gradient.setColorAt(0, fieldColor());
        gradient.setColorAt(1, none);
        painter.fillRect(QRectF(qMin(from, to), 0, qAbs(to - from), height()), gradient);
    };
    if (left < 0)
        fade(1, 1 + fadeWidth);
    if (right > width() + 1)
        fade(width() - 1, width() - 1 - fadeWidth);
}
