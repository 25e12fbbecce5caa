// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLLibraryWindowController.h"
#include "library/PLRecordingLibraryDelegate.h"
#include "library/PLTestPicture.h"
#include "platform/PLAlert.h"
#include "storage/PLRecentProjects.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"
#include "support/PLTestNotebook.h"

#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

QStringList alerts;

} // namespace

/// The covers in the library: read once the window is there, chosen, dropped, removed.
class PLLibraryCoversTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void coversAreReadOnceTheWindowIsShown();
    void aHiddenWindowReadsNoCovers();
    void coversThatAreKnownAreThereAtOnce();
    void picturesThatCannotBeReadLeaveTheDrawnCovers();
    void booksRemovedWhileCoversAreReadDoNoHarm();
    void aNewerCoverFileIsSeenAfterAReload();
    void aCoverIsSetAndShownAtOnce();
    void aCoverThatCannotBeSetIsToldAndChangesNothing_data();
    void aCoverThatCannotBeSetIsToldAndChangesNothing();
    void aCoverIsRemoved();
    void aCoverThatCannotBeRemovedIsTold();
    void aPictureDroppedOnABookBecomesItsCover();
    void thePanelAsksForAPicture_data();
    void thePanelAsksForAPicture();
    void theLibraryMayBeReloadedWhileThePanelIsOpen();

private:
    QByteArray picture(const QSize &size = {800, 400}) const
    {
        return PLTestPicture::encoded(PLTestPicture::drawn(size), "png");
    }
    bool giveCover(const PLTestNotebook &notebook, const QByteArray &bytes) const
    {
        return PLMakeFile(notebook.path(u"couverture.png"_s), bytes);
    }
    QImage cover(const PLLibraryWindowController &library, size_t index = 0) const
    {
        return library.shelfView()->books().at(index).cover;
    }

    PLTestEnvironment m_environment;
    PLRecordingLibraryDelegate m_delegate;
    std::unique_ptr<PLTestNotebook> m_notebook;
    QTemporaryDir m_pictures;
};

void PLLibraryCoversTest::init()
{
    m_environment.forgetPreferences();
    m_environment.setLanguage(u"fr"_s);
    m_notebook = std::make_unique<PLTestNotebook>();
    PLRecentProjects::addURL(m_notebook->url());
    alerts.clear();
    PLAlert::setResponder([](const PLAlert &alert) {
        alerts.append(alert.message);
        return PLAlert::FirstButton;
    });
}

void PLLibraryCoversTest::cleanup()
{
    PLAlert::setResponder({});
}

void PLLibraryCoversTest::coversAreReadOnceTheWindowIsShown()
{
    PLTestNotebook second;
    QVERIFY(giveCover(*m_notebook, picture()) && giveCover(second, picture({100, 200})));
    PLRecentProjects::addURL(second.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QVERIFY(cover(library, 0).isNull() && cover(library, 1).isNull());
    QVERIFY(library.isLoadingCovers());
    QTRY_VERIFY(!library.isLoadingCovers());
    QCOMPARE(cover(library, 0).size(), QSize(100, 200));
    QCOMPARE(cover(library, 1).size(), QSize(360, 180));
    QCOMPARE(library.shelfView()->selectedIndex(), 0);
}

void PLLibraryCoversTest::aHiddenWindowReadsNoCovers()
{
    QVERIFY(giveCover(*m_notebook, picture()));
    PLLibraryWindowController library(m_delegate);
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
    QVERIFY(library.isLoadingCovers());
    library.showWindow();
    library.window()->hide();
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
    library.showWindow();
    QTRY_VERIFY(!cover(library).isNull());
}

void PLLibraryCoversTest::coversThatAreKnownAreThereAtOnce()
{
    QVERIFY(giveCover(*m_notebook, picture()));
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTRY_VERIFY(!cover(library).isNull());
    const qint64 key = cover(library).cacheKey();
    library.reload();
    QVERIFY(!library.isLoadingCovers());
    QCOMPARE(cover(library).cacheKey(), key);
}

void PLLibraryCoversTest::picturesThatCannotBeReadLeaveTheDrawnCovers()
{
    PLTestNotebook second;
    QVERIFY(giveCover(second, "not a picture") && giveCover(*m_notebook, picture()));
    PLRecentProjects::addURL(second.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTRY_VERIFY(!library.isLoadingCovers());
    QVERIFY(cover(library, 0).isNull());
    QVERIFY(!cover(library, 1).isNull());
    QVERIFY(!library.stateOfCommand(PLCommand::RemoveCover, 0)->enabled);
    QVERIFY(alerts.isEmpty());
}

void PLLibraryCoversTest::booksRemovedWhileCoversAreReadDoNoHarm()
{
    PLTestNotebook second;
    QVERIFY(giveCover(second, picture()) && giveCover(*m_notebook, picture({10, 20})));
    PLRecentProjects::addURL(second.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QVERIFY(library.isLoadingCovers());
    library.removeSelected();
    QTRY_VERIFY(!library.isLoadingCovers());
    QCOMPARE(library.shelfView()->books().size(), size_t(1));
    QCOMPARE(cover(library).size(), QSize(10, 20));
}

void PLLibraryCoversTest::aNewerCoverFileIsSeenAfterAReload()
{
    QVERIFY(giveCover(*m_notebook, picture()));
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTRY_COMPARE(cover(library).size(), QSize(360, 180));
    QVERIFY(giveCover(*m_notebook, picture({100, 200})));
    QFile file(m_notebook->path(u"couverture.png"_s));
    QVERIFY(file.open(QIODevice::ReadWrite) &&
            file.setFileTime(QDateTime({2024, 3, 1}, {12, 0}), QFileDevice::FileModificationTime));
    library.reload();
    QTRY_COMPARE(cover(library).size(), QSize(100, 200));
}

void PLLibraryCoversTest::aCoverIsSetAndShownAtOnce()
{
    const QString source = m_pictures.filePath(u"Photo.PNG"_s);
    QVERIFY(PLMakeFile(source, picture({10, 20})) && giveCover(*m_notebook, picture()));
    PLLibraryWindowController library(m_delegate);
    library.setCoverImage(QUrl::fromLocalFile(source), library.shelfView()->books()[0]);
    QVERIFY(!library.isLoadingCovers());
    QCOMPARE(cover(library).size(), QSize(10, 20));
    QCOMPARE(PLBytesOf(m_notebook->path(u"couverture.png"_s)), picture({10, 20}));
    QVERIFY(library.stateOfCommand(PLCommand::RemoveCover, 0)->enabled);
    QVERIFY(alerts.isEmpty());
}

void PLLibraryCoversTest::aCoverThatCannotBeSetIsToldAndChangesNothing_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("message");
    QTest::newRow("not a picture")
        << u"scan.pdf"_s << u"Ce fichier n'est pas une image reconnue (JPEG, PNG, GIF, TIFF ou BMP)."_s;
    QTest::newRow("a missing one") << u"nothing.png"_s << u"Le fichier ou le dossier n'existe pas ou plus."_s;
}

void PLLibraryCoversTest::aCoverThatCannotBeSetIsToldAndChangesNothing()
{
    QFETCH(QString, source);
    QFETCH(QString, message);
    QVERIFY(giveCover(*m_notebook, picture()));
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTRY_VERIFY(!cover(library).isNull());
    const qint64 key = cover(library).cacheKey();
    library.setCoverImage(QUrl::fromLocalFile(m_pictures.filePath(source)), library.shelfView()->books()[0]);
    QTRY_COMPARE(alerts, QStringList{message});
    QCOMPARE(cover(library).cacheKey(), key);
    QCOMPARE(PLBytesOf(m_notebook->path(u"couverture.png"_s)), picture());
}

void PLLibraryCoversTest::aCoverIsRemoved()
{
    QVERIFY(giveCover(*m_notebook, picture()));
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTRY_VERIFY(library.stateOfCommand(PLCommand::RemoveCover, 0)->enabled);
    library.performCommand(PLCommand::RemoveCover, 0);
    QVERIFY(cover(library).isNull());
    QVERIFY(!m_notebook->exists(u"couverture.png"_s));
    QVERIFY(!library.stateOfCommand(PLCommand::RemoveCover, 0)->enabled);
}

void PLLibraryCoversTest::aCoverThatCannotBeRemovedIsTold()
{
    QVERIFY(giveCover(*m_notebook, picture()));
    QVERIFY(QDir().mkpath(m_notebook->path(u"couverture.tif/notes"_s)));
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTRY_VERIFY(!cover(library).isNull());
    library.removeCover();
    QVERIFY(cover(library).isNull()); // listed again whatever came of it
    QTRY_COMPARE(alerts, QStringList{u"C'est un dossier, pas un fichier."_s});
    QVERIFY(m_notebook->exists(u"couverture.tif/notes"_s));
}

void PLLibraryCoversTest::aPictureDroppedOnABookBecomesItsCover()
{
    const QString source = m_pictures.filePath(u"dropped.png"_s);
    QVERIFY(PLMakeFile(source, picture({30, 20})));
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QMimeData drag;
    drag.setUrls({QUrl::fromLocalFile(source)});
    const QPoint center = library.shelfView()->rectForBookAtIndex(0).center();
    QDragEnterEvent enter(center, Qt::CopyAction, &drag, Qt::LeftButton, {});
    QCoreApplication::sendEvent(library.shelfView(), &enter);
    QDragMoveEvent move(center, Qt::CopyAction, &drag, Qt::LeftButton, {});
    QCoreApplication::sendEvent(library.shelfView(), &move);
    QDropEvent drop(center, Qt::CopyAction, &drag, Qt::LeftButton, {});
    QCoreApplication::sendEvent(library.shelfView(), &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(cover(library).size(), QSize(30, 20));
    QCOMPARE(PLNamesIn(m_notebook->path()).filter(u"couverture"_s), QStringList{u"couverture.png"_s});
}

void PLLibraryCoversTest::thePanelAsksForAPicture_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("French")
        << u"fr"_s
        << QStringList{
               u"Image de couverture"_s, u"Choisir"_s,
               u"Choisissez une image pour la couverture de « Roman ». Elle sera copiée dans le dossier du carnet."_s};
    QTest::newRow("English")
        << u"en"_s
        << QStringList{
               u"Cover Image"_s, u"Choose"_s,
               u"Choose an image for the cover of “Roman”. It will be copied into the notebook's folder."_s};
}

void PLLibraryCoversTest::thePanelAsksForAPicture()
{
    QFETCH(QString, language);
    QFETCH(QStringList, texts);
    m_environment.setLanguage(language);
    const QString source = m_pictures.filePath(u"Chosen.PNG"_s);
    QVERIFY(PLMakeFile(source, picture({30, 20})));
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QStringList shown;
    QTimer::singleShot(0, &library, [&] {
        auto *panel = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        shown = {panel->windowTitle(), panel->labelText(QFileDialog::Accept)};
        const QList<QLabel *> labels = panel->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->text() == texts.at(2))
                shown.append(label->text());
        }
        for (const QString &extension : PLProject::coverImageExtensions())
            QVERIFY(panel->nameFilters().constFirst().contains(u"*."_s + extension));
        QCOMPARE(panel->fileMode(), QFileDialog::ExistingFile);
        panel->selectFile(source);
        QMetaObject::invokeMethod(panel, "accept");
    });
    library.performCommand(PLCommand::ChooseCover, 0);
    QCOMPARE(shown, texts);
    QCOMPARE(cover(library).size(), QSize(30, 20));
    QVERIFY(QFile::exists(source));
}

void PLLibraryCoversTest::theLibraryMayBeReloadedWhileThePanelIsOpen()
{
    const QString source = m_pictures.filePath(u"late.png"_s);
    QVERIFY(PLMakeFile(source, picture({30, 20})));
    PLTestNotebook second(u"Second"_s);
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTimer::singleShot(0, &library, [&] {
        PLRecentProjects::addURL(second.url());
        library.reload();
        auto *panel = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        panel->selectFile(source);
        QMetaObject::invokeMethod(panel, "accept");
    });
    library.chooseCover();
    QVERIFY(m_notebook->exists(u"couverture.png"_s));
    QVERIFY(!second.exists(u"couverture.png"_s));
    QCOMPARE(library.shelfView()->selectedBook()->title, u"Roman"_s);
}

QTEST_MAIN(PLLibraryCoversTest)
#include "PLLibraryCoversTest.moc"
