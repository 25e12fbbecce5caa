// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Reads a fuzzer's bytes as a script. Past the end every byte is 0 and every text empty.
class PLFuzzInput final
{
public:
    PLFuzzInput(const uint8_t *data, size_t size)
        : m_bytes(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)))
    {
    }

    /// True for one input in `count`, for what takes too long to do it with each.
    bool isOneIn(int count) const { return qChecksum(m_bytes) % count == 0; }

    bool atEnd() const { return m_position >= m_bytes.size(); }
    uint8_t byte() { return atEnd() ? uint8_t(0) : uint8_t(m_bytes[m_position++]); }
    /// Between 0 and `count` - 1.
    int below(int count) { return byte() % count; }

    /// What stands before the next byte FF, which no UTF-8 holds.
    QByteArray piece()
    {
        const qsizetype found = m_bytes.indexOf('\xFF', m_position);
        const qsizetype end = found < 0 ? m_bytes.size() : found;
        const QByteArray bytes = m_bytes.mid(m_position, end - m_position);
        m_position = end + 1;
        return bytes;
    }
    QString text() { return textOf(piece()); }
    /// The lines of a piece.
    QStringList texts()
    {
        QStringList texts;
        const QList<QByteArray> lines = piece().split('\n');
        for (const QByteArray &line : lines)
            texts.append(textOf(line));
        return texts;
    }

    /// Everything that is left, whatever it holds.
    QByteArray rest()
    {
        const QByteArray bytes = m_bytes.mid(m_position);
        m_position = m_bytes.size();
        return bytes;
    }

    /// UTF-8, or after a byte FE UTF-16 units, which makes halves of surrogate pairs.
    static QString textOf(const QByteArray &bytes)
    {
        if (!bytes.startsWith('\xFE'))
            return QString::fromUtf8(bytes);
        QString text;
        for (qsizetype index = 1; index + 1 < bytes.size(); index += 2)
            text += QChar(char16_t(uint8_t(bytes[index]) | (uint8_t(bytes[index + 1]) << 8)));
        return text;
    }

private:
    QByteArray m_bytes;
    qsizetype m_position = 0;
};

/// Ends the run, and lets the fuzzer keep the input, unless what the program promises holds.
inline void PLRequire(bool holds, const char *promise)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}
