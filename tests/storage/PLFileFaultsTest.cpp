// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "storage/PLTrace.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// What became of an operation.
struct Outcome
{
    int exitCode = -1; ///< -1: killed
    QStringList names; ///< in the folder, afterwards
};

const QByteArray oldText = "old";
const QByteArray newText(20'000, 'n');

} // namespace

/// Every system call of a write and of a rename fails, or is the last one before the process is killed.
/// Whatever happens, a page is its old text or the new one, whole; and success is told only of what has been
/// done.
class PLFileFaultsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyCallMayFail_data();
    void everyCallMayFail();
    void everyFailedFlushIsReported_data();
    void everyFailedFlushIsReported();
    void theTextIsOnDiskBeforeItsNameAndTheNameBeforeTheAnswer();
    void theProcessMayBeKilledAtEveryCall_data();
    void theProcessMayBeKilledAtEveryCall();
    void disksWithoutAnExclusiveRenameWork_data();
    void disksWithoutAnExclusiveRenameWork();

private:
    QString pagePath() const { return m_folder->filePath(u"page.md"_s); }
    Outcome run(const QString &operation, const QStringList &faults);
    QList<PLTracedCall> calls(const QString &operation);
    void checkPage(const QString &operation, bool isDone) const;
    void addOperations() const;

    PLTestEnvironment m_environment;
    PLTrace m_trace;
    std::unique_ptr<QTemporaryDir> m_folder;
};

/// Runs the operation in a new folder, with options of strace such as "fsync:error=EIO:when=2".
Outcome PLFileFaultsTest::run(const QString &operation, const QStringList &faults)
{
    m_folder = std::make_unique<QTemporaryDir>();
    if (operation != u"create" && !PLMakeFile(pagePath(), oldText))
        return {};
    const int exitCode = m_trace.run({operation, pagePath()}, faults);
    return {exitCode, PLNamesIn(m_folder->path())};
}

QList<PLTracedCall> PLFileFaultsTest::calls(const QString &operation)
{
    return run(operation, {}).exitCode == 0 ? m_trace.calls() : QList<PLTracedCall>();
}

/// What may be on the disk: the state before the operation, unless it is done, or the state after it.
void PLFileFaultsTest::checkPage(const QString &operation, bool isDone) const
{
    const QStringList names = PLNamesIn(m_folder->path());
    const QString after = operation == u"move" ? u"page.md.moved"_s : u"page.md"_s;
    const QByteArray textAfter = operation == u"move" ? oldText : newText;
    if (names == QStringList{after} && PLBytesOf(m_folder->filePath(after)) == textAfter)
        return;
    QVERIFY2(!isDone, "success was told of what is not on the disk");
    if (operation == u"create") {
        QCOMPARE(names, QStringList{});
    } else {
        QCOMPARE(names, QStringList{u"page.md"_s});
        QCOMPARE(PLBytesOf(pagePath()), oldText);
    }
}

void PLFileFaultsTest::addOperations() const
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("a new text for an old page") << u"write"_s;
    QTest::newRow("a new page") << u"create"_s;
    QTest::newRow("a new name") << u"move"_s;
}

void PLFileFaultsTest::initTestCase()
{
    if (!PLTrace::isAvailable())
        QSKIP("strace is not there, or may not trace");
}

void PLFileFaultsTest::everyCallMayFail_data()
{
    addOperations();
}

void PLFileFaultsTest::everyCallMayFail()
{
    QFETCH(QString, operation);
    const QList<PLTracedCall> made = calls(operation);
    QVERIFY(made.size() >= 8);
    int reported = 0;
    for (const PLTracedCall &call : made) {
        for (const QString &error : {u"EIO"_s, u"ENOSPC"_s, u"EROFS"_s, u"EACCES"_s, u"EINTR"_s}) {
            const QString fault = call.fault(u"error="_s + error);
            const Outcome outcome = run(operation, {fault});
            QVERIFY2(outcome.exitCode == 0 || outcome.exitCode == 1, qPrintable(fault));
            QVERIFY2(error != u"EINTR" || outcome.exitCode == 0, qPrintable(fault));
            checkPage(operation, outcome.exitCode == 0);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(fault));
            reported += outcome.exitCode;
        }
    }
    QVERIFY2(reported >= 16, "the faults have not reached the probe");
}

void PLFileFaultsTest::everyFailedFlushIsReported_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("flushes");
    QTest::newRow("a new text for an old page") << u"write"_s << 2;
    QTest::newRow("a new page") << u"create"_s << 2;
    QTest::newRow("a new name") << u"move"_s << 1;
}

void PLFileFaultsTest::everyFailedFlushIsReported()
{
    QFETCH(QString, operation);
    QFETCH(int, flushes);
    for (int flush = 1; flush <= flushes; ++flush) {
        const QString fault = u"fsync:error=EIO:when=%1"_s.arg(flush);
        QCOMPARE(run(operation, {fault}).exitCode, 1);
        checkPage(operation, false);
    }
    QCOMPARE(run(operation, {u"fsync:error=EIO:when=%1"_s.arg(flushes + 1)}).exitCode, 0);
    // A page that could not be made for good is not there, or the next try would make a second one.
    if (operation == u"create") {
        (void)run(operation, {u"fsync:error=EIO:when=2"_s});
        QCOMPARE(PLNamesIn(m_folder->path()), QStringList{});
    }
    // A page that could not be renamed for good has its old name.
    if (operation == u"move") {
        (void)run(operation, {u"fsync:error=EIO:when=1"_s});
        QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"page.md"_s});
    }
}

void PLFileFaultsTest::theTextIsOnDiskBeforeItsNameAndTheNameBeforeTheAnswer()
{
    static const QStringList steps{u"write"_s, u"fsync"_s, u"renameat"_s, u"renameat2"_s, u"fchmod"_s};
    const auto stepsOf = [this](const QString &operation) {
        QStringList names;
        for (const PLTracedCall &call : calls(operation)) {
            if (steps.contains(call.name))
                names.append(call.name);
        }
        return names;
    };
    QCOMPARE(stepsOf(u"write"_s),
             (QStringList{u"write"_s, u"fchmod"_s, u"fsync"_s, u"renameat"_s, u"fsync"_s}));
    QCOMPARE(stepsOf(u"create"_s), (QStringList{u"write"_s, u"fsync"_s, u"renameat2"_s, u"fsync"_s}));
    QCOMPARE(stepsOf(u"move"_s), (QStringList{u"renameat2"_s, u"fsync"_s}));
}

void PLFileFaultsTest::theProcessMayBeKilledAtEveryCall_data()
{
    addOperations();
}

void PLFileFaultsTest::theProcessMayBeKilledAtEveryCall()
{
    QFETCH(QString, operation);
    const QList<PLTracedCall> made = calls(operation);
    QVERIFY(made.size() >= 8);
    for (const PLTracedCall &call : made) {
        const QString fault = call.fault(u"signal=KILL"_s);
        const Outcome outcome = run(operation, {fault});
        QVERIFY2(outcome.exitCode == -1, qPrintable(fault));
        PLSweepTemporaryFiles(m_folder->path()); // as the next opening of the notebook does
        checkPage(operation, false);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(fault));
    }
}

void PLFileFaultsTest::disksWithoutAnExclusiveRenameWork_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QStringList>("faults");
    const QString rename = u"renameat2:error=EINVAL"_s;
    const QString link = u"linkat:error=EPERM"_s;
    for (const char *operation : {"create", "move"}) {
        const QString name = QString::fromLatin1(operation);
        QTest::addRow("%s by links", operation) << name << QStringList{rename};
        QTest::addRow("%s without links either", operation) << name << QStringList{rename, link};
    }
}

void PLFileFaultsTest::disksWithoutAnExclusiveRenameWork()
{
    QFETCH(QString, operation);
    QFETCH(QStringList, faults);
    QCOMPARE(run(operation, faults).exitCode, 0);
    checkPage(operation, true);

    // And nothing is overwritten.
    const QString taken = operation == u"move" ? u"page.md.moved"_s : u"page.md"_s;
    QVERIFY(PLMakeFile(m_folder->filePath(taken), "other"));
    if (operation == u"move")
        QVERIFY(PLMakeFile(pagePath(), oldText));
    const QStringList namesBefore = PLNamesIn(m_folder->path());
    QCOMPARE(m_trace.run({operation, pagePath()}, faults), 1);
    QCOMPARE(PLNamesIn(m_folder->path()), namesBefore);
    QCOMPARE(PLBytesOf(m_folder->filePath(taken)), "other");
}

QTEST_GUILESS_MAIN(PLFileFaultsTest)
#include "PLFileFaultsTest.moc"
