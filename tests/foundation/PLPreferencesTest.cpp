// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLPreferences.h"

#include "foundation/PLError.h"
#include "support/PLTestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

class PLPreferencesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void preferencesAreKeptInTheFile();
    void anotherFileHasOtherPreferences();
    void aDamagedFileIsSetAside_data();
    void aDamagedFileIsSetAside();
    void oddValuesAreNoDamage();
    void aDamagedFileThatMustStayIsNotRead();
    void aPipeInItsPlaceDoesNotStopTheStart();
    void failingFillsTheErrorIfThereIsOne();
};

void PLPreferencesTest::preferencesAreKeptInTheFile()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"preferences.ini"_s);
    PLPreferences::useFile(file);
    QCOMPARE(PLPreferences::store().fileName(), file);
    PLPreferences::store().setValue(u"Key"_s, u"Été"_s);
    PLPreferences::useFile(file); // as by the next start of the program
    QCOMPARE(PLPreferences::store().value(u"Key"_s).toString(), u"Été"_s);
}

void PLPreferencesTest::anotherFileHasOtherPreferences()
{
    const QTemporaryDir folder;
    PLPreferences::useFile(folder.filePath(u"1.ini"_s));
    PLPreferences::store().setValue(u"Key"_s, 1);
    PLPreferences::useFile(folder.filePath(u"2.ini"_s));
    QVERIFY(!PLPreferences::store().contains(u"Key"_s));
    PLPreferences::store().setValue(u"Key"_s, 2);
    PLPreferences::useFile(folder.filePath(u"1.ini"_s));
    QCOMPARE(PLPreferences::store().value(u"Key"_s).toInt(), 1);
}

void PLPreferencesTest::aDamagedFileIsSetAside_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("a list of 2^31 values") << QByteArray("@Variant(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)");
    QTest::newRow("2^31 texts") << QByteArray("@Variant(\\0\\0\\0\\v\\x7f\\xff\\xff\\xff)");
    QTest::newRow("with an equals sign in it") << QByteArray("@Variant(\\0\\0\\0\\x9s=@V)");
    QTest::newRow("after a comment with a quotation mark")
        << QByteArray("1\n; 5\" x 8\"\"\nLast=@Variant(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)");
    QTest::newRow("of a key with a comma") << QByteArray("1\na,b=@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)");
    QTest::newRow("in a quoted list") << QByteArray("/a, \"@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)\"");
    QTest::newRow("list in list, and so on")
        << "@Variant(" + QByteArray("\\0\\0\\0\\x9\\0\\0\\0\\x1").repeated(100000) + ')';
    QTest::newRow("a length that the bracket ends") << QByteArray("@Variant(\\0\\0\\0\\x9xff)");
    QTest::newRow("cut by the end of a line")
        << QByteArray("@Variant\\\n(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)");
    QTest::newRow("with escapes that mean nothing")
        << QByteArray("@Var\\q\\x69\\x\\\r\nant(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)");
    QTest::newRow("with half a character at its end") << QByteArray("@Variant(\\0\\0\\0\\x9xff)\xf3");
    QTest::newRow("with spaces behind a quotation")
        << QByteArray("@Variant\"\" (\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)");
    QTest::newRow("behind a space and a byte order mark")
        << QByteArray(" \xef\xbb\xbf@Variant(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)");
    QTest::newRow("a key of a byte and a half")
        << QByteArray("@Variant(\\0\\0\\0\\b\\0\\0\\0\\x1\\0\\0\\0\\t\\0\\0\\0\\t\\x7f\\xff\\xff\\xff_"
                      "\\0\\0\\0\\x1\\x1)");
    QTest::newRow("as a date") << QByteArray("@DateTime(\\0\\0\\0\\x9\\0\\x7f\\xff\\xff\\xff)");
    QTest::newRow("a text that is cut")
        << QByteArray("@Variant(\\0\\0\\0\\x9\\0\\0\\0\\x1\\0\\0\\0\\n\\0\\0\\0\\x4\\0/)");
}

/// Qt would take all the memory or all the stack, and the program would never start again.
void PLPreferencesTest::aDamagedFileIsSetAside()
{
    QFETCH(const QByteArray, value);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"preferences.ini"_s);
    const QByteArray bytes = "[General]\nOther=1\nKey=" + value + '\n';
    QVERIFY(PLMakeFile(path, bytes));
    QVERIFY(PLMakeFile(path + u".damaged"_s, "of the last time"));
    PLPreferences::useFile(path);
    QVERIFY(PLPreferences::store().allKeys().isEmpty());
    QCOMPARE(PLBytesOf(path + u".damaged"_s), bytes);
    PLPreferences::store().setValue(u"Key"_s, 1);
    PLPreferences::useFile(path);
    QCOMPARE(PLPreferences::store().value(u"Key"_s).toInt(), 1);
}

void PLPreferencesTest::oddValuesAreNoDamage()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"preferences.ini"_s);
    const QVariantMap map{{u"a, b"_s, u"é\n\\x"_s}, {u"c"_s, true}, {u"d"_s, QVariantList{1, 2.5}}};
    const QHash<QString, QVariant> values{
        {u"one"_s, QVariantList{u"/a/é \"b\""_s}},
        {u"nothing"_s, QVariantList{QVariant()}},
        {u"numbers"_s, QVariantList{QVariantList{7U, -7LL, 7ULL}, u"x"_s}},
        {u"map"_s, map},
        {u"texts"_s, QVariantList{QStringList{u"a"_s, u"b"_s}, QByteArray("\0@Variant(", 10)}},
        {u"text"_s, u"@Variant(x)"_s},
        {u"list"_s, QStringList{u"/a, @Variant(x)"_s, u"b=@Variant(y)"_s}},
        {u"bytes"_s, QByteArray("\x01\xd9\xd0\xcb\0", 5)},
    };
    PLPreferences::useFile(path);
    for (auto value = values.begin(); value != values.end(); ++value)
        PLPreferences::store().setValue(value.key(), value.value());
    PLPreferences::useFile(folder.filePath(u"other.ini"_s));
    QVERIFY(QFile::rename(path, path + u'2')); // or Qt would not read it again
    PLPreferences::useFile(path + u'2');
    for (auto value = values.begin(); value != values.end(); ++value)
        QCOMPARE(PLPreferences::store().value(value.key()), value.value());
}

void PLPreferencesTest::aDamagedFileThatMustStayIsNotRead()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"preferences.ini"_s);
    const QByteArray bytes = "[General]\nOther=1\nKey=@Variant(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)\n";
    QVERIFY(PLMakeFile(path, bytes));
    QVERIFY(QDir(folder.path()).mkpath(u"preferences.ini.damaged/full"_s)); // where it should go
    PLPreferences::useFile(path);
    QVERIFY(PLPreferences::store().allKeys().isEmpty());
    PLPreferences::store().setValue(u"Key"_s, 1);
    PLPreferences::store().sync();
    QCOMPARE(PLPreferences::store().value(u"Key"_s).toInt(), 1);
    QCOMPARE(PLBytesOf(path), bytes);
}

void PLPreferencesTest::aPipeInItsPlaceDoesNotStopTheStart()
{
#ifdef Q_OS_UNIX
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"preferences.ini"_s);
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    PLPreferences::useFile(path); // would wait for somebody to write into it
    PLPreferences::store().setValue(u"Key"_s, 1);
    PLPreferences::store().sync();
    QCOMPARE(PLBytesOf(path), "[General]\nKey=1\n");
#else
    QSKIP("no file is a pipe here");
#endif
}

void PLPreferencesTest::failingFillsTheErrorIfThereIsOne()
{
    QVERIFY(!PLFail(nullptr, {PLFileErrorDomain, 5, u"message"_s}));
    PLError error;
    QVERIFY(!PLFail(&error, {PLFileErrorDomain, 5, u"message"_s}));
    QCOMPARE(error.domain, PLFileErrorDomain);
    QCOMPARE(error.code, 5);
    QCOMPARE(error.message, u"message"_s);
    QVERIFY(PLApplicationErrorDomain != PLFileErrorDomain);
}

QTEST_GUILESS_MAIN(PLPreferencesTest)
#include "PLPreferencesTest.moc"
