// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLRandomMarkdown.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

const QString marks[] = {u"*"_s,  u"*"_s,  u"**"_s, u"***"_s, u"_"_s,   u"_"_s,   u"__"_s, u"~"_s,
                         u"~~"_s, u"["_s,  u"[["_s, u"]"_s,   u"]]"_s,  u"]("_s,  u"("_s,  u")"_s,
                         u"!"_s,  u"!["_s, u"`"_s,  u"``"_s,  u"```"_s, u"[a]("_s};

const QString blockMarks[] = {u"#"_s,  u"##"_s, u"# "_s, u"> "_s, u">"_s,   u"- "_s,  u"-"_s,  u"+ "_s,
                              u"* "_s, u"1."_s, u"2)"_s, u". "_s, u"---"_s, u"```"_s, u"=="_s, u"_ "_s};

const QString letters[] = {u"a"_s,  u"b"_s,  u"é"_s,      u"Z"_s,      u"0"_s,      u"9"_s,
                           u"."_s,  u","_s,  u"'"_s,      u"\u0301"_s, u"\u00DF"_s, u"\u0661"_s,
                           u"$1"_s, u"\\"_s, u"\u203F"_s, u"\u200C"_s, u"\u200D"_s, u"\u05D0"_s};

const QString entities[] = {u"&"_s, u"<"_s, u">"_s, u"\""_s, u"'"_s, u"&amp;"_s, u"&lt;"_s, u"<b>"_s};

/// One space or line end each; "\n" apart, which a line does not hold.
constexpr char16_t spaces[] =
    u" \t\u00A0\u1680\u2000\u200A\u202F\u205F\u3000\r\u000B\u000C\u0085\u2028\u2029";

/// Wide characters, broken pairs and what else is rare; the empty one stands for NUL.
constexpr char16_t oddities[][3] = {u"\U0001D7CE", u"\U0001F600", u"\U00010400", {0xD800, 0}, {0xDC00, 0},
                                    {0xDBFF, 0},   u"\uFEFF",     u"\u180E",     u"\u200B",   u"\u2603",
                                    u"\uFFFF",     u"\u0600",     u"\U000E0100", u"\u2040",   {0, 0}};

/// Members of each class of the word-boundary rules, and of the scripts that have a dictionary.
constexpr char16_t wordUnits[] =
    u"aZéßΩжա٣9_\u203F\u202F'’‘.:·,;\u066C\u0301\u0308\u00AD\u200B\u200C\u200D\uFEFF "
    u"\t\r\n\u000B\u0085\u2028\u3000"
    u"\u2009\u00A0-#*\"«»!?"
    u"אבג׳״カタカナーひらがな漢字中文ไทยภาษาลາວမ្មខ្មែរ한국어\u1100\u1161\u11A8\uFF10\uFF41\uFF3F"
    u"©™☺❤\uFE0F\u20E3\u180E\u0E31\u0E33ʻ@€°²½ªºⅣⓐ〆〇々゛゜\uFF9E";

constexpr char32_t wideWordCharacters[] = {0x1F600, 0x1F468, 0x1F469, 0x1F3FB, 0x1F1EB, 0x1F1F7, 0x10400,
                                           0x1D7CE, 0x20000, 0xE0100, 0xE0001, 0x1B000, 0x11C00, 0x1F9D1};

} // namespace

PLRandomMarkdown::PLRandomMarkdown(quint64 seed) : m_random(seed) {}

int PLRandomMarkdown::below(int count)
{
    return int(m_random() % quint64(count));
}

QString PLRandomMarkdown::piece()
{
    switch (below(12)) {
    case 0:
    case 1:
    case 2:
    case 3:
        return marks[below(std::size(marks))];
    case 4:
    case 5:
        return u" "_s;
    case 6:
        return QString(QChar(spaces[below(std::size(spaces) - 1)]));
    case 7:
        return entities[below(std::size(entities))];
    case 8:
        return blockMarks[below(std::size(blockMarks))];
    case 9: {
        const QStringView oddity(oddities[below(std::size(oddities))]);
        return oddity.isEmpty() ? QString(QChar(u'\0')) : oddity.toString();
    }
    default:
        return letters[below(std::size(letters))];
    }
}

QString PLRandomMarkdown::line(int pieceCount)
{
    QString text;
    const int opening = below(3);
    for (int index = 0; index < opening; ++index)
        text += blockMarks[below(std::size(blockMarks))];
    for (int count = below(pieceCount + 1); count > 0; --count)
        text += piece();
    return text;
}

QString PLRandomMarkdown::page(int lineCount)
{
    QString text;
    if (below(8) == 0)
        text = u"---\ntags:"_s + line(6).remove(u'\n') + u",a,"_s + line(4) + u"\n---\n"_s;
    for (int count = below(lineCount + 1); count > 0; --count)
        text += line(8) + (below(10) == 0 ? u"\r\n"_s : u"\n"_s);
    return text + line(4);
}

QString PLRandomMarkdown::words(int characterCount)
{
    QString text;
    for (int count = below(characterCount + 1); count > 0; --count) {
        const int kind = below(24);
        if (kind < 6)
            text += QChar(u"a 'b1_"[below(6)]);
        else if (kind == 6)
            text += QChar(char16_t(0xD800 + below(0x800)));
        else if (kind < 10)
            text += QString::fromUcs4(&wideWordCharacters[below(std::size(wideWordCharacters))], 1);
        else if (kind == 10)
            text += QChar(char16_t(below(0x10000)));
        else
            text += QChar(wordUnits[below(std::size(wordUnits) - 1)]);
    }
    return text;
}
