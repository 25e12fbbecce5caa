// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFormatCommands.h"
#include "editor/PLFormatMarkedText.h"
#include "support/PLTestEnvironment.h"

#include <QTest>

#include <span>

using namespace Qt::StringLiterals;
using enum PLCommand;

namespace {

struct Row
{
    const char *name;
    PLCommand command;
    const char16_t *before;
    const char16_t *after; ///< null where the command has nothing to work on
    int tag = 0;
};

constexpr Row inlineRows[] = {
    {"bold at a caret", FormatBold, u"a¦b", u"a**⟦texte en gras⟧**b"},
    {"bold again", FormatBold, u"a**⟦texte en gras⟧**b", u"a⟦texte en gras⟧b"},
    {"italic at a caret", FormatItalic, u"a¦b", u"a_⟦texte en italique⟧_b"},
    {"strike-through at a caret", FormatStrikethrough, u"a¦b", u"a~~⟦texte barré⟧~~b"},
    {"bold in no text", FormatBold, u"¦", u"**⟦texte en gras⟧**"},
    {"bold at the end", FormatBold, u"fin¦", u"fin**⟦texte en gras⟧**"},
    {"an empty pair around a caret", FormatBold, u"a**¦**b", u"a¦b"},
    {"an empty pair that is selected", FormatBold, u"a⟦****⟧b", u"a¦b"},
    {"an empty pair is all the text", FormatItalic, u"_¦_", u"¦"},
    {"half a pair before a caret", FormatBold, u"*¦**", u"***⟦texte en gras⟧****"},
    {"half a pair after a caret", FormatBold, u"**¦*", u"****⟦texte en gras⟧***"},
    {"the spaces around a word", FormatItalic, u"⟦  mot \n⟧", u"  _⟦mot⟧_ \n"},
    {"spaces of every kind", FormatBold, u"⟦\u00a0\u202f\u2028\u2029\u0085\u000b\r\tmot\u3000⟧",
     u"\u00a0\u202f\u2028\u2029\u0085\u000b\r\t**⟦mot⟧**\u3000"},
    {"a zero-width joiner is no space", FormatBold, u"⟦\u200dmot\u200d⟧", u"**⟦\u200dmot\u200d⟧**"},
    {"nothing but spaces", FormatBold, u"a⟦ \t\n\u00a0⟧b", nullptr},
    {"nothing but a line feed", FormatItalic, u"a⟦\n⟧b", nullptr},
    {"spaces within markers", FormatStrikethrough, u"~~⟦ ⟧~~", u"⟦ ⟧"},
    {"markers in the selection", FormatBold, u"⟦**mot**⟧", u"⟦mot⟧"},
    {"markers around the selection", FormatBold, u"**⟦mot⟧**", u"⟦mot⟧"},
    {"markers on both sides, text around", FormatItalic, u"un _⟦mot⟧_ ici", u"un ⟦mot⟧ ici"},
    {"markers inside go before those around", FormatBold, u"**⟦**mot**⟧**", u"**⟦mot⟧**"},
    {"a marker that is no pair", FormatBold, u"⟦a*b⟧", u"**⟦a*b⟧**"},
    {"a marker at one end only", FormatBold, u"⟦**mot⟧", u"**⟦**mot⟧**"},
    {"a marker before only", FormatItalic, u"_⟦mot⟧", u"__⟦mot⟧_"},
    {"a marker after only", FormatItalic, u"⟦mot⟧_", u"_⟦mot⟧__"},
    {"three stars are no pair of markers", FormatBold, u"⟦***⟧", u"**⟦***⟧**"},
    {"one marker is no pair", FormatItalic, u"⟦_⟧", u"_⟦_⟧_"},
    {"another command's markers", FormatItalic, u"**⟦mot⟧**", u"**_⟦mot⟧_**"},
    {"markers beyond a space", FormatBold, u"⟦ **mot** ⟧", u" **⟦**mot**⟧** "},
    {"the whole text", FormatBold, u"⟦un mot⟧", u"**⟦un mot⟧**"},
    {"across paragraphs", FormatBold, u"a ⟦un\n\ndeux\n⟧b", u"a **⟦un\n\ndeux⟧**\nb"},
    {"an emoji", FormatBold, u"a⟦\U0001f58b⟧b", u"a**⟦\U0001f58b⟧**b"},
    {"after an emoji", FormatBold, u"\U0001f58b¦", u"\U0001f58b**⟦texte en gras⟧**"},
    {"a combining accent", FormatItalic, u"⟦ e\u0301te\u0301 ⟧", u" _⟦e\u0301te\u0301⟧_ "},
    {"a space that carries an accent", FormatBold, u"⟦  \u0301mot⟧", u" **⟦ \u0301mot⟧**"},
    {"a joined emoji", FormatBold, u"⟦ \U0001f469\u200d\U0001f680 ⟧", u" **⟦\U0001f469\u200d\U0001f680⟧** "},
    {"a lone carriage return", FormatBold, u"un⟦\rdeux\r⟧", u"un\r**⟦deux⟧**\r"},
    {"NUL is no space", FormatBold, u"⟦\u0001 a⟧", u"**⟦\u0001 a⟧**"},
};

constexpr Row lineRows[] = {
    {"bullets", FormatBulletList, u"⟦un\n\ndeux⟧", u"⟦- un\n\n- deux⟧"},
    {"bullets again", FormatBulletList, u"⟦- un\n\n- deux⟧", u"⟦un\n\ndeux⟧"},
    {"bullets, the last line feed selected", FormatBulletList, u"⟦un\ndeux\n⟧trois",
     u"⟦- un\n- deux⟧\ntrois"},
    {"bullets, two line feeds selected", FormatBulletList, u"⟦un\n\n⟧deux", u"⟦- un\n⟧\ndeux"},
    {"bullets, parts of lines selected", FormatBulletList, u"u⟦n\nde⟧ux\ntrois", u"⟦- un\n- deux⟧\ntrois"},
    {"bullets at a caret", FormatBulletList, u"un\nde¦ux\ntrois", u"un\n- deux¦\ntrois"},
    {"bullets at a caret at the end of a line", FormatBulletList, u"un¦\ndeux", u"- un¦\ndeux"},
    {"bullets at a caret at the start of a line", FormatBulletList, u"un\n¦deux", u"un\n- deux¦"},
    {"bullets on each kind of bullet", FormatBulletList, u"⟦* un\n + deux\n\t-  trois⟧",
     u"⟦un\ndeux\ntrois⟧"},
    {"bullets where one line has none", FormatBulletList, u"⟦* un\ndeux\n+ trois⟧",
     u"⟦- un\n- deux\n- trois⟧"},
    {"bullets on a numbered list", FormatBulletList, u"⟦1. un\n2) deux⟧", u"⟦- un\n- deux⟧"},
    {"bullets on a quote", FormatBulletList, u"> mot¦", u"- mot¦"},
    {"bullets on bold words", FormatBulletList, u"**mot**¦", u"- **mot**¦"},
    {"bullets on a marker without a space", FormatBulletList, u"-mot¦", u"- -mot¦"},
    {"bullets on a line of spaces", FormatBulletList, u"⟦  \nun⟧", u"⟦-   \n- un⟧"},
    {"bullets take one prefix away", FormatBulletList, u"- - un¦", u"- un¦"},
    {"bullets after a no-break space", FormatBulletList, u"-\u00a0un¦", u"un¦"},
    {"bullets in no text", FormatBulletList, u"¦", u"¦"},
    {"bullets on empty lines", FormatBulletList, u"un\n⟦\n\n⟧deux", u"un\n⟦\n⟧\ndeux"},
    {"bullets after the last line feed", FormatBulletList, u"un\n¦", u"un\n¦"},
    {"bullets on a bullet alone", FormatBulletList, u"- ¦", u"¦"},
    {"bullets on an emoji", FormatBulletList, u"\U0001f58b¦", u"- \U0001f58b¦"},
    {"numbers on bullets", FormatNumberedList, u"⟦- un\n- deux⟧", u"⟦1. un\n2. deux⟧"},
    {"numbers on numbers", FormatNumberedList, u"⟦1. un\n3) deux⟧", u"⟦un\ndeux⟧"},
    {"numbers where one line has none", FormatNumberedList, u"⟦7. un\ndeux\n9) trois⟧",
     u"⟦1. un\n2. deux\n3. trois⟧"},
    {"numbers skip empty lines", FormatNumberedList, u"⟦un\n\n\ndeux⟧", u"⟦1. un\n\n\n2. deux⟧"},
    {"numbers at a caret", FormatNumberedList, u"1. un\nd¦eux", u"1. un\n1. deux¦"},
    {"numbers on an indented line", FormatNumberedList, u"   12. un¦", u"un¦"},
    {"numbers on a number without a space", FormatNumberedList, u"1.un¦", u"1. 1.un¦"},
    {"a quote", FormatQuote, u"⟦un\ndeux⟧", u"⟦> un\n> deux⟧"},
    {"a quote again", FormatQuote, u"⟦> un\n>deux⟧", u"⟦un\ndeux⟧"},
    {"a quote in a quote", FormatQuote, u"> > un¦", u"> un¦"},
    {"a quote on an indented quote", FormatQuote, u" > un¦", u"> un¦"},
    {"a quote, one line without a space", FormatQuote, u"⟦>un\ndeux⟧", u"⟦> >un\n> deux⟧"},
    {"a quote on bullets", FormatQuote, u"⟦- un\n- deux⟧", u"⟦> un\n> deux⟧"},
    {"a quote on an empty line", FormatQuote, u"un\n¦\ndeux", u"un\n¦\ndeux"},
    {"a quote on a mark alone", FormatQuote, u">¦", u"¦"},
    {"a quote, a carriage return in its line", FormatQuote, u"un\rde¦ux\ntrois", u"> un\rdeux¦\ntrois"},
    {"a quote, U+2028 in its line", FormatQuote, u"un\u2028de¦ux", u"> un\u2028deux¦"},
    {"a quote on a no-break space", FormatQuote, u"⟦\u00a0un⟧", u"⟦> \u00a0un⟧"},
    {"what patterns make of a dollar", FormatQuote, u"- $1\\¦", u"> $1\\¦"},
    {"heading 2 on heading 1", FormatHeading, u"# Titre¦", u"## Titre¦", 2},
    {"heading 2 on heading 2", FormatHeading, u"¦## Titre", u"Titre¦", 2},
    {"heading 9", FormatHeading, u"Titre¦", u"###### Titre¦", 9},
    {"heading 0", FormatHeading, u"Titre¦", u"# Titre¦", 0},
    {"a negative heading", FormatHeading, u"Titre¦", u"# Titre¦", -3},
    {"heading 1 on a tag", FormatHeading, u"#mot¦", u"mot¦", 1},
    {"heading 9 on heading 6", FormatHeading, u"###### a¦", u"a¦", 9},
    {"heading 6 on seven signs", FormatHeading, u"####### a¦", u"###### # a¦", 6},
    {"heading 2 on signs alone", FormatHeading, u"##¦", u"¦", 2},
    {"heading 1 on signs alone", FormatHeading, u"##¦", u"# ¦", 1},
    {"heading 3 on several lines", FormatHeading, u"⟦un\n\n### deux\n# trois\n⟧",
     u"⟦### un\n\ndeux\n### trois⟧\n", 3},
    {"a heading on an empty line", FormatHeading, u"un\n¦", u"un\n¦", 1},
    {"a heading on an indented sign", FormatHeading, u" # a¦", u"#  # a¦", 1},
    {"a heading takes the spaces away", FormatHeading, u"#\t\u00a0 a¦", u"## a¦", 2},
    {"a heading with %@ in it", FormatHeading, u"%@ %lu¦", u"# %@ %lu¦", 1},
};

constexpr Row insertionRows[] = {
    {"a separator at the start", FormatSeparator, u"¦", u"* * *\n\n¦"},
    {"a separator before text", FormatSeparator, u"¦un", u"* * *\n\n¦un"},
    {"a separator after text", FormatSeparator, u"fin¦", u"fin\n\n* * *\n\n¦"},
    {"a separator after a line feed", FormatSeparator, u"fin\n¦", u"fin\n\n* * *\n\n¦"},
    {"a separator after a blank line", FormatSeparator, u"fin\n\n¦", u"fin\n\n\n* * *\n\n¦"},
    {"a separator in a line", FormatSeparator, u"un¦deux", u"un\n\n* * *\n\n¦deux"},
    {"a separator in place of the selection", FormatSeparator, u"un\n⟦deux\n⟧trois",
     u"un\n\n* * *\n\n¦trois"},
    {"a separator in place of the whole text", FormatSeparator, u"⟦un\ndeux⟧", u"* * *\n\n¦"},
    {"a separator after a carriage return", FormatSeparator, u"un\r¦", u"un\r\n\n* * *\n\n¦"},
    {"a link on a word", FormatLink, u"⟦ici⟧", u"[ici](⟦http://⟧)"},
    {"a link on a word in a text", FormatLink, u"voir ⟦ici⟧.", u"voir [ici](⟦http://⟧)."},
    {"a link at a caret", FormatLink, u"a¦b", u"a[⟦texte du lien⟧](http://)b"},
    {"a link in no text", FormatLink, u"¦", u"[⟦texte du lien⟧](http://)"},
    {"a link on spaces and lines", FormatLink, u"⟦ un\ndeux ⟧", u"[ un\ndeux ](⟦http://⟧)"},
    {"a link on an emoji", FormatLink, u"⟦\U0001f58b⟧", u"[\U0001f58b](⟦http://⟧)"},
    {"a link on a text with %@ in it", FormatLink, u"⟦%@⟧", u"[%@](⟦http://⟧)"},
};

void addRows(std::span<const Row> rows)
{
    QTest::addColumn<PLCommand>("command");
    QTest::addColumn<int>("tag");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    for (const Row &row : rows) {
        const QString after = row.after ? QString::fromUtf16(row.after) : QString();
        QTest::newRow(row.name) << row.command << row.tag << QString::fromUtf16(row.before) << after;
    }
}

} // namespace

class PLFormattingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void markersAreToggled_data() { addRows(inlineRows); }
    void markersAreToggled() { checkRow(); }
    void linesAreToggled_data() { addRows(lineRows); }
    void linesAreToggled() { checkRow(); }
    void textIsInserted_data() { addRows(insertionRows); }
    void textIsInserted() { checkRow(); }
    void placeholdersAreInTheLanguageOfTheInterface_data();
    void placeholdersAreInTheLanguageOfTheInterface();
    void anEditReplacesNoMoreThanItNeeds_data();
    void anEditReplacesNoMoreThanItNeeds();
    void aSelectionWithinACharacterIsTakenAsItIs();
    void othersAreNoFormatCommands();
    void rangesLieInTheText();
    void addingMarkersTwiceGivesTheTextBack();
    void aLineCommandLeavesTheOtherLinesAlone();
    void aVeryLongPageComesToAnEnd();

private:
    void checkRow();

    PLTestEnvironment m_environment;
};

void PLFormattingTest::checkRow()
{
    QFETCH(PLCommand, command);
    QFETCH(int, tag);
    QFETCH(QString, before);
    QFETCH(QString, after);
    const auto marked = PLMarkedText::fromString(before);

    const auto edit = PLEditForFormatCommand(marked.text, marked.selection, command, tag);

    QCOMPARE(edit.has_value(), !after.isNull());
    if (edit)
        QCOMPARE(marked.after(*edit).toString(), after);
}

void PLFormattingTest::placeholdersAreInTheLanguageOfTheInterface_data()
{
    constexpr Row rows[] = {
        {"bold", FormatBold, u"¦", u"**⟦bold text⟧**"},
        {"italic", FormatItalic, u"¦", u"_⟦italic text⟧_"},
        {"strike-through", FormatStrikethrough, u"¦", u"~~⟦struck-out text⟧~~"},
        {"link", FormatLink, u"¦", u"[⟦link text⟧](http://)"},
    };
    addRows(rows);
}

void PLFormattingTest::placeholdersAreInTheLanguageOfTheInterface()
{
    m_environment.setLanguage(u"en"_s);
    checkRow();
    m_environment.setLanguage(u"fr"_s);
}

void PLFormattingTest::anEditReplacesNoMoreThanItNeeds_data()
{
    constexpr Row rows[] = {
        {"the trimmed selection", FormatBold, u"un ⟦ mot ⟧ ici", u"un  ⟦mot⟧  ici"},
        {"a selection with its markers", FormatBold, u"un ⟦**mot**⟧ ici", u"un ⟦**mot**⟧ ici"},
        {"the markers around", FormatBold, u"un **⟦mot⟧** ici", u"un ⟦**mot**⟧ ici"},
        {"a caret", FormatBold, u"un¦ mot", u"un¦ mot"},
        {"a line with its line feed", FormatQuote, u"un\nde¦ux\ntrois", u"un\n⟦deux\n⟧trois"},
        {"the last line", FormatQuote, u"un\nde¦ux", u"un\n⟦deux⟧"},
        {"up to the line feed that is selected", FormatQuote, u"un\n⟦deux\n⟧trois", u"un\n⟦deux\n⟧trois"},
        {"the selection", FormatLink, u"un ⟦mot ⟧ici", u"un ⟦mot ⟧ici"},
    };
    addRows(rows);
}

void PLFormattingTest::anEditReplacesNoMoreThanItNeeds()
{
    QFETCH(PLCommand, command);
    QFETCH(QString, before);
    QFETCH(QString, after);
    const auto marked = PLMarkedText::fromString(before);

    const auto edit = PLEditForFormatCommand(marked.text, marked.selection, command);

    QVERIFY(edit);
    const PLMarkedText replaced{marked.text, edit->range};
    QCOMPARE(replaced.toString(), after);
}

void PLFormattingTest::aSelectionWithinACharacterIsTakenAsItIs()
{
    const auto edit = PLEditForFormatCommand(u"e\u0301"_s, {0, 1}, FormatBold);

    QVERIFY(edit);
    QCOMPARE(edit->string, u"**e**"_s);
}

void PLFormattingTest::othersAreNoFormatCommands()
{
    QVERIFY(PLIsFormatCommand(FormatBold));
    QVERIFY(PLIsFormatCommand(FormatHeading));
    QVERIFY(PLIsFormatCommand(FormatLink));
    QVERIFY(!PLIsFormatCommand(ToggleContinuousSpellChecking));
    QVERIFY(!PLIsFormatCommand(TogglePreview));
    QVERIFY(!PLEditForFormatCommand(u"mot"_s, {0, 3}, Undo));
}

void PLFormattingTest::rangesLieInTheText()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 20000; ++round) {
        const auto marked = PLMarkedText::random(random);
        const auto command = PLCommand(int(FormatBold) + random.bounded(9));
        const auto edit =
            PLEditForFormatCommand(marked.text, marked.selection, command, random.bounded(-1, 9));
        if (!edit)
            continue;
        QVERIFY2(marked.contains(edit->range), qPrintable(marked.toString()));
        QVERIFY2(marked.after(*edit).contains(edit->selecting), qPrintable(marked.toString()));
    }
}

void PLFormattingTest::addingMarkersTwiceGivesTheTextBack()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    int added = 0;
    for (int round = 0; round < 20000; ++round) {
        const auto marked = PLMarkedText::random(random);
        const auto command = PLCommand(int(FormatBold) + random.bounded(3));
        const auto first = PLEditForFormatCommand(marked.text, marked.selection, command);
        if (!first || first->string.size() <= first->range.length)
            continue; // nothing to work on, or markers were taken away
        const auto once = marked.after(*first);
        const auto second = PLEditForFormatCommand(once.text, once.selection, command);
        QVERIFY2(second, qPrintable(marked.toString()));
        const QString left = once.after(*second).text;
        if (marked.selection.length > 0)
            QCOMPARE(left, marked.text);
        else
            QCOMPARE(left, QString(marked.text)
                               .insert(marked.selection.position,
                                       once.text.sliced(first->selecting.position, first->selecting.length)));
        ++added;
    }
    QVERIFY(added > 5000);
}

void PLFormattingTest::aLineCommandLeavesTheOtherLinesAlone()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 10000; ++round) {
        const auto marked = PLMarkedText::random(random);
        const auto command = PLCommand(int(FormatHeading) + random.bounded(4));
        const auto edit = PLEditForFormatCommand(marked.text, marked.selection, command, 2);
        QVERIFY(edit);
        const qsizetype start = edit->range.position;
        const qsizetype end = edit->range.end();
        QVERIFY(start <= marked.selection.position && end >= marked.selection.end());
        QVERIFY(start == 0 || marked.text[start - 1] == u'\n');
        QVERIFY(end == marked.text.size() || marked.text[end - 1] == u'\n');
        QCOMPARE(edit->string.count(u'\n'), marked.text.sliced(start, end - start).count(u'\n'));
    }
}

void PLFormattingTest::aVeryLongPageComesToAnEnd()
{
    // A time that grew as the square of the length would be many minutes, and Qt ends a test after five.
    const QString text = u"Une ligne de la page, assez longue pour en être une.\n"_s.repeated(200'000);
    for (int command = int(FormatBold); command <= int(FormatLink); ++command)
        QVERIFY(PLEditForFormatCommand(text, {0, text.size()}, PLCommand(command), 1));
}

QTEST_APPLESS_MAIN(PLFormattingTest)
#include "PLFormattingTest.moc"
