// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLHTMLWriter.h"

#include <array>
#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

/// What a character of the writer's text asks for; none for most.
enum Action : unsigned char {
    CopyIt = 0,
    NoteBracket = PLBracketMark,
    NoteAsterisk = PLAsteriskMark,
    NoteUnderscore = PLUnderscoreMark,
    NoteTilde = PLTildeMark,
    AllNotes = PLBracketMark | PLAsteriskMark | PLUnderscoreMark | PLTildeMark,
    MeetLineFeed,
    WriteEntity,
    MeetBackquote,
};

constexpr std::array<unsigned char, 128> actions = [] {
    std::array<unsigned char, 128> table = {};
    table[u'['] = NoteBracket;
    table[u'*'] = NoteAsterisk;
    table[u'_'] = NoteUnderscore;
    table[u'~'] = NoteTilde;
    table[u'&'] = WriteEntity;
    table[u'<'] = WriteEntity;
    table[u'>'] = WriteEntity;
    table[u'"'] = WriteEntity;
    table[u'`'] = MeetBackquote;
    table[u'\n'] = MeetLineFeed;
    return table;
}();

constexpr qsizetype blockSize = 32;
constexpr uint32_t noUnit = 0;

#ifdef __SSE2__
/// A bit for each of sixteen bytes that may be an action: one of `& " _ [ < > ~ | * `` or a line feed.
uint32_t actionBits(__m128i bytes)
{
    const auto bytesOf = [](char16_t unit) { return _mm_set1_epi8(char(unit)); };
    const __m128i with4 = _mm_or_si128(bytes, bytesOf(4));
    const __m128i with42 = _mm_or_si128(bytes, bytesOf(0x42));
    __m128i found = _mm_or_si128(_mm_cmpeq_epi8(with4, bytesOf(u'&')), _mm_cmpeq_epi8(with4, bytesOf(u'_')));
    found = _mm_or_si128(found, _mm_cmpeq_epi8(with42, bytesOf(u'~')));
    found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, bytesOf(u'*')));
    found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, bytesOf(u'`')));
    found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, bytesOf(u'\n')));
    return uint32_t(_mm_movemask_epi8(found));
}

/// Copies sixteen units and looks at them as bytes: saturation makes what is no byte 0 or 255, which have no
/// action.
uint32_t copyHalfBlock(const char16_t *units, char16_t *copy)
{
    const auto *source = reinterpret_cast<const __m128i *>(units);
    auto *target = reinterpret_cast<__m128i *>(copy);
    const __m128i first = _mm_loadu_si128(source);
    const __m128i second = _mm_loadu_si128(source + 1);
    _mm_storeu_si128(target, first);
    _mm_storeu_si128(target + 1, second);
    return actionBits(_mm_packus_epi16(first, second));
}

/// Copies a block; answers a bit for each of its units that may have an action ("|" is taken for one).
uint32_t copyBlock(const char16_t *units, char16_t *copy)
{
    return copyHalfBlock(units, copy) | copyHalfBlock(units + 16, copy + 16) << 16;
}
#else
uint32_t copyBlock(const char16_t *units, char16_t *copy)
{
    uint32_t found = noUnit;
    for (qsizetype index = 0; index < blockSize; ++index)
        found |= uint32_t(units[index] < actions.size() && actions[units[index]] != CopyIt) << index;
    std::memcpy(copy, units, blockSize * sizeof(char16_t));
    return found;
}
#endif

Action actionOf(char16_t unit)
{
    return unit < actions.size() ? Action(actions[unit]) : CopyIt;
}

/// Copies units up to the first one that has an action; answers how many. Those after it may be copied too.
qsizetype copyPlain(const char16_t *units, qsizetype size, char16_t *copy)
{
    qsizetype position = 0;
    while (size - position >= blockSize) {
        for (uint32_t found = copyBlock(units + position, copy + position); found != noUnit;
             found &= found - 1) {
            const qsizetype index = position + std::countr_zero(found);
            if (actionOf(units[index]) != CopyIt)
                return index;
        }
        position += blockSize;
    }
    for (; position < size && actionOf(units[position]) == CopyIt; ++position)
        copy[position] = units[position];
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

/// One long copy goes past the caches (glibc's memcpy above a megabyte or so), where the next rule has to
/// fetch it from again.
void PLHTMLWriter::copyInPieces(QStringView text)
{
    char16_t *target = m_units + m_size;
    while (!text.isEmpty()) {
        const qsizetype length = qMin(text.size(), longestCopy);
        std::memcpy(target, text.utf16(), size_t(length) * sizeof(char16_t));
        target += length;
        text = text.sliced(length);
    }
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

qsizetype PLHTMLWriter::appendPlain(QStringView text)
{
    makeRoom(text.size());
    const qsizetype length = copyPlain(text.utf16(), text.size(), m_units + m_size);
    m_size += length;
    return length;
}

qsizetype PLHTMLWriter::appendEscapedUntilBackquote(QStringView text, unsigned *marks)
{
    const char16_t *const units = text.utf16();
    qsizetype position = 0;
    while (position < text.size()) {
        position += appendPlain(text.sliced(position));
        // where there is one action there are others
        for (const qsizetype end = qMin(position + blockSize, text.size()); position < end; ++position) {
            const Action action = actionOf(units[position]);
            if (action == MeetBackquote)
                return position;
            const bool isDouble = position > 0 && units[position - 1] == units[position];
            const unsigned noted = action == WriteEntity ? 0 : unsigned(action & AllNotes);
            *marks |= noted * (isDouble ? 0x11 : 1);
            if (action != WriteEntity)
                m_units[m_size++] = units[position];
            else
                appendEntity(units[position], text.size() - position);
        }
    }
    return position;
}

/// Leaves room for so many units more.
void PLHTMLWriter::appendEntity(char16_t unit, qsizetype following)
{
    if (unit == u'&')
        append(u"&amp;");
    else if (unit == u'<')
        append(u"&lt;");
    else if (unit == u'>')
        append(u"&gt;");
    else
        append(u"&quot;");
    makeRoom(following);
}

QString PLHTMLWriter::take()
{
    m_text.resize(m_size);
    QString text = m_size > 0 ? std::exchange(m_text, QString()) : QStringLiteral("");
    *this = PLHTMLWriter();
    return text;
}
