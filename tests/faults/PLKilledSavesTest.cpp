// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLSaveLoop.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int defaultKills = 500;

int killsWanted()
{
    bool isGiven = false;
    const int kills = qEnvironmentVariableIntValue("AQUILANE_KILLS", &isGiven);
    return isGiven ? kills : defaultKills;
}

} // namespace

/// A process that saves, renames and creates pages without a pause is killed, at any moment, again and again.
/// Not one page is torn or missing, and none is older than the last save that was answered with success.
class PLKilledSavesTest final : public QObject
{
    Q_OBJECT

public:
    /// A million kills take longer than a test is given as a rule.
    static void initMain() { qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000"); } // milliseconds

private Q_SLOTS:
    void initTestCase();
    void noKillLosesAnything();
    void aTornPageWouldBeFound();

private:
    bool killOne();

    PLTestEnvironment m_environment;
    QTemporaryDir m_folder;
    int m_longestLife = 0; ///< of a process, in microseconds
    PLSaveLoop m_loop{m_folder.filePath(u"Roman"_s)};
};

/// Lets the loop run for a moment in a process of its own, and kills it. False if it ended by itself.
bool PLKilledSavesTest::killOne()
{
    const pid_t child = ::fork();
    if (child == 0) {
        m_loop.run();
        ::_exit(1); // only after a save that failed
    }
    ::usleep(useconds_t(QRandomGenerator::global()->bounded(m_longestLife)));
    ::kill(child, SIGKILL);
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) &&
           WTERMSIG(status) == SIGKILL;
}

void PLKilledSavesTest::initTestCase()
{
    QVERIFY(m_loop.makeNotebook());
    // Disks differ: a process lives for up to three rounds of what it does.
    constexpr int rounds = 5;
    QElapsedTimer timer;
    timer.start();
    m_loop.run(rounds);
    QVERIFY(m_loop.creations() == rounds);
    m_longestLife = int(qBound(qint64(1'000), 3 * timer.nsecsElapsed() / 1'000 / rounds, qint64(100'000)));
    QCOMPARE(m_loop.lookAfterKill(), QString());
}

void PLKilledSavesTest::noKillLosesAnything()
{
    const int kills = killsWanted();
    for (int kill = 0; kill < kills; ++kill) {
        QVERIFY2(killOne(), qPrintable(u"a save failed before kill %1"_s.arg(kill)));
        const QString complaint = m_loop.lookAfterKill();
        QVERIFY2(complaint.isEmpty(), qPrintable(u"kill %1: %2"_s.arg(kill).arg(complaint)));
    }
    qInfo("%d kills during %lld saves, %lld renames and %lld new pages (%d of them cut a change short): none "
          "lost, torn or old",
          kills, m_loop.saves(), m_loop.renames(), m_loop.creations(), m_loop.cutShort());
    QVERIFY2(m_loop.cutShort() > kills / 10, "the kills came between the changes");
}

void PLKilledSavesTest::aTornPageWouldBeFound()
{
    const QString path = m_loop.savedPagePath();
    const QByteArray whole = PLBytesOf(path);
    QVERIFY(m_loop.lookAfterKill().isEmpty());
    QVERIFY(PLMakeFile(path, whole.first(whole.size() - 1)));
    QVERIFY(m_loop.lookAfterKill().contains(u"torn"));
    QVERIFY(PLMakeFile(path, PLSaveLoop::pageText(m_loop.saves() - 1)));
    QVERIFY(m_loop.lookAfterKill().contains(u"older"));
    QVERIFY(QFile::remove(path));
    QVERIFY(m_loop.lookAfterKill().contains(u"pages"));
}

QTEST_GUILESS_MAIN(PLKilledSavesTest)
#include "PLKilledSavesTest.moc"
