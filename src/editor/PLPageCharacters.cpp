// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageCharacters.h"

namespace {

bool isReservedByDocuments(char16_t unit)
{
    return unit == u'\r' || unit == 0x2029 || unit == 0xFDD0 || unit == 0xFDD1;
}

} // namespace

QString PLPageCharacters::encoded(const QString &text)
{
    bool changes = false;
    for (const QChar character : text) {
        m_seen.set(character.unicode());
        changes = changes || needsStandIn(character.unicode());
    }
    if (!changes)
        return text;
    QString result = text;
    for (QChar &character : result) {
        if (needsStandIn(character.unicode()))
            character = QChar(standInFor(character.unicode()));
    }
    return result;
}

QString PLPageCharacters::decoded(QString documentText) const
{
    if (m_originals.isEmpty())
        return documentText;
    for (QChar &character : documentText) {
        const auto original = m_originals.constFind(character.unicode());
        if (original != m_originals.constEnd())
            character = QChar(*original);
    }
    return documentText;
}

/// A unit that stands for another one in this document cannot stand for itself any more.
bool PLPageCharacters::needsStandIn(char16_t unit) const
{
    return isReservedByDocuments(unit) || (!m_originals.isEmpty() && m_originals.contains(unit));
}

char16_t PLPageCharacters::standInFor(char16_t unit)
{
    const auto known = m_standIns.constFind(unit);
    if (known != m_standIns.constEnd())
        return *known;
    const char16_t standIn = freeUnit();
    m_standIns.insert(unit, standIn);
    m_originals.insert(standIn, unit);
    return standIn;
}

/// Non-characters first, then the private use area; a page that holds all of those still leaves some other
/// unit.
char16_t PLPageCharacters::freeUnit() const
{
    const auto isFree = [this](char16_t unit) {
        return !m_seen.test(unit) && !m_originals.contains(unit) && !isReservedByDocuments(unit);
    };
    for (char16_t unit = 0xFDD2; unit <= 0xFDEF; ++unit) {
        if (isFree(unit))
            return unit;
    }
    for (char16_t unit = 0xF8FF; unit > 0x00FF; --unit) {
        const bool isUsable = !QChar::isSurrogate(unit) && unit != QChar::LineSeparator;
        if (isUsable && isFree(unit))
            return unit;
    }
    return QChar::ReplacementCharacter;
}
