// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// The dialect written down rule by rule over ICU's regular expressions and word iterator: slow, and plain
/// enough to be read against the rules. What the renderer is compared with.
class PLPlainMarkdown final
{
public:
    PLPlainMarkdown() = delete;

    static QString HTMLFromMarkdown(const QString &text);
    static QString blocksHTMLFromLines(const QStringList &lines);
    static QString inlineHTML(const QString &line);
    static QString formattedSpan(const QString &span);
    static QString escapeHTML(QString text);
    static qsizetype wordCount(const QString &text);
};
