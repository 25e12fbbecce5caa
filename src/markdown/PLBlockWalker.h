// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "markdown/PLBlockLine.h"
#include "markdown/PLCharacters.h"
#include "markdown/PLInlineRenderer.h"

/// Renders the blocks of a page, fed line by line. Quotes are nested by a count, not by recursion: of the
/// quotes that are open only the innermost can hold an open block, so that one page deep in quotes costs no
/// stack.
class PLBlockWalker final
{
public:
    explicit PLBlockWalker(PLHTMLWriter *html);

    void addLine(QStringView line);

    /// Adds the line that the text begins with; answers the position of the line feed after it, or the text's
    /// length. With `hasPairs`, "\r\n" ends a line too. The same as cutting the line out and adding it, but
    /// for the time: a line of plain text is read once.
    qsizetype addFirstLine(QStringView text, bool hasPairs);

    /// After the last line: closes what is still open.
    void finish();

private:
    enum class Block { None, Paragraph, BulletedList, NumberedList, EmptyCode, Code };

    /// A line inside the quotes entered so far.
    struct Line
    {
        QStringView text;
        QStringView trimmed;

        bool isQuoted() const { return !trimmed.isEmpty() && trimmed.front() == u'>'; }
        void removeQuoteMark()
        {
            const bool hasSpace = trimmed.size() > 1 && trimmed[1] == u' ';
            text = trimmed.sliced(hasSpace ? 2 : 1);
            trimmed = PLTrimmedBlanks(text);
        }
    };

    bool isInCode() const { return m_block == Block::EmptyCode || m_block == Block::Code; }
    void openQuotes(Line *line);
    void closeQuotesBelow(qsizetype depth);
    void closeBlock();
    void openBlock(Block block);
    void addFence();
    void addCodeLine(QStringView line);
    void addTextLine(QStringView trimmed);
    void addHeading(const PLBlockLine &line);
    void addItem(Block list, QStringView text);
    void startParagraphLine();

    PLHTMLWriter *m_html;
    PLInlineRenderer m_inline;
    qsizetype m_depth = 0;       ///< how many quotes are open
    Block m_block = Block::None; ///< what is open in the innermost
};
