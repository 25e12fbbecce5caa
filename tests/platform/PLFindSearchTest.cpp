// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFindSearch.h"

#include "PLTextTestTarget.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Wrap = PLFindSearch::Place::Wrap;

class PLFindSearchTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PLFindTerms::shared() = {}; }

    void nextGoesThroughTheTextAndRoundAgain();
    void previousGoesBackAndRoundAgain();
    void theOnlyMatchIsFoundAgainByGoingRound();
    void whatIsNotThereLeavesTheSelection();
    void nothingToLookForIsFoundNowhere();
    void aMatchAtTheCaretIsNext();
    void onlyASelectedMatchIsReplaced();
    void aReplacementIsNotSearchedAgain();
    void allMatchesAreReplacedInOneStep();
    void theSelectionIsWhatIsLookedFor();
    void marksAreAllTheMatches();
};

void PLFindSearchTest::nextGoesThroughTheTextAndRoundAgain()
{
    PLTextTestTarget target(u"un deux Un"_s, 1);
    PLFindSearch search(&target);
    PLFindTerms::shared().needle = u"un"_s;

    PLFindSearch::Place place = search.selectNext();
    QCOMPARE(target.selected, (PLTextRange{8, 2}));
    QCOMPARE(place.number, 2);
    QCOMPARE(place.count, 2);
    QCOMPARE(place.wrap, Wrap::None);

    place = search.selectNext();
    QCOMPARE(target.selected, (PLTextRange{0, 2}));
    QCOMPARE(place.number, 1);
    QCOMPARE(place.wrap, Wrap::ToStart);

    place = search.selectNext();
    QCOMPARE(target.selected, (PLTextRange{8, 2}));
    QCOMPARE(place.wrap, Wrap::None);
}

void PLFindSearchTest::previousGoesBackAndRoundAgain()
{
    PLTextTestTarget target(u"un deux un"_s, 5);
    PLFindSearch search(&target);
    PLFindTerms::shared().needle = u"un"_s;

    PLFindSearch::Place place = search.selectPrevious();
    QCOMPARE(target.selected, (PLTextRange{0, 2}));
    QCOMPARE(place.wrap, Wrap::None);

    place = search.selectPrevious();
    QCOMPARE(target.selected, (PLTextRange{8, 2}));
    QCOMPARE(place.number, 2);
    QCOMPARE(place.wrap, Wrap::ToEnd);
}

void PLFindSearchTest::theOnlyMatchIsFoundAgainByGoingRound()
{
    PLTextTestTarget target(u"un"_s);
    PLFindSearch search(&target);
    PLFindTerms::shared().needle = u"un"_s;

    QCOMPARE(search.selectNext().wrap, Wrap::None);
    QCOMPARE(search.selectNext().wrap, Wrap::ToStart);
    QCOMPARE(target.selected, (PLTextRange{0, 2}));
}

void PLFindSearchTest::whatIsNotThereLeavesTheSelection()
{
    PLTextTestTarget target(u"un deux"_s);
    target.selected = {3, 2};
    PLFindSearch search(&target);
    PLFindTerms::shared().needle = u"trois"_s;

    QCOMPARE(search.selectNext().count, 0);
    QCOMPARE(search.selectPrevious().count, 0);
    QCOMPARE(search.replaceAll(), 0);

    QCOMPARE(target.selected, (PLTextRange{3, 2}));
    QCOMPARE(target.steps, 0);
}

void PLFindSearchTest::nothingToLookForIsFoundNowhere()
{
    PLTextTestTarget target(u"un"_s);
    PLFindSearch search(&target);

    QCOMPARE(search.selectNext().count, 0);
    QVERIFY(!search.replace());
    QCOMPARE(target.steps, 0);
}

void PLFindSearchTest::aMatchAtTheCaretIsNext()
{
    PLTextTestTarget target(u"un deux"_s, 3);
    PLFindSearch search(&target);
    PLFindTerms::shared().needle = u"deux"_s;

    QCOMPARE(search.selectNext().wrap, Wrap::None);
    QCOMPARE(target.selectedText(), u"deux"_s);
}

void PLFindSearchTest::onlyASelectedMatchIsReplaced()
{
    PLTextTestTarget target(u"chat chaton"_s);
    PLFindSearch search(&target);
    PLFindTerms::shared() = {u"chat"_s, u"chien"_s, {true, true}};

    QVERIFY(!search.replace());
    target.selected = {5, 4}; // in "chaton"
    QVERIFY(!search.replace());
    QCOMPARE(target.content, u"chat chaton"_s);

    search.selectNext();
    QVERIFY(search.replace());
    QCOMPARE(target.content, u"chien chaton"_s);
    QCOMPARE(target.steps, 1);
}

void PLFindSearchTest::aReplacementIsNotSearchedAgain()
{
    PLTextTestTarget target(u"a a"_s);
    PLFindSearch search(&target);
    PLFindTerms::shared() = {u"a"_s, u"aa"_s, {}};

    search.selectNext();
    search.replace();
    search.selectNext();
    search.replace();

    QCOMPARE(target.content, u"aa aa"_s);
}

void PLFindSearchTest::allMatchesAreReplacedInOneStep()
{
    PLTextTestTarget target(u"Un un UN une"_s);
    PLFindSearch search(&target);
    PLFindTerms::shared() = {u"un"_s, u"deux"_s, {true, true}};

    QCOMPARE(search.replaceAll(), 3);

    QCOMPARE(target.content, u"deux deux deux une"_s);
    QCOMPARE(target.steps, 1);
}

void PLFindSearchTest::theSelectionIsWhatIsLookedFor()
{
    PLTextTestTarget target(u"un deux\u00a0: un"_s);
    PLFindSearch search(&target);
    search.useSelection();
    QVERIFY(PLFindTerms::shared().needle.isEmpty());

    target.selected = {3, 6};
    search.useSelection();
    QCOMPARE(PLFindTerms::shared().needle, u"deux\u00a0:"_s);
}

void PLFindSearchTest::marksAreAllTheMatches()
{
    PLTextTestTarget target(u"un deux un"_s);
    PLFindSearch search(&target);
    PLFindTerms::shared().needle = u"un"_s;

    PLFindSearch::Place place = search.showMarks();
    QCOMPARE(target.marks.size(), 2);
    QCOMPARE(place.number, 0);
    QCOMPARE(place.count, 2);
    target.selected = {8, 2};
    place = search.showMarks();
    QCOMPARE(place.number, 2);
    search.hideMarks();
    QVERIFY(target.marks.isEmpty());
}

QTEST_APPLESS_MAIN(PLFindSearchTest)
#include "PLFindSearchTest.moc"
