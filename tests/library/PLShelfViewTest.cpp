// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfView.h"

#include "library/PLShelfStage.h"
#include "support/PLTestEnvironment.h"

#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class PLShelfViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewShelfHasNothingAndTakesFocusAndDrops();
    void anEmptyShelfFillsWhatIsSeen();
    void theShelfIsAtLeastAsTallAsWhatIsSeen();
    void aShelfByItselfFillsItsOwnSize();
    void growingBackTakesTheScrollBarAway();
    void everySizeSettles();
    void aRectOutOfRangeIsNull();
    void fewerBooksMoveTheSelectionSilently();
    void selectingNormalisesItsIndex_data();
    void selectingNormalisesItsIndex();
    void selectingTheSameBookSendsNothing();
    void selectingScrollsTheBookIntoSight();
    void turningTheSpinesOutKeepsTheSelectionInSight();
    void aSelectionMadeWhileHiddenIsInSightWhenShown();
    void leavingByTabDoesNotScroll();
    void aDragTargetThatIsGoneIsForgotten();
    void scrollingPaintsWhatPaintingAnewWould();

private:
    PLTestEnvironment m_environment;
};

void PLShelfViewTest::aNewShelfHasNothingAndTakesFocusAndDrops()
{
    const PLShelfView shelf;
    QVERIFY(shelf.books().empty());
    QVERIFY(!shelf.spineMode());
    QCOMPARE(shelf.selectedIndex(), -1);
    QVERIFY(!shelf.selectedBook());
    QCOMPARE(shelf.dropIndex(), -1);
    QCOMPARE(shelf.shelfLayout().rowHeight, 250);
    QCOMPARE(shelf.shelfLayout().bookAreaHeight, 166);
    QVERIFY(shelf.emptyMessage().isEmpty());
    QVERIFY(shelf.acceptDrops());
    QCOMPARE(shelf.focusPolicy(), Qt::StrongFocus);
}

void PLShelfViewTest::anEmptyShelfFillsWhatIsSeen()
{
    const PLShelfStage stage(0, QSize(500, 400));
    QCOMPARE(stage.shelf->size(), QSize(500, 400));
    stage.shelf->setSpineMode(true);
    QCOMPARE(stage.shelf->size(), QSize(500, 400));
    QVERIFY(stage.shelf->shelfLayout().bookRects.empty());

    const PLShelfStage low(0, QSize(500, 100));
    QCOMPARE(low.shelf->height(), 260);
    low.shelf->setSpineMode(true);
    QCOMPARE(low.shelf->height(), 266);
}

void PLShelfViewTest::theShelfIsAtLeastAsTallAsWhatIsSeen()
{
    const PLShelfStage stage(3, QSize(1000, 700));
    QCOMPARE(stage.shelf->size(), QSize(1000, 700));
    QCOMPARE(stage.shelf->rectForBookAtIndex(0), QRect(67, 30, 116, 166));
    stage.shelf->setBooks(PLTestBooks(18)); // three rows of six no more: the scroll bar takes some width
    stage.settle();
    QCOMPARE(stage.shelf->width(), stage.area.viewport()->width());
    QVERIFY(stage.shelf->width() < 1000);
    QCOMPARE(stage.shelf->height(), stage.shelf->shelfLayout().rows * 250 + 10);
}

void PLShelfViewTest::aShelfByItselfFillsItsOwnSize()
{
    PLShelfView shelf;
    shelf.resize(300, 100);
    shelf.setBooks(PLTestBooks(2));
    QCOMPARE(shelf.rectForBookAtIndex(1), QRect(92, 280, 116, 166));
    QCOMPARE(shelf.size(), QSize(300, 510));
}

void PLShelfViewTest::growingBackTakesTheScrollBarAway()
{
    PLShelfStage stage(12, QSize(946, 520)); // six columns, but five beside a scroll bar
    QVERIFY(!stage.area.verticalScrollBar()->isVisible());
    stage.area.resize(946, 400);
    stage.settle();
    QVERIFY(stage.area.verticalScrollBar()->isVisible());
    QCOMPARE(stage.shelf->shelfLayout().rows, 3);
    stage.area.resize(946, 520);
    stage.settle();
    QVERIFY(!stage.area.verticalScrollBar()->isVisible());
    QCOMPARE(stage.shelf->shelfLayout().rows, 2);
}

void PLShelfViewTest::everySizeSettles()
{
    PLShelfStage stage(12);
    for (int width = 560; width < 1200; width += 29) {
        for (int height = 440; height < 800; height += 60) {
            stage.area.resize(width, height);
            stage.settle();
            const QSize seen = stage.area.viewport()->size();
            QCOMPARE(stage.shelf->width(), seen.width());
            QCOMPARE(stage.shelf->height(), qMax(stage.shelf->shelfLayout().contentHeight(), seen.height()));
            QCOMPARE(stage.area.verticalScrollBar()->isVisible(), stage.shelf->height() > seen.height());
        }
    }
}

void PLShelfViewTest::aRectOutOfRangeIsNull()
{
    const PLShelfStage stage(2);
    QVERIFY(stage.shelf->rectForBookAtIndex(-1).isNull());
    QVERIFY(stage.shelf->rectForBookAtIndex(2).isNull());
    QVERIFY(!stage.shelf->rectForBookAtIndex(1).isNull());
}

void PLShelfViewTest::fewerBooksMoveTheSelectionSilently()
{
    PLShelfStage stage(9);
    stage.shelf->setSelectedIndex(8);
    stage.delegate.selections.clear();
    const int scrolled = stage.area.verticalScrollBar()->value();
    stage.shelf->setBooks(PLTestBooks(7));
    QCOMPARE(stage.shelf->selectedIndex(), 6);
    QCOMPARE(stage.shelf->selectedBook()->title, u"Carnet 6"_s);
    QCOMPARE(stage.area.verticalScrollBar()->value(), scrolled);
    stage.shelf->setBooks(PLTestBooks(20));
    QCOMPARE(stage.shelf->selectedIndex(), 6);
    stage.shelf->setBooks({});
    QCOMPARE(stage.shelf->selectedIndex(), -1);
    QVERIFY(!stage.shelf->selectedBook());
    QVERIFY(stage.delegate.selections.isEmpty());
}

void PLShelfViewTest::selectingNormalisesItsIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("selected");

    QTest::newRow("first") << 0 << 0;
    QTest::newRow("last") << 2 << 2;
    QTest::newRow("beyond the last") << 3 << -1;
    QTest::newRow("none") << -1 << -1;
    QTest::newRow("below none") << -2 << -1;
}

void PLShelfViewTest::selectingNormalisesItsIndex()
{
    QFETCH(int, index);
    QFETCH(int, selected);
    const PLShelfStage stage(3);
    stage.shelf->setSelectedIndex(1);
    stage.shelf->setSelectedIndex(index);
    QCOMPARE(stage.shelf->selectedIndex(), selected);
    QCOMPARE(stage.delegate.selections, QList<int>({1, selected}));
}

void PLShelfViewTest::selectingTheSameBookSendsNothing()
{
    const PLShelfStage stage(3);
    stage.shelf->setSelectedIndex(2);
    stage.shelf->setSelectedIndex(2);
    stage.shelf->setSelectedIndex(-1);
    stage.shelf->setSelectedIndex(-5);
    QCOMPARE(stage.delegate.selections, QList<int>({2, -1}));
}

void PLShelfViewTest::selectingScrollsTheBookIntoSight()
{
    const PLShelfStage stage(20);
    QScrollBar *bar = stage.area.verticalScrollBar();
    stage.shelf->setSelectedIndex(10); // in the third row: 530 to 696
    QCOMPARE(bar->value(), 696 + 40 - 532);
    stage.shelf->setSelectedIndex(0); // above: 30 - 40, no more than to the top
    QCOMPARE(bar->value(), 0);
    stage.shelf->setSelectedIndex(15); // in the fourth row: 780 to 946
    QCOMPARE(bar->value(), 946 + 40 - 532);
    stage.shelf->setSelectedIndex(11); // in sight with what is around it: nothing moves
    QCOMPARE(bar->value(), 946 + 40 - 532);
    stage.shelf->setSelectedIndex(6); // in the second row, 280, from below
    QCOMPARE(bar->value(), 240);
    stage.shelf->setSelectedIndex(-1);
    QCOMPARE(bar->value(), 240);
}

void PLShelfViewTest::turningTheSpinesOutKeepsTheSelectionInSight()
{
    const PLShelfStage stage(200);
    stage.shelf->setSelectedIndex(199);
    const auto isSelectionSeen = [&stage] {
        const QRect wanted = stage.shelf->rectForBookAtIndex(199).adjusted(0, -40, 0, 40);
        return stage.shelf->visibleRect().contains(wanted.intersected(stage.shelf->rect()));
    };
    QVERIFY(isSelectionSeen());
    stage.area.verticalScrollBar()->setValue(0);
    stage.shelf->setSpineMode(true);
    stage.settle();
    QVERIFY(stage.shelf->spineMode());
    QVERIFY(isSelectionSeen());
    stage.area.verticalScrollBar()->setValue(0);
    stage.shelf->setSpineMode(false);
    stage.settle();
    QVERIFY(isSelectionSeen());
    QCOMPARE(stage.delegate.selections, QList<int>({199}));
}

void PLShelfViewTest::aSelectionMadeWhileHiddenIsInSightWhenShown()
{
    PLShelfStage stage(60);
    stage.area.hide();
    stage.shelf->setBooks(PLTestBooks(80));
    stage.shelf->setSelectedIndex(79);
    stage.area.show();
    QVERIFY(stage.shelf->visibleRect().contains(stage.shelf->rectForBookAtIndex(79)));
}

void PLShelfViewTest::leavingByTabDoesNotScroll()
{
    PLShelfStage stage(60);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(&stage.area);
    layout->addWidget(new QLineEdit);
    window.show();
    QApplication::setActiveWindow(&window);
    stage.shelf->setSelectedIndex(0);
    for (const int value : {0, 17, 900}) {
        stage.area.verticalScrollBar()->setValue(value);
        stage.shelf->setFocus();
        stage.press(Qt::Key_Tab);
        QVERIFY(!stage.shelf->hasFocus());
        QCOMPARE(stage.area.verticalScrollBar()->value(), value);
    }
    stage.area.setParent(nullptr); // it belongs to the stage
}

void PLShelfViewTest::aDragTargetThatIsGoneIsForgotten()
{
    const PLShelfStage stage(2);
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(u"/images/a.png"_s)});
    QDragEnterEvent enter(stage.centerOf(1), Qt::CopyAction, &mime, Qt::LeftButton, {});
    QApplication::sendEvent(stage.shelf, &enter);
    QCOMPARE(stage.shelf->dropIndex(), 1);
    stage.shelf->setBooks(PLTestBooks(1));
    QCOMPARE(stage.shelf->dropIndex(), -1);

    stage.shelf->setBooks(PLTestBooks(2));
    QApplication::sendEvent(stage.shelf, &enter);
    QCOMPARE(stage.shelf->dropIndex(), 1);
    std::vector<PLShelfBook> books = PLTestBooks(2);
    books[1].available = false;
    stage.shelf->setBooks(books);
    QCOMPARE(stage.shelf->dropIndex(), -1);
}

/// The texts of covers, which come and go with their books, included.
void PLShelfViewTest::scrollingPaintsWhatPaintingAnewWould()
{
    PLShelfStage stage(40);
    stage.shelf->setSelectedIndex(6);
    QScrollBar *bar = stage.area.verticalScrollBar();
    for (const int step : {0, 17, 250, 333, 600, 620, 400, 399, 30, 0}) {
        bar->setValue(step);
        QCoreApplication::processEvents();
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&stage.area, &request);
        const QImage scrolled = stage.area.screen()->grabWindow(stage.area.winId()).toImage();
        stage.shelf->update();
        QCoreApplication::sendEvent(&stage.area, &request);
        QCOMPARE(scrolled, stage.area.screen()->grabWindow(stage.area.winId()).toImage());
    }
}

QTEST_MAIN(PLShelfViewTest)
#include "PLShelfViewTest.moc"
