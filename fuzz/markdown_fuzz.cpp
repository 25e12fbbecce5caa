// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// The renderer beside the plain one and the word count beside ICU's iterator, on any text. The first byte
// says how the others become text: as UTF-8, or two by two as UTF-16 units, which makes broken surrogate
// pairs.

#include "markdown/PLMarkdown.h"
#include "markdown/PLPlainMarkdown.h"
#include "markdown/PLWordCounter.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

QString textFrom(const uint8_t *data, size_t size)
{
    if (data[0] % 4 != 0)
        return QString::fromUtf8(reinterpret_cast<const char *>(data) + 1, qsizetype(size - 1));
    QString text;
    for (size_t index = 1; index + 1 < size; index += 2)
        text += QChar(char16_t(data[index] | (data[index + 1] << 8)));
    return text;
}

void require(bool isSame, const char *what)
{
    if (isSame)
        return;
    std::fprintf(stderr, "difference in %s\n", what);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // ICU keeps the dictionaries that a process has met, and they change its answer: have them all from the
    // start.
    PLPlainMarkdown::wordCount(QStringLiteral("カタカナ 漢字 ภาษาไทย ພາສາລາວ ភាសាខ្មែរ မြန်မာဘာသာ 한국어"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QString text = textFrom(data, size);
    require(PLMarkdown::HTMLFromMarkdown(text) == PLPlainMarkdown::HTMLFromMarkdown(text), "page");
    require(PLMarkdown::inlineHTML(text) == PLPlainMarkdown::inlineHTML(text), "line");
    const QStringList lines = text.split(QChar(0x2029)); // lines that hold line feeds
    require(PLMarkdown::blocksHTMLFromLines(lines) == PLPlainMarkdown::blocksHTMLFromLines(lines), "blocks");
    require(PLMarkdown::formattedSpan(text) == PLPlainMarkdown::formattedSpan(text), "span");
    require(PLWordCount(text) == PLPlainMarkdown::wordCount(text), "word count");
    return 0;
}
