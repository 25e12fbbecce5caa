// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldStage.h"

using namespace Qt::StringLiterals;

class PLTagFieldCompletionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noProposalIsChosenByItself();
    void arrowsChooseAProposal();
    void aChosenProposalIsTakenByAKey_data();
    void aChosenProposalIsTakenByAKey();
    void aClickTakesAProposalAndTheFocusStays();
    void escapeClosesTheProposalsAndKeepsTheText();
    void downShowsAllProposals();
    void proposalsDoNotHoldPresentTags();
    void aClickElsewhereClosesTheProposals();
    void proposalsGoWithTheField();
};

void PLTagFieldCompletionTest::noProposalIsChosenByItself()
{
    PLTagFieldStage stage;
    stage.delegate.known = QStringList{u"Paris"_s, u"port"_s, u"Lyon"_s};
    stage.type(u"p"_s);
    QVERIFY(stage.field->shownCompletion());
    QCOMPARE(stage.field->shownCompletion()->model()->rowCount(), 2);
    QVERIFY(!stage.field->shownCompletion()->currentIndex().isValid());
    QVERIFY(stage.field->hasFocus());
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.tokens(), u"p"_s);
    QVERIFY(!stage.field->shownCompletion());
}

void PLTagFieldCompletionTest::arrowsChooseAProposal()
{
    PLTagFieldStage stage;
    stage.delegate.known = QStringList{u"Paris"_s, u"port"_s};
    stage.type(u"p"_s);
    const auto chosen = [&] { return stage.field->shownCompletion()->chosenTag(); };
    stage.press(Qt::Key_Down);
    QCOMPARE(chosen(), u"Paris"_s);
    stage.press(Qt::Key_Down);
    QCOMPARE(chosen(), u"port"_s);
    stage.press(Qt::Key_Down); // past the end: none
    QCOMPARE(chosen(), QString());
    stage.press(Qt::Key_Up);
    QCOMPARE(chosen(), u"port"_s);
    stage.press(Qt::Key_PageUp);
    QCOMPARE(chosen(), u"Paris"_s);
    stage.type(u"o"_s); // typing on chooses nothing
    QCOMPARE(chosen(), QString());
}

void PLTagFieldCompletionTest::aChosenProposalIsTakenByAKey_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("comma") << int(Qt::Key_Comma);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
    QTest::newRow("tab") << int(Qt::Key_Tab);
}

void PLTagFieldCompletionTest::aChosenProposalIsTakenByAKey()
{
    QFETCH(int, key);
    PLTagFieldStage stage({u"a"_s});
    stage.delegate.known = QStringList{u"Paris"_s};
    QSignalSpy changed(stage.field, &PLTagField::textDidChange);
    stage.type(u"p"_s);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key(key));
    const bool isComma = key == Qt::Key_Comma; // a comma ends what was typed
    QCOMPARE(stage.tokens(), isComma ? u"a|p"_s : u"a|Paris"_s);
    QCOMPARE(changed.size(), isComma ? 1 : 2);
    QVERIFY(stage.field->hasFocus());
    QVERIFY(!stage.field->shownCompletion());
}

void PLTagFieldCompletionTest::aClickTakesAProposalAndTheFocusStays()
{
    PLTagFieldStage stage;
    stage.delegate.known = QStringList{u"Paris"_s, u"port"_s};
    stage.type(u"p"_s);
    PLTagFieldCompletion *list = stage.field->shownCompletion();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(1, 0)).center());
    QCOMPARE(stage.tokens(), u"port"_s);
    QVERIFY(stage.field->hasFocus());
    QVERIFY(!stage.field->shownCompletion());
}

void PLTagFieldCompletionTest::escapeClosesTheProposalsAndKeepsTheText()
{
    PLTagFieldStage stage;
    stage.delegate.known = QStringList{u"Paris"_s};
    stage.type(u"p"_s);
    stage.press(Qt::Key_Escape);
    QVERIFY(!stage.field->shownCompletion());
    QCOMPARE(stage.typed(), u"p"_s);
    stage.type(u"a"_s);
    QVERIFY(stage.field->shownCompletion());
    stage.type(u"z"_s);
    QVERIFY(!stage.field->shownCompletion());
}

void PLTagFieldCompletionTest::downShowsAllProposals()
{
    PLTagFieldStage stage({u"a"_s});
    stage.delegate.known = QStringList{u"Paris"_s, u"Lyon"_s};
    stage.press(Qt::Key_Down);
    QCOMPARE(stage.field->shownCompletion()->model()->rowCount(), 2);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.tokens(), u"a|Paris"_s);
}

void PLTagFieldCompletionTest::proposalsDoNotHoldPresentTags()
{
    PLTagFieldStage stage({u"Paris"_s});
    stage.delegate.known = QStringList{u"Paris"_s, u"port"_s};
    stage.type(u" p"_s);
    QCOMPARE(stage.delegate.present, QStringList{u"Paris"_s});
    QCOMPARE(stage.field->shownCompletion()->model()->rowCount(), 1);
}

void PLTagFieldCompletionTest::aClickElsewhereClosesTheProposals()
{
    PLTagFieldStage stage;
    stage.delegate.known = QStringList{u"Paris"_s};
    stage.type(u"p"_s);
    QTest::mouseClick(stage.window(), Qt::LeftButton, {}, QPoint(480, 200));
    QVERIFY(!stage.field->shownCompletion());
}

void PLTagFieldCompletionTest::proposalsGoWithTheField()
{
    PLTagFieldStage stage;
    stage.delegate.known = QStringList{u"Paris"_s};
    stage.type(u"p"_s);
    const QPointer<PLTagFieldCompletion> list = stage.field->shownCompletion();
    QVERIFY(list);
    delete stage.field;
    QVERIFY(!list);
}

QTEST_MAIN(PLTagFieldCompletionTest)
#include "PLTagFieldCompletionTest.moc"
