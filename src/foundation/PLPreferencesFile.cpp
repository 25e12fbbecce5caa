// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLPreferencesFile.h"

#include <QFile>
#include <QFileInfo>
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

    bool passText()
    {
        const quint32 length = number();
        return length == 0xFFFFFFFF || pass(length);
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
        case Bytes:
            return passText();
        default:
            return false; // the program has no use for others
        }
    }

    QByteArrayView m_rest;
};

/// The digits in this base from the start of the text on become one character; none become nothing.
QString takeNumber(QStringView &text, int base)
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
QString takeEscaped(QStringView &text)
{
    constexpr QStringView names = u"abfnrtv\"?'\\";
    constexpr QStringView meanings = u"\a\b\f\n\r\t\v\"?'\\";
    const QChar name = text.isEmpty() ? QChar() : text.front();
    if (name >= u'0' && name <= u'7')
        return takeNumber(text, 8);
    text = text.sliced(qMin<qsizetype>(1, text.size()));
    if (name == u'x')
        return takeNumber(text, 16);
    const bool endsLine = name == u'\n' || name == u'\r';
    if (endsLine && !text.isEmpty() && text.front() == (name == u'\n' ? u'\r' : u'\n'))
        text = text.sliced(1);
    const qsizetype index = names.indexOf(name);
    return index < 0 ? QString() : QString(meanings[index]);
}

void skipComment(QStringView &text)
{
    while (!text.isEmpty() && text.front() != u'\n' && text.front() != u'\r')
        text = text.sliced(1);
}

/// What stands after the first equals sign of each line, cut at the commas that are not within quotation
/// marks. The keys are among them too, and never look like a value.
QList<QByteArray> valuesOf(QStringView text)
{
    QList<QByteArray> values;
    QString value;
    bool isQuoted = false;
    bool isKey = true;
    while (!text.isEmpty()) {
        const QChar character = text.front();
        text = text.sliced(1);
        const bool endsLine = !isQuoted && QStringView(u";\r\n").contains(character);
        const bool endsValue = !isQuoted && character == (isKey ? u'=' : u',');
        if (character == u'\\')
            value += takeEscaped(text);
        else if (character == u'"')
            isQuoted = !isQuoted;
        else if (endsLine || endsValue)
            values.append(std::exchange(value, QString()).trimmed().toLatin1());
        else
            value += character;
        if (endsLine || endsValue)
            isKey = endsLine;
        if (endsLine && character == u';')
            skipComment(text);
    }
    values.append(value.trimmed().toLatin1());
    return values;
}

bool isDamaged(QByteArrayView value)
{
    if (!value.startsWith(opening) || !value.endsWith(')'))
        return false;
    return !Walk(value.sliced(opening.size())).isValue();
}

bool holdsDamage(const QByteArray &file)
{
    const QList<QByteArray> values = valuesOf(QString::fromUtf8(file));
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

void PLSetAsideDamagedPreferences(const QString &path)
{
    if (!isPipe(path) && !holdsDamage(contentsOf(path)))
        return;
    const QString otherPath = path + QStringLiteral(".damaged");
    QFile::remove(otherPath);
    QFile::rename(path, otherPath);
}
