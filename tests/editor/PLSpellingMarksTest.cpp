// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLSpellingMarks.h"

#include "editor/PLPageTextView.h"
#include "editor/PLTextMarks.h"
#include "platform/PLSpellTestDictionary.h"
#include "support/PLTestEnvironment.h"

#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;

class PLSpellingMarksTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unknownWordsAreMarked();
    void aWaveIsDrawnUnderTheWordAlone();
    void theDictionaryIsNotReadBeforeATextIsShown();
    void theDictionaryIsReadAtAPause();
    void theWordBeingTypedIsLeftAlone();
    void aWordTheCaretOnlyVisitsStaysMarked();
    void aMarkGoesWhenItsWordIsTouched();
    void marksMoveWithTheText();
    void marksAreNoChange();
    void onlyWhatIsInSightIsChecked();
    void scrollingMarksWhatComesIntoSight();
    void aVeryLongParagraphIsCheckedInParts();
    void aParagraphIsCheckedOnceAndAgainWhenItChanges();
    void anotherPageStartsAfresh();
    void learningAWordTakesItsMarksAway();
    void switchedOffNothingIsMarked();
    void nothingIsMarkedWhileAnInputMethodComposes();
    void marksFollowUndoAndRedoOfAsManyLetters();
    void marksAreRightAfterAnyEditing();

private:
    QStringList marked() const;
    QList<QPoint> wavePlaces() const;
    void setCaret(int position);

    PLTestEnvironment m_environment;
    PLSpellTestDictionary::Notes m_notes;
    std::shared_ptr<PLSpellChecker> m_checker;
    std::unique_ptr<PLPageTextView> m_view;
    PLSpellingMarks *m_marks = nullptr;
};

void PLSpellingMarksTest::init()
{
    m_notes = {};
    m_notes.words = {u"un"_s, u"deux"_s, u"trois"_s};
    m_checker = std::make_shared<PLSpellChecker>(
        u"fr_FR"_s, [this](const QString &) { return std::make_unique<PLSpellTestDictionary>(m_notes); });
    m_view = std::make_unique<PLPageTextView>();
    m_view->resize(600, 300);
    m_marks = new PLSpellingMarks(m_view.get(), m_checker);
    m_marks->setEnabled(true);
}

void PLSpellingMarksTest::cleanup()
{
    m_view.reset();
}

/// The words that are marked once everything has been looked at.
QStringList PLSpellingMarksTest::marked() const
{
    if (!QTest::qWaitFor([this] { return m_marks->isSettled(); }))
        return {u"not settled"_s};
    QStringList words;
    const QString text = m_view->pageText();
    const QList<PLTextRange> ranges = PLTextMarks::of(*m_view).marks(PLTextMarks::Kind::Misspelling);
    for (const PLTextRange &range : ranges)
        words.append(text.mid(range.position, range.length));
    return words;
}

/// Where something is drawn in the colour of mistakes.
QList<QPoint> PLSpellingMarksTest::wavePlaces() const
{
    const QImage image = m_view->viewport()->grab().toImage();
    QList<QPoint> places;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.red() > color.green() + 80 && color.red() > color.blue() + 80)
                places.append(QPoint(x, y));
        }
    }
    return places;
}

void PLSpellingMarksTest::setCaret(int position)
{
    QTextCursor cursor = m_view->textCursor();
    cursor.setPosition(position);
    m_view->setTextCursor(cursor);
}

void PLSpellingMarksTest::unknownWordsAreMarked()
{
    m_view->setPageText(u"un abc deux\n\n**xyz** trois"_s);
    m_view->show();

    QCOMPARE(marked(), (QStringList{u"abc"_s, u"xyz"_s}));
}

void PLSpellingMarksTest::aWaveIsDrawnUnderTheWordAlone()
{
    m_view->setPageText(u"un abc deux"_s);
    m_view->show();
    QVERIFY(wavePlaces().isEmpty());
    QCOMPARE(marked(), QStringList{u"abc"_s});

    QTextCursor start(m_view->document());
    start.setPosition(3);
    QTextCursor end(m_view->document());
    end.setPosition(6);
    const QRect word(m_view->cursorRect(start).topLeft(), m_view->cursorRect(end).bottomRight());
    const QList<QPoint> places = wavePlaces();
    QVERIFY(places.size() > 10);
    for (const QPoint &place : places)
        QVERIFY(word.adjusted(-1, word.height() / 2, 1, 2).contains(place));
}

void PLSpellingMarksTest::theDictionaryIsNotReadBeforeATextIsShown()
{
    m_view->setPageText(u"un abc"_s);
    QVERIFY(marked().isEmpty());
    QCOMPARE(m_notes.loads, 0);

    m_view->show();
    QCOMPARE(marked(), QStringList{u"abc"_s});
    QCOMPARE(m_notes.loads, 1);
}

/// Keys go on for longer than the pause is; only when they have ended is the dictionary read.
void PLSpellingMarksTest::theDictionaryIsReadAtAPause()
{
    m_view->setPageText(u"un abc "_s);
    m_view->show();
    QElapsedTimer typing;
    typing.start();
    while (typing.elapsed() < 700) {
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QCoreApplication::processEvents();
        QVERIFY(!m_checker->isLoaded());
    }
    QCOMPARE(marked(), QStringList{u"abc"_s});
    QVERIFY(m_checker->isLoaded());
}

void PLSpellingMarksTest::theWordBeingTypedIsLeftAlone()
{
    m_view->show();
    QTest::keyClicks(m_view.get(), u"un ab"_s);
    QVERIFY(marked().isEmpty());
    QTest::keyClicks(m_view.get(), u"c"_s);
    QVERIFY(marked().isEmpty());
    QTest::keyClick(m_view.get(), Qt::Key_Left); // still in it
    QVERIFY(marked().isEmpty());
    QTest::keyClick(m_view.get(), Qt::Key_Right);

    QTest::keyClicks(m_view.get(), u" "_s);
    QCOMPARE(marked(), QStringList{u"abc"_s});

    QTest::keyClick(m_view.get(), Qt::Key_Backspace);
    QTest::keyClick(m_view.get(), Qt::Key_Backspace);
    QVERIFY(marked().isEmpty());
    setCaret(0);
    QCOMPARE(marked(), QStringList{u"ab"_s});
}

void PLSpellingMarksTest::aWordTheCaretOnlyVisitsStaysMarked()
{
    m_view->setPageText(u"un abc deux"_s);
    m_view->show();
    QCOMPARE(marked(), QStringList{u"abc"_s});

    setCaret(4);
    QCOMPARE(marked(), QStringList{u"abc"_s});
    QTest::keyClicks(m_view.get(), u"x"_s);
    QVERIFY(marked().isEmpty());
    setCaret(0);
    QCOMPARE(marked(), QStringList{u"axbc"_s});
    setCaret(5);
    QCOMPARE(marked(), QStringList{u"axbc"_s});
}

void PLSpellingMarksTest::aMarkGoesWhenItsWordIsTouched()
{
    m_view->setPageText(u"un abc xyz"_s);
    m_view->show();
    QCOMPARE(marked().size(), 2);

    setCaret(6);
    QTest::keyClicks(m_view.get(), u"d"_s);

    const QList<PLTextRange> atOnce = PLTextMarks::of(*m_view).marks(PLTextMarks::Kind::Misspelling);
    QCOMPARE(atOnce, (QList<PLTextRange>{{8, 3}}));
}

void PLSpellingMarksTest::marksMoveWithTheText()
{
    m_view->setPageText(u"un abc"_s);
    m_view->show();
    QCOMPARE(marked(), QStringList{u"abc"_s});

    QTest::keyClicks(m_view.get(), u"un "_s);
    QCOMPARE(PLTextMarks::of(*m_view).marks(PLTextMarks::Kind::Misspelling), (QList<PLTextRange>{{6, 3}}));
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QCOMPARE(PLTextMarks::of(*m_view).marks(PLTextMarks::Kind::Misspelling), (QList<PLTextRange>{{7, 3}}));
    QCOMPARE(marked(), QStringList{u"abc"_s});
}

void PLSpellingMarksTest::marksAreNoChange()
{
    m_view->setPageText(u"abc un"_s);
    m_view->show();
    setCaret(6);
    QTest::keyClicks(m_view.get(), u"x"_s);
    m_view->undo();
    m_view->document()->setModified(false);
    QSignalSpy changes(m_view.get(), &PLPageTextView::textDidChange);
    QSignalSpy contents(m_view->document(), &QTextDocument::contentsChange);
    const int revision = m_view->document()->revision();

    QCOMPARE(marked(), QStringList{u"abc"_s});
    m_checker->ignore(u"abc"_s);
    QVERIFY(marked().isEmpty());

    QCOMPARE(changes.count(), 0);
    QCOMPARE(contents.count(), 0);
    QCOMPARE(m_view->document()->revision(), revision);
    QVERIFY(!m_view->document()->isModified());
    QVERIFY(m_view->document()->isRedoAvailable());
    QVERIFY(!m_view->document()->isUndoAvailable());
    QCOMPARE(m_view->pageText(), u"abc un"_s);
}

void PLSpellingMarksTest::onlyWhatIsInSightIsChecked()
{
    QString text;
    for (int line = 0; line < 1000; ++line)
        text += u"mot"_s + QString(line % 26 + 1, u'a') + QChar(u'a' + line / 26) + u'\n';
    m_view->setPageText(text);
    m_view->show();

    const qsizetype count = marked().size();

    QVERIFY(count > 3 && count < 40);
    QVERIFY(m_notes.checked.size() < 50);
}

void PLSpellingMarksTest::scrollingMarksWhatComesIntoSight()
{
    m_view->setPageText(u"un\n"_s.repeated(500) + u"abc"_s);
    m_view->show();
    QVERIFY(marked().isEmpty());

    m_view->moveCursor(QTextCursor::End);

    QCOMPARE(marked(), QStringList{u"abc"_s});
}

void PLSpellingMarksTest::aVeryLongParagraphIsCheckedInParts()
{
    m_view->setPageText(u"un deux trois "_s.repeated(40000) + u"abc"_s);
    m_view->show();
    QVERIFY(marked().isEmpty());

    m_view->moveCursor(QTextCursor::End);
    QCOMPARE(marked(), QStringList{u"abc"_s});

    for (const int value : {1000, 100000, 54321, 7777}) { // no word is cut in two
        m_view->verticalScrollBar()->setValue(value);
        QVERIFY(marked().isEmpty());
    }
    QTextBlock block = m_view->document()->begin();
    QVERIFY(block.length() > 500000 && m_notes.checked.size() < 20);
}

void PLSpellingMarksTest::aParagraphIsCheckedOnceAndAgainWhenItChanges()
{
    m_view->setPageText(u"un abc\ndeux xyz\ntrois"_s);
    m_view->show();
    QCOMPARE(marked(), (QStringList{u"abc"_s, u"xyz"_s}));

    setCaret(6);
    QTest::keyClick(m_view.get(), Qt::Key_Delete); // joins "abc" and "deux"
    setCaret(0);
    QCOMPARE(marked(), (QStringList{u"abcdeux"_s, u"xyz"_s}));
    m_view->undo();
    setCaret(0);
    QCOMPARE(marked(), (QStringList{u"abc"_s, u"xyz"_s}));
    m_view->redo();
    setCaret(0);
    QCOMPARE(marked(), (QStringList{u"abcdeux"_s, u"xyz"_s}));
    setCaret(3);
    QTest::keyClicks(m_view.get(), u"`"_s); // alone it changes nothing, in pairs it makes code
    m_view->moveCursor(QTextCursor::EndOfBlock);
    QTest::keyClicks(m_view.get(), u"`"_s);
    QVERIFY(marked().isEmpty());
}

void PLSpellingMarksTest::anotherPageStartsAfresh()
{
    m_view->setPageText(u"un abc"_s);
    m_view->show();
    QCOMPARE(marked(), QStringList{u"abc"_s});

    m_view->setPageText(u"un deux xyz"_s);
    QVERIFY(PLTextMarks::of(*m_view).marks(PLTextMarks::Kind::Misspelling).isEmpty());
    QCOMPARE(marked(), QStringList{u"xyz"_s});

    m_view->setPageText(QString());
    QVERIFY(PLTextMarks::of(*m_view).marks(PLTextMarks::Kind::Misspelling).isEmpty());
    QVERIFY(marked().isEmpty());
    QTest::keyClicks(m_view.get(), u"abc "_s);
    QCOMPARE(marked(), QStringList{u"abc"_s});
}

void PLSpellingMarksTest::learningAWordTakesItsMarksAway()
{
    m_view->setPageText(u"abc un abc xyz"_s);
    m_view->show();
    QCOMPARE(marked().size(), 3);

    m_checker->learn(u"abc"_s);

    QCOMPARE(marked(), QStringList{u"xyz"_s});
}

void PLSpellingMarksTest::switchedOffNothingIsMarked()
{
    m_view->setPageText(u"abc"_s);
    m_view->show();
    QCOMPARE(marked(), QStringList{u"abc"_s});

    m_marks->setEnabled(false);
    QVERIFY(PLTextMarks::of(*m_view).marks(PLTextMarks::Kind::Misspelling).isEmpty());
    QTest::keyClicks(m_view.get(), u"xyz "_s);
    QVERIFY(marked().isEmpty());

    m_marks->setEnabled(true);
    QCOMPARE(marked(), (QStringList{u"xyz"_s, u"abc"_s}));
}

void PLSpellingMarksTest::nothingIsMarkedWhileAnInputMethodComposes()
{
    m_view->setPageText(u"abc \nxyz"_s);
    m_view->show();
    m_view->moveCursor(QTextCursor::EndOfBlock);
    QCOMPARE(marked().size(), 2);

    QInputMethodEvent composing(u"def"_s, {});
    QApplication::sendEvent(m_view.get(), &composing);
    QCOMPARE(marked(), QStringList{u"xyz"_s});

    QInputMethodEvent committing;
    committing.setCommitString(u"def "_s);
    QApplication::sendEvent(m_view.get(), &committing);
    QCOMPARE(marked(), (QStringList{u"abc"_s, u"def"_s, u"xyz"_s}));
}

/// Neither the length of the paragraph nor its number of words tells that it has changed.
void PLSpellingMarksTest::marksFollowUndoAndRedoOfAsManyLetters()
{
    m_view->setPageText(u"deux abc xyz un"_s);
    m_view->show();
    QCOMPARE(marked(), (QStringList{u"abc"_s, u"xyz"_s}));
    m_view->replaceRange({5, 7}, u"xyz abd"_s, {0, 0});
    QCOMPARE(marked(), (QStringList{u"xyz"_s, u"abd"_s}));

    for (int round = 0; round < 2; ++round) {
        m_view->undo();
        setCaret(0);
        QCOMPARE(marked(), (QStringList{u"abc"_s, u"xyz"_s}));
        m_view->redo();
        setCaret(0);
        QCOMPARE(marked(), (QStringList{u"xyz"_s, u"abd"_s}));
    }
    m_view->undo();
    m_marks->setEnabled(false);
    m_view->redo();
    m_marks->setEnabled(true);
    QCOMPARE(marked(), (QStringList{u"xyz"_s, u"abd"_s}));
    m_view->replaceRange({5, 7}, u"deux un"_s, {0, 0});
    QVERIFY(marked().isEmpty());
    m_view->undo();
    QCOMPARE(marked(), (QStringList{u"xyz"_s, u"abd"_s}));
    m_view->redo();
    QVERIFY(marked().isEmpty());
}

void PLSpellingMarksTest::marksAreRightAfterAnyEditing()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    m_view->setPageText(u"un abc deux\nxyz trois\n"_s.repeated(3));
    m_view->show();
    m_view->resize(600, 1500);
    static const QStringList pieces = {u"un"_s, u"abc"_s, u" "_s, u"\n"_s, u"'"_s, u"-"_s, u"`"_s, u"d"_s};
    for (int round = 0; round < 25; ++round) {
        for (int edit = 0; edit < 5; ++edit) {
            const int count = m_view->document()->characterCount();
            QTextCursor cursor = m_view->textCursor();
            cursor.setPosition(random.bounded(count));
            cursor.setPosition(qMin(count - 1, cursor.position() + random.bounded(4)),
                               QTextCursor::KeepAnchor);
            m_view->setTextCursor(cursor);
            if (random.bounded(4) == 0)
                random.bounded(2) == 0 ? m_view->undo() : m_view->redo();
            else
                cursor.insertText(pieces[random.bounded(pieces.size())]);
        }
        m_view->moveCursor(QTextCursor::Start);
        QTextCursor away = m_view->textCursor();
        away.insertText(u"1 "_s); // so that the caret is in no word
        m_view->setTextCursor(away);
        QStringList expected;
        const QStringList lines = m_view->pageText().split(u'\n');
        for (const QString &line : lines) {
            const QList<PLTextRange> ranges = m_checker->misspellings(line);
            for (const PLTextRange &range : ranges)
                expected.append(line.mid(range.position, range.length));
        }
        QCOMPARE(marked(), expected);
    }
}

QTEST_MAIN(PLSpellingMarksTest)
#include "PLSpellingMarksTest.moc"
