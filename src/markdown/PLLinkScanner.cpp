// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLLinkScanner.h"

#include "markdown/PLCharacters.h"

PLLinkScanner::PLLinkScanner(PLLinkKind kind, QStringView text) : m_kind(kind), m_text(text) {}

bool PLLinkScanner::findNext(qsizetype from, PLSpanMatch *match)
{
    qsizetype position = from;
    for (;;) {
        const qsizetype bracket = PLPositionOf(u'[', m_text, position);
        if (bracket == m_text.size())
            return false;
        position = bracket + 1;
        if (!isOpening(bracket, from))
            continue;
        const qsizetype closing = PLPositionOf(u']', m_text, bracket + 1);
        if (closing == m_text.size())
            return false;
        if (matchAt(bracket, closing, match))
            return true;
        position = closing + 1;
    }
}

bool PLLinkScanner::isOpening(qsizetype bracket, qsizetype from) const
{
    if (m_kind == PLLinkKind::Image)
        return bracket > from && m_text[bracket - 1] == u'!';
    return m_kind == PLLinkKind::Link || (bracket + 1 < m_text.size() && m_text[bracket + 1] == u'[');
}

/// Whether the rule holds from its opening bracket to the first closing one and beyond.
bool PLLinkScanner::matchAt(qsizetype bracket, qsizetype closing, PLSpanMatch *match)
{
    const bool isWikiLink = m_kind == PLLinkKind::WikiLink;
    const bool isImage = m_kind == PLLinkKind::Image;
    match->start = isImage ? bracket - 1 : bracket;
    match->contentStart = isWikiLink ? bracket + 2 : bracket + 1;
    match->contentEnd = closing;
    if (!isImage && match->contentStart == closing)
        return false;
    const QChar following = closing + 1 < m_text.size() ? m_text[closing + 1] : QChar();
    if (isWikiLink) {
        match->end = closing + 2;
        return following == u']';
    }
    if (following != u'(')
        return false;
    match->targetStart = closing + 2;
    match->targetEnd = targetEndFrom(match->targetStart);
    match->end = match->targetEnd + 1;
    return match->targetEnd > match->targetStart && match->targetEnd < m_text.size() &&
           m_text[match->targetEnd] == u')';
}

qsizetype PLLinkScanner::targetEndFrom(qsizetype position)
{
    if (m_targetEnd >= position)
        return m_targetEnd;
    m_targetEnd = position;
    while (m_targetEnd < m_text.size() && m_text[m_targetEnd] != u')' &&
           !PLIsWhiteSpace(m_text[m_targetEnd].unicode()))
        ++m_targetEnd;
    return m_targetEnd;
}
