// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLLineServer.h"
#include "platform/PLProgramStart.h"
#include "support/PLTestDisk.h"
#include "support/PLTestFiles.h"

#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Start = PLProgramStart;

constexpr int patience = Start::patience;

/// A socket of whoever this process is when it is made, where one caller is told that his line was taken.
class SocketThatSaysYes final
{
public:
    explicit SocketThatSaysYes(const QString &path) : m_descriptor(::socket(AF_UNIX, SOCK_STREAM, 0))
    {
        const QByteArray name = QFile::encodeName(path);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
        if (::bind(m_descriptor, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0 ||
            ::listen(m_descriptor, 1) != 0)
            qFatal("cannot listen at %s", name.constData());
    }
    ~SocketThatSaysYes() { ::close(m_descriptor); }

    SocketThatSaysYes(const SocketThatSaysYes &) = delete;
    SocketThatSaysYes &operator=(const SocketThatSaysYes &) = delete;

    /// What the first caller says.
    QByteArray hear() const
    {
        char bytes[100];
        const int caller = ::accept(m_descriptor, nullptr, nullptr);
        const ssize_t count = ::read(caller, bytes, sizeof bytes);
        (void)!::write(caller, "+", 1);
        ::close(caller);
        return QByteArray(bytes, qMax<ssize_t>(count, 0));
    }

private:
    int m_descriptor;
};

QByteArray requestOf(const QStringList &paths, const QString &token = u""_s)
{
    return Start::requestOf(paths, token);
}

} // namespace

class PLSingleInstanceTest final : public QObject
{
    Q_OBJECT

private:
    QProcessEnvironment environmentWith(const QString &name, const QString &value) const;
    QString socketPath() const { return m_folder->filePath(u"run/aquilane.socket"_s); }
    /// True if a start of its own hands its path over to `program`.
    bool handsOverTo(Start &program) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;

private Q_SLOTS:
    void init();

    void aLoneStartIsTheProgram();
    void aSecondStartHandsItsPathsOver_data();
    void aSecondStartHandsItsPathsOver();
    void theDesktopsLeaveToComeToTheFrontIsPassedOn();
    void everyLaterStartHandsOver();
    void aStartWaitsForTheFirstToListen();
    void aKilledProgramDoesNotStopTheNext();
    void aHungProgramGivesNoAnswerInTime();
    void onlyTheUserCanReachTheSocket();
    void garbageDoesNoHarm_data();
    void garbageDoesNoHarm();
    void aCallerThatSaysNothingHoldsNobodyUp();
    void withoutASessionFolderAPrivateOneIsMade();
    void aFolderThatOthersCanEnterIsNotUsed();
    void twoUsersFoldersAreTwoPrograms();
    void aSessionFolderThatOthersCanWriteToIsNotUsed();
    void aSessionFolderOfAnotherUserIsNotUsed();
    void aSessionFolderThatIsNoFullPathIsNotUsed();
    void aFolderThatAnotherUserHasMadeIsNotUsed();
    void aLinkWhereTheFolderShouldBeIsNotFollowed();
    void linksWhereTheFilesShouldBeAreNotFollowed();
    void anotherUserIsNotHeard();
    void anotherUsersSocketIsNotSpokenTo();
};

QProcessEnvironment PLSingleInstanceTest::environmentWith(const QString &name, const QString &value) const
{
    QProcessEnvironment environment = m_environment;
    environment.insert(name, value);
    return environment;
}

bool PLSingleInstanceTest::handsOverTo(Start &program) const
{
    Start later(m_environment, {u"/a path"_s});
    return later.line() == "handed over" && program.line() == requestOf({u"/a path"_s});
}

void PLSingleInstanceTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(m_folder->filePath(u"run"_s)));
    QVERIFY(QFile::setPermissions(m_folder->filePath(u"run"_s), QFile::Permissions(0x7000)));
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder->filePath(u"run"_s));
    m_environment.insert(u"XDG_CONFIG_HOME"_s, m_folder->filePath(u"config"_s));
    m_environment.insert(u"TMPDIR"_s, m_folder->path());
    m_environment.remove(u"XDG_ACTIVATION_TOKEN"_s);
}

void PLSingleInstanceTest::aLoneStartIsTheProgram()
{
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
}

void PLSingleInstanceTest::aSecondStartHandsItsPathsOver_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::newRow("none") << QStringList();
    QTest::newRow("one") << QStringList{u"/home/anne/Roman"_s};
    QTest::newRow("several, in order") << QStringList{u"/b"_s, u"/a"_s, u"/b"_s};
    QTest::newRow("accents and an emoji") << QStringList{u"/été/Œuvre — \U0001F58B\u0301"_s};
    QTest::newRow("newlines and quotes") << QStringList{u"/a\nb\r\n\"c\"\\'d'\t$(e)`f`"_s};
    QTest::newRow("spaces alone") << QStringList{u"/ "_s, u"/  "_s};
    QTest::newRow("10,000 characters") << QStringList{u'/' + QString(9999, u'é')};
    QTest::newRow("1,000 paths") << QStringList(1000, u"/home/anne/Documents/Roman"_s);
}

void PLSingleInstanceTest::aSecondStartHandsItsPathsOver()
{
    QFETCH(const QStringList, paths);
    Start program(m_environment);
    program.line();
    program.line();
    Start later(m_environment, paths);
    QCOMPARE(later.line(), QByteArray("handed over"));
    QCOMPARE(program.line(), requestOf(paths));
}

void PLSingleInstanceTest::theDesktopsLeaveToComeToTheFrontIsPassedOn()
{
    Start program(m_environment);
    program.line();
    program.line();
    Start later(environmentWith(u"XDG_ACTIVATION_TOKEN"_s, u"token-1"_s));
    QCOMPARE(later.line(), QByteArray("handed over"));
    QCOMPARE(program.line(), requestOf({}, u"token-1"_s));
}

void PLSingleInstanceTest::everyLaterStartHandsOver()
{
    Start program(m_environment);
    program.line();
    program.line();
    for (int count = 0; count < 5; ++count)
        QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::aStartWaitsForTheFirstToListen()
{
    Start program(environmentWith(u"START_LATE"_s, u"1"_s));
    QCOMPARE(program.line(), QByteArray("first"));
    Start later(m_environment, {u"/a"_s});
    program.send("\n");
    QCOMPARE(program.line(), QByteArray("listening"));
    QCOMPARE(later.line(), QByteArray("handed over"));
    QCOMPARE(program.line(), requestOf({u"/a"_s}));
}

void PLSingleInstanceTest::aKilledProgramDoesNotStopTheNext()
{
    {
        Start program(m_environment);
        program.line();
        program.line();
    }
    QVERIFY(
        PLNamesIn(m_folder->filePath(u"run"_s)).contains(u"aquilane.socket"_s)); // it had no time to clean up
    Start next(m_environment);
    QCOMPARE(next.line(), QByteArray("first"));
    QCOMPARE(next.line(), QByteArray("listening"));
    QVERIFY(handsOverTo(next));
}

void PLSingleInstanceTest::aHungProgramGivesNoAnswerInTime()
{
    Start hung(environmentWith(u"START_HUNG"_s, u"1"_s));
    hung.line();
    QCOMPARE(hung.line(), QByteArray("listening"));
    Start later(environmentWith(u"START_TIMEOUT"_s, u"300"_s), {u"/a"_s});
    QCOMPARE(later.line(), QByteArray("no answer"));
    QVERIFY(hung.isRunning());
}

void PLSingleInstanceTest::onlyTheUserCanReachTheSocket()
{
    Start program(m_environment);
    program.line();
    program.line();
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                            QFile::WriteOther | QFile::ExeOther;
    const QStringList names = PLNamesIn(m_folder->filePath(u"run"_s));
    QVERIFY(names.contains(u"aquilane.socket"_s));
    for (const QString &name : names)
        QVERIFY2(!(QFile::permissions(m_folder->filePath(u"run/"_s + name)) & others), qPrintable(name));
}

void PLSingleInstanceTest::garbageDoesNoHarm_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("words") << QByteArray("open the door\n");
    QTest::newRow("an empty line") << QByteArray("\n");
    QTest::newRow("zeros") << QByteArray(1000, '\0') + '\n';
    QTest::newRow("an array") << QByteArray("[1, 2]\n");
    QTest::newRow("broken JSON") << QByteArray("{\"paths\": [\"/a\"\n");
    QTest::newRow("no paths") << QByteArray("{}\n");
    QTest::newRow("a path without a list") << QByteArray("{\"paths\": \"/a\"}\n");
    QTest::newRow("a path relative to nobody knows what") << QByteArray("{\"paths\": [\"/a\", \"b\"]}\n");
    QTest::newRow("an empty path") << QByteArray("{\"paths\": [\"\"]}\n");
    QTest::newRow("a path inside the program") << QByteArray("{\"paths\": [\":/a\"]}\n");
    QTest::newRow("a number for a path") << QByteArray("{\"paths\": [1]}\n");
    QTest::newRow("deep JSON") << QByteArray(100000, '[') + '\n';
    QTest::newRow("a line without an end") << QByteArray(5 << 20, 'x');
    QTest::newRow("a very long line") << QByteArray(5 << 20, 'x') + '\n';
}

void PLSingleInstanceTest::garbageDoesNoHarm()
{
    QFETCH(const QByteArray, bytes);
    Start program(m_environment);
    program.line();
    program.line();
    QLocalSocket socket;
    socket.connectToServer(socketPath());
    QVERIFY(socket.waitForConnected(patience));
    socket.write(bytes);
    while (socket.state() == QLocalSocket::ConnectedState && socket.bytesToWrite() > 0)
        socket.waitForBytesWritten(patience);
    QVERIFY(socket.state() != QLocalSocket::ConnectedState || socket.waitForDisconnected(patience));
    QVERIFY(handsOverTo(program)); // which shows too that nothing was taken for a request
}

void PLSingleInstanceTest::aCallerThatSaysNothingHoldsNobodyUp()
{
    Start program(m_environment);
    program.line();
    program.line();
    QLocalSocket silent;
    silent.connectToServer(socketPath());
    QVERIFY(silent.waitForConnected(patience));
    silent.write("{\"paths\":");
    QVERIFY(silent.waitForBytesWritten(patience));
    QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::withoutASessionFolderAPrivateOneIsMade()
{
    m_environment.remove(u"XDG_RUNTIME_DIR"_s);
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    const QString folder = m_folder->filePath(u"aquilane-%1"_s.arg(getuid()));
    QVERIFY(PLNamesIn(folder).contains(u"aquilane.socket"_s));
    QCOMPARE(int(QFile::permissions(folder) & 0x0077), 0); // nobody else
    QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::aFolderThatOthersCanEnterIsNotUsed()
{
    m_environment.remove(u"XDG_RUNTIME_DIR"_s);
    const QString folder = m_folder->filePath(u"aquilane-%1"_s.arg(getuid()));
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7077)));
    QVERIFY(QDir().mkpath(m_folder->filePath(u"config"_s)));
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    QCOMPARE(PLNamesIn(folder), QStringList());
    QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::twoUsersFoldersAreTwoPrograms()
{
    QVERIFY(QDir().mkpath(m_folder->filePath(u"other"_s)));
    Start program(m_environment);
    Start other(environmentWith(u"XDG_RUNTIME_DIR"_s, m_folder->filePath(u"other"_s)));
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(other.line(), QByteArray("first"));
}

void PLSingleInstanceTest::aSessionFolderThatOthersCanWriteToIsNotUsed()
{
    const QString run = m_folder->filePath(u"run"_s);
    QVERIFY(QFile::setPermissions(run, QFile::Permissions(0x7077)));
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    QCOMPARE(PLNamesIn(run), QStringList());
    QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::aSessionFolderOfAnotherUserIsNotUsed()
{
    if (geteuid() != 0)
        QSKIP("Only the superuser can give a folder to somebody else");
    const QString run = m_folder->filePath(u"run"_s);
    QCOMPARE(chown(QFile::encodeName(run).constData(), 65534, 65534), 0);
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    QCOMPARE(PLNamesIn(run), QStringList());
    QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::aSessionFolderThatIsNoFullPathIsNotUsed()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, u"run"_s);
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(PLNamesIn(m_folder->filePath(u"run"_s)), QStringList());
    QVERIFY(handsOverTo(program));
}

/// Its name can be foreseen, and everybody can make one in the temporary folder.
void PLSingleInstanceTest::aFolderThatAnotherUserHasMadeIsNotUsed()
{
    if (geteuid() != 0)
        QSKIP("Only the superuser can give a folder to somebody else");
    m_environment.remove(u"XDG_RUNTIME_DIR"_s);
    const QString folder = m_folder->filePath(u"aquilane-0"_s);
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(chown(QFile::encodeName(folder).constData(), 65534, 65534), 0);
    QVERIFY(QDir().mkpath(m_folder->filePath(u"config"_s)));
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    QCOMPARE(PLNamesIn(folder), QStringList());
    QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::aLinkWhereTheFolderShouldBeIsNotFollowed()
{
    m_environment.remove(u"XDG_RUNTIME_DIR"_s);
    const QString target = m_folder->filePath(u"target"_s);
    QVERIFY(QDir().mkpath(target));
    QVERIFY(QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(QFile::link(target, m_folder->filePath(u"aquilane-%1"_s.arg(getuid()))));
    QVERIFY(QDir().mkpath(m_folder->filePath(u"config"_s)));
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    QCOMPARE(PLNamesIn(target), QStringList());
    QVERIFY(handsOverTo(program));
}

void PLSingleInstanceTest::linksWhereTheFilesShouldBeAreNotFollowed()
{
    const QString kept = m_folder->filePath(u"kept"_s);
    QVERIFY(PLMakeFile(kept, "kept"));
    for (const QString &name : {u"run/aquilane.lock"_s, u"run/aquilane.socket"_s})
        QVERIFY(QFile::link(kept, m_folder->filePath(name)));
    Start program(m_environment);
    QCOMPARE(program.line(), QByteArray("first"));
    QCOMPARE(program.line(), QByteArray("listening"));
    QCOMPARE(PLBytesOf(kept), QByteArray("kept"));
    QVERIFY(!QFile::exists(m_folder->filePath(u"run/aquilane.lock"_s)) ||
            QFileInfo(m_folder->filePath(u"run/aquilane.lock"_s)).isSymLink());
}

/// Even if every door on the way to the socket has been opened.
void PLSingleInstanceTest::anotherUserIsNotHeard()
{
    if (geteuid() != 0)
        QSKIP("Only the superuser can act as somebody else");
    Start program(m_environment);
    program.line();
    program.line();
    const auto everything = QFile::Permissions(0x7777);
    for (const QString &path : {m_folder->path(), m_folder->filePath(u"run"_s), socketPath()})
        QVERIFY(QFile::setPermissions(path, everything));
    QVERIFY(QDir().mkpath(m_folder->filePath(u"nobody"_s)));
    {
        const PLOrdinaryUser nobody(m_folder->filePath(u"nobody"_s));
        QLocalSocket socket;
        socket.connectToServer(socketPath());
        QVERIFY(socket.waitForConnected(patience));
        socket.write("{\"paths\":[\"/b\"]}\n");
        QVERIFY(socket.state() != QLocalSocket::ConnectedState || socket.waitForDisconnected(patience));
        QCOMPARE(socket.readAll(), QByteArray()); // not even an answer
    }
    QVERIFY(QFile::setPermissions(m_folder->filePath(u"run"_s), QFile::Permissions(0x7000)));
    QVERIFY(handsOverTo(program)); // which shows too that nothing was taken for a request
}

/// It would learn the paths, and keep the program from starting by saying that it has taken them.
void PLSingleInstanceTest::anotherUsersSocketIsNotSpokenTo()
{
    if (geteuid() != 0)
        QSKIP("Only the superuser can act as somebody else");
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7777)));
    const auto heard = [this](bool isOwn) {
        const QString folder = m_folder->filePath(isOwn ? u"own"_s : u"nobody"_s);
        QDir().mkpath(folder);
        std::unique_ptr<PLOrdinaryUser> nobody;
        if (!isOwn)
            nobody = std::make_unique<PLOrdinaryUser>(folder);
        QByteArray received;
        SocketThatSaysYes socket(folder + u"/socket"_s);
        nobody.reset();
        std::thread listener([&] { received = socket.hear(); });
        const bool isTaken = PLLineServer::send(folder + u"/socket"_s, "path", 2000);
        listener.join();
        return isTaken ? received : received + " refused";
    };
    QCOMPARE(heard(true), QByteArray("path\n"));
    QCOMPARE(heard(false), QByteArray(" refused"));
}

QTEST_GUILESS_MAIN(PLSingleInstanceTest)
#include "PLSingleInstanceTest.moc"
