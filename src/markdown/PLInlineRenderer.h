// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "markdown/PLHTMLWriter.h"

/// Renders the text of one line: code spans, then nine rules, one after the other, on each stretch between
/// them. A renderer keeps its scratch memory from line to line.
class PLInlineRenderer final
{
public:
    explicit PLInlineRenderer(PLHTMLWriter *html);

    /// Appends the line rendered.
    void appendLine(QStringView line);

    /// Appends the rest of a line whose beginning, free of marks, was written as it is from `start` on.
    void continueLine(qsizetype start, QStringView rest);

    /// Appends a stretch rendered without looking for code spans.
    void appendSpan(QStringView span);

private:
    qsizetype appendSpanUntilBackquote(qsizetype start, QStringView text);
    void applyRules(qsizetype start, unsigned marks);
    template <typename Scanner, typename WriteMatch>
    void replaceMatches(qsizetype start, Scanner scanner, WriteMatch writeMatch);

    PLHTMLWriter *m_html;
    PLHTMLWriter m_scratch;
};
