// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfDrawing.h"

#include "library/PLShelfPicture.h"
#include "library/PLShelfWood.h"
#include "support/PLTestEnvironment.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb wood = 0xFF5C3820;

void addScales()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<bool>("spineMode");

    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        QTest::addRow("covers at %.2f", scale) << scale << false;
        QTest::addRow("spines at %.2f", scale) << scale << true;
    }
}

/// Books of every kind: with pictures, without, missing, with authors.
void vary(PLShelfPicture &shelf)
{
    for (size_t index = 0; index < shelf.books.size(); ++index) {
        shelf.books[index].available = index % 5 != 3;
        shelf.books[index].author = index % 2 ? u"Anne Duval"_s : QString();
        if (index % 3 == 0) {
            shelf.books[index].cover = QImage(200, 300, QImage::Format_RGB32);
            shelf.books[index].cover.fill(QColor::fromHsv(int(index) * 9, 150, 200));
        }
    }
    shelf.selectedIndex = 1;
    shelf.dropIndex = 7;
}

} // namespace

class PLShelfDrawingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGrainHasTheShadesOfItsHash_data();
    void theGrainHasTheShadesOfItsHash();
    void theGrainIsTwoPointsOfThree();
    void everyPlankThrowsAShadowBelowIt();
    void aPlankHasItsColoursRowByRow();
    void planksLieUnderEveryRow_data();
    void planksLieUnderEveryRow();
    void noSeamShowsAtAnyScale_data();
    void noSeamShowsAtAnyScale();
    void whatTouchesInPointsTouchesOnTheScreen_data();
    void whatTouchesInPointsTouchesOnTheScreen();
    void booksStandOnThePlankAtAnyScale_data();
    void booksStandOnThePlankAtAnyScale();
    void aPartIsDrawnAsTheWhole_data();
    void aPartIsDrawnAsTheWhole();
    void aScrolledShelfHasTheSameGrain();
    void booksFarFromTheDirtyRectangleAreSkipped();
    void anEmptyShelfHasItsMessage();
    void withoutAMessageNothingIsWritten();
    void aDropTargetThatIsSelectedHasTheDropRingAlone();
    void whatIsDrawnTwiceIsKept();

private:
    PLTestEnvironment m_environment;
};

void PLShelfDrawingTest::theGrainHasTheShadesOfItsHash_data()
{
    QTest::addColumn<int>("stripe");
    QTest::addColumn<QColor>("color");

    // Stripe 0: s = 0, a = 0x5BD1E995, t = (a >> 13 ^ a) * 1274126177, (t >> 16 ^ t) & 255 = 97, so v = 0.380
    // and white at 0.00718 over 92 56 32. Stripe 1: 167, so v = 0.655 and black at 0.03408.
    QTest::newRow("light") << 0 << QColor(93, 57, 34);
    QTest::newRow("dark") << 1 << QColor(89, 54, 31);
    QTest::newRow("a little dark") << 2 << QColor(90, 55, 31);
    QTest::newRow("third") << 3 << QColor(91, 55, 32);
    QTest::newRow("tenth") << 10 << QColor(94, 58, 34);
    QTest::newRow("very dark") << 100 << QColor(83, 50, 29);
    QTest::newRow("at the right") << 333 << QColor(88, 53, 30);
    QTest::newRow("far out") << 1333 << QColor(86, 53, 30);
}

void PLShelfDrawingTest::theGrainHasTheShadesOfItsHash()
{
    QFETCH(int, stripe);
    QFETCH(QColor, color);
    PLShelfPicture shelf;
    shelf.size.setWidth(4100);
    const QImage picture = shelf.image();

    QCOMPARE(QColor(PLColorOfGrain(quint64(stripe))), color);
    QCOMPARE(picture.pixelColor(3 * stripe, 100), color);
    QCOMPARE(picture.pixelColor(3 * stripe + 1, 100), color);
}

void PLShelfDrawingTest::theGrainIsTwoPointsOfThree()
{
    PLShelfPicture shelf;
    const QImage picture = shelf.image();
    QSet<QRgb> shades;
    for (int x = 0; x < picture.width(); ++x) {
        if (x % 3 == 2)
            QCOMPARE(picture.pixel(x, 100), wood);
        else
            shades.insert(picture.pixel(x, 100));
        QCOMPARE(picture.pixel(x, 180), picture.pixel(x, 100)); // from top to bottom
    }
    QVERIFY(shades.size() > 15);
}

void PLShelfDrawingTest::everyPlankThrowsAShadowBelowIt()
{
    PLShelfPicture shelf;
    const QImage picture = shelf.image();
    const auto darkened = [&picture](int y, double light) {
        return PLIsNear(picture.pixelColor(2, y), 92 * light, 56 * light, 32 * light);
    };
    QVERIFY(darkened(0, 1 - 0.45 * 25.5 / 26)); // under the upper edge of the view
    QVERIFY(darkened(12, 1 - 0.45 * 13.5 / 26));
    QVERIFY(darkened(25, 1 - 0.45 * 0.5 / 26));
    QVERIFY(darkened(26, 1));
    // Under the first plank, from 214, two shadows: the shelf's, 26 high, and the plank's own, 12 high
    QVERIFY(darkened(214, (1 - 0.45 * 25.5 / 26) * (1 - 0.5 * 11.5 / 12)));
    QVERIFY(darkened(225, (1 - 0.45 * 14.5 / 26) * (1 - 0.5 * 0.5 / 12)));
    QVERIFY(darkened(226, 1 - 0.45 * 13.5 / 26));
    QVERIFY(darkened(240, 1));
}

void PLShelfDrawingTest::aPlankHasItsColoursRowByRow()
{
    PLShelfPicture shelf;
    const QImage picture = shelf.image();
    QCOMPARE(picture.pixel(2, 195), wood);
    QVERIFY(PLIsNear(picture.pixelColor(2, 196), 224.4, 185.6, 138.5)); // the highlight over 194 144 92
    QVERIFY(PLIsNear(picture.pixelColor(2, 197), 190.1, 139.7, 88.8));
    QVERIFY(PLIsNear(picture.pixelColor(2, 204), 162.5, 110.9, 65.2)); // on either side of the stop at 0.45
    QVERIFY(PLIsNear(picture.pixelColor(2, 205), 158.9, 108.0, 63.2));
    QVERIFY(PLIsNear(picture.pixelColor(2, 211), 137.1, 91.1, 51.1));
    QVERIFY(PLIsNear(picture.pixelColor(2, 212), 67.3, 39.4, 19.3)); // the dark line, two points high
    QVERIFY(PLIsNear(picture.pixelColor(2, 213), 67.0, 39.1, 19.1));
}

void PLShelfDrawingTest::planksLieUnderEveryRow_data()
{
    QTest::addColumn<bool>("spineMode");
    QTest::addColumn<QList<int>>("tops");
    QTest::newRow("covers") << false << QList<int>({196, 446, 696, 946});
    QTest::newRow("spines") << true << QList<int>({220, 476, 732, 988});
}

void PLShelfDrawingTest::planksLieUnderEveryRow()
{
    QFETCH(bool, spineMode);
    QFETCH(QList<int>, tops);
    PLShelfPicture shelf(0, spineMode);
    shelf.size.setHeight(1020);
    const QImage picture = shelf.image();
    QList<int> found;
    for (int y = 0; y < picture.height(); ++y) {
        if (picture.pixelColor(2, y).red() > 220)
            found.append(y);
    }
    QCOMPARE(found, tops);
}

void PLShelfDrawingTest::noSeamShowsAtAnyScale_data()
{
    addScales();
}

/// Rows are alike from left to right in the planks, and columns from top to bottom in the wood.
void PLShelfDrawingTest::noSeamShowsAtAnyScale()
{
    QFETCH(double, scale);
    QFETCH(bool, spineMode);
    PLShelfPicture shelf(0, spineMode);
    const QImage picture = shelf.image(scale);
    const int top = qRound((30 + shelf.layout.bookAreaHeight) * scale);
    const int bottom = qRound((30 + shelf.layout.bookAreaHeight + 18) * scale);
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = top; y < bottom; ++y)
            QCOMPARE(picture.pixel(x, y), picture.pixel(0, y));
        for (int y = qRound(26 * scale); y < top; ++y)
            QCOMPARE(picture.pixel(x, y), picture.pixel(x, top - 1));
        const int stripe = int(x / scale / 3);
        const QList<QRgb> shades{wood, PLColorOfGrain(quint64(stripe)), PLColorOfGrain(quint64(stripe + 1))};
        QVERIFY(shades.contains(picture.pixel(x, top - 1)));
    }
}

void PLShelfDrawingTest::whatTouchesInPointsTouchesOnTheScreen_data()
{
    addScales();
}

void PLShelfDrawingTest::whatTouchesInPointsTouchesOnTheScreen()
{
    QFETCH(double, scale);
    PLSpriteCache sprites;
    QImage picture(100, 100, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    painter.translate(0, -17); // scrolled
    const PLShelfCanvas canvas(painter, sprites);
    QCOMPARE(canvas.scale(), scale);
    for (int edge = 4; edge < 60; ++edge) {
        for (const int start : {0, 1, 3, edge / 2}) {
            const QRect before = canvas.deviceRect(QRect(start, start, edge - start, edge - start));
            const QRect after = canvas.deviceRect(QRect(edge, edge, 60 - edge, 60 - edge));
            QCOMPARE(before.right() + 1, after.left());
            QCOMPARE(before.bottom() + 1, after.top());
            QCOMPARE(after.left(), qRound(edge * scale)); // the nearest pixel
            QCOMPARE(after.top(), qRound((edge - 17) * scale));
        }
    }
}

void PLShelfDrawingTest::booksStandOnThePlankAtAnyScale_data()
{
    addScales();
}

void PLShelfDrawingTest::booksStandOnThePlankAtAnyScale()
{
    QFETCH(double, scale);
    QFETCH(bool, spineMode);
    PLShelfPicture shelf(40, spineMode);
    PLShelfPicture bare(0, spineMode);
    const QImage picture = shelf.image(scale);
    const QImage planks = bare.image(scale);
    for (const int index : {0, 3, 6, 11}) {
        const QRect book = shelf.layout.bookRects[size_t(index)];
        const int x = int((book.x() + 20) * scale);
        const int plankTop = qRound((book.y() + book.height()) * scale);
        QVERIFY(picture.pixel(x, plankTop - 1) != planks.pixel(x, plankTop - 1));
        QVERIFY(PLIsNear(picture.pixelColor(x, plankTop - 1), qRed(picture.pixel(x, plankTop - 2)),
                         qGreen(picture.pixel(x, plankTop - 2)), qBlue(picture.pixel(x, plankTop - 2)), 40));
        QVERIFY(picture.pixelColor(x, plankTop).red() > 90); // the highlight, in the book's shadow
    }
}

void PLShelfDrawingTest::aPartIsDrawnAsTheWhole_data()
{
    addScales();
}

/// A part that is painted anew joins with what is there already.
void PLShelfDrawingTest::aPartIsDrawnAsTheWhole()
{
    QFETCH(double, scale);
    QFETCH(bool, spineMode);
    PLShelfPicture shelf(40, spineMode);
    vary(shelf);
    const QImage whole = shelf.image(scale);
    for (const QRect &part : {QRect(0, 0, 1000, 37), QRect(0, 215, 1000, 61), QRect(301, 33, 77, 401),
                              QRect(2, 500, 1, 1), QRect(590, 190, 410, 410)}) {
        QImage repainted = whole;
        QPainter painter(&repainted);
        const QRectF exact(part.x() * scale, part.y() * scale, part.width() * scale, part.height() * scale);
        painter.save();
        painter.resetTransform();
        painter.scale(1 / scale, 1 / scale);
        painter.setClipRect(exact.toAlignedRect());
        painter.fillRect(exact.toAlignedRect(), Qt::magenta);
        painter.resetTransform();
        shelf.draw(painter, part.adjusted(-1, -1, 1, 1));
        painter.restore();
        painter.end();
        QCOMPARE(repainted, whole);
    }
}

void PLShelfDrawingTest::aScrolledShelfHasTheSameGrain()
{
    PLShelfPicture shelf;
    const QImage whole = shelf.image();
    QImage scrolled = shelf.blank(1);
    QPainter painter(&scrolled);
    painter.translate(0, -123);
    shelf.draw(painter, QRect(0, 123, 1000, 300));
    QCOMPARE(scrolled.copy(0, 0, 1000, 300), whole.copy(0, 123, 1000, 300));
}

void PLShelfDrawingTest::booksFarFromTheDirtyRectangleAreSkipped()
{
    PLShelfPicture shelf(1, true);
    const QRect book = shelf.layout.bookRects.front();
    const auto draws = [&shelf](const QRect &dirty) {
        QImage picture = shelf.blank(1);
        QPainter painter(&picture);
        shelf.sprites.clear();
        shelf.draw(painter, dirty);
        return shelf.sprites.count() > 0;
    };
    QVERIFY(draws(QRect(book.right() + 12, 100, 5, 5)));
    QVERIFY(!draws(QRect(book.right() + 13, 100, 5, 5)));
    QVERIFY(draws(QRect(book.x(), book.bottom() + 48, 5, 5)));
    QVERIFY(!draws(QRect(book.x(), book.bottom() + 49, 5, 5)));
}

void PLShelfDrawingTest::anEmptyShelfHasItsMessage()
{
    PLShelfPicture shelf;
    const QImage bare = shelf.image();
    shelf.emptyMessage = u"Votre bibliothèque est vide.\nCréez un premier carnet pour commencer à écrire."_s;
    const QImage written = shelf.image();
    QRect changed;
    for (int y = 0; y < bare.height(); ++y) {
        for (int x = 0; x < bare.width(); ++x) {
            if (written.pixel(x, y) != bare.pixel(x, y))
                changed |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(QRect(40, 83 + 6, 920, 60).contains(changed)); // 166 / 2 + 30 - 24
    QVERIFY(changed.height() > 25);                        // two lines
    QVERIFY(qAbs(changed.center().x() - 500) <= 3);
    QVERIFY(bare.pixelColor(2, 196).red() > 220); // and one plank
}

void PLShelfDrawingTest::withoutAMessageNothingIsWritten()
{
    PLShelfPicture shelf;
    shelf.image();
    QCOMPARE(shelf.sprites.count(), 0);
    PLShelfPicture full(1);
    const QImage before = full.image();
    full.emptyMessage = u"Rien"_s;
    QCOMPARE(full.image(), before);
}

void PLShelfDrawingTest::aDropTargetThatIsSelectedHasTheDropRingAlone()
{
    PLShelfPicture shelf(3);
    shelf.dropIndex = 1;
    const QImage dropOnly = shelf.image();
    shelf.selectedIndex = 1;
    QCOMPARE(shelf.image(), dropOnly);
    shelf.selectedIndex = 0;
    QVERIFY(shelf.image() != dropOnly); // elsewhere the selection keeps its own
}

void PLShelfDrawingTest::whatIsDrawnTwiceIsKept()
{
    PLShelfPicture shelf(40);
    vary(shelf);
    const QImage first = shelf.image(1.5);
    const int pieces = shelf.sprites.count();
    QCOMPARE(shelf.image(1.5), first);
    QCOMPARE(shelf.sprites.count(), pieces);
}

QTEST_MAIN(PLShelfDrawingTest)
#include "PLShelfDrawingTest.moc"
