// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldLayout.h"

#include "editor/PLTagFieldModel.h"
#include "editor/PLTagToken.h"

namespace {

constexpr double gap = 4; // after each token and after the typed text
constexpr double widest = 1e7;

double middleOf(const QRectF &rect)
{
    return rect.center().x();
}

} // namespace

void PLTagFieldLayout::update(const PLTagFieldModel &model, const PLComposedText &composed,
                              Qt::LayoutDirection direction)
{
    m_direction = direction;
    m_length = 0;
    m_textRect = QRectF();
    m_textIndex = model.textIndex();
    m_textSize = int(model.text().size());
    m_tokens.clear();
    for (int index = 0; index <= model.tokens().size(); ++index) {
        if (index == m_textIndex)
            placeText(model, composed);
        if (index == model.tokens().size())
            break;
        const QString text = PLTagToken::shownText(model.tokens()[index]);
        m_tokens.push_back({placed(PLTagToken::width(text)), text});
    }
}

double PLTagFieldLayout::xOfPosition(int position) const
{
    if (!isInText(position))
        return gapX(position);
    const QTextLine line = m_textLayout.lineAt(0);
    return m_textRect.left() + line.cursorToX(position - m_textIndex + m_composedCursor);
}

int PLTagFieldLayout::positionAt(double x) const
{
    const bool isLeftToRight = m_direction == Qt::LeftToRight;
    if (!m_textRect.isNull() && x >= m_textRect.left() - gap / 2 && x <= m_textRect.right() + gap / 2) {
        const int offset = m_textLayout.lineAt(0).xToCursor(x - m_textRect.left());
        return m_textIndex + qBound(0, offset, m_textSize);
    }
    int gapsBefore = 0;
    for (const Token &token : m_tokens)
        gapsBefore += (middleOf(token.rect) < x) == isLeftToRight ? 1 : 0;
    const bool isTextBefore = !m_textRect.isNull() && (middleOf(m_textRect) < x) == isLeftToRight;
    return gapsBefore + (isTextBefore ? m_textSize : 0);
}

std::optional<int> PLTagFieldLayout::tokenAt(double x) const
{
    for (size_t index = 0; index < m_tokens.size(); ++index) {
        if (x >= m_tokens[index].rect.left() && x < m_tokens[index].rect.right())
            return int(index);
    }
    return std::nullopt;
}

int PLTagFieldLayout::positionBeside(int position, bool isRightwards) const
{
    const int textEnd = m_textIndex + m_textSize;
    if (m_textSize > 0 && isInText(position)) {
        const int offset = position - m_textIndex;
        const int next =
            isRightwards ? m_textLayout.rightCursorPosition(offset) : m_textLayout.leftCursorPosition(offset);
        if (next != offset)
            return m_textIndex + next;
    }
    const bool isForwards = isRightwards == (m_direction == Qt::LeftToRight);
    const int start = isInText(position) ? (isForwards ? textEnd : m_textIndex) : position;
    const int next = qBound(0, start + (isForwards ? 1 : -1), int(m_tokens.size()) + m_textSize);
    if (m_textSize == 0 || !isInText(next))
        return next;
    // Into the text by its near end, which in another script than the interface's is the end of the text.
    const QTextLine line = m_textLayout.lineAt(0);
    const bool isStartAtLeft = line.cursorToX(0) <= line.cursorToX(m_textSize);
    return isStartAtLeft == isRightwards ? m_textIndex : textEnd;
}

/// Takes the next piece of the row.
QRectF PLTagFieldLayout::placed(double width)
{
    const double left = m_direction == Qt::LeftToRight ? m_length : -m_length - width;
    m_length += width + gap;
    return QRectF(left, 0, width, PLTagToken::height);
}

void PLTagFieldLayout::placeText(const PLTagFieldModel &model, const PLComposedText &composed)
{
    m_composedCursor = 0;
    m_textLayout.clearLayout();
    if (model.text().isEmpty() && composed.text.isEmpty())
        return;
    const int offset = model.isCaretInText() ? model.caret() - m_textIndex : 0;
    m_textLayout.setText(model.text());
    m_textLayout.setFont(PLTagToken::font());
    m_textLayout.setPreeditArea(composed.text.isEmpty() ? -1 : offset, composed.text);
    m_composedCursor = composed.text.isEmpty() ? 0 : qMax(0, composed.cursor);
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::NoWrap);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    m_textLayout.setTextOption(option);
    m_textLayout.setCacheEnabled(true);
    m_textLayout.beginLayout();
    QTextLine line = m_textLayout.createLine();
    line.setLineWidth(widest);
    m_textLayout.endLayout();
    m_textRect = placed(line.naturalTextWidth());
}

/// The x between two tokens.
double PLTagFieldLayout::gapX(int position) const
{
    const int sign = m_direction == Qt::LeftToRight ? 1 : -1;
    const int token = position > m_textIndex ? position - m_textSize : position;
    if (token <= 0)
        return -sign * gap / 2;
    const QRectF &rect = m_tokens[size_t(token - 1)].rect;
    return sign > 0 ? rect.right() + gap / 2 : rect.left() - gap / 2;
}

bool PLTagFieldLayout::isInText(int position) const
{
    return !m_textRect.isNull() && position >= m_textIndex && position <= m_textIndex + m_textSize;
}
