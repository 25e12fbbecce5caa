// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellChecker.h"

#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"
#include "platform/PLSpellWords.h"

using namespace Qt::StringLiterals;

namespace {

const QString continuousKey = u"PLContinuousSpellChecking"_s;

constexpr QStringView elidedWords[] = {u"l",      u"d",      u"j",      u"m",     u"t",     u"s",
                                       u"n",      u"c",      u"ç",      u"qu",    u"jusqu", u"lorsqu",
                                       u"puisqu", u"quoiqu", u"presqu", u"quelqu"};

/// The word as dictionaries have it: composed letters, the plain apostrophe and hyphen, nothing that cannot
/// be seen.
QString normalized(QStringView word)
{
    QString result = word.toString();
    for (QChar &unit : result) {
        if (PLIsApostrophe(unit))
            unit = u'\'';
        else if (unit == QChar(0x2010) || unit == QChar(0x2011))
            unit = u'-';
    }
    result.remove(QChar(QChar::SoftHyphen));
    return result.normalized(QString::NormalizationForm_C);
}

qsizetype indexOfApostrophe(QStringView word)
{
    const auto *found = std::find_if(word.begin(), word.end(), PLIsApostrophe);
    return found == word.end() ? -1 : found - word.begin();
}

bool isHyphen(QChar unit)
{
    return unit == u'-' || unit == QChar(0x2010) || unit == QChar(0x2011);
}

int lineEnd(const QString &text, int from)
{
    const qsizetype end = text.indexOf(u'\n', from);
    return int(end < 0 ? text.size() : end);
}

} // namespace

PLSpellChecker::PLSpellChecker(const QString &localeIdentifier, Loader loader)
    : m_localeIdentifier(localeIdentifier), m_loader(std::move(loader))
{
    if (m_localeIdentifier.isEmpty())
        m_localeIdentifier = PLLocalization::localeIdentifier();
}

PLSpellChecker::~PLSpellChecker() = default;

std::shared_ptr<PLSpellChecker> PLSpellChecker::shared()
{
    static std::weak_ptr<PLSpellChecker> current;
    std::shared_ptr<PLSpellChecker> checker = current.lock();
    if (!checker) {
        checker = std::make_shared<PLSpellChecker>();
        current = checker;
    }
    return checker;
}

bool PLSpellChecker::isAvailable()
{
    return dictionary();
}

QString PLSpellChecker::packageName() const
{
    const QString language = m_localeIdentifier.section(u'_', 0, 0);
    const bool isByRegion = language == u"en"_s;
    return u"hunspell-"_s +
           (isByRegion ? QString(m_localeIdentifier).replace(u'_', u'-').toLower() : language);
}

QList<PLTextRange> PLSpellChecker::misspellings(QStringView line)
{
    QList<PLTextRange> result;
    if (!dictionary())
        return result;
    const QList<PLTextRange> words = PLSpellWords(line);
    for (const PLTextRange &word : words)
        appendMisspelledParts(line.sliced(word.position, word.length), word.position, result);
    return result;
}

std::optional<PLTextRange> PLSpellChecker::nextMisspelling(const QString &text, int from)
{
    int start = from > 0 ? int(text.lastIndexOf(u'\n', from - 1)) + 1 : 0;
    while (start <= text.size()) {
        const int end = lineEnd(text, start);
        const QList<PLTextRange> found = misspellings(QStringView(text).sliced(start, end - start));
        for (const PLTextRange &range : found) {
            if (start + range.position >= from)
                return PLTextRange{start + range.position, range.length};
        }
        start = end + 1;
    }
    return std::nullopt;
}

std::optional<PLTextRange> PLSpellChecker::misspellingAt(const QString &text, int position)
{
    const int start = position > 0 ? int(text.lastIndexOf(u'\n', position - 1)) + 1 : 0;
    const int end = lineEnd(text, start);
    const QList<PLTextRange> found = misspellings(QStringView(text).sliced(start, end - start));
    for (const PLTextRange &range : found) {
        if (position >= start + range.position && position <= start + range.end())
            return PLTextRange{start + range.position, range.length};
    }
    return std::nullopt;
}

QStringList PLSpellChecker::suggestions(const QString &word)
{
    if (word.isEmpty() || !dictionary())
        return QStringList();
    QStringList result = m_dictionary->suggestions(normalized(word));
    if (word.contains(QChar(0x2019)))
        result.replaceInStrings(u"'"_s, QString(QChar(0x2019)));
    return result;
}

void PLSpellChecker::learn(const QString &word)
{
    if (word.isEmpty() || !dictionary())
        return;
    m_dictionary->learn(normalized(word));
    forgetWords();
}

void PLSpellChecker::ignore(const QString &word)
{
    if (word.isEmpty() || !dictionary())
        return;
    m_dictionary->ignore(normalized(word));
    forgetWords();
}

bool PLSpellChecker::isContinuous() const
{
    return PLPreferences::store().value(continuousKey, true).toBool();
}

void PLSpellChecker::setContinuous(bool continuous)
{
    if (continuous == isContinuous())
        return;
    PLPreferences::store().setValue(continuousKey, continuous);
    Q_EMIT continuousDidChange(continuous);
}

PLSpellDictionary *PLSpellChecker::dictionary()
{
    if (!m_isLoaded) {
        m_isLoaded = true;
        m_dictionary = m_loader(m_localeIdentifier);
    }
    return m_dictionary.get();
}

/// A single letter is an initial or the rest of a compound, never a mistake.
bool PLSpellChecker::isKnown(QStringView word)
{
    const QString key = normalized(word);
    if (key.size() < 2)
        return true;
    const auto cached = m_known.constFind(key);
    if (cached != m_known.constEnd())
        return *cached;
    if (m_known.size() >= CacheLimit)
        m_known.clear();
    const bool known = m_dictionary->contains(key);
    m_known.insert(key, known);
    return known;
}

/// Dictionaries know some compounds whole ("week-end", "aujourd'hui"); of the others each part counts.
void PLSpellChecker::appendMisspelledParts(QStringView word, int position, QList<PLTextRange> &result)
{
    if (isKnown(word))
        return;
    for (qsizetype start = 0; start < word.size();) {
        const auto *stop = std::find_if(word.begin() + start, word.end(), isHyphen);
        const QStringView part = word.sliced(start, stop - word.begin() - start);
        const PLTextRange core = withoutElision(part);
        if (!isKnown(part) && !isKnown(part.sliced(core.position, core.length)))
            result.append({position + int(start) + core.position, core.length});
        start += part.size() + 1;
    }
}

/// French words that lose their last vowel go with any word behind; so does the English possessive with any
/// before.
PLTextRange PLSpellChecker::withoutElision(QStringView part) const
{
    const PLTextRange whole{0, int(part.size())};
    const int apostrophe = int(indexOfApostrophe(part));
    if (apostrophe < 0)
        return whole;
    if (m_localeIdentifier.startsWith(u"en"_s))
        return part.sliced(apostrophe + 1).compare(u"s", Qt::CaseInsensitive) == 0
                   ? PLTextRange{0, apostrophe}
                   : whole;
    for (const QStringView elided : elidedWords) {
        if (part.first(apostrophe).compare(elided, Qt::CaseInsensitive) == 0)
            return {apostrophe + 1, int(part.size()) - apostrophe - 1};
    }
    return whole;
}

void PLSpellChecker::forgetWords()
{
    m_known.clear();
    Q_EMIT wordsDidChange();
}
