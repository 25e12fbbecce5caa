// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"
#include "app/PLWindowIcon.h"
#include "notebook_window/PLProjectWindowController.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The commands that the application itself carries out on all of its windows, and its about panel.
class PLApplicationCommandsTest final : public QObject
{
    Q_OBJECT

private:
    bool openNotebook(const QString &name);
    PLWindow *window(size_t index) const { return m_delegate->projectWindows().at(index)->window(); }
    static QList<QMessageBox *> aboutPanels();

    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<PLAppDelegate> m_delegate;

private Q_SLOTS:
    void init();
    void cleanup();

    void hidingPutsEveryWindowAway();
    void showingAllBringsEveryWindowBack();
    void aWindowThatWasClosedStaysClosed();
    void aMaximizedWindowComesBackMaximized();
    void withNothingHiddenThereIsNothingToShow();
    void withEverythingHiddenThereIsNothingToHide();
    void otherApplicationsCannotBeHidden();
    void aSecondStartShowsWhatWasHidden();
    void bringingAllToTheFrontKeepsTheWindowInFront();
    void bringingAllToTheFrontLeavesClosedWindowsClosed();
    void theAboutPanelTellsVersionAndLicence_data();
    void theAboutPanelTellsVersionAndLicence();
    void theAboutPanelIsOne();
    void theAboutPanelClosesByItsButtonAndByEscape();
    void theAboutPanelHoldsNoWindowUp();
    void theAboutPanelGoesWithTheProgram();
};

bool PLApplicationCommandsTest::openNotebook(const QString &name)
{
    const QString path = m_folder->filePath(name);
    return PLMakeFile(path + u"/projet.md"_s, "---\ntitre: " + name.toUtf8() + "\n---\n") &&
           PLMakeFile(path + u"/Livre/01 - A.md"_s, "text\n") && m_delegate->openFile(path);
}

QList<QMessageBox *> PLApplicationCommandsTest::aboutPanels()
{
    QList<QMessageBox *> panels;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (auto *panel = qobject_cast<QMessageBox *>(widget))
            panels.append(panel);
    }
    return panels;
}

void PLApplicationCommandsTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_delegate = std::make_unique<PLAppDelegate>();
}

void PLApplicationCommandsTest::cleanup()
{
    m_delegate.reset();
    m_folder.reset();
    m_environment.reset();
}

void PLApplicationCommandsTest::hidingPutsEveryWindowAway()
{
    QVERIFY(openNotebook(u"Un"_s) && openNotebook(u"Deux"_s));
    m_delegate->showPreferences();
    PLCommandChain::perform(PLCommand::Hide);
    QVERIFY(window(0)->isMinimized());
    QVERIFY(window(1)->isMinimized());
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const QWidget *widget : widgets) {
        if (qobject_cast<const PLWindow *>(widget) && widget->isVisible())
            QVERIFY2(widget->isMinimized(), qPrintable(widget->windowTitle()));
    }
}

void PLApplicationCommandsTest::showingAllBringsEveryWindowBack()
{
    QVERIFY(openNotebook(u"Un"_s) && openNotebook(u"Deux"_s));
    PLCommandChain::perform(PLCommand::Hide);
    PLCommandChain::perform(PLCommand::UnhideAllApplications);
    QVERIFY(!window(0)->isMinimized() && window(0)->isVisible());
    QVERIFY(!window(1)->isMinimized() && window(1)->isVisible());
}

void PLApplicationCommandsTest::aWindowThatWasClosedStaysClosed()
{
    m_delegate->showLibrary();
    m_delegate->showPreferences();
    QVERIFY(openNotebook(u"Un"_s)); // closes the library
    PLCommandChain::perform(PLCommand::Hide);
    QVERIFY(!m_delegate->library()->window()->isVisible());
    PLCommandChain::perform(PLCommand::UnhideAllApplications);
    QVERIFY(!m_delegate->library()->window()->isVisible());
}

void PLApplicationCommandsTest::aMaximizedWindowComesBackMaximized()
{
    QVERIFY(openNotebook(u"Un"_s));
    window(0)->showMaximized();
    PLCommandChain::perform(PLCommand::Hide);
    PLCommandChain::perform(PLCommand::UnhideAllApplications);
    QVERIFY(window(0)->isMaximized());
    QVERIFY(!window(0)->isMinimized());
}

void PLApplicationCommandsTest::withNothingHiddenThereIsNothingToShow()
{
    QVERIFY(openNotebook(u"Un"_s));
    QVERIFY(!PLCommandChain::state(PLCommand::UnhideAllApplications).enabled);
    window(0)->showMinimized();
    QVERIFY(PLCommandChain::state(PLCommand::UnhideAllApplications).enabled);
}

void PLApplicationCommandsTest::withEverythingHiddenThereIsNothingToHide()
{
    QVERIFY(openNotebook(u"Un"_s));
    QVERIFY(PLCommandChain::state(PLCommand::Hide).enabled);
    window(0)->showMinimized();
    QVERIFY(!PLCommandChain::state(PLCommand::Hide).enabled);
}

void PLApplicationCommandsTest::otherApplicationsCannotBeHidden()
{
    QVERIFY(openNotebook(u"Un"_s));
    QVERIFY(!PLCommandChain::state(PLCommand::HideOtherApplications).enabled);
}

void PLApplicationCommandsTest::aSecondStartShowsWhatWasHidden()
{
    QVERIFY(openNotebook(u"Un"_s));
    PLCommandChain::perform(PLCommand::Hide);
    m_delegate->applicationHandleRequest({}, {});
    QVERIFY(!window(0)->isMinimized());
    QVERIFY(!m_delegate->library());
}

void PLApplicationCommandsTest::bringingAllToTheFrontKeepsTheWindowInFront()
{
    QVERIFY(openNotebook(u"Un"_s) && openNotebook(u"Deux"_s));
    window(0)->makeKeyAndOrderFront();
    QTRY_VERIFY(window(0)->isActiveWindow());
    PLCommandChain::perform(PLCommand::ArrangeInFront);
    QCoreApplication::processEvents();
    QTRY_VERIFY(window(0)->isActiveWindow());
}

void PLApplicationCommandsTest::bringingAllToTheFrontLeavesClosedWindowsClosed()
{
    m_delegate->showLibrary();
    QVERIFY(openNotebook(u"Un"_s)); // closes the library
    PLCommandChain::perform(PLCommand::ArrangeInFront);
    QVERIFY(!m_delegate->library()->window()->isVisible());
}

void PLApplicationCommandsTest::theAboutPanelTellsVersionAndLicence_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<QString>("licence");
    QTest::newRow("fr") << u"fr"_s << u"À propos d'Aquilane"_s
                        << u"Un carnet d'écriture pour les Mac d'hier."_s
                        << u"Logiciel libre, sous licence MIT."_s;
    QTest::newRow("en") << u"en"_s << u"About Aquilane"_s << u"A writing notebook for yesterday's Macs."_s
                        << u"Free software, under the MIT licence."_s;
}

void PLApplicationCommandsTest::theAboutPanelTellsVersionAndLicence()
{
    QFETCH(const QString, language);
    QFETCH(const QString, title);
    QFETCH(const QString, sentence);
    QFETCH(const QString, licence);
    m_environment->setLanguage(language);
    PLInstallWindowIcon();
    PLCommandChain::perform(PLCommand::ShowAbout);
    QCOMPARE(aboutPanels().size(), 1);
    const QMessageBox *panel = aboutPanels().constFirst();
    QVERIFY(panel->isVisible());
    QCOMPARE(panel->windowTitle(), title);
    QCOMPARE(panel->text(), u"Aquilane " AQUILANE_VERSION ""_s);
    const QStringList lines = panel->informativeText().split(u'\n');
    QVERIFY2(lines.contains(sentence), qPrintable(panel->informativeText()));
    QVERIFY2(lines.contains(licence), qPrintable(panel->informativeText()));
    QCOMPARE(panel->iconPixmap().size(), QSize(64, 64));
}

void PLApplicationCommandsTest::theAboutPanelIsOne()
{
    PLCommandChain::perform(PLCommand::ShowAbout);
    PLCommandChain::perform(PLCommand::ShowAbout);
    QCOMPARE(aboutPanels().size(), 1);
    aboutPanels().constFirst()->close();
    QTRY_VERIFY(aboutPanels().isEmpty());
    PLCommandChain::perform(PLCommand::ShowAbout);
    QCOMPARE(aboutPanels().size(), 1);
}

void PLApplicationCommandsTest::theAboutPanelClosesByItsButtonAndByEscape()
{
    PLCommandChain::perform(PLCommand::ShowAbout);
    aboutPanels().constFirst()->buttons().constFirst()->click();
    QTRY_VERIFY(aboutPanels().isEmpty());
    PLCommandChain::perform(PLCommand::ShowAbout);
    QTest::keyClick(aboutPanels().constFirst(), Qt::Key_Escape);
    QTRY_VERIFY(aboutPanels().isEmpty());
}

void PLApplicationCommandsTest::theAboutPanelHoldsNoWindowUp()
{
    PLCommandChain::perform(PLCommand::ShowAbout);
    QVERIFY(!aboutPanels().constFirst()->isModal());
}

void PLApplicationCommandsTest::theAboutPanelGoesWithTheProgram()
{
    PLCommandChain::perform(PLCommand::ShowAbout);
    m_delegate.reset();
    QVERIFY(aboutPanels().isEmpty());
}

QTEST_MAIN(PLApplicationCommandsTest)
#include "PLApplicationCommandsTest.moc"
