// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLTrash.h"

#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QDateTime>
#include <QTest>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// The trash of Linux desktops. Its folder is on the disk of the temporary folder, as $XDG_DATA_HOME says.
class PLTrashTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aFileGoesToTheHomeTrash();
    void theTrashIsForItsOwnerOnly();
    void namesCanBeRestored_data();
    void namesCanBeRestored();
    void aSecondFileOfTheSameNameGetsAnother();
    void aFileThatLostItsInformationIsNotOverwritten();
    void informationThatLostItsFileIsNotOverwritten();
    void longNamesFit_data();
    void longNamesFit();
    void aLinkGoesToTheTrashItself();
    void aPathThroughALinkIsRememberedWithoutIt();
    void whatIsNotThereIsAnError();
    void withoutATrashTheFileStays();
    void aTrashThatIsALinkIsNotUsed();
    void aFileOnAnotherDiskGoesToThatDisksTrash();
    void aPageGoesToTheTrash();
    void aPageThatCannotBeTrashedIsAnError_data();
    void aPageThatCannotBeTrashedIsAnError();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString trashed(const QString &name) const { return path(u"data/Trash/files/"_s + name); }

    /// The value of a line of an information file.
    static QByteArray informationIn(const QString &infoFile, const QByteArray &field)
    {
        const QList<QByteArray> lines = PLBytesOf(infoFile).split('\n');
        for (const QByteArray &line : lines) {
            if (lines.first() == "[Trash Info]" && line.startsWith(field + '='))
                return line.sliced(field.size() + 1);
        }
        return QByteArray();
    }
    QByteArray information(const QString &name, const QByteArray &field) const
    {
        return informationIn(path(u"data/Trash/info/"_s + name + u".trashinfo"_s), field);
    }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLTrashTest::init()
{
    m_environment.setLanguage(u"fr"_s);
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"data"_s)));
}

void PLTrashTest::aFileGoesToTheHomeTrash()
{
    QVERIFY(PLMakeFile(path(u"notes/Marie.md"_s), "text"));
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    PLError error;
    QVERIFY2(PLMoveToTrash(path(u"notes/Marie.md"_s), &error), qPrintable(error.message));
    QCOMPARE(PLNamesIn(path(u"notes"_s)), QStringList{});
    QCOMPARE(PLNamesIn(path(u"data/Trash"_s)), (QStringList{u"files"_s, u"info"_s}));
    QCOMPARE(PLNamesIn(path(u"data/Trash/files"_s)), QStringList{u"Marie.md"_s});
    QCOMPARE(PLNamesIn(path(u"data/Trash/info"_s)), QStringList{u"Marie.md.trashinfo"_s});
    QCOMPARE(PLBytesOf(trashed(u"Marie.md"_s)), "text");
    QCOMPARE(information(u"Marie.md"_s, "Path"), path(u"notes/Marie.md"_s).toUtf8());
    const QString date = QString::fromLatin1(information(u"Marie.md"_s, "DeletionDate"));
    QCOMPARE(date.size(), 19);
    const QDateTime moment = QDateTime::fromString(date, Qt::ISODate); // local time
    QVERIFY(moment >= before && moment <= QDateTime::currentDateTime());
}

void PLTrashTest::theTrashIsForItsOwnerOnly()
{
    QVERIFY(PLMakeFile(path(u"a.md"_s)));
    QVERIFY(PLMoveToTrash(path(u"a.md"_s)));
    for (const QString &folder : {u"data"_s, u"data/Trash"_s, u"data/Trash/files"_s, u"data/Trash/info"_s}) {
        struct stat status;
        QCOMPARE(::stat(QFile::encodeName(path(folder)).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, mode_t(0700));
    }
}

void PLTrashTest::namesCanBeRestored_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("accents and spaces") << u"Éléonore à la plage.md"_s;
    QTest::newRow("a percent sign") << u"100 % vrai.md"_s;
    QTest::newRow("a percent code") << u"a%20b.md"_s;
    QTest::newRow("a line end") << u"a\nPath=x.md"_s;
    QTest::newRow("signs of an address") << u"?a=b&c#d;e.md"_s;
    QTest::newRow("emoji") << u"👩‍👩‍👧‍👦.md"_s;
    QTest::newRow("no extension") << u"brouillon"_s;
    QTest::newRow("a leading dash") << u"-rf"_s;
}

void PLTrashTest::namesCanBeRestored()
{
    QFETCH(QString, name);
    const QString original = path(u"dossier 100%/"_s + name);
    QVERIFY(PLMakeFile(original, "text"));
    QVERIFY(PLMoveToTrash(original));
    QCOMPARE(PLBytesOf(trashed(name)), "text");
    const QByteArray remembered = information(name, "Path");
    QCOMPARE(QString::fromUtf8(QByteArray::fromPercentEncoding(remembered)), original);
    for (const char character : remembered) // as the trash rules say: a path of an address
        QVERIFY(character > ' ' && character < 0x7F);
}

void PLTrashTest::aSecondFileOfTheSameNameGetsAnother()
{
    for (const QByteArray &text : {QByteArray("1"), QByteArray("2"), QByteArray("3")}) {
        QVERIFY(PLMakeFile(path(u"Marie.md"_s), text));
        QVERIFY(PLMoveToTrash(path(u"Marie.md"_s)));
    }
    QCOMPARE(PLNamesIn(path(u"data/Trash/files"_s)),
             (QStringList{u"Marie 2.md"_s, u"Marie 3.md"_s, u"Marie.md"_s}));
    QCOMPARE(PLBytesOf(trashed(u"Marie.md"_s)), "1");
    QCOMPARE(PLBytesOf(trashed(u"Marie 2.md"_s)), "2");
    QCOMPARE(PLBytesOf(trashed(u"Marie 3.md"_s)), "3");
    for (const QString &name : {u"Marie.md"_s, u"Marie 2.md"_s, u"Marie 3.md"_s})
        QCOMPARE(information(name, "Path"), path(u"Marie.md"_s).toUtf8());
}

void PLTrashTest::aFileThatLostItsInformationIsNotOverwritten()
{
    QVERIFY(PLMakeFile(trashed(u"Marie.md"_s), "old"));
    QVERIFY(PLMakeFile(path(u"Marie.md"_s), "new"));
    QVERIFY(PLMoveToTrash(path(u"Marie.md"_s)));
    QCOMPARE(PLBytesOf(trashed(u"Marie.md"_s)), "old");
    QCOMPARE(PLBytesOf(trashed(u"Marie 2.md"_s)), "new");
    QCOMPARE(PLNamesIn(path(u"data/Trash/info"_s)), QStringList{u"Marie 2.md.trashinfo"_s});
}

void PLTrashTest::informationThatLostItsFileIsNotOverwritten()
{
    QVERIFY(PLMakeFile(path(u"data/Trash/info/Marie.md.trashinfo"_s), "old"));
    QVERIFY(PLMakeFile(path(u"Marie.md"_s), "new"));
    QVERIFY(PLMoveToTrash(path(u"Marie.md"_s)));
    QCOMPARE(PLBytesOf(path(u"data/Trash/info/Marie.md.trashinfo"_s)), "old");
    QCOMPARE(PLBytesOf(trashed(u"Marie 2.md"_s)), "new");
}

void PLTrashTest::longNamesFit_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("255 bytes") << QString(252, u'x') + u".md"_s;
    QTest::newRow("255 bytes of Chinese") << QString(84, u'漢') + u".md"_s;
    QTest::newRow("255 bytes without an extension") << QString(255, u'x');
    QTest::newRow("255 bytes, nearly all extension") << u"a."_s + QString(253, u'x');
}

void PLTrashTest::longNamesFit()
{
    QFETCH(QString, name);
    for (int count = 1; count <= 2; ++count) {
        QVERIFY(PLMakeFile(path(name), "text"));
        PLError error;
        QVERIFY2(PLMoveToTrash(path(name), &error), qPrintable(error.message));
    }
    const QStringList names = PLNamesIn(path(u"data/Trash/files"_s));
    QCOMPARE(names.size(), 2);
    for (const QString &trashName : names)
        QCOMPARE(information(trashName, "Path"), path(name).toUtf8().toPercentEncoding("/"));
}

void PLTrashTest::aLinkGoesToTheTrashItself()
{
    QVERIFY(PLMakeFile(path(u"target"_s), "text"));
    QVERIFY(QFile::link(path(u"target"_s), path(u"link.md"_s)));
    QVERIFY(PLMoveToTrash(path(u"link.md"_s)));
    QCOMPARE(PLBytesOf(path(u"target"_s)), "text");
    QVERIFY(QFileInfo(trashed(u"link.md"_s)).isSymLink());
}

void PLTrashTest::aPathThroughALinkIsRememberedWithoutIt()
{
    QVERIFY(PLMakeFile(path(u"real/a.md"_s), "text"));
    QVERIFY(QFile::link(u"real"_s, path(u"link"_s)));
    QVERIFY(PLMoveToTrash(path(u"link/a.md"_s)));
    QCOMPARE(information(u"a.md"_s, "Path"), path(u"real/a.md"_s).toUtf8());
}

void PLTrashTest::whatIsNotThereIsAnError()
{
    PLError error;
    QVERIFY(!PLMoveToTrash(path(u"nothing.md"_s), &error));
    QCOMPARE(error.code, ENOENT);
    QVERIFY(!PLMoveToTrash(path(u"nowhere/nothing.md"_s), &error));
    QCOMPARE(error.code, ENOENT);
    QVERIFY(!QFile::exists(path(u"data"_s)));
}

void PLTrashTest::withoutATrashTheFileStays()
{
    QVERIFY(PLMakeFile(path(u"data"_s))); // where the folder should be
    QVERIFY(PLMakeFile(path(u"a.md"_s), "text"));
    PLError error;
    QVERIFY(!PLMoveToTrash(path(u"a.md"_s), &error));
    QCOMPARE(error.domain, PLFileErrorDomain);
    QVERIFY(!error.message.isEmpty());
    QCOMPARE(PLBytesOf(path(u"a.md"_s)), "text");
    QCOMPARE(PLNamesIn(m_folder->path()), (QStringList{u"a.md"_s, u"data"_s}));
}

void PLTrashTest::aTrashThatIsALinkIsNotUsed()
{
    QVERIFY(QDir().mkpath(path(u"elsewhere"_s)));
    QVERIFY(QDir().mkpath(path(u"data/Trash"_s)));
    QVERIFY(QFile::link(path(u"elsewhere"_s), path(u"data/Trash/files"_s)));
    QVERIFY(PLMakeFile(path(u"a.md"_s), "text"));
    QVERIFY(!PLMoveToTrash(path(u"a.md"_s)));
    QCOMPARE(PLBytesOf(path(u"a.md"_s)), "text");
    QCOMPARE(PLNamesIn(path(u"elsewhere"_s)), QStringList{});
}

void PLTrashTest::aFileOnAnotherDiskGoesToThatDisksTrash()
{
    const QString disk = u"/dev/shm"_s;
    struct stat here;
    struct stat there;
    if (::stat(QFile::encodeName(m_folder->path()).constData(), &here) != 0 ||
        ::stat(QFile::encodeName(disk).constData(), &there) != 0 || here.st_dev == there.st_dev)
        QSKIP("no second disk to try on");
    QTemporaryDir folder(disk + u"/aquilane-XXXXXX"_s);
    if (!folder.isValid())
        QSKIP("the second disk cannot be written to");
    const QString name = QFileInfo(folder.path()).fileName() + u" 100%.md"_s; // unique on the whole disk
    QVERIFY(PLMakeFile(folder.filePath(name), "text"));
    PLError error;
    QVERIFY2(PLMoveToTrash(folder.filePath(name), &error), qPrintable(error.message));

    const QString user = QString::number(::getuid());
    const QString shared = disk + u"/.Trash/"_s + user;
    const QString trash = QFile::exists(shared + u"/files/"_s + name) ? shared : disk + u"/.Trash-"_s + user;
    const QString info = trash + u"/info/"_s + name + u".trashinfo"_s;
    const QByteArray relative = QDir(disk).relativeFilePath(folder.filePath(name)).toUtf8();
    QCOMPARE(PLBytesOf(trash + u"/files/"_s + name), "text");
    QCOMPARE(informationIn(info, "Path"), relative.toPercentEncoding("/"));
    QVERIFY(!QFile::exists(folder.filePath(name)));
    QVERIFY(QFile::remove(trash + u"/files/"_s + name) && QFile::remove(info));
    for (const QString &emptied : {u"/files"_s, u"/info"_s, u""_s})
        QDir().rmdir(trash + emptied);
}

void PLTrashTest::aPageGoesToTheTrash()
{
    QVERIFY(PLMakeFile(path(u"Roman/projet.md"_s)));
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(path(u"Roman"_s)));
    const auto page = project->createItemInSection(PLSection::Book, u"La fuite"_s);
    QVERIFY(page);
    QVERIFY(project->trashItem(*page));
    QVERIFY(project->itemsInSection(PLSection::Book).empty());
    QCOMPARE(PLBytesOf(trashed(u"01 - La fuite.md"_s)), "# La fuite\n\n");
}

void PLTrashTest::aPageThatCannotBeTrashedIsAnError_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::newRow("French") << u"fr"_s << u"Impossible de mettre « La fuite » à la corbeille."_s;
    QTest::newRow("English") << u"en"_s << u"Couldn't move “La fuite” to the Trash."_s;
}

void PLTrashTest::aPageThatCannotBeTrashedIsAnError()
{
    QFETCH(QString, language);
    m_environment.setLanguage(language);
    QVERIFY(PLMakeFile(path(u"data"_s))); // where the folder should be
    QVERIFY(PLMakeFile(path(u"Roman/Livre/01 - La fuite.md"_s), "text"));
    const QUrl url = QUrl::fromLocalFile(path(u"Roman/Livre/01 - La fuite.md"_s));
    const auto page = PLProjectItem::itemWithURL(url, PLSection::Book);
    const PLProject project(QUrl::fromLocalFile(path(u"Roman"_s)));
    PLError error;
    QVERIFY(!project.trashItem(*page, &error));
    QCOMPARE(error.domain, PLApplicationErrorDomain);
    QCOMPARE(error.code, 1);
    QTEST(error.message, "message");
    QCOMPARE(page->readContents(), u"text"_s);
    QVERIFY(!project.trashItem(*page));
}

QTEST_GUILESS_MAIN(PLTrashTest)
#include "PLTrashTest.moc"
