// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFindController.h"

#include "editor/PLPageTextView.h"
#include "editor/PLTextMarks.h"
#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

using Controller = PLFindController;

class PLFindControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PLFindTerms::shared() = {}; }

    void itKnowsTheFindCommandsAlone();
    void useSelectionNeedsASelection();
    void nextWithNothingToLookForAsks();
    void nextSelectsAndScrollsWithoutAPanel();
    void goingRoundIsSaidAtTheCaretWithoutAPanel();
    void theTwoPanelsAreOne();
    void replaceAllIsOneUndoStep();
    void aReplacementIsOneUndoStepAndEveryCharacterStays();
    void aReplacementMayHoldAnyCharacter();
    void aWordReplacedByItselfIsNoChange();
    void marksAreThoseInSightAndFollowTheScrolling();
    void marksFollowTheTextAndGoWithThePanel();
    void marksAreNoChange();
    void escapeGivesTheTextTheKeyboard();
    void whatIsTypedWhileThePanelAppearsIsForThePanel();
    void whatIsTypedBehindEscapeIsForTheText();
    void theTextKeepsItsKeysWhenThePanelDoesNotGetThem();
    void aClickIntoTheTextTakesTheKeysBack();
    void aPanelClosedAndOpenedAtOnceHasItsKeys_data();
    void aPanelClosedAndOpenedAtOnceHasItsKeys();
    void anotherPageIsSearchedInstead();
    void commandsGoOnToTheTextFromThePanel();
    void theControllerMayGoBeforeTheView();

private:
    PLTestEnvironment m_environment;
};

void PLFindControllerTest::itKnowsTheFindCommandsAlone()
{
    PLPageTextView view;
    Controller controller(&view);

    for (const int tag : {1, 12, 2, 3})
        QVERIFY(controller.stateOfCommand(PLCommand::PerformFindPanelAction, tag)->enabled);
    QVERIFY(!controller.stateOfCommand(PLCommand::CheckSpelling, 0));
    QVERIFY(!controller.stateOfCommand(PLCommand::Undo, 0));
}

void PLFindControllerTest::useSelectionNeedsASelection()
{
    PLPageTextView view;
    Controller controller(&view);
    view.setPageText(u"un\u00a0deux"_s);
    QVERIFY(!controller.stateOfCommand(PLCommand::PerformFindPanelAction, 7)->enabled);

    view.selectAll();
    QVERIFY(controller.stateOfCommand(PLCommand::PerformFindPanelAction, 7)->enabled);
    controller.performCommand(PLCommand::PerformFindPanelAction, 7);

    QCOMPARE(PLFindTerms::shared().needle, u"un\u00a0deux"_s);
    QVERIFY(!controller.panel());
}

void PLFindControllerTest::nextWithNothingToLookForAsks()
{
    PLPageTextView view;
    Controller controller(&view);

    controller.performCommand(PLCommand::PerformFindPanelAction, 2);

    QVERIFY(controller.panel() && controller.panel()->isVisible());
}

void PLFindControllerTest::nextSelectsAndScrollsWithoutAPanel()
{
    PLPageTextView view;
    view.resize(600, 300);
    view.setPageText(u"ligne\n"_s.repeated(2000) + u"trésor"_s);
    view.show();
    Controller controller(&view);
    PLFindTerms::shared().needle = u"TRÉSOR"_s;

    controller.performCommand(PLCommand::PerformFindPanelAction, 2);

    QCOMPARE(view.textCursor().selectedText(), u"trésor"_s);
    QVERIFY(view.viewport()->rect().contains(view.cursorRect().center()));
    QVERIFY(!controller.panel());
}

void PLFindControllerTest::goingRoundIsSaidAtTheCaretWithoutAPanel()
{
    PLPageTextView view;
    view.setPageText(u"un deux un"_s);
    view.show();
    Controller controller(&view);
    PLFindTerms::shared().needle = u"un"_s;

    controller.performCommand(PLCommand::PerformFindPanelAction, 2);
    controller.performCommand(PLCommand::PerformFindPanelAction, 2);
    QVERIFY(!QToolTip::isVisible());
    controller.performCommand(PLCommand::PerformFindPanelAction, 2);
    QCOMPARE(QToolTip::text(), u"1 sur 2 (retour au début)"_s);
    controller.performCommand(PLCommand::PerformFindPanelAction, 3);
    QCOMPARE(QToolTip::text(), u"2 sur 2 (retour à la fin)"_s);
    QToolTip::hideText();
}

void PLFindControllerTest::theTwoPanelsAreOne()
{
    PLPageTextView view;
    view.show();
    Controller controller(&view);

    controller.performCommand(PLCommand::PerformFindPanelAction, Controller::ShowFindPanel);
    const PLFindPanel *panel = controller.panel();
    controller.performCommand(PLCommand::PerformFindPanelAction, Controller::ShowReplacePanel);

    QCOMPARE(controller.panel(), panel);
    QVERIFY(panel->findChildren<QLineEdit *>().at(1)->isVisible());
}

void PLFindControllerTest::replaceAllIsOneUndoStep()
{
    PLPageTextView view;
    const QString text = u"un deux\u00a0un\nUN trois\r"_s.repeated(500);
    view.setPageText(text);
    PLPageTextTarget target(&view);
    PLFindSearch search(&target);
    PLFindTerms::shared() = {u"un"_s, u"quatre"_s, {}};
    QSignalSpy changes(&view, &PLPageTextView::textDidChange);

    QCOMPARE(search.replaceAll(), 1500);
    QCOMPARE(view.pageText(), u"quatre deux\u00a0quatre\nquatre trois\r"_s.repeated(500));
    QCOMPARE(changes.count(), 1);
    view.undo();
    QCOMPARE(view.pageText(), text);
    QVERIFY(!view.document()->isUndoAvailable());
    view.redo();
    QVERIFY(!view.document()->isRedoAvailable());
    QCOMPARE(view.pageText().count(u"quatre"_s), 1500);
}

void PLFindControllerTest::aReplacementIsOneUndoStepAndEveryCharacterStays()
{
    PLPageTextView view;
    const QString text = u"\u2029 un\u00a0\u202f\ufdd0 un \r\u2028"_s;
    view.setPageText(text);
    PLPageTextTarget target(&view);
    QTest::keyClicks(&view, u"x"_s);

    target.replace({3, 2}, u"deux"_s);

    QCOMPARE(view.pageText(), u'x' + QString(text).replace(2, 2, u"deux"_s));
    QCOMPARE(target.selection(), (PLTextRange{7, 0}));
    view.undo();
    QCOMPARE(view.pageText(), u'x' + text);
    view.undo();
    QCOMPARE(view.pageText(), text);
}

void PLFindControllerTest::aReplacementMayHoldAnyCharacter()
{
    PLPageTextView view;
    view.setPageText(u"un"_s);
    PLPageTextTarget target(&view);

    target.replaceAll({{0, 1}, {1, 1}}, u"\u2029\ufdd0\r"_s);

    QCOMPARE(view.pageText(), u"\u2029\ufdd0\r\u2029\ufdd0\r"_s);
}

void PLFindControllerTest::aWordReplacedByItselfIsNoChange()
{
    PLPageTextView view;
    view.setPageText(u"un mot, Un mot"_s);
    PLPageTextTarget target(&view);
    PLFindSearch search(&target);
    QSignalSpy changes(&view, &PLPageTextView::textDidChange);
    PLFindTerms::shared() = {u"mot"_s, u"mot"_s, {}};

    QCOMPARE(search.replaceAll(), 2);
    search.selectNext();
    QVERIFY(search.replace());

    QCOMPARE(changes.count(), 0);
    QVERIFY(!view.document()->isUndoAvailable());
    QCOMPARE(target.selection(), (PLTextRange{6, 0}));

    PLFindTerms::shared() = {u"un"_s, u"un"_s, {}};
    QCOMPARE(search.replaceAll(), 2);
    QCOMPARE(view.pageText(), u"un mot, un mot"_s);
    QCOMPARE(changes.count(), 1);
}

void PLFindControllerTest::marksAreThoseInSightAndFollowTheScrolling()
{
    PLPageTextView view;
    view.resize(600, 300);
    view.setPageText(u"un mot\n"_s.repeated(3000));
    view.show();
    PLPageTextTarget target(&view);
    PLFindSearch search(&target);
    PLFindTerms::shared().needle = u"mot"_s;

    search.showMarks();
    QList<PLTextRange> marks = PLTextMarks::of(view).marks(PLTextMarks::Kind::Match);
    QVERIFY(marks.size() > 3 && marks.size() < 40);
    QCOMPARE(marks[0], (PLTextRange{3, 3}));

    view.verticalScrollBar()->setValue(5000);
    marks = PLTextMarks::of(view).marks(PLTextMarks::Kind::Match);
    QVERIFY(marks.size() > 3 && marks.size() < 40);
    const PLTextRange visible = PLTextMarks::of(view).visibleRange();
    for (const PLTextRange &mark : marks)
        QVERIFY(mark.end() > visible.position && mark.position < visible.end());
    QVERIFY(visible.position > 100);

    const qsizetype before = marks.size();
    view.resize(600, 600);
    QTRY_VERIFY(PLTextMarks::of(view).marks(PLTextMarks::Kind::Match).size() > before + 3);
}

void PLFindControllerTest::marksFollowTheTextAndGoWithThePanel()
{
    PLPageTextView view;
    view.setPageText(u"un mot"_s);
    view.show();
    PLFindTerms::shared().needle = u"mot"_s;
    Controller controller(&view);
    controller.performCommand(PLCommand::PerformFindPanelAction, Controller::ShowFindPanel);
    QCOMPARE(PLTextMarks::of(view).marks(PLTextMarks::Kind::Match), (QList<PLTextRange>{{3, 3}}));

    QTRY_COMPARE(QApplication::activeWindow(), controller.panel());
    QTest::keyClicks(&view, u"mot "_s);
    QTRY_COMPARE(PLTextMarks::of(view).marks(PLTextMarks::Kind::Match), (QList<PLTextRange>{{0, 3}, {7, 3}}));

    QTest::keyClick(controller.panel()->focusWidget(), Qt::Key_Escape);
    QTRY_VERIFY(PLTextMarks::of(view).marks(PLTextMarks::Kind::Match).isEmpty());
}

void PLFindControllerTest::marksAreNoChange()
{
    PLPageTextView view;
    view.setPageText(u"un mot"_s);
    view.show();
    QTest::keyClicks(&view, u"x"_s);
    view.undo();
    view.document()->setModified(false);
    QSignalSpy changes(&view, &PLPageTextView::textDidChange);
    PLFindTerms::shared().needle = u"mot"_s;
    PLPageTextTarget target(&view);
    PLFindSearch search(&target);

    search.showMarks();
    search.selectNext();
    search.hideMarks();

    QCOMPARE(changes.count(), 0);
    QVERIFY(!view.document()->isModified());
    QVERIFY(view.document()->isRedoAvailable());
    QVERIFY(!view.document()->isUndoAvailable());
}

void PLFindControllerTest::escapeGivesTheTextTheKeyboard()
{
    QWidget window;
    PLPageTextView view(&window);
    QLineEdit other(&window);
    window.show();
    Controller controller(&view);
    controller.performCommand(PLCommand::PerformFindPanelAction, Controller::ShowFindPanel);
    other.setFocus();
    QTRY_COMPARE(QApplication::activeWindow(), controller.panel());

    QTest::keyClick(controller.panel()->focusWidget(), Qt::Key_Escape);

    QTRY_VERIFY(view.hasFocus());
    QVERIFY(window.isActiveWindow());
}

/// The window manager gives a new window the keyboard some time after it is shown.
void PLFindControllerTest::whatIsTypedWhileThePanelAppearsIsForThePanel()
{
    PLPageTextView view;
    view.setPageText(u"un deux"_s);
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    view.selectAll();
    Controller controller(&view);

    controller.performCommand(PLCommand::PerformFindPanelAction, 1);
    QTest::keyClicks(&view, u"mer"_s);
    QTest::keyClick(&view, Qt::Key_Backspace);

    auto *field = controller.panel()->findChild<QLineEdit *>();
    QCOMPARE(field->text(), u"me"_s);
    QCOMPARE(view.pageText(), u"un deux"_s);
    QTRY_COMPARE(QApplication::activeWindow(), controller.panel());
    view.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &view);
    QTest::keyClicks(&view, u"x"_s); // once it has had the keyboard, the text's keys are the text's
    QCOMPARE(view.pageText(), u"x"_s);
    QCOMPARE(field->text(), u"me"_s);
}

void PLFindControllerTest::whatIsTypedBehindEscapeIsForTheText()
{
    PLPageTextView view;
    view.show();
    Controller controller(&view);
    controller.performCommand(PLCommand::PerformFindPanelAction, 1);
    QTRY_COMPARE(QApplication::activeWindow(), controller.panel());
    auto *field = controller.panel()->findChild<QLineEdit *>();
    QTest::keyClicks(field, u"mer"_s);

    QTest::keyClick(field, Qt::Key_Escape);
    QTest::keyClicks(field, u"Il"_s); // the panel's window has got these already

    QCOMPARE(view.pageText(), u"Il"_s);
    QCOMPARE(field->text(), u"mer"_s);
    QTRY_COMPARE(QApplication::activeWindow(), &view);
    QTRY_VERIFY(!controller.panel()->isVisible());
}

void PLFindControllerTest::theTextKeepsItsKeysWhenThePanelDoesNotGetThem()
{
    PLPageTextView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    Controller controller(&view);

    controller.performCommand(PLCommand::PerformFindPanelAction, 1);
    controller.panel()->close();
    QTest::keyClicks(&view, u"Il"_s);

    QCOMPARE(view.pageText(), u"Il"_s);
}

void PLFindControllerTest::aClickIntoTheTextTakesTheKeysBack()
{
    PLPageTextView view;
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    Controller controller(&view);

    controller.performCommand(PLCommand::PerformFindPanelAction, 1);
    QTest::mouseClick(view.viewport(), Qt::LeftButton);
    QTest::keyClicks(&view, u"Il"_s);

    QCOMPARE(view.pageText(), u"Il"_s);
}

void PLFindControllerTest::aPanelClosedAndOpenedAtOnceHasItsKeys_data()
{
    QTest::addColumn<bool>("isActiveBefore");
    QTest::addColumn<bool>("isActiveAfter");
    for (const bool isBefore : {false, true}) {
        for (const bool isAfter : {false, true})
            QTest::addRow("active %d, active %d", int(isBefore), int(isAfter)) << isBefore << isAfter;
    }
}

/// Whether the window manager is quicker than the writer or not.
void PLFindControllerTest::aPanelClosedAndOpenedAtOnceHasItsKeys()
{
    PLPageTextView view;
    QFETCH(bool, isActiveBefore);
    QFETCH(bool, isActiveAfter);
    view.show();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    Controller controller(&view);
    controller.performCommand(PLCommand::PerformFindPanelAction, 1);
    auto *field = controller.panel()->findChild<QLineEdit *>();
    if (isActiveBefore)
        QTRY_COMPARE(QApplication::activeWindow(), controller.panel());

    QTest::keyClick(QApplication::activeWindow()->focusWidget(), Qt::Key_Escape);
    controller.performCommand(PLCommand::PerformFindPanelAction, 1);
    if (isActiveAfter) {
        QTest::qWait(50);
        QCOMPARE(QApplication::activeWindow(), controller.panel());
        QTest::keyClicks(field, u"mer"_s);
    } else {
        QTest::keyClicks(&view, u"mer"_s);
    }

    QCOMPARE(field->text(), u"mer"_s);
    QCOMPARE(view.pageText(), QString());
}

void PLFindControllerTest::anotherPageIsSearchedInstead()
{
    PLPageTextView view;
    view.setPageText(u"un un"_s);
    view.show();
    PLFindTerms::shared().needle = u"un"_s;
    Controller controller(&view);
    controller.performCommand(PLCommand::PerformFindPanelAction, Controller::ShowFindPanel);

    view.setPageText(u"deux, un"_s);

    QTRY_COMPARE(PLTextMarks::of(view).marks(PLTextMarks::Kind::Match), (QList<PLTextRange>{{6, 2}}));
}

void PLFindControllerTest::commandsGoOnToTheTextFromThePanel()
{
    PLPageTextView view;
    view.show();
    QTest::keyClicks(&view, u"mot"_s);
    Controller controller(&view);
    controller.performCommand(PLCommand::PerformFindPanelAction, Controller::ShowFindPanel);
    QTRY_COMPARE(QApplication::activeWindow(), controller.panel());

    QVERIFY(!PLCommandChain::state(PLCommand::Undo).enabled); // the field's own
    controller.panel()->findChild<QCheckBox *>()->setFocus();
    QVERIFY(PLCommandChain::state(PLCommand::Undo).enabled);
    PLCommandChain::perform(PLCommand::Undo);

    QCOMPARE(view.pageText(), QString());
}

void PLFindControllerTest::theControllerMayGoBeforeTheView()
{
    PLPageTextView view;
    view.setPageText(u"un"_s);
    view.show();
    auto controller = std::make_unique<Controller>(&view);
    PLFindTerms::shared().needle = u"un"_s;
    controller->performCommand(PLCommand::PerformFindPanelAction, Controller::ShowFindPanel);

    controller.reset();
    QTest::keyClicks(&view, u"x"_s);

    QVERIFY(view.findChildren<PLFindPanel *>().isEmpty());
}

QTEST_MAIN(PLFindControllerTest)
#include "PLFindControllerTest.moc"
