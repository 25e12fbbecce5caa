// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// markdown_bench [folder ...]: the renderer beside md4c and cmark, the word count beside ICU's iterator, and
// how the time grows for the shapes that make other renderers slow. The text is that of all chapters
// ("Livre/*.md") below the folders given, else below AQUILANE_CORPUS, else generated. Each figure is the best
// of several runs.

#include "markdown/PLMarkdown.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <unicode/ubrk.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include <cmark.h>
#include <md4c-html.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype megabyte = 1000000; // in UTF-16 units for us, in bytes of ASCII for others

QStringList chaptersBelow(const QString &folder)
{
    QStringList files;
    QDirIterator entries(folder, {u"*.md"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString file = entries.next();
        if (file.contains(u"/Livre/"_s))
            files.append(file);
    }
    files.sort();
    return files;
}

QString generatedProse()
{
    QString text;
    for (int paragraph = 0; paragraph < 2500; ++paragraph) {
        if (paragraph % 40 == 0)
            text += u"## Chapitre\n\n"_s;
        text +=
            u"-- Il était une fois, dit-elle, *tout près* d'ici, une maison que l'on n'habitait plus.\n"_s;
        text += u"Le jardin, derrière la haie, n'avait gardé de ses allées que le dessin; on y marchait dans "
                u"l'herbe haute, et l'on entendait, au-delà du mur, la rivière qui coulait entre les saules. "
                u"Personne ne venait; personne, du moins, que l'on eût vu entrer.\n\n"_s;
    }
    return text;
}

QString readText(const QStringList &folders)
{
    QString text;
    for (const QString &folder : folders) {
        for (const QString &path : chaptersBelow(folder)) {
            QFile file(path);
            if (file.open(QIODevice::ReadOnly))
                text += QString::fromUtf8(file.readAll());
        }
    }
    return text.isEmpty() ? generatedProse() : text;
}

void appendOutput(const MD_CHAR *text, MD_SIZE size, void *output)
{
    static_cast<std::string *>(output)->append(text, size);
}

/// Makes the compiler believe that the result is used.
void keep(size_t size)
{
    static volatile size_t sink = 0;
    sink = sink + size;
}

/// Reads more than a core's own caches hold, so that growth shows the work done and not the size of a cache.
void emptyCaches()
{
    static const std::vector<unsigned char> block(16u << 20, 1);
    size_t sum = 0;
    for (size_t index = 0; index < block.size(); index += 64)
        sum += block[index];
    keep(sum);
}

/// The shortest processor time of each of several works in milliseconds, taken in turns, so that what else
/// the machine does falls on all of them.
std::vector<double> bestTimes(
    int rounds, const std::vector<std::function<void()>> &works, const std::function<void()> &prepare = [] {})
{
    std::vector<double> best(works.size(), 1e9);
    for (int round = 0; round < rounds; ++round) {
        for (size_t index = 0; index < works.size(); ++index) {
            prepare();
            const std::clock_t start = std::clock();
            works[index]();
            best[index] = std::min(best[index], double(std::clock() - start) * 1e3 / CLOCKS_PER_SEC);
        }
    }
    return best;
}

/// Makes the allocator keep what is freed, so that the renderers are measured and not the kernel's handing
/// out of fresh pages, which depends on the size of the output and on what ran before.
void keepFreedMemory()
{
#ifdef __GLIBC__
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
#endif
}

void compareRenderers(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const auto ours = [&] { keep(size_t(PLMarkdown::HTMLFromMarkdown(text).size())); };
    const auto md4c = [&] {
        std::string html;
        html.reserve(size_t(bytes.size()) * 2);
        md_html(bytes.constData(), MD_SIZE(bytes.size()), appendOutput, &html, MD_DIALECT_COMMONMARK, 0);
        keep(html.size());
    };
    const auto cmark = [&] {
        char *html = cmark_markdown_to_html(bytes.constData(), size_t(bytes.size()), CMARK_OPT_DEFAULT);
        keep(std::strlen(html));
        std::free(html);
    };
    const std::vector<double> times = bestTimes(100, {ours, md4c, cmark});
    std::printf("prose: %lld characters, %lld bytes of UTF-8\n", qlonglong(text.size()),
                qlonglong(bytes.size()));
    std::printf("%-12s %10s %10s %8s\n", "renderer", "ms", "MB/s", "time");
    const auto row = [&](const char *name, double time) {
        std::printf("%-12s %10.3f %10.0f %7.2fx\n", name, time, double(bytes.size()) / 1e3 / time,
                    time / times[0]);
    };
    row("aquilane", times[0]);
    row("md4c", times[1]);
    row("cmark", times[2]);
}

qsizetype wordsByICU(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    UBreakIterator *iterator = ubrk_open(UBRK_WORD, "", reinterpret_cast<const UChar *>(text.utf16()),
                                         int32_t(text.size()), &status);
    qsizetype words = 0;
    while (U_SUCCESS(status) && ubrk_next(iterator) != UBRK_DONE)
        words += ubrk_getRuleStatus(iterator) >= UBRK_WORD_NONE_LIMIT ? 1 : 0;
    ubrk_close(iterator);
    return words;
}

/// The front matter is left out: ICU's iterator would count it.
void compareWordCounts(const QString &text)
{
    const QString body = u"\n"_s + text;
    qsizetype ourWords = 0;
    qsizetype icuWords = 0;
    const std::vector<double> times =
        bestTimes(20, {[&] { ourWords = PLMarkdown::wordCountOfMarkdown(body); },
                       [&] { icuWords = wordsByICU(body); }});
    std::printf("\n%-12s %10s %10s %8s\n", "word count", "words", "ms", "time");
    std::printf("%-12s %10lld %10.3f %7.2fx\n", "aquilane", qlonglong(ourWords), times[0], 1.0);
    std::printf("%-12s %10lld %10.3f %7.2fx%s\n", "ICU", qlonglong(icuWords), times[1], times[1] / times[0],
                ourWords == icuWords ? "" : "   NOT THE SAME");
}

QString filled(const QString &shape, qsizetype size)
{
    return shape.repeated(size / shape.size() + 1).first(size);
}

/// A stretch of the text as one line, a quarter of the longest measured, so that each length holds the same
/// marks.
QString flowing(const QString &text)
{
    QString line = u"Il y avait "_s + text.last(qMin(text.size(), megabyte / 4));
    return line.replace(u'\n', u' ');
}

struct Shape
{
    QString name;
    QString text;
};

QList<Shape> shapes(const QString &prose)
{
    QList<Shape> result;
    for (const QString &shape : {u"["_s,
                                 u"[["_s,
                                 u"!["_s,
                                 u"[a]("_s,
                                 u"[a](b"_s,
                                 u"*a "_s,
                                 u"**a "_s,
                                 u"***a "_s,
                                 u"__a "_s,
                                 u"_a "_s,
                                 u"~~a "_s,
                                 u"`"_s,
                                 u"*"_s,
                                 u"_"_s,
                                 u"#"_s,
                                 u"- - - x"_s,
                                 u">"_s,
                                 u"> > "_s,
                                 u"*a **b ***c "_s,
                                 u"_a __b "_s,
                                 u"[ ![ [[ "_s,
                                 u"*a _b ~~c [d "_s,
                                 u"`a *b "_s,
                                 u"[a](b *c "_s,
                                 u"**a** "_s,
                                 u"[a](b) "_s})
        result.append({shape, shape});
    result.append({u"line feeds"_s, u"\n"_s});
    result.append({u"opening fences"_s, u"```\n"_s});
    result.append({u"quote lines"_s, u">\n"_s});
    result.append({u"quotes, two deep"_s, u"> > a\n> b\n"_s});
    result.append({u"a, 300 marks"_s, u"a"_s + QString(300, QChar(0x0301))});
    result.append({u"prose, one line"_s, flowing(prose)});
    result.append({u"the same, no marks"_s, flowing(prose).remove(u'*').remove(u'_').remove(u'&')});
    return result;
}

void measureGrowth(const QString &prose)
{
    const auto render = [](const QString &text) {
        return [text] { keep(size_t(PLMarkdown::HTMLFromMarkdown(text).size())); };
    };
    const auto count = [](const QString &text) {
        return [text] { keep(size_t(PLMarkdown::wordCountOfMarkdown(text))); };
    };
    const double plain = bestTimes(60, {render(filled(prose, megabyte))}, emptyCaches).front();
    std::printf("\nprose of 1 MB renders in %.3f ms\n", plain);
    std::printf("%-18s %10s %10s %8s %10s %12s %8s\n", "shape", "0.5 MB, ms", "1 MB, ms", "growth",
                "to prose", "words, ms", "growth");
    for (const Shape &shape : shapes(prose)) {
        const QString half = filled(shape.text, megabyte / 2);
        const QString whole = filled(shape.text, megabyte);
        const std::vector<double> times =
            bestTimes(12, {render(half), render(whole), count(half), count(whole)}, emptyCaches);
        std::printf("%-18s %10.3f %10.3f %7.2fx %9.1fx %12.3f %7.2fx\n", qPrintable(shape.name), times[0],
                    times[1], times[1] / times[0], times[1] / plain, times[3], times[3] / times[2]);
    }
}

} // namespace

int main(int argumentCount, char **arguments)
{
    QStringList folders;
    for (int index = 1; index < argumentCount; ++index)
        folders.append(QString::fromLocal8Bit(arguments[index]));
    if (folders.isEmpty() && qEnvironmentVariableIsSet("AQUILANE_CORPUS"))
        folders.append(qEnvironmentVariable("AQUILANE_CORPUS"));
    const QString text = readText(folders);
    keepFreedMemory();
    compareRenderers(text);
    compareWordCounts(text);
    measureGrowth(text);
    return 0;
}
