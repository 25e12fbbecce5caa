// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

/// One rule of emphasis: a span between two equal delimiters becomes an element.
struct PLEmphasisRule
{
    char16_t mark;
    qsizetype delimiterLength;
    bool outsideWords; ///< no mark and no word character may touch the delimiters from outside
    QStringView openingTags;
    QStringView closingTags;
};

/// A stretch that a rule replaces: the whole of it, and what stands between its delimiters.
struct PLSpanMatch
{
    qsizetype start = 0;
    qsizetype end = 0;
    qsizetype contentStart = 0;
    qsizetype contentEnd = 0;
    qsizetype targetStart = 0; ///< links and images only
    qsizetype targetEnd = 0;
};

/// Finds the spans of one rule of emphasis, from left to right, as the regular expression
/// "D(?=\S)(.+?)(?<=\S)D" does, D being the delimiter. Where that expression looks for a closing delimiter
/// again from each opening one, the scanner keeps the last answer: the whole text is read once, whatever it
/// holds.
class PLEmphasisScanner final
{
public:
    PLEmphasisScanner(const PLEmphasisRule &rule, QStringView text);

    /// The next span from `from` on; positions never go back from call to call.
    bool findNext(qsizetype from, PLSpanMatch *match);

private:
    bool isDelimiter(qsizetype position) const;
    bool isOpening(qsizetype position) const;
    bool isClosing(qsizetype position) const;
    qsizetype closingFrom(qsizetype position);
    bool lineEndsWithin(qsizetype start, qsizetype end);

    const PLEmphasisRule &m_rule;
    QStringView m_text;
    qsizetype m_closing = -1; ///< the last closing delimiter found; the text's length when there is no more
    qsizetype m_lineEnd = -1; ///< the last line end found
    qsizetype m_lineEndsRead = 0; ///< line ends were looked for up to here
};
