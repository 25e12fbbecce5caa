// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellWords.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

class PLSpellWordsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordsAreFoundBetweenEverythingElse_data();
    void wordsAreFoundBetweenEverythingElse();
    void wordsOfAnyTextAreInOrderAndInside();
    void aVeryLongLineComesToAnEnd_data();
    void aVeryLongLineComesToAnEnd();
};

void PLSpellWordsTest::wordsAreFoundBetweenEverythingElse_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("words"); // separated by "|"

    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("sentence") << u"Le chat dort."_s << u"Le|chat|dort"_s;
    QTest::newRow("elision") << u"l'aperçu d’aujourd'hui"_s << u"l'aperçu|d’aujourd'hui"_s;
    QTest::newRow("quotes") << u"'mot' ‘mot’ «\u00a0mot\u00a0» “mot”"_s << u"mot|mot|mot|mot"_s;
    QTest::newRow("hyphens") << u"arc-en-ciel -t- mot-"_s << u"arc-en-ciel|mot"_s;
    QTest::newRow("dashes") << u"—Viens, dit-il—vite"_s << u"Viens|dit-il|vite"_s;
    QTest::newRow("marks") << u"# Titre **gras** _mot_ ~~fin~~ > cité"_s << u"Titre|gras|mot|fin|cité"_s;
    QTest::newRow("soft hyphen") << u"mai\u00adson"_s << u"mai\u00adson"_s;
    QTest::newRow("composed of two") << u"e\u0301te\u0301"_s << u"e\u0301te\u0301"_s;
    QTest::newRow("digits") << u"le 1er mai 1815, H2O"_s << u"le|mai"_s;
    QTest::newRow("capitals") << u"la SNCF et L’ONU"_s << u"la|et"_s;
    QTest::newRow("single letters") << u"à M y"_s << u""_s;
    QTest::newRow("other scripts") << u"le mot λόγος или слово"_s << u"le|mot"_s;
    QTest::newRow("address") << u"voir https://exemple.fr/un-chemin?x=y ici"_s << u"voir|ici"_s;
    QTest::newRow("address without scheme") << u"voir www.exemple.fr ici"_s << u"voir|ici"_s;
    QTest::newRow("address in brackets") << u"(voir <https://exemple.fr/chemin>) ici"_s << u"voir|ici"_s;
    QTest::newRow("mail") << u"écrire à marie.curie@exemple.fr demain"_s << u"écrire|demain"_s;
    QTest::newRow("file name") << u"le fichier notes.md ici"_s << u"le|fichier|ici"_s;
    QTest::newRow("missing space") << u"la fin.Le début"_s << u"la|fin|Le|début"_s;
    QTest::newRow("dots") << u"Mais… non...oui"_s << u"Mais|non|oui"_s;
    QTest::newRow("link") << u"[le site](https://a.fr/b c) dit"_s << u"le|site|dit"_s;
    QTest::newRow("link to a page") << u"[la fiche](../Fiches/truc-bidul) dit"_s << u"la|fiche|dit"_s;
    QTest::newRow("name of a page") << u"avec [[Gandalf Legris]] ici"_s << u"avec|ici"_s;
    QTest::newRow("open brackets") << u"avec [[Gandalf ici"_s << u"avec|Gandalf|ici"_s;
    QTest::newRow("code") << u"le mot `xyzt abcd` ici"_s << u"le|mot|ici"_s;
    QTest::newRow("lone back-tick") << u"le mot ` ici"_s << u"le|mot|ici"_s;
    QTest::newRow("too long") << u"mot "_s + QString(61, u'x') << u"mot"_s;
}

void PLSpellWordsTest::wordsAreFoundBetweenEverythingElse()
{
    QFETCH(QString, line);
    QStringList words;
    const QList<PLTextRange> ranges = PLSpellWords(line);
    for (const PLTextRange &range : ranges)
        words.append(line.sliced(range.position, range.length));

    QTEST(words.join(u'|'), "words");
}

void PLSpellWordsTest::wordsOfAnyTextAreInOrderAndInside()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    static constexpr QStringView units = u"ab'’-. `[]()@:/www\n\u0301\u00ad1A\xd83d\xdd8b";
    for (int round = 0; round < 20000; ++round) {
        QString line;
        for (int count = random.bounded(50); count > 0; --count)
            line += units[random.bounded(units.size())];
        int end = 0;
        const QList<PLTextRange> ranges = PLSpellWords(line);
        for (const PLTextRange &range : ranges) {
            QVERIFY2(range.position >= end && range.length > 1 && range.end() <= line.size(),
                     qPrintable(line));
            end = range.end();
        }
    }
}

void PLSpellWordsTest::aVeryLongLineComesToAnEnd_data()
{
    QTest::addColumn<QString>("piece");
    for (const QString &piece : {u"[["_s, u"]("_s, u"`"_s, u"[["_s + u"]( "_s, u"a://"_s, u"a@"_s, u"www."_s,
                                 u"a-"_s, u"mot "_s, u"`]("_s})
        QTest::newRow(qPrintable(piece)) << piece;
}

/// A time that grew as the square of the length would be many minutes, and Qt ends a test after five.
void PLSpellWordsTest::aVeryLongLineComesToAnEnd()
{
    QFETCH(QString, piece);
    const QString line = u"début "_s + piece.repeated(1'000'000) + u" fin"_s;
    const QList<PLTextRange> words = PLSpellWords(line);
    QVERIFY(!words.isEmpty());
    QCOMPARE(line.sliced(words.first().position, words.first().length), u"début"_s);
}

QTEST_APPLESS_MAIN(PLSpellWordsTest)
#include "PLSpellWordsTest.moc"
