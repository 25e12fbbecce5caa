// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLBlockWalker.h"

#include "markdown/PLCharacters.h"

namespace {

bool isFence(QStringView trimmed)
{
    return trimmed.startsWith(u"```");
}

} // namespace

PLBlockWalker::PLBlockWalker(PLHTMLWriter *html) : m_html(html), m_inline(html) {}

void PLBlockWalker::addLine(QStringView line)
{
    QStringView trimmed = PLTrimmedBlanks(line);
    qsizetype depth = 0;
    while ((depth < m_depth || !isInCode()) && trimmed.startsWith(u'>')) {
        if (depth == m_depth)
            openQuote();
        ++depth;
        line = trimmed.sliced(1);
        if (line.startsWith(u' '))
            line = line.sliced(1);
        trimmed = PLTrimmedBlanks(line);
    }
    closeQuotesBelow(depth);
    if (isInCode() && !isFence(trimmed)) {
        addCodeLine(line);
    } else if (isFence(trimmed)) {
        const bool opens = !isInCode();
        closeBlock();
        if (opens)
            openBlock(Block::EmptyCode);
    } else if (trimmed.isEmpty()) {
        closeBlock();
    } else {
        addTextLine(trimmed);
    }
}

void PLBlockWalker::finish()
{
    closeQuotesBelow(0);
    closeBlock();
}

void PLBlockWalker::openQuote()
{
    closeBlock();
    m_html->append(u"<blockquote>\n");
    ++m_depth;
}

/// Closes the quotes that hold the quotes deeper than `depth`, innermost first.
void PLBlockWalker::closeQuotesBelow(qsizetype depth)
{
    if (m_depth == depth)
        return;
    closeBlock();
    for (; m_depth > depth; --m_depth)
        m_html->append(u"</blockquote>\n");
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
        addParagraphLine(line.text);
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
void PLBlockWalker::addParagraphLine(QStringView text)
{
    if (m_block == Block::Paragraph)
        m_html->append(u"<br>\n");
    else
        openBlock(Block::Paragraph);
    m_inline.appendLine(text);
}
