// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLPattern.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PLPatternTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWrongPatternIsNone_data();
    void aWrongPatternIsNone();
    void theFirstMatchIsFound_data();
    void theFirstMatchIsFound();
    void matchesAreReplaced_data();
    void matchesAreReplaced();
    void aResultMuchLongerThanTheTextFits();
    void aPatternCanBeUsedAgain();
};

void PLPatternTest::aWrongPatternIsNone_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::newRow("an open group") << u"(a"_s;
    QTest::newRow("an open class") << u"[a"_s;
    QTest::newRow("nothing to repeat") << u"*a"_s;
    QTest::newRow("nothing at all") << u""_s;
}

void PLPatternTest::aWrongPatternIsNone()
{
    QFETCH(QString, pattern);
    QVERIFY(!PLPattern::compiled(pattern));
}

void PLPatternTest::theFirstMatchIsFound_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("groups");
    QTest::newRow("the whole match, then the groups")
        << u"(\\d+)-(\\w)"_s << u"x 12-a 3-b"_s << QStringList{u"12-a"_s, u"12"_s, u"a"_s};
    QTest::newRow("a group that takes no part")
        << u"a(b)?(c)"_s << u"ac"_s << QStringList{u"ac"_s, u""_s, u"c"_s};
    QTest::newRow("an empty group") << u"a(b*)"_s << u"a"_s << QStringList{u"a"_s, u""_s};
    QTest::newRow("an empty text") << u"^$"_s << u""_s << QStringList{u""_s};
    QTest::newRow("no match") << u"b"_s << u"aaa"_s << QStringList{};
    QTest::newRow("look-behind") << u"(?<!\\\\)\\*"_s << u"\\**"_s << QStringList{u"*"_s};
    QTest::newRow("beyond the first plane") << u"😀(.)"_s << u"x😀🎉"_s << QStringList{u"😀🎉"_s, u"🎉"_s};
    QTest::newRow("digits of any script") << u"^\\d+$"_s << u"١٢"_s << QStringList{u"١٢"_s};
    QTest::newRow("case counts") << u"a"_s << u"A"_s << QStringList{};
    QTest::newRow("a point is not a line end") << u"a.b"_s << u"a\nb"_s << QStringList{};
    QTest::newRow("a caret is the start of the text only") << u"^b"_s << u"a\nb"_s << QStringList{};
}

void PLPatternTest::theFirstMatchIsFound()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QFETCH(QStringList, groups);
    const auto compiled = PLPattern::compiled(pattern);
    QVERIFY(compiled);
    const std::optional<QStringList> match = compiled->firstMatch(text);
    QCOMPARE(match.has_value(), !groups.isEmpty());
    QCOMPARE(match.value_or(QStringList()), groups);
}

void PLPatternTest::matchesAreReplaced_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<QString>("result");
    QTest::newRow("every match") << u"a"_s << u"banana"_s << u"o"_s << u"bonono"_s;
    QTest::newRow("with groups") << u"\\*(\\w+)\\*"_s << u"*un* et *deux*"_s << u"<i>$1</i>"_s
                                 << u"<i>un</i> et <i>deux</i>"_s;
    QTest::newRow("no match") << u"x"_s << u"banana"_s << u"o"_s << u"banana"_s;
    QTest::newRow("by nothing") << u"a"_s << u"banana"_s << u""_s << u"bnn"_s;
    QTest::newRow("an empty text") << u"a"_s << u""_s << u"o"_s << u""_s;
    QTest::newRow("empty matches") << u"x*"_s << u"ab"_s << u"-"_s << u"-a-b-"_s;
    QTest::newRow("beyond the first plane") << u"(😀)"_s << u"a😀b"_s << u"[$1]"_s << u"a[😀]b"_s;
}

void PLPatternTest::matchesAreReplaced()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QFETCH(QString, replacement);
    QTEST(PLPattern::compiled(pattern)->replaced(text, replacement), "result");
}

void PLPatternTest::aResultMuchLongerThanTheTextFits()
{
    const QString replacement(50, u'y');
    for (const int length : {1, 15, 16, 17, 1000}) {
        const QString result = PLPattern::compiled(u"x"_s)->replaced(QString(length, u'x'), replacement);
        QCOMPARE(result, QString(50 * length, u'y'));
    }
}

void PLPatternTest::aPatternCanBeUsedAgain()
{
    const auto pattern = PLPattern::compiled(u"b(.)"_s);
    for (int count = 0; count < 3; ++count) {
        QCOMPARE(pattern->firstMatch(u"abc"_s).value(), (QStringList{u"bc"_s, u"c"_s}));
        QCOMPARE(pattern->replaced(u"abcbd"_s, u"$1"_s), u"acd"_s);
        QVERIFY(!pattern->firstMatch(u"a"_s));
    }
}

QTEST_GUILESS_MAIN(PLPatternTest)
#include "PLPatternTest.moc"
