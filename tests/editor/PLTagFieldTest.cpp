// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldStage.h"
#include "editor/PLTagToken.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

void compose(PLTagField *field, const QString &preedit, const QString &commit = QString())
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(field, &event);
}

} // namespace

class PLTagFieldTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyMakesATokenOfTheTypedText_data();
    void aKeyMakesATokenOfTheTypedText();
    void tabWithNothingTypedMovesTheFocusOn();
    void shiftTabMovesBackAndKeepsTheText();
    void leavingTheFieldMakesATokenAndEndsEditing();
    void anotherWindowDoesNotEndEditing();
    void returnWithNothingTypedEndsEditing();
    void eachChangeIsToldAndMakingATokenIsNone();
    void settingTagsTellsNothingAndLeavesNothingToUndo();
    void theDelegateGivesTheSpelling();
    void backspaceSelectsThenDeletes();
    void arrowsGoOverTokensAndCharacters();
    void shiftArrowsSelectTokensAndText();
    void anArrowLeavesASelectionAtItsEnd();
    void controlArrowsJumpOverWordsAndTokens();
    void homeAndEndGoToTheEnds();
    void copiedTokensAreAList();
    void cutTokensAreGoneAndPastedAsTokens();
    void aPastedListIsSplit();
    void undoAndRedoByKey();
    void returnOrF2OpensASelectedToken_data();
    void returnOrF2OpensASelectedToken();
    void commandsOfTheMenuAreHandled();
    void composedTextIsNoTagYet();
    void keysDoNothingWhileComposing();
    void composedTextIsKeptWhenTheFieldIsLeft();
    void anInputMethodReplacesTypedText();
    void theInputMethodKnowsTheTypedTextAlone();
    void theCaretIsAlwaysSeen();
    void aRowThatFitsAgainIsNotScrolled();
    void aLongTagIsCut();
    void theRowIsMirroredRightToLeft();
    void arrowsFollowTheEyeInHebrew();
    void typingKeysComeBeforeTheShortcutsOfTheMenu();
    void randomKeysNeverBreakTheField();
};

void PLTagFieldTest::aKeyMakesATokenOfTheTypedText_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("comma") << int(Qt::Key_Comma);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
    QTest::newRow("tab") << int(Qt::Key_Tab);
}

void PLTagFieldTest::aKeyMakesATokenOfTheTypedText()
{
    QFETCH(int, key);
    const PLTagFieldStage stage({u"a"_s});
    QSignalSpy ended(stage.field, &PLTagField::didEndEditing);
    stage.type(u" Le Havre"_s);
    QCOMPARE(stage.tokens(), u"a"_s);
    QCOMPARE(stage.list(), u"a|Le Havre"_s);
    stage.press(Qt::Key(key));
    QCOMPARE(stage.tokens(), u"a|Le Havre"_s);
    QCOMPARE(stage.typed(), QString());
    QVERIFY(stage.field->hasFocus());
    QCOMPARE(ended.size(), 0);
}

void PLTagFieldTest::tabWithNothingTypedMovesTheFocusOn()
{
    const PLTagFieldStage stage({u"a"_s});
    QSignalSpy ended(stage.field, &PLTagField::didEndEditing);
    stage.press(Qt::Key_Tab);
    QVERIFY(stage.other->hasFocus());
    QCOMPARE(ended.size(), 1);
    QCOMPARE(stage.tokens(), u"a"_s);
}

void PLTagFieldTest::shiftTabMovesBackAndKeepsTheText()
{
    const PLTagFieldStage stage;
    stage.type(u"Lyon"_s);
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!stage.field->hasFocus());
    QCOMPARE(stage.tokens(), u"Lyon"_s);
}

void PLTagFieldTest::leavingTheFieldMakesATokenAndEndsEditing()
{
    const PLTagFieldStage stage;
    QSignalSpy ended(stage.field, &PLTagField::didEndEditing);
    stage.type(u"Lyon"_s);
    QString atTheEnd;
    connect(stage.field, &PLTagField::didEndEditing, this, [&] { atTheEnd = stage.tokens(); });
    stage.other->setFocus(Qt::MouseFocusReason);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(atTheEnd, u"Lyon"_s);
}

void PLTagFieldTest::anotherWindowDoesNotEndEditing()
{
    const PLTagFieldStage stage;
    QSignalSpy ended(stage.field, &PLTagField::didEndEditing);
    stage.type(u"Ly"_s);
    QFocusEvent out(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(stage.field, &out);
    QCOMPARE(ended.size(), 0);
    QCOMPARE(stage.typed(), u"Ly"_s);
}

void PLTagFieldTest::returnWithNothingTypedEndsEditing()
{
    const PLTagFieldStage stage({u"a"_s});
    QSignalSpy ended(stage.field, &PLTagField::didEndEditing);
    stage.type(u"b"_s);
    stage.press(Qt::Key_Return);
    QCOMPARE(ended.size(), 0);
    stage.press(Qt::Key_Return);
    QCOMPARE(ended.size(), 1);
    QVERIFY(stage.field->hasFocus());
}

void PLTagFieldTest::eachChangeIsToldAndMakingATokenIsNone()
{
    const PLTagFieldStage stage({u"a"_s});
    QSignalSpy changed(stage.field, &PLTagField::textDidChange);
    stage.type(u"xy"_s);
    QCOMPARE(changed.size(), 2);
    stage.press(Qt::Key_Comma);
    stage.press(Qt::Key_Left);
    stage.press(Qt::Key_Delete); // selects only
    QCOMPARE(changed.size(), 2);
    stage.press(Qt::Key_Delete);
    QCOMPARE(changed.size(), 3);
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(changed.size(), 4);
}

void PLTagFieldTest::settingTagsTellsNothingAndLeavesNothingToUndo()
{
    const PLTagFieldStage stage;
    stage.type(u"x,y"_s);
    QSignalSpy changed(stage.field, &PLTagField::textDidChange);
    stage.field->setTags({u" b"_s, u"B"_s, u"c"_s});
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(changed.size(), 0);
    QCOMPARE(stage.list(), u"b|c"_s);
}

void PLTagFieldTest::theDelegateGivesTheSpelling()
{
    PLTagFieldStage stage;
    stage.delegate.spellings = QStringList{u"Pékin"_s};
    QSignalSpy changed(stage.field, &PLTagField::textDidChange);
    stage.type(u"PÉKIN,lyon,"_s);
    QCOMPARE(stage.tokens(), u"Pékin|lyon"_s);
    stage.field->setTags({u"pékin"_s}); // what the file says is shown as it is
    QCOMPARE(stage.tokens(), u"pékin"_s);
}

void PLTagFieldTest::backspaceSelectsThenDeletes()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.press(Qt::Key_Backspace);
    QCOMPARE(stage.field->model().selectedToken(), std::optional(1));
    QCOMPARE(stage.tokens(), u"a|b"_s);
    stage.press(Qt::Key_Backspace);
    QCOMPARE(stage.tokens(), u"a"_s);
    stage.press(Qt::Key_Home);
    stage.press(Qt::Key_Delete);
    stage.press(Qt::Key_Delete);
    QCOMPARE(stage.tokens(), QString());
}

void PLTagFieldTest::arrowsGoOverTokensAndCharacters()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.press(Qt::Key_Left);
    stage.type(u"e\u0301\U0001f469x"_s); // a [éWx] b
    for (const int position : {5, 3, 1, 0, 0}) {
        stage.press(Qt::Key_Left);
        QCOMPARE(stage.field->model().caret(), position);
    }
    for (const int position : {1, 3, 5, 6, 7, 7}) {
        stage.press(Qt::Key_Right);
        QCOMPARE(stage.field->model().caret(), position);
    }
}

void PLTagFieldTest::shiftArrowsSelectTokensAndText()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.type(u"xy"_s);
    for (int press = 0; press < 3; ++press)
        stage.press(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(stage.field->model().selectedText(), u"b, xy"_s);
    stage.press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(stage.field->model().selectedText(), u"xy"_s);
    stage.type(u"z"_s);
    QCOMPARE(stage.list(), u"a|b|z"_s);
}

void PLTagFieldTest::anArrowLeavesASelectionAtItsEnd()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s, u"c"_s});
    stage.field->select(1, 3);
    stage.press(Qt::Key_Left);
    QCOMPARE(stage.field->model().caret(), 1);
    stage.field->select(2, 0);
    stage.press(Qt::Key_Right);
    QCOMPARE(stage.field->model().caret(), 2);
    QVERIFY(!stage.field->model().hasSelection());
}

void PLTagFieldTest::controlArrowsJumpOverWordsAndTokens()
{
    const PLTagFieldStage stage({u"a"_s});
    stage.type(u"une ville"_s);
    for (const int position : {5, 1, 0}) {
        stage.press(Qt::Key_Left, Qt::ControlModifier);
        QCOMPARE(stage.field->model().caret(), position);
    }
    stage.press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(stage.field->model().selectedText(), u"a"_s);
}

void PLTagFieldTest::homeAndEndGoToTheEnds()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.press(Qt::Key_Home);
    QCOMPARE(stage.field->model().caret(), 0);
    stage.press(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(stage.field->model().selectedText(), u"a, b"_s);
}

void PLTagFieldTest::copiedTokensAreAList()
{
    const PLTagFieldStage stage({u"a"_s, u"b c"_s});
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"a, b c"_s);
    QCOMPARE(stage.tokens(), u"a|b c"_s);
}

void PLTagFieldTest::cutTokensAreGoneAndPastedAsTokens()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s, u"c"_s});
    stage.field->select(0, 1);
    stage.press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(stage.tokens(), u"b|c"_s);
    stage.press(Qt::Key_End);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(stage.tokens(), u"b|c|a"_s);
    stage.press(Qt::Key_X, Qt::ControlModifier); // nothing selected: the clipboard stays
    QCOMPARE(QGuiApplication::clipboard()->text(), u"a"_s);
}

void PLTagFieldTest::aPastedListIsSplit()
{
    const PLTagFieldStage stage({u"a"_s});
    QGuiApplication::clipboard()->setText(u"b, c\r\nd,A"_s);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(stage.tokens(), u"a|b|c|d"_s);
    QGuiApplication::clipboard()->setText(u"Pé"_s);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    stage.type(u"kin"_s);
    QCOMPARE(stage.typed(), u"Pékin"_s);
}

void PLTagFieldTest::undoAndRedoByKey()
{
    const PLTagFieldStage stage({u"a"_s});
    stage.type(u"Lyon,"_s);
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.typed(), u"Lyon"_s);
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.list(), u"a"_s);
    stage.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    stage.press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(stage.tokens(), u"a|Lyon"_s);
}

void PLTagFieldTest::returnOrF2OpensASelectedToken_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("F2") << int(Qt::Key_F2);
}

void PLTagFieldTest::returnOrF2OpensASelectedToken()
{
    QFETCH(int, key);
    const PLTagFieldStage stage({u"a"_s, u"b"_s, u"c"_s});
    QSignalSpy ended(stage.field, &PLTagField::didEndEditing);
    stage.field->select(1, 2);
    stage.press(Qt::Key(key));
    QCOMPARE(stage.typed(), u"b"_s);
    stage.type(u"neuf"_s);
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.tokens(), u"a|neuf|c"_s);
    QCOMPARE(ended.size(), 0);
}

void PLTagFieldTest::commandsOfTheMenuAreHandled()
{
    const PLTagFieldStage stage({u"a"_s});
    const auto isEnabled = [&](PLCommand command) {
        return stage.field->stateOfCommand(command, 0)->enabled;
    };
    QVERIFY(!isEnabled(PLCommand::Undo) && !isEnabled(PLCommand::Redo) && !isEnabled(PLCommand::Copy));
    QVERIFY(!stage.field->stateOfCommand(PLCommand::FormatBold, 0).has_value());
    stage.field->performCommand(PLCommand::SelectAll, 0);
    QVERIFY(isEnabled(PLCommand::Cut));
    stage.field->performCommand(PLCommand::Cut, 0);
    QCOMPARE(stage.list(), QString());
    QVERIFY(isEnabled(PLCommand::Undo));
    stage.field->performCommand(PLCommand::Undo, 0);
    QVERIFY(isEnabled(PLCommand::Redo));
    stage.field->performCommand(PLCommand::Redo, 0);
    stage.field->performCommand(PLCommand::Paste, 0);
    QCOMPARE(stage.tokens(), u"a"_s);
}

void PLTagFieldTest::composedTextIsNoTagYet()
{
    const PLTagFieldStage stage({u"a"_s});
    QSignalSpy changed(stage.field, &PLTagField::textDidChange);
    compose(stage.field, u"ni"_s);
    QCOMPARE(stage.list(), u"a"_s);
    QVERIFY(!stage.field->rectOfText().isNull());
    compose(stage.field, QString(), u"你,好"_s);
    QCOMPARE(stage.tokens(), u"a|你"_s);
    QCOMPARE(stage.typed(), u"好"_s);
    QCOMPARE(changed.size(), 1);
}

void PLTagFieldTest::keysDoNothingWhileComposing()
{
    const PLTagFieldStage stage({u"a"_s});
    stage.type(u"b"_s);
    compose(stage.field, u"ni"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Comma, Qt::Key_Backspace, Qt::Key_Left})
        stage.press(key);
    QCOMPARE(stage.tokens(), u"a"_s);
    QCOMPARE(stage.typed(), u"b"_s);
    QVERIFY(stage.field->hasFocus());
}

void PLTagFieldTest::composedTextIsKeptWhenTheFieldIsLeft()
{
    const PLTagFieldStage stage;
    compose(stage.field, u"nihao"_s);
    stage.other->setFocus();
    QCOMPARE(stage.tokens(), u"nihao"_s);
}

void PLTagFieldTest::anInputMethodReplacesTypedText()
{
    const PLTagFieldStage stage({u"a"_s});
    stage.type(u"hanoi"_s);
    QInputMethodEvent event;
    event.setCommitString(u"ội"_s, -2, 2);
    QCoreApplication::sendEvent(stage.field, &event);
    QCOMPARE(stage.typed(), u"hanội"_s);
    QCOMPARE(stage.field->model().caret(), stage.field->model().length());
}

void PLTagFieldTest::theInputMethodKnowsTheTypedTextAlone()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    QCOMPARE(stage.field->inputMethodQuery(Qt::ImSurroundingText).toString(), QString());
    stage.type(u"été"_s);
    stage.press(Qt::Key_Left);
    QCOMPARE(stage.field->inputMethodQuery(Qt::ImSurroundingText).toString(), u"été"_s);
    QCOMPARE(stage.field->inputMethodQuery(Qt::ImCursorPosition).toInt(), 2);
    QVERIFY(stage.field->rect().contains(stage.field->inputMethodQuery(Qt::ImCursorRectangle).toRect()));
}

void PLTagFieldTest::theCaretIsAlwaysSeen()
{
    QStringList tags;
    for (int number = 0; number < 60; ++number)
        tags.append(u"chapitre %1"_s.arg(number));
    const PLTagFieldStage stage(tags, 300);
    stage.press(Qt::Key_End);
    for (int press = 0; press < 61; ++press) {
        QVERIFY(stage.field->rect().contains(stage.field->caretRect()));
        stage.press(Qt::Key_Left);
    }
    QCOMPARE(stage.field->model().caret(), 0);
    QVERIFY(stage.field->rect().contains(stage.field->rectOfToken(0)));
    stage.press(Qt::Key_End);
    stage.type(QString(200, u'm'));
    QVERIFY(stage.field->rect().contains(stage.field->caretRect()));
}

void PLTagFieldTest::aRowThatFitsAgainIsNotScrolled()
{
    const PLTagFieldStage stage({u"premier"_s}, 200);
    stage.type(QString(80, u'm'));
    QVERIFY(stage.field->rectOfToken(0).left() < 0);
    stage.press(Qt::Key_Backspace, Qt::ControlModifier);
    QVERIFY(stage.field->rectOfToken(0).left() > 0);
}

void PLTagFieldTest::aLongTagIsCut()
{
    const QString tag = u"un très long tag "_s.repeated(500).trimmed();
    const PLTagFieldStage stage({tag});
    QVERIFY(stage.field->rectOfToken(0).width() <= PLTagToken::greatestWidth);
    QCOMPARE(stage.list(), tag);
    QVERIFY(PLTagToken::shownText(tag).endsWith(u'…'));
    QCOMPARE(PLTagToken::shownText(u"a\nb"_s), u"a b"_s);
}

void PLTagFieldTest::theRowIsMirroredRightToLeft()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.field->setLayoutDirection(Qt::RightToLeft);
    const QRect first = stage.field->rectOfToken(0);
    QVERIFY(first.left() > stage.field->rectOfToken(1).right());
    QVERIFY(first.right() > stage.field->width() - 20);
    stage.press(Qt::Key_Right); // back, as it is seen
    QCOMPARE(stage.field->model().caret(), 1);
    stage.type(u"x"_s);
    QCOMPARE(stage.list(), u"a|x|b"_s);
    QVERIFY(stage.field->rectOfText().left() > stage.field->rectOfToken(1).right());
}

void PLTagFieldTest::arrowsFollowTheEyeInHebrew()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.press(Qt::Key_Left);
    stage.type(u"\u05d0\u05d1\u05d2"_s); // a [אבג] b, the first letter at the right
    stage.press(Qt::Key_Home);
    int last = stage.field->caretRect().left();
    for (int press = 0; press < 5; ++press) {
        stage.press(Qt::Key_Right);
        QVERIFY2(stage.field->caretRect().left() > last, qPrintable(QString::number(press)));
        last = stage.field->caretRect().left();
    }
    QCOMPARE(stage.field->model().caret(), stage.field->model().length());
}

void PLTagFieldTest::typingKeysComeBeforeTheShortcutsOfTheMenu()
{
    const PLTagFieldStage stage;
    const auto isTaken = [&](int key, Qt::KeyboardModifiers modifiers, const QString &text) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers, text);
        event.ignore();
        QCoreApplication::sendEvent(stage.field, &event);
        return event.isAccepted();
    };
    QVERIFY(isTaken(Qt::Key_A, {}, u"a"_s));
    QVERIFY(isTaken(Qt::Key_Z, Qt::ControlModifier, QString()));
    QVERIFY(isTaken(Qt::Key_Left, Qt::ControlModifier, QString()));
    QVERIFY(isTaken(Qt::Key_Backspace, {}, u"\b"_s));
    QVERIFY(!isTaken(Qt::Key_S, Qt::ControlModifier, u"\x13"_s));
#ifndef Q_OS_MACOS
    QVERIFY(!isTaken(Qt::Key_F, Qt::AltModifier, u"f"_s));
#endif
    QVERIFY(!isTaken(Qt::Key_N, Qt::ControlModifier, u"\x0e"_s));
}

void PLTagFieldTest::randomKeysNeverBreakTheField()
{
    static constexpr Qt::Key keys[] = {
        Qt::Key_Left,   Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Backspace, Qt::Key_Delete,
        Qt::Key_Return, Qt::Key_F2,    Qt::Key_Down, Qt::Key_Up,  Qt::Key_Escape,    Qt::Key_Comma,
        Qt::Key_X,      Qt::Key_Z,     Qt::Key_V,    Qt::Key_C,   Qt::Key_A,         Qt::Key_Y};
    static constexpr Qt::KeyboardModifiers modifiers[] = {{}, {}, Qt::ShiftModifier, Qt::ControlModifier};
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    PLTagFieldStage stage({u"a"_s, u"\u05d0\u05d1"_s, u"c"_s}, 160);
    stage.delegate.known = QStringList{u"azur"_s, u"xylophone"_s, u"\u05d0\u05d1\u05d2"_s};
    for (int step = 0; step < 1500; ++step) {
        if (random.bounded(8) == 0)
            compose(stage.field, QString(), random.bounded(2) ? u"\u05d0\u05d1"_s : u"e\u0301"_s);
        stage.press(keys[random.bounded(int(std::size(keys)))], modifiers[random.bounded(4)]);
        QVERIFY(stage.field->hasFocus());
        QVERIFY(stage.field->rect().contains(stage.field->caretRect()));
        for (const QString &tag : stage.field->tags())
            QVERIFY(!tag.trimmed().isEmpty() && !tag.contains(u','));
    }
}

QTEST_MAIN(PLTagFieldTest)
#include "PLTagFieldTest.moc"
