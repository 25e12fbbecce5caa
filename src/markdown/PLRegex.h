// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLPattern.h"

/// The compiled pattern, from a cache that lives as long as the process; nothing if it does not compile.
/// For the thread of the user interface only.
const PLPattern *PLRegex(const QString &pattern);

/// The first match of the pattern in the text: the whole match, then one text per group, "" for a group that
/// took no part. Nothing without a match.
std::optional<QStringList> PLMatch(const QString &text, const QString &pattern);

/// The text with each match of the pattern, from left to right, replaced by the replacement, where "$1"
/// stands for group 1. A null text if the pattern does not compile.
QString PLReplace(const QString &text, const QString &pattern, const QString &replacement);
