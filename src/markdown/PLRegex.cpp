// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLRegex.h"

#include <map>

const PLPattern *PLRegex(const QString &pattern)
{
    static std::map<QString, PLPattern> patterns;
    const auto known = patterns.find(pattern);
    if (known != patterns.end())
        return &known->second;
    std::optional<PLPattern> compiled = PLPattern::compiled(pattern);
    if (!compiled)
        return nullptr;
    return &patterns.emplace(pattern, std::move(*compiled)).first->second;
}

std::optional<QStringList> PLMatch(const QString &text, const QString &pattern)
{
    const PLPattern *compiled = PLRegex(pattern);
    return compiled ? compiled->firstMatch(text) : std::nullopt;
}

QString PLReplace(const QString &text, const QString &pattern, const QString &replacement)
{
    const PLPattern *compiled = PLRegex(pattern);
    return compiled ? compiled->replaced(text, replacement) : QString();
}
