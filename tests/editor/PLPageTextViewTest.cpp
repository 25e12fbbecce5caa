// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageTextView.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// A text of characters that have each been lost by some editor, letters among them.
QString randomPage(QRandomGenerator &random)
{
    static const QStringList pieces = {
        u"a"_s,      u"é"_s,      u"e\u0301"_s, u" "_s,      u"\u00a0"_s, u"\u202f"_s,     u"\u2028"_s,
        u"\u2029"_s, u"\r"_s,     u"\n"_s,      u"\n\n"_s,   u"\t"_s,     u"\ufeff"_s,     u"\ufdd0"_s,
        u"\ufdd1"_s, u"\ufdd2"_s, u"\uf8ff"_s,  u"\ufffc"_s, u"\ufffd"_s, u"\U0001f469"_s, u"\u200d"_s,
        u"\u0000"_s, u"\u0001"_s, u"« "_s,      u"—"_s,      u"\u0085"_s, u"\u000b"_s,     u"  \n"_s,
    };
    QString text;
    const int count = random.bounded(60);
    for (int piece = 0; piece < count; ++piece)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

/// A place where a caret may stand: not inside a surrogate pair.
int randomPosition(const QString &text, QRandomGenerator &random)
{
    int position = random.bounded(int(text.size()) + 1);
    if (position > 0 && position < text.size() && text[position].isLowSurrogate())
        --position;
    return position;
}

} // namespace

class PLPageTextViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCharacterComesBackAfterALetterIsTypedAnywhere();
    void aTypedStandInIsKeptApart();
    void loadingAPageIsNoChangeAndLeavesNothingToUndo();
    void resizingIsNoChangeAndAddsNoUndoStep();
    void undoGoesByWords();
    void aNewWordForgetsWhatWasUndone();
    void aKeyThatTypesNothingKeepsWhatWasUndone_data();
    void aKeyThatTypesNothingKeepsWhatWasUndone();
    void aPageThatCannotBeEditedTakesNoKey_data();
    void aPageThatCannotBeEditedTakesNoKey();
    void returnInAnEmptyParagraphMakesAnother();
    void whatIsInSightStaysWhileThePageIsLaidOut();
    void whatIsInSightStaysWhenThePageIsMadeNarrow_data();
    void whatIsInSightStaysWhenThePageIsMadeNarrow();
    void aPasteKeepsItsSpacesAndIsOneUndoStep();
    void aClipboardOfNothingButHTMLGivesItsText_data();
    void aClipboardOfNothingButHTMLGivesItsText();
    void whatIsCopiedIsTheTextItself();
    void theScrollBarIsLightOnADarkDesktop();
    void whatIsBeingComposedDoesNotReachTheNextPage();
    void aNarrowMarginHasNoRule();
    void aClickInTheMarginMovesTheCaret();
};

void PLPageTextViewTest::everyCharacterComesBackAfterALetterIsTypedAnywhere()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    PLPageTextView view;
    for (int round = 0; round < 2000; ++round) {
        const QString text = randomPage(random);
        view.setPageText(text);
        QCOMPARE(view.pageText(), text);

        const int position = randomPosition(text, random);
        QTextCursor cursor = view.textCursor();
        cursor.setPosition(position);
        view.setTextCursor(cursor);
        const int caret = view.textCursor().position(); // Qt may move it off a grapheme
        QTest::keyClicks(&view, u"x"_s);

        QString expected = text;
        expected.insert(caret, u'x');
        QCOMPARE(view.pageText(), expected);
        view.undo();
        QCOMPARE(view.pageText(), text);
    }
}

void PLPageTextViewTest::aTypedStandInIsKeptApart()
{
    PLPageTextView view;
    view.setPageText(u"\u2029"_s);
    const QString standIn = view.document()->toRawText();
    QInputMethodEvent composed;
    composed.setCommitString(standIn);

    QApplication::sendEvent(&view, &composed);
    QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, standIn);
    QApplication::sendEvent(&view, &key);

    QCOMPARE(view.pageText(), standIn + standIn + u"\u2029"_s);
}

void PLPageTextViewTest::loadingAPageIsNoChangeAndLeavesNothingToUndo()
{
    PLPageTextView view;
    QSignalSpy changes(&view, &PLPageTextView::textDidChange);

    view.setPageText(u"Une page.\nDeux lignes."_s);
    QTest::keyClicks(&view, u"x"_s);
    QCOMPARE(changes.count(), 1);
    view.setPageText(u"Une autre page."_s);
    view.undo();

    QCOMPARE(changes.count(), 1);
    QCOMPARE(view.pageText(), u"Une autre page."_s);
    QVERIFY(!view.document()->isUndoAvailable());
    QVERIFY(!view.document()->isModified());
    QCOMPARE(view.textCursor().position(), 0);
}

void PLPageTextViewTest::resizingIsNoChangeAndAddsNoUndoStep()
{
    PLPageTextView view;
    view.setPageText(u"Une page."_s);
    QSignalSpy changes(&view, &PLPageTextView::textDidChange);
    view.show();

    for (int width = 300; width < 1600; width += 97)
        view.resize(width, 500);

    QCOMPARE(changes.count(), 0);
    QCOMPARE(view.document()->availableUndoSteps(), 0);
    QVERIFY(!view.document()->isModified());
}

void PLPageTextViewTest::undoGoesByWords()
{
    PLPageTextView view;
    view.setPageText(u"."_s);
    QTest::keyClicks(&view, u"un mot  encore"_s);

    const QStringList steps = {u"un mot  encore."_s, u"un mot  ."_s, u"un ."_s, u"."_s};
    for (const QString &step : steps) {
        QCOMPARE(view.pageText(), step);
        view.undo();
    }
    QCOMPARE(view.pageText(), u"."_s);
    QVERIFY(!view.document()->isUndoAvailable());
    for (qsizetype step = steps.size() - 2; step >= 0; --step) {
        QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(view.pageText(), steps[step]);
    }
    QVERIFY(!view.document()->isRedoAvailable());
}

void PLPageTextViewTest::aNewWordForgetsWhatWasUndone()
{
    PLPageTextView view;
    QTest::keyClicks(&view, u"un deux"_s);
    view.undo();
    QTest::keyClicks(&view, u"trois"_s);

    QCOMPARE(view.pageText(), u"un trois"_s);
    QVERIFY(!view.document()->isRedoAvailable());
    view.undo();
    QCOMPARE(view.pageText(), u"un "_s);
}

void PLPageTextViewTest::aKeyThatTypesNothingKeepsWhatWasUndone_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::newRow("a menu's letter") << Qt::Key_X << Qt::KeyboardModifiers(Qt::AltModifier) << u"x"_s;
    QTest::newRow("a digit with Ctrl") << Qt::Key_7 << Qt::KeyboardModifiers(Qt::ControlModifier) << u"7"_s;
    QTest::newRow("an accent with Meta")
        << Qt::Key_Eacute << Qt::KeyboardModifiers(Qt::MetaModifier) << u"é"_s;
    QTest::newRow("Return with Ctrl")
        << Qt::Key_Return << Qt::KeyboardModifiers(Qt::ControlModifier) << u"\r"_s;
}

void PLPageTextViewTest::aKeyThatTypesNothingKeepsWhatWasUndone()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, text);
    PLPageTextView view;
    QTest::keyClicks(&view, u"un deux "_s);
    view.undo();

    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&view, &press);

    QCOMPARE(view.pageText(), u"un "_s);
    QVERIFY(view.document()->isRedoAvailable());
    view.redo();
    QCOMPARE(view.pageText(), u"un deux "_s);
}

void PLPageTextViewTest::aPageThatCannotBeEditedTakesNoKey_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("letter") << Qt::Key_A << u"a"_s;
    QTest::newRow("return") << Qt::Key_Return << u"\r"_s;
    QTest::newRow("what documents keep for themselves") << Qt::Key_unknown << u"\ufdd0"_s;
}

void PLPageTextViewTest::aPageThatCannotBeEditedTakesNoKey()
{
    QFETCH(Qt::Key, key);
    QFETCH(QString, text);
    PLPageTextView view;
    view.setPageText(u"Une page."_s);
    view.setReadOnly(true);

    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&view, &press);

    QCOMPARE(view.pageText(), u"Une page."_s);
    QVERIFY(!view.document()->isUndoAvailable());
}

void PLPageTextViewTest::returnInAnEmptyParagraphMakesAnother()
{
    PLPageTextView view;
    for (int key = 0; key < 3; ++key)
        QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Return, Qt::ShiftModifier);

    QCOMPARE(view.pageText(), u"\n\n\n\n"_s);
}

void PLPageTextViewTest::whatIsInSightStaysWhileThePageIsLaidOut()
{
    PLPageTextView view;
    view.resize(900, 500);
    view.show();
    view.setPageText(
        (u"Une phrase assez longue pour la ligne. "_s.repeated(9) + u"\niiii\n"_s).repeated(3000));
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(600000);
    view.setTextCursor(cursor);
    view.ensureCursorVisible();
    const int heightBefore = view.verticalScrollBar()->maximum();
    const int before = view.cursorRect().top();

    const auto *timer = view.findChild<QTimer *>(u"layout"_s);
    QVERIFY(timer->isActive());
    QTRY_VERIFY(!timer->isActive());

    QVERIFY(view.verticalScrollBar()->maximum() != heightBefore);
    QVERIFY(qAbs(view.cursorRect().top() - before) <= 2);
}

void PLPageTextViewTest::whatIsInSightStaysWhenThePageIsMadeNarrow_data()
{
    QTest::addColumn<bool>("isCaretInSight");
    QTest::newRow("the caret's line") << true;
    QTest::newRow("the first line, if the caret is elsewhere") << false;
}

void PLPageTextViewTest::whatIsInSightStaysWhenThePageIsMadeNarrow()
{
    QFETCH(bool, isCaretInSight);
    PLPageTextView view;
    view.resize(900, 500);
    view.show();
    view.setPageText((u"Une phrase assez longue pour la ligne. "_s.repeated(9) + u"\n\n"_s).repeated(50));
    const auto *timer = view.findChild<QTimer *>(u"layout"_s);
    QTRY_VERIFY(!timer->isActive());
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2);
    const QPoint place(200, isCaretInSight ? 250 : 0);
    const QTextCursor seen = view.cursorForPosition(place);
    if (isCaretInSight)
        view.setTextCursor(seen);
    const int top = view.cursorRect(seen).top();

    for (const int width : {800, 420, 1300, 500, 900}) {
        view.resize(width, 500);
        QTRY_VERIFY(!timer->isActive());
        QVERIFY2(qAbs(view.cursorRect(seen).top() - top) <= 40, qPrintable(QString::number(width)));
    }
    view.resize(900, 120); // too low for where it was
    QVERIFY(!isCaretInSight || view.viewport()->rect().contains(view.cursorRect(seen)));
}

void PLPageTextViewTest::aPasteKeepsItsSpacesAndIsOneUndoStep()
{
    PLPageTextView view;
    view.setPageText(u"avant après"_s);
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(5);
    view.setTextCursor(cursor);
    QGuiApplication::clipboard()->setText(u"\u00a0:\r\nligne\u202f\n"_s);

    view.paste();
    QCOMPARE(view.pageText(), u"avant\u00a0:\nligne\u202f\n après"_s);
    view.undo();
    QCOMPARE(view.pageText(), u"avant après"_s);
    view.redo();
    QCOMPARE(view.pageText(), u"avant\u00a0:\nligne\u202f\n après"_s);
}

void PLPageTextViewTest::aClipboardOfNothingButHTMLGivesItsText_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    QTest::newRow("bold") << u"<p>Un <b>mot</b></p>"_s << u"Un mot"_s;
    QTest::newRow("paragraphs") << u"<h1>Un</h1><p>deux</p><p>trois</p>"_s << u"Un\ndeux\ntrois"_s;
    QTest::newRow("a line break") << u"un<br>deux"_s << u"un\ndeux"_s;
    QTest::newRow("French spaces") << u"<p>«&nbsp;Non&#8239;!&nbsp;»</p>"_s << u"«\u00a0Non\u202f!\u00a0»"_s;
    QTest::newRow("French spaces in other words")
        << u"<p>Non\u202f! Si&#x202F;! «\u00a0Ah\u00a0»</p>"_s << u"Non\u202f! Si\u202f! «\u00a0Ah\u00a0»"_s;
    QTest::newRow("a table") << u"<table><tr><td>un</td><td>deux</td></tr></table>"_s << u"un\ndeux"_s;
    QTest::newRow("a picture") << u"<p>un<img src='http://localhost/a.png'>deux</p>"_s << u"undeux"_s;
    QTest::newRow("a style sheet on the way")
        << u"un<LINK rel=stylesheet\nhref='a.css'>deux<p>trois</p>"_s << u"undeux\ntrois"_s;
    QTest::newRow("script and style") << u"<style>p{}</style><script>x()</script><p>un</p>"_s << u"un"_s;
}

void PLPageTextViewTest::aClipboardOfNothingButHTMLGivesItsText()
{
    QFETCH(QString, html);
    PLPageTextView view;
    auto *data = new QMimeData;
    data->setHtml(html);
    QGuiApplication::clipboard()->setMimeData(data);

    view.paste();

    QTEST(view.pageText(), "text");
    QVERIFY(!view.textCursor().charFormat().font().bold());
}

void PLPageTextViewTest::whatIsCopiedIsTheTextItself()
{
    PLPageTextView view;
    const QString text = u"un\u00a0: \rdeux\u2029\ntrois"_s;
    view.setPageText(text);

    view.selectAll();
    view.copy();

    QCOMPARE(QGuiApplication::clipboard()->text(), text);
    QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasHtml());
}

void PLPageTextViewTest::theScrollBarIsLightOnADarkDesktop()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::black, Qt::black));
    PLPageTextView view;
    view.setPageText(u"\n"_s.repeated(100));
    view.resize(600, 300);
    view.show();

    const QImage image = view.verticalScrollBar()->grab().toImage();
    QApplication::setPalette(before);

    QVERIFY(qGray(image.pixel(image.rect().center())) > 150);
}

void PLPageTextViewTest::whatIsBeingComposedDoesNotReachTheNextPage()
{
    PLPageTextView view;
    view.setPageText(u"un"_s);
    QInputMethodEvent composing(u"´"_s, {});
    QApplication::sendEvent(&view, &composing);
    QCOMPARE(view.textCursor().block().layout()->preeditAreaText(), u"´"_s);
    QCOMPARE(view.pageText(), u"un"_s);

    view.setPageText(u"deux"_s);
    QTest::keyClicks(&view, u"e"_s);

    QCOMPARE(view.pageText(), u"edeux"_s);
    QVERIFY(view.textCursor().block().layout()->preeditAreaText().isEmpty());
}

void PLPageTextViewTest::aNarrowMarginHasNoRule()
{
    QCOMPARE(PLPageTextView::marginRuleForInset(24), std::nullopt);
    QCOMPARE(PLPageTextView::marginRuleForInset(25), std::optional(9));
    QCOMPARE(PLPageTextView::marginRuleForInset(44), std::optional(28));
    QCOMPARE(PLPageTextView::marginRuleForInset(140), std::optional(124));
}

void PLPageTextViewTest::aClickInTheMarginMovesTheCaret()
{
    PLPageTextView view;
    view.setPageText(u"un\ndeux\ntrois"_s);
    view.resize(1000, 500);
    view.show();
    QTextCursor end = view.textCursor();
    end.movePosition(QTextCursor::End);
    const int thirdLine = view.cursorRect(end).center().y();

    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(20, thirdLine));

    QCOMPARE(view.textCursor().position(), 8);
}

QTEST_MAIN(PLPageTextViewTest)
#include "PLPageTextViewTest.moc"
