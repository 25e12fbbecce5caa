// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFindText.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString described(const QList<PLTextRange> &ranges)
{
    QStringList parts;
    for (const PLTextRange &range : ranges)
        parts.append(u"%1+%2"_s.arg(range.position).arg(range.length));
    return parts.join(u' ');
}

char32_t pointAt(const QString &text, qsizetype at)
{
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode();
}

/// Code point by code point, from every place a character begins at.
QList<PLTextRange> naiveMatches(const QString &text, const QString &needle, const PLFindOptions &options)
{
    const bool isPlainApostrophe = options.ignoresCase && needle.contains(u'\'') && !needle.contains(u'’');
    const auto folds = [&](char32_t point) {
        if (isPlainApostrophe && point == U'’')
            return U'\'';
        return options.ignoresCase ? QChar::toCaseFolded(point) : point;
    };
    const auto isWordPoint = [](char32_t point) {
        return QChar::isLetterOrNumber(point) || QChar::isMark(point) || point == U'_';
    };
    const QList<uint> wanted = needle.toUcs4();
    QList<qsizetype> starts;
    QList<char32_t> points;
    for (qsizetype at = 0; at < text.size(); at += QChar::requiresSurrogates(points.last()) ? 2 : 1) {
        starts.append(at);
        points.append(pointAt(text, at));
    }
    starts.append(text.size());
    QList<PLTextRange> result;
    for (qsizetype first = 0; !wanted.isEmpty() && first + wanted.size() <= points.size();) {
        const qsizetype last = first + wanted.size();
        bool isMatch = last == points.size() || !QChar::isMark(points[last]);
        for (qsizetype index = 0; isMatch && index < wanted.size(); ++index)
            isMatch = folds(points[first + index]) == folds(char32_t(wanted[index]));
        if (isMatch && options.wholeWords) {
            const bool joinsBefore =
                first > 0 && isWordPoint(points[first - 1]) && isWordPoint(points[first]);
            const bool joinsBehind =
                last < points.size() && isWordPoint(points[last - 1]) && isWordPoint(points[last]);
            isMatch = !joinsBefore && !joinsBehind;
        }
        if (isMatch)
            result.append({int(starts[first]), int(starts[last] - starts[first])});
        first = isMatch ? last : first + 1;
    }
    return result;
}

QString randomText(QRandomGenerator &random, int longest)
{
    static const QStringList pieces = {
        u"a"_s, u"A"_s,      u"b"_s,          u"é"_s,          u"É"_s,          u"e\u0301"_s,
        u" "_s, u"\u00a0"_s, u"\U0001f58b"_s, u"\U0001f58a"_s, u"\n"_s,         u"'"_s,
        u"’"_s, u"_"_s,      u"ß"_s,          u"\U00010400"_s, u"\U00010428"_s, u"\u0130"_s};
    QString text;
    for (int count = random.bounded(longest); count >= 0; --count)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

} // namespace

class PLFindTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMatchIsFoundInOrder_data();
    void everyMatchIsFoundInOrder();
    void itFindsWhatANaiveSearchFinds();
    void aWholeNovelIsSearchedAtOnce();
};

void PLFindTextTest::everyMatchIsFoundInOrder_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("needle");
    QTest::addColumn<bool>("ignoresCase");
    QTest::addColumn<bool>("wholeWords");
    QTest::addColumn<QString>("matches");

    QTest::newRow("nothing to find") << u"abc"_s << u""_s << true << false << u""_s;
    QTest::newRow("empty text") << u""_s << u"a"_s << true << false << u""_s;
    QTest::newRow("longer than the text") << u"a"_s << u"ab"_s << true << false << u""_s;
    QTest::newRow("two") << u"un chat, un chien"_s << u"un"_s << true << false << u"0+2 9+2"_s;
    QTest::newRow("no overlap") << u"aaaaa"_s << u"aa"_s << true << false << u"0+2 2+2"_s;
    QTest::newRow("any case") << u"Été ÉTÉ été"_s << u"éTé"_s << true << false << u"0+3 4+3 8+3"_s;
    QTest::newRow("this case") << u"Été ÉTÉ été"_s << u"Été"_s << false << false << u"0+3"_s;
    QTest::newRow("accents count") << u"ete été"_s << u"été"_s << true << false << u"4+3"_s;
    QTest::newRow("folding keeps lengths") << u"STRASSE straße"_s << u"straße"_s << true << false << u"8+6"_s;
    QTest::newRow("no-break space") << u"a b\u00a0c"_s << u"\u00a0"_s << true << false << u"3+1"_s;
    QTest::newRow("space") << u"a b\u00a0c\u202fd"_s << u" "_s << true << false << u"1+1"_s;
    QTest::newRow("typed apostrophe") << u"L’été, l'hiver"_s << u"l'"_s << true << false << u"0+2 7+2"_s;
    QTest::newRow("this apostrophe") << u"l’été, l'hiver"_s << u"l'"_s << false << false << u"7+2"_s;
    QTest::newRow("curved apostrophe") << u"l’été, l'hiver"_s << u"l’"_s << true << false << u"0+2"_s;
    QTest::newRow("both apostrophes") << u"l’'l''"_s << u"’'"_s << true << false << u"1+2"_s;
    QTest::newRow("a pattern is a text")
        << u"a.c abc (x|y)* \\1"_s << u"(x|y)* \\1"_s << true << false << u"8+9"_s;
    QTest::newRow("any character") << u"abc a.c"_s << u"a.c"_s << true << false << u"4+3"_s;
    QTest::newRow("paragraph separator") << u"a\nb\u2029c"_s << u"\u2029"_s << true << false << u"3+1"_s;
    QTest::newRow("line feed") << u"a\nb\u2029c"_s << u"\n"_s << true << false << u"1+1"_s;
    QTest::newRow("across lines") << u"un\ndeux"_s << u"n\nd"_s << true << false << u"1+3"_s;
    QTest::newRow("half a pair") << u"\U0001f58b"_s << QString(u'\xdd8b') << true << false << u""_s;
    QTest::newRow("first half of a pair") << u"\U0001f58b"_s << QString(u'\xd83d') << true << false << u""_s;
    QTest::newRow("pair") << u"x\U0001f58by"_s << u"\U0001f58b"_s << true << false << u"1+2"_s;
    QTest::newRow("case of a pair") << u"\U00010400"_s << u"\U00010428"_s << true << false << u"0+2"_s;
    QTest::newRow("letter of an accent") << u"e\u0301 e"_s << u"e"_s << true << false << u"3+1"_s;
    QTest::newRow("part of a word") << u"beau l'eau eaux eau"_s << u"eau"_s << true << false
                                    << u"1+3 7+3 11+3 16+3"_s;
    QTest::newRow("whole word") << u"beau l'eau eaux eau"_s << u"eau"_s << true << true << u"7+3 16+3"_s;
    QTest::newRow("word at the ends") << u"eau"_s << u"eau"_s << true << true << u"0+3"_s;
    QTest::newRow("word in marks") << u"**eau** _eau_ eau2"_s << u"eau"_s << true << true << u"2+3"_s;
    QTest::newRow("no word at all") << u"a -- b--c"_s << u"--"_s << true << true << u"2+2 6+2"_s;
    QTest::newRow("words") << u"le chat, le chaton"_s << u"le chat"_s << true << true << u"0+7"_s;
}

void PLFindTextTest::everyMatchIsFoundInOrder()
{
    QFETCH(QString, text);
    QFETCH(QString, needle);
    QFETCH(bool, ignoresCase);
    QFETCH(bool, wholeWords);

    QTEST(described(PLFindMatches(text, needle, {ignoresCase, wholeWords})), "matches");
}

void PLFindTextTest::itFindsWhatANaiveSearchFinds()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString text = randomText(random, 40);
        const QString needle = randomText(random, 3);
        const PLFindOptions options{random.bounded(2) == 0, random.bounded(2) == 0};
        const QList<PLTextRange> matches = PLFindMatches(text, needle, options);
        QCOMPARE(described(matches), described(naiveMatches(text, needle, options)));
        found += matches.isEmpty() ? 0 : 1;
    }
    QVERIFY(found > 1000);
}

void PLFindTextTest::aWholeNovelIsSearchedAtOnce()
{
    QString text;
    while (text.size() < 3'200'000)
        text += u"La marquise sortit à cinq heures et l’été n’en finissait pas. "_s;

    QBENCHMARK_ONCE
    {
        QCOMPARE(PLFindMatches(text, u"ÉTÉ"_s).size(), PLFindMatches(text, u"marquise"_s).size());
    }
}

QTEST_APPLESS_MAIN(PLFindTextTest)
#include "PLFindTextTest.moc"
