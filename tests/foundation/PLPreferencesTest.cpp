// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLPreferences.h"

#include "foundation/PLError.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class PLPreferencesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void preferencesAreKeptInTheFile();
    void anotherFileHasOtherPreferences();
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
