// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLInlineRenderer.h"

#include "markdown/PLCharacters.h"
#include "markdown/PLLinkScanner.h"

namespace {

/// In the order in which they are applied.
constexpr PLEmphasisRule emphasisRules[] = {
    {u'*', 3, false, u"<strong><em>", u"</em></strong>"},
    {u'*', 2, false, u"<strong>", u"</strong>"},
    {u'_', 2, false, u"<strong>", u"</strong>"},
    {u'*', 1, true, u"<em>", u"</em>"},
    {u'_', 1, true, u"<em>", u"</em>"},
    {u'~', 2, false, u"<del>", u"</del>"},
};

/// The mark that a rule's delimiter holds.
unsigned markOf(const PLEmphasisRule &rule)
{
    const bool isDouble = rule.delimiterLength > 1;
    if (rule.mark == u'*')
        return isDouble ? PLDoubleAsteriskMark : PLAsteriskMark;
    if (rule.mark == u'_')
        return isDouble ? PLDoubleUnderscoreMark : PLUnderscoreMark;
    return PLDoubleTildeMark;
}

QStringView content(QStringView text, const PLSpanMatch &match)
{
    return text.sliced(match.contentStart, match.contentEnd - match.contentStart);
}

QStringView target(QStringView text, const PLSpanMatch &match)
{
    return text.sliced(match.targetStart, match.targetEnd - match.targetStart);
}

void writeImage(PLHTMLWriter &html, QStringView text, const PLSpanMatch &match)
{
    html.append(u"<img src=\"");
    html.append(target(text, match));
    html.append(u"\" alt=\"");
    html.append(content(text, match));
    html.append(u"\">");
}

void writeWikiLink(PLHTMLWriter &html, QStringView text, const PLSpanMatch &match)
{
    html.append(u"<span class=\"lien\">");
    html.append(content(text, match));
    html.append(u"</span>");
}

void writeLink(PLHTMLWriter &html, QStringView text, const PLSpanMatch &match)
{
    html.append(u"<a href=\"");
    html.append(target(text, match));
    html.append(u"\">");
    html.append(content(text, match));
    html.append(u"</a>");
}

} // namespace

PLInlineRenderer::PLInlineRenderer(PLHTMLWriter *html) : m_html(html) {}

void PLInlineRenderer::appendLine(QStringView line)
{
    continueLine(m_html->size(), line);
}

void PLInlineRenderer::continueLine(qsizetype start, QStringView rest)
{
    for (;; start = m_html->size()) {
        const qsizetype opening = appendSpanUntilBackquote(start, rest);
        if (opening == rest.size())
            return;
        rest = rest.sliced(opening + 1);
        const qsizetype closing = PLPositionOf(u'`', rest, 0);
        if (closing == rest.size()) {
            m_html->append(u"`");
            appendSpanUntilBackquote(m_html->size(), rest);
            return;
        }
        m_html->append(u"<code>");
        m_html->appendEscaped(rest.first(closing));
        m_html->append(u"</code>");
        rest = rest.sliced(closing + 1);
    }
}

void PLInlineRenderer::appendSpan(QStringView span)
{
    const qsizetype start = m_html->size();
    unsigned marks = 0;
    for (;;) {
        const qsizetype length = m_html->appendEscapedUntilBackquote(span, &marks);
        if (length == span.size())
            break;
        m_html->append(u"`");
        span = span.sliced(length + 1);
    }
    applyRules(start, marks);
}

/// Ends the span that begins at `start` of what is written: answers where its back-quote is, or the text's
/// length.
qsizetype PLInlineRenderer::appendSpanUntilBackquote(qsizetype start, QStringView text)
{
    unsigned marks = 0;
    const qsizetype length = m_html->appendEscapedUntilBackquote(text, &marks);
    applyRules(start, marks);
    return length;
}

/// Applies to what was written from `start` on the rules whose opening mark it holds. No rule writes a mark,
/// so that the marks of the writer's own text decide.
void PLInlineRenderer::applyRules(qsizetype start, unsigned marks)
{
    if (marks == 0)
        return;
    if (marks & PLBracketMark) {
        const QStringView text = m_html->viewFrom(start);
        replaceMatches(start, PLLinkScanner(PLLinkKind::Image, text), writeImage);
        replaceMatches(start, PLLinkScanner(PLLinkKind::WikiLink, m_html->viewFrom(start)), writeWikiLink);
        replaceMatches(start, PLLinkScanner(PLLinkKind::Link, m_html->viewFrom(start)), writeLink);
    }
    for (const PLEmphasisRule &rule : emphasisRules) {
        if (!(marks & markOf(rule)))
            continue;
        const auto writeEmphasis = [&rule](PLHTMLWriter &html, QStringView text, const PLSpanMatch &match) {
            html.append(rule.openingTags);
            html.append(content(text, match));
            html.append(rule.closingTags);
        };
        replaceMatches(start, PLEmphasisScanner(rule, m_html->viewFrom(start)), writeEmphasis);
    }
}

/// Replaces each match in what was written from `start` on; nothing is copied where nothing matches, nor
/// before the first match, unless that is the shorter part: then the two writers change places instead.
template <typename Scanner, typename WriteMatch>
void PLInlineRenderer::replaceMatches(qsizetype start, Scanner scanner, WriteMatch writeMatch)
{
    PLSpanMatch match;
    if (!scanner.findNext(0, &match))
        return;
    const QStringView text = m_html->viewFrom(start);
    const qsizetype kept = start + match.start;
    const bool changesPlaces = kept < m_html->size() - kept;
    m_scratch.truncate(0);
    if (changesPlaces)
        m_scratch.append(m_html->viewFrom(0).first(kept));
    qsizetype copied = match.start;
    do {
        m_scratch.append(text.sliced(copied, match.start - copied));
        writeMatch(m_scratch, text, match);
        copied = match.end;
    } while (scanner.findNext(match.end, &match));
    m_scratch.append(text.sliced(copied));
    if (changesPlaces) {
        std::swap(*m_html, m_scratch);
    } else {
        m_html->truncate(kept);
        m_html->append(m_scratch.viewFrom(0));
    }
}
