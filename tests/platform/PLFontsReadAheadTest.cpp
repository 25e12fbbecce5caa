// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFontsReadAhead.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QTest>

class PLFontsReadAheadTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textCanBeMeasuredWhileTheFontsAreRead();
    void theFontsAreReadOnce();
};

void PLFontsReadAheadTest::textCanBeMeasuredWhileTheFontsAreRead()
{
    int count = 0;
    char *arguments[] = {nullptr};
    const std::future<void> reading = PLReadFontsAhead();
    const QApplication application(count, arguments);
    QVERIFY(!QFontDatabase::families().isEmpty());
    QVERIFY(QFontMetrics(QApplication::font()).horizontalAdvance(u'é') > 0);
}

void PLFontsReadAheadTest::theFontsAreReadOnce()
{
    int count = 0;
    char *arguments[] = {nullptr};
    std::future<void> reading = PLReadFontsAhead();
    if (!reading.valid())
        QSKIP("the toolkit reads the fonts in another way here");
    reading.get();
    const QApplication application(count, arguments);
    const QStringList families = QFontDatabase::families();
    PLReadFontsAhead().get();
    QCOMPARE(QFontDatabase::families(), families);
}

QTEST_APPLESS_MAIN(PLFontsReadAheadTest)
#include "PLFontsReadAheadTest.moc"
