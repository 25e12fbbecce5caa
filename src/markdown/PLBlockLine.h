// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

/// What one trimmed line is, apart from fences, quotes and blank lines.
enum class PLLineKind { Heading, Rule, BulletedItem, NumberedItem, Text };

/// A line told apart: its kind and the text that is rendered inside it.
struct PLBlockLine
{
    PLLineKind kind = PLLineKind::Text;
    int headingLevel = 0; ///< 1 to 6
    QStringView text;     ///< of the heading, the item or the paragraph line
};

/// Tells a trimmed line that is not empty apart. The rules are these regular expressions, the first that
/// matches:
/// "^(#{1,6})\s+(.*?)\s*#*$", "^([-*_])(?:\s*\1){2,}$", "^[-*+]\s+(.*)$" and "^\d+[.)]\s+(.*)$".
PLBlockLine PLBlockLineFromText(QStringView line);
