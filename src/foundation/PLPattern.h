// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <unicode/uregex.h>

#include <memory>
#include <optional>

/// A compiled regular expression in ICU syntax, no options set. Not for use by two threads at once.
class PLPattern final
{
public:
    /// Nothing if the pattern does not compile.
    static std::optional<PLPattern> compiled(const QString &pattern);

    /// The first match in the text: the whole match, then one text per group ("" for a group that took no
    /// part). Nothing without a match.
    std::optional<QStringList> firstMatch(const QString &text) const;

    /// The text with each match, from left to right, replaced by the template, where "$1" is group 1.
    QString replaced(const QString &text, const QString &replacement) const;

private:
    struct Closer
    {
        void operator()(URegularExpression *expression) const { uregex_close(expression); }
    };

    explicit PLPattern(URegularExpression *expression);

    std::unique_ptr<URegularExpression, Closer> m_expression;
};
