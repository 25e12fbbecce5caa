// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFormatCommands.h"

#include "editor/PLFormatMarkedText.h"
#include "editor/PLPageTextView.h"
#include "support/PLTestEnvironment.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;
using enum PLCommand;

namespace {

void load(PLPageTextView &view, const PLMarkedText &marked)
{
    view.setPageText(marked.text);
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(int(marked.selection.position));
    cursor.setPosition(int(marked.selection.end()), QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
}

QString shown(const PLPageTextView &view)
{
    return PLMarkedText{view.pageText(), view.selectedRange()}.toString();
}

bool hasTheLineHeightThroughout(const PLPageTextView &view)
{
    for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next()) {
        const double height = view.document()->documentLayout()->blockBoundingRect(block).height();
        if (height != block.layout()->lineCount() * std::round(block.layout()->lineAt(0).height() * 1.3))
            return false;
    }
    return true;
}

bool hasPlainCharactersThroughout(const PLPageTextView &view)
{
    const QList<QTextFormat> formats = view.document()->allFormats();
    return std::none_of(formats.begin(), formats.end(), [](const QTextFormat &format) {
        return format.isCharFormat() && format.propertyCount() > 0;
    });
}

} // namespace

class PLFormatCommandsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aCommandIsOneUndoStep_data();
    void aCommandIsOneUndoStep();
    void undoAndRedoBringTextAndSelectionBackExactly();
    void stepsOnStepsAreUndoneOneByOne();
    void whatIsTypedAfterACommandIsAStepOfItsOwn();
    void undoByKeyBringsTheSelectionBack();
    void undoOfQtsOwnMenuBringsTheSelectionBack();
    void theDirectionOfTheSelectionComesBack();
    void aCommandThatChangesNothingIsNoStep_data();
    void aCommandThatChangesNothingIsNoStep();
    void aPageThatCannotBeEditedStaysAsItIs();
    void aCaretWithinAnEmojiDoesNotTearIt();
    void theSelectionIsScrolledIntoView();
    void thePageTakesTheKeys();
    void undoLeavesTheSelectionOfTheNextPageAlone();

private:
    PLTestEnvironment m_environment;
};

void PLFormatCommandsTest::aCommandIsOneUndoStep_data()
{
    QTest::addColumn<PLCommand>("command");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("bold") << FormatBold << u"un ⟦mot ⟧ici"_s << u"un **⟦mot⟧** ici"_s;
    QTest::newRow("italic") << FormatItalic << u"¦"_s << u"_⟦texte en italique⟧_"_s;
    QTest::newRow("strike-through") << FormatStrikethrough << u"~~⟦un\n\nmot⟧~~"_s << u"⟦un\n\nmot⟧"_s;
    QTest::newRow("heading") << FormatHeading << u"un\nTi¦tre\n"_s << u"un\n## Titre¦\n"_s;
    QTest::newRow("quote") << FormatQuote << u"⟦un\n\ndeux\n⟧"_s << u"⟦> un\n\n> deux⟧\n"_s;
    QTest::newRow("bullets") << FormatBulletList << u"u⟦n\n\nd⟧eux"_s << u"⟦- un\n\n- deux⟧"_s;
    QTest::newRow("numbers") << FormatNumberedList << u"⟦- un\n- \r\u2029\u00a0⟧"_s << u"⟦1. un\n2. ⟧"_s;
    QTest::newRow("separator") << FormatSeparator << u"un⟦\n⟧deux"_s << u"un\n\n* * *\n\n¦deux"_s;
    QTest::newRow("link") << FormatLink << u"⟦\U0001f58b\r⟧"_s << u"[\U0001f58b\r](⟦http://⟧)"_s;
}

void PLFormatCommandsTest::aCommandIsOneUndoStep()
{
    QFETCH(PLCommand, command);
    QFETCH(QString, before);
    QFETCH(QString, after);
    PLPageTextView view;
    load(view, PLMarkedText::fromString(before));
    QSignalSpy changes(&view, &PLPageTextView::textDidChange);

    PLPerformFormatCommand(view, command, 2);
    QCOMPARE(shown(view), after);
    QCOMPARE(changes.count(), 1);
    QVERIFY(hasTheLineHeightThroughout(view));

    view.undo();
    QCOMPARE(shown(view), before);
    QVERIFY(!view.document()->isUndoAvailable());
    QVERIFY(!view.document()->isModified());
    QVERIFY(hasTheLineHeightThroughout(view));

    view.redo();
    QCOMPARE(shown(view), after);
    QVERIFY(!view.document()->isRedoAvailable());
    QVERIFY(hasTheLineHeightThroughout(view));
}

void PLFormatCommandsTest::undoAndRedoBringTextAndSelectionBackExactly()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    PLPageTextView view;
    for (int round = 0; round < 1500; ++round) {
        const auto marked = PLMarkedText::random(random);
        load(view, marked);
        QStringList before; // what the page shows before each step, and after it
        QStringList after;
        for (int command = random.bounded(1, 5); command > 0; --command) {
            const QString text = view.pageText();
            const QString state = shown(view);
            PLPerformFormatCommand(view, PLCommand(int(FormatBold) + random.bounded(9)),
                                   random.bounded(-1, 9));
            QVERIFY2(hasTheLineHeightThroughout(view), qPrintable(state));
            if (view.pageText() == text)
                continue; // no step
            before.append(state);
            after.append(shown(view));
        }
        QVERIFY(hasPlainCharactersThroughout(view));
        for (qsizetype step = before.size() - 1; step >= 0; --step) {
            view.undo();
            QCOMPARE(shown(view), before[step]);
        }
        QCOMPARE(view.pageText(), marked.text);
        QVERIFY(!view.document()->isUndoAvailable());
        QVERIFY(hasTheLineHeightThroughout(view));
        for (const QString &state : std::as_const(after)) {
            view.redo();
            QCOMPARE(shown(view), state);
        }
        QVERIFY(hasTheLineHeightThroughout(view));
    }
}

void PLFormatCommandsTest::stepsOnStepsAreUndoneOneByOne()
{
    PLPageTextView view;
    load(view, PLMarkedText::fromString(u"un ⟦mot⟧"_s));
    PLPerformFormatCommand(view, FormatBold);
    PLPerformFormatCommand(view, FormatItalic);
    PLPerformFormatCommand(view, FormatQuote);
    QCOMPARE(shown(view), u"⟦> un **_mot_**⟧"_s);

    view.undo();
    QCOMPARE(shown(view), u"un **_⟦mot⟧_**"_s);
    view.undo();
    QCOMPARE(shown(view), u"un **⟦mot⟧**"_s);
    PLPerformFormatCommand(view, FormatBold); // and what was undone is gone
    QVERIFY(!view.document()->isRedoAvailable());
    QCOMPARE(shown(view), u"un ⟦mot⟧"_s);
    view.undo();
    QCOMPARE(shown(view), u"un **⟦mot⟧**"_s);
    view.undo();
    QCOMPARE(shown(view), u"un ⟦mot⟧"_s);
    view.redo();
    view.redo();
    QCOMPARE(shown(view), u"un ⟦mot⟧"_s);
}

void PLFormatCommandsTest::whatIsTypedAfterACommandIsAStepOfItsOwn()
{
    PLPageTextView view;
    QTest::keyClicks(&view, u"un "_s);
    PLPerformFormatCommand(view, FormatBold);
    QTest::keyClicks(&view, u"mot"_s);
    QCOMPARE(shown(view), u"un **mot¦**"_s);

    view.undo();
    QCOMPARE(view.pageText(), u"un **texte en gras**"_s);
    view.undo();
    QCOMPARE(shown(view), u"un ¦"_s);
    view.undo();
    QCOMPARE(shown(view), u"¦"_s);
}

void PLFormatCommandsTest::undoByKeyBringsTheSelectionBack()
{
    PLPageTextView view;
    load(view, PLMarkedText::fromString(u"⟦un\n⟧deux"_s));
    PLPerformFormatCommand(view, FormatBulletList);

    QTest::keySequence(&view, QKeySequence::Undo);
    QCOMPARE(shown(view), u"⟦un\n⟧deux"_s);
    QTest::keySequence(&view, QKeySequence::Redo);
    QCOMPARE(shown(view), u"⟦- un⟧\ndeux"_s);
}

void PLFormatCommandsTest::undoOfQtsOwnMenuBringsTheSelectionBack()
{
    PLPageTextView view;
    load(view, PLMarkedText::fromString(u"⟦un\n⟧deux"_s));
    PLPerformFormatCommand(view, FormatBulletList);

    static_cast<QTextEdit &>(view).undo();

    QTRY_COMPARE(shown(view), u"⟦un\n⟧deux"_s);
}

void PLFormatCommandsTest::theDirectionOfTheSelectionComesBack()
{
    PLPageTextView view;
    view.setPageText(u"un mot"_s);
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(6);
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);

    PLPerformFormatCommand(view, FormatItalic);
    QCOMPARE(shown(view), u"un _⟦mot⟧_"_s);
    view.undo();

    QCOMPARE(view.textCursor().anchor(), 6);
    QCOMPARE(view.textCursor().position(), 3);
}

void PLFormatCommandsTest::aCommandThatChangesNothingIsNoStep_data()
{
    QTest::addColumn<PLCommand>("command");
    QTest::addColumn<QString>("marked");

    QTest::newRow("quote in no text") << FormatQuote << u"¦"_s;
    QTest::newRow("bullets on an empty line") << FormatBulletList << u"un\n¦\ndeux"_s;
    QTest::newRow("heading on an empty line") << FormatHeading << u"un\n¦"_s;
    QTest::newRow("bold on spaces") << FormatBold << u"un⟦ \u00a0\n⟧deux"_s;
    QTest::newRow("no format command") << TogglePreview << u"un ⟦mot⟧"_s;
}

void PLFormatCommandsTest::aCommandThatChangesNothingIsNoStep()
{
    QFETCH(PLCommand, command);
    QFETCH(QString, marked);
    PLPageTextView view;
    load(view, PLMarkedText::fromString(marked));
    QSignalSpy changes(&view, &PLPageTextView::textDidChange);

    PLPerformFormatCommand(view, command);

    QCOMPARE(shown(view), marked);
    QCOMPARE(changes.count(), 0);
    QVERIFY(!view.document()->isModified());
    QVERIFY(!view.document()->isUndoAvailable());
}

void PLFormatCommandsTest::aPageThatCannotBeEditedStaysAsItIs()
{
    PLPageTextView view;
    load(view, PLMarkedText::fromString(u"un ⟦ mot⟧"_s));
    view.setReadOnly(true);

    PLPerformFormatCommand(view, FormatBold);
    PLPerformFormatCommand(view, FormatQuote);

    QCOMPARE(shown(view), u"un ⟦ mot⟧"_s);
    QVERIFY(!view.document()->isUndoAvailable());
}

void PLFormatCommandsTest::aCaretWithinAnEmojiDoesNotTearIt()
{
    PLPageTextView view;
    load(view, {u"\U0001f58b!"_s, {1, 0}});
    PLPerformFormatCommand(view, FormatSeparator);
    QCOMPARE(shown(view), u"* * *\n\n¦\U0001f58b!"_s);

    load(view, {u"\U0001f58b\U0001f58b"_s, {1, 2}});
    PLPerformFormatCommand(view, FormatBold);
    QCOMPARE(shown(view), u"**⟦\U0001f58b\U0001f58b⟧**"_s);
}

void PLFormatCommandsTest::theSelectionIsScrolledIntoView()
{
    PLPageTextView view;
    view.resize(600, 300);
    view.show();
    view.setPageText(u"une ligne\n"_s.repeated(300));
    QTextCursor cursor(view.document());
    cursor.setPosition(2000);
    cursor.setPosition(2010, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    view.moveCursor(QTextCursor::Start, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    view.verticalScrollBar()->setValue(0);

    PLPerformFormatCommand(view, FormatQuote);

    QCOMPARE(view.selectedRange().position, 2000);
    QVERIFY(view.viewport()->rect().contains(view.cursorRect()));
}

void PLFormatCommandsTest::thePageTakesTheKeys()
{
    QWidget window;
    PLPageTextView view(&window);
    QTextEdit other(&window);
    window.show();
    other.setFocus();
    QVERIFY(!view.hasFocus());

    PLPerformFormatCommand(view, FormatBold);

    QCOMPARE(window.focusWidget(), &view);
}

void PLFormatCommandsTest::undoLeavesTheSelectionOfTheNextPageAlone()
{
    PLPageTextView view;
    load(view, PLMarkedText::fromString(u"⟦un mot⟧"_s));
    PLPerformFormatCommand(view, FormatBold);
    static_cast<QTextEdit &>(view).undo();
    view.setPageText(u"Une autre page"_s);

    QCoreApplication::processEvents();

    QCOMPARE(shown(view), u"¦Une autre page"_s);
}

QTEST_MAIN(PLFormatCommandsTest)
#include "PLFormatCommandsTest.moc"
