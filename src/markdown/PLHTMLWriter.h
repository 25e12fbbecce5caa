// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cstring>

/// A growing text that is written at its end only: what a renderer appends to. Faster than QString for many
/// short pieces, because an append is a length check and a copy.
class PLHTMLWriter final
{
public:
    PLHTMLWriter() = default;

    /// Makes room for this many units, so that a text of about that length is written without moving it.
    void reserve(qsizetype capacity);

    qsizetype size() const { return m_size; }
    QStringView viewFrom(qsizetype start) const { return QStringView(m_units + start, m_size - start); }
    /// Keeps the first `size` units.
    void truncate(qsizetype size) { m_size = size; }

    void append(QStringView text)
    {
        makeRoom(text.size());
        if (text.size() > longestCopy)
            copyInPieces(text);
        else if (!text.isEmpty())
            std::memcpy(m_units + m_size, text.utf16(), size_t(text.size()) * sizeof(char16_t));
        m_size += text.size();
    }

    template <size_t Size>
    void append(const char16_t (&literal)[Size])
    {
        makeRoom(Size);
        std::memcpy(m_units + m_size, literal, sizeof(literal));
        m_size += Size - 1;
    }

    /// Appends the text up to the first line feed, back-quote, mark or character that needs an entity;
    /// answers how many units that is.
    qsizetype appendPlain(QStringView text);

    /// Appends the text with "&", "<", ">" and the double quote as entities.
    void appendEscaped(QStringView text);

    /// Appends like `appendEscaped` up to the first back-quote; answers its index, or the length of the text.
    /// `marks` receives the marks met on the way, a set of PLMark.
    qsizetype appendEscapedUntilBackquote(QStringView text, unsigned *marks);

    /// The written text; the writer is empty afterwards.
    QString take();

private:
    static constexpr qsizetype longestCopy = 1 << 16;

    void copyInPieces(QStringView text);
    void makeRoom(qsizetype more)
    {
        if (m_capacity - m_size < more)
            grow(more);
    }
    void grow(qsizetype more);
    void appendEntity(char16_t unit, qsizetype following);

    QString m_text;
    char16_t *m_units = nullptr; ///< m_text's
    qsizetype m_size = 0;
    qsizetype m_capacity = 0;
};

/// The characters that can open an inline rule, alone and twice in a row.
enum PLMark : unsigned {
    PLBracketMark = 1,
    PLAsteriskMark = 2,
    PLUnderscoreMark = 4,
    PLTildeMark = 8,
    PLDoubleAsteriskMark = PLAsteriskMark << 4,
    PLDoubleUnderscoreMark = PLUnderscoreMark << 4,
    PLDoubleTildeMark = PLTildeMark << 4,
};
