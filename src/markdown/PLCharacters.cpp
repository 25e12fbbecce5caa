// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLCharacters.h"

#include <unicode/uchar.h>

bool PLIsWordCharacter(char32_t codePoint)
{
    if (codePoint < 0x80) {
        const char32_t lowerCase = codePoint | 0x20;
        return (lowerCase >= U'a' && lowerCase <= U'z') || (codePoint >= U'0' && codePoint <= U'9') ||
               codePoint == U'_';
    }
    constexpr uint32_t categories = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;
    const UChar32 character = UChar32(codePoint);
    return (U_MASK(u_charType(character)) & categories) || u_hasBinaryProperty(character, UCHAR_ALPHABETIC) ||
           codePoint == 0x200C || codePoint == 0x200D;
}

bool PLIsDigit(char32_t codePoint)
{
    if (codePoint < 0x660)
        return codePoint >= U'0' && codePoint <= U'9';
    return u_charType(UChar32(codePoint)) == U_DECIMAL_DIGIT_NUMBER;
}

char32_t PLCodePointAt(QStringView text, qsizetype position)
{
    const QChar unit = text[position];
    if (unit.isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[position + 1]);
    return unit.unicode();
}

char32_t PLCodePointBefore(QStringView text, qsizetype position)
{
    const QChar unit = text[position - 1];
    if (unit.isLowSurrogate() && position >= 2 && text[position - 2].isHighSurrogate())
        return QChar::surrogateToUcs4(text[position - 2], unit);
    return unit.unicode();
}
