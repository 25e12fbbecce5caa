// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "model/PLModelSearch.h"

namespace {

using Characters = QList<uint>;

uint folded(uint character, bool curvedIsStraight)
{
    return curvedIsStraight && character == U'’' ? U'\'' : QChar::toCaseFolded(character);
}

bool isPartOfWord(const Characters &text, qsizetype index)
{
    if (index < 0 || index >= text.size())
        return false;
    return QChar::isLetterOrNumber(text[index]) || QChar::isMark(text[index]) || text[index] == U'_';
}

bool isMatch(const PLModelSearch &search, const Characters &text, qsizetype at, const Characters &needle)
{
    if (at + needle.size() > text.size())
        return false;
    const bool curvedIsStraight = search.needle.contains(u'\'') && !search.needle.contains(u'’');
    for (qsizetype index = 0; index < needle.size(); ++index) {
        const uint seen = text[at + index];
        const bool isSame = search.ignoresCase
                                ? folded(seen, curvedIsStraight) == folded(needle[index], curvedIsStraight)
                                : seen == needle[index];
        if (!isSame)
            return false;
    }
    const qsizetype end = at + needle.size();
    if (end < text.size() && QChar::isMark(text[end]))
        return false;
    const bool cutsBefore = isPartOfWord(text, at - 1) && isPartOfWord(text, at);
    const bool cutsBehind = isPartOfWord(text, end - 1) && isPartOfWord(text, end);
    return !search.wholeWords || (!cutsBefore && !cutsBehind);
}

} // namespace

QList<PLTextRange> PLModelSearch::matches(const QString &text) const
{
    QList<PLTextRange> found;
    const Characters characters = text.toUcs4();
    const Characters wanted = needle.toUcs4();
    if (wanted.isEmpty())
        return found;
    qsizetype position = 0; // of the character, in units
    for (qsizetype at = 0; at < characters.size(); ++at) {
        const bool isBehindLast = found.isEmpty() || position >= found.last().end();
        if (isBehindLast && isMatch(*this, characters, at, wanted))
            found.append({position, needle.size()});
        position += QChar::requiresSurrogates(characters[at]) ? 2 : 1;
    }
    return found;
}

std::optional<PLTextRange> PLModelSearch::next(const QString &text, const PLTextRange &selection) const
{
    const QList<PLTextRange> found = matches(text);
    for (const PLTextRange &match : found) {
        if (match.position >= selection.end())
            return match;
    }
    return found.isEmpty() ? std::nullopt : std::optional(found.first());
}

std::optional<PLTextRange> PLModelSearch::previous(const QString &text, const PLTextRange &selection) const
{
    const QList<PLTextRange> found = matches(text);
    std::optional<PLTextRange> last;
    for (const PLTextRange &match : found) {
        if (match.end() <= selection.position)
            last = match;
    }
    if (!last && !found.isEmpty())
        last = found.last();
    return last;
}

QString PLModelSearch::replacedAll(QString text) const
{
    const QList<PLTextRange> found = matches(text);
    for (qsizetype index = found.size() - 1; index >= 0; --index)
        text.replace(found[index].position, found[index].length, replacement);
    return text;
}
