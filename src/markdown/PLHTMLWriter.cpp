// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLHTMLWriter.h"

#include <array>

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
    LastNote = PLTildeMark,
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
    return table;
}();

constexpr qsizetype blockSize = 32;

#ifdef __SSE2__
/// Copies a block; answers whether one of its units may have an action ("|" is taken for one of "<", ">" and
/// "~"). Sixteen units at a time as bytes: saturation makes what is no byte 0 or 255, which have none.
bool copyBlock(const char16_t *units, char16_t *copy)
{
    const auto bytesOf = [](char16_t unit) { return _mm_set1_epi8(char(unit)); };
    __m128i found = _mm_setzero_si128();
    for (qsizetype start = 0; start < blockSize; start += 16) {
        const auto *source = reinterpret_cast<const __m128i *>(units + start);
        auto *target = reinterpret_cast<__m128i *>(copy + start);
        const __m128i first = _mm_loadu_si128(source);
        const __m128i second = _mm_loadu_si128(source + 1);
        _mm_storeu_si128(target, first);
        _mm_storeu_si128(target + 1, second);
        const __m128i bytes = _mm_packus_epi16(first, second);
        const __m128i with4 = _mm_or_si128(bytes, bytesOf(4));
        const __m128i with42 = _mm_or_si128(bytes, bytesOf(0x42));
        const auto find = [&found](__m128i units8, __m128i wanted) {
            found = _mm_or_si128(found, _mm_cmpeq_epi8(units8, wanted));
        };
        find(with4, bytesOf(u'&'));
        find(with4, bytesOf(u'_'));
        find(with42, bytesOf(u'~'));
        find(bytes, bytesOf(u'*'));
        find(bytes, bytesOf(u'`'));
    }
    return _mm_movemask_epi8(found) != 0;
}
#else
/// Copies a block; answers whether one of its units may have an action ("|" is taken for one of "<", ">" and
/// "~"). Without a branch, so that the compiler makes vectors of it.
bool copyBlock(const char16_t *units, char16_t *copy)
{
    uint16_t found = 0;
    for (qsizetype index = 0; index < blockSize; ++index) {
        const char16_t unit = units[index];
        found |= uint16_t(((unit | 4) == u'&') | ((unit | 4) == u'_') | ((unit | 0x42) == u'~') |
                          (unit == u'*') | (unit == u'`'));
    }
    std::memcpy(copy, units, blockSize * sizeof(char16_t));
    return found != 0;
}
#endif

Action actionOf(char16_t unit)
{
    return unit < actions.size() ? Action(actions[unit]) : CopyIt;
}

/// Copies the blocks that have no action; answers how many units that is.
qsizetype copyPlainBlocks(const char16_t *units, qsizetype size, char16_t *copy)
{
    qsizetype copied = 0;
    while (size - copied >= blockSize && !copyBlock(units + copied, copy + copied))
        copied += blockSize;
    if (size < blockSize || size - copied >= blockSize)
        return copied;
    const qsizetype last = size - blockSize; // this block reaches back over what is copied already
    return copyBlock(units + last, copy + last) ? copied : size;
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
    const char16_t *const units = text.utf16();
    qsizetype position = 0;
    while (position < text.size()) {
        makeRoom(text.size() - position);
        const qsizetype plain = copyPlainBlocks(units + position, text.size() - position, m_units + m_size);
        m_size += plain;
        position += plain;
        for (const qsizetype end = qMin(position + blockSize, text.size()); position < end; ++position) {
            const Action action = actionOf(units[position]);
            if (action == MeetBackquote)
                return position;
            if (action > LastNote) {
                appendEntity(units[position]);
                makeRoom(text.size() - position);
                continue;
            }
            *marks |= action;
            m_units[m_size++] = units[position];
        }
    }
    return position;
}

void PLHTMLWriter::appendEntity(char16_t unit)
{
    if (unit == u'&')
        append(u"&amp;");
    else if (unit == u'<')
        append(u"&lt;");
    else if (unit == u'>')
        append(u"&gt;");
    else
        append(u"&quot;");
}

QString PLHTMLWriter::take()
{
    m_text.resize(m_size);
    QString text = m_size > 0 ? std::exchange(m_text, QString()) : QStringLiteral("");
    *this = PLHTMLWriter();
    return text;
}
