// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLPreferencesFile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace {

constexpr QByteArrayView opening = "@Variant(";
constexpr int deepestNesting = 16;

/// Walks through the bytes of a value as QDataStream reads them, without believing a length. The toolkit
/// reads on into the bracket that closes the value, so that belongs to the bytes.
class Walk final
{
public:
    explicit Walk(QByteArrayView bytes) : m_rest(bytes) {}

    bool isValue() { return passValue(0) && m_rest == ")"; }

private:
    // The numbers that Qt 4.0's streams have for the types of values.
    enum Type : quint32 {
        Invalid,
        Bool,
        Int,
        UInt,
        LongLong,
        ULongLong,
        Double,
        Map = 8,
        List,
        Text,
        Texts,
        Bytes
    };

    bool pass(quint32 count)
    {
        if (qsizetype(count) > m_rest.size())
            return false;
        m_rest = m_rest.sliced(count);
        return true;
    }

    /// Nothing reads as zero; whoever comes next then fails.
    quint32 number()
    {
        const QByteArrayView bytes = m_rest.first(qMin<qsizetype>(4, m_rest.size()));
        m_rest = m_rest.sliced(bytes.size());
        return bytes.size() == 4 ? qFromBigEndian<quint32>(bytes.data()) : 0;
    }

    bool passBytes()
    {
        const quint32 length = number();
        return length == 0xFFFFFFFF || pass(length);
    }

    /// Bytes of whole UTF-16 units: at an odd number the toolkit would stop, and read on before them.
    bool passText()
    {
        const quint32 length = number();
        return length == 0xFFFFFFFF || (length % 2 == 0 && pass(length));
    }

    template <typename Element>
    bool passEach(Element passElement)
    {
        const quint32 count = number();
        if (qsizetype(count) > m_rest.size()) // each has a byte at least
            return false;
        for (quint32 index = 0; index < count; ++index) {
            if (!passElement())
                return false;
        }
        return true;
    }

    bool passValue(int depth)
    {
        if (depth > deepestNesting || m_rest.isEmpty())
            return false;
        switch (number()) {
        case Bool:
            return pass(1);
        case Int:
        case UInt:
            return pass(4);
        case LongLong:
        case ULongLong:
        case Double:
            return pass(8);
        case Map:
            return passEach([&] { return passText() && passValue(depth + 1); });
        case List:
            return passEach([&] { return passValue(depth + 1); });
        case Texts:
            return passEach([&] { return passText(); });
        case Invalid:
        case Text:
            return passText();
        case Bytes:
            return passBytes();
        default:
            return false; // the program has no use for others
        }
    }

    QByteArrayView m_rest;
};

/// The digits in this base from the start of the text on become one character; none become nothing.
QString takeNumber(QByteArrayView &text, int base)
{
    uint value = 0;
    bool isThere = false;
    for (bool isDigit = true; !text.isEmpty(); isThere = true) {
        const uint digit = text.first(1).toUInt(&isDigit, base);
        if (!isDigit)
            break;
        value = value * uint(base) + digit;
        text = text.sliced(1);
    }
    return isThere ? QString(QChar(char16_t(value))) : QString();
}

/// What the characters after a backslash stand for in the toolkit's ini files: an end of the line, and a
/// letter that it does not know, for nothing.
QString takeEscaped(QByteArrayView &text)
{
    constexpr QByteArrayView names = "abfnrtv\"?'\\";
    constexpr QByteArrayView meanings = "\a\b\f\n\r\t\v\"?'\\";
    if (text.isEmpty())
        return {};
    const char name = text.front();
    if (name >= '0' && name <= '7')
        return takeNumber(text, 8);
    text = text.sliced(1);
    if (name == 'x')
        return takeNumber(text, 16);
    const bool endsLine = name == '\n' || name == '\r';
    if (endsLine && !text.isEmpty() && text.front() == (name == '\n' ? '\r' : '\n'))
        text = text.sliced(1);
    const qsizetype index = names.indexOf(name);
    return index < 0 ? QString() : QString(QLatin1Char(meanings[index]));
}

/// What is no escape, from the first byte on up to the next that may mean something else.
QByteArrayView takeRun(QByteArrayView &text, QByteArrayView ends)
{
    qsizetype length = 1;
    while (length < text.size() && !ends.contains(text[length]))
        ++length;
    const QByteArrayView run = text.first(length);
    text = text.sliced(length);
    return run;
}

void skipSpaces(QByteArrayView &text)
{
    while (text.startsWith(' ') || text.startsWith('\t'))
        text = text.sliced(1);
}

void skipComment(QByteArrayView &text)
{
    while (!text.isEmpty() && text.front() != '\n' && text.front() != '\r')
        text = text.sliced(1);
}

/// What stands after the first equals sign of each line, cut at the commas that are not within quotation
/// marks. The keys are among them too, and never look like a value. As in the toolkit, each line has a
/// decoder of its own, which keeps the start of a character until its end comes, and at the end of the line
/// for good.
QList<QByteArray> valuesOf(QByteArrayView text)
{
    QList<QByteArray> values;
    QString value;
    QStringDecoder decoder(QStringDecoder::Utf8);
    bool isQuoted = false;
    bool isKey = true;
    while (!text.isEmpty()) {
        const char character = text.front();
        const bool endsLine = !isQuoted && QByteArrayView(";\r\n").contains(character);
        const bool endsKey = !isQuoted && isKey && character == '=';
        const bool endsValue = endsLine || endsKey || (!isQuoted && !isKey && character == ',');
        const bool endsQuotation = isQuoted && character == '"';
        if (!endsValue && character != '\\' && character != '"') {
            value += decoder(takeRun(text, isQuoted ? "\\\"," : isKey ? "\\\",;\r\n=" : "\\\",;\r\n"));
            continue;
        }
        text = text.sliced(1);
        if (character == '\\')
            value += takeEscaped(text);
        else if (character == '"')
            isQuoted = !isQuoted;
        else
            values.append(std::exchange(value, QString()).trimmed().toLatin1());
        if (endsLine || endsKey) {
            isKey = endsLine;
            decoder = QStringDecoder(QStringDecoder::Utf8);
        }
        if (endsLine && character == ';')
            skipComment(text);
        if (!isKey && (endsValue || endsQuotation))
            skipSpaces(text);
    }
    values.append(value.trimmed().toLatin1());
    return values;
}

/// The toolkit reads a date as it reads a value of any type; the program writes none.
bool isDamaged(QByteArrayView value)
{
    if (!value.endsWith(')'))
        return false;
    if (value.startsWith(opening))
        return !Walk(value.sliced(opening.size())).isValue();
    return value.startsWith("@DateTime(");
}

bool holdsDamage(const QByteArray &file)
{
    const QList<QByteArray> values = valuesOf(file);
    return std::any_of(values.begin(), values.end(), isDamaged);
}

/// To open one would wait until somebody writes into it.
bool isPipe(const QString &path)
{
    std::error_code ignored;
    return std::filesystem::is_fifo(QFileInfo(path).filesystemFilePath(), ignored);
}

/// Nothing of a file that cannot be read.
QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool PLSetAsideDamagedPreferences(const QString &path)
{
    if (!isPipe(path) && !holdsDamage(contentsOf(path)))
        return true;
    const QString otherPath = path + QStringLiteral(".damaged");
    QFile::remove(otherPath);
    return QFile::rename(path, otherPath);
}
