// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCollator>
#include <QString>
#include <QStringList>

#include <initializer_list>

/// The text with the white space at both ends removed: the Unicode space separators (Zs) and the tab.
/// Line ends stay.
QStringView PLTrimmedSpaces(QStringView text);

/// The same, line ends removed too: line feed to carriage return, U+0085, U+2028, U+2029.
QStringView PLTrimmedSpacesAndNewlines(QStringView text);

/// True for the characters that end a line: U+000A to U+000D, U+0085, U+2028 and U+2029.
bool PLIsNewline(QChar character);

/// True between the two halves of a surrogate pair, where no text may be cut. The toolkit's boundary finder
/// (Qt 6.4) stops there too, in a text with Burmese letters.
bool PLSplitsPair(QStringView text, qsizetype position);

/// The text cut at every line-ending character (so "\r\n" leaves an empty piece), in order.
QStringList PLSplitAtNewlines(const QString &text);

/// Replaces the placeholders "%@", "%ld" and "%lu" by the given texts, in order. "%%" and anything else
/// stays.
QString PLFormat(const QString &format, std::initializer_list<QString> values);

/// Orders titles as a file manager does: by the collation of `localeIdentifier` ("fr_FR"), ignoring case,
/// digits by their value. One comparer holds a collator; make it once for a whole list.
class PLTitleComparer final
{
public:
    explicit PLTitleComparer(const QString &localeIdentifier);

    /// A key for one title; keys compare with `<` as their titles do.
    QCollatorSortKey sortKey(const QString &title) const;
    int compare(const QString &left, const QString &right) const;

private:
    QCollator m_collator;
};

/// The text without its accents and case, for comparisons that ignore both (é = e, Ç = c).
QString PLFoldedCaseAndDiacritics(const QString &text);
