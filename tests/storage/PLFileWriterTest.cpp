// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "support/PLTestDisk.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QElapsedTimer>
#include <QTest>

#include <cerrno>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#if __has_include(<sys/sysmacros.h>)
#include <sys/sysmacros.h>
#endif

using namespace Qt::StringLiterals;

namespace {

mode_t permissionsOf(const QString &path)
{
    struct stat status;
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

} // namespace

class PLFileWriterTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void whatIsWrittenIsOnDisk_data();
    void whatIsWrittenIsOnDisk();
    void anyNameCanBeWritten_data();
    void anyNameCanBeWritten();
    void permissionsAreKept_data();
    void permissionsAreKept();
    void aNewFileHasTheUsersPermissions();
    void aLinkIsFollowedAndKept_data();
    void aLinkIsFollowedAndKept();
    void aDanglingLinkCreatesTheFileItNames();
    void aChainOfFortyLinksIsFollowedAndOneMoreIsNot();
    void aLoopOfLinksIsAnErrorAndStays();
    void whatIsNotAFileIsNeverReplaced_data();
    void whatIsNotAFileIsNeverReplaced();
    void aFileNobodyMayWriteToIsLeftAlone();
    void aFolderNobodyMayWriteToIsAnError();
    void aMissingFolderIsAnError();
    void aFileWhereAFolderShouldBeIsAnError();
    void aNameThatIsTooLongIsAnError();
    void createNewNeverOverwrites_data();
    void createNewNeverOverwrites();
    void createNewWritesANewFile();
    void aFullDiskKeepsTheOldText_data();
    void aFullDiskKeepsTheOldText();
    void aFullDiskCreatesNothing();
    void theNextWriteAfterAFullDiskSucceeds();
    void theErrorIsASentenceInTheInterfaceLanguage();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLFileWriterTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_environment.setLanguage(u"fr"_s);
}

void PLFileWriterTest::whatIsWrittenIsOnDisk_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("a new file") << QByteArray() << QByteArray("texte");
    QTest::newRow("a new empty file") << QByteArray() << QByteArray("");
    QTest::newRow("a longer text") << QByteArray("a") << QByteArray(100'000, 'b');
    QTest::newRow("a shorter text") << QByteArray(100'000, 'b') << QByteArray("a");
    QTest::newRow("an emptied file") << QByteArray("a") << QByteArray("");
    QTest::newRow("every byte as it is") << QByteArray("a") << QByteArray("\r\n\0\xFF\xFE\r", 6);
    QTest::newRow("10 MB") << QByteArray("a") << QByteArray(10'000'000, 'c');
}

void PLFileWriterTest::whatIsWrittenIsOnDisk()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, data);
    if (!before.isNull())
        QVERIFY(PLMakeFile(path(u"page.md"_s), before));

    PLError error;
    QVERIFY2(PLWriteFile(path(u"page.md"_s), data, PLWriteMode::Replace, &error), qPrintable(error.message));
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), data);
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"page.md"_s});
}

void PLFileWriterTest::anyNameCanBeWritten_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("accents") << u"Éléonore à la plage.md"_s;
    QTest::newRow("signs of an address") << u"100 % #1 ? &.md"_s;
    QTest::newRow("a line end") << u"a\nb.md"_s;
    QTest::newRow("a leading dash") << u"-rf.md"_s;
    QTest::newRow("255 bytes") << QString(252, u'x') + u".md"_s;
    QTest::newRow("the name of a temporary file") << u".aquilane-01234567.tmp"_s;
}

void PLFileWriterTest::anyNameCanBeWritten()
{
    QFETCH(QString, name);
    for (const QByteArray &text : {QByteArray("un"), QByteArray("deux")}) {
        QVERIFY(PLWriteFile(path(name), text, PLWriteMode::Replace));
        QCOMPARE(PLBytesOf(path(name)), text);
    }
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{name});
}

void PLFileWriterTest::permissionsAreKept_data()
{
    QTest::addColumn<int>("permissions");
    QTest::newRow("for the owner") << 0600;
    QTest::newRow("for the group too") << 0664;
    QTest::newRow("for all to read") << 0644;
    QTest::newRow("executable") << 0755;
}

void PLFileWriterTest::permissionsAreKept()
{
    QFETCH(int, permissions);
    QVERIFY(PLMakeFile(path(u"page.md"_s), "a"));
    QCOMPARE(::chmod(QFile::encodeName(path(u"page.md"_s)).constData(), mode_t(permissions)), 0);
    QVERIFY(PLWriteFile(path(u"page.md"_s), "b", PLWriteMode::Replace));
    QCOMPARE(int(permissionsOf(path(u"page.md"_s))), permissions);
}

void PLFileWriterTest::aNewFileHasTheUsersPermissions()
{
    const mode_t oldMask = ::umask(027);
    const bool isWritten = PLWriteFile(path(u"page.md"_s), "a", PLWriteMode::Replace);
    ::umask(oldMask);
    QVERIFY(isWritten);
    QCOMPARE(permissionsOf(path(u"page.md"_s)), mode_t(0640));
}

void PLFileWriterTest::aLinkIsFollowedAndKept_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("a name beside it") << u"target.md"_s;
    QTest::newRow("a name in a folder") << u"folder/target.md"_s;
    QTest::newRow("a roundabout way") << u"folder/../folder/./target.md"_s;
}

void PLFileWriterTest::aLinkIsFollowedAndKept()
{
    QFETCH(QString, target);
    QVERIFY(PLMakeFile(path(u"folder/target.md"_s), "old"));
    QVERIFY(PLMakeFile(path(u"target.md"_s), "old"));
    QVERIFY(QFile::link(target, path(u"second.md"_s)));
    QVERIFY(QFile::link(path(u"second.md"_s), path(u"page.md"_s)));

    QVERIFY(PLWriteFile(path(u"page.md"_s), "new", PLWriteMode::Replace));
    QVERIFY(QFileInfo(path(u"page.md"_s)).isSymLink());
    QVERIFY(QFileInfo(path(u"second.md"_s)).isSymLink());
    QVERIFY(!QFileInfo(path(target)).isSymLink());
    QCOMPARE(PLBytesOf(path(target)), "new");
}

void PLFileWriterTest::aDanglingLinkCreatesTheFileItNames()
{
    QVERIFY(QFile::link(u"not there yet.md"_s, path(u"page.md"_s)));
    QVERIFY(PLWriteFile(path(u"page.md"_s), "new", PLWriteMode::Replace));
    QVERIFY(QFileInfo(path(u"page.md"_s)).isSymLink());
    QCOMPARE(PLBytesOf(path(u"not there yet.md"_s)), "new");
}

void PLFileWriterTest::aChainOfFortyLinksIsFollowedAndOneMoreIsNot()
{
    QVERIFY(PLMakeFile(path(u"0"_s), "old"));
    for (int number = 1; number <= 41; ++number)
        QVERIFY(QFile::link(QString::number(number - 1), path(QString::number(number))));
    QVERIFY(PLWriteFile(path(u"40"_s), "new", PLWriteMode::Replace));
    QCOMPARE(PLBytesOf(path(u"0"_s)), "new");

    PLError error;
    QVERIFY(!PLWriteFile(path(u"41"_s), "newer", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, ELOOP);
    QCOMPARE(PLBytesOf(path(u"0"_s)), "new");
}

void PLFileWriterTest::aLoopOfLinksIsAnErrorAndStays()
{
    QVERIFY(QFile::link(u"b.md"_s, path(u"a.md"_s)));
    QVERIFY(QFile::link(u"a.md"_s, path(u"b.md"_s)));
    QVERIFY(QFile::link(u"self.md"_s, path(u"self.md"_s)));
    for (const QString &name : {u"a.md"_s, u"b.md"_s, u"self.md"_s}) {
        PLError error;
        QVERIFY(!PLWriteFile(path(name), "new", PLWriteMode::Replace, &error));
        QCOMPARE(error.domain, PLFileErrorDomain);
        QCOMPARE(error.code, ELOOP);
        QVERIFY(QFileInfo(path(name)).isSymLink());
    }
    QCOMPARE(PLNamesIn(m_folder->path()), (QStringList{u"a.md"_s, u"b.md"_s, u"self.md"_s}));
}

void PLFileWriterTest::whatIsNotAFileIsNeverReplaced_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("code");
    QTest::newRow("a folder") << u"folder"_s << EISDIR;
    QTest::newRow("a link to a folder") << u"link"_s << EISDIR;
    QTest::newRow("a pipe") << u"pipe"_s << EINVAL;
    QTest::newRow("a socket") << u"socket"_s << EINVAL;
    QTest::newRow("a device") << u"device"_s << EINVAL;
}

void PLFileWriterTest::whatIsNotAFileIsNeverReplaced()
{
    QFETCH(QString, kind);
    QFETCH(int, code);
    const QString name = path(u"page.md"_s);
    const QByteArray native = QFile::encodeName(name);
    int socket = -1;
    if (kind == u"folder") {
        QVERIFY(QDir().mkpath(name));
    } else if (kind == u"link") {
        QVERIFY(QDir().mkpath(path(u"folder"_s)) && QFile::link(u"folder"_s, name));
    } else if (kind == u"pipe") {
        QCOMPARE(::mkfifo(native.constData(), 0600), 0);
    } else if (kind == u"socket") {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, native.constData(), sizeof address.sun_path);
        socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        QCOMPARE(::bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    } else if (::mknod(native.constData(), S_IFCHR | 0600, makedev(1, 3)) != 0) {
        // Never a link to the system's own: a writer with a fault, run by the superuser, would replace that.
        QSKIP("only the superuser makes devices");
    }
    const QStringList namesBefore = PLNamesIn(m_folder->path());
    struct stat before;
    QCOMPARE(::lstat(native.constData(), &before), 0);

    QElapsedTimer timer;
    timer.start();
    PLError error;
    QVERIFY(!PLWriteFile(name, "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, code);
    QVERIFY(!PLWriteFile(name, "new", PLWriteMode::CreateNew, &error));
    QCOMPARE(error.code, EEXIST);
    QVERIFY(timer.elapsed() < 1000);

    struct stat after;
    QCOMPARE(::lstat(native.constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(PLNamesIn(m_folder->path()), namesBefore);
    if (socket >= 0)
        ::close(socket);
}

void PLFileWriterTest::aFileNobodyMayWriteToIsLeftAlone()
{
    const PLOrdinaryUser user(m_folder->path());
    QVERIFY(PLMakeFile(path(u"page.md"_s), "old"));
    QCOMPARE(::chmod(QFile::encodeName(path(u"page.md"_s)).constData(), 0444), 0);
    PLError error;
    QVERIFY(!PLWriteFile(path(u"page.md"_s), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, EACCES);
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), "old");
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"page.md"_s});
}

void PLFileWriterTest::aFolderNobodyMayWriteToIsAnError()
{
    QVERIFY(PLMakeFile(path(u"page.md"_s), "old"));
    const PLOrdinaryUser user(m_folder->path());
    const QByteArray folder = QFile::encodeName(m_folder->path());
    QCOMPARE(::chmod(folder.constData(), 0500), 0);
    PLError error;
    const bool isWritten = PLWriteFile(path(u"page.md"_s), "new", PLWriteMode::Replace, &error);
    const bool isCreated = PLWriteFile(path(u"new.md"_s), "new", PLWriteMode::CreateNew);
    QCOMPARE(::chmod(folder.constData(), 0700), 0);
    QVERIFY(!isWritten);
    QVERIFY(!isCreated);
    QCOMPARE(error.code, EACCES);
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), "old");
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"page.md"_s});
}

void PLFileWriterTest::aMissingFolderIsAnError()
{
    PLError error;
    QVERIFY(!PLWriteFile(path(u"nowhere/page.md"_s), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, ENOENT);
    QVERIFY(!PLWriteFile(QString(), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, ENOENT);
    QVERIFY(!PLWriteFile(path(u"a\0b.md"_s), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, ENOENT);
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{});
}

void PLFileWriterTest::aFileWhereAFolderShouldBeIsAnError()
{
    QVERIFY(PLMakeFile(path(u"folder"_s), "old"));
    PLError error;
    QVERIFY(!PLWriteFile(path(u"folder/page.md"_s), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, ENOTDIR);
    QCOMPARE(PLBytesOf(path(u"folder"_s)), "old");
}

void PLFileWriterTest::aNameThatIsTooLongIsAnError()
{
    PLError error;
    QVERIFY(!PLWriteFile(path(QString(256, u'x')), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.code, ENAMETOOLONG);
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{});
}

void PLFileWriterTest::createNewNeverOverwrites_data()
{
    QTest::addColumn<QString>("link");
    QTest::newRow("a file") << QString();
    QTest::newRow("a link to a file") << u"target.md"_s;
    QTest::newRow("a dangling link") << u"not there.md"_s;
}

void PLFileWriterTest::createNewNeverOverwrites()
{
    QFETCH(QString, link);
    QVERIFY(PLMakeFile(path(u"target.md"_s), "old"));
    QVERIFY(link.isNull() ? PLMakeFile(path(u"page.md"_s), "old") : QFile::link(link, path(u"page.md"_s)));
    const QStringList namesBefore = PLNamesIn(m_folder->path());
    const QByteArray before = PLBytesOf(path(u"page.md"_s));

    PLError error;
    QVERIFY(!PLWriteFile(path(u"page.md"_s), "new", PLWriteMode::CreateNew, &error));
    QCOMPARE(error.code, EEXIST);
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), before);
    QCOMPARE(PLNamesIn(m_folder->path()), namesBefore);
}

void PLFileWriterTest::createNewWritesANewFile()
{
    QVERIFY(PLWriteFile(path(u"page.md"_s), "new", PLWriteMode::CreateNew));
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), "new");
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"page.md"_s});
}

void PLFileWriterTest::aFullDiskKeepsTheOldText_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("size");
    for (const int room : {0, 1, 4095, 4096, 8192, 16384})
        QTest::addRow("%d bytes of room, one too few", room) << room << room + 1;
    QTest::newRow("a small page") << 8192 << 9000;
    QTest::newRow("1 MB") << 65536 << 1'000'000;
}

void PLFileWriterTest::aFullDiskKeepsTheOldText()
{
    QFETCH(int, room);
    QFETCH(int, size);
    const QByteArray old(20'000, 'o');
    QVERIFY(PLMakeFile(path(u"page.md"_s), old));

    PLError error;
    bool isWritten = true;
    {
        const PLFullDisk disk{rlim_t(room)};
        isWritten = PLWriteFile(path(u"page.md"_s), QByteArray(size, 'n'), PLWriteMode::Replace, &error);
    }
    QVERIFY(!isWritten);
    QCOMPARE(error.domain, PLFileErrorDomain);
    QCOMPARE(error.code, EFBIG); // what the limit answers; a disk that is full says ENOSPC
    QVERIFY(!error.message.isEmpty());
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), old);
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"page.md"_s});
}

void PLFileWriterTest::aFullDiskCreatesNothing()
{
    for (const PLWriteMode mode : {PLWriteMode::Replace, PLWriteMode::CreateNew}) {
        bool isWritten = true;
        {
            const PLFullDisk disk(100);
            isWritten = PLWriteFile(path(u"page.md"_s), QByteArray(200, 'n'), mode);
        }
        QVERIFY(!isWritten);
        QCOMPARE(PLNamesIn(m_folder->path()), QStringList{});
    }
}

void PLFileWriterTest::theNextWriteAfterAFullDiskSucceeds()
{
    QVERIFY(PLMakeFile(path(u"page.md"_s), "old"));
    {
        const PLFullDisk disk(100);
        QVERIFY(!PLWriteFile(path(u"page.md"_s), QByteArray(200, 'n'), PLWriteMode::Replace));
        QVERIFY(PLWriteFile(path(u"page.md"_s), QByteArray(100, 'm'), PLWriteMode::Replace));
    }
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), QByteArray(100, 'm'));
    QVERIFY(PLWriteFile(path(u"page.md"_s), QByteArray(200, 'n'), PLWriteMode::Replace));
    QCOMPARE(PLBytesOf(path(u"page.md"_s)), QByteArray(200, 'n'));
}

void PLFileWriterTest::theErrorIsASentenceInTheInterfaceLanguage()
{
    PLError error;
    QVERIFY(!PLWriteFile(m_folder->path(), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.message, u"C'est un dossier, pas un fichier."_s);
    m_environment.setLanguage(u"en"_s);
    QVERIFY(!PLWriteFile(m_folder->path(), "new", PLWriteMode::Replace, &error));
    QCOMPARE(error.message, u"This is a folder, not a file."_s);
}

QTEST_GUILESS_MAIN(PLFileWriterTest)
#include "PLFileWriterTest.moc"
