// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLEmphasisScanner.h"

#include "markdown/PLCharacters.h"

PLEmphasisScanner::PLEmphasisScanner(const PLEmphasisRule &rule, QStringView text)
    : m_rule(rule), m_text(text)
{
}

bool PLEmphasisScanner::findNext(qsizetype from, PLSpanMatch *match)
{
    for (qsizetype start = from;; ++start) {
        start = PLPositionOf(m_rule.mark, m_text, start);
        if (start == m_text.size())
            return false;
        if (!isOpening(start))
            continue;
        const qsizetype contentStart = start + m_rule.delimiterLength;
        const qsizetype closing = closingFrom(contentStart + 1);
        if (closing == m_text.size())
            return false;
        if (lineEndsWithin(contentStart, closing))
            continue;
        *match = {start, closing + m_rule.delimiterLength, contentStart, closing};
        return true;
    }
}

bool PLEmphasisScanner::isDelimiter(qsizetype position) const
{
    if (m_text.size() - position < m_rule.delimiterLength)
        return false;
    for (qsizetype index = 0; index < m_rule.delimiterLength; ++index) {
        if (m_text[position + index] != m_rule.mark)
            return false;
    }
    return true;
}

bool PLEmphasisScanner::isOpening(qsizetype position) const
{
    const qsizetype contentStart = position + m_rule.delimiterLength;
    if (!isDelimiter(position) || contentStart == m_text.size() ||
        PLIsWhiteSpace(m_text[contentStart].unicode()))
        return false;
    if (!m_rule.outsideWords || position == 0)
        return true;
    const char32_t before = PLCodePointBefore(m_text, position);
    return before != m_rule.mark && !PLIsWordCharacter(before);
}

bool PLEmphasisScanner::isClosing(qsizetype position) const
{
    if (!isDelimiter(position) || PLIsWhiteSpace(m_text[position - 1].unicode()))
        return false;
    const qsizetype end = position + m_rule.delimiterLength;
    if (!m_rule.outsideWords || end == m_text.size())
        return true;
    const char32_t after = PLCodePointAt(m_text, end);
    return after != m_rule.mark && !PLIsWordCharacter(after);
}

/// The first closing delimiter from `position` on, the length of the text if there is none.
qsizetype PLEmphasisScanner::closingFrom(qsizetype position)
{
    if (m_closing >= position)
        return m_closing;
    m_closing = PLPositionOf(m_rule.mark, m_text, position);
    while (m_closing < m_text.size() && !isClosing(m_closing))
        m_closing = PLPositionOf(m_rule.mark, m_text, m_closing + 1);
    return m_closing;
}

/// Whether a line end stands in the content, which "." does not cross. Both ends never go back from call to
/// call.
bool PLEmphasisScanner::lineEndsWithin(qsizetype start, qsizetype end)
{
    if (m_lineEnd >= start && m_lineEnd < end)
        return true;
    for (qsizetype position = qMax(start, m_lineEndsRead); position < end; ++position) {
        if (!PLEndsLine(m_text[position].unicode()))
            continue;
        m_lineEnd = position;
        m_lineEndsRead = position + 1;
        return true;
    }
    m_lineEndsRead = qMax(m_lineEndsRead, end);
    return false;
}
