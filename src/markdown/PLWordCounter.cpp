// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLWordCounter.h"

#include "markdown/PLCharacters.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>

#include <array>
#include <memory>

namespace {

/// Word_Break classes, those apart that the table does not handle.
enum WordClass : uint8_t {
    NotYetKnown,
    Other,
    Letter,
    Numeric,
    Connector, ///< "_" and its like: joins letters and digits, two of them are a word
    MidLetter,
    MidNumber,
    MidBoth,
    Attached, ///< marks and format characters: part of what stands before
    Complex,  ///< left to ICU
    WordClassCount
};

/// What the counter has just passed, marks left out. The segment is counted when its first letter or digit,
/// or second connector, is met.
enum State : uint8_t {
    Outside,
    AfterLetter,
    AfterNumeric,
    AfterLoneConnector,
    AfterConnector, ///< in a segment that is counted
    AfterLetterMid, ///< a letter, then one character that stays inside a word if a letter follows
    AfterNumericMid,
    Stopped, ///< at a character that has no step
    StateCount
};

constexpr uint8_t stateMask = 0x3F;
constexpr uint8_t countsOne = 0x40; ///< the upper two bits are what is added to the count
constexpr uint8_t takesOneBack = 0xC0;
constexpr int addedShift = 6;

using Steps = std::array<std::array<uint8_t, WordClassCount>, StateCount>;

constexpr Steps steps = [] {
    Steps table = {};
    for (int state = Outside; state < Stopped; ++state) {
        for (uint8_t &step : table[state])
            step = Outside;
        table[state][NotYetKnown] = Stopped;
        table[state][Complex] = Stopped;
        table[state][Attached] = uint8_t(state);
        table[state][Letter] = AfterLetter | countsOne;
        table[state][Numeric] = AfterNumeric | countsOne;
        table[state][Connector] = AfterLoneConnector;
    }
    for (const State state : {AfterLetter, AfterNumeric, AfterConnector}) {
        table[state][Letter] = AfterLetter;
        table[state][Numeric] = AfterNumeric;
        table[state][Connector] = AfterConnector;
    }
    table[AfterLoneConnector][Connector] = AfterConnector | countsOne;
    table[AfterConnector][Attached] = AfterLoneConnector | takesOneBack; // ICU: no word ends so
    table[AfterLetter][MidLetter] = table[AfterLetter][MidBoth] = AfterLetterMid;
    table[AfterNumeric][MidNumber] = table[AfterNumeric][MidBoth] = AfterNumericMid;
    table[AfterLetterMid][Letter] = AfterLetter;
    table[AfterNumericMid][Numeric] = AfterNumeric;
    return table;
}();

/// Above the alphabets and general punctuation, and where a dictionary or script of its own is needed.
bool isBeyondTable(char16_t unit)
{
    constexpr char16_t firstDictionary = 0x0E00; // Thai
    constexpr char16_t firstExtendedLatin = 0x1E00;
    constexpr char16_t firstIdeographic = 0x2E80;
    return unit >= firstIdeographic || (unit >= firstDictionary && unit < firstExtendedLatin);
}

WordClass wordClass(char16_t unit)
{
    if (isBeyondTable(unit))
        return Complex;
    if (unit == u'@' || unit == u':') // where ICU's rules differ from the property
        return unit == u'@' ? Letter : Other;
    switch (u_getIntPropertyValue(unit, UCHAR_WORD_BREAK)) {
    case U_WB_ALETTER:
        return Letter;
    case U_WB_NUMERIC:
        return Numeric;
    case U_WB_EXTENDNUMLET:
        return Connector;
    case U_WB_MIDLETTER:
        return MidLetter;
    case U_WB_MIDNUM:
        return MidNumber;
    case U_WB_MIDNUMLET:
    case U_WB_SINGLE_QUOTE:
        return MidBoth;
    case U_WB_EXTEND:
    case U_WB_FORMAT:
        return Attached;
    case U_WB_HEBREW_LETTER:
    case U_WB_KATAKANA:
    case U_WB_ZWJ:
        return Complex;
    default:
        return Other;
    }
}

/// The classes of the Basic Multilingual Plane, filled as characters are met.
uint8_t wordClasses[0x10000];

/// Whether a new segment surely begins here, whatever stands around: after a space or a line feed, in front
/// of neither a space nor something that attaches to it.
bool isSurelyBoundary(QStringView text, qsizetype position)
{
    if (position == 0 || position == text.size())
        return true;
    const QChar before = text[position - 1];
    if (before != u' ' && before != u'\n')
        return false;
    switch (u_getIntPropertyValue(UChar32(PLCodePointAt(text, position)), UCHAR_WORD_BREAK)) {
    case U_WB_EXTEND:
    case U_WB_FORMAT:
    case U_WB_ZWJ:
    case U_WB_WSEGSPACE:
        return false;
    default:
        return true;
    }
}

/// Counts from the start of a segment up to the first complex character or the end; answers where it stopped.
qsizetype countSimple(QStringView text, qsizetype position, qsizetype *count)
{
    const char16_t *units = text.utf16();
    unsigned state = Outside;
    qsizetype words = 0;
    while (position < text.size()) {
        const char16_t unit = units[position];
        const uint8_t step = steps[state][wordClasses[unit]];
        if (step == Stopped) {
            if (wordClasses[unit] == Complex)
                break;
            wordClasses[unit] = wordClass(unit);
            continue;
        }
        words += int8_t(step) >> addedShift;
        state = step & stateMask;
        ++position;
    }
    *count += words;
    return position;
}

struct CloseIterator
{
    void operator()(UBreakIterator *iterator) const { ubrk_close(iterator); }
};
using IteratorPointer = std::unique_ptr<UBreakIterator, CloseIterator>;

/// ICU's iterator, for the complex stretches of one text, in their order. An iterator gathers the
/// dictionaries that it has met and cuts what follows accordingly (ICU 72), so that each text has one of its
/// own, as if the iterator had walked over the whole of it; a copy of one that was never used is cheaper than
/// a new one.
class ICUCounter final
{
public:
    qsizetype count(QStringView text)
    {
        UErrorCode status = U_ZERO_ERROR;
        static const IteratorPointer unused(ubrk_open(UBRK_WORD, "", nullptr, 0, &status));
        if (!m_iterator)
            m_iterator.reset(ubrk_clone(unused.get(), &status));
        UBreakIterator *iterator = m_iterator.get();
        ubrk_setText(iterator, reinterpret_cast<const UChar *>(text.utf16()), int32_t(text.size()), &status);
        if (U_FAILURE(status))
            return 0;
        qsizetype words = 0;
        while (ubrk_next(iterator) != UBRK_DONE)
            words += ubrk_getRuleStatus(iterator) >= UBRK_WORD_NONE_LIMIT ? 1 : 0;
        return words;
    }

private:
    IteratorPointer m_iterator;
};

} // namespace

qsizetype PLWordCount(QStringView text)
{
    ICUCounter icu;
    qsizetype count = 0;
    qsizetype position = countSimple(text, 0, &count);
    while (position < text.size()) {
        qsizetype start = position;
        while (!isSurelyBoundary(text, start))
            --start;
        qsizetype end = position + 1;
        while (!isSurelyBoundary(text, end))
            ++end;
        qsizetype countedTwice = 0;
        countSimple(text.first(position), start, &countedTwice);
        count += icu.count(text.sliced(start, end - start)) - countedTwice;
        position = countSimple(text, end, &count);
    }
    return count;
}
