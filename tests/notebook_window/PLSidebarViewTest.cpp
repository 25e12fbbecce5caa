// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLNotebookWindowFixture.h"
#include "notebook_window/PLSidebarRowDelegate.h"
#include "storage/PLProject.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

/// What keys, clicks and a screen reader find in the sidebar of a notebook window.
class PLSidebarViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void arrowsOpenPagesOneByOne();
    void arrowsOpenAndCloseTags();
    void aClickIsToldOnce();
    void typingFindsTitles_data();
    void typingFindsTitles();
    void keysRenameAndThrowAway_data();
    void keysRenameAndThrowAway();
    void aTagOpenedWithAllBelowItStaysOpen();
    void theContextMenuHasItsCommands_data();
    void theContextMenuHasItsCommands();
    void theContextMenuIsForTheRowThatWasClicked();
    void theContextMenuOfAKeyIsForTheSelection_data();
    void theContextMenuOfAKeyIsForTheSelection();
    void theAddButtonMakesAPageOfItsSection();
    void theAddButtonPressedTwiceMakesTwoPages();
    void theAddButtonSaysWhatItAdds();
    void theTagSectionHasNoAddButton();
    void aDoubleClickGoesToTheText();
    void aDoubleClickOnASectionDoesNot();
    void aScreenReaderHearsTheRows();
    void aDarkDesktopChangesNothing();

private:
    PLSidebarView *view() const { return m_window->sidebar().view(); }
    QModelIndex indexOf(const PLSidebarNode *node) const;
    QModelIndex indexOf(PLSection section) const;
    QPoint addButton(PLSection section) const;
    /// Runs `choose` on the menu that opens, then closes it.
    void whenMenuOpens(const std::function<void(QMenu &)> &choose) const;
    void rightClick(const QModelIndex &index) const;

    std::unique_ptr<PLNotebookWindowFixture> m_window;
};

void PLSidebarViewTest::init()
{
    m_window = std::make_unique<PLNotebookWindowFixture>();
    m_window->notebook.write(u"Livre/01 - Abbé.md"_s, u"un"_s);
    m_window->notebook.write(u"Livre/02 - Été.md"_s, u"---\ntags: mer\n---\n\ndeux"_s);
    m_window->notebook.write(u"Personnages/Émile.md"_s, u"---\ntags: Mer, port\n---\n\ntrois"_s);
    m_window->open();
    QVERIFY(QTest::qWaitForWindowActive(m_window->controller->window()));
    view()->setFocus();
}

void PLSidebarViewTest::cleanup()
{
    m_window.reset();
}

QModelIndex PLSidebarViewTest::indexOf(const PLSidebarNode *node) const
{
    return static_cast<PLSidebarModel *>(view()->model())->indexForNode(node);
}

QModelIndex PLSidebarViewTest::indexOf(PLSection section) const
{
    return indexOf(m_window->sidebar().tree().section(section));
}

QPoint PLSidebarViewTest::addButton(PLSection section) const
{
    return PLSidebarRowDelegate::addButtonRect(view()->visualRect(indexOf(section))).center();
}

void PLSidebarViewTest::whenMenuOpens(const std::function<void(QMenu &)> &choose) const
{
    QTimer::singleShot(0, m_window->controller.get(), [choose] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        choose(*menu);
        menu->close();
    });
}

void PLSidebarViewTest::rightClick(const QModelIndex &index) const
{
    const QPoint point = view()->visualRect(index).center();
    QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, point);
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, view()->viewport()->mapToGlobal(point));
    QApplication::sendEvent(view()->viewport(), &event);
}

void PLSidebarViewTest::arrowsOpenPagesOneByOne()
{
    QSignalSpy changes(&m_window->sidebar(), &PLSidebarController::selectionChanged);
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(view(), key);
        return m_window->selectedText();
    };

    QCOMPARE(press(Qt::Key_Down), u"Été"_s);
    QCOMPARE(m_window->editor()->text(), u"deux"_s);
    QCOMPARE(press(Qt::Key_Down), u"PERSONNAGES  ·  1"_s);
    QVERIFY(!m_window->editor()->isVisible());
    QCOMPARE(press(Qt::Key_Down), u"Émile"_s);
    QCOMPARE(press(Qt::Key_Up), u"PERSONNAGES  ·  1"_s);
    QCOMPARE(press(Qt::Key_Home), u"LE LIVRE  ·  2"_s);
    QCOMPARE(press(Qt::Key_End), u"# port  (1)"_s);
    QCOMPARE(changes.count(), 6);
}

void PLSidebarViewTest::arrowsOpenAndCloseTags()
{
    const PLSidebarTag *tag = m_window->sidebar().tree().sidebarTagNamed(u"mer"_s);
    QTest::keyClick(view(), Qt::Key_End);
    QTest::keyClick(view(), Qt::Key_Up);
    QVERIFY(view()->isExpanded(indexOf(tag))); // chosen, it opens
    QTest::keyClick(view(), Qt::Key_Left);
    QVERIFY(!view()->isExpanded(indexOf(tag)));
    QTest::keyClick(view(), Qt::Key_Right);
    QTest::keyClick(view(), Qt::Key_Down);

    QCOMPARE(m_window->sidebar().selectedNode(), tag->children()[0]);
    QCOMPARE(m_window->editor()->text(), u"deux"_s);
}

void PLSidebarViewTest::aClickIsToldOnce()
{
    QSignalSpy changes(&m_window->sidebar(), &PLSidebarController::selectionChanged);
    const QPoint second = view()->visualRect(indexOf(PLSection::Book)).bottomLeft() + QPoint(100, 34);

    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(m_window->selectedText(), u"Été"_s);
    QCOMPARE(changes.count(), 1);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, second); // the same again
    QCOMPARE(changes.count(), 1);
    QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, second - QPoint(0, 24));
    QCOMPARE(changes.count(), 1);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {},
                      view()->viewport()->rect().bottomLeft()); // no row
    QCOMPARE(changes.count(), 2);
    QCOMPARE(m_window->sidebar().selectedNode(), nullptr);
}

void PLSidebarViewTest::typingFindsTitles_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");

    QTest::newRow("a letter") << u"é"_s << u"Été"_s;
    QTest::newRow("two letters") << u"ém"_s << u"Émile"_s;
    QTest::newRow("without the accent") << u"em"_s << u"Émile"_s;
    QTest::newRow("in capitals") << u"ET"_s << u"Été"_s;
    QTest::newRow("a tag") << u"po"_s << u"# port  (1)"_s;
    QTest::newRow("a section") << u"not"_s << u"NOTES DE RECHERCHE"_s;
    QTest::newRow("in a title, after a space") << u"le l"_s << u"LE LIVRE  ·  2"_s;
    QTest::newRow("nothing") << u"zz"_s << u"Abbé"_s;
}

void PLSidebarViewTest::typingFindsTitles()
{
    QFETCH(QString, typed);
    QFETCH(QString, found);
    QSignalSpy changes(&m_window->sidebar(), &PLSidebarController::selectionChanged);

    for (const QChar letter : typed) { // keyClicks knows ASCII alone
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
        QApplication::sendEvent(view(), &press);
    }

    QCOMPARE(m_window->selectedText(), found);
    QVERIFY(changes.count() <= int(typed.size()));
    QVERIFY(m_window->alerts.isEmpty());
}

void PLSidebarViewTest::keysRenameAndThrowAway_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("renames");

    QTest::newRow("F2") << int(Qt::Key_F2) << true;
    QTest::newRow("Return") << int(Qt::Key_Return) << true;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << true;
    QTest::newRow("Delete") << int(Qt::Key_Delete) << false;
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << false;
}

void PLSidebarViewTest::keysRenameAndThrowAway()
{
    QFETCH(int, key);
    QFETCH(bool, renames);
    m_window->answers = {PLAlert::SecondButton};

    QTest::keyClick(view(), Qt::Key(key));

    QCOMPARE(m_window->titleField() != nullptr, renames);
    QCOMPARE(m_window->alerts, renames ? QStringList() : QStringList{u"Mettre « Abbé » à la corbeille ?"_s});
}

/// The asterisk opens a row and all below it.
void PLSidebarViewTest::aTagOpenedWithAllBelowItStaysOpen()
{
    m_window->sidebar().selectSidebarObject(m_window->sidebar().tree().tagSection());
    QTest::keyClick(view(), Qt::Key_Asterisk);
    QVERIFY(view()->isExpanded(indexOf(m_window->sidebar().tree().sidebarTagNamed(u"port"_s))));

    m_window->controller->refreshSidebar();

    QVERIFY(view()->isExpanded(indexOf(m_window->sidebar().tree().sidebarTagNamed(u"port"_s))));
}

void PLSidebarViewTest::theContextMenuHasItsCommands_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("isPage");
    QTest::addColumn<QStringList>("titles"); // those in brackets cannot be chosen

    QTest::newRow("page") << u"fr"_s << true
                          << QStringList{u"Renommer"_s, u"Afficher dans le Finder"_s, u"-"_s,
                                         u"Mettre à la corbeille"_s};
    QTest::newRow("section") << u"fr"_s << false
                             << QStringList{u"[Renommer]"_s, u"Afficher dans le Finder"_s, u"-"_s,
                                            u"[Mettre à la corbeille]"_s};
    QTest::newRow("page, English") << u"en"_s << true
                                   << QStringList{u"Rename"_s, u"Show in Finder"_s, u"-"_s,
                                                  u"Move to Trash"_s};
}

void PLSidebarViewTest::theContextMenuHasItsCommands()
{
    QFETCH(QString, language);
    QFETCH(bool, isPage);
    QFETCH(QStringList, titles);
    m_window->environment.setLanguage(language);
    QStringList found;
    whenMenuOpens([&found](const QMenu &menu) {
        for (const QAction *action : menu.actions()) {
            const QString title = action->isSeparator() ? u"-"_s : action->text();
            found.append(action->isEnabled() ? title : u'[' + title + u']');
        }
    });

    rightClick(isPage ? indexOf(m_window->sidebar().selectedNode()) : indexOf(PLSection::Places));

    QCOMPARE(found, titles);
}

void PLSidebarViewTest::theContextMenuIsForTheRowThatWasClicked()
{
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    whenMenuOpens([](const QMenu &menu) { menu.actions().constLast()->trigger(); });

    rightClick(indexOf(m_window->sidebar().tree().section(PLSection::Characters)->children()[0]));

    QCOMPARE(m_window->alerts, QStringList{u"Mettre « Émile » à la corbeille ?"_s});
    QVERIFY(!m_window->notebook.exists(u"Personnages/Émile.md"_s));
    QVERIFY(m_window->notebook.exists(u"Livre/01 - Abbé.md"_s));
    QCOMPARE(m_window->selectedText(), u"PERSONNAGES"_s);
}

void PLSidebarViewTest::theContextMenuOfAKeyIsForTheSelection_data()
{
    QTest::addColumn<bool>("isMenuKey");

    QTest::newRow("menu key") << true; // of which the desktop makes an event of its own
    QTest::newRow("Shift+F10") << false;
}

void PLSidebarViewTest::theContextMenuOfAKeyIsForTheSelection()
{
    QFETCH(bool, isMenuKey);
    whenMenuOpens([](const QMenu &menu) { menu.actions().at(1)->trigger(); });

    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    if (isMenuKey)
        QApplication::sendEvent(view(), &event);
    else
        QTest::keyClick(view(), Qt::Key_F10, Qt::ShiftModifier);

    QCOMPARE(PLNotebookWindowFixture::revealedLocation(), m_window->notebook.url(u"Livre/01 - Abbé.md"_s));
}

void PLSidebarViewTest::theAddButtonMakesAPageOfItsSection()
{
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, addButton(PLSection::Places));

    QVERIFY(m_window->notebook.exists(u"Lieux/Nouveau lieu.md"_s));
    QVERIFY(m_window->titleField());
    QCOMPARE(m_window->titleField()->selectedText(), u"Nouveau lieu"_s);
    QApplication::processEvents();
    QVERIFY(m_window->titleField());
}

void PLSidebarViewTest::theAddButtonPressedTwiceMakesTwoPages()
{
    const QPoint button = addButton(PLSection::Notes);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {},
                      view()->visualRect(indexOf(PLSection::Notes)).center());
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, button);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, button);

    QVERIFY(view()->isExpanded(indexOf(PLSection::Notes)));
    QVERIFY(m_window->sidebar().tree().section(PLSection::Notes)->childCount() >= 2);
    QVERIFY(m_window->titleField());
}

void PLSidebarViewTest::theAddButtonSaysWhatItAdds()
{
    const QPoint button = addButton(PLSection::Places);
    QHelpEvent help(QEvent::ToolTip, button, view()->viewport()->mapToGlobal(button));
    QApplication::sendEvent(view()->viewport(), &help);

    QCOMPARE(QToolTip::text(), PLProject::addActionTitleForSection(PLSection::Places));
    QToolTip::hideText();
}

void PLSidebarViewTest::theTagSectionHasNoAddButton()
{
    const QModelIndex tags = indexOf(m_window->sidebar().tree().tagSection());
    const QPoint place = PLSidebarRowDelegate::addButtonRect(view()->visualRect(tags)).center();
    QHelpEvent help(QEvent::ToolTip, place, view()->viewport()->mapToGlobal(place));
    QApplication::sendEvent(view()->viewport(), &help);
    QVERIFY(QToolTip::text().isEmpty());

    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, place);
    QVERIFY(!m_window->titleField());
    QCOMPARE(m_window->selectedText(), u"TAGS  ·  2"_s);
}

void PLSidebarViewTest::aDoubleClickGoesToTheText()
{
    const QPoint page = view()->visualRect(indexOf(m_window->sidebar().selectedNode())).center();
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, page);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, page);

    QCOMPARE(m_window->controller->window()->focusWidget(), m_window->textView());
    QVERIFY(!m_window->titleField());
}

void PLSidebarViewTest::aDoubleClickOnASectionDoesNot()
{
    const QPoint section = view()->visualRect(indexOf(PLSection::Characters)).center();
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, section);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, section);

    QCOMPARE(m_window->controller->window()->focusWidget(), view());
}

void PLSidebarViewTest::aScreenReaderHearsTheRows()
{
    QAccessibleInterface *outline = QAccessible::queryAccessibleInterface(view());
    QVERIFY(outline);
    QCOMPARE(outline->text(QAccessible::Name), u"Pages du carnet"_s);
    QStringList heard;
    for (int row = 0; row < outline->childCount(); ++row)
        heard.append(outline->child(row)->text(QAccessible::Name));

    QCOMPARE(heard.takeFirst(), u"Pages du carnet"_s); // the header, though it is hidden
    QCOMPARE(heard.first(4), QStringList({u"Le livre, 2"_s, u"Abbé"_s, u"Été"_s, u"Personnages, 1"_s}));
    QVERIFY(heard.contains(u"TAGS, 2"_s));
    QVERIFY(heard.contains(u"mer, 2"_s));
    QVERIFY(heard.contains(u"Lieux"_s));
}

/// Neither its rows nor its scroll bar: the sidebar has the colours of paper and ink.
void PLSidebarViewTest::aDarkDesktopChangesNothing()
{
    constexpr int moreThanInSight = 60;
    for (int page = 0; page < moreThanInSight; ++page)
        m_window->notebook.write(u"Notes/%1.md"_s.arg(page), u"---\ntags: mer\n---\n"_s);
    m_window->controller->refreshSidebar();
    QTRY_VERIFY(view()->verticalScrollBar()->isVisible());
    const QImage onLight = view()->grab().toImage();

    const QPalette light = QApplication::palette();
    const auto restored = qScopeGuard([&] { QApplication::setPalette(light); });
    QApplication::setPalette(QPalette(QColor(40, 40, 44), QColor(30, 30, 32)));
    QApplication::processEvents();

    QCOMPARE(view()->grab().toImage(), onLight);
}

QTEST_MAIN(PLSidebarViewTest)
#include "PLSidebarViewTest.moc"
