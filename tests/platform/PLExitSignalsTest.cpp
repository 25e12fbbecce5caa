// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLExitSignals.h"

#include <QSignalSpy>
#include <QTest>

#include <cerrno>
#include <csignal>

#include <unistd.h>

class PLExitSignalsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSignalAsksToEnd_data();
    void aSignalAsksToEnd();
    void manySignalsAskOnceATurn();
    void aSignalDoesNotActBeforeTheEventLoopTurns();
    void aBrokenPipeIsAnError();
    void theSystemsOwnWayIsBackAfterwards();
};

void PLExitSignalsTest::aSignalAsksToEnd_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void PLExitSignalsTest::aSignalAsksToEnd()
{
    QFETCH(const int, number);
    PLExitSignals exitSignals;
    QSignalSpy spy(&exitSignals, &PLExitSignals::exitRequested);
    QCOMPARE(raise(number), 0);
    QVERIFY(spy.wait());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(raise(number), 0); // and again
    QVERIFY(spy.wait());
}

void PLExitSignalsTest::manySignalsAskOnceATurn()
{
    PLExitSignals exitSignals;
    QSignalSpy spy(&exitSignals, &PLExitSignals::exitRequested);
    for (int count = 0; count < 100000; ++count) // more than a pipe holds
        raise(SIGTERM);
    QVERIFY(spy.wait());
    QCoreApplication::processEvents();
    QCOMPARE(spy.count(), 1);
}

void PLExitSignalsTest::aSignalDoesNotActBeforeTheEventLoopTurns()
{
    PLExitSignals exitSignals;
    QSignalSpy spy(&exitSignals, &PLExitSignals::exitRequested);
    raise(SIGTERM);
    QCOMPARE(spy.count(), 0);
    QVERIFY(spy.wait());
}

void PLExitSignalsTest::aBrokenPipeIsAnError()
{
    const PLExitSignals exitSignals;
    int ends[2];
    QCOMPARE(pipe(ends), 0);
    close(ends[0]);
    const ssize_t written = write(ends[1], "x", 1);
    const int error = errno;
    close(ends[1]);
    QCOMPARE(written, ssize_t(-1));
    QCOMPARE(error, EPIPE);
}

void PLExitSignalsTest::theSystemsOwnWayIsBackAfterwards()
{
    {
        const PLExitSignals exitSignals;
    }
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction action = {};
        QCOMPARE(sigaction(number, nullptr, &action), 0);
        QVERIFY(action.sa_handler == SIG_DFL);
    }
}

QTEST_MAIN(PLExitSignalsTest)
#include "PLExitSignalsTest.moc"
