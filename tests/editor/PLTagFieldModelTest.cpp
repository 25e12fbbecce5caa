// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldModel.h"

#include "storage/PLProjectItem.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

PLTagFieldModel modelWithTags(const QStringList &tags)
{
    PLTagFieldModel model;
    model.setTags(tags);
    return model;
}

QString randomText(QRandomGenerator &random)
{
    static const QStringList pieces = {
        u"a"_s,      u"A"_s,  u"é"_s, u"e\u0301"_s, u" "_s,      u"\u00a0"_s,     u","_s,
        u"\n"_s,     u"\r"_s, u"b"_s, u"\u2028"_s,  u"\t"_s,     u"\U0001f469"_s, u"\u200d"_s,
        u"\ufffc"_s, u", "_s, u"c"_s, u"\u0000"_s,  u"\u05d0"_s, u"،"_s,
    };
    QString text;
    for (int count = random.bounded(1, 6); count > 0; --count)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

void changeAtRandom(PLTagFieldModel &model, QRandomGenerator &random)
{
    const auto place = [&] { return random.bounded(model.length() + 3) - 1; };
    switch (random.bounded(16)) {
    case 0:
        return model.insertPasted(randomText(random));
    case 1:
        return model.insertTags({randomText(random), randomText(random)});
    case 2:
        return model.commitText();
    case 3:
        return model.editToken(place());
    case 4:
        return model.deleteBackward();
    case 5:
        return model.deleteForward();
    case 6:
        return model.deleteWordBackward();
    case 7:
        return model.deleteWordForward();
    case 8:
        return model.moveSelection(qBound(0, place(), model.length()));
    case 9:
        return model.removeToken(place());
    case 10:
        return model.completeText(randomText(random));
    case 11:
        return model.prepareForTyping();
    case 12:
        return model.removeText(place(), random.bounded(3));
    case 13:
    case 14:
        return model.setSelection(place(), place());
    default:
        return model.insertText(randomText(random));
    }
}

/// What must hold after every change; empty if it does.
QString fault(const PLTagFieldModel &model)
{
    for (const QString &tag : model.tokens() + model.tags()) {
        if (tag.trimmed().isEmpty() || tag.contains(u','))
            return u"a tag is empty or holds a comma: "_s + tag;
    }
    if (model.tokens() != PLProjectItem::normalizedTags(model.tokens()))
        return u"the tokens are not normalised: "_s + model.tokens().join(u'|');
    if (model.textIndex() < 0 || model.textIndex() > model.tokens().size())
        return u"the text is outside the tokens"_s;
    if (model.selectionStart() < 0 || model.selectionEnd() > model.length())
        return u"the selection is outside"_s;
    return QString();
}

bool isWellFormed(const QString &text)
{
    return QString::fromUtf8(text.toUtf8()) == text;
}

} // namespace

class PLTagFieldModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tagsAreNormalisedWhenTheyAreSet();
    void theTypedTextCountsAsATag();
    void aCommaMakesATokenOfWhatStandsBeforeIt();
    void whatComesAfterACommaStaysTyped();
    void typingElsewhereMakesATokenOfTheTextFirst();
    void aPastedListIsSplit_data();
    void aPastedListIsSplit();
    void aPasteWithoutSeparatorIsTyped();
    void controlCharactersBecomeSpaces();
    void aTagThatIsThereAlreadyIsNotAddedTwice();
    void theFilterGivesTheTagsToAdd();
    void theFilterIsNotAskedAboutNothing();
    void backspaceSelectsATokenThenDeletesIt();
    void deleteSelectsATokenThenDeletesIt();
    void backspaceDeletesACharacterAndNoHalfPair();
    void deleteTakesAWholeGrapheme();
    void noHalfPairIsDeletedBesideABurmeseLetter();
    void wordsAndTokensAreDeletedWhole();
    void selectingOverTokensAndTextGivesAList();
    void aTokenOpensForEditing();
    void aTokenOpensWhileAnotherTextIsTyped();
    void tokensMoveToAnotherPlace_data();
    void tokensMoveToAnotherPlace();
    void movingIntoTheSelectionChangesNothing();
    void typingIsOneStepToUndo();
    void movingTheCaretEndsTheStep();
    void aTextThatOnlyMovesIsAStepToUndo();
    void redoSurvivesACaretMovementButNotAnEdit();
    void settingTagsLeavesNothingToUndo();
    void aCaretNeverStandsInsideAPair();
    void randomChangesKeepTheTagsCleanAndUndoGivesTheStartBack();
    void makingATokenNeverChangesTheTags();
};

void PLTagFieldModelTest::tagsAreNormalisedWhenTheyAreSet()
{
    const PLTagFieldModel model = modelWithTags({u" Paris"_s, u"paris"_s, u""_s, u"a,b"_s, u","_s, u",c"_s});
    QCOMPARE(model.tokens(), QStringList({u"Paris"_s, u"a b"_s, u"c"_s}));
    QCOMPARE(model.tags(), model.tokens());
    QCOMPARE(model.caret(), 3);
}

void PLTagFieldModelTest::theTypedTextCountsAsATag()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s});
    model.moveCaret(1);
    model.insertText(u" Lyon "_s);
    QCOMPARE(model.tags(), QStringList({u"a"_s, u"Lyon"_s, u"b"_s}));
    QCOMPARE(model.tokens(), QStringList({u"a"_s, u"b"_s}));
}

void PLTagFieldModelTest::aCommaMakesATokenOfWhatStandsBeforeIt()
{
    PLTagFieldModel model;
    for (const QChar key : u" Le Havre ,,"_s)
        model.insertText(QString(key));
    QCOMPARE(model.tokens(), QStringList({u"Le Havre"_s}));
    QCOMPARE(model.text(), QString());
    QCOMPARE(model.caret(), 1);
}

void PLTagFieldModelTest::whatComesAfterACommaStaysTyped()
{
    PLTagFieldModel model = modelWithTags({u"z"_s});
    model.moveCaret(0);
    model.insertText(u"unedeux"_s);
    model.moveCaret(3);
    model.insertText(u","_s);
    QCOMPARE(model.tokens(), QStringList({u"une"_s, u"z"_s}));
    QCOMPARE(model.text(), u"deux"_s);
    QCOMPARE(model.textIndex(), 1);
    QCOMPARE(model.caret(), 1);
}

void PLTagFieldModelTest::typingElsewhereMakesATokenOfTheTextFirst()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s});
    model.insertText(u"c"_s);
    model.moveCaret(0);
    model.insertText(u"x"_s);
    QCOMPARE(model.tokens(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    QCOMPARE(model.text(), u"x"_s);
    QCOMPARE(model.tags(), QStringList({u"x"_s, u"a"_s, u"b"_s, u"c"_s}));
}

void PLTagFieldModelTest::aPastedListIsSplit_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("tokens");
    QTest::newRow("commas") << u"a, b,c"_s << QStringList({u"a"_s, u"b"_s, u"c"_s});
    QTest::newRow("lines") << u"a\r\nb\nc\r"_s << QStringList({u"a"_s, u"b"_s, u"c"_s});
    QTest::newRow("other lines") << u"a\u2028b\u2029c\u0085d"_s
                                 << QStringList({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    QTest::newRow("twice") << u"a,A, b"_s << QStringList({u"a"_s, u"b"_s});
    QTest::newRow("nothing but separators") << u", \n ,"_s << QStringList();
    QTest::newRow("one and a comma") << u"a,"_s << QStringList({u"a"_s});
}

void PLTagFieldModelTest::aPastedListIsSplit()
{
    QFETCH(QString, text);
    PLTagFieldModel model;
    model.insertPasted(text);
    QTEST(model.tokens(), "tokens");
    QCOMPARE(model.text(), QString());
    QCOMPARE(model.caret(), model.length());
}

void PLTagFieldModelTest::aPasteWithoutSeparatorIsTyped()
{
    PLTagFieldModel model = modelWithTags({u"z"_s});
    model.insertText(u"Par"_s);
    model.insertPasted(u"is"_s);
    QCOMPARE(model.text(), u"Paris"_s);
    model.moveCaret(3);
    model.insertPasted(u"1,2"_s);
    QCOMPARE(model.tokens(), QStringList({u"z"_s, u"Pa1"_s, u"2ris"_s}));
}

void PLTagFieldModelTest::controlCharactersBecomeSpaces()
{
    PLTagFieldModel model;
    model.insertText(u"a\tb\u0000c\u007f,"_s);
    QCOMPARE(model.tokens(), QStringList({u"a b c"_s}));
}

void PLTagFieldModelTest::aTagThatIsThereAlreadyIsNotAddedTwice()
{
    PLTagFieldModel model = modelWithTags({u"Paris"_s, u"Lyon"_s});
    model.insertText(u"PARIS,"_s);
    QCOMPARE(model.tokens(), QStringList({u"Paris"_s, u"Lyon"_s}));
    QCOMPARE(model.caret(), 2);
    model.moveCaret(0);
    model.insertText(u"lyon,"_s); // the first spelling wins, as in a page's header
    QCOMPARE(model.tokens(), QStringList({u"lyon"_s, u"Paris"_s}));
    QCOMPARE(model.caret(), 1);
}

void PLTagFieldModelTest::theFilterGivesTheTagsToAdd()
{
    PLTagFieldModel model = modelWithTags({u"z"_s});
    QStringList seen;
    int index = -1;
    model.setFilter([&](const QStringList &tags, int at) {
        seen = tags;
        index = at;
        return QStringList({u"Pékin"_s, u"pékin"_s, u"x,y"_s});
    });
    model.insertText(u" pekin ,"_s);
    QCOMPARE(seen, QStringList({u"pekin"_s}));
    QCOMPARE(index, 1);
    QCOMPARE(model.tokens(), QStringList({u"z"_s, u"Pékin"_s, u"x y"_s}));
    QCOMPARE(model.caret(), 3);
}

void PLTagFieldModelTest::theFilterIsNotAskedAboutNothing()
{
    PLTagFieldModel model;
    int asked = 0;
    model.setFilter([&](const QStringList &tags, int) {
        ++asked;
        return tags;
    });
    model.setTags({u"a"_s});
    model.insertText(u"  ,"_s);
    model.commitText();
    model.moveCaret(0);
    model.insertText(u"b"_s);
    QCOMPARE(asked, 0);
    model.commitText();
    QCOMPARE(asked, 1);
}

void PLTagFieldModelTest::backspaceSelectsATokenThenDeletesIt()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s});
    model.deleteBackward();
    QCOMPARE(model.selectedToken(), std::optional(1));
    QCOMPARE(model.tokens().size(), 2);
    model.deleteBackward();
    QCOMPARE(model.tokens(), QStringList({u"a"_s}));
    QCOMPARE(model.caret(), 1);
    QVERIFY(!model.hasSelection());
    model.moveCaret(0);
    model.deleteBackward();
    QCOMPARE(model.tokens(), QStringList({u"a"_s}));
    QVERIFY(!model.hasSelection());
}

void PLTagFieldModelTest::deleteSelectsATokenThenDeletesIt()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s});
    model.moveCaret(0);
    model.deleteForward();
    QCOMPARE(model.selectedToken(), std::optional(0));
    model.deleteForward();
    QCOMPARE(model.tokens(), QStringList({u"b"_s}));
    model.moveCaret(1);
    model.deleteForward();
    QVERIFY(!model.hasSelection());
}

void PLTagFieldModelTest::backspaceDeletesACharacterAndNoHalfPair()
{
    PLTagFieldModel model;
    model.insertText(u"a\U0001f469"_s);
    model.deleteBackward();
    QCOMPARE(model.text(), u"a"_s);
    model.deleteBackward();
    QCOMPARE(model.text(), QString());
    QVERIFY(model.tags().isEmpty());
}

void PLTagFieldModelTest::deleteTakesAWholeGrapheme()
{
    PLTagFieldModel model;
    model.insertText(u"e\u0301\U0001f469\u200d\U0001f680z"_s);
    model.moveCaret(0);
    model.deleteForward();
    QVERIFY(model.text().startsWith(u"\U0001f469"_s));
    model.deleteForward();
    QCOMPARE(model.text(), u"z"_s);
}

/// Where Qt (6.4) sees a boundary within each pair.
void PLTagFieldModelTest::noHalfPairIsDeletedBesideABurmeseLetter()
{
    const QString text = u"\u100d\U0001f600\U0001f600"_s;
    PLTagFieldModel model;
    model.insertText(text);
    model.moveCaret(1);
    model.deleteForward();
    QCOMPARE(model.text(), text.first(3));
    for (int position = 0; position <= text.size(); ++position) {
        model.setTags({});
        model.insertText(text);
        model.moveCaret(position);
        model.deleteWordForward();
        QVERIFY(model.text().isValidUtf16());
        model.setTags({});
        model.insertText(text);
        model.moveCaret(position);
        model.deleteWordBackward();
        QVERIFY(model.text().isValidUtf16());
    }
}

void PLTagFieldModelTest::wordsAndTokensAreDeletedWhole()
{
    PLTagFieldModel model = modelWithTags({u"x"_s});
    model.insertText(u"une petite ville"_s);
    model.deleteWordBackward();
    QCOMPARE(model.text(), u"une petite "_s);
    model.deleteWordBackward();
    QCOMPARE(model.text(), u"une "_s);
    model.moveCaret(model.textIndex());
    model.deleteWordForward();
    QCOMPARE(model.text(), QString());
    model.deleteWordBackward();
    QCOMPARE(model.selectedToken(), std::optional(0));
    model.deleteWordBackward();
    QVERIFY(model.tokens().isEmpty());
}

void PLTagFieldModelTest::selectingOverTokensAndTextGivesAList()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s, u"c"_s});
    model.moveCaret(2);
    model.insertText(u"neuf"_s); // a b [neuf] c
    model.setSelection(1, 4);
    QCOMPARE(model.selectedText(), u"b, ne"_s);
    model.selectAll();
    QCOMPARE(model.selectedText(), u"a, b, neuf, c"_s);
    model.setSelection(3, 5);
    QCOMPARE(model.selectedText(), u"eu"_s);
    model.setSelection(7, 4);
    QCOMPARE(model.selectedText(), u"uf, c"_s);
    model.removeSelection();
    QCOMPARE(model.tags(), QStringList({u"a"_s, u"b"_s, u"ne"_s}));
}

void PLTagFieldModelTest::aTokenOpensForEditing()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"bé"_s, u"c"_s});
    model.editToken(1);
    QCOMPARE(model.text(), u"bé"_s);
    QCOMPARE(model.textIndex(), 1);
    QCOMPARE(model.selectedText(), u"bé"_s);
    QCOMPARE(model.tags(), QStringList({u"a"_s, u"bé"_s, u"c"_s}));
    model.insertText(u"x"_s);
    model.commitText();
    QCOMPARE(model.tokens(), QStringList({u"a"_s, u"x"_s, u"c"_s}));
    QCOMPARE(model.caret(), 2);
}

void PLTagFieldModelTest::aTokenOpensWhileAnotherTextIsTyped()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s});
    model.moveCaret(0);
    model.insertText(u"neuf"_s);
    model.editToken(1);
    QCOMPARE(model.text(), u"b"_s);
    QCOMPARE(model.tokens(), QStringList({u"neuf"_s, u"a"_s}));
    model.editToken(7);
    QCOMPARE(model.text(), u"b"_s);
}

void PLTagFieldModelTest::tokensMoveToAnotherPlace_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("tags");
    QTest::newRow("to the front") << 2 << 3 << 0 << u"c, a, b, d"_s;
    QTest::newRow("to the end") << 0 << 1 << 4 << u"b, c, d, a"_s;
    QTest::newRow("two") << 0 << 2 << 3 << u"c, a, b, d"_s;
    QTest::newRow("selected backwards") << 4 << 2 << 1 << u"a, c, d, b"_s;
}

void PLTagFieldModelTest::tokensMoveToAnotherPlace()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(int, target);
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    model.setSelection(start, end);
    const QString selected = model.selectedText();
    model.moveSelection(target);
    QTEST(model.tokens().join(u", "_s), "tags");
    QCOMPARE(model.selectedText(), selected);
    model.undo();
    QCOMPARE(model.tokens().join(u", "_s), u"a, b, c, d"_s);
}

void PLTagFieldModelTest::movingIntoTheSelectionChangesNothing()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s, u"c"_s});
    model.setSelection(0, 2);
    for (int target = 0; target <= 2; ++target)
        model.moveSelection(target);
    QVERIFY(!model.canUndo());
    QCOMPARE(model.selectedText(), u"a, b"_s);
}

void PLTagFieldModelTest::typingIsOneStepToUndo()
{
    PLTagFieldModel model = modelWithTags({u"a"_s});
    for (const QChar key : u"Lyon"_s)
        model.insertText(QString(key));
    model.insertText(u","_s);
    QCOMPARE(model.tokens().size(), 2);
    model.undo();
    QCOMPARE(model.text(), u"Lyon"_s);
    model.undo();
    QCOMPARE(model.tags(), QStringList({u"a"_s}));
    QVERIFY(!model.canUndo());
    model.redo();
    model.redo();
    QCOMPARE(model.tokens(), QStringList({u"a"_s, u"Lyon"_s}));
    QVERIFY(!model.canRedo());
}

void PLTagFieldModelTest::movingTheCaretEndsTheStep()
{
    PLTagFieldModel model;
    model.insertText(u"ac"_s);
    model.moveCaret(1);
    model.insertText(u"b"_s);
    model.undo();
    QCOMPARE(model.text(), u"ac"_s);
    QCOMPARE(model.caret(), 1);
}

void PLTagFieldModelTest::aTextThatOnlyMovesIsAStepToUndo()
{
    PLTagFieldModel model = modelWithTags({u"a"_s, u"b"_s});
    model.insertText(u"b"_s);
    QCOMPARE(model.textIndex(), 2);
    model.setSelection(0, 1);
    model.insertText(u"a,b"_s); // the tokens and the text are the same again, in other places
    QCOMPARE(model.textIndex(), 1);
    model.undo();
    QCOMPARE(model.textIndex(), 2);
}

void PLTagFieldModelTest::redoSurvivesACaretMovementButNotAnEdit()
{
    PLTagFieldModel model;
    model.insertText(u"a,"_s);
    model.undo();
    model.moveCaret(0);
    QVERIFY(model.canRedo());
    model.insertText(u"b"_s);
    QVERIFY(!model.canRedo());
}

void PLTagFieldModelTest::settingTagsLeavesNothingToUndo()
{
    PLTagFieldModel model;
    model.insertText(u"a"_s);
    model.setTags({u"b"_s});
    QVERIFY(!model.canUndo() && !model.canRedo());
    model.undo();
    QCOMPARE(model.tags(), QStringList({u"b"_s}));
}

void PLTagFieldModelTest::aCaretNeverStandsInsideAPair()
{
    PLTagFieldModel model;
    model.insertText(u"\U0001f469"_s);
    model.moveCaret(1);
    QCOMPARE(model.caret(), 0);
    model.moveCaret(99);
    QCOMPARE(model.caret(), 2);
    model.moveCaret(-4);
    QCOMPARE(model.caret(), 0);
}

void PLTagFieldModelTest::randomChangesKeepTheTagsCleanAndUndoGivesTheStartBack()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 400; ++round) {
        PLTagFieldModel model = modelWithTags({randomText(random), u"x"_s, randomText(random)});
        const QStringList first = model.tokens();
        for (int step = 0; step < 40; ++step) {
            changeAtRandom(model, random);
            QVERIFY2(fault(model).isEmpty(), qPrintable(fault(model)));
            QVERIFY(isWellFormed(model.text()));
        }
        const QStringList last = model.tags();
        while (model.canUndo()) {
            model.undo();
            QVERIFY2(fault(model).isEmpty(), qPrintable(fault(model)));
        }
        QCOMPARE(model.tokens(), first);
        QCOMPARE(model.text(), QString());
        while (model.canRedo())
            model.redo();
        QCOMPARE(model.tags(), last);
    }
}

void PLTagFieldModelTest::makingATokenNeverChangesTheTags()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    PLTagFieldModel model;
    for (int round = 0; round < 5000; ++round) {
        if (round % 50 == 0)
            model.setTags({randomText(random)});
        changeAtRandom(model, random);
        const QStringList tags = model.tags();
        model.commitText();
        QCOMPARE(model.tags(), tags);
        QCOMPARE(model.tokens(), tags);
    }
}

QTEST_GUILESS_MAIN(PLTagFieldModelTest)
#include "PLTagFieldModelTest.moc"
