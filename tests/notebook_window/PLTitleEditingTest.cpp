// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"
#include "notebook_window/PLNotebookWindowFixture.h"
#include "notebook_window/PLSidebarRowDelegate.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

/// A page's title typed in its row, and all that can come between.
class PLTitleEditingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anUnchangedTitleGivesTheTextTheFocus_data();
    void anUnchangedTitleGivesTheTextTheFocus();
    void lineBreaksAroundATitleAreNotPartOfIt();
    void escapeKeepsTheTitle();
    void tabEndsATitleAsReturnDoes_data();
    void tabEndsATitleAsReturnDoes();
    void whatIsTypedRightBehindATitleIsOfThePage_data();
    void whatIsTypedRightBehindATitleIsOfThePage();
    void aPageUnderATagIsRenamedInItsSection();
    void aPageOutOfSightIsNotRenamed();
    void theListIsNotReadAgainWhileATitleIsTyped();
    void aTitleWaitsWhileAnotherWindowHasTheFocus();
    void aTitleIsKeptWhenAnotherPageIsMade();
    void aTitleIsKeptWhenTheAddButtonIsPressed();
    void aTitleIsKeptWhenTheWindowCloses();
    void aTitleIsKeptWhenTheProgramMustEnd_data();
    void aTitleIsKeptWhenTheProgramMustEnd();
    void aFailedRenameHoldsNoEndUp();
    void aTitleGivenUpStaysGivenUp_data();
    void aTitleGivenUpStaysGivenUp();
    void whoClicksInTheTagsTypesThere_data();
    void whoClicksInTheTagsTypesThere();
    void whoClicksOnAnotherPageStaysThere();
    void aKeyHeldDownOpensATitleAndNoMore();
    void aTagTypedJustBeforeDoesNotEndTheTyping();
    void aListThatWaitsForATitleWaitsForTheNextOneToo();
    void theAlertOfAFailedRenameIsShownOverTheRow_data();
    void theAlertOfAFailedRenameIsShownOverTheRow();
};

namespace {

/// Presses the only button of the alerts that come, as a writer would, and remembers what they said.
class AlertPresser final
{
public:
    AlertPresser()
    {
        PLAlert::setResponder({});
        m_timer.callOnTimeout([this] { press(); });
        m_timer.start(20);
    }

    QStringList messages;
    std::function<void()> beforePressing;

private:
    void press()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        messages.append(box->text());
        if (beforePressing)
            beforePressing();
        box->buttons().constFirst()->click();
    }

    QTimer m_timer;
};

/// What follows a typed title takes several turns, and must not end the title that is typed next.
void letEventsCome()
{
    for (int turn = 0; turn < 5; ++turn)
        QApplication::processEvents();
}

void beginTitle(const PLNotebookWindowFixture &window)
{
    QVERIFY(QTest::qWaitForWindowActive(window.controller->window()));
    window.sidebar().view()->setFocus();
    QTest::keyClick(window.sidebar().view(), Qt::Key_F2);
    QVERIFY(window.titleField());
    QTRY_VERIFY(window.titleField()->hasFocus());
}

/// In a notebook of this page alone, with the text "un".
void typeTitleOfA(PLNotebookWindowFixture &window, const QString &title)
{
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.open();
    beginTitle(window);
    QTest::keyClicks(window.titleField(), title);
}

} // namespace

void PLTitleEditingTest::anUnchangedTitleGivesTheTextTheFocus_data()
{
    QTest::addColumn<QString>("typed");

    QTest::newRow("the same") << u"A"_s;
    QTest::newRow("spaces around") << u"  A\t"_s;
    QTest::newRow("nothing but spaces") << u"  "_s;
    QTest::newRow("nothing") << u""_s;
}

void PLTitleEditingTest::anUnchangedTitleGivesTheTextTheFocus()
{
    PLNotebookWindowFixture window;
    QFETCH(QString, typed);
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    beginTitle(window);

    window.titleField()->setText(typed);
    QTest::keyClick(window.titleField(), Qt::Key_Return);

    QTRY_COMPARE(window.controller->window()->focusWidget(), window.textView());
    QTRY_VERIFY(!window.titleField());
    QCOMPARE(window.selectedText(), u"A"_s);
    QVERIFY(window.notebook.exists(u"Livre/1 - A.md"_s));
    QVERIFY(!window.sidebar().isEditingName());
}

void PLTitleEditingTest::lineBreaksAroundATitleAreNotPartOfIt()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.open();

    window.controller->pageCommands().endTitleEditing(window.session().currentItem(), u"  Title \r\n"_s);

    QVERIFY(window.notebook.exists(u"Livre/01 - Title.md"_s));
    QCOMPARE(window.session().currentItem()->title(), u"Title"_s);
}

void PLTitleEditingTest::escapeKeepsTheTitle()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    beginTitle(window);

    QTest::keyClicks(window.titleField(), u"B"_s);
    QTest::keyClick(window.titleField(), Qt::Key_Escape);

    QTRY_VERIFY(!window.titleField());
    QCOMPARE(window.selectedText(), u"A"_s);
    QVERIFY(window.notebook.exists(u"Livre/1 - A.md"_s));
    QTRY_COMPARE(window.controller->window()->focusWidget(), window.textView());
}

void PLTitleEditingTest::tabEndsATitleAsReturnDoes_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("Tab") << int(Qt::Key_Tab);
    QTest::newRow("Shift+Tab") << int(Qt::Key_Backtab);
}

void PLTitleEditingTest::tabEndsATitleAsReturnDoes()
{
    PLNotebookWindowFixture window;
    QFETCH(int, key);
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/02 - B.md"_s, u"deux"_s);
    window.notebook.write(u"Livre/03 - C.md"_s, u"trois"_s);
    window.open();
    window.select(u"Livre/02 - B.md"_s);
    beginTitle(window);

    QTest::keyClicks(window.titleField(), u"Bal"_s);
    QTest::keyClick(window.titleField(), Qt::Key(key));

    QTRY_VERIFY(window.notebook.exists(u"Livre/02 - Bal.md"_s));
    QTRY_COMPARE(window.controller->window()->focusWidget(), window.textView());
    QCOMPARE(window.selectedText(), u"Bal"_s);
    QVERIFY(!window.titleField());
}

void PLTitleEditingTest::whatIsTypedRightBehindATitleIsOfThePage_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("file");

    QTest::newRow("Return") << int(Qt::Key_Return) << u"Livre/01 - Bal.md"_s;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << u"Livre/01 - Bal.md"_s;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << u"Livre/01 - Bal.md"_s;
    QTest::newRow("Shift+Tab") << int(Qt::Key_Backtab) << u"Livre/01 - Bal.md"_s;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << u"Livre/01 - A.md"_s;
}

/// Not of the title, and not a search in the sidebar, though the file has its old name yet.
void PLTitleEditingTest::whatIsTypedRightBehindATitleIsOfThePage()
{
    PLNotebookWindowFixture window;
    QFETCH(int, key);
    QFETCH(QString, file);
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/02 - B.md"_s, u"deux"_s);
    window.open();
    beginTitle(window);
    QTest::keyClicks(window.titleField(), u"Bal"_s);

    QTest::keyClick(window.titleField(), Qt::Key(key));
    for (const QChar letter : u"Bon "_s) // no turn of the event loop between them
        QTest::keyClick(window.controller->window()->focusWidget(), letter.toLatin1());

    QTRY_VERIFY(window.notebook.exists(file));
    QTRY_VERIFY(!window.sidebar().isEditingName());
    QVERIFY(window.controller->saveCurrentItem());
    QCOMPARE(window.notebook.read(file), u"Bon un"_s);
    QCOMPARE(window.controller->window()->focusWidget(), window.textView());
}

void PLTitleEditingTest::aPageUnderATagIsRenamedInItsSection()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Lieux/Paris.md"_s, u"---\ntags: ville\n---\n"_s);
    window.open();
    const PLSidebarTag *tag = window.sidebar().tree().sidebarTagNamed(u"ville"_s);
    window.sidebar().expandNode(tag);
    window.sidebar().selectSidebarObject(tag->children()[0]);
    beginTitle(window);

    QCOMPARE(window.sidebar().selectedNode()->kind(), PLSidebarNode::Kind::Page);
    QTest::keyClicks(window.titleField(), u"Lyon"_s);
    QTest::keyClick(window.titleField(), Qt::Key_Return);

    QTRY_VERIFY(window.notebook.exists(u"Lieux/Lyon.md"_s));
    QTRY_COMPARE(window.selectedText(), u"Lyon"_s);
    QCOMPARE(window.sidebar().selectedNode()->kind(), PLSidebarNode::Kind::Page);
    QTRY_COMPARE(PLSidebarText(*window.sidebar().tree().sidebarTagNamed(u"ville"_s)->children()[0]),
                 u"Lyon"_s);
}

void PLTitleEditingTest::aPageOutOfSightIsNotRenamed()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    window.sidebar().view()->collapse(window.sidebar().view()->model()->index(0, 0));

    window.controller->performCommand(PLCommand::RenameSelectedItem, 0);

    QVERIFY(!window.titleField());
    QVERIFY(!window.sidebar().isEditingName());
    QVERIFY(window.alerts.isEmpty());
}

void PLTitleEditingTest::theListIsNotReadAgainWhileATitleIsTyped()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    beginTitle(window);
    window.notebook.write(u"Livre/2 - B.md"_s, u"deux"_s);

    window.controller->windowDidBecomeKey();
    QVERIFY(window.titleField());
    QCOMPARE(window.sidebar().tree().section(PLSection::Book)->childCount(), 1);

    QTest::keyClick(window.titleField(), Qt::Key_Escape);
    QTRY_VERIFY(!window.sidebar().isEditingName());
    window.controller->windowDidBecomeKey();
    QCOMPARE(window.sidebar().tree().section(PLSection::Book)->childCount(), 2);
}

void PLTitleEditingTest::aTitleWaitsWhileAnotherWindowHasTheFocus()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    beginTitle(window);
    QTest::keyClicks(window.titleField(), u"Bal"_s);

    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(window.titleField());
    window.controller->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.controller->window()));

    QVERIFY(window.titleField());
    QVERIFY(window.notebook.exists(u"Livre/1 - A.md"_s));
    QTest::keyClicks(window.controller->window()->focusWidget(), u"con"_s);
    QTest::keyClick(window.controller->window()->focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(window.notebook.exists(u"Livre/01 - Balcon.md"_s));
}

void PLTitleEditingTest::aTitleIsKeptWhenAnotherPageIsMade()
{
    PLNotebookWindowFixture window;
    typeTitleOfA(window, u"Bal"_s);

    window.controller->performCommand(PLCommand::NewCharacter, 0);

    QVERIFY(window.notebook.exists(u"Livre/01 - Bal.md"_s));
    QVERIFY(window.notebook.exists(u"Personnages/Nouveau personnage.md"_s));
    letEventsCome();
    QCOMPARE(window.selectedText(), u"Nouveau personnage"_s);
    QVERIFY(window.titleField());
    QCOMPARE(window.titleField()->selectedText(), u"Nouveau personnage"_s);
    QVERIFY(window.sidebar().isEditingName());
}

void PLTitleEditingTest::aTitleIsKeptWhenTheAddButtonIsPressed()
{
    PLNotebookWindowFixture window;
    typeTitleOfA(window, u"Bal"_s);
    PLSidebarView *view = window.sidebar().view();
    const QRect section = view->visualRect(view->model()->index(int(PLSection::Places), 0));

    view->setFocus(Qt::MouseFocusReason); // as a real press does first
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      PLSidebarRowDelegate::addButtonRect(section).center());
    letEventsCome();

    QVERIFY(window.notebook.exists(u"Livre/01 - Bal.md"_s));
    QVERIFY(window.notebook.exists(u"Lieux/Nouveau lieu.md"_s));
    QCOMPARE(window.selectedText(), u"Nouveau lieu"_s);
    QVERIFY(window.titleField());
    QCOMPARE(window.titleField()->selectedText(), u"Nouveau lieu"_s);
}

void PLTitleEditingTest::aTitleIsKeptWhenTheWindowCloses()
{
    PLNotebookWindowFixture window;
    typeTitleOfA(window, u"Bal"_s);

    QVERIFY(window.controller->window()->close());

    QVERIFY(window.notebook.exists(u"Livre/01 - Bal.md"_s));
}

void PLTitleEditingTest::aTitleIsKeptWhenTheProgramMustEnd_data()
{
    QTest::addColumn<bool>("isFieldClosed");

    QTest::newRow("while it is typed") << false;
    QTest::newRow("right behind Return") << true;
}

void PLTitleEditingTest::aTitleIsKeptWhenTheProgramMustEnd()
{
    PLNotebookWindowFixture window;
    QFETCH(bool, isFieldClosed);
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.open();
    window.type(u"x"_s);
    beginTitle(window);
    QTest::keyClicks(window.titleField(), u"Bal"_s);
    if (isFieldClosed)
        QTest::keyClick(window.titleField(), Qt::Key_Return);

    QVERIFY(window.controller->saveCurrentItemQuietly());

    QCOMPARE(window.notebook.read(u"Livre/01 - Bal.md"_s), u"xun"_s);
    QVERIFY(!window.notebook.exists(u"Livre/01 - A.md"_s));
    QVERIFY(!window.sidebar().isEditingName());
    letEventsCome(); // the end may have been called off
    QCOMPARE(window.selectedText(), u"Bal"_s);
    QVERIFY(window.alerts.isEmpty());
}

/// Nobody is there to answer an alert.
void PLTitleEditingTest::aFailedRenameHoldsNoEndUp()
{
    PLNotebookWindowFixture window;
    typeTitleOfA(window, u"Bal"_s);
    window.notebook.hideSection(u"Livre"_s);

    window.controller->saveCurrentItemQuietly();

    letEventsCome();
    QVERIFY(window.alerts.isEmpty());
    window.notebook.showSection(u"Livre"_s);
    QCOMPARE(window.notebook.read(u"Livre/01 - A.md"_s), u"un"_s);
}

void PLTitleEditingTest::aTitleGivenUpStaysGivenUp_data()
{
    QTest::addColumn<bool>("isQuiet");
    QTest::newRow("at a save") << false;
    QTest::newRow("at the end of the session") << true;
}

void PLTitleEditingTest::aTitleGivenUpStaysGivenUp()
{
    PLNotebookWindowFixture window;
    QFETCH(bool, isQuiet);
    typeTitleOfA(window, u"Bal"_s);
    QTest::keyClick(window.titleField(), Qt::Key_Escape);

    const bool isSaved =
        isQuiet ? window.controller->saveCurrentItemQuietly() : window.controller->saveCurrentItem();

    QVERIFY(isSaved);
    letEventsCome();
    QVERIFY(window.notebook.exists(u"Livre/01 - A.md"_s));
    QVERIFY(!window.sidebar().isEditingName());
}

void PLTitleEditingTest::whoClicksInTheTagsTypesThere_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");
    QTest::newRow("a new title") << u"Bal"_s << u"Livre/01 - Bal.md"_s;
    QTest::newRow("the same title") << u"A"_s << u"Livre/01 - A.md"_s;
}

void PLTitleEditingTest::whoClicksInTheTagsTypesThere()
{
    PLNotebookWindowFixture window;
    QFETCH(QString, typed);
    QFETCH(QString, file);
    typeTitleOfA(window, typed);

    window.editor()->tagField()->setFocus(Qt::MouseFocusReason);
    letEventsCome();

    QVERIFY(window.notebook.exists(file));
    QCOMPARE(window.selectedText(), typed);
    QCOMPARE(window.controller->window()->focusWidget(), window.editor()->tagField());
}

void PLTitleEditingTest::whoClicksOnAnotherPageStaysThere()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/02 - B.md"_s, u"deux"_s);
    window.open();
    beginTitle(window);
    QTest::keyClicks(window.titleField(), u"Bal"_s);
    PLSidebarView *view = window.sidebar().view();
    const QModelIndex other = view->model()->index(1, 0, view->model()->index(0, 0));

    view->setFocus(Qt::MouseFocusReason); // as a real press does first
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(other).center());
    letEventsCome();

    QVERIFY(window.notebook.exists(u"Livre/01 - Bal.md"_s));
    QCOMPARE(window.selectedText(), u"B"_s);
    QCOMPARE(window.textView()->pageText(), u"deux"_s);
    QCOMPARE(window.controller->window()->focusWidget(), view);
    QCOMPARE(PLSidebarText(*window.sidebar().tree().section(PLSection::Book)->children().front()), u"Bal"_s);
}

void PLTitleEditingTest::aKeyHeldDownOpensATitleAndNoMore()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.open();
    QVERIFY(QTest::qWaitForWindowActive(window.controller->window()));
    window.sidebar().view()->setFocus();

    for (const bool isRepeat : {false, true, true, true}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, isRepeat);
        QApplication::sendEvent(window.controller->window()->focusWidget(), &event);
    }
    letEventsCome();

    QVERIFY(window.titleField());
    QCOMPARE(window.textView()->pageText(), u"un"_s);
}

void PLTitleEditingTest::aTagTypedJustBeforeDoesNotEndTheTyping()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.open();
    QVERIFY(QTest::qWaitForWindowActive(window.controller->window()));
    window.editor()->tagField()->setFocus();
    QTest::keyClicks(window.editor()->tagField(), u"bal"_s);

    window.controller->performCommand(PLCommand::RenameSelectedItem, 0);
    QApplication::processEvents();
    QVERIFY(window.titleField());
    QTest::keyClicks(window.titleField(), u"B"_s);
    QTest::keyClick(window.titleField(), Qt::Key_Return);

    QTRY_COMPARE(window.notebook.read(u"Livre/01 - B.md"_s), u"---\ntags: bal\n---\n\nun"_s);
    QTRY_COMPARE(window.sidebar().allTags(), QStringList{u"bal"_s});
}

void PLTitleEditingTest::aListThatWaitsForATitleWaitsForTheNextOneToo()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.open();
    QVERIFY(QTest::qWaitForWindowActive(window.controller->window()));
    window.editor()->tagField()->setFocus();
    QTest::keyClicks(window.editor()->tagField(), u"bal"_s);
    window.controller->performCommand(PLCommand::RenameSelectedItem, 0);
    letEventsCome(); // the tags that are saved here are to be listed

    QTest::keyClick(window.titleField(), Qt::Key_Escape);
    window.controller->performCommand(PLCommand::RenameSelectedItem, 0);
    letEventsCome();

    QVERIFY(window.titleField());
    QTest::keyClick(window.titleField(), Qt::Key_Escape);
    QTRY_COMPARE(window.sidebar().allTags(), QStringList{u"bal"_s});
}

void PLTitleEditingTest::theAlertOfAFailedRenameIsShownOverTheRow_data()
{
    QTest::addColumn<bool>("isDirty");
    QTest::addColumn<QString>("message");

    QTest::newRow("rename") << false << u"Le fichier ou le dossier n'existe pas ou plus."_s;
    QTest::newRow("save before the rename") << true << u"Impossible d'enregistrer « A »"_s;
}

/// The alert takes the focus while the field is closing: nothing of the field may be used after that.
void PLTitleEditingTest::theAlertOfAFailedRenameIsShownOverTheRow()
{
    PLNotebookWindowFixture window;
    QFETCH(bool, isDirty);
    QFETCH(QString, message);
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.open();
    if (isDirty)
        window.type(u"x"_s);
    beginTitle(window);
    window.notebook.hideSection(u"Livre"_s);
    AlertPresser alerts;
    alerts.beforePressing = [&window] { window.notebook.showSection(u"Livre"_s); };

    QTest::keyClicks(window.titleField(), u"B"_s);
    QTest::keyClick(window.titleField(), Qt::Key_Tab);

    QTRY_COMPARE(alerts.messages, QStringList{message});
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QTRY_VERIFY(!window.titleField());
    QCOMPARE(window.selectedText(), u"A"_s);
    QVERIFY(window.notebook.exists(u"Livre/01 - A.md"_s));
    QVERIFY(!window.notebook.exists(u"Livre/01 - B.md"_s));
    QCOMPARE(window.session().currentItem()->title(), u"A"_s);
    QCOMPARE(window.editor()->text(), isDirty ? u"xun"_s : u"un"_s);
    QCOMPARE(window.session().isDirty(), isDirty);
}

QTEST_MAIN(PLTitleEditingTest)
#include "PLTitleEditingTest.moc"
