// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellWords.h"

namespace {

constexpr int longestWord = 60; // what is longer is no word, and dictionaries have limits of their own

constexpr char16_t softHyphen = 0x00AD;
constexpr char16_t hyphen = 0x2010;
constexpr char16_t noBreakHyphen = 0x2011;

bool isHyphen(QChar character)
{
    return character == u'-' || character == hyphen || character == noBreakHyphen;
}

/// Goes through a line once, from left to right.
class WordScanner final
{
public:
    explicit WordScanner(QStringView line) : m_line(line) {}

    QList<PLTextRange> words()
    {
        while (m_at < m_line.size()) {
            if (!skipMarkup() && !skipAddress() && !takeWord())
                ++m_at;
        }
        return m_words;
    }

private:
    QChar at(qsizetype position) const
    {
        return position >= 0 && position < m_line.size() ? m_line[position] : QChar();
    }

    bool isWordUnit(qsizetype position) const
    {
        const QChar unit = at(position);
        return unit.isLetterOrNumber() || unit.isMark() || unit.isSurrogate() || unit == softHyphen;
    }

    /// An apostrophe or a hyphen belongs to a word only between two of its letters.
    bool isJoint(qsizetype position) const
    {
        return (PLIsApostrophe(at(position)) || isHyphen(at(position))) && isWordUnit(position - 1) &&
               isWordUnit(position + 1);
    }

    bool skipBetween(QStringView opening, QStringView closing)
    {
        if (m_missing.contains(closing) || !m_line.sliced(m_at).startsWith(opening))
            return false;
        const qsizetype end = m_line.indexOf(closing, m_at + opening.size());
        if (end >= 0)
            m_at = end + closing.size();
        else
            m_missing.append(closing);
        return end >= 0;
    }

    bool skipMarkup()
    {
        switch (m_line[m_at].unicode()) {
        case u'`':
            return skipBetween(u"`", u"`");
        case u'[':
            return skipBetween(u"[[", u"]]");
        case u']':
            return skipBetween(u"](", u")");
        default:
            return false;
        }
    }

    /// An address runs to the next space; only the start of such a run is looked at.
    bool skipAddress()
    {
        if (m_at < m_runEnd || at(m_at).isSpace())
            return false;
        m_runEnd = m_at;
        while (m_runEnd < m_line.size() && !m_line[m_runEnd].isSpace())
            ++m_runEnd;
        const QStringView run = m_line.sliced(m_at, m_runEnd - m_at);
        const qsizetype start = startOfAddress(run);
        if (start < 0)
            return false;
        // Words may stand right before it, as in "[the site](https://...)".
        m_addressStart = m_at + start;
        return skipReachedAddress();
    }

    static qsizetype startOfAddress(QStringView run)
    {
        const qsizetype scheme = run.indexOf(u"://");
        const qsizetype www = run.indexOf(u"www.");
        qsizetype start = scheme >= 0 ? scheme : www >= 0 ? www : run.indexOf(u'@');
        while (start > 0 &&
               (run[start - 1].isLetterOrNumber() || run[start - 1] == u'.' || run[start - 1] == u'-'))
            --start;
        return start;
    }

    bool skipReachedAddress()
    {
        if (m_addressStart < 0 || m_at < m_addressStart)
            return false;
        static constexpr QStringView closers = u">)]»\"";
        m_addressStart = -1;
        while (m_at < m_runEnd && !closers.contains(m_line[m_at]))
            ++m_at;
        return true;
    }

    bool takeWord()
    {
        if (skipReachedAddress())
            return true;
        const qsizetype start = m_at;
        while (m_at < m_line.size() && (isWordUnit(m_at) || (m_at > start && isJoint(m_at))))
            ++m_at;
        if (m_at == start)
            return false;
        if (isWorthChecking(m_line.sliced(start, m_at - start)) && !isNextToDot(start, m_at))
            m_words.append({int(start), int(m_at - start)});
        return true;
    }

    /// "chapitre.md" and "exemple.fr" are names, "Fin.Le" is a sentence without its space.
    bool isNextToDot(qsizetype start, qsizetype end) const
    {
        const bool dotBefore =
            at(start - 1) == u'.' && at(start - 2).isLetterOrNumber() && at(start).isLower();
        const bool dotBehind = at(end) == u'.' && at(end + 1).isLower();
        return dotBefore || dotBehind;
    }

    static bool isWorthChecking(QStringView word)
    {
        int letters = 0;
        bool hasSmallLetter = false;
        for (const QChar unit : word) {
            if (unit.isNumber() || unit.isSurrogate())
                return false;
            if (!unit.isLetter())
                continue;
            if (unit.script() != QChar::Script_Latin)
                return false;
            ++letters;
            hasSmallLetter = hasSmallLetter || !unit.isUpper();
        }
        return letters > 1 && hasSmallLetter && word.size() <= longestWord;
    }

    QStringView m_line;
    QList<PLTextRange> m_words;
    QList<QStringView> m_missing; ///< closings that stand nowhere in the rest of the line
    qsizetype m_at = 0;
    qsizetype m_runEnd = 0;
    qsizetype m_addressStart = -1;
};

} // namespace

bool PLIsApostrophe(QChar character)
{
    return character == u'\'' || character == QChar(0x2019);
}

QList<PLTextRange> PLSpellWords(QStringView line)
{
    return WordScanner(line).words();
}
