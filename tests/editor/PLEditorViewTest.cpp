// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLEditorView.h"

#include "editor/PLBarButton.h"
#include "editor/PLFormatBarView.h"
#include "editor/PLLivePreview.h"
#include "editor/PLPageTextView.h"
#include "editor/PLTagField.h"
#include "foundation/PLPreferences.h"
#include "support/PLTestEnvironment.h"
#include "theme/PLTheme.h"

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString previewVisibleKey = u"PLPreviewVisible"_s;

} // namespace

class PLEditorViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void thePreviewIsShownUntilItIsHidden();
    void thePreviewButtonAndTheMenuFollow();
    void theNumberOfWordsIsInTheInterfaceLanguage_data();
    void theNumberOfWordsIsInTheInterfaceLanguage();
    void theNumberOfWordsFollowsAPause();
    void aPageOpensAtItsTopWithNothingToUndo();
    void aMissingTextIsEmpty();
    void tagsAreNormalised();
    void theTextComesAfterTheTags();
    void commandsAreOfferedWhileThePageIsShown();
    void buttonsDoWhatTheyAreFor();
    void thePanesAreDividedInHalfWhenThePreviewIsShown();
    void theDividerStopsAtTheLimits();
    void theDividerIsSeenBetweenThePanes();
    void thePanesHaveNamesForScreenReaders_data();
    void thePanesHaveNamesForScreenReaders();

private:
    PLTestEnvironment m_environment;
};

void PLEditorViewTest::init()
{
    m_environment.forgetPreferences();
    m_environment.setLanguage(u"fr"_s);
}

void PLEditorViewTest::thePreviewIsShownUntilItIsHidden()
{
    PLPreferences::store().remove(previewVisibleKey);
    PLEditorView first;
    QVERIFY(first.isPreviewVisible());
    QVERIFY(!first.livePreview()->isHidden());
    first.togglePreview();
    QCOMPARE(PLPreferences::store().value(previewVisibleKey), QVariant(false));
    PLEditorView second;
    QVERIFY(!second.isPreviewVisible());
    QVERIFY(second.livePreview()->isHidden());
    second.togglePreview();
    QVERIFY(PLEditorView().isPreviewVisible());
}

void PLEditorViewTest::thePreviewButtonAndTheMenuFollow()
{
    PLEditorView editor;
    for (const bool isVisible : {true, false}) {
        editor.setPreviewVisible(isVisible);
        QCOMPARE(editor.formatBar()->button(PLCommand::TogglePreview)->isChecked(), isVisible);
        QCOMPARE(editor.stateOfCommand(PLCommand::TogglePreview, 0)->checked, isVisible);
    }
    editor.formatBar()->button(PLCommand::TogglePreview)->click();
    QVERIFY(editor.isPreviewVisible());
    QVERIFY(editor.formatBar()->button(PLCommand::TogglePreview)->isChecked());
}

void PLEditorViewTest::theNumberOfWordsIsInTheInterfaceLanguage_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("french");
    QTest::addColumn<QString>("english");
    QTest::newRow("none") << 0 << u"0 mot"_s << u"0 words"_s;
    QTest::newRow("one") << 1 << u"1 mot"_s << u"1 word"_s;
    QTest::newRow("two") << 2 << u"2 mots"_s << u"2 words"_s;
    QTest::newRow("grouped") << 1234 << u"1\u202F234 mots"_s << u"1,234 words"_s;
}

void PLEditorViewTest::theNumberOfWordsIsInTheInterfaceLanguage()
{
    QFETCH(int, count);
    QFETCH(QString, french);
    QFETCH(QString, english);
    PLEditorView editor;
    editor.setText(u"mot "_s.repeated(count), QUrl());
    QCOMPARE(editor.formatBar()->wordCountText(), french);
    m_environment.setLanguage(u"en"_s);
    editor.setText(u"word "_s.repeated(count), QUrl());
    QCOMPARE(editor.formatBar()->wordCountText(), english);
}

void PLEditorViewTest::theNumberOfWordsFollowsAPause()
{
    PLEditorView editor;
    editor.setText(u"un"_s, QUrl());
    QSignalSpy paused(editor.livePreview(), &PLLivePreview::previewTimerFired);
    QTest::keyClicks(editor.textView(), u"deux "_s);
    QCOMPARE(editor.formatBar()->wordCountText(), u"1 mot"_s);
    QVERIFY(paused.wait(5000));
    QCOMPARE(editor.formatBar()->wordCountText(), u"2 mots"_s);
    QCOMPARE(paused.size(), 1);
}

void PLEditorViewTest::aPageOpensAtItsTopWithNothingToUndo()
{
    PLEditorView editor;
    editor.resize(800, 400);
    editor.show();
    editor.setText(u"Une ligne.\n\n"_s.repeated(200), QUrl());
    editor.textView()->moveCursor(QTextCursor::End);
    QTest::keyClicks(editor.textView(), u"abc"_s);
    const QString text = u"Une autre.\n\n"_s.repeated(200);
    editor.setText(text, QUrl());
    QCOMPARE(editor.textView()->textCursor().position(), 0);
    QCOMPARE(editor.textView()->verticalScrollBar()->value(), 0);
    editor.textView()->undo();
    editor.textView()->redo();
    QCOMPARE(editor.text(), text);
}

void PLEditorViewTest::aMissingTextIsEmpty()
{
    PLEditorView editor;
    editor.setText(u"abc"_s, QUrl());
    editor.setText(QString(), QUrl());
    QCOMPARE(editor.text(), u""_s);
    QCOMPARE(editor.formatBar()->wordCountText(), u"0 mot"_s);
}

void PLEditorViewTest::tagsAreNormalised()
{
    PLEditorView editor;
    QCOMPARE(editor.tags(), QStringList());
    editor.setTags({u" Paris "_s, u"mer"_s, u"paris"_s, u""_s});
    QCOMPARE(editor.tags(), (QStringList{u"Paris"_s, u"mer"_s}));
    editor.setTags({});
    QCOMPARE(editor.tags(), QStringList());
}

void PLEditorViewTest::theTextComesAfterTheTags()
{
    PLEditorView editor;
    QWidget *next = editor.tagField()->nextInFocusChain();
    while (next->focusPolicy() == Qt::NoFocus || next->focusProxy())
        next = next->nextInFocusChain();
    QCOMPARE(next, editor.textView());
}

void PLEditorViewTest::commandsAreOfferedWhileThePageIsShown()
{
    PLEditorView editor;
    for (const bool isShown : {false, true, false}) {
        editor.setVisible(isShown);
        for (const PLCommand command :
             {PLCommand::FormatBold, PLCommand::FormatLink, PLCommand::TogglePreview,
              PLCommand::PerformFindPanelAction, PLCommand::CheckSpelling}) {
            const int tag = command == PLCommand::PerformFindPanelAction ? 1 : 0;
            QCOMPARE(editor.stateOfCommand(command, tag)->enabled, isShown);
        }
    }
    QVERIFY(!editor.stateOfCommand(PLCommand::NewChapter, 0));
}

void PLEditorViewTest::buttonsDoWhatTheyAreFor()
{
    PLEditorView editor;
    editor.setText(u"Titre"_s, QUrl());
    editor.formatBar()->button(PLCommand::FormatHeading, 2)->click();
    QCOMPARE(editor.text(), u"## Titre"_s);
    editor.formatBar()->button(PLCommand::FormatBulletList)->click();
    QCOMPARE(editor.text(), u"- ## Titre"_s);
}

void PLEditorViewTest::thePanesAreDividedInHalfWhenThePreviewIsShown()
{
    PLEditorView editor;
    editor.resize(1001, 500);
    editor.show();
    QCOMPARE(editor.textView()->width(), 1001);
    editor.setPreviewVisible(true);
    QCOMPARE(editor.textView()->width(), 500);
    editor.splitView()->setSizes({300, 700});
    editor.setPreviewVisible(false);
    QCOMPARE(editor.textView()->width(), 1001);
    editor.setPreviewVisible(true);
    QCOMPARE(editor.textView()->width(), 500);
}

/// Both panes are of the same paper.
void PLEditorViewTest::theDividerIsSeenBetweenThePanes()
{
    PLEditorView editor;
    editor.resize(1000, 500);
    editor.setPreviewVisible(true);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));

    const QImage image = editor.splitView()->grab().toImage();

    for (const int y : {0, image.height() / 2, image.height() - 1})
        QCOMPARE(image.pixelColor(500, y).name(), PLTheme::shadowed(PLTheme::coverColor(), 0.1).name());
}

void PLEditorViewTest::thePanesHaveNamesForScreenReaders_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("preview");
    QTest::newRow("French") << u"fr"_s << u"Texte de la page"_s << u"Aperçu"_s;
    QTest::newRow("English") << u"en"_s << u"Page Text"_s << u"Preview"_s;
}

void PLEditorViewTest::thePanesHaveNamesForScreenReaders()
{
    QFETCH(QString, language);
    m_environment.setLanguage(language);
    const PLEditorView editor;
    m_environment.setLanguage(u"fr"_s);
    const auto name = [](QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };

    QTEST(name(editor.textView()), "text");
    QTEST(name(editor.livePreview()), "preview");
}

/// The divider is drawn along by the mouse, as far as it goes.
void PLEditorViewTest::theDividerStopsAtTheLimits()
{
    PLEditorView editor;
    editor.resize(1000, 500);
    editor.setPreviewVisible(true);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QWidget *divider = editor.splitView()->handle(1);
    const auto drag = [divider](int distance) {
        QTest::mousePress(divider, Qt::LeftButton, {}, QPoint(0, 100));
        QTest::mouseMove(divider, QPoint(distance, 100));
        QTest::mouseRelease(divider, Qt::LeftButton, {}, QPoint(0, 100));
    };
    drag(-450);
    QCOMPARE(editor.textView()->width(), 240);
    drag(740);
    QCOMPARE(editor.textView()->width(), 760);
    drag(-100);
    const int grabMargin = 2; // the handle is wider than the line it draws
    QVERIFY(qAbs(editor.textView()->width() - 660) <= grabMargin);
}

QTEST_MAIN(PLEditorViewTest)
#include "PLEditorViewTest.moc"
