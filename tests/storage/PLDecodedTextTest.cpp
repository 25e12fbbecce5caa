// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "support/PLTestEnvironment.h"

#include <QTest>

#include <cerrno>

using namespace Qt::StringLiterals;

class PLDecodedTextTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textOfAnyEncodingIsRead_data();
    void textOfAnyEncodingIsRead();
    void everyByteSurvivesAsWindows1252();
    void everyCharacterOfUTF8Survives();
    void brokenUTF16IsAnError_data();
    void brokenUTF16IsAnError();
    void whatIsNotUTF8IsNotTakenForIt_data();
    void whatIsNotUTF8IsNotTakenForIt();

private:
    PLTestEnvironment m_environment;
};

void PLDecodedTextTest::textOfAnyEncodingIsRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QByteArray("") << u""_s;
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80") << u"été 😀"_s;
    QTest::newRow("UTF-8 with a mark") << QByteArray("\xEF\xBB\xBF"
                                                     "a")
                                       << u"\uFEFFa"_s;
    QTest::newRow("only a mark") << QByteArray("\xEF\xBB\xBF") << u"\uFEFF"_s;
    QTest::newRow("two marks") << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF") << u"\uFEFF\uFEFF"_s;
    QTest::newRow("a NUL") << QByteArray("a\0b", 3) << u"a\0b"_s;
    QTest::newRow("line ends stay") << QByteArray("a\r\nb\rc\n") << u"a\r\nb\rc\n"_s;
    QTest::newRow("UTF-16, little end first")
        << QByteArray("\xFF\xFE\xE9\x00\x3D\xD8\x00\xDE", 8) << u"\uFEFFé😀"_s;
    QTest::newRow("UTF-16, big end first")
        << QByteArray("\xFE\xFF\x00\xE9\xD8\x3D\xDE\x00", 8) << u"\uFEFFé😀"_s;
    QTest::newRow("UTF-16, only a mark") << QByteArray("\xFF\xFE") << u"\uFEFF"_s;
    QTest::newRow("Latin-1") << QByteArray("\xE9t\xE9") << u"été"_s;
    QTest::newRow("Windows-1252") << QByteArray("\x93\x9Cuvre\x94 \x85 \x80 l\x92\xEEle")
                                  << u"“œuvre” … € l’île"_s;
    QTest::newRow("Windows-1252 without a meaning")
        << QByteArray("\xE9\x81\x8D\x8F\x90\x9D") << u"é\u0081\u008D\u008F\u0090\u009D"_s;
    QTest::newRow("UTF-8 with one wrong byte") << QByteArray("\xC3\xA9\xFF") << u"Ã©ÿ"_s;
    QTest::newRow("UTF-8 cut in a character") << QByteArray("a\xC3") << u"aÃ"_s;
}

void PLDecodedTextTest::textOfAnyEncodingIsRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(PLDecodedText(bytes).value(), text);
}

void PLDecodedTextTest::everyByteSurvivesAsWindows1252()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(char(byte));
    const QString text = PLDecodedText(bytes).value();
    QCOMPARE(text.size(), 256);
    QCOMPARE(QSet<QChar>(text.begin(), text.end()).size(), 256);
    for (const QChar character : text)
        QVERIFY(character != QChar(QChar::ReplacementCharacter));
}

void PLDecodedTextTest::everyCharacterOfUTF8Survives()
{
    QString text;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (!QChar::isSurrogate(character))
            text += QString::fromUcs4(&character, 1);
    }
    QCOMPARE(PLDecodedText(text.toUtf8()).value(), text);
}

void PLDecodedTextTest::brokenUTF16IsAnError_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("half a unit") << QByteArray("\xFF\xFE\x61", 3);
    QTest::newRow("a high surrogate alone") << QByteArray("\xFF\xFE\x3D\xD8\x61\x00", 6);
    QTest::newRow("a low surrogate alone") << QByteArray("\xFE\xFF\xDE\x00\x00\x61", 6);
    QTest::newRow("a high surrogate last") << QByteArray("\xFE\xFF\xD8\x3D", 4);
}

void PLDecodedTextTest::brokenUTF16IsAnError()
{
    QFETCH(QByteArray, bytes);
    PLError error;
    QVERIFY(!PLDecodedText(bytes, &error));
    QCOMPARE(error.domain, PLFileErrorDomain);
    QCOMPARE(error.code, EILSEQ);
    QCOMPARE(error.message, u"Le texte de ce fichier ne peut pas être lu : son codage est inconnu."_s);
}

void PLDecodedTextTest::whatIsNotUTF8IsNotTakenForIt_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a byte that never occurs") << QByteArray("a\xFF");
    QTest::newRow("a byte that follows nothing") << QByteArray("a\x80z");
    QTest::newRow("a character cut at the end") << QByteArray("a\xE2\x82");
    QTest::newRow("a character cut by a letter") << QByteArray("\xE2\x82z");
    QTest::newRow("a longer form of a slash") << QByteArray("\xC0\xAF");
    QTest::newRow("a longer form of NUL") << QByteArray("\xE0\x80\x80");
    QTest::newRow("a surrogate") << QByteArray("\xED\xA0\x80");
    QTest::newRow("beyond Unicode") << QByteArray("\xF4\x90\x80\x80");
    QTest::newRow("five bytes") << QByteArray("\xF8\x88\x80\x80\x80");
    QTest::newRow("after much that is right") << QByteArray(10'000, 'a') + QByteArray("\xE9");
}

void PLDecodedTextTest::whatIsNotUTF8IsNotTakenForIt()
{
    QFETCH(QByteArray, bytes);
    PLError error;
    QVERIFY(!PLDecodedUTF8(bytes, &error));
    QCOMPARE(error.code, EILSEQ);
    QCOMPARE(PLDecodedText(bytes).value().size(), bytes.size()); // Windows-1252: a character for each byte
}

QTEST_GUILESS_MAIN(PLDecodedTextTest)
#include "PLDecodedTextTest.moc"
