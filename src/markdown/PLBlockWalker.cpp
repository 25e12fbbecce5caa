// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLBlockWalker.h"

namespace {

bool isFence(QStringView trimmed)
{
    return trimmed.startsWith(u"```");
}

constexpr char16_t quoteStart[] = u"<blockquote>\n";
constexpr char16_t quoteEnd[] = u"</blockquote>\n";
constexpr qsizetype quoteLength = qsizetype(std::size(quoteStart) + std::size(quoteEnd)) - 2;

/// Whether a line that begins so can be nothing but text: letters of Latin to Hebrew, dashes and curved
/// quotes.
bool startsText(QChar first)
{
    const char16_t unit = first.unicode();
    const char16_t lowerCase = unit | 0x20;
    return (lowerCase >= u'a' && lowerCase <= u'z') || (unit > 0xA0 && unit < 0x600) ||
           (unit >= 0x2010 && unit <= 0x2027);
}

/// The line without the "\r" that belongs to its end.
QStringView lineBefore(QStringView text, qsizetype lineFeed, bool hasPairs)
{
    const bool isPair = hasPairs && lineFeed > 0 && lineFeed < text.size() && text[lineFeed - 1] == u'\r';
    return text.first(isPair ? lineFeed - 1 : lineFeed);
}

/// How many quotes a line opens at most.
qsizetype quoteMarkCount(QStringView trimmed)
{
    qsizetype count = 0;
    for (const QChar unit : trimmed) {
        if (unit == u'>')
            ++count;
        else if (!PLIsBlank(unit.unicode()))
            break;
    }
    return count;
}

} // namespace

PLBlockWalker::PLBlockWalker(PLHTMLWriter *html) : m_html(html), m_inline(html) {}

void PLBlockWalker::addLine(QStringView text)
{
    Line line = {text, PLTrimmedBlanks(text)};
    qsizetype depth = 0;
    for (; depth < m_depth && line.isQuoted(); ++depth)
        line.removeQuoteMark();
    closeQuotesBelow(depth);
    if (line.isQuoted() && !isInCode())
        openQuotes(&line);
    if (isFence(line.trimmed))
        addFence();
    else if (isInCode())
        addCodeLine(line.text);
    else if (line.trimmed.isEmpty())
        closeBlock();
    else
        addTextLine(line.trimmed);
}

qsizetype PLBlockWalker::addFirstLine(QStringView text, bool hasPairs)
{
    if (text.isEmpty() || !startsText(text.front()) || (m_depth == 0 && isInCode())) {
        const qsizetype lineFeed = PLPositionOf(u'\n', text, 0);
        addLine(lineBefore(text, lineFeed, hasPairs));
        return lineFeed;
    }
    closeQuotesBelow(0);
    startParagraphLine();
    const qsizetype start = m_html->size();
    const qsizetype plain = m_html->appendPlain(text);
    const qsizetype lineFeed = PLPositionOf(u'\n', text, plain);
    const QStringView line = PLTrimmedBlanks(lineBefore(text, lineFeed, hasPairs));
    if (plain >= line.size())
        m_html->truncate(start + line.size());
    else
        m_inline.continueLine(start, line.sliced(plain));
    return lineFeed;
}

void PLBlockWalker::finish()
{
    closeQuotesBelow(0);
    closeBlock();
}

/// Opens a quote for each mark that the line begins with; room for all of them is made at once.
void PLBlockWalker::openQuotes(Line *line)
{
    closeBlock();
    m_html->reserve(m_html->size() + quoteMarkCount(line->trimmed) * quoteLength);
    for (; line->isQuoted(); ++m_depth) {
        m_html->append(quoteStart);
        line->removeQuoteMark();
    }
}

/// Closes the quotes that hold the quotes deeper than `depth`, innermost first.
void PLBlockWalker::closeQuotesBelow(qsizetype depth)
{
    if (m_depth == depth)
        return;
    closeBlock();
    for (; m_depth > depth; --m_depth)
        m_html->append(quoteEnd);
}

void PLBlockWalker::closeBlock()
{
    switch (m_block) {
    case Block::None:
        break;
    case Block::Paragraph:
        m_html->append(u"</p>\n");
        break;
    case Block::BulletedList:
        m_html->append(u"</ul>\n");
        break;
    case Block::NumberedList:
        m_html->append(u"</ol>\n");
        break;
    case Block::EmptyCode:
    case Block::Code:
        m_html->append(u"</code></pre>\n");
        break;
    }
    m_block = Block::None;
}

void PLBlockWalker::openBlock(Block block)
{
    closeBlock();
    m_block = block;
    if (block == Block::Paragraph)
        m_html->append(u"<p>");
    else if (block == Block::BulletedList)
        m_html->append(u"<ul>\n");
    else if (block == Block::NumberedList)
        m_html->append(u"<ol>\n");
    else
        m_html->append(u"<pre><code>");
}

void PLBlockWalker::addFence()
{
    const bool opensCode = !isInCode();
    closeBlock();
    if (opensCode)
        openBlock(Block::EmptyCode);
}

void PLBlockWalker::addCodeLine(QStringView line)
{
    if (m_block == Block::Code)
        m_html->append(u"\n");
    m_block = Block::Code;
    m_html->appendEscaped(line);
}

void PLBlockWalker::addTextLine(QStringView trimmed)
{
    const PLBlockLine line = PLBlockLineFromText(trimmed);
    switch (line.kind) {
    case PLLineKind::Heading:
        addHeading(line);
        break;
    case PLLineKind::Rule:
        closeBlock();
        m_html->append(u"<hr>\n");
        break;
    case PLLineKind::BulletedItem:
        addItem(Block::BulletedList, line.text);
        break;
    case PLLineKind::NumberedItem:
        addItem(Block::NumberedList, line.text);
        break;
    case PLLineKind::Text:
        startParagraphLine();
        m_inline.appendLine(line.text);
        break;
    }
}

void PLBlockWalker::addHeading(const PLBlockLine &line)
{
    closeBlock();
    const char16_t level[] = {char16_t(u'0' + line.headingLevel), u'>', u'\0'};
    m_html->append(u"<h");
    m_html->append(level);
    m_inline.appendLine(line.text);
    m_html->append(u"</h");
    m_html->append(level);
    m_html->append(u"\n");
}

void PLBlockWalker::addItem(Block list, QStringView text)
{
    if (m_block != list)
        openBlock(list);
    m_html->append(u"<li>");
    m_inline.appendLine(text);
    m_html->append(u"</li>\n");
}

/// Each line end inside a paragraph is a hard break.
void PLBlockWalker::startParagraphLine()
{
    if (m_block == Block::Paragraph)
        m_html->append(u"<br>\n");
    else
        openBlock(Block::Paragraph);
}
