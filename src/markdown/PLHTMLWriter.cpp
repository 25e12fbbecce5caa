// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLHTMLWriter.h"

#include <array>

namespace {

/// What a character of the writer's text asks for; none for most.
enum Action : unsigned char {
    CopyIt = 0,
    NoteBracket = PLBracketMark,
    NoteAsterisk = PLAsteriskMark,
    NoteUnderscore = PLUnderscoreMark,
    NoteTilde = PLTildeMark,
    LastNote = PLTildeMark,
    WriteAmpersand,
    WriteLess,
    WriteGreater,
    WriteQuote,
    MeetBackquote,
};

constexpr std::array<unsigned char, 128> actions = [] {
    std::array<unsigned char, 128> table = {};
    table[u'['] = NoteBracket;
    table[u'*'] = NoteAsterisk;
    table[u'_'] = NoteUnderscore;
    table[u'~'] = NoteTilde;
    table[u'&'] = WriteAmpersand;
    table[u'<'] = WriteLess;
    table[u'>'] = WriteGreater;
    table[u'"'] = WriteQuote;
    table[u'`'] = MeetBackquote;
    return table;
}();

constexpr qsizetype laneCount = 8;
constexpr qsizetype blockSize = 4 * laneCount;

/// All bits if the unit has an action, none if not.
constexpr uint16_t actionBits(char16_t unit)
{
    const auto bits = [](bool isEqual) { return uint16_t(-int(isEqual)); };
    return bits((unit | 4) == u'&') | bits((unit | 2) == u'>') | bits((unit | 4) == u'_') |
           bits(unit == u'*') | bits(unit == u'`') | bits(unit == u'~');
}

/// Whether one of the block's units has an action. Without a branch and lane by lane, so that the compiler
/// makes vectors of it.
bool blockHasAction(const char16_t *units)
{
    std::array<uint16_t, laneCount> lanes = {};
    for (qsizetype start = 0; start < blockSize; start += laneCount) {
        for (qsizetype lane = 0; lane < laneCount; ++lane)
            lanes[size_t(lane)] |= actionBits(units[start + lane]);
    }
    std::array<uint64_t, 2> halves;
    static_assert(sizeof(halves) == sizeof(lanes));
    std::memcpy(halves.data(), lanes.data(), sizeof(halves));
    return (halves[0] | halves[1]) != 0;
}

Action actionOf(char16_t unit)
{
    return unit < actions.size() ? Action(actions[unit]) : CopyIt;
}

/// The first unit from `position` on that has an action, or the end.
const char16_t *nextAction(const char16_t *position, const char16_t *end)
{
    const bool fillsBlock = end - position >= blockSize;
    while (end - position >= blockSize && !blockHasAction(position))
        position += blockSize;
    if (fillsBlock && end - position < blockSize && !blockHasAction(end - blockSize))
        return end; // the last block reaches back over what was looked at
    while (position < end && actionOf(*position) == CopyIt)
        ++position;
    return position;
}

} // namespace

void PLHTMLWriter::reserve(qsizetype capacity)
{
    if (capacity > m_capacity)
        grow(capacity - m_size);
}

void PLHTMLWriter::grow(qsizetype more)
{
    m_text.resize(qMax(m_size + more, m_capacity + m_capacity / 2 + 64));
    m_units = reinterpret_cast<char16_t *>(m_text.data());
    m_capacity = m_text.size();
}

void PLHTMLWriter::appendEscaped(QStringView text)
{
    unsigned marks = 0;
    for (;;) {
        const qsizetype length = appendEscapedUntilBackquote(text, &marks);
        if (length == text.size())
            return;
        append(u"`");
        text = text.sliced(length + 1);
    }
}

qsizetype PLHTMLWriter::appendEscapedUntilBackquote(QStringView text, unsigned *marks)
{
    const char16_t *const start = text.utf16();
    const char16_t *const end = start + text.size();
    const char16_t *copied = start;
    const auto copyUntil = [&](const char16_t *position) {
        append(QStringView(copied, position - copied));
        copied = position + 1;
    };
    for (const char16_t *position = nextAction(start, end); position < end;
         position = nextAction(position, end)) {
        const Action action = actionOf(*position);
        if (action <= LastNote) {
            *marks |= action;
            ++position;
            continue;
        }
        copyUntil(position);
        if (action == MeetBackquote)
            return position - start;
        if (action == WriteAmpersand)
            append(u"&amp;");
        else if (action == WriteLess)
            append(u"&lt;");
        else if (action == WriteGreater)
            append(u"&gt;");
        else
            append(u"&quot;");
        ++position;
    }
    append(QStringView(copied, end - copied));
    return text.size();
}

QString PLHTMLWriter::take()
{
    m_text.resize(m_size);
    QString text = m_size > 0 ? std::exchange(m_text, QString()) : QStringLiteral("");
    *this = PLHTMLWriter();
    return text;
}
