// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"

#include "i18n/PLDesktopStrings.h"
#include "storage/PLFolderReader.h"

#include <QDir>
#include <QStringDecoder>
#include <QtEndian>

#include <cerrno>

namespace {

/// The bytes 0x80 to 0x9F in Windows-1252. The five that have no character there stand for the control
/// characters of the same number, so that no byte is lost.
constexpr char16_t windowsCharacters[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::optional<QString> undecodable(PLError *error)
{
    PLFail(error, PLFileError(EILSEQ));
    return std::nullopt;
}

QString decodedWindows1252(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar &character : text) {
        if (character >= QChar(0x80) && character <= QChar(0x9F))
            character = windowsCharacters[character.unicode() - 0x80];
    }
    return text;
}

std::optional<QString> decodedUTF16(QByteArrayView bytes, bool isBigEndian, PLError *error)
{
    if (bytes.size() % 2 != 0)
        return undecodable(error);
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype unit = 0; unit < text.size(); ++unit) {
        const char *source = bytes.data() + 2 * unit;
        text[unit] = isBigEndian ? qFromBigEndian<char16_t>(source) : qFromLittleEndian<char16_t>(source);
    }
    return text.isValidUtf16() ? text : undecodable(error);
}

} // namespace

QStringList PLFileNamesInFolder(const QString &folder)
{
    QStringList names;
    for (PLFolderReader reader(folder); reader.next();)
        names.append(reader.name());
    return names;
}

QString PLStandardizedPath(const QUrl &url)
{
    return QDir::cleanPath(url.toLocalFile());
}

std::optional<QString> PLDecodedUTF8(QByteArrayView bytes, PLError *error)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    return decoder.hasError() ? undecodable(error) : text;
}

std::optional<QString> PLDecodedText(QByteArrayView bytes, PLError *error)
{
    if (bytes.startsWith("\xFF\xFE"))
        return decodedUTF16(bytes, false, error);
    if (bytes.startsWith("\xFE\xFF"))
        return decodedUTF16(bytes, true, error);
    const std::optional<QString> text = PLDecodedUTF8(bytes);
    return text ? text : decodedWindows1252(bytes);
}

PLError PLFileError(int errorNumber)
{
    return {PLFileErrorDomain, errorNumber, PLFileErrorMessage(errorNumber)};
}
