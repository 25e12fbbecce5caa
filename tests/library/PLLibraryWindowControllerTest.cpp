// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLLibraryWindowController.h"

#include "foundation/PLPreferences.h"
#include "library/PLRecordingLibraryDelegate.h"
#include "platform/PLReveal.h"
#include "storage/PLRecentProjects.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"

#include <QAccessible>
#include <QLabel>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<QUrl> revealed;

QStringList titlesOf(const PLLibraryWindowController &library)
{
    QStringList titles;
    for (const PLShelfBook &book : library.shelfView()->books())
        titles.append(book.title);
    return titles;
}

} // namespace

class PLLibraryWindowControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theWindowIsAsItHasToBe_data();
    void theWindowIsAsItHasToBe();
    void thePartsKeepTheirPlaces_data();
    void thePartsKeepTheirPlaces();
    void aNarrowerWindowFlowsTheBooksAnew();
    void aDarkDesktopChangesNothing();
    void theFrameIsRemembered();
    void anEmptyLibraryHasNothingToOpen();
    void booksAreInTheOrderOfTheList();
    void aBookIsWhatItsNotebookSays_data();
    void aBookIsWhatItsNotebookSays();
    void theSelectionStaysOnItsNotebook();
    void withoutASelectionTheFirstBookIsSelected();
    void theOpenButtonFollowsTheSelection();
    void booksAreOpenedByDoubleClickAndReturn();
    void returnPressesTheOpenButtonUnlessAnotherHasTheFocus();
    void theModeIsRemembered();
    void theModeControlIsReachedByKeys();
    void aMissingNotebookIsKept();
    void removingForgetsTheNotebookAndNotItsFolder();
    void thereIsNoDeleteKey();
    void buttonsAskTheApplication();
    void theContextMenuIsAsItHasToBe_data();
    void theContextMenuIsAsItHasToBe();
    void commandsAreEnabledWhereTheyApply();
    void theFocusIsOnTheShelfWhenTheWindowIsShown();
    void everyPartHasANameForAScreenReader();
    void closingIsTold();

private:
    PLTestEnvironment m_environment;
    PLRecordingLibraryDelegate m_delegate;
};

void PLLibraryWindowControllerTest::init()
{
    m_environment.forgetPreferences();
    m_environment.setLanguage(u"fr"_s);
    m_delegate = PLRecordingLibraryDelegate();
    revealed.clear();
    PLSetRevealHandler([](const QUrl &location) { revealed.append(location); });
}

void PLLibraryWindowControllerTest::theWindowIsAsItHasToBe_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("French") << u"fr"_s
                            << QStringList{u"Bibliothèque"_s,   u"Ma bibliothèque"_s, u"De face"_s,
                                           u"Sur la tranche"_s, u"Nouveau carnet…"_s, u"Ouvrir un autre…"_s,
                                           u"Ouvrir"_s};
    QTest::newRow("English") << u"en"_s
                             << QStringList{u"Library"_s,       u"My Library"_s,    u"Covers"_s, u"Spines"_s,
                                            u"New Notebook…"_s, u"Open Another…"_s, u"Open"_s};
}

void PLLibraryWindowControllerTest::theWindowIsAsItHasToBe()
{
    QFETCH(QString, language);
    QFETCH(QStringList, texts);
    m_environment.setLanguage(language);
    PLLibraryWindowController library(m_delegate);
    const PLLibraryContent &content = *library.content();

    QCOMPARE(library.window()->size(),
             QSize(900, 640).boundedTo(library.window()->screen()->availableSize()));
    QCOMPARE(library.window()->minimumSize(), QSize(560, 440));
    QCOMPARE(QStringList({library.window()->windowTitle(), content.findChild<QLabel *>()->text(),
                          content.modeControl()->segment(0)->text(),
                          content.modeControl()->segment(1)->text(), content.newButton()->text(),
                          content.otherButton()->text(), content.openButton()->text()}),
             texts);
    QVERIFY(
        library.shelfView()->emptyMessage().startsWith(language == u"fr" ? u"Votre biblio" : u"Your lib"));
}

void PLLibraryWindowControllerTest::thePartsKeepTheirPlaces_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("at first") << QSize(900, 640);
    QTest::newRow("at its smallest") << QSize(560, 440);
    QTest::newRow("large") << QSize(1601, 1003);
}

/// The places are given from the lower left corner.
void PLLibraryWindowControllerTest::thePartsKeepTheirPlaces()
{
    QFETCH(QSize, size);
    PLLibraryWindowController library(m_delegate);
    PLLibraryContent &content = *library.content();
    library.window()->resize(size);
    library.showWindow();
    const int width = content.width();
    const int height = content.height();
    const auto frame = [&](const QWidget *part) {
        const QRect rect(part->mapTo(&content, QPoint()), part->size());
        return QRect(rect.x(), height - rect.y() - rect.height(), rect.width(), rect.height());
    };
    QCOMPARE(content.size(), size);
    QCOMPARE(frame(content.newButton()->parentWidget()), QRect(0, 0, width, 52));
    QCOMPARE(frame(content.modeControl()->parentWidget()), QRect(0, height - 56, width, 56));
    QCOMPARE(frame(content.findChild<QScrollArea *>()), QRect(0, 52, width, height - 56 - 52));
    QCOMPARE(frame(content.newButton()), QRect(16, 10, 150, 32));
    QCOMPARE(frame(content.otherButton()), QRect(164, 10, 150, 32));
    QCOMPARE(frame(content.openButton()), QRect(width - 122, 10, 106, 32));
    QCOMPARE(frame(content.modeControl()), QRect(width - 250, height - 56 + 15, 230, 25));
    QCOMPARE(frame(content.findChild<QLabel *>()), QRect(22, height - 56 + 14, 360, 28));
    QCOMPARE(content.modeControl()->segment(0)->width(), 100);
    QCOMPARE(content.modeControl()->segment(1)->width(), 122);
}

static std::vector<std::unique_ptr<PLTestNotebook>> sixKnownNotebooks()
{
    std::vector<std::unique_ptr<PLTestNotebook>> notebooks;
    for (int count = 0; count < 6; ++count) {
        notebooks.push_back(std::make_unique<PLTestNotebook>());
        PLRecentProjects::addURL(notebooks.back()->url());
    }
    return notebooks;
}

void PLLibraryWindowControllerTest::aNarrowerWindowFlowsTheBooksAnew()
{
    const auto notebooks = sixKnownNotebooks();
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QCOMPARE(library.shelfView()->shelfLayout().rows, 2);
    library.window()->resize(560, 440);
    QTRY_COMPARE(library.shelfView()->shelfLayout().rows, 2);
    QTRY_COMPARE(library.shelfView()->rectForBookAtIndex(3).y(), 30 + 250);
    library.window()->resize(1100, 640);
    QTRY_COMPARE(library.shelfView()->shelfLayout().rows, 1);
}

/// The library is of wood, its scroll bar too.
void PLLibraryWindowControllerTest::aDarkDesktopChangesNothing()
{
    const auto notebooks = sixKnownNotebooks();
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    library.window()->resize(560, 440);
    QTRY_VERIFY(library.content()->findChild<QScrollArea *>()->verticalScrollBar()->isVisible());
    const QImage onLight = library.content()->grab().toImage();

    const auto restored = qScopeGuard([light = QApplication::palette()] { QApplication::setPalette(light); });
    QApplication::setPalette(QPalette(QColor(40, 40, 44), QColor(30, 30, 32)));
    QApplication::processEvents();

    QCOMPARE(library.content()->grab().toImage(), onLight);
}

void PLLibraryWindowControllerTest::theFrameIsRemembered()
{
    {
        PLLibraryWindowController library(m_delegate);
        library.showWindow();
        library.window()->setGeometry(40, 50, 700, 500);
        library.window()->close();
    }
    QVERIFY(PLPreferences::store().contains(u"PLWindowFrame PLLibrary"_s));
    PLLibraryWindowController library(m_delegate);
    QCOMPARE(library.window()->size(), QSize(700, 500));
}

void PLLibraryWindowControllerTest::anEmptyLibraryHasNothingToOpen()
{
    PLLibraryWindowController library(m_delegate);

    QVERIFY(library.shelfView()->books().empty());
    QCOMPARE(library.shelfView()->selectedIndex(), -1);
    QCOMPARE(library.shelfView()->emptyMessage(),
             u"Votre bibliothèque est vide.\nCréez un premier carnet pour commencer à écrire."_s);
    QVERIFY(!library.content()->openButton()->isEnabled());
    QVERIFY(!library.stateOfCommand(PLCommand::RemoveSelected, 0)->enabled);
    library.openSelected();
    library.removeSelected();
    library.chooseCover();
    library.removeCover();
    library.revealSelected(); // a beep
    QVERIFY(m_delegate.opened.isEmpty());
    QVERIFY(revealed.isEmpty());
}

void PLLibraryWindowControllerTest::booksAreInTheOrderOfTheList()
{
    PLTestNotebook first(u"Premier"_s);
    PLTestNotebook second(u"Second"_s);
    PLRecentProjects::addURL(first.url());
    PLRecentProjects::addURL(second.url());
    PLLibraryWindowController library(m_delegate);

    QCOMPARE(titlesOf(library), QStringList({u"Second"_s, u"Premier"_s}));
    QCOMPARE(library.shelfView()->books()[0].url, PLRecentProjects::URLs().at(0));
    QCOMPARE(library.shelfView()->selectedIndex(), 0);
}

void PLLibraryWindowControllerTest::aBookIsWhatItsNotebookSays_data()
{
    QTest::addColumn<QString>("metadata");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("author");
    QTest::newRow("title and author")
        << u"---\ntitre: Le phare\nauteur: Anne\n---\n"_s << u"Le phare"_s << u"Anne"_s;
    QTest::newRow("no author") << u"---\ntitre: Le phare\n---\n"_s << u"Le phare"_s << QString();
    QTest::newRow("an empty title") << u"---\ntitre:\nauteur: Anne\n---\n"_s << u"Roman"_s << u"Anne"_s;
    QTest::newRow("no header") << u"Texte"_s << u"Roman"_s << QString();
    QTest::newRow("an empty file") << QString() << u"Roman"_s << QString();
}

void PLLibraryWindowControllerTest::aBookIsWhatItsNotebookSays()
{
    QFETCH(QString, metadata);
    QFETCH(QString, title);
    QFETCH(QString, author);
    PLTestNotebook notebook;
    notebook.write(u"projet.md"_s, metadata);
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);

    const PLShelfBook &book = library.shelfView()->books().at(0);
    QVERIFY(book.available);
    QCOMPARE(book.title, title);
    QCOMPARE(book.author, author);
    QVERIFY(book.cover.isNull());
}

void PLLibraryWindowControllerTest::theSelectionStaysOnItsNotebook()
{
    PLTestNotebook first(u"Premier"_s);
    PLTestNotebook second(u"Second"_s);
    PLTestNotebook third(u"Troisième"_s);
    PLRecentProjects::addURL(first.url());
    PLRecentProjects::addURL(second.url());
    PLLibraryWindowController library(m_delegate);
    library.shelfView()->setSelectedIndex(1);
    QCOMPARE(library.shelfView()->selectedBook()->title, u"Premier"_s);

    PLRecentProjects::addURL(third.url());
    library.reload();
    QCOMPARE(library.shelfView()->selectedBook()->title, u"Premier"_s);
    QCOMPARE(library.shelfView()->selectedIndex(), 2);

    PLRecentProjects::removeURL(first.url());
    library.reload();
    QCOMPARE(library.shelfView()->selectedBook()->title, u"Troisième"_s);
}

void PLLibraryWindowControllerTest::withoutASelectionTheFirstBookIsSelected()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    library.shelfView()->setSelectedIndex(-1);
    library.reload();
    QCOMPARE(library.shelfView()->selectedIndex(), 0);
    QVERIFY(library.content()->openButton()->isEnabled());
}

void PLLibraryWindowControllerTest::theOpenButtonFollowsTheSelection()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QVERIFY(library.content()->openButton()->isEnabled());
    QTest::mouseClick(library.shelfView(), Qt::LeftButton, {}, {3, 3}); // beside the book
    QVERIFY(!library.content()->openButton()->isEnabled());
    QTest::mouseClick(library.shelfView(), Qt::LeftButton, {},
                      library.shelfView()->rectForBookAtIndex(0).center());
    QVERIFY(library.content()->openButton()->isEnabled());
}

void PLLibraryWindowControllerTest::booksAreOpenedByDoubleClickAndReturn()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();

    QTest::keyClick(library.shelfView(), Qt::Key_Return);
    QCOMPARE(m_delegate.opened, QStringList{notebook.path()});
    const QPoint center = library.shelfView()->rectForBookAtIndex(0).center();
    // Qt Test sends the second half of a double click alone.
    QTest::mouseClick(library.shelfView(), Qt::LeftButton, {}, center);
    QTest::mouseDClick(library.shelfView(), Qt::LeftButton, {}, center);
    QCOMPARE(m_delegate.opened.size(), 2);
}

void PLLibraryWindowControllerTest::returnPressesTheOpenButtonUnlessAnotherHasTheFocus()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTest::keyClick(library.content()->modeControl()->segment(0), Qt::Key_Return);
    QCOMPARE(m_delegate.opened.size(), 1);
    QTest::keyClick(library.content(), Qt::Key_Enter);
    QCOMPARE(m_delegate.opened.size(), 2);
    QTest::keyClick(library.content()->newButton(), Qt::Key_Return);
    QCOMPARE(m_delegate.newProjects, 1);
    QCOMPARE(m_delegate.opened.size(), 2);
    library.shelfView()->setSelectedIndex(-1);
    QTest::keyClick(library.shelfView(), Qt::Key_Return);
    QTest::keyClick(library.content(), Qt::Key_Return);
    QCOMPARE(m_delegate.opened.size(), 2);
}

void PLLibraryWindowControllerTest::theModeIsRemembered()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    {
        PLLibraryWindowController library(m_delegate);
        QCOMPARE(library.content()->modeControl()->selectedSegment(), 0);
        QVERIFY(!library.shelfView()->spineMode());
        library.content()->modeControl()->segment(1)->click();
        QVERIFY(library.shelfView()->spineMode());
        QCOMPARE(PLPreferences::store().value(u"PLShelfSpineMode"_s).toBool(), true);
    }
    PLLibraryWindowController library(m_delegate);
    QCOMPARE(library.content()->modeControl()->selectedSegment(), 1);
    QVERIFY(library.shelfView()->spineMode());
    library.content()->modeControl()->segment(0)->click();
    QVERIFY(!library.shelfView()->spineMode());
    QCOMPARE(PLPreferences::store().value(u"PLShelfSpineMode"_s).toBool(), false);
}

void PLLibraryWindowControllerTest::theModeControlIsReachedByKeys()
{
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QVERIFY(QTest::qWaitForWindowActive(library.window()));
    PLModeControl *mode = library.content()->modeControl();
    mode->segment(0)->setFocus();
    QTest::keyClick(mode->segment(0), Qt::Key_Right);
    QCOMPARE(mode->selectedSegment(), 1);
    QVERIFY(library.shelfView()->spineMode());
    QTest::keyClick(mode->segment(1), Qt::Key_Left);
    QVERIFY(!library.shelfView()->spineMode());
    QTest::keyClick(mode->segment(0), Qt::Key_Space); // one of the two is always selected
    QCOMPARE(mode->selectedSegment(), 0);
}

void PLLibraryWindowControllerTest::aMissingNotebookIsKept()
{
    PLTestNotebook notebook;
    notebook.write(u"Ailleurs/couverture.png"_s, QString()); // a folder, but not a notebook any more
    PLRecentProjects::addURL(notebook.url());
    PLRecentProjects::addURL(notebook.url(u"Ailleurs"_s));
    PLLibraryWindowController library(m_delegate);

    const PLShelfBook &missing = library.shelfView()->books()[0];
    QVERIFY(!missing.available);
    QCOMPARE(missing.title, u"Ailleurs"_s);
    QVERIFY(missing.author.isNull() && missing.cover.isNull());
    QVERIFY(!library.isLoadingCovers());
    library.revealSelected(); // a beep
    library.chooseCover();
    library.removeCover();
    QVERIFY(revealed.isEmpty());
    QVERIFY(notebook.exists(u"Ailleurs/couverture.png"_s));
    library.openSelected(); // the application says that it is missing
    QCOMPARE(m_delegate.opened, QStringList{notebook.path(u"Ailleurs"_s)});
    library.shelfView()->setSelectedIndex(1);
    library.revealSelected();
    QCOMPARE(revealed, QList<QUrl>{library.shelfView()->books()[1].url});
}

void PLLibraryWindowControllerTest::removingForgetsTheNotebookAndNotItsFolder()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLRecentProjects::addURL(notebook.url(u"Ailleurs"_s));
    PLLibraryWindowController library(m_delegate);

    library.performCommand(PLCommand::RemoveSelected, 0);
    QCOMPARE(titlesOf(library), QStringList{u"Roman"_s});
    library.performCommand(PLCommand::RemoveSelected, 0);
    QVERIFY(library.shelfView()->books().empty());
    QVERIFY(!library.content()->openButton()->isEnabled());
    QVERIFY(PLRecentProjects::URLs().isEmpty());
    QVERIFY(notebook.exists(u"projet.md"_s));
}

void PLLibraryWindowControllerTest::thereIsNoDeleteKey()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QTest::keyClick(library.shelfView(), Qt::Key_Delete);
    QTest::keyClick(library.shelfView(), Qt::Key_Backspace);
    QCOMPARE(library.shelfView()->books().size(), size_t(1));
}

void PLLibraryWindowControllerTest::buttonsAskTheApplication()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);

    library.content()->newButton()->click();
    library.content()->otherButton()->click();
    library.content()->openButton()->click();

    QCOMPARE(m_delegate.newProjects, 1);
    QCOMPARE(m_delegate.openProjects, 1);
    QCOMPARE(m_delegate.opened, QStringList{notebook.path()});
}

void PLLibraryWindowControllerTest::theContextMenuIsAsItHasToBe_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("French") << u"fr"_s
                            << QStringList{u"Carnet"_s,
                                           u"Ouvrir"_s,
                                           u""_s,
                                           u"Choisir une image de couverture…"_s,
                                           u"Retirer l'image de couverture"_s,
                                           u""_s,
                                           u"Afficher dans le Finder"_s,
                                           u"Retirer de la bibliothèque"_s};
    QTest::newRow("English") << u"en"_s
                             << QStringList{u"Notebook"_s,
                                            u"Open"_s,
                                            u""_s,
                                            u"Choose Cover Image…"_s,
                                            u"Remove Cover Image"_s,
                                            u""_s,
                                            u"Show in Finder"_s,
                                            u"Remove from Library"_s};
}

void PLLibraryWindowControllerTest::theContextMenuIsAsItHasToBe()
{
    QFETCH(QString, language);
    QFETCH(QStringList, titles);
    m_environment.setLanguage(language);
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    QCOMPARE(library.shelfView()->menu(), library.contextMenu());

    QStringList found{library.contextMenu()->title()};
    const QList<QAction *> actions = library.contextMenu()->actions();
    for (const QAction *action : actions) {
        found.append(action->text());
        QVERIFY(action->shortcut().isEmpty());
    }
    QCOMPARE(found, titles);
    actions.first()->trigger();
    QCOMPARE(m_delegate.opened, QStringList{notebook.path()});
    actions.last()->trigger();
    QVERIFY(library.shelfView()->books().empty());
    Q_EMIT library.contextMenu()->aboutToShow();
    for (const QAction *action : actions)
        QCOMPARE(action->isEnabled(), action->isSeparator()); // nothing is selected any more
}

void PLLibraryWindowControllerTest::commandsAreEnabledWhereTheyApply()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLRecentProjects::addURL(notebook.url(u"Ailleurs"_s));
    PLLibraryWindowController library(m_delegate);
    const auto enabled = [&library] {
        QString states;
        for (const PLCommand command :
             {PLCommand::OpenSelected, PLCommand::ChooseCover, PLCommand::RemoveCover,
              PLCommand::RevealInFinder, PLCommand::RemoveSelected})
            states += library.stateOfCommand(command, 0)->enabled ? u'1' : u'0';
        return states;
    };
    library.shelfView()->setSelectedIndex(-1);
    QCOMPARE(enabled(), u"00000"_s);
    library.shelfView()->setSelectedIndex(0); // missing
    QCOMPARE(enabled(), u"10001"_s);
    library.shelfView()->setSelectedIndex(1); // without a cover
    QCOMPARE(enabled(), u"11011"_s);
    std::vector<PLShelfBook> books = library.shelfView()->books();
    books[1].cover = QImage(2, 2, QImage::Format_RGB32);
    library.shelfView()->setBooks(books);
    QCOMPARE(enabled(), u"11111"_s);
    QVERIFY(!library.stateOfCommand(PLCommand::NewProject, 0)); // left to the application
}

void PLLibraryWindowControllerTest::theFocusIsOnTheShelfWhenTheWindowIsShown()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();
    QVERIFY(QTest::qWaitForWindowActive(library.window()));
    QVERIFY(library.shelfView()->hasFocus());
    QTest::mouseClick(library.content()->modeControl()->segment(1), Qt::LeftButton);
    QVERIFY(library.shelfView()->hasFocus()); // a click leaves the arrow keys to the shelf

    QStringList order;
    for (int step = 0; step < 5; ++step) {
        QTest::keyClick(library.window(), Qt::Key_Tab);
        const auto *button = qobject_cast<QAbstractButton *>(QApplication::focusWidget());
        order.append(button ? button->text() : u"the shelf"_s);
    }
    QCOMPARE(order, QStringList({u"Nouveau carnet…"_s, u"Ouvrir un autre…"_s, u"Ouvrir"_s,
                                 u"Sur la tranche"_s, u"the shelf"_s}));
    library.content()->newButton()->setFocus();
    library.window()->hide();
    library.showWindow();
    QCOMPARE(library.window()->focusWidget(), library.shelfView());
}

void PLLibraryWindowControllerTest::everyPartHasANameForAScreenReader()
{
    PLLibraryWindowController library(m_delegate);
    const QList<QAbstractButton *> buttons = library.content()->findChildren<QAbstractButton *>();
    int named = 0;
    for (QAbstractButton *button : buttons) {
        if (!button->inherits("PLWoodButton"))
            continue; // of the scroll bar
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(button);
        QCOMPARE(accessible->text(QAccessible::Name), button->text());
        QCOMPARE(accessible->role(),
                 button->isCheckable() ? QAccessible::RadioButton : QAccessible::PushButton);
        ++named;
    }
    QCOMPARE(named, 5);
    QCOMPARE(QAccessible::queryAccessibleInterface(library.shelfView())->text(QAccessible::Name),
             u"Ma bibliothèque"_s);
}

void PLLibraryWindowControllerTest::closingIsTold()
{
    PLLibraryWindowController library(m_delegate);
    QSignalSpy closed(&library, &PLLibraryWindowController::windowClosed);
    library.showWindow();

    library.window()->hide();
    QCOMPARE(closed.count(), 0);
    library.showWindow();
    library.window()->close();
    QCOMPARE(closed.count(), 1);
    library.showWindow(); // it is kept
    QVERIFY(library.window()->isVisible());
}

QTEST_MAIN(PLLibraryWindowControllerTest)
#include "PLLibraryWindowControllerTest.moc"
