// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFindText.h"

#include <QStringMatcher>

namespace {

/// Simple case folding, which keeps every length: "ß" is not "ss".
QString foldedCase(QString text)
{
    QChar *unit = text.data();
    QChar *const end = unit + text.size();
    for (; unit != end; ++unit) {
        if (unit->unicode() < 0x80) {
            if (*unit >= u'A' && *unit <= u'Z')
                *unit = QChar(unit->unicode() + 0x20);
        } else if (unit->isHighSurrogate() && unit + 1 != end && unit[1].isLowSurrogate()) {
            const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(unit[0], unit[1]));
            *unit++ = QChar(QChar::highSurrogate(folded));
            *unit = QChar(QChar::lowSurrogate(folded));
        } else {
            *unit = unit->toCaseFolded();
        }
    }
    return text;
}

bool isPairAt(QStringView text, qsizetype position)
{
    return position >= 0 && position + 1 < text.size() && text[position].isHighSurrogate() &&
           text[position + 1].isLowSurrogate();
}

char32_t characterBehind(QStringView text, qsizetype position)
{
    if (position >= text.size())
        return 0;
    return isPairAt(text, position) ? QChar::surrogateToUcs4(text[position], text[position + 1])
                                    : text[position].unicode();
}

char32_t characterBefore(QStringView text, qsizetype position)
{
    if (position <= 0)
        return 0;
    return isPairAt(text, position - 2) ? QChar::surrogateToUcs4(text[position - 2], text[position - 1])
                                        : text[position - 1].unicode();
}

bool isPartOfWord(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character) || character == U'_';
}

bool isBetweenWords(QStringView text, qsizetype position)
{
    return !isPartOfWord(characterBefore(text, position)) || !isPartOfWord(characterBehind(text, position));
}

bool isAcceptable(QStringView text, const PLTextRange &match, const PLFindOptions &options)
{
    if (isPairAt(text, match.position - 1) || isPairAt(text, match.end() - 1))
        return false;
    if (QChar::isMark(characterBehind(text, match.end())))
        return false;
    return !options.wholeWords || (isBetweenWords(text, match.position) && isBetweenWords(text, match.end()));
}

/// The text as it is compared: no writer types the curved apostrophe that a page may be full of.
QString folded(const QString &text, const QString &needle)
{
    QString result = foldedCase(text);
    if (needle.contains(u'\'') && !needle.contains(u'’'))
        result.replace(u'’', u'\'');
    return result;
}

} // namespace

QList<PLTextRange> PLFindMatches(const QString &text, const QString &needle, const PLFindOptions &options)
{
    QList<PLTextRange> matches;
    if (needle.isEmpty())
        return matches;
    const QString haystack = options.ignoresCase ? folded(text, needle) : text;
    const QStringMatcher matcher(options.ignoresCase ? foldedCase(needle) : needle);
    const int length = int(needle.size());
    for (qsizetype at = matcher.indexIn(haystack); at >= 0;) {
        const PLTextRange match{int(at), length};
        const bool isMatch = isAcceptable(text, match, options);
        if (isMatch)
            matches.append(match);
        at = matcher.indexIn(haystack, at + (isMatch ? length : 1));
    }
    return matches;
}
