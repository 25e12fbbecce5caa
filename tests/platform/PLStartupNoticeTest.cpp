// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLStartupNotice.h"

#include <QTest>

/// The words alone; that a desktop hears them is for the test of the whole program.
class PLStartupNoticeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theIdentifierIsQuoted_data();
    void theIdentifierIsQuoted();
    void withoutAnIdentifierOrADisplayNothingHappens();
};

void PLStartupNoticeTest::theIdentifierIsQuoted_data()
{
    QTest::addColumn<QByteArray>("identifier");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("as desktops make them")
        << QByteArray("panel-1234-host-aquilane-0_TIME5678")
        << QByteArray("remove: ID=\"panel-1234-host-aquilane-0_TIME5678\"");
    QTest::newRow("a space") << QByteArray("a b") << QByteArray("remove: ID=\"a b\"");
    QTest::newRow("a quotation mark") << QByteArray("a\"b") << QByteArray("remove: ID=\"a\\\"b\"");
    QTest::newRow("a backslash") << QByteArray("a\\b") << QByteArray("remove: ID=\"a\\\\b\"");
}

void PLStartupNoticeTest::theIdentifierIsQuoted()
{
    QFETCH(const QByteArray, identifier);
    QTEST(PLStartupRemoval(identifier), "text");
}

void PLStartupNoticeTest::withoutAnIdentifierOrADisplayNothingHappens()
{
    qunsetenv("DESKTOP_STARTUP_ID");
    PLCompleteStartup();
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("DESKTOP_STARTUP_ID", "start_TIME1");
    qputenv("DISPLAY", ":no-such-display");
    PLCompleteStartup(); // returns, and says nothing
    qunsetenv("DISPLAY");
    PLCompleteStartup();
}

QTEST_MAIN(PLStartupNoticeTest)
#include "PLStartupNoticeTest.moc"
