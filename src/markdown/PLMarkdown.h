// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "markdown/PLRegex.h"

#include <QString>
#include <QStringList>

/// Renders pages of the program's small Markdown dialect as HTML, and counts their words. Whatever the text,
/// the time taken is linear in its length and the stack used is bounded; no text of the writer's opens an
/// element.
class PLMarkdown final
{
public:
    PLMarkdown() = delete;

    /// The fragment for a page as it stands in its file, front matter and body: its tags, its blocks, or a
    /// placeholder in the interface language if there is nothing to show.
    static QString HTMLFromMarkdown(const QString &text);

    /// The whole document around a fragment, with its style sheet.
    static QString pageWithBodyHTML(const QString &html);

    /// The words of the page's body, as Unicode's word boundaries make them, in no particular language. The
    /// marks of the dialect stay in: a word of a link's target counts.
    static qsizetype wordCountOfMarkdown(const QString &text);

    /// The blocks that these lines make.
    static QString blocksHTMLFromLines(const QStringList &lines);

    /// One line: code spans, links, emphasis.
    static QString inlineHTML(const QString &line);

    /// A stretch of a line that holds no code span: links and emphasis.
    static QString formattedSpan(const QString &span);
};

/// The text with "&", "<", ">" and the double quote as entities; a null text stays null.
QString PLEscapeHTML(const QString &text);
