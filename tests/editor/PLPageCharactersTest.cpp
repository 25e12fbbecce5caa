// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageCharacters.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PLPageCharactersTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainTextIsLeftAsItIs();
    void whatDocumentsKeepForThemselvesGetsAStandIn_data();
    void whatDocumentsKeepForThemselvesGetsAStandIn();
    void aStandInThatIsPastedLaterIsKeptApart();
    void aPageOfEveryNonCharacterAndPrivateOneStillComesBack();
};

void PLPageCharactersTest::plainTextIsLeftAsItIs()
{
    PLPageCharacters characters;
    const QString text = u"L\u2019\u00c9tude\u00a0: \u202f\u00ab\u2028\U0001f58b\ufeff"_s;

    QCOMPARE(characters.encoded(text), text);
    QCOMPARE(characters.decoded(text), text);
}

void PLPageCharactersTest::whatDocumentsKeepForThemselvesGetsAStandIn_data()
{
    QTest::addColumn<char16_t>("unit");

    QTest::newRow("carriage return") << u'\r';
    QTest::newRow("paragraph separator") << char16_t(0x2029);
    QTest::newRow("beginning of frame") << char16_t(0xFDD0);
    QTest::newRow("end of frame") << char16_t(0xFDD1);
}

void PLPageCharactersTest::whatDocumentsKeepForThemselvesGetsAStandIn()
{
    QFETCH(char16_t, unit);
    PLPageCharacters characters;
    const QString text = u"a"_s + QChar(unit) + u"b"_s + QChar(unit);

    const QString encoded = characters.encoded(text);

    QCOMPARE(encoded.size(), text.size());
    QVERIFY(!encoded.contains(QChar(unit)));
    QCOMPARE(characters.decoded(encoded), text);
}

void PLPageCharactersTest::aStandInThatIsPastedLaterIsKeptApart()
{
    PLPageCharacters characters;
    const QString page = characters.encoded(u"\r"_s);
    const QString pasted = characters.encoded(page); // the stand-in, as a character of its own

    QVERIFY(pasted != page);
    QCOMPARE(characters.decoded(page + pasted), u"\r"_s + page);
}

void PLPageCharactersTest::aPageOfEveryNonCharacterAndPrivateOneStillComesBack()
{
    QString text = u"\r\u2029"_s;
    for (char16_t unit = 0xE000; unit <= 0xF8FF; ++unit)
        text.append(QChar(unit));
    for (char16_t unit = 0xFDD0; unit <= 0xFDEF; ++unit)
        text.append(QChar(unit));
    PLPageCharacters characters;

    QCOMPARE(characters.decoded(characters.encoded(text)), text);
}

QTEST_APPLESS_MAIN(PLPageCharactersTest)
#include "PLPageCharactersTest.moc"
