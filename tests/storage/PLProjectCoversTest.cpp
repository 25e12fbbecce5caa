// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "storage/PLRecovery.h"
#include "support/PLTestDisk.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QElapsedTimer>
#include <QTest>

#include <cerrno>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList extensions{u"jpg"_s, u"jpeg"_s, u"png"_s, u"gif"_s, u"tif"_s, u"tiff"_s, u"bmp"_s};

} // namespace

class PLProjectCoversTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theExtensionsAreInOrderOfPrecedence();
    void theFirstExtensionThatExistsIsTheCover();
    void aNotebookMayHaveNoCover_data();
    void aNotebookMayHaveNoCover();
    void removingDeletesEveryCover();
    void removingWithoutACoverSucceeds();
    void removingDeletesALinkAndNotWhatItLeadsTo();
    void removingNeverDeletesAFolder();
    void aCoverIsStoredUnderTheLowerCaseExtension_data();
    void aCoverIsStoredUnderTheLowerCaseExtension();
    void aCoverReplacesThoseOfEveryKind_data();
    void aCoverReplacesThoseOfEveryKind();
    void whatIsNotAPictureByItsExtensionIsRefused_data();
    void whatIsNotAPictureByItsExtensionIsRefused();
    void theContentsAreNotExamined();
    void settingTheCurrentCoverTouchesNothing_data();
    void settingTheCurrentCoverTouchesNothing();
    void settingTheCurrentCoverByAnotherPathKeepsIt();
    void aPictureBehindALinkIsCopied();
    void aSourceThatCannotBeReadKeepsTheOldCover_data();
    void aSourceThatCannotBeReadKeepsTheOldCover();
    void aSourceNobodyMayReadKeepsTheOldCover();
    void aFullDiskKeepsTheOldCover();
    void aFolderNobodyMayWriteToKeepsTheOldCover();
    void aFolderNamedAsTheCoverIsNeverReplaced_data();
    void aFolderNamedAsTheCoverIsNeverReplaced();
    void aDanglingLinkInTheWayIsReplaced();
    void aMissingNotebookIsAnError();
    void errorsNeedNotBeAskedFor();
    void unfinishedCoversAreSweptWhenTheNotebookIsOpened();
    void whatOnlyLooksLikeAnUnfinishedCoverStays_data();
    void whatOnlyLooksLikeAnUnfinishedCoverStays();

private:
    QString path(const QString &name = QString()) const { return m_folder->filePath(u"Roman/"_s + name); }
    QUrl url() const { return QUrl::fromLocalFile(path()); }
    QUrl source(const QString &name) const { return QUrl::fromLocalFile(m_folder->filePath(name)); }
    QString coverName() const { return PLProject::coverImageURLForProjectAtURL(url()).fileName(); }
    QStringList names() const { return PLNamesIn(path()); }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLProjectCoversTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(path()));
    m_environment.setLanguage(u"fr"_s);
}

void PLProjectCoversTest::theExtensionsAreInOrderOfPrecedence()
{
    QCOMPARE(PLProject::coverImageExtensions(), extensions);
}

void PLProjectCoversTest::theFirstExtensionThatExistsIsTheCover()
{
    for (auto extension = extensions.rbegin(); extension != extensions.rend(); ++extension) {
        QVERIFY(PLMakeFile(path(u"couverture."_s + *extension)));
        QCOMPARE(PLProject::coverImageURLForProjectAtURL(url()),
                 QUrl::fromLocalFile(path(u"couverture."_s + *extension)));
    }
}

void PLProjectCoversTest::aNotebookMayHaveNoCover_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("an empty folder") << QString();
    QTest::newRow("another extension") << u"couverture.webp"_s;
    QTest::newRow("no extension") << u"couverture"_s;
    QTest::newRow("another name") << u"cover.png"_s;
    QTest::newRow("a picture elsewhere") << u"Notes/couverture.png"_s;
    QTest::newRow("an unfinished copy") << u".couverture-1.png"_s;
}

void PLProjectCoversTest::aNotebookMayHaveNoCover()
{
    QFETCH(QString, name);
    if (!name.isNull())
        QVERIFY(PLMakeFile(path(name)));
    QVERIFY(PLProject::coverImageURLForProjectAtURL(url()).isEmpty());
}

void PLProjectCoversTest::removingDeletesEveryCover()
{
    QVERIFY(PLMakeFile(path(u"couverture.webp"_s)));
    for (const QString &extension : extensions)
        QVERIFY(PLMakeFile(path(u"couverture."_s + extension)));
    QVERIFY(PLProject::removeCoverImageForProjectAtURL(url()));
    QCOMPARE(names(), QStringList{u"couverture.webp"_s});
}

void PLProjectCoversTest::removingWithoutACoverSucceeds()
{
    PLError error;
    QVERIFY(PLProject::removeCoverImageForProjectAtURL(url(), &error));
    QCOMPARE(error.code, 0);
}

void PLProjectCoversTest::removingDeletesALinkAndNotWhatItLeadsTo()
{
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), "photo"));
    QVERIFY(QFile::link(u"../photo.png"_s, path(u"couverture.png"_s)));
    QVERIFY(QFile::link(u"nowhere.png"_s, path(u"couverture.gif"_s)));
    QCOMPARE(coverName(), u"couverture.png"_s);
    QVERIFY(PLProject::removeCoverImageForProjectAtURL(url()));
    QCOMPARE(names(), QStringList{});
    QCOMPARE(PLBytesOf(m_folder->filePath(u"photo.png"_s)), "photo");
}

void PLProjectCoversTest::removingNeverDeletesAFolder()
{
    QVERIFY(PLMakeFile(path(u"couverture.png/notes.md"_s), "mots"));
    PLError error;
    QVERIFY(!PLProject::removeCoverImageForProjectAtURL(url(), &error));
    QCOMPARE(error.domain, PLFileErrorDomain);
    QCOMPARE(error.code, EISDIR);
    QCOMPARE(PLBytesOf(path(u"couverture.png/notes.md"_s)), "mots");
}

void PLProjectCoversTest::aCoverIsStoredUnderTheLowerCaseExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stored");
    for (const QString &extension : extensions)
        QTest::newRow(qPrintable(extension)) << u"photo."_s + extension << u"couverture."_s + extension;
    QTest::newRow("capitals") << u"Photo.JPG"_s << u"couverture.jpg"_s;
    QTest::newRow("mixed case") << u"Photo.Tiff"_s << u"couverture.tiff"_s;
    QTest::newRow("two full stops") << u"archive.pdf.png"_s << u"couverture.png"_s;
    QTest::newRow("spaces and accents") << u"L'été à la mer.png"_s << u"couverture.png"_s;
    QTest::newRow("signs of an address") << u"100%20 #1?.png"_s << u"couverture.png"_s;
}

void PLProjectCoversTest::aCoverIsStoredUnderTheLowerCaseExtension()
{
    QFETCH(QString, name);
    QFETCH(QString, stored);
    const QByteArray picture(700'001, 'x');
    QVERIFY(PLMakeFile(m_folder->filePath(name), picture));
    PLError error;
    QVERIFY2(PLProject::setCoverImageFromURL(source(name), url(), &error), qPrintable(error.message));
    QCOMPARE(names(), QStringList{stored});
    QCOMPARE(PLBytesOf(path(stored)), picture);
    QCOMPARE(PLBytesOf(m_folder->filePath(name)), picture);
}

void PLProjectCoversTest::aCoverReplacesThoseOfEveryKind_data()
{
    QTest::addColumn<QStringList>("old");
    QTest::newRow("its own kind") << QStringList{u"png"_s};
    QTest::newRow("one that comes before") << QStringList{u"jpg"_s};
    QTest::newRow("one that comes after") << QStringList{u"bmp"_s};
    QTest::newRow("all") << extensions;
}

void PLProjectCoversTest::aCoverReplacesThoseOfEveryKind()
{
    QFETCH(QStringList, old);
    for (const QString &extension : old)
        QVERIFY(PLMakeFile(path(u"couverture."_s + extension), "old"));
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), "new"));
    QVERIFY(PLProject::setCoverImageFromURL(source(u"photo.png"_s), url()));
    QCOMPARE(names(), QStringList{u"couverture.png"_s});
    QCOMPARE(PLBytesOf(path(u"couverture.png"_s)), "new");
}

void PLProjectCoversTest::whatIsNotAPictureByItsExtensionIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a PDF") << u"scan.pdf"_s;
    QTest::newRow("no extension") << u"png"_s;
    QTest::newRow("a hidden file") << u".png"_s;
    QTest::newRow("a space after it") << u"photo.png "_s;
    QTest::newRow("a picture of a kind not taken") << u"photo.svg"_s;
    QTest::newRow("a missing file") << u"not there.txt"_s;
    QTest::newRow("an extension in a folder's name") << u"photo.png/scan"_s;
}

void PLProjectCoversTest::whatIsNotAPictureByItsExtensionIsRefused()
{
    QFETCH(QString, name);
    if (name != u"not there.txt")
        QVERIFY(PLMakeFile(m_folder->filePath(name), "new"));
    QVERIFY(PLMakeFile(path(u"couverture.png"_s), "old"));
    PLError error;
    QVERIFY(!PLProject::setCoverImageFromURL(source(name), url(), &error));
    QCOMPARE(error.domain, PLApplicationErrorDomain);
    QCOMPARE(error.code, 1);
    QCOMPARE(error.message, u"Ce fichier n'est pas une image reconnue (JPEG, PNG, GIF, TIFF ou BMP)."_s);
    m_environment.setLanguage(u"en"_s);
    QVERIFY(!PLProject::setCoverImageFromURL(source(name), url(), &error));
    QCOMPARE(error.message, u"This file isn't a supported image (JPEG, PNG, GIF, TIFF or BMP)."_s);
    QCOMPARE(names(), QStringList{u"couverture.png"_s});
    QCOMPARE(PLBytesOf(path(u"couverture.png"_s)), "old");
}

void PLProjectCoversTest::theContentsAreNotExamined()
{
    for (const QByteArray &contents : {QByteArray("not a picture"), QByteArray("")}) {
        QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), contents));
        QVERIFY(PLProject::setCoverImageFromURL(source(u"photo.png"_s), url()));
        QCOMPARE(PLBytesOf(path(u"couverture.png"_s)), contents);
    }
}

void PLProjectCoversTest::settingTheCurrentCoverTouchesNothing_data()
{
    QTest::addColumn<QString>("given");
    QTest::newRow("its path") << u"Roman/couverture.png"_s;
    QTest::newRow("its path, roundabout") << u"Roman/../Roman//./couverture.png"_s;
}

void PLProjectCoversTest::settingTheCurrentCoverTouchesNothing()
{
    QFETCH(QString, given);
    QVERIFY(PLMakeFile(path(u"couverture.png"_s), "old"));
    struct stat before;
    struct stat after;
    const QByteArray native = QFile::encodeName(path(u"couverture.png"_s));
    QCOMPARE(::stat(native.constData(), &before), 0);
    QVERIFY(PLProject::setCoverImageFromURL(source(given), url()));
    QCOMPARE(::stat(native.constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);
    QCOMPARE(names(), QStringList{u"couverture.png"_s});
}

void PLProjectCoversTest::settingTheCurrentCoverByAnotherPathKeepsIt()
{
    QVERIFY(PLMakeFile(path(u"couverture.png"_s), "old"));
    QVERIFY(QFile::link(path(), m_folder->filePath(u"link"_s)));
    QVERIFY(QFile::link(path(u"couverture.png"_s), m_folder->filePath(u"link.jpg"_s)));
    QVERIFY(PLProject::setCoverImageFromURL(source(u"link/couverture.png"_s), url()));
    QCOMPARE(PLBytesOf(path(u"couverture.png"_s)), "old");
    QVERIFY(PLProject::setCoverImageFromURL(source(u"link.jpg"_s), url()));
    QCOMPARE(names(), QStringList{u"couverture.jpg"_s});
    QCOMPARE(PLBytesOf(path(u"couverture.jpg"_s)), "old");
}

void PLProjectCoversTest::aPictureBehindALinkIsCopied()
{
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo"_s), "new"));
    QVERIFY(QFile::link(u"photo"_s, m_folder->filePath(u"link.png"_s)));
    QVERIFY(PLProject::setCoverImageFromURL(source(u"link.png"_s), url()));
    QVERIFY(!QFileInfo(path(u"couverture.png"_s)).isSymLink());
    QCOMPARE(PLBytesOf(path(u"couverture.png"_s)), "new");
}

void PLProjectCoversTest::aSourceThatCannotBeReadKeepsTheOldCover_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("code");
    QTest::newRow("nothing") << u"nothing"_s << ENOENT;
    QTest::newRow("a folder") << u"folder"_s << EISDIR;
    QTest::newRow("a pipe") << u"pipe"_s << EINVAL;
    QTest::newRow("a device without an end") << u"/dev/zero"_s << EINVAL;
    QTest::newRow("a dangling link") << u"nowhere"_s << ENOENT;
    QTest::newRow("a loop of links") << u"photo.png"_s << ELOOP;
    QTest::newRow("a file that is too large") << u"large"_s << EFBIG;
}

void PLProjectCoversTest::aSourceThatCannotBeReadKeepsTheOldCover()
{
    QFETCH(QString, kind);
    QFETCH(int, code);
    const QString picture = m_folder->filePath(u"photo.png"_s);
    QFile file(picture);
    if (kind == u"folder")
        QVERIFY(QDir().mkpath(picture));
    else if (kind == u"pipe")
        QCOMPARE(::mkfifo(QFile::encodeName(picture).constData(), 0600), 0);
    else if (kind == u"large")
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(PLLargestFileSize + 1)); // a hole
    else if (kind != u"nothing")
        QVERIFY(QFile::link(kind, picture));
    QVERIFY(PLMakeFile(path(u"couverture.jpg"_s), "old"));

    QElapsedTimer timer;
    timer.start();
    PLError error;
    QVERIFY(!PLProject::setCoverImageFromURL(source(u"photo.png"_s), url(), &error));
    QVERIFY(timer.elapsed() < 1000);
    QCOMPARE(error.domain, PLFileErrorDomain);
    QCOMPARE(error.code, code);
    QVERIFY(!error.message.isEmpty());
    QCOMPARE(names(), QStringList{u"couverture.jpg"_s});
    QCOMPARE(PLBytesOf(path(u"couverture.jpg"_s)), "old");
}

void PLProjectCoversTest::aSourceNobodyMayReadKeepsTheOldCover()
{
    const PLOrdinaryUser user(m_folder->path());
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), "new"));
    QCOMPARE(::chmod(QFile::encodeName(m_folder->filePath(u"photo.png"_s)).constData(), 0), 0);
    PLError error;
    QVERIFY(!PLProject::setCoverImageFromURL(source(u"photo.png"_s), url(), &error));
    QCOMPARE(error.code, EACCES);
    QCOMPARE(names(), QStringList{});
}

void PLProjectCoversTest::aFullDiskKeepsTheOldCover()
{
    QVERIFY(PLMakeFile(path(u"couverture.jpg"_s), "old"));
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), QByteArray(1'000'000, 'n')));
    for (const rlim_t room : {0UL, 1UL, 4096UL, 262'144UL, 999'999UL}) {
        PLError error;
        bool isSet = true;
        {
            const PLFullDisk disk(room);
            isSet = PLProject::setCoverImageFromURL(source(u"photo.png"_s), url(), &error);
        }
        QVERIFY(!isSet);
        QCOMPARE(error.code, EFBIG); // what the limit answers; a disk that is full says ENOSPC
        QCOMPARE(names(), QStringList{u"couverture.jpg"_s});
        QCOMPARE(PLBytesOf(path(u"couverture.jpg"_s)), "old");
    }
    QVERIFY(PLProject::setCoverImageFromURL(source(u"photo.png"_s), url()));
}

void PLProjectCoversTest::aFolderNobodyMayWriteToKeepsTheOldCover()
{
    QVERIFY(PLMakeFile(path(u"couverture.jpg"_s), "old"));
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), "new"));
    const QByteArray folder = QFile::encodeName(path());
    QCOMPARE(::chmod(folder.constData(), 0555), 0);
    PLError setError;
    PLError removeError;
    {
        const PLOrdinaryUser user(m_folder->path());
        QVERIFY(!PLProject::setCoverImageFromURL(source(u"photo.png"_s), url(), &setError));
        QVERIFY(!PLProject::removeCoverImageForProjectAtURL(url(), &removeError));
    }
    QCOMPARE(::chmod(folder.constData(), 0755), 0);
    QCOMPARE(setError.code, EACCES);
    QCOMPARE(removeError.code, EACCES);
    QCOMPARE(names(), QStringList{u"couverture.jpg"_s});
}

void PLProjectCoversTest::aFolderNamedAsTheCoverIsNeverReplaced_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("of the same kind") << u"couverture.png"_s;
    QTest::newRow("of another kind") << u"couverture.jpg"_s;
}

void PLProjectCoversTest::aFolderNamedAsTheCoverIsNeverReplaced()
{
    QFETCH(QString, name);
    QVERIFY(PLMakeFile(path(name + u"/notes.md"_s), "mots"));
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), "new"));
    PLError error;
    QVERIFY(!PLProject::setCoverImageFromURL(source(u"photo.png"_s), url(), &error));
    QCOMPARE(error.code, EISDIR);
    QCOMPARE(names(), QStringList{name});
    QCOMPARE(PLBytesOf(path(name + u"/notes.md"_s)), "mots");
}

void PLProjectCoversTest::aDanglingLinkInTheWayIsReplaced()
{
    QVERIFY(QFile::link(u"nowhere"_s, path(u"couverture.png"_s)));
    QVERIFY(QFile::link(u"nowhere"_s, path(u"couverture.jpg"_s)));
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), "new"));
    QVERIFY(coverName().isEmpty());
    QVERIFY(PLProject::setCoverImageFromURL(source(u"photo.png"_s), url()));
    QCOMPARE(names(), QStringList{u"couverture.png"_s});
    QVERIFY(!QFileInfo(path(u"couverture.png"_s)).isSymLink());
}

void PLProjectCoversTest::aMissingNotebookIsAnError()
{
    QVERIFY(PLMakeFile(m_folder->filePath(u"photo.png"_s), "new"));
    PLError error;
    QVERIFY(!PLProject::setCoverImageFromURL(source(u"photo.png"_s), source(u"Ailleurs"_s), &error));
    QCOMPARE(error.code, ENOENT);
    QVERIFY(!QFile::exists(m_folder->filePath(u"Ailleurs"_s)));
}

void PLProjectCoversTest::errorsNeedNotBeAskedFor()
{
    QVERIFY(!PLProject::setCoverImageFromURL(source(u"scan.pdf"_s), url(), nullptr));
    QVERIFY(!PLProject::setCoverImageFromURL(source(u"not there.png"_s), url(), nullptr));
    QVERIFY(QDir().mkpath(path(u"couverture.png"_s)));
    QVERIFY(!PLProject::removeCoverImageForProjectAtURL(url(), nullptr));
}

void PLProjectCoversTest::unfinishedCoversAreSweptWhenTheNotebookIsOpened()
{
    QVERIFY(PLMakeFile(path(u"projet.md"_s)));
    QVERIFY(PLMakeFile(path(u"couverture.png"_s), "old"));
    for (const QString &extension : extensions)
        QVERIFY(PLMakeFile(PLTemporaryPathForCover(path(), extension), "half"));
    QVERIFY(PLTemporaryPathForCover(path(), u"png"_s) != PLTemporaryPathForCover(path(), u"png"_s));
    QVERIFY(PLProject::openProjectAtURL(url()));
    QCOMPARE(QDir(path()).entryList(QDir::Files | QDir::Hidden),
             (QStringList{u"couverture.png"_s, u"projet.md"_s}));
    QCOMPARE(PLBytesOf(path(u"couverture.png"_s)), "old");
}

void PLProjectCoversTest::whatOnlyLooksLikeAnUnfinishedCoverStays_data()
{
    QTest::addColumn<QString>("name");
    const QString unique = u"01234567-89ab-cdef-0123-456789abcdef"_s;
    QTest::newRow("a picture of the writer's") << u".couverture-2024.png"_s;
    QTest::newRow("another extension") << u".couverture-"_s + unique + u".md"_s;
    QTest::newRow("capitals") << u".couverture-"_s + unique.toUpper() + u".png"_s;
    QTest::newRow("not hidden") << u"couverture-"_s + unique + u".png"_s;
    QTest::newRow("something before") << u"..couverture-"_s + unique + u".png"_s;
    QTest::newRow("something after") << u".couverture-"_s + unique + u".png~"_s;
    QTest::newRow("a line end after") << u".couverture-"_s + unique + u".png\n"_s;
    QTest::newRow("in a section") << u"Notes/.couverture-"_s + unique + u".png"_s;
    QTest::newRow("a folder") << u".couverture-"_s + unique + u".png/notes.md"_s;
}

void PLProjectCoversTest::whatOnlyLooksLikeAnUnfinishedCoverStays()
{
    QFETCH(QString, name);
    QVERIFY(PLMakeFile(path(u"projet.md"_s)));
    QVERIFY(PLMakeFile(path(name), "mots"));
    QVERIFY(PLProject::openProjectAtURL(url()));
    QCOMPARE(PLBytesOf(path(name)), "mots");
}

QTEST_GUILESS_MAIN(PLProjectCoversTest)
#include "PLProjectCoversTest.moc"
