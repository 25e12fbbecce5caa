// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLLibraryWindowController.h"

#include "platform/PLReveal.h"
#include "storage/PLFiles.h"
#include "storage/PLRecentProjects.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<QUrl> revealed;

/// Writes down what the library asks of the application.
class RecordingDelegate final : public PLLibraryDelegate
{
public:
    bool openProjectAtURL(const QUrl &folder) override
    {
        opened.append(PLStandardizedPath(folder));
        return true;
    }
    void newProject() override { ++newProjects; }
    void openProject() override { ++openProjects; }

    QStringList opened;
    int newProjects = 0;
    int openProjects = 0;
};

QPushButton *buttonTitled(const QWidget &window, const QString &title)
{
    const auto buttons = window.findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text() == title)
            return button;
    }
    return nullptr;
}

} // namespace

class PLLibraryWindowControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void anEmptyLibraryHasNothingToOpen();
    void booksAreListedMostRecentFirst();
    void theSelectionStaysOnItsNotebook();
    void returnAndDoubleClickOpen();
    void deleteForgetsTheNotebookAndNotItsFolder();
    void aMissingNotebookIsSaidToBe();
    void buttonsAskTheApplication();
    void closingIsTold();

private:
    PLTestEnvironment m_environment;
    RecordingDelegate m_delegate;
};

void PLLibraryWindowControllerTest::init()
{
    m_environment.forgetPreferences();
    m_environment.setLanguage(u"fr"_s);
    m_delegate = RecordingDelegate();
    revealed.clear();
    PLSetRevealHandler([](const QUrl &location) { revealed.append(location); });
}

void PLLibraryWindowControllerTest::anEmptyLibraryHasNothingToOpen()
{
    PLLibraryWindowController library(m_delegate);

    QCOMPARE(library.listView()->count(), 0);
    QVERIFY(!library.selectedBook());
    const auto *label = library.listView()->findChild<QLabel *>();
    QVERIFY(!label->isHidden());
    QVERIFY(label->text().startsWith(u"Votre bibliothèque est vide."));
    QVERIFY(!buttonTitled(*library.window(), u"Ouvrir"_s)->isEnabled());
    QVERIFY(!library.stateOfCommand(PLCommand::RemoveSelected, 0)->enabled);
    library.openSelected();
    library.removeSelected();
    QVERIFY(m_delegate.opened.isEmpty());
}

void PLLibraryWindowControllerTest::booksAreListedMostRecentFirst()
{
    PLTestNotebook first(u"Premier"_s);
    first.write(u"projet.md"_s, u"---\ntitre: Premier\nauteur: Jeanne Martin\n---\n"_s);
    PLTestNotebook second(QString{});
    PLRecentProjects::addURL(first.url());
    PLRecentProjects::addURL(second.url());
    PLLibraryWindowController library(m_delegate);

    QCOMPARE(library.listView()->count(), 2);
    QVERIFY(library.listView()->findChild<QLabel *>()->isHidden());
    QCOMPARE(library.listView()->item(0)->text(), u"Roman"_s); // no title: the folder's name
    QCOMPARE(library.listView()->item(1)->text(), u"Premier\nJeanne Martin"_s);
    QCOMPARE(library.listView()->currentRow(), 0);
}

void PLLibraryWindowControllerTest::theSelectionStaysOnItsNotebook()
{
    PLTestNotebook first(u"Premier"_s);
    PLTestNotebook second(u"Second"_s);
    PLTestNotebook third(u"Troisième"_s);
    PLRecentProjects::addURL(first.url());
    PLRecentProjects::addURL(second.url());
    PLLibraryWindowController library(m_delegate);
    library.listView()->setCurrentRow(1);
    QCOMPARE(library.selectedBook()->title, u"Premier"_s);

    PLRecentProjects::addURL(third.url());
    library.reload();
    QCOMPARE(library.selectedBook()->title, u"Premier"_s);

    PLRecentProjects::removeURL(first.url());
    library.reload();
    QCOMPARE(library.selectedBook()->title, u"Troisième"_s);
}

void PLLibraryWindowControllerTest::returnAndDoubleClickOpen()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);
    library.showWindow();

    QTest::keyClick(library.listView(), Qt::Key_Return);
    QCOMPARE(m_delegate.opened, QStringList{notebook.path()});
    const QPoint center = library.listView()->visualItemRect(library.listView()->item(0)).center();
    // Qt Test sends the second half of a double click alone.
    QTest::mouseClick(library.listView()->viewport(), Qt::LeftButton, {}, center);
    QTest::mouseDClick(library.listView()->viewport(), Qt::LeftButton, {}, center);
    QCOMPARE(m_delegate.opened.size(), 2);
}

void PLLibraryWindowControllerTest::deleteForgetsTheNotebookAndNotItsFolder()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);

    QTest::keyClick(library.listView(), Qt::Key_Delete);

    QCOMPARE(library.listView()->count(), 0);
    QVERIFY(PLRecentProjects::URLs().isEmpty());
    QVERIFY(notebook.exists(u"projet.md"_s));
}

void PLLibraryWindowControllerTest::aMissingNotebookIsSaidToBe()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLRecentProjects::addURL(notebook.url(u"Ailleurs"_s));
    PLLibraryWindowController library(m_delegate);

    QCOMPARE(library.listView()->item(0)->text(), u"Ailleurs (introuvable)"_s);
    QVERIFY(!library.selectedBook()->available);
    QVERIFY(!library.stateOfCommand(PLCommand::RevealInFinder, 0)->enabled);
    QVERIFY(library.stateOfCommand(PLCommand::OpenSelected, 0)->enabled);
    library.revealSelected();
    QVERIFY(revealed.isEmpty());
    library.openSelected(); // the application says that it is missing
    QCOMPARE(m_delegate.opened, QStringList{notebook.path(u"Ailleurs"_s)});

    library.listView()->setCurrentRow(1);
    library.revealSelected();
    QCOMPARE(revealed.size(), 1);
}

void PLLibraryWindowControllerTest::buttonsAskTheApplication()
{
    PLTestNotebook notebook;
    PLRecentProjects::addURL(notebook.url());
    PLLibraryWindowController library(m_delegate);

    buttonTitled(*library.window(), u"Nouveau carnet…"_s)->click();
    buttonTitled(*library.window(), u"Ouvrir un autre…"_s)->click();
    buttonTitled(*library.window(), u"Ouvrir"_s)->click();

    QCOMPARE(m_delegate.newProjects, 1);
    QCOMPARE(m_delegate.openProjects, 1);
    QCOMPARE(m_delegate.opened, QStringList{notebook.path()});
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
}

QTEST_MAIN(PLLibraryWindowControllerTest)
#include "PLLibraryWindowControllerTest.moc"
