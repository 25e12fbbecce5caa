// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLRegex.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PLRegexTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void patternIsCompiledOnce();
    void patternThatDoesNotCompile();
    void matchGivesOneTextPerGroup();
    void groupThatTookNoPartIsEmpty();
    void nothingWithoutAMatch();
    void everyMatchIsReplaced_data();
    void everyMatchIsReplaced();
    void resultMuchLongerThanTheText();
};

void PLRegexTest::patternIsCompiledOnce()
{
    const PLPattern *first = PLRegex(u"a+"_s);
    QVERIFY(first);
    QVERIFY(PLRegex(u"b+"_s));
    QCOMPARE(PLRegex(u"a+"_s), first);
}

void PLRegexTest::patternThatDoesNotCompile()
{
    QVERIFY(!PLRegex(u"(a"_s));
    QVERIFY(!PLMatch(u"a"_s, u"(a"_s));
    QVERIFY(PLReplace(u"a"_s, u"(a"_s, u"b"_s).isNull());
}

void PLRegexTest::matchGivesOneTextPerGroup()
{
    QCOMPARE(*PLMatch(u"x ab ab"_s, u"(a)(b)"_s), QStringList({u"ab"_s, u"a"_s, u"b"_s}));
}

void PLRegexTest::groupThatTookNoPartIsEmpty()
{
    const std::optional<QStringList> groups = PLMatch(u"b"_s, u"(a)|(b)"_s);
    QCOMPARE(*groups, QStringList({u"b"_s, u""_s, u"b"_s}));
    QVERIFY(!groups->at(1).isNull());
}

void PLRegexTest::nothingWithoutAMatch()
{
    QVERIFY(!PLMatch(u"A"_s, u"a"_s));
    QVERIFY(!PLMatch(QString(), u"a"_s));
}

void PLRegexTest::everyMatchIsReplaced_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<QString>("result");
    QTest::newRow("groups") << u"ab-cd"_s << u"(\\w)(\\w)"_s << u"<$2$1>"_s << u"<ba>-<dc>"_s;
    QTest::newRow("look-behind") << u"aXbX"_s << u"(?<=b)X"_s << u"!"_s << u"aXb!"_s;
    QTest::newRow("dollar in the text") << u"$1"_s << u"(.+)"_s << u"[$1]"_s << u"[$1]"_s;
    QTest::newRow("no match") << u"abc"_s << u"x"_s << u"y"_s << u"abc"_s;
    QTest::newRow("point stops at line ends") << u"a\u2028b"_s << u".+"_s << u"x"_s << u"x\u2028x"_s;
    QTest::newRow("empty text") << u""_s << u"x"_s << u"y"_s << u""_s;
}

void PLRegexTest::everyMatchIsReplaced()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(QString, replacement);
    QTEST(PLReplace(text, pattern, replacement), "result");
}

void PLRegexTest::resultMuchLongerThanTheText()
{
    QCOMPARE(PLReplace(QString(1000, u'a'), u"a"_s, u"0123456789"_s), u"0123456789"_s.repeated(1000));
}

QTEST_GUILESS_MAIN(PLRegexTest)
#include "PLRegexTest.moc"
