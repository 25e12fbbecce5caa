// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>

#include <bitset>

/// Lets a text document hold every character of a page. A document keeps U+2029, U+FDD0, U+FDD1 and the
/// carriage return for itself; here each of them gets a stand-in, one code unit that occurs nowhere in the
/// page, so that positions stay the same and nothing is lost. One object serves one document.
class PLPageCharacters final
{
public:
    /// The text as the document can hold it, one code unit for one; "\r\n" must be "\n" already.
    /// Everything that enters the document passes through here.
    QString encoded(const QString &text);

    /// What the document's text stands for.
    QString decoded(QString documentText) const;

private:
    bool needsStandIn(char16_t unit) const;
    char16_t standInFor(char16_t unit);
    char16_t freeUnit() const;

    std::bitset<0x10000> m_seen; ///< the code units that the page has held as themselves
    QHash<char16_t, char16_t> m_standIns;
    QHash<char16_t, char16_t> m_originals;
};
