// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"

#include "storage/PLFolderReader.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QElapsedTimer>
#include <QTest>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class PLFilesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readingGivesTheBytes_data();
    void readingGivesTheBytes();
    void readingStopsAtTheLimit_data();
    void readingStopsAtTheLimit();
    void readingAFileWithoutASizeGivesAllOfIt();
    void whatIsNotAFileIsAnErrorAtOnce_data();
    void whatIsNotAFileIsAnErrorAtOnce();
    void aFileThatIsTooLargeIsAnErrorAtOnce();

    void movingRenames();
    void movingToAnotherFolder();
    void replacingTakesThePlaceOfAFile();
    void copyingMakesAFileOfItsOwn();
    void copyingNeverTakesThePlaceOfAFile();
    void deletingKeepsFoldersAndWhatLinksLeadTo();
    void movingNeverTakesThePlaceOfAFile_data();
    void movingNeverTakesThePlaceOfAFile();
    void movingALinkMovesTheLink();
    void movingWhatIsNotThereIsAnError();

    void creatingAFolderCreatesThoseAboveIt();
    void creatingAFolderThatIsThereSucceeds_data();
    void creatingAFolderThatIsThereSucceeds();
    void creatingAFolderOverAFileIsAnError();

    void somethingExistsEvenIfItIsADanglingLink();
    void aFolderIsTheSameByEveryName_data();
    void aFolderIsTheSameByEveryName();
    void listingGivesAllButFolders();
    void listingLeavesOutNamesThatAreNotUnicode();
    void listingAMissingFolderIsEmpty();
    void theStartOfAFileIsReadInItsFolder();
    void sweepingDeletesTemporaryFilesOnly();
    void pathsAreStandardized_data();
    void pathsAreStandardized();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLFilesTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void PLFilesTest::readingGivesTheBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("an empty file") << QByteArray("");
    QTest::newRow("one byte") << QByteArray("a");
    QTest::newRow("every byte as it is") << QByteArray("\r\n\0\xFF", 4);
    QTest::newRow("1 MB") << QByteArray(1'000'000, 'x');
}

void PLFilesTest::readingGivesTheBytes()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(PLMakeFile(path(u"page.md"_s), bytes));
    QVERIFY(QFile::link(u"page.md"_s, path(u"link.md"_s)));
    QCOMPARE(PLReadFile(path(u"page.md"_s)).value(), bytes);
    QCOMPARE(PLReadFile(path(u"link.md"_s)).value(), bytes);
}

void PLFilesTest::readingStopsAtTheLimit_data()
{
    QTest::addColumn<qint64>("limit");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << qint64(0) << QByteArray("");
    QTest::newRow("a part") << qint64(3) << QByteArray("012");
    QTest::newRow("all") << qint64(10) << QByteArray("0123456789");
    QTest::newRow("more than there is") << qint64(11) << QByteArray("0123456789");
}

void PLFilesTest::readingStopsAtTheLimit()
{
    QFETCH(qint64, limit);
    QFETCH(QByteArray, bytes);
    QVERIFY(PLMakeFile(path(u"page.md"_s), "0123456789"));
    QCOMPARE(PLReadFile(path(u"page.md"_s), nullptr, limit).value(), bytes);
}

void PLFilesTest::readingAFileWithoutASizeGivesAllOfIt()
{
    // The system's own files say that they are 0 bytes long.
    const QString file = u"/proc/self/status"_s;
    if (!QFile::exists(file))
        QSKIP("no such file on this system");
    QVERIFY(PLReadFile(file).value().size() > 100);
}

void PLFilesTest::whatIsNotAFileIsAnErrorAtOnce_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("code");
    QTest::newRow("a folder") << u"folder"_s << EISDIR;
    QTest::newRow("a pipe") << u"pipe"_s << EINVAL;
    QTest::newRow("a device") << u"device"_s << EINVAL;
    QTest::newRow("a loop of links") << u"loop"_s << ELOOP;
    QTest::newRow("a dangling link") << u"dangling"_s << ENOENT;
    QTest::newRow("nothing") << u"nothing"_s << ENOENT;
    QTest::newRow("something in a file") << u"file/page"_s << ENOTDIR;
}

void PLFilesTest::whatIsNotAFileIsAnErrorAtOnce()
{
    QFETCH(QString, name);
    QFETCH(int, code);
    QVERIFY(QDir().mkpath(path(u"folder"_s)));
    QVERIFY(PLMakeFile(path(u"file"_s)));
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    QVERIFY(QFile::link(u"/dev/zero"_s, path(u"device"_s)));
    QVERIFY(QFile::link(u"loop"_s, path(u"loop"_s)));
    QVERIFY(QFile::link(u"not there"_s, path(u"dangling"_s)));

    QElapsedTimer timer;
    timer.start();
    PLError error;
    QVERIFY(!PLReadFile(path(name), &error));
    QCOMPARE(error.domain, PLFileErrorDomain);
    QCOMPARE(error.code, code);
    QVERIFY(!error.message.isEmpty());
    QVERIFY(timer.elapsed() < 1000);
}

void PLFilesTest::aFileThatIsTooLargeIsAnErrorAtOnce()
{
    QFile file(path(u"page.md"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(PLLargestFileSize + 1)); // a hole: no disk is used
    PLError error;
    QVERIFY(!PLReadFile(path(u"page.md"_s), &error));
    QCOMPARE(error.code, EFBIG);
}

void PLFilesTest::movingRenames()
{
    QVERIFY(PLMakeFile(path(u"a.md"_s), "a"));
    QVERIFY(PLMoveFile(path(u"a.md"_s), path(u"b.md"_s)));
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"b.md"_s});
    QCOMPARE(PLBytesOf(path(u"b.md"_s)), "a");
}

void PLFilesTest::movingToAnotherFolder()
{
    QVERIFY(PLMakeFile(path(u"one/a.md"_s), "a"));
    QVERIFY(QDir().mkpath(path(u"two"_s)));
    QVERIFY(PLMoveFile(path(u"one/a.md"_s), path(u"two/b.md"_s)));
    QCOMPARE(PLNamesIn(path(u"one"_s)), QStringList{});
    QCOMPARE(PLBytesOf(path(u"two/b.md"_s)), "a");
}

void PLFilesTest::replacingTakesThePlaceOfAFile()
{
    QVERIFY(PLMakeFile(path(u"a.png"_s), "a"));
    QVERIFY(PLMakeFile(path(u"b.png"_s), "b"));
    QVERIFY(PLReplaceFile(path(u"a.png"_s), path(u"b.png"_s)));
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"b.png"_s});
    QCOMPARE(PLBytesOf(path(u"b.png"_s)), "a");
    PLError error;
    QVERIFY(!PLReplaceFile(path(u"a.png"_s), path(u"b.png"_s), &error));
    QCOMPARE(error.code, ENOENT);
    QCOMPARE(PLBytesOf(path(u"b.png"_s)), "a");
}

void PLFilesTest::copyingMakesAFileOfItsOwn()
{
    for (const int size : {0, 1, 256 * 1024, 256 * 1024 + 1}) {
        QVERIFY(PLMakeFile(path(u"a.png"_s), QByteArray(size, 'a')));
        QVERIFY(PLCopyFile(path(u"a.png"_s), path(u"b.png"_s)));
        QCOMPARE(PLBytesOf(path(u"b.png"_s)), QByteArray(size, 'a'));
        QVERIFY(PLDeleteFile(path(u"b.png"_s)));
        QVERIFY(QFile::exists(path(u"a.png"_s)));
    }
}

void PLFilesTest::copyingNeverTakesThePlaceOfAFile()
{
    QVERIFY(PLMakeFile(path(u"a.png"_s), "a"));
    QVERIFY(PLMakeFile(path(u"b.png"_s), "b"));
    QVERIFY(QFile::link(u"nowhere"_s, path(u"link.png"_s)));
    for (const QString &target : {u"b.png"_s, u"link.png"_s, u"a.png"_s}) {
        PLError error;
        QVERIFY(!PLCopyFile(path(u"a.png"_s), path(target), &error));
        QCOMPARE(error.code, EEXIST);
    }
    QCOMPARE(PLBytesOf(path(u"b.png"_s)), "b");
    QCOMPARE(PLBytesOf(path(u"a.png"_s)), "a");
    QVERIFY(!QFile::exists(path(u"nowhere"_s)));
}

void PLFilesTest::deletingKeepsFoldersAndWhatLinksLeadTo()
{
    QVERIFY(PLMakeFile(path(u"a.png"_s), "a"));
    QVERIFY(QFile::link(u"a.png"_s, path(u"link.png"_s)));
    QVERIFY(PLDeleteFile(path(u"link.png"_s)));
    QVERIFY(PLDeleteFile(path(u"link.png"_s))); // there is none any more
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{u"a.png"_s});
    QVERIFY(QDir().mkpath(path(u"folder"_s)));
    PLError error;
    QVERIFY(!PLDeleteFile(path(u"folder"_s), &error));
    QCOMPARE(error.code, EISDIR);
    QVERIFY(QFile::exists(path(u"folder"_s)));
}

void PLFilesTest::movingNeverTakesThePlaceOfAFile_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("a file") << u"file"_s;
    QTest::newRow("a folder") << u"folder"_s;
    QTest::newRow("a dangling link") << u"link"_s;
    QTest::newRow("itself") << u"a.md"_s;
}

void PLFilesTest::movingNeverTakesThePlaceOfAFile()
{
    QFETCH(QString, target);
    QVERIFY(PLMakeFile(path(u"a.md"_s), "a"));
    QVERIFY(PLMakeFile(path(u"file"_s), "f"));
    QVERIFY(QDir().mkpath(path(u"folder"_s)));
    QVERIFY(QFile::link(u"not there"_s, path(u"link"_s)));
    const QStringList before = PLNamesIn(m_folder->path());

    PLError error;
    QVERIFY(!PLMoveFile(path(u"a.md"_s), path(target), &error));
    QCOMPARE(error.code, EEXIST);
    QCOMPARE(PLNamesIn(m_folder->path()), before);
    QCOMPARE(PLBytesOf(path(u"a.md"_s)), "a");
    QCOMPARE(PLBytesOf(path(u"file"_s)), "f");
}

void PLFilesTest::movingALinkMovesTheLink()
{
    QVERIFY(PLMakeFile(path(u"target"_s), "t"));
    QVERIFY(QFile::link(u"target"_s, path(u"a.md"_s)));
    QVERIFY(PLMoveFile(path(u"a.md"_s), path(u"b.md"_s)));
    QVERIFY(QFileInfo(path(u"b.md"_s)).isSymLink());
    QCOMPARE(PLNamesIn(m_folder->path()), (QStringList{u"b.md"_s, u"target"_s}));
}

void PLFilesTest::movingWhatIsNotThereIsAnError()
{
    PLError error;
    QVERIFY(!PLMoveFile(path(u"a.md"_s), path(u"b.md"_s), &error));
    QCOMPARE(error.code, ENOENT);
    QVERIFY(PLMakeFile(path(u"a.md"_s), "a"));
    QVERIFY(!PLMoveFile(path(u"a.md"_s), path(u"nowhere/b.md"_s), &error));
    QCOMPARE(error.code, ENOENT);
    QCOMPARE(PLBytesOf(path(u"a.md"_s)), "a");
}

void PLFilesTest::creatingAFolderCreatesThoseAboveIt()
{
    QVERIFY(PLCreateFolder(path(u"a/b é/c/"_s)));
    QVERIFY(QFileInfo(path(u"a/b é/c"_s)).isDir());
}

void PLFilesTest::creatingAFolderThatIsThereSucceeds_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder") << u"folder"_s;
    QTest::newRow("with a slash") << u"folder/"_s;
    QTest::newRow("a link to a folder") << u"link"_s;
    QTest::newRow("the test's own") << u"."_s;
}

void PLFilesTest::creatingAFolderThatIsThereSucceeds()
{
    QFETCH(QString, name);
    QVERIFY(PLMakeFile(path(u"folder/page.md"_s), "a"));
    QVERIFY(QFile::link(u"folder"_s, path(u"link"_s)));
    QVERIFY(PLCreateFolder(path(name)));
    QCOMPARE(PLBytesOf(path(u"folder/page.md"_s)), "a");
}

void PLFilesTest::creatingAFolderOverAFileIsAnError()
{
    QVERIFY(PLMakeFile(path(u"file"_s), "a"));
    PLError error;
    QVERIFY(!PLCreateFolder(path(u"file"_s), &error));
    QCOMPARE(error.code, EEXIST);
    QVERIFY(!PLCreateFolder(path(u"file/folder"_s), &error));
    QCOMPARE(error.domain, PLFileErrorDomain);
    QCOMPARE(PLBytesOf(path(u"file"_s)), "a");
    QVERIFY(!PLCreateFolder(QString(), &error));
    QCOMPARE(error.code, ENOENT);
}

void PLFilesTest::somethingExistsEvenIfItIsADanglingLink()
{
    QVERIFY(PLMakeFile(path(u"file"_s)));
    QVERIFY(QFile::link(u"not there"_s, path(u"link"_s)));
    QVERIFY(PLSomethingExistsAt(path(u"file"_s)));
    QVERIFY(PLSomethingExistsAt(path(u"link"_s)));
    QVERIFY(PLSomethingExistsAt(m_folder->path()));
    QVERIFY(!PLSomethingExistsAt(path(u"nothing"_s)));
    QVERIFY(!PLSomethingExistsAt(path(u"file\0"_s)));
}

void PLFilesTest::aFolderIsTheSameByEveryName_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<bool>("isSame");
    QTest::newRow("its name") << u"one"_s << u"one"_s << true;
    QTest::newRow("with a slash") << u"one"_s << u"one/"_s << true;
    QTest::newRow("a link") << u"one"_s << u"link"_s << true;
    QTest::newRow("a link to a link") << u"link"_s << u"link to link"_s << true;
    QTest::newRow("through itself") << u"one"_s << u"one/../link"_s << true;
    QTest::newRow("another folder") << u"one"_s << u"two"_s << false;
    QTest::newRow("a folder in it") << u"one"_s << u"one/two"_s << false;
    QTest::newRow("a file and itself") << u"file"_s << u"file"_s << false;
    QTest::newRow("nothing and itself") << u"nowhere"_s << u"nowhere"_s << false;
    QTest::newRow("a dangling link and itself") << u"dangling"_s << u"dangling"_s << false;
}

void PLFilesTest::aFolderIsTheSameByEveryName()
{
    QFETCH(const QString, left);
    QFETCH(const QString, right);
    QFETCH(const bool, isSame);
    QVERIFY(QDir().mkpath(path(u"one/two"_s)) && QDir().mkdir(path(u"two"_s)));
    QVERIFY(PLMakeFile(path(u"file"_s)) && QFile::link(path(u"nowhere"_s), path(u"dangling"_s)));
    QVERIFY(QFile::link(path(u"one"_s), path(u"link"_s)));
    QVERIFY(QFile::link(path(u"link"_s), path(u"link to link"_s)));
    QCOMPARE(PLIsSameFolder(path(left), path(right)), isSame);
    QCOMPARE(PLIsSameFolder(path(right), path(left)), isSame);
}

void PLFilesTest::listingGivesAllButFolders()
{
    QVERIFY(PLMakeFile(path(u"a.md"_s)));
    QVERIFY(PLMakeFile(path(u".hidden"_s)));
    QVERIFY(PLMakeFile(path(u"folder/inside"_s)));
    QVERIFY(QFile::link(u"a.md"_s, path(u"link to a file"_s)));
    QVERIFY(QFile::link(u"folder"_s, path(u"link to a folder"_s)));
    QVERIFY(QFile::link(u"not there"_s, path(u"dangling"_s)));
    QVERIFY(QFile::link(u"loop"_s, path(u"loop"_s)));
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);

    QStringList names = PLFileNamesInFolder(m_folder->path());
    names.sort();
    QCOMPARE(names, (QStringList{u".hidden"_s, u"a.md"_s, u"dangling"_s, u"link to a file"_s, u"loop"_s,
                                 u"pipe"_s}));
}

void PLFilesTest::listingLeavesOutNamesThatAreNotUnicode()
{
    const QByteArray name = QFile::encodeName(m_folder->path()) + "/caf\xE9.md";
    if (::mknod(name.constData(), S_IFREG | 0600, 0) != 0)
        QSKIP("this disk takes no such name");
    QVERIFY(PLMakeFile(path(u"café.md"_s)));
    QCOMPARE(PLFileNamesInFolder(m_folder->path()), QStringList{u"café.md"_s});
    ::unlink(name.constData()); // the toolkit cannot name it, so it cannot clean up either
}

void PLFilesTest::listingAMissingFolderIsEmpty()
{
    QVERIFY(PLMakeFile(path(u"file"_s)));
    QCOMPARE(PLFileNamesInFolder(path(u"nowhere"_s)), QStringList{});
    QCOMPARE(PLFileNamesInFolder(path(u"file"_s)), QStringList{});
}

void PLFilesTest::theStartOfAFileIsReadInItsFolder()
{
    const QByteArray large(PLFolderReader::startSize + 1, 'x');
    QVERIFY(PLMakeFile(path(u"large"_s), large));
    QVERIFY(PLMakeFile(path(u"small"_s), "y"));
    QVERIFY(PLMakeFile(path(u"empty"_s)));
    QVERIFY(QFile::link(u"small"_s, path(u"link"_s)));
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    QHash<QString, QByteArray> starts;
    PLFolderReader reader(m_folder->path());
    QVERIFY(!reader.start()); // there is no file yet
    while (reader.next()) {
        const std::optional<QByteArrayView> start = reader.start();
        starts.insert(reader.name(), start ? start->toByteArray() : "nothing"_ba);
    }
    const QHash<QString, QByteArray> expected{{u"large"_s, large.first(PLFolderReader::startSize)},
                                              {u"small"_s, "y"_ba},
                                              {u"empty"_s, ""_ba},
                                              {u"link"_s, "nothing"_ba},
                                              {u"pipe"_s, "nothing"_ba}};
    QCOMPARE(starts, expected);
    QVERIFY(!reader.start()); // the last file is behind
}

void PLFilesTest::sweepingDeletesTemporaryFilesOnly()
{
    const QStringList kept{u".aquilane-0123456.tmp"_s,   u".aquilane-0123456g.tmp"_s,
                           u".aquilane-012345678.tmp"_s, u".aquilane-0123ABCD.tmp"_s,
                           u".aquilane-01234567.md"_s,   u"aquilane-01234567.tmp"_s,
                           u"x.aquilane-01234567.tmp"_s, u"a.md"_s};
    for (const QString &name : kept + QStringList{u".aquilane-01234567.tmp"_s, u".aquilane-89abcdef.tmp"_s})
        QVERIFY(PLMakeFile(path(name), "a"));
    QVERIFY(QDir().mkpath(path(u".aquilane-aaaaaaaa.tmp"_s)));
    QVERIFY(QFile::link(u"a.md"_s, path(u".aquilane-bbbbbbbb.tmp"_s)));

    PLSweepTemporaryFiles(m_folder->path());
    QStringList expected = kept + QStringList{u".aquilane-aaaaaaaa.tmp"_s, u".aquilane-bbbbbbbb.tmp"_s};
    expected.sort();
    QCOMPARE(PLNamesIn(m_folder->path()), expected);
}

void PLFilesTest::pathsAreStandardized_data()
{
    QTest::addColumn<QUrl>("url");
    QTest::addColumn<QString>("standardized");
    QTest::newRow("as it is") << QUrl::fromLocalFile(u"/a/b.md"_s) << u"/a/b.md"_s;
    QTest::newRow("a slash at the end") << QUrl::fromLocalFile(u"/a/b/"_s) << u"/a/b"_s;
    QTest::newRow("dots") << QUrl::fromLocalFile(u"/a/./c/../b"_s) << u"/a/b"_s;
    QTest::newRow("double slashes") << QUrl::fromLocalFile(u"/a//b"_s) << u"/a/b"_s;
    QTest::newRow("the root") << QUrl::fromLocalFile(u"/"_s) << u"/"_s;
    QTest::newRow("signs of an address")
        << QUrl::fromLocalFile(u"/a/100%25 #1?.md"_s) << u"/a/100%25 #1?.md"_s;
    QTest::newRow("a line end") << QUrl::fromLocalFile(u"/a\nb"_s) << u"/a\nb"_s;
    QTest::newRow("no URL") << QUrl() << QString();
}

void PLFilesTest::pathsAreStandardized()
{
    QFETCH(QUrl, url);
    QFETCH(QString, standardized);
    QCOMPARE(PLStandardizedPath(url), standardized);
}

QTEST_GUILESS_MAIN(PLFilesTest)
#include "PLFilesTest.moc"
