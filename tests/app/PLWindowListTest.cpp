// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLWindowList.h"

#include "platform/PLWindow.h"
#include "support/PLTestEnvironment.h"

#include <QAction>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

/// The windows at the end of the Window menu.
class PLWindowListTest final : public QObject
{
    Q_OBJECT

private:
    /// A shown window of this title.
    static std::unique_ptr<PLWindow> makeWindow(const QString &title);
    /// The titles that the menu shows when it is opened, with "* " before that of the checked one.
    QStringList openMenu();

    PLTestEnvironment m_environment;
    std::unique_ptr<QMenu> m_menu;

private Q_SLOTS:
    void init();

    void withoutAWindowNothingIsAdded();
    void theWindowsComeInTheOrderOfTheirTitles();
    void theListIsMadeAnewEachTime();
    void theWindowInFrontIsChecked();
    void aHiddenWindowIsNotListed();
    void aPanelIsNotListed();
    void aMinimizedWindowIsListedAndComesBack();
    void choosingAWindowBringsItForward();
    void aWindowThatIsGoneIsNotBroughtForward();
    void anAmpersandIsShownAsOne();
    void theMarkOfAnEditedWindowIsLeftOut();
};

std::unique_ptr<PLWindow> PLWindowListTest::makeWindow(const QString &title)
{
    auto window = std::make_unique<PLWindow>(nullptr);
    window->setWindowTitle(title);
    window->makeKeyAndOrderFront();
    return window;
}

QStringList PLWindowListTest::openMenu()
{
    Q_EMIT m_menu->aboutToShow();
    QStringList titles;
    const QList<QAction *> actions = m_menu->actions();
    for (const QAction *action : actions)
        titles.append(action->isSeparator() ? u"---"_s
                                            : (action->isChecked() ? u"* "_s : QString()) + action->text());
    return titles;
}

void PLWindowListTest::init()
{
    m_menu = std::make_unique<QMenu>();
    m_menu->addAction(u"Plein écran"_s);
    PLAddWindowList(m_menu.get());
}

void PLWindowListTest::withoutAWindowNothingIsAdded()
{
    QCOMPARE(openMenu(), QStringList{u"Plein écran"_s});
}

void PLWindowListTest::theWindowsComeInTheOrderOfTheirTitles()
{
    const auto one = makeWindow(u"été"_s);
    const auto two = makeWindow(u"Zola"_s);
    const auto three = makeWindow(u"Chapitre 10"_s);
    const auto four = makeWindow(u"Chapitre 2"_s);
    QTRY_VERIFY(four->isActiveWindow());
    QCOMPARE(openMenu(), QStringList({u"Plein écran"_s, u"---"_s, u"* Chapitre 2"_s, u"Chapitre 10"_s,
                                      u"été"_s, u"Zola"_s}));
}

void PLWindowListTest::theListIsMadeAnewEachTime()
{
    const auto one = makeWindow(u"Un"_s);
    QCOMPARE(openMenu().size(), 3);
    auto two = makeWindow(u"Deux"_s);
    QCOMPARE(openMenu().size(), 4);
    two.reset();
    one->setWindowTitle(u"Autre"_s);
    QCOMPARE(openMenu().size(), 3);
    QVERIFY(m_menu->actions().constLast()->text() == u"Autre");
}

void PLWindowListTest::theWindowInFrontIsChecked()
{
    const auto one = makeWindow(u"Un"_s);
    const auto two = makeWindow(u"Deux"_s);
    one->makeKeyAndOrderFront();
    QTRY_VERIFY(one->isActiveWindow());
    QCOMPARE(openMenu(), QStringList({u"Plein écran"_s, u"---"_s, u"Deux"_s, u"* Un"_s}));
}

void PLWindowListTest::aHiddenWindowIsNotListed()
{
    const auto one = makeWindow(u"Un"_s);
    one->hide();
    QCOMPARE(openMenu(), QStringList{u"Plein écran"_s});
}

void PLWindowListTest::aPanelIsNotListed()
{
    const auto one = makeWindow(u"Un"_s);
    QWidget panel(one.get(), Qt::Tool);
    panel.setWindowTitle(u"Rechercher"_s);
    panel.show();
    QCOMPARE(openMenu().size(), 3);
}

void PLWindowListTest::aMinimizedWindowIsListedAndComesBack()
{
    const auto one = makeWindow(u"Un"_s);
    one->showMinimized();
    QCOMPARE(openMenu().size(), 3);
    m_menu->actions().constLast()->trigger();
    QVERIFY(!one->isMinimized());
}

void PLWindowListTest::choosingAWindowBringsItForward()
{
    const auto one = makeWindow(u"Un"_s);
    const auto two = makeWindow(u"Deux"_s);
    QTRY_VERIFY(two->isActiveWindow());
    openMenu();
    m_menu->actions().constLast()->trigger();
    QTRY_VERIFY(one->isActiveWindow());
}

void PLWindowListTest::aWindowThatIsGoneIsNotBroughtForward()
{
    auto one = makeWindow(u"Un"_s);
    openMenu();
    one.reset();
    m_menu->actions().constLast()->trigger();
    QCOMPARE(openMenu(), QStringList{u"Plein écran"_s});
}

void PLWindowListTest::anAmpersandIsShownAsOne()
{
    const auto one = makeWindow(u"Paul & Virginie"_s);
    openMenu();
    QCOMPARE(m_menu->actions().constLast()->text(), u"Paul && Virginie"_s);
}

/// "[*]" is where Qt puts the mark of an edited window; one of the writer's own is doubled.
void PLWindowListTest::theMarkOfAnEditedWindowIsLeftOut()
{
    const auto one = makeWindow(u"Un [*][*] roman[*]"_s);
    openMenu();
    QCOMPARE(m_menu->actions().constLast()->text(), u"Un [*] roman"_s);
}

QTEST_MAIN(PLWindowListTest)
#include "PLWindowListTest.moc"
