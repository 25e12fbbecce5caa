// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// Pages of any bytes: what they decode to beside another library's decoders, what a document holds of them,
// and the tags that are read from their first bytes beside those of the whole.

#include "PLFuzzFiles.h"
#include "editor/PLPageCharacters.h"
#include "storage/PLFiles.h"
#include "storage/PLFrontMatter.h"
#include "storage/PLProjectItem.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// One of ICU's decoders, which stops at the first byte that is wrong.
class Decoder final
{
public:
    explicit Decoder(const char *name)
    {
        UErrorCode status = U_ZERO_ERROR;
        m_converter.reset(ucnv_open(name, &status));
        ucnv_setToUCallBack(m_converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        PLRequire(U_SUCCESS(status), "there is such a decoder");
    }

    std::optional<QString> decoded(const QByteArray &bytes) const
    {
        QString text(2 * bytes.size() + 2, Qt::Uninitialized);
        UErrorCode status = U_ZERO_ERROR;
        const int32_t length =
            ucnv_toUChars(m_converter.get(), reinterpret_cast<char16_t *>(text.data()), int32_t(text.size()),
                          bytes.constData(), int32_t(bytes.size()), &status);
        return U_SUCCESS(status) ? std::optional(text.first(length)) : std::nullopt;
    }

private:
    struct Closer
    {
        void operator()(UConverter *converter) const { ucnv_close(converter); }
    };
    std::unique_ptr<UConverter, Closer> m_converter;
};

/// ICU takes a leading U+FEFF away where it tells the byte order.
std::optional<QString> plainText(const QByteArray &bytes)
{
    static const Decoder utf8("UTF-8");
    static const Decoder bigEndian("UTF-16BE");
    static const Decoder littleEndian("UTF-16LE");
    static const Decoder windows("ibm-5348_P100-1997"); // Windows-1252, every byte a character
    if (bytes.startsWith("\xFF\xFE"))
        return littleEndian.decoded(bytes);
    if (bytes.startsWith("\xFE\xFF"))
        return bigEndian.decoded(bytes);
    const std::optional<QString> text = utf8.decoded(bytes);
    return text ? text : windows.decoded(bytes);
}

void checkDecoding(const QByteArray &bytes, const std::optional<QString> &text)
{
    PLRequire(text == plainText(bytes), "a page decodes as elsewhere");
    const std::optional<QString> utf8 = PLDecodedUTF8(bytes);
    PLRequire(!utf8 || (utf8 == text && utf8->toUtf8() == bytes), "UTF-8 goes through a page byte for byte");
    if (text)
        PLRequire(PLDecodedUTF8(text->toUtf8()) == text, "a page is written so that it reads the same");
}

/// Once as a whole and once as something that is pasted into a page that is there.
void checkCharacters(const QString &text)
{
    const auto isReserved = [](QChar character) { return u"\r\u2029\ufdd0\ufdd1"_s.contains(character); };
    const qsizetype half = text.size() / 2;
    PLPageCharacters characters;
    const QString first = characters.encoded(text.first(half));
    const QString second = characters.encoded(text.sliced(half));
    const QString encoded = first + second;
    PLRequire(encoded.size() == text.size(), "positions stay the same in a document");
    PLRequire(std::none_of(encoded.begin(), encoded.end(), isReserved), "a document gets what it can hold");
    PLRequire(characters.decoded(encoded) == text, "a document gives every character back");
}

QString pagePath()
{
    static const QTemporaryDir folder(PLFuzzFolderPattern(u"decode"_s));
    return folder.filePath(u"page.md"_s);
}

QStringList tagsOf(const QString &text)
{
    const QString page = text.startsWith(QChar(QChar::ByteOrderMark)) ? text.sliced(1) : text;
    return PLProjectItem::tagsFromString(PLFrontMatter::fieldsFromString(page).value(u"tags"_s));
}

/// A page is read in pieces until its header is closed.
void checkReading(const QByteArray &bytes, const std::optional<QString> &text)
{
    static const PLProjectItemPointer item =
        PLProjectItem::itemWithURL(QUrl::fromLocalFile(pagePath()), PLSection::Notes);
    static const QByteArray path = pagePath().toUtf8();
    PLWriteFuzzFile(path, bytes);
    const QString read = item->readContents();
    PLRequire(text ? read == *text && !read.isNull() : read.isNull(), "a page is read as it decodes");
    const QStringList tags = item->readTags();
    // Of a page that is UTF-8 in its header alone the tags are read as such.
    PLRequire(tags == tagsOf(read) || (!PLDecodedUTF8(bytes) && tags == tagsOf(QString::fromUtf8(bytes))),
              "the tags are those of the whole page");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PLFuzzInput input(data, size);
    const int padding = input.byte();
    QByteArray bytes = input.rest();
    if (padding >= 128) // a header then ends before, on and after the end of what is read of a page first
        bytes.replace("PAD", QByteArray(3 * padding, 'p'));
    const std::optional<QString> text = PLDecodedText(bytes);
    checkDecoding(bytes, text);
    if (text)
        checkCharacters(*text);
    checkReading(bytes, text);
    return 0;
}
