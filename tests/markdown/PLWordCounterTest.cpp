// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLWordCounter.h"

#include "markdown/PLPlainMarkdown.h"
#include "markdown/PLRandomMarkdown.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The word counter beside ICU's word iterator of the root locale: always the same answer.
class PLWordCounterTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void texts_data();
    void texts();
    void everyCharacterInEveryPlace();
    void randomTexts();
    void longTextOfOneLetterAndItsMarks();
};

namespace {

QByteArray units(const QString &text)
{
    QByteArray result;
    for (const QChar unit : text)
        result += QByteArray::number(unit.unicode(), 16) + ' ';
    return result;
}

#define COMPARE_COUNTS(text)                                                                                 \
    QVERIFY2(PLWordCount(text) == PLPlainMarkdown::wordCount(text),                                          \
             units(text) + QByteArray::number(PLWordCount(text)) + " words, by ICU " +                       \
                 QByteArray::number(PLPlainMarkdown::wordCount(text)))

} // namespace

/// ICU keeps the dictionaries that a process has met, and they change its answer on a few odd texts; both
/// sides are to start from the same.
void PLWordCounterTest::initTestCase()
{
    PLPlainMarkdown::wordCount(u"カタカナ 漢字 ภาษาไทย ພາສາລາວ ភាសាខ្មែរ မြန်မာဘာသာ 한국어"_s);
}

void PLWordCounterTest::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::newRow("empty") << u""_s << 0;
    QTest::newRow("letters and digits") << u"a1 1a _a a_ _1 a.b 1.2 a.1"_s << 9;
    QTest::newRow("connectors") << u"_ __ ___ _\u0301_ \u202F\u202F"_s << 4;
    QTest::newRow("mark after a connector") << u"a_\u0308 a_ _\u0308a"_s << 2; // the first is none to ICU
    QTest::newRow("at sign is a letter to ICU") << u"a@b @ c"_s << 3;
    QTest::newRow("colon and comma part words") << u"a:b a,b 1,2 1:2"_s << 7;
    QTest::newRow("marks stay with their letter") << u"e\u0301te\u0301 \u0301a"_s << 2;
    QTest::newRow("soft hyphen") << u"a\u00ADb"_s << 1;
    QTest::newRow("Hebrew with quotes") << u"צה\"ל ג' א'ב"_s << 3;
    QTest::newRow("Katakana") << u"カタカナ と ひらがな"_s << 6;
    QTest::newRow("emoji are no words") << u"a \U0001F468\u200D\U0001F469 b \U0001F1EB\U0001F1F7"_s << 2;
    QTest::newRow("keycap") << u"1\uFE0F\u20E3"_s << 1;
    QTest::newRow("broken pairs") << u"a"_s + QChar(0xD800) + u"b"_s + QChar(0xDC00) << 2;
    QTest::newRow("letters beyond 16 bits") << u"\U00010400\U00010401 a\U00010400"_s << 2;
    QTest::newRow("mixed with Thai") << u"un ภาษาไทย deux"_s << 4;
}

void PLWordCounterTest::texts()
{
    QFETCH(QString, text);
    QTEST(int(PLWordCount(text)), "count");
    COMPARE_COUNTS(text);
}

void PLWordCounterTest::everyCharacterInEveryPlace()
{
    const QString places[] = {u"%"_s, u"a%b 1%2 _%_ a%1"_s, u"a%'b '%a %%a"_s, u"\n%a %\n% a"_s};
    for (char32_t codePoint = 0; codePoint < 0x20000; ++codePoint) {
        if (codePoint >= 0x10000 && codePoint % 16 == 1)
            codePoint += 14; // an eighth of the supplementary ones
        const QString character =
            codePoint >= 0x10000 ? QString::fromUcs4(&codePoint, 1) : QString(QChar(char16_t(codePoint)));
        for (QString text : places) {
            text.replace(u'%', character);
            COMPARE_COUNTS(text);
        }
    }
}

void PLWordCounterTest::randomTexts()
{
    const quint64 seed = std::random_device()();
    qInfo("seed %llu", static_cast<unsigned long long>(seed));
    PLRandomMarkdown random(seed);
    for (int round = 0; round < 60000; ++round) {
        const QString text = random.words(round % 50);
        COMPARE_COUNTS(text);
    }
}

void PLWordCounterTest::longTextOfOneLetterAndItsMarks()
{
    const QString text = (u"a"_s + QString(300, QChar(0x0301))).repeated(1000);
    QCOMPARE(PLWordCount(text), 1);
}

QTEST_GUILESS_MAIN(PLWordCounterTest)
#include "PLWordCounterTest.moc"
