// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfLayout.h"

#include "library/PLBookAppearance.h"
#include "library/PLShelfBook.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int widest = 4000;

std::vector<PLShelfBook> manyBooks(int count)
{
    std::vector<PLShelfBook> books(static_cast<size_t>(count));
    for (int index = 0; index < count; ++index)
        books[size_t(index)].title = QString::number(index);
    return books;
}

} // namespace

class PLShelfLayoutTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coversStandInCentredColumns_data();
    void coversStandInCentredColumns();
    void coversStandRightAtEveryWidth();
    void spinesStandSideBySideOnTheirShelf();
    void spinesStandRightAtEveryWidth();
    void aSpineThatExactlyFitsStaysInItsRow();
    void anEmptyShelfHasOneShelf();
    void planksLieUnderTheBooks();
    void aBookIsHitUpToThreePointsBesideIt_data();
    void aBookIsHitUpToThreePointsBesideIt();
    void betweenTwoSpinesTheFirstIsHit();
};

void PLShelfLayoutTest::coversStandInCentredColumns_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("left");

    QTest::newRow("as wide as nothing") << 1 << 1 << -58;
    QTest::newRow("narrower than a book") << 115 << 1 << -1;
    QTest::newRow("as wide as a book") << 116 << 1 << 0;
    QTest::newRow("one column") << 300 << 1 << 92;
    QTest::newRow("a point too narrow for two") << 345 << 1 << 114;
    QTest::newRow("just wide enough for two") << 346 << 2 << 40;
    QTest::newRow("the window as it opens") << 900 << 5 << 92;
    QTest::newRow("six columns") << 1000 << 6 << 67;
}

void PLShelfLayoutTest::coversStandInCentredColumns()
{
    QFETCH(int, width);
    QFETCH(int, columns);
    QFETCH(int, left);
    const PLShelfLayout layout = PLShelfLayout::ofCovers(7, width);

    QCOMPARE(layout.bookAreaHeight, 166);
    QCOMPARE(layout.rowHeight, 250);
    QCOMPARE(layout.rows, (7 + columns - 1) / columns);
    for (int index = 0; index < 7; ++index)
        QCOMPARE(layout.bookRects[size_t(index)],
                 QRect(left + index % columns * 150, 30 + index / columns * 250, 116, 166));
}

void PLShelfLayoutTest::coversStandRightAtEveryWidth()
{
    for (int width = 1; width <= widest; ++width) {
        const double columns = std::max(1.0, std::floor((width - 80 + 34) / 150.0));
        const double left = std::floor((width - (columns * 116 + (columns - 1) * 34)) / 2);
        const PLShelfLayout layout = PLShelfLayout::ofCovers(40, width);
        QCOMPARE(layout.bookRects.size(), size_t(40));
        for (int index = 0; index < 40; ++index) {
            const double row = std::floor(index / columns);
            const QRectF expected(left + (index - row * columns) * 150, 30 + row * 250, 116, 166);
            QCOMPARE(QRectF(layout.bookRects[size_t(index)]), expected);
        }
        QCOMPARE(layout.rows, int(std::ceil(40 / columns)));
    }
}

void PLShelfLayoutTest::spinesStandSideBySideOnTheirShelf()
{
    const std::vector<PLShelfBook> books = manyBooks(3);
    const PLShelfLayout layout = PLShelfLayout::ofSpines(books, 300);
    int x = 40;
    for (size_t index = 0; index < books.size(); ++index) {
        const QSize spine = PLBookAppearance::spineSizeForBook(books[index]);
        QCOMPARE(layout.bookRects[index], QRect(QPoint(x, 220 - spine.height()), spine));
        x += spine.width() + 2;
    }
    QCOMPARE(layout.bookAreaHeight, 190);
    QCOMPARE(layout.rowHeight, 256);
    QCOMPARE(layout.rows, 1);
}

void PLShelfLayoutTest::spinesStandRightAtEveryWidth()
{
    const std::vector<PLShelfBook> books = manyBooks(40);
    for (int width = 1; width <= widest; ++width) {
        const PLShelfLayout layout = PLShelfLayout::ofSpines(books, width);
        int row = 0;
        int end = 38; // of the spine before, in the row
        for (size_t index = 0; index < books.size(); ++index) {
            const QSize spine = PLBookAppearance::spineSizeForBook(books[index]);
            const bool isFirst = end == 38;
            if (!isFirst && end + 2 + spine.width() > width - 40) {
                ++row;
                end = 38;
            }
            const QRect rect = layout.bookRects[index];
            QCOMPARE(rect.size(), spine);
            QCOMPARE(rect.x(), end + 2);
            QCOMPARE(rect.y() + rect.height(), 30 + 190 + row * 256); // on the plank
            end = rect.x() + rect.width();
        }
        QCOMPARE(layout.rows, row + 1);
    }
}

void PLShelfLayoutTest::aSpineThatExactlyFitsStaysInItsRow()
{
    const std::vector<PLShelfBook> books = manyBooks(2);
    const int width = 40 + PLBookAppearance::spineSizeForBook(books[0]).width() + 2 +
                      PLBookAppearance::spineSizeForBook(books[1]).width() + 40;
    QCOMPARE(PLShelfLayout::ofSpines(books, width).rows, 1);
    QCOMPARE(PLShelfLayout::ofSpines(books, width - 1).rows, 2);
}

void PLShelfLayoutTest::anEmptyShelfHasOneShelf()
{
    const PLShelfLayout covers = PLShelfLayout::ofCovers(0, 900);
    QVERIFY(covers.bookRects.empty());
    QCOMPARE(covers.rows, 0);
    QCOMPARE(covers.contentHeight(), 260);
    const PLShelfLayout spines = PLShelfLayout::ofSpines({}, 900);
    QVERIFY(spines.bookRects.empty());
    QCOMPARE(spines.rows, 0);
    QCOMPARE(spines.contentHeight(), 266);
}

void PLShelfLayoutTest::planksLieUnderTheBooks()
{
    QCOMPARE(PLShelfLayout::ofCovers(9, 900).plankRect(1, 900), QRect(0, 446, 900, 18));
    QCOMPARE(PLShelfLayout::ofSpines({}, 700).plankRect(0, 700), QRect(0, 220, 700, 18));
}

void PLShelfLayoutTest::aBookIsHitUpToThreePointsBesideIt_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("index");

    // The second of six columns: x from 217 to 333, y from 30 to 196
    QTest::newRow("inside") << QPointF(300, 100) << 1;
    QTest::newRow("left edge") << QPointF(214, 100) << 1;
    QTest::newRow("left of it") << QPointF(213.9, 100) << -1;
    QTest::newRow("right edge") << QPointF(335.9, 100) << 1;
    QTest::newRow("right of it") << QPointF(336, 100) << -1;
    QTest::newRow("upper corner") << QPointF(214, 27) << 1;
    QTest::newRow("above") << QPointF(300, 26.9) << -1;
    QTest::newRow("lower edge") << QPointF(300, 198.9) << 1;
    QTest::newRow("below") << QPointF(300, 199) << -1;
    QTest::newRow("outside of the view") << QPointF(-500, -500) << -1;
}

void PLShelfLayoutTest::aBookIsHitUpToThreePointsBesideIt()
{
    QFETCH(QPointF, point);
    QFETCH(int, index);
    QCOMPARE(PLShelfLayout::ofCovers(8, 1000).indexOfBookAtPoint(point), index);
}

void PLShelfLayoutTest::betweenTwoSpinesTheFirstIsHit()
{
    const PLShelfLayout layout = PLShelfLayout::ofSpines(manyBooks(2), 900);
    const QRect second = layout.bookRects[1];
    QCOMPARE(layout.indexOfBookAtPoint(QPointF(second.x() - 1, 210)), 0); // within reach of both
    QCOMPARE(layout.indexOfBookAtPoint(QPointF(second.x() + 0.5, 210)), 0);
    QCOMPARE(layout.indexOfBookAtPoint(QPointF(second.x() + 1, 210)), 1);
}

QTEST_APPLESS_MAIN(PLShelfLayoutTest)
#include "PLShelfLayoutTest.moc"
