// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"

#include "app/PLAlertScript.h"
#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLProjectWindowController.h"
#include "storage/PLProject.h"
#include "storage/PLRecentProjects.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int first = PLAlert::FirstButton;
constexpr int second = PLAlert::SecondButton;

/// Types into the page that is open, without giving its window the focus.
void typeInto(const PLProjectWindowController &controller, const QString &text)
{
    controller.editorView()->textView()->textCursor().insertText(text);
}

} // namespace

class PLAppDelegateTest final : public QObject
{
    Q_OBJECT

private:
    /// The path of a notebook of this name, with one chapter.
    QString makeNotebook(const QString &name) const;
    QString chapterOf(const QString &notebook) const { return notebook + u"/Livre/01 - A.md"_s; }
    /// Makes the pages of the book unwritable, whoever runs the test, until putBookBack.
    void takeBookAway(const QString &notebook) const;
    void putBookBack(const QString &notebook) const;

    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init();
    void cleanup();

    void aNotebookOpensInAWindow();
    void aNotebooksFileStandsForItsFolder();
    void aFileWithAnotherCaseStandsForItself();
    void openingTwiceBringsTheWindowForward_data();
    void openingTwiceBringsTheWindowForward();
    void aMissingFolderIsTold_data();
    void aMissingFolderIsTold();
    void aMissingFolderLeavesTheListWhenAsked();
    void aFileIsNoFolder();
    void aPlainFolderIsLeftUntouchedOnCancel();
    void aPlainFolderBecomesANotebook();
    void aQuestionAboutAPlainFolderIsAskedInBothLanguages_data();
    void aQuestionAboutAPlainFolderIsAskedInBothLanguages();
    void anErrorIsPresented();
    void theNotebookOpenedLastComesFirst();
    void withoutPathsTheLibraryIsShown();
    void aNotebookHidesTheLibrary();
    void aPathThatFailsLeavesTheLibrary();
    void theLibraryIsReloadedEachTimeItIsShown();
    void closingTheLastWindowShowsTheLibrary();
    void closingOneOfTwoWindowsShowsNoLibrary();
    void aWindowThatStaysOpenIsNotForgotten();
    void closingTheLibraryAloneEndsTheProgram();
    void closingTheLibraryBesideANotebookDoesNot();
    void quittingSavesEveryPage();
    void stayingAsksNoOtherWindow();
    void quittingAnywayAsksTheNextWindow();
    void theQuestionAtQuittingNamesTheNotebook_data();
    void theQuestionAtQuittingNamesTheNotebook();
    void endingQuietlySavesWithoutAnAlert();
    void endingQuietlyGoesOnWhereSavingFails();
    void aQuitWithinAQuitAsksNothing();
    void aRequestWithPathsOpensThem();
    void aRequestWithoutPathsShowsTheLibraryIfNothingIsVisible();
};

QString PLAppDelegateTest::makeNotebook(const QString &name) const
{
    const QString path = m_folder->filePath(name);
    const bool made = PLMakeFile(path + u"/projet.md"_s, "---\ntitre: " + name.toUtf8() + "\n---\n") &&
                      PLMakeFile(chapterOf(path), "text\n");
    return made ? path : QString();
}

void PLAppDelegateTest::takeBookAway(const QString &notebook) const
{
    QVERIFY(QDir().rename(notebook + u"/Livre"_s, notebook + u"/gone"_s));
}

void PLAppDelegateTest::putBookBack(const QString &notebook) const
{
    QVERIFY(QDir().rename(notebook + u"/gone"_s, notebook + u"/Livre"_s));
}

void PLAppDelegateTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
}

void PLAppDelegateTest::cleanup()
{
    m_folder.reset();
    m_environment.reset();
}

void PLAppDelegateTest::aNotebookOpensInAWindow()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(makeNotebook(u"Roman"_s)));
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
    QVERIFY(delegate.projectWindows().front()->window()->isVisible());
    QCOMPARE(delegate.projectWindows().front()->project().title(), u"Roman"_s);
    QCOMPARE(alerts.count(), 0);
}

void PLAppDelegateTest::aNotebooksFileStandsForItsFolder()
{
    PLAppDelegate delegate;
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path + u"/projet.md"_s));
    QCOMPARE(delegate.projectWindows().front()->project().folderURL().toLocalFile(), path);
}

void PLAppDelegateTest::aFileWithAnotherCaseStandsForItself()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(QFile::copy(path + u"/projet.md"_s, path + u"/Projet.md"_s));
    QVERIFY(!delegate.openFile(path + u"/Projet.md"_s));
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(alerts.shown(0).message, u"Le carnet « Projet.md » est introuvable"_s);
}

void PLAppDelegateTest::openingTwiceBringsTheWindowForward_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("the folder") << u""_s;
    QTest::newRow("the folder with a slash") << u"/"_s;
    QTest::newRow("its file") << u"/projet.md"_s;
    QTest::newRow("by a detour") << u"/Livre/../../Roman"_s;
}

void PLAppDelegateTest::openingTwiceBringsTheWindowForward()
{
    QFETCH(const QString, suffix);
    PLAppDelegate delegate;
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path));
    QVERIFY(delegate.openFile(makeNotebook(u"Autre"_s)));
    QTRY_VERIFY(delegate.projectWindows().back()->window()->isActiveWindow());
    QVERIFY(delegate.openFile(path + suffix));
    QCOMPARE(delegate.projectWindows().size(), size_t(2));
    QTRY_VERIFY(delegate.projectWindows().front()->window()->isActiveWindow());
}

void PLAppDelegateTest::aMissingFolderIsTold_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("explanation");
    QTest::addColumn<QStringList>("buttons");
    QTest::newRow("fr")
        << u"fr"_s << u"Le carnet « Perdu » est introuvable"_s
        << u"Le dossier %1 n'existe pas ou plus. S'il est sur une clé USB, branchez-la puis réessayez."_s
        << QStringList{u"OK"_s, u"Retirer de la liste"_s};
    QTest::newRow("en")
        << u"en"_s << u"The notebook “Perdu” can't be found"_s
        << u"The folder %1 doesn't exist, or no longer exists. If it is on a USB stick, plug it in and try again."_s
        << QStringList{u"OK"_s, u"Remove from List"_s};
}

void PLAppDelegateTest::aMissingFolderIsTold()
{
    QFETCH(const QString, language);
    QFETCH(const QString, message);
    QFETCH(const QString, explanation);
    QFETCH(const QStringList, buttons);
    m_environment->setLanguage(language);
    PLAlertScript alerts({first});
    PLAppDelegate delegate;
    const QString path = m_folder->filePath(u"Perdu"_s);
    PLRecentProjects::addURL(QUrl::fromLocalFile(path));
    QVERIFY(!delegate.openFile(path));
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(alerts.shown(0).message, message);
    QCOMPARE(alerts.shown(0).informativeText, explanation.arg(path));
    QCOMPARE(alerts.shown(0).buttons, buttons);
    QVERIFY(alerts.shown(0).style == PLAlert::Style::Warning);
    QCOMPARE(alerts.shown(0).escapeButton, first);
    QCOMPARE(PLRecentProjects::paths(), QStringList{path});
    QVERIFY(delegate.projectWindows().empty());
}

void PLAppDelegateTest::aMissingFolderLeavesTheListWhenAsked()
{
    PLAlertScript alerts({second});
    PLAppDelegate delegate;
    const QString path = m_folder->filePath(u"Perdu"_s);
    PLRecentProjects::addURL(QUrl::fromLocalFile(path));
    delegate.showLibrary();
    QCOMPARE(delegate.library()->shelfView()->books().size(), size_t(1));
    QVERIFY(!delegate.openFile(path));
    QCOMPARE(PLRecentProjects::paths(), QStringList());
    QCOMPARE(delegate.library()->shelfView()->books().size(), size_t(0));
}

void PLAppDelegateTest::aFileIsNoFolder()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    const QString path = m_folder->filePath(u"page.md"_s);
    QVERIFY(PLMakeFile(path, "text"));
    QVERIFY(!delegate.openFile(path));
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(alerts.shown(0).message, u"Le carnet « page.md » est introuvable"_s);
    QCOMPARE(PLBytesOf(path), QByteArray("text"));
}

void PLAppDelegateTest::aPlainFolderIsLeftUntouchedOnCancel()
{
    PLAlertScript alerts({second});
    PLAppDelegate delegate;
    const QString path = m_folder->filePath(u"Vide"_s);
    QVERIFY(QDir().mkpath(path));
    QVERIFY(!delegate.openFile(path));
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(PLNamesIn(path), QStringList());
    QVERIFY(delegate.projectWindows().empty());
    QCOMPARE(PLRecentProjects::paths(), QStringList());
}

void PLAppDelegateTest::aPlainFolderBecomesANotebook()
{
    PLAlertScript alerts({first});
    PLAppDelegate delegate;
    const QString path = m_folder->filePath(u"Vrac"_s);
    QVERIFY(PLMakeFile(path + u"/liste.txt"_s, "kept"));
    QVERIFY(delegate.openFile(path));
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
    QCOMPARE(delegate.projectWindows().front()->project().title(), u"Vrac"_s);
    QCOMPARE(PLNamesIn(path), QStringList({u"Fiches"_s, u"Lieux"_s, u"Livre"_s, u"Notes"_s, u"Personnages"_s,
                                           u"liste.txt"_s, u"projet.md"_s}));
    QCOMPARE(PLBytesOf(path + u"/liste.txt"_s), QByteArray("kept"));
    QCOMPARE(PLRecentProjects::paths(), QStringList{path});
}

void PLAppDelegateTest::aQuestionAboutAPlainFolderIsAskedInBothLanguages_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("beginning");
    QTest::addColumn<QStringList>("buttons");
    QTest::newRow("fr") << u"fr"_s << u"« Vrac » n'est pas encore un carnet"_s
                        << u"Voulez-vous en faire un carnet ? Aquilane y ajoutera un fichier projet.md"_s
                        << QStringList{u"En faire un carnet"_s, u"Annuler"_s};
    QTest::newRow("en") << u"en"_s << u"“Vrac” isn't a notebook yet"_s
                        << u"Do you want to turn it into a notebook? Aquilane will add a projet.md file"_s
                        << QStringList{u"Make It a Notebook"_s, u"Cancel"_s};
}

void PLAppDelegateTest::aQuestionAboutAPlainFolderIsAskedInBothLanguages()
{
    QFETCH(const QString, language);
    QFETCH(const QString, message);
    QFETCH(const QString, beginning);
    QFETCH(const QStringList, buttons);
    m_environment->setLanguage(language);
    PLAlertScript alerts;
    PLAppDelegate delegate;
    QVERIFY(QDir().mkpath(m_folder->filePath(u"Vrac"_s)));
    QVERIFY(!delegate.openFile(m_folder->filePath(u"Vrac"_s)));
    QCOMPARE(alerts.shown(0).message, message);
    QVERIFY2(alerts.shown(0).informativeText.startsWith(beginning),
             qPrintable(alerts.shown(0).informativeText));
    QCOMPARE(alerts.shown(0).buttons, buttons);
    QCOMPARE(alerts.shown(0).escapeButton, second);
}

void PLAppDelegateTest::anErrorIsPresented()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(PLMakeFile(path + u"/Fiches"_s, "a file where a folder should be"));
    QVERIFY(!delegate.openFile(path));
    QCOMPARE(alerts.count(), 1);
    QVERIFY(!alerts.shown(0).message.isEmpty());
    QVERIFY(alerts.shown(0).buttons.isEmpty()); // the standard one
    QVERIFY(delegate.projectWindows().empty());
    QCOMPARE(PLRecentProjects::paths(), QStringList());
}

void PLAppDelegateTest::theNotebookOpenedLastComesFirst()
{
    PLAppDelegate delegate;
    const QString one = makeNotebook(u"Un"_s);
    const QString two = makeNotebook(u"Deux"_s);
    QVERIFY(delegate.openFile(one));
    QVERIFY(delegate.openFile(two));
    QCOMPARE(PLRecentProjects::paths(), QStringList({two, one}));
    QCOMPARE(delegate.projectWindows().front()->project().title(), u"Un"_s);
    QCOMPARE(delegate.projectWindows().back()->project().title(), u"Deux"_s);
}

void PLAppDelegateTest::withoutPathsTheLibraryIsShown()
{
    PLAppDelegate delegate;
    QVERIFY(!delegate.library());
    delegate.applicationDidFinishLaunching();
    QVERIFY(delegate.library() && delegate.library()->window()->isVisible());
}

void PLAppDelegateTest::aNotebookHidesTheLibrary()
{
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    QVERIFY(delegate.openFile(makeNotebook(u"Roman"_s)));
    QVERIFY(!delegate.library()->window()->isVisible());
    QCOMPARE(delegate.library()->shelfView()->books().size(), size_t(1));
}

void PLAppDelegateTest::aPathThatFailsLeavesTheLibrary()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching({m_folder->filePath(u"Perdu"_s)});
    QCOMPARE(alerts.count(), 1);
    QVERIFY(delegate.library() && delegate.library()->window()->isVisible());
}

void PLAppDelegateTest::theLibraryIsReloadedEachTimeItIsShown()
{
    PLAppDelegate delegate;
    delegate.showLibrary();
    PLLibraryWindowController *library = delegate.library();
    PLRecentProjects::addURL(QUrl::fromLocalFile(makeNotebook(u"Roman"_s)));
    QCOMPARE(library->shelfView()->books().size(), size_t(0));
    delegate.showLibrary();
    QCOMPARE(delegate.library(), library);
    QCOMPARE(library->shelfView()->books().size(), size_t(1));
}

void PLAppDelegateTest::closingTheLastWindowShowsTheLibrary()
{
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    QVERIFY(delegate.openFile(makeNotebook(u"Roman"_s)));
    QVERIFY(delegate.projectWindows().front()->window()->close());
    QCOMPARE(delegate.projectWindows().size(), size_t(1)); // not while the window is closing
    QTRY_VERIFY(delegate.projectWindows().empty());
    QVERIFY(delegate.library() && delegate.library()->window()->isVisible());
    QCOMPARE(ends.count(), 0);
}

void PLAppDelegateTest::closingOneOfTwoWindowsShowsNoLibrary()
{
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(makeNotebook(u"Un"_s)));
    QVERIFY(delegate.openFile(makeNotebook(u"Deux"_s)));
    QVERIFY(delegate.projectWindows().front()->window()->close());
    QTRY_COMPARE(delegate.projectWindows().size(), size_t(1));
    QCOMPARE(delegate.projectWindows().front()->project().title(), u"Deux"_s);
    QVERIFY(!delegate.library());
}

void PLAppDelegateTest::aWindowThatStaysOpenIsNotForgotten()
{
    PLAlertScript alerts({first, first});
    PLAppDelegate delegate;
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path));
    PLProjectWindowController &controller = *delegate.projectWindows().front();
    typeInto(controller, u"new "_s);
    takeBookAway(path);
    QVERIFY(!controller.window()->close());
    QCOMPARE(alerts.count(), 2);
    QCOMPARE(alerts.shown(0).message, u"Impossible d'enregistrer « A »"_s);
    QCOMPARE(alerts.shown(1).message, u"Fermer sans enregistrer ?"_s);
    QCoreApplication::processEvents();
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
    QCOMPARE(controller.editorView()->text(), u"new text\n"_s);
    putBookBack(path);
    QVERIFY(controller.saveCurrentItem());
    QCOMPARE(PLBytesOf(chapterOf(path)), QByteArray("new text\n"));
}

void PLAppDelegateTest::closingTheLibraryAloneEndsTheProgram()
{
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    delegate.showLibrary();
    QVERIFY(delegate.library()->window()->close());
    QCOMPARE(ends.count(), 1);
}

void PLAppDelegateTest::closingTheLibraryBesideANotebookDoesNot()
{
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    QVERIFY(delegate.openFile(makeNotebook(u"Roman"_s)));
    delegate.showLibrary();
    QVERIFY(delegate.library()->window()->close());
    QCOMPARE(ends.count(), 0);
    QVERIFY(delegate.projectWindows().front()->window()->isVisible());
}

void PLAppDelegateTest::quittingSavesEveryPage()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QStringList paths{makeNotebook(u"Un"_s), makeNotebook(u"Deux"_s)};
    for (const QString &path : paths)
        QVERIFY(delegate.openFile(path));
    for (const auto &controller : delegate.projectWindows())
        typeInto(*controller, u"new "_s);
    delegate.terminate();
    QCOMPARE(ends.count(), 1);
    QCOMPARE(alerts.count(), 0);
    for (const QString &path : paths)
        QCOMPARE(PLBytesOf(chapterOf(path)), QByteArray("new text\n"));
}

void PLAppDelegateTest::stayingAsksNoOtherWindow()
{
    PLAlertScript alerts({first, first});
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QStringList paths{makeNotebook(u"Un"_s), makeNotebook(u"Deux"_s)};
    for (const QString &path : paths)
        QVERIFY(delegate.openFile(path));
    for (const auto &controller : delegate.projectWindows())
        typeInto(*controller, u"new "_s);
    takeBookAway(paths.first());
    delegate.terminate();
    QCOMPARE(ends.count(), 0);
    QCOMPARE(alerts.count(), 2);
    QCOMPARE(alerts.shown(1).message, u"Quitter sans enregistrer ?"_s);
    QCOMPARE(delegate.projectWindows().size(), size_t(2));
    QVERIFY(delegate.projectWindows().back()->session().isDirty()); // it was not asked
    QCOMPARE(PLBytesOf(chapterOf(paths.last())), QByteArray("text\n"));

    putBookBack(paths.first());
    delegate.terminate(); // and may be asked again
    QCOMPARE(ends.count(), 1);
    QCOMPARE(alerts.count(), 2);
    QCOMPARE(PLBytesOf(chapterOf(paths.first())), QByteArray("new text\n"));
}

void PLAppDelegateTest::quittingAnywayAsksTheNextWindow()
{
    PLAlertScript alerts({first, second, first, first});
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QStringList paths{makeNotebook(u"Un"_s), makeNotebook(u"Deux"_s)};
    for (const QString &path : paths)
        QVERIFY(delegate.openFile(path));
    for (const auto &controller : delegate.projectWindows())
        typeInto(*controller, u"new "_s);
    takeBookAway(paths.first());
    takeBookAway(paths.last());
    delegate.terminate();
    QCOMPARE(alerts.count(), 4);
    QVERIFY(alerts.shown(1).informativeText.contains(u"« Un »"_s));
    QVERIFY(alerts.shown(3).informativeText.contains(u"« Deux »"_s));
    QCOMPARE(ends.count(), 0);
}

void PLAppDelegateTest::theQuestionAtQuittingNamesTheNotebook_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("explanation");
    QTest::addColumn<QStringList>("buttons");
    QTest::newRow("fr") << u"fr"_s << u"Quitter sans enregistrer ?"_s
                        << u"Une page du carnet « Roman » n'a pas pu être enregistrée."_s
                        << QStringList{u"Ne pas quitter"_s, u"Quitter quand même"_s};
    QTest::newRow("en") << u"en"_s << u"Quit without saving?"_s
                        << u"A page of the notebook “Roman” couldn't be saved."_s
                        << QStringList{u"Don't Quit"_s, u"Quit Anyway"_s};
}

void PLAppDelegateTest::theQuestionAtQuittingNamesTheNotebook()
{
    QFETCH(const QString, language);
    QFETCH(const QString, message);
    QFETCH(const QString, explanation);
    QFETCH(const QStringList, buttons);
    m_environment->setLanguage(language);
    PLAlertScript alerts({first, second});
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path));
    typeInto(*delegate.projectWindows().front(), u"new "_s);
    takeBookAway(path);
    delegate.terminate();
    QCOMPARE(alerts.count(), 2);
    QCOMPARE(alerts.shown(1).message, message);
    QCOMPARE(alerts.shown(1).informativeText, explanation);
    QCOMPARE(alerts.shown(1).buttons, buttons);
    QCOMPARE(alerts.shown(1).escapeButton, first);
    QCOMPARE(ends.count(), 1);
}

void PLAppDelegateTest::endingQuietlySavesWithoutAnAlert()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path));
    typeInto(*delegate.projectWindows().front(), u"new "_s);
    delegate.terminateQuietly();
    QCOMPARE(alerts.count(), 0);
    QCOMPARE(ends.count(), 1);
    QCOMPARE(PLBytesOf(chapterOf(path)), QByteArray("new text\n"));
}

void PLAppDelegateTest::endingQuietlyGoesOnWhereSavingFails()
{
    PLAlertScript alerts;
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QStringList paths{makeNotebook(u"Un"_s), makeNotebook(u"Deux"_s)};
    for (const QString &path : paths)
        QVERIFY(delegate.openFile(path));
    for (const auto &controller : delegate.projectWindows())
        typeInto(*controller, u"new "_s);
    takeBookAway(paths.first());
    delegate.terminateQuietly();
    QCOMPARE(alerts.count(), 0);
    QCOMPARE(ends.count(), 1);
    QCOMPARE(PLBytesOf(chapterOf(paths.last())), QByteArray("new text\n"));
}

void PLAppDelegateTest::aQuitWithinAQuitAsksNothing()
{
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path));
    typeInto(*delegate.projectWindows().front(), u"new "_s);
    takeBookAway(path);
    int alerts = 0;
    PLAlert::setResponder([&](const PLAlert &) {
        ++alerts;
        delegate.terminate();
        return first;
    });
    delegate.terminate();
    PLAlert::setResponder({});
    QCOMPARE(alerts, 2);
    QCOMPARE(ends.count(), 0);
}

void PLAppDelegateTest::aRequestWithPathsOpensThem()
{
    PLAppDelegate delegate;
    delegate.showLibrary();
    delegate.applicationHandleRequest({makeNotebook(u"Un"_s), makeNotebook(u"Deux"_s) + u"/projet.md"_s}, {});
    QCOMPARE(delegate.projectWindows().size(), size_t(2));
    QVERIFY(!delegate.library()->window()->isVisible());
}

void PLAppDelegateTest::aRequestWithoutPathsShowsTheLibraryIfNothingIsVisible()
{
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(makeNotebook(u"Roman"_s)));
    delegate.applicationHandleRequest({}, {});
    QVERIFY(!delegate.library());
    delegate.projectWindows().front()->window()->hide();
    delegate.applicationHandleRequest({}, {});
    QVERIFY(delegate.library() && delegate.library()->window()->isVisible());
}

QTEST_MAIN(PLAppDelegateTest)
#include "PLAppDelegateTest.moc"
