// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLProgramStart.h"
#include "support/PLTestFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Start = PLProgramStart;

/// What a start comes upon, and whether a later one can still reach the program.
struct Place
{
    const char *name;
    std::function<bool(const QDir &folder)> prepare;
    bool handsOver = true;
    bool isElsewhere = false; ///< the lock is in another folder then
};

const QByteArray precious = "a text of the writer's\n";

bool makeLink(const QDir &folder, const QString &name)
{
    return PLMakeFile(folder.filePath(u"../precious"_s), precious) &&
           QFile::link(folder.filePath(u"../precious"_s), folder.filePath(name));
}

const QList<Place> places{
    {"nothing", [](const QDir &) { return true; }},
    {"a file for a socket",
     [](const QDir &folder) { return PLMakeFile(folder.filePath(u"aquilane.socket"_s), "x"); }},
    {"an empty folder for a socket", [](const QDir &folder) { return folder.mkdir(u"aquilane.socket"_s); }},
    {"a full folder for a socket", [](const QDir &folder) { return folder.mkpath(u"aquilane.socket/x"_s); },
     false},
    {"a link for a socket", [](const QDir &folder) { return makeLink(folder, u"aquilane.socket"_s); }},
    {"a dangling link for a socket",
     [](const QDir &folder) { return QFile::link(u"nowhere"_s, folder.filePath(u"aquilane.socket"_s)); }},
    {"a pipe for a socket",
     [](const QDir &folder) {
         return ::mkfifo(qPrintable(folder.filePath(u"aquilane.socket"_s)), 0600) == 0;
     }},
    {"a lock file with a text",
     [](const QDir &folder) { return PLMakeFile(folder.filePath(u"aquilane.lock"_s), "1234\n"); }},
    {"a lock file that nobody may open",
     [](const QDir &folder) {
         const QString path = folder.filePath(u"aquilane.lock"_s);
         return PLMakeFile(path) && QFile::setPermissions(path, {});
     },
     true, getuid() != 0},
    {"a folder for a lock", [](const QDir &folder) { return folder.mkpath(u"aquilane.lock/x"_s); }, true,
     true},
    {"a link for a lock", [](const QDir &folder) { return makeLink(folder, u"aquilane.lock"_s); }, true,
     true},
    {"a dangling link for a lock",
     [](const QDir &folder) { return QFile::link(u"nowhere"_s, folder.filePath(u"aquilane.lock"_s)); }, true,
     true},
    {"a pipe for a lock",
     [](const QDir &folder) { return ::mkfifo(qPrintable(folder.filePath(u"aquilane.lock"_s)), 0600) == 0; }},
};

} // namespace

/// Whatever there is where a start looks for the program that runs: it comes to an end in time, nothing that
/// was left there stops it, and never are there two programs.
class PLInstanceLeftoversTest final : public QObject
{
    Q_OBJECT

private:
    /// The first start is the program and no later one is; and again, after it was killed.
    void expectOneProgram(bool handsOver);

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;

private Q_SLOTS:
    void init();

    void leftoversStopNobody_data();
    void leftoversStopNobody();
    void sessionFoldersThatCannotBeUsed_data();
    void sessionFoldersThatCannotBeUsed();
    void aStoppedProgramHoldsNoStartUp();
    void aStoppedProgramTakesWhatItIsSentLater();
    void aStoppedProgramWithACrowdBeforeItHoldsNoStartUp();
    void aStoppedStartHoldsNoOtherUp();
    void ofManyStartsAtOnceOneIsTheProgram();
    void aChildOfAKilledProgramDoesNotKeepItsPlace();
};

void PLInstanceLeftoversTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkdir(u"run"_s));
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder->filePath(u"run"_s));
    m_environment.insert(u"XDG_CONFIG_HOME"_s, m_folder->filePath(u"config"_s));
    m_environment.insert(u"TMPDIR"_s, m_folder->path());
    m_environment.insert(u"START_TIMEOUT"_s, u"10000"_s);
}

void PLInstanceLeftoversTest::expectOneProgram(bool handsOver)
{
    for (int kill = 0; kill < 2; ++kill) {
        Start program(m_environment);
        QVERIFY(program.isFirst());
        if (!handsOver)
            m_environment.insert(u"START_TIMEOUT"_s, u"300"_s);
        Start later(m_environment, {u"/a path"_s});
        QCOMPARE(later.line(), handsOver ? QByteArray("handed over") : QByteArray("no answer"));
        if (handsOver)
            QCOMPARE(program.line(), Start::requestOf({u"/a path"_s}));
        QVERIFY(program.isRunning());
    }
}

void PLInstanceLeftoversTest::leftoversStopNobody_data()
{
    QTest::addColumn<qsizetype>("index");
    for (qsizetype index = 0; index < places.size(); ++index)
        QTest::newRow(places[index].name) << index;
}

void PLInstanceLeftoversTest::leftoversStopNobody()
{
    QFETCH(const qsizetype, index);
    const Place &place = places.at(index);
    QVERIFY(place.prepare(QDir(m_folder->filePath(u"run"_s))));
    expectOneProgram(place.handsOver);
    QCOMPARE(PLNamesIn(m_folder->path()).filter(u"aquilane"_s).size(), place.isElsewhere ? 1 : 0);
    if (QFile::exists(m_folder->filePath(u"precious"_s)))
        QCOMPARE(PLBytesOf(m_folder->filePath(u"precious"_s)), precious);
    QVERIFY(!QFile::exists(m_folder->filePath(u"run/nowhere"_s)));
}

/// For the superuser nothing can be made in "/proc"; for everybody else it is somebody else's.
void PLInstanceLeftoversTest::sessionFoldersThatCannotBeUsed_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("missing") << u"nowhere"_s;
    QTest::newRow("a file") << u"file"_s;
    QTest::newRow("empty") << QString();
    QTest::newRow("relative") << u"./run"_s;
    QTest::newRow("nothing can be made in it") << u"/proc"_s;
    QTest::newRow("somebody else's") << (getuid() == 0 ? u"theirs"_s : u"/"_s);
    QTest::newRow("anybody's") << u"open"_s;
    QTest::newRow("too long for a socket") << QString(100, u'x');
}

void PLInstanceLeftoversTest::sessionFoldersThatCannotBeUsed()
{
    QFETCH(const QString, folder);
    const QDir here(m_folder->path());
    QVERIFY(here.mkdir(u"theirs"_s) && here.mkdir(u"open"_s) && here.mkdir(QString(100, u'x')));
    QVERIFY(PLMakeFile(here.filePath(u"file"_s)));
    QVERIFY(::chmod(qPrintable(here.filePath(u"open"_s)), 0777) == 0);
    QVERIFY(getuid() != 0 || ::chown(qPrintable(here.filePath(u"theirs"_s)), 65534, gid_t(-1)) == 0);
    const bool isName = !folder.isEmpty() && !folder.startsWith(u'.');
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, isName ? here.filePath(folder) : folder);
    expectOneProgram(true);
    for (const QString &unused : {u"theirs"_s, u"open"_s, QString(100, u'x')})
        QCOMPARE(PLNamesIn(here.filePath(unused)), QStringList());
}

void PLInstanceLeftoversTest::aStoppedProgramHoldsNoStartUp()
{
    Start program(m_environment);
    QVERIFY(program.isFirst());
    program.signal(SIGSTOP);
    m_environment.insert(u"START_TIMEOUT"_s, u"500"_s);
    for (const QStringList &paths :
         {QStringList{u"/a"_s}, QStringList(), QStringList(50'000, u"/a/long/path"_s)}) {
        Start later(m_environment, paths);
        QCOMPARE(later.line(), QByteArray("no answer"));
    }
    program.signal(SIGCONT);
}

/// Its request is not lost, and it is made once.
void PLInstanceLeftoversTest::aStoppedProgramTakesWhatItIsSentLater()
{
    Start program(m_environment);
    QVERIFY(program.isFirst());
    program.signal(SIGSTOP);
    Start later(m_environment, {u"/a"_s});
    QTRY_VERIFY(later.hasSocket());
    program.signal(SIGCONT);
    QCOMPARE(later.line(), QByteArray("handed over"));
    QCOMPARE(program.line(), Start::requestOf({u"/a"_s}));
    Start last(m_environment, {u"/b"_s});
    QCOMPARE(last.line(), QByteArray("handed over"));
    QCOMPARE(program.line(), Start::requestOf({u"/b"_s}));
}

/// More callers than the system lets wait.
void PLInstanceLeftoversTest::aStoppedProgramWithACrowdBeforeItHoldsNoStartUp()
{
    Start program(m_environment);
    QVERIFY(program.isFirst());
    program.signal(SIGSTOP);
    m_environment.insert(u"START_TIMEOUT"_s, u"1500"_s);
    std::vector<std::unique_ptr<Start>> crowd;
    for (int count = 0; count < 40; ++count)
        crowd.push_back(std::make_unique<Start>(m_environment));
    for (const auto &start : crowd)
        QCOMPARE(start->line(), QByteArray("no answer"));
    program.signal(SIGCONT);
    Start later(m_environment, {u"/a path"_s});
    QCOMPARE(later.line(), QByteArray("handed over"));
}

/// Stopped after it has the lock and before it listens.
void PLInstanceLeftoversTest::aStoppedStartHoldsNoOtherUp()
{
    m_environment.insert(u"START_LATE"_s, u"1"_s);
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    m_environment.insert(u"START_TIMEOUT"_s, u"300"_s);
    Start later(m_environment);
    QCOMPARE(later.line(), QByteArray("no answer"));
    program.kill();
    m_environment.remove(u"START_LATE"_s);
    Start next(m_environment);
    QVERIFY(next.isFirst());
}

void PLInstanceLeftoversTest::ofManyStartsAtOnceOneIsTheProgram()
{
    std::vector<std::unique_ptr<Start>> starts;
    for (int count = 0; count < 12; ++count)
        starts.push_back(std::make_unique<Start>(m_environment));
    int first = 0;
    int handedOver = 0;
    for (const auto &start : starts) {
        const QByteArray role = start->line();
        first += role == "first" ? 1 : 0;
        handedOver += role == "handed over" ? 1 : 0;
    }
    QCOMPARE(first, 1);
    QCOMPARE(handedOver, 11);
}

/// The script that starts the program again lives longer than the program.
void PLInstanceLeftoversTest::aChildOfAKilledProgramDoesNotKeepItsPlace()
{
    m_environment.insert(u"START_CHILD"_s, u"1"_s);
    Start program(m_environment);
    QVERIFY(program.isFirst());
    const QByteArray child = program.line();
    QVERIFY(child.toInt() > 0 && ::kill(child.toInt(), 0) == 0);
    program.kill();
    m_environment.remove(u"START_CHILD"_s);
    Start next(m_environment);
    const bool isFirst = next.isFirst();
    ::kill(child.toInt(), SIGKILL);
    QVERIFY(isFirst);
}

QTEST_GUILESS_MAIN(PLInstanceLeftoversTest)
#include "PLInstanceLeftoversTest.moc"
