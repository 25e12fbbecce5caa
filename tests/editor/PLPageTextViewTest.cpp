// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageTextView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
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
    void loadingAPageIsNoChangeAndLeavesNothingToUndo();
    void resizingIsNoChangeAndAddsNoUndoStep();
    void returnInAnEmptyParagraphMakesAnother();
    void whatIsInSightStaysWhileThePageIsLaidOut();
    void aPasteKeepsItsSpacesAndIsOneUndoStep();
    void aClipboardOfNothingButHTMLGivesItsText();
    void whatIsCopiedIsTheTextItself();
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
    view.setPageText((u"Une phrase assez longue pour la ligne. "_s.repeated(9) + u"\niiii\n"_s).repeated(3000));
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

void PLPageTextViewTest::aClipboardOfNothingButHTMLGivesItsText()
{
    PLPageTextView view;
    auto *data = new QMimeData;
    data->setHtml(u"<p>Un <b>mot</b></p>"_s);
    QGuiApplication::clipboard()->setMimeData(data);

    view.paste();

    QCOMPARE(view.pageText(), u"Un mot"_s);
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
