// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

/// The character classes of the dialect's rules: those of ICU's regular expressions ("\s", "\w", "\d" and
/// what
/// "." does not cross), asked of one UTF-16 code unit where no supplementary character belongs to the class.

/// The characters that "." does not match.
constexpr bool PLEndsLine(char16_t unit)
{
    return (unit >= 0x0A && unit <= 0x0D) || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

/// The space separators (Zs) and the tab: what is trimmed from a line.
constexpr bool PLIsBlank(char16_t unit)
{
    if (unit < 0xA0)
        return unit == u' ' || unit == u'\t';
    return unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x202F ||
           unit == 0x205F || unit == 0x3000;
}

/// The characters that "\s" matches.
constexpr bool PLIsWhiteSpace(char16_t unit)
{
    return PLIsBlank(unit) || PLEndsLine(unit);
}

/// Whether "\w" matches the code point (an unpaired surrogate is one).
bool PLIsWordCharacter(char32_t codePoint);

/// Whether "\d" matches the code point: any decimal digit (Nd).
bool PLIsDigit(char32_t codePoint);

/// The code point that starts at `position`, and the one that ends before it; the position must have one.
char32_t PLCodePointAt(QStringView text, qsizetype position);
char32_t PLCodePointBefore(QStringView text, qsizetype position);

/// The line without the blanks at both ends.
inline QStringView PLTrimmedBlanks(QStringView line)
{
    const char16_t *first = line.utf16();
    const char16_t *end = first + line.size();
    while (first < end && PLIsBlank(*first))
        ++first;
    while (end > first && PLIsBlank(end[-1]))
        --end;
    return QStringView(first, end - first);
}

/// The first position from `from` on that holds `unit`, the length of the text if there is none.
inline qsizetype PLPositionOf(char16_t unit, QStringView text, qsizetype from)
{
    const char16_t *units = text.utf16();
    if (from < text.size() && units[from] == unit)
        return from;
    const qsizetype found = from < text.size() ? text.indexOf(QChar(unit), from) : -1;
    return found < 0 ? text.size() : found;
}
