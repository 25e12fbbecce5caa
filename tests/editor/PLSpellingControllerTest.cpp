// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLSpellingController.h"

#include "editor/PLPageTextView.h"
#include "editor/PLSpellingMarks.h"
#include "platform/PLSpellTestDictionary.h"
#include "support/PLTestEnvironment.h"

#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

class PLSpellingControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void itKnowsTheSpellingCommandsAlone();
    void markingIsSwitchedInAllWindowsAndRemembered();
    void switchingOnWithoutADictionarySaysSo();
    void checkingSelectsTheNextUnknownWord();
    void aChangeInThePanelIsOneUndoStep();
    void theMenuOffersSuggestionsAboveTheRest();
    void theMenuReplacesLearnsAndIgnores();
    void aKnownWordChangesNoMenu();
    void aWordWithoutSuggestionsSaysSo();

private:
    PLTestEnvironment m_environment;
    PLSpellTestDictionary::Notes m_notes;
    std::shared_ptr<PLSpellChecker> m_checker;
};

namespace {

QStringList titles(const QMenu &menu)
{
    QStringList result;
    const QList<QAction *> actions = menu.actions();
    for (const QAction *action : actions)
        result.append(action->isSeparator() ? u"-"_s : action->text());
    return result;
}

void trigger(const QMenu &menu, const QString &title)
{
    const qsizetype index = titles(menu).indexOf(title);
    QVERIFY(index >= 0);
    menu.actions().at(index)->trigger();
}

} // namespace

void PLSpellingControllerTest::init()
{
    m_environment.forgetPreferences();
    m_environment.setLanguage(u"fr"_s);
    m_notes = {};
    m_notes.words = {u"un"_s, u"deux"_s};
    m_checker = std::make_shared<PLSpellChecker>(
        u"fr_FR"_s, [this](const QString &) { return std::make_unique<PLSpellTestDictionary>(m_notes); });
}

void PLSpellingControllerTest::itKnowsTheSpellingCommandsAlone()
{
    PLPageTextView view;
    const PLSpellingController controller(&view, m_checker);

    QVERIFY(controller.stateOfCommand(PLCommand::ShowGuessPanel, 0)->enabled);
    QVERIFY(controller.stateOfCommand(PLCommand::CheckSpelling, 0)->enabled);
    QVERIFY(controller.stateOfCommand(PLCommand::ToggleContinuousSpellChecking, 0)->enabled);
    QVERIFY(!controller.stateOfCommand(PLCommand::PerformFindPanelAction, 1));
    QCOMPARE(m_notes.loads, 0);
}

void PLSpellingControllerTest::markingIsSwitchedInAllWindowsAndRemembered()
{
    PLPageTextView firstView;
    PLPageTextView secondView;
    PLSpellingController first(&firstView, m_checker);
    PLSpellingController second(&secondView, m_checker);
    QVERIFY(first.stateOfCommand(PLCommand::ToggleContinuousSpellChecking, 0)->checked);
    QVERIFY(first.marks()->isEnabled() && second.marks()->isEnabled());

    first.performCommand(PLCommand::ToggleContinuousSpellChecking, 0);

    QVERIFY(!first.marks()->isEnabled() && !second.marks()->isEnabled());
    QVERIFY(!second.stateOfCommand(PLCommand::ToggleContinuousSpellChecking, 0)->checked);
    PLPageTextView nextView;
    PLSpellingController next(&nextView, m_checker);
    QVERIFY(!next.marks()->isEnabled());
    next.performCommand(PLCommand::ToggleContinuousSpellChecking, 0);
    QVERIFY(first.marks()->isEnabled());
}

void PLSpellingControllerTest::switchingOnWithoutADictionarySaysSo()
{
    PLPageTextView view;
    view.setPageText(u"un abc"_s);
    view.show();
    const auto missing = std::make_shared<PLSpellChecker>(
        u"fr_FR"_s, [](const QString &) { return std::unique_ptr<PLSpellDictionary>(); });
    PLSpellingController controller(&view, missing);
    QTRY_VERIFY(missing->isLoaded());
    QVERIFY(!controller.panel()); // nobody has asked for anything

    controller.performCommand(PLCommand::ToggleContinuousSpellChecking, 0);
    QVERIFY(!controller.panel());
    controller.performCommand(PLCommand::ToggleContinuousSpellChecking, 0);

    QVERIFY(controller.panel() && controller.panel()->isVisible());
    QMenu menu;
    controller.addSuggestions(&menu, 4);
    QVERIFY(menu.isEmpty());
}

void PLSpellingControllerTest::checkingSelectsTheNextUnknownWord()
{
    PLPageTextView view;
    view.setPageText(u"un abc\ndeux xyz"_s);
    view.show();
    PLSpellingController controller(&view, m_checker);

    controller.performCommand(PLCommand::CheckSpelling, 0);
    QCOMPARE(view.textCursor().selectedText(), u"abc"_s);
    controller.performCommand(PLCommand::CheckSpelling, 0);
    QCOMPARE(view.textCursor().selectedText(), u"xyz"_s);
    controller.performCommand(PLCommand::CheckSpelling, 0);
    QCOMPARE(view.textCursor().selectedText(), u"abc"_s);
    QVERIFY(!controller.panel()->isVisible());
}

void PLSpellingControllerTest::aChangeInThePanelIsOneUndoStep()
{
    PLPageTextView view;
    view.setPageText(u"un abc\u00a0deux"_s);
    view.show();
    PLSpellingController controller(&view, m_checker);
    controller.performCommand(PLCommand::ShowGuessPanel, 0);

    QTest::keyClick(controller.panel()->focusWidget(), Qt::Key_Return);

    QCOMPARE(view.pageText(), u"un abc1\u00a0deux"_s);
    view.undo();
    QCOMPARE(view.pageText(), u"un abc\u00a0deux"_s);
    QVERIFY(!view.document()->isUndoAvailable());
}

void PLSpellingControllerTest::theMenuOffersSuggestionsAboveTheRest()
{
    PLPageTextView view;
    view.setPageText(u"un abc"_s);
    PLSpellingController controller(&view, m_checker);
    QMenu menu;
    menu.addAction(u"Couper"_s);

    controller.addSuggestions(&menu, 4);

    QCOMPARE(titles(menu),
             (QStringList{u"abc1"_s, u"l'abc"_s, u"-"_s, u"Ignorer"_s, u"Apprendre"_s, u"-"_s, u"Couper"_s}));
}

void PLSpellingControllerTest::theMenuReplacesLearnsAndIgnores()
{
    PLPageTextView view;
    view.setPageText(u"un abc xyz def"_s);
    PLSpellingController controller(&view, m_checker);

    QMenu first;
    controller.addSuggestions(&first, 4);
    trigger(first, u"l'abc"_s);
    QCOMPARE(view.pageText(), u"un l'abc xyz def"_s);
    QMenu second;
    controller.addSuggestions(&second, 10);
    trigger(second, u"Apprendre"_s);
    QMenu third;
    controller.addSuggestions(&third, 14);
    trigger(third, u"Ignorer"_s);
    QCOMPARE(m_notes.learned, QStringList{u"xyz"_s});
    QCOMPARE(m_notes.ignored, QStringList{u"def"_s});

    trigger(first, u"l'abc"_s); // out of date: another text stands there now
    QCOMPARE(view.pageText(), u"un l'abc xyz def"_s);
}

void PLSpellingControllerTest::aKnownWordChangesNoMenu()
{
    PLPageTextView view;
    view.setPageText(u"un abc"_s);
    PLSpellingController controller(&view, m_checker);
    QMenu menu;
    menu.addAction(u"Couper"_s);

    controller.addSuggestions(&menu, 1);

    QCOMPARE(titles(menu), QStringList{u"Couper"_s});
    QCOMPARE(m_notes.suggestionRequests, 0);
}

void PLSpellingControllerTest::aWordWithoutSuggestionsSaysSo()
{
    PLPageTextView view;
    view.setPageText(u"rien"_s);
    PLSpellingController controller(&view, m_checker);
    QMenu menu;

    controller.addSuggestions(&menu, 0);

    QCOMPARE(titles(menu).value(0), u"Aucune suggestion"_s);
    QVERIFY(!menu.actions().at(0)->isEnabled());
}

QTEST_MAIN(PLSpellingControllerTest)
#include "PLSpellingControllerTest.moc"
