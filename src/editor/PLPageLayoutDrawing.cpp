// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

//
// How PLPageLayout draws: paragraphs, selections, the caret.

#include "editor/PLLineSpacing.h"
#include "editor/PLPageLayout.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr double selectedEndWidth = 6; // points

/// The parts of the selections that lie in this block, in the block's own positions.
QList<QTextLayout::FormatRange> rangesInBlock(const QTextBlock &block,
                                              const QList<QAbstractTextDocumentLayout::Selection> &selections)
{
    QList<QTextLayout::FormatRange> ranges;
    for (const QAbstractTextDocumentLayout::Selection &selection : selections) {
        const int start = qMax(0, selection.cursor.selectionStart() - block.position());
        const int end = qMin(block.length(), selection.cursor.selectionEnd() - block.position());
        if (start < end)
            ranges.append({start, end - start, selection.format});
    }
    return ranges;
}

/// True if the text reads from left to right throughout, so that what is selected in a line is in one piece.
bool isLeftToRight(const QString &text)
{
    return std::none_of(text.begin(), text.end(), [](QChar character) {
        return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
    });
}

/// The background of a selection over the whole height of its lines, where Qt leaves stripes between them. A
/// selected end of the paragraph is seen as a narrow piece.
void drawBands(QPainter &painter, const QTextBlock &block, const QPointF &position,
               const QTextLayout::FormatRange &range)
{
    const QTextLayout *layout = block.layout();
    const int rangeEnd = range.start + range.length;
    for (int number = 0; number < layout->lineCount(); ++number) {
        const QTextLine line = layout->lineAt(number);
        const int start = qMax(range.start, line.textStart());
        const int end = qMin(rangeEnd, line.textStart() + line.textLength());
        const bool hasBlockEnd = number == layout->lineCount() - 1 && rangeEnd == block.length();
        if (start > end || (start == end && !hasBlockEnd))
            continue;
        const double left = line.cursorToX(start);
        const double width = line.cursorToX(end) - left + (hasBlockEnd ? selectedEndWidth : 0);
        painter.fillRect(QRectF(position.x() + left, position.y() + PLTopOfLine(line), width,
                                PLSpacedHeight(line.height())),
                         range.format.background());
    }
}

/// Draws the backgrounds of the ranges and takes them out of their formats; nothing for text that runs both
/// ways.
void drawBackgrounds(QPainter &painter, const QTextBlock &block, const QPointF &position,
                     QList<QTextLayout::FormatRange> &ranges)
{
    if (ranges.isEmpty() || !isLeftToRight(block.text()))
        return;
    for (QTextLayout::FormatRange &range : ranges) {
        if (!range.format.hasProperty(QTextFormat::BackgroundBrush))
            continue;
        drawBands(painter, block, position, range);
        range.format.clearBackground();
    }
}

} // namespace

void PLPageLayout::draw(QPainter *painter, const PaintContext &context)
{
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    QTextBlock block = document()->findBlockByNumber(int(m_heights.indexAt(clip.top() - VerticalInset)));
    double top = topOfBlock(block.blockNumber());
    for (; block.isValid() && top < clip.bottom(); block = block.next()) {
        ensureLaidOut(block);
        drawBlock(painter, block, QPointF(m_inset, top), context);
        top += m_heights.height(size_t(block.blockNumber()));
    }
}

void PLPageLayout::drawBlock(QPainter *painter, const QTextBlock &block, const QPointF &position,
                             const PaintContext &context) const
{
    const QTextLayout *layout = block.layout();
    QList<QTextLayout::FormatRange> ranges = rangesInBlock(block, context.selections);
    drawBackgrounds(*painter, block, position, ranges);
    painter->setPen(context.palette.color(QPalette::Text));
    layout->draw(painter, position, ranges, context.clip);
    int cursor = context.cursorPosition - block.position();
    const bool isComposing = context.cursorPosition < -1 && !layout->preeditAreaText().isEmpty();
    if (isComposing) // counted down from -2, from where the input method's text begins
        cursor = layout->preeditAreaPosition() - (context.cursorPosition + 2);
    if (isComposing || (cursor >= 0 && cursor < block.length()))
        layout->drawCursor(painter, position, cursor);
}
