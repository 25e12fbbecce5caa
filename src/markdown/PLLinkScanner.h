// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "markdown/PLEmphasisScanner.h"

/// The three rules made of brackets.
enum class PLLinkKind {
    Image,    ///< "!\[([^\]]*)\]\(([^)\s]+)\)"
    WikiLink, ///< "\[\[([^\]]+)\]\]"
    Link,     ///< "\[([^\]]+)\]\(([^)\s]+)\)"
};

/// Finds the spans of one of the bracket rules, from left to right. All opening brackets before a closing one
/// share it, so that where the first of them fails the others do, and the text is read once.
class PLLinkScanner final
{
public:
    PLLinkScanner(PLLinkKind kind, QStringView text);

    /// The next span from `from` on; positions never go back from call to call.
    bool findNext(qsizetype from, PLSpanMatch *match);

private:
    bool isOpening(qsizetype bracket, qsizetype from) const;
    bool matchAt(qsizetype bracket, qsizetype closing, PLSpanMatch *match);
    qsizetype targetEndFrom(qsizetype position);

    PLLinkKind m_kind;
    QStringView m_text;
    qsizetype m_targetEnd = -1; ///< the last end of a target found: a ")" or a white space, or the text's end
};
