// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLText.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PLTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spacesAreTrimmed_data();
    void spacesAreTrimmed();
    void newlinesAreKnown_data();
    void newlinesAreKnown();
    void pairsAreKnown();
    void textIsSplitAtNewlines_data();
    void textIsSplitAtNewlines();
    void placeholdersAreReplacedInOrder_data();
    void placeholdersAreReplacedInOrder();
    void aValueIsNotLookedInForPlaceholders();
    void titlesAreOrderedAsInAFileManager_data();
    void titlesAreOrderedAsInAFileManager();
    void caseAndAccentsAreFolded_data();
    void caseAndAccentsAreFolded();
};

void PLTextTest::spacesAreTrimmed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("withNewlines");
    QTest::addColumn<QString>("bare");
    QTest::newRow("nothing") << u""_s << u""_s << u""_s;
    QTest::newRow("only spaces") << u" \t "_s << u""_s << u""_s;
    QTest::newRow("spaces and tabs") << u"\t a b \t"_s << u"a b"_s << u"a b"_s;
    QTest::newRow("no-break and thin spaces") << u"\u00A0\u202F\u2009\u3000a\u00A0"_s << u"a"_s << u"a"_s;
    QTest::newRow("line ends") << u"\na\r\n"_s << u"\na\r\n"_s << u"a"_s;
    QTest::newRow("every line end") << u"\n\v\f\r\u0085\u2028\u2029a"_s << u"\n\v\f\r\u0085\u2028\u2029a"_s
                                    << u"a"_s;
    QTest::newRow("line ends behind spaces") << u" \n a \n "_s << u"\n a \n"_s << u"a"_s;
    QTest::newRow("what is no space stays") << u"\u200Ba\uFEFF"_s << u"\u200Ba\uFEFF"_s << u"\u200Ba\uFEFF"_s;
}

void PLTextTest::spacesAreTrimmed()
{
    QFETCH(QString, text);
    QTEST(PLTrimmedSpaces(text).toString(), "withNewlines");
    QTEST(PLTrimmedSpacesAndNewlines(text).toString(), "bare");
}

void PLTextTest::newlinesAreKnown_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("isNewline");
    for (const int code : {0x0A, 0x0B, 0x0C, 0x0D, 0x85, 0x2028, 0x2029})
        QTest::addRow("U+%04X is one", code) << code << true;
    for (const int code : {0x00, 0x09, 0x0E, 0x20, 0x84, 0x86, 0xA0, 0x2027, 0x202A})
        QTest::addRow("U+%04X is none", code) << code << false;
}

void PLTextTest::newlinesAreKnown()
{
    QFETCH(int, code);
    QTEST(PLIsNewline(QChar(code)), "isNewline");
}

void PLTextTest::pairsAreKnown()
{
    const QString text = u"a\U0001f600b"_s + QChar(0xdc00) + QChar(0xd800);
    QList<qsizetype> split;
    for (qsizetype position = -1; position <= text.size() + 1; ++position) {
        if (PLSplitsPair(text, position))
            split.append(position);
    }
    QCOMPARE(split, QList<qsizetype>{2});
}

void PLTextTest::textIsSplitAtNewlines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("nothing") << u""_s << QStringList{u""_s};
    QTest::newRow("one line") << u"a"_s << QStringList{u"a"_s};
    QTest::newRow("two lines") << u"a\nb"_s << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("a line end at the end") << u"a\n"_s << QStringList{u"a"_s, u""_s};
    QTest::newRow("carriage return and line feed") << u"a\r\nb"_s << QStringList{u"a"_s, u""_s, u"b"_s};
    QTest::newRow("separators") << u"a\u2028b\u2029c\u0085d"_s << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
}

void PLTextTest::textIsSplitAtNewlines()
{
    QFETCH(QString, text);
    QTEST(PLSplitAtNewlines(text), "pieces");
}

void PLTextTest::placeholdersAreReplacedInOrder_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("result");
    QTest::newRow("texts and numbers") << u"« %@ » : %ld sur %lu"_s << u"« A » : B sur C"_s;
    QTest::newRow("side by side") << u"%@%ld%@"_s << u"ABC"_s;
    QTest::newRow("fewer placeholders than values") << u"%@"_s << u"A"_s;
    QTest::newRow("more placeholders than values") << u"%@ %@ %@ %@"_s << u"A B C %@"_s;
    QTest::newRow("none") << u"100 % et plus"_s << u"100 % et plus"_s;
    QTest::newRow("a percent sign before one") << u"%%@"_s << u"%A"_s;
    QTest::newRow("a percent sign at the end") << u"%@ %"_s << u"A %"_s;
    QTest::newRow("half a placeholder") << u"%l %@"_s << u"%l A"_s;
    QTest::newRow("nothing") << u""_s << u""_s;
}

void PLTextTest::placeholdersAreReplacedInOrder()
{
    QFETCH(QString, format);
    QTEST(PLFormat(format, {u"A"_s, u"B"_s, u"C"_s}), "result");
}

void PLTextTest::aValueIsNotLookedInForPlaceholders()
{
    QCOMPARE(PLFormat(u"%@ %@"_s, {u"%@ 100 %ld"_s, u"b"_s}), u"%@ 100 %ld b"_s);
    QCOMPARE(PLFormat(u"# %@\n"_s, {u"%1"_s}), u"# %1\n"_s);
}

void PLTextTest::titlesAreOrderedAsInAFileManager_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("order");
    for (const char *name : {"fr_FR", "en_US"}) {
        const QString locale = QString::fromLatin1(name);
        QTest::addRow("%s, digits by value", name) << locale << u"Acte 9"_s << u"acte 10"_s << -1;
        QTest::addRow("%s, case is ignored", name) << locale << u"marie"_s << u"MARIE"_s << 0;
        QTest::addRow("%s, accents go with their letter", name) << locale << u"Élise"_s << u"Fanny"_s << -1;
        QTest::addRow("%s, accents make a difference", name) << locale << u"cote"_s << u"côte"_s << -1;
        QTest::addRow("%s, ligatures", name) << locale << u"Œuvre"_s << u"Paul"_s << -1;
        QTest::addRow("%s, the same", name) << locale << u"Zoé"_s << u"Zoé"_s << 0;
        QTest::addRow("%s, nothing comes first", name) << locale << u""_s << u"a"_s << -1;
    }
}

void PLTextTest::titlesAreOrderedAsInAFileManager()
{
    QFETCH(QString, locale);
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(int, order);
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    const PLTitleComparer comparer(locale);
    QCOMPARE(sign(comparer.compare(left, right)), order);
    QCOMPARE(sign(comparer.compare(right, left)), -order);
    QCOMPARE(sign(comparer.sortKey(left).compare(comparer.sortKey(right))), order);
}

void PLTextTest::caseAndAccentsAreFolded_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("folded");
    QTest::newRow("French") << u"Éléonore à l'Île, ÇA"_s << u"eleonore a l'ile, ca"_s;
    QTest::newRow("decomposed accents") << u"e\u0301"_s << u"e"_s;
    QTest::newRow("ligatures stay") << u"Œuvre"_s << u"œuvre"_s;
    QTest::newRow("other scripts stay") << u"小説 🐉"_s << u"小説 🐉"_s;
    QTest::newRow("nothing") << u""_s << u""_s;
}

void PLTextTest::caseAndAccentsAreFolded()
{
    QFETCH(QString, text);
    QTEST(PLFoldedCaseAndDiacritics(text), "folded");
}

QTEST_GUILESS_MAIN(PLTextTest)
#include "PLTextTest.moc"
