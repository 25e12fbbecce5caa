// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLProject.h"
#include "storage/PLTrace.h"
#include "support/PLTestEnvironment.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray oldPicture(10'000, 'o');
const QByteArray otherPicture(10'000, 'p');
const QByteArray newPicture(600'000, 'n'); // read and written in more than one piece

} // namespace

/// Every system call of setting and of removing a cover fails, or is the last one before the process is
/// killed. A notebook that had a cover shows a whole one at every moment, and success is told only of what
/// has been done.
class PLCoverFaultsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyCallMayFail_data();
    void everyCallMayFail();
    void theProcessMayBeKilledAtEveryCall_data();
    void theProcessMayBeKilledAtEveryCall();
    void aPictureCutShortWhileItIsCopiedIsNoCover();
    void thePictureIsOnDiskBeforeItsNameAndTheOldOneStaysUntilThen_data();
    void thePictureIsOnDiskBeforeItsNameAndTheOldOneStaysUntilThen();

private:
    QString path(const QString &name) const { return m_folder->filePath(u"Roman/"_s + name); }
    int run(const QStringList &faults = {});
    QByteArray shownCover() const;
    QStringList coverNames() const;
    void checkFailed(bool isFlush) const;
    void checkDone() const;
    void checkKilled() const;
    void addOperations() const;

    PLTestEnvironment m_environment;
    PLTrace m_trace;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLCoverFaultsTest::initTestCase()
{
    if (!PLTrace::isAvailable())
        QSKIP("strace is not there, or may not trace");
}

void PLCoverFaultsTest::addOperations() const
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QStringList>("covers");
    QTest::newRow("a first cover") << u"cover"_s << QStringList{};
    QTest::newRow("a cover for one of its kind") << u"cover"_s << QStringList{u"couverture.jpg"_s};
    QTest::newRow("a cover for one of another kind") << u"cover"_s << QStringList{u"couverture.png"_s};
    QTest::newRow("a cover for two") << u"cover"_s << QStringList{u"couverture.jpeg"_s, u"couverture.png"_s};
    QTest::newRow("no cover any more") << u"uncover"_s << QStringList{u"couverture.png"_s};
}

/// Runs the operation of the row in a new notebook; 0 done, 1 an error was told, -1 killed.
int PLCoverFaultsTest::run(const QStringList &faults)
{
    QFETCH(QString, operation);
    QFETCH(QStringList, covers);
    m_folder = std::make_unique<QTemporaryDir>();
    const QString picture = m_folder->filePath(u"photo.jpg"_s);
    bool isMade = PLMakeFile(path(u"projet.md"_s)) && PLMakeFile(picture, newPicture);
    for (const QString &name : covers)
        isMade = isMade && PLMakeFile(path(name), name == covers.first() ? oldPicture : otherPicture);
    return isMade ? m_trace.run({operation, path(QString()), picture}, faults) : -2;
}

QByteArray PLCoverFaultsTest::shownCover() const
{
    const QUrl url = PLProject::coverImageURLForProjectAtURL(QUrl::fromLocalFile(path(QString())));
    return url.isEmpty() ? QByteArray() : PLBytesOf(url.toLocalFile());
}

/// What is in the folder but for `projet.md`.
QStringList PLCoverFaultsTest::coverNames() const
{
    QStringList names = PLNamesIn(path(QString()));
    names.removeOne(u"projet.md"_s);
    return names;
}

void PLCoverFaultsTest::checkDone() const
{
    QFETCH(QString, operation);
    const bool isSet = operation == u"cover";
    QCOMPARE(coverNames(), isSet ? QStringList{u"couverture.jpg"_s} : QStringList{});
    QVERIFY(shownCover() == (isSet ? newPicture : QByteArray()));
}

/// After an error the old cover is there; or what was to be, if that could not be flushed, or if what came
/// after it in the way could not be deleted. Nothing hidden is left.
void PLCoverFaultsTest::checkFailed(bool isFlush) const
{
    QFETCH(QString, operation);
    QFETCH(QStringList, covers);
    const QStringList names = coverNames();
    for (const QString &name : names)
        QVERIFY2(!name.startsWith(u'.'), qPrintable(name));
    const QByteArray shown = shownCover();
    const bool isOld = covers.isEmpty() ? shown.isNull() : shown == oldPicture;
    const bool isNew = operation == u"cover" ? isFlush && shown == newPicture : shown.isNull();
    QVERIFY(isOld || isNew);
}

/// After the next opening of the notebook.
void PLCoverFaultsTest::checkKilled() const
{
    QFETCH(QString, operation);
    QFETCH(QStringList, covers);
    const QByteArray atOnce = shownCover();
    QVERIFY(PLProject::openProjectAtURL(QUrl::fromLocalFile(path(QString()))));
    QCOMPARE(shownCover(), atOnce);
    for (const QString &name : coverNames())
        QVERIFY2(!name.startsWith(u".couverture"), qPrintable(name));
    const bool mayHaveNone = covers.isEmpty() || operation == u"uncover";
    QVERIFY(atOnce == oldPicture || atOnce == newPicture || (mayHaveNone && atOnce.isNull()));
}

void PLCoverFaultsTest::everyCallMayFail_data()
{
    addOperations();
}

void PLCoverFaultsTest::everyCallMayFail()
{
    QCOMPARE(run(), 0);
    checkDone();
    const QList<PLTracedCall> made = m_trace.calls();
    QVERIFY(made.size() >= 8);
    int reported = 0;
    for (const PLTracedCall &call : made) {
        for (const QString &error : {u"EIO"_s, u"EINTR"_s}) {
            const QString fault = call.fault(u"error="_s + error);
            const int exitCode = run({fault});
            QVERIFY2(exitCode == 0 || exitCode == 1, qPrintable(fault));
            QVERIFY2(error != u"EINTR" || exitCode == 0, qPrintable(fault));
            if (exitCode == 0)
                checkDone();
            else
                checkFailed(call.name == u"fsync");
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(fault));
            reported += exitCode;
        }
    }
    QVERIFY2(reported >= 3, "the faults have not reached the probe");
}

void PLCoverFaultsTest::theProcessMayBeKilledAtEveryCall_data()
{
    addOperations();
}

void PLCoverFaultsTest::theProcessMayBeKilledAtEveryCall()
{
    QCOMPARE(run(), 0);
    const QList<PLTracedCall> made = m_trace.calls();
    QVERIFY(made.size() >= 8);
    for (const PLTracedCall &call : made) {
        const QString fault = call.fault(u"signal=KILL"_s);
        QVERIFY2(run({fault}) == -1, qPrintable(fault));
        checkKilled();
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(fault));
    }
}

void PLCoverFaultsTest::thePictureIsOnDiskBeforeItsNameAndTheOldOneStaysUntilThen_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QStringList>("covers");
    QTest::addColumn<QString>("steps");
    QTest::newRow("a first cover") << u"cover"_s << QStringList{}
                                   << u"write fsync unlinkat renameat2 fsync"_s;
    QTest::newRow("one of its kind") << u"cover"_s << QStringList{u"couverture.jpg"_s}
                                     << u"write fsync unlinkat renameat fsync"_s;
    QTest::newRow("one of another kind") << u"cover"_s << QStringList{u"couverture.png"_s}
                                         << u"write fsync unlinkat renameat2 fsync unlinkat fsync"_s;
    QTest::newRow("no cover any more") << u"uncover"_s << QStringList{u"couverture.png"_s}
                                       << u"unlinkat fsync unlinkat"_s; // the others are not there
}

void PLCoverFaultsTest::thePictureIsOnDiskBeforeItsNameAndTheOldOneStaysUntilThen()
{
    QFETCH(QString, steps);
    static const QStringList counted{u"write"_s, u"fsync"_s, u"renameat"_s, u"renameat2"_s, u"unlinkat"_s};
    QCOMPARE(run(), 0);
    QStringList names;
    const QList<PLTracedCall> made = m_trace.calls();
    for (const PLTracedCall &call : made) {
        const bool isRepeated = !names.isEmpty() && names.last() == call.name; // one write for each piece
        if (counted.contains(call.name) && !isRepeated)
            names.append(call.name);
    }
    QCOMPARE(names.join(u' '), steps);
}

void PLCoverFaultsTest::aPictureCutShortWhileItIsCopiedIsNoCover()
{
    m_folder = std::make_unique<QTemporaryDir>();
    const QString picture = m_folder->filePath(u"photo.jpg"_s);
    QVERIFY(PLMakeFile(picture, newPicture) && PLMakeFile(path(u"couverture.png"_s), oldPicture));
    const QStringList arguments{u"cover"_s, path(QString()), picture};
    QCOMPARE(m_trace.run(arguments), 0);
    QList<PLTracedCall> reads = m_trace.calls();
    reads.removeIf([](const PLTracedCall &call) { return call.name != u"read"; });
    QVERIFY(reads.size() > 2);

    for (qsizetype index = 0; index < reads.size() - 1; ++index) {
        QVERIFY(QFile::remove(path(u"couverture.jpg"_s)) &&
                PLMakeFile(path(u"couverture.png"_s), oldPicture));
        QCOMPARE(m_trace.run(arguments, {reads[index].fault(u"retval=0"_s)}), 1);
        QCOMPARE(coverNames(), QStringList{u"couverture.png"_s});
        QVERIFY(PLMakeFile(path(u"couverture.jpg"_s)));
    }
}

QTEST_GUILESS_MAIN(PLCoverFaultsTest)
#include "PLCoverFaultsTest.moc"
