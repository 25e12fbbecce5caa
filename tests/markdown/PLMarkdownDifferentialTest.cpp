// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLMarkdown.h"
#include "markdown/PLPlainMarkdown.h"
#include "markdown/PLRandomMarkdown.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The renderer beside the plain one: not one difference.
class PLMarkdownDifferentialTest final : public QObject
{
    Q_OBJECT

private:
    quint64 m_seed = 0;

private Q_SLOTS:
    void initTestCase();
    void randomLinesRenderAlike();
    void randomSpansRenderAlike();
    void randomPagesRenderAlike();
    void repeatedShapesRenderAlike_data();
    void repeatedShapesRenderAlike();
    void everyCharacterIsOfTheSameClass();
};

namespace {

/// The text as the source of a test row would have it.
QByteArray quoted(const QString &text)
{
    QByteArray result;
    for (const QChar unit : text) {
        if (unit >= u' ' && unit < QChar(0x7F))
            result += char(unit.unicode());
        else
            result += "\\u" + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
    }
    return result;
}

QByteArray difference(const QString &text, const QString &actual, const QString &expected)
{
    return "\n text: " + quoted(text) + "\n fast: " + quoted(actual) + "\nplain: " + quoted(expected);
}

#define COMPARE_RENDERED(text, actual, expected)                                                             \
    QVERIFY2((actual) == (expected), difference(text, actual, expected))

} // namespace

/// AQUILANE_SEED in the environment repeats a run.
void PLMarkdownDifferentialTest::initTestCase()
{
    bool isGiven = false;
    m_seed = qEnvironmentVariable("AQUILANE_SEED").toULongLong(&isGiven);
    if (!isGiven)
        m_seed = std::random_device()();
    qInfo("seed %llu", static_cast<unsigned long long>(m_seed));
}

void PLMarkdownDifferentialTest::randomLinesRenderAlike()
{
    PLRandomMarkdown random(m_seed);
    for (int round = 0; round < 120000; ++round) {
        const QStringList lines = {random.line(round % 40)};
        const QString actual = PLMarkdown::blocksHTMLFromLines(lines);
        COMPARE_RENDERED(lines.first(), actual, PLPlainMarkdown::blocksHTMLFromLines(lines));
    }
}

void PLMarkdownDifferentialTest::randomSpansRenderAlike()
{
    PLRandomMarkdown random(m_seed + 1);
    for (int round = 0; round < 60000; ++round) {
        const QString span = random.line(round % 60);
        COMPARE_RENDERED(span, PLMarkdown::formattedSpan(span), PLPlainMarkdown::formattedSpan(span));
        COMPARE_RENDERED(span, PLEscapeHTML(span), PLPlainMarkdown::escapeHTML(span));
    }
}

void PLMarkdownDifferentialTest::randomPagesRenderAlike()
{
    PLRandomMarkdown random(m_seed + 2);
    for (int round = 0; round < 20000; ++round) {
        const QString page = random.page(round % 30);
        COMPARE_RENDERED(page, PLMarkdown::HTMLFromMarkdown(page), PLPlainMarkdown::HTMLFromMarkdown(page));
    }
}

void PLMarkdownDifferentialTest::repeatedShapesRenderAlike_data()
{
    QTest::addColumn<QString>("shape");
    for (const char *shape :
         {"[",       "[[",    "![",   "[a](",    "[a](b",      "[a]",     "]",    "*a ", "**a ",    "***a ",
          "__a ",    "_a ",   "~~a ", "`",       "*",          "_",       "~",    "#",   "- - - x", ">",
          "> > ",    "```\n", ">\n",  "\n",      "*a **b _c ", "![a](b)", "[[a]", "a*",  "a** ",    "**a** ",
          "![](b[[", "** *",  "_ __", "*a_b*c_", "1. ",        "- ",      "\"&<", "# "})
        QTest::newRow(shape) << QString::fromLatin1(shape);
}

void PLMarkdownDifferentialTest::repeatedShapesRenderAlike()
{
    QFETCH(QString, shape);
    for (int count = 1; count < 70; ++count) {
        const QString page = shape.repeated(count);
        COMPARE_RENDERED(page, PLMarkdown::HTMLFromMarkdown(page), PLPlainMarkdown::HTMLFromMarkdown(page));
        COMPARE_RENDERED(page, PLMarkdown::inlineHTML(page), PLPlainMarkdown::inlineHTML(page));
    }
}

/// Each code point at the places where a rule asks for its class.
void PLMarkdownDifferentialTest::everyCharacterIsOfTheSameClass()
{
    for (char32_t codePoint = 0; codePoint < 0x110000; ++codePoint) {
        const bool isWide = codePoint >= 0x10000;
        if (isWide && codePoint % 0x400 == 0)
            codePoint += 0x300; // a quarter of the supplementary ones
        const QString character =
            isWide ? QString::fromUcs4(&codePoint, 1) : QString(QChar(char16_t(codePoint)));
        const QString line = character + u"*a* *b*"_s + character + u"**"_s + character + u"c**"_s;
        COMPARE_RENDERED(line, PLMarkdown::formattedSpan(line), PLPlainMarkdown::formattedSpan(line));
        const QStringList lines = {character + u". -"_s, u"-"_s + character + u"- -"_s, character + u"> a"_s,
                                   u"# a"_s + character + u"##"_s + character};
        const QString actual = PLMarkdown::blocksHTMLFromLines(lines);
        COMPARE_RENDERED(lines.join(u'|'), actual, PLPlainMarkdown::blocksHTMLFromLines(lines));
    }
}

QTEST_GUILESS_MAIN(PLMarkdownDifferentialTest)
#include "PLMarkdownDifferentialTest.moc"
