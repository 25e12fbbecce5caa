// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfBookDrawing.h"

#include "library/PLBookShadow.h"
#include "library/PLShelfPicture.h"
#include "library/PLShelfText.h"
#include "support/PLTestEnvironment.h"

#include <QFontDatabase>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QSize paper(400, 400);
const QRect place(100, 40, 116, 166); // of a cover

PLShelfBook bookAt(const QString &path)
{
    PLShelfBook book;
    book.url = QUrl::fromLocalFile(path); // "/a" is violet: 86 44 92, a spine of 38 x 178
    book.title = u"Nuit"_s;
    return book;
}

QImage coverOf(const PLShelfBook &book)
{
    return PLDrawnAlone(paper, [&](PLShelfCanvas &canvas) { PLDrawCoverOfBook(canvas, book, place); });
}

QImage spineOf(const PLShelfBook &book, const QRect &rect)
{
    return PLDrawnAlone(paper, [&](PLShelfCanvas &canvas) { PLDrawSpineOfBook(canvas, book, rect); });
}

QImage labelOf(const PLShelfBook &book)
{
    return PLDrawnAlone(paper, [&](PLShelfCanvas &canvas) { PLDrawLabelOfBook(canvas, book, place); });
}

QImage textOf(const PLShelfBook &book, const QRect &cover)
{
    return PLDrawnAlone(QSize(400, 500),
                        [&](PLShelfCanvas &canvas) { PLDrawCoverTextOfBook(canvas, book, cover); });
}

QColor mixed(const QColor &under, const QColor &over, double alpha)
{
    const auto mix = [alpha](int from, int to) { return qRound(from + (to - from) * alpha); };
    return QColor(mix(under.red(), over.red()), mix(under.green(), over.green()),
                  mix(under.blue(), over.blue()));
}

bool isNear(const QColor &actual, const QColor &expected, double tolerance = 2)
{
    return PLIsNear(actual, expected.red(), expected.green(), expected.blue(), tolerance);
}

} // namespace

class PLShelfBookDrawingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSpineLooksRound();
    void aSpineHasFourGoldBands();
    void aSpineThrowsAShadowToTheRightAndDown();
    void aSpinesTitleReadsUpwardsBetweenItsMargins();
    void aLongSpineTitleIsCutAtItsEnd();
    void aCoverHasRoundCorners();
    void aCoverThrowsAWiderShadow();
    void aGeneratedCoverFadesDownAndHasFourRules();
    void aPictureFillsItsCover_data();
    void aPictureFillsItsCover();
    void aBooksColourShowsThroughAPicture();
    void theTextBoxesOfACoverHangFromItsX_data();
    void theTextBoxesOfACoverHangFromItsX();
    void titleAndAuthorAreWrittenInTheirBoxes();
    void aLongTitleKeepsToItsBox();
    void withoutAnAuthorOnlyTheTitleIsWritten();
    void theLabelIsCentredUnderTheCover();
    void aLongLabelIsCutAtItsEnd();
    void aMissingNotebookSaysSoInTheInterfaceLanguage();
    void aMissingNotebookIsFadedButNotItsLabelAndRing_data();
    void aMissingNotebookIsFadedButNotItsLabelAndRing();
    void theRingsHaveTheirPlaceAndColours();
    void textsFallBackToTheSystemsFonts_data();
    void textsFallBackToTheSystemsFonts();
    void anyTextCanBeDrawn_data();
    void anyTextCanBeDrawn();
    void keptPiecesAreBounded();

private:
    PLTestEnvironment m_environment;
};

void PLShelfBookDrawingTest::aSpineLooksRound()
{
    PLShelfBook book = bookAt(u"/a"_s);
    book.title.clear();
    const QImage spine = spineOf(book, QRect(100, 40, 40, 180));
    QVERIFY(isNear(spine.pixelColor(100, 100), QColor(49, 25, 53),
                   3)); // darkened by 0.45 at the edge, and rising
    QVERIFY(isNear(spine.pixelColor(110, 100), QColor(86, 44, 92), 3));   // itself at a quarter
    QVERIFY(isNear(spine.pixelColor(118, 100), QColor(116, 82, 121), 3)); // lightened by 0.18 at 0.45
    QVERIFY(isNear(spine.pixelColor(128, 100), QColor(86, 44, 92), 3));   // itself at 0.7
    QVERIFY(isNear(spine.pixelColor(139, 100), QColor(44, 23, 47), 3));   // darkened by 0.5 at the other edge
}

void PLShelfBookDrawingTest::aSpineHasFourGoldBands()
{
    PLShelfBook book = bookAt(u"/a"_s);
    book.title.clear();
    const QImage spine = spineOf(book, QRect(100, 40, 40, 180));
    const QColor gold(222, 190, 120);
    QList<int> rows;
    for (int y = 0; y < 180; ++y) {
        const QColor bare = spine.pixelColor(118, 60);
        if (isNear(bare, spine.pixelColor(118, 40 + y), 4))
            continue;
        rows.append(y);
        QVERIFY(isNear(spine.pixelColor(118, 40 + y), mixed(bare, gold, 0.85)));
        QVERIFY(isNear(spine.pixelColor(103, 40 + y), mixed(spine.pixelColor(103, 60), gold, 0.85)));
        QVERIFY(isNear(spine.pixelColor(136, 40 + y), mixed(spine.pixelColor(136, 60), gold, 0.85)));
        QCOMPARE(spine.pixel(102, 40 + y), spine.pixel(102, 60)); // three points free at each side
        QCOMPARE(spine.pixel(137, 40 + y), spine.pixel(137, 60));
    }
    QCOMPARE(rows, QList<int>({12, 13, 17, 162, 166, 167}));
}

void PLShelfBookDrawingTest::aSpineThrowsAShadowToTheRightAndDown()
{
    const QRect rect(100, 40, 40, 180);
    const QImage spine = spineOf(bookAt(u"/a"_s), rect);
    QCOMPARE(PLInkedRect(spine), rect.adjusted(-2, -2, 6, 6)); // blur 4, moved by 2
    const int beside = spine.pixelColor(140, 130).alpha();
    QVERIFY(beside > 90 && beside < 255 * 0.55); // in the middle of the fading edge, 1.5 inside of it
    QVERIFY(spine.pixelColor(99, 130).alpha() < 20);
    QCOMPARE(spine.pixelColor(140, 130).rgb(), QColor(Qt::black).rgb());
    QVERIFY(qAbs(spine.pixelColor(120, 221).alpha() - spine.pixelColor(141, 130).alpha()) <= 1);
}

void PLShelfBookDrawingTest::aSpinesTitleReadsUpwardsBetweenItsMargins()
{
    PLShelfBook book = bookAt(u"/a"_s);
    const QRect rect(100, 40, 40, 180);
    book.title.clear();
    const QImage bare = spineOf(book, rect);
    book.title = u"L..............."_s; // a tall letter, then only low ones
    const QImage titled = spineOf(book, rect);
    QRect ink;
    QRect tall; // what is high above the line, which is at the left of a text that reads upwards
    for (int y = 0; y < 400; ++y) {
        for (int x = 0; x < 400; ++x) {
            if (titled.pixel(x, y) == bare.pixel(x, y))
                continue;
            ink |= QRect(x, y, 1, 1);
            tall |= x < 118 ? QRect(x, y, 1, 1) : QRect();
        }
    }
    QVERIFY(rect.adjusted(0, 24, 0, -24).contains(ink));
    QVERIFY(qAbs(ink.center().y() - rect.center().y()) <= 2);
    QVERIFY(!tall.isEmpty() && tall.top() > rect.center().y()); // the first letter is the lowest
}

void PLShelfBookDrawingTest::aLongSpineTitleIsCutAtItsEnd()
{
    PLShelfBook book = bookAt(u"/a"_s);
    const QRect rect(100, 40, 40, 180);
    book.title = QString(100, u'i');
    const QImage whole = spineOf(book, rect);
    book.title = QString(90, u'i');
    QCOMPARE(spineOf(book, rect), whole); // the same beginning and an ellipsis
    book.title.clear();
    const QImage bare = spineOf(book, rect);
    for (const int y : {40 + 23, 40 + 180 - 24}) {
        for (int x = 100; x < 140; ++x)
            QCOMPARE(whole.pixel(x, y), bare.pixel(x, y));
    }
}

void PLShelfBookDrawingTest::aCoverHasRoundCorners()
{
    PLShelfBook book = bookAt(u"/a"_s);
    for (const bool hasPicture : {false, true}) {
        if (hasPicture) {
            book.cover = QImage(60, 90, QImage::Format_RGB32);
            book.cover.fill(Qt::white);
        }
        const QImage cover = coverOf(book);
        QVERIFY(cover.pixelColor(100, 40).alpha() < 150); // a radius of 2 leaves less than half of the corner
        QCOMPARE(cover.pixelColor(102, 40).alpha(), 255);
        QCOMPARE(cover.pixelColor(100, 42).alpha(), 255);
        QCOMPARE(cover.pixelColor(215, 120).alpha(), 255);
        QCOMPARE(cover.pixelColor(158, 205).alpha(), 255);
    }
}

void PLShelfBookDrawingTest::aCoverThrowsAWiderShadow()
{
    const QImage cover = coverOf(bookAt(u"/a"_s));
    QCOMPARE(PLInkedRect(cover), place.adjusted(-3, -3, 11, 11)); // blur 7, moved by 4
    const PLBookShadow shadow{.offset = 4, .blur = 7, .alpha = 0.6};
    const QImage alone = shadow.picture(place.size(), 1);
    QVERIFY(qAbs(alone.pixelColor(60, 80).alpha() - 153) <= 1);                // full inside
    QVERIFY(qAbs(alone.pixelColor(3 + 116 + 3, 80).alpha() - 153 / 2.0) <= 9); // half at its edge
    QCOMPARE(cover.pixelColor(100 + 116 + 3, 120).alpha(), alone.pixelColor(3 + 116 + 3, 83).alpha());
}

void PLShelfBookDrawingTest::aGeneratedCoverFadesDownAndHasFourRules()
{
    const QImage cover = coverOf(bookAt(u"/a"_s));
    const QColor top = cover.pixelColor(160, 44);
    const QColor bottom = cover.pixelColor(160, 200);
    // From 106 69 112 to 65 33 69, with the light and the shade of the board on it
    QVERIFY(isNear(top, QColor(106, 69, 112), 30) && top.red() > 95);
    QVERIFY(isNear(bottom, QColor(65, 33, 69), 12));
    QList<int> rules;
    for (int y = 3; y < 163; ++y) {
        const QColor above = cover.pixelColor(160, 40 + y - 1);
        if (cover.pixelColor(160, 40 + y).red() > above.red() + 60)
            rules.append(y);
    }
    QCOMPARE(rules, QList<int>({16, 19, 146, 149}));
    QVERIFY(cover.pixelColor(118, 56).red() > 160 && cover.pixelColor(205, 56).red() > 160);
    QVERIFY(cover.pixelColor(117, 56).red() < 130 && cover.pixelColor(206, 56).red() < 130); // 18 and 10 free
}

void PLShelfBookDrawingTest::aPictureFillsItsCover_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("seen"); // in green; red around it must not be seen

    QTest::newRow("wide: the middle 116 / 166 of its height") << QSize(400, 100) << QRect(164, 0, 72, 100);
    QTest::newRow("tall") << QSize(116, 1000) << QRect(0, 416, 116, 168);
    QTest::newRow("large: halved more than once") << QSize(1160, 1660) << QRect(0, 0, 1160, 1660);
    QTest::newRow("its own size") << QSize(116, 166) << QRect(0, 0, 116, 166);
    QTest::newRow("one pixel") << QSize(1, 1) << QRect(0, 0, 1, 1);
    QTest::newRow("a long line") << QSize(360, 1) << QRect(178, 0, 4, 1);
}

void PLShelfBookDrawingTest::aPictureFillsItsCover()
{
    QFETCH(QSize, size);
    QFETCH(QRect, seen);
    PLShelfBook book = bookAt(u"/a"_s);
    book.cover = QImage(size, QImage::Format_RGB32);
    book.cover.fill(Qt::red);
    QPainter(&book.cover).fillRect(seen, QColor(0, 200, 0));
    const QImage cover = coverOf(book);
    for (int y = 2; y < 164; ++y) {
        for (int x = 1; x < 114; ++x) {
            const QColor color = cover.pixelColor(100 + x, 40 + y);
            QVERIFY2(color.green() > color.red() + 60,
                     qPrintable(u"%1 %2 %3"_s.arg(x).arg(y).arg(color.name())));
        }
    }
}

void PLShelfBookDrawingTest::aBooksColourShowsThroughAPicture()
{
    PLShelfBook book = bookAt(u"/a"_s);
    book.cover = QImage(116, 166, QImage::Format_ARGB32);
    book.cover.fill(Qt::transparent);
    const QColor color = coverOf(book).pixelColor(160, 120);
    QVERIFY(isNear(color, QColor(86, 44, 92), 12));
}

void PLShelfBookDrawingTest::theTextBoxesOfACoverHangFromItsX_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<int>("title");
    QTest::addColumn<int>("author");
    QTest::newRow("second column") << QPoint(217, 30) << 253 << 341;
    QTest::newRow("second column, further down") << QPoint(217, 780) << 253 << 341;
    QTest::newRow("first column") << QPoint(67, 30) << 103 << 191;
}

void PLShelfBookDrawingTest::theTextBoxesOfACoverHangFromItsX()
{
    QFETCH(QPoint, corner);
    QFETCH(int, title);
    QFETCH(int, author);
    const QRect cover(corner, QSize(116, 166));
    QCOMPARE(PLTitleBoxOfCover(cover), QRect(corner.x() + 18, title, 88, 76));
    QCOMPARE(PLAuthorBoxOfCover(cover), QRect(corner.x() + 18, author, 88, 16));
}

void PLShelfBookDrawingTest::titleAndAuthorAreWrittenInTheirBoxes()
{
    PLShelfBook book = bookAt(u"/a"_s);
    book.author = u"Anne Duval"_s;
    const QImage text = textOf(book, QRect(217, 30, 116, 166));
    const QRect title(235, 253, 88, 76);
    const QRect author(235, 341, 88, 16);
    const QRect titleInk = PLInkedRect(text.copy(title));
    QVERIFY(!titleInk.isEmpty() && qAbs(titleInk.center().x() - 44) <= 1); // centred, from the top
    QVERIFY(titleInk.bottom() < 20);
    const QRect authorInk = PLInkedRect(text.copy(author));
    QVERIFY(!authorInk.isEmpty() && qAbs(authorInk.center().x() - 44) <= 2);
    QVERIFY(title.united(author).contains(PLInkedRect(text))); // and nothing anywhere else
}

void PLShelfBookDrawingTest::aLongTitleKeepsToItsBox()
{
    PLShelfBook book = bookAt(u"/a"_s);
    for (const QString &title : {u"Un titre absolument démesuré qui ne tiendra jamais sur un livre"_s,
                                 u"Anticonstitutionnellementhexakosioi"_s, QString(5000, u'W')}) {
        book.title = title;
        const QRect ink = PLInkedRect(textOf(book, QRect(217, 30, 116, 166)));
        QVERIFY(QRect(235, 253, 88, 76).contains(ink));
        QVERIFY(ink.height() > 30); // more than a line
        const double lineHeight = QFontMetricsF(PLFontOfShelfText(PLShelfText::CoverTitle)).height();
        QVERIFY(ink.bottom() <
                253 + std::floor(76 / lineHeight) * lineHeight); // and none that is cut through
    }
}

void PLShelfBookDrawingTest::withoutAnAuthorOnlyTheTitleIsWritten()
{
    const QRect ink = PLInkedRect(textOf(bookAt(u"/a"_s), QRect(30, 30, 116, 166)));
    QVERIFY(QRect(48, 66, 88, 76).contains(ink));
    QVERIFY(!ink.isEmpty());
}

void PLShelfBookDrawingTest::theLabelIsCentredUnderTheCover()
{
    QCOMPARE(PLLabelBoxOfCover(place), QRect(85, 230, 146, 18));
    const QImage label = labelOf(bookAt(u"/a"_s));
    const QRect ink = PLInkedRect(label);
    QVERIFY(PLLabelBoxOfCover(place).contains(ink));
    QVERIFY(qAbs(ink.center().x() - place.center().x()) <= 1);
    int strongest = 0;
    for (int y = ink.top(); y <= ink.bottom(); ++y) {
        for (int x = ink.left(); x <= ink.right(); ++x)
            strongest = qMax(strongest, label.pixelColor(x, y).alpha());
    }
    QVERIFY(qAbs(strongest - 255 * 0.95) <= 2);
}

void PLShelfBookDrawingTest::aLongLabelIsCutAtItsEnd()
{
    PLShelfBook book = bookAt(u"/a"_s);
    book.title = u"Un titre absolument démesuré "_s + QString(50, u'i');
    const QImage label = labelOf(book);
    QVERIFY(PLLabelBoxOfCover(place).contains(PLInkedRect(label)));
    book.title += u"jjjj"_s;
    QCOMPARE(labelOf(book), label);
}

void PLShelfBookDrawingTest::aMissingNotebookSaysSoInTheInterfaceLanguage()
{
    PLShelfBook missing = bookAt(u"/a"_s);
    missing.available = false;
    PLShelfBook spelled = bookAt(u"/a"_s);
    for (const auto &[language, title] :
         {std::pair(u"fr"_s, u"Nuit (introuvable)"_s), std::pair(u"en"_s, u"Nuit (missing)"_s)}) {
        m_environment.setLanguage(language);
        spelled.title = title;
        QCOMPARE(PLInkedRect(labelOf(missing)), PLInkedRect(labelOf(spelled)));
    }
    m_environment.setLanguage(u"fr"_s);
}

void PLShelfBookDrawingTest::aMissingNotebookIsFadedButNotItsLabelAndRing_data()
{
    QTest::addColumn<bool>("spineMode");
    QTest::newRow("cover") << false;
    QTest::newRow("spine") << true;
}

void PLShelfBookDrawingTest::aMissingNotebookIsFadedButNotItsLabelAndRing()
{
    QFETCH(bool, spineMode);
    PLShelfPicture shelf(1, spineMode);
    shelf.selectedIndex = 0;
    shelf.books[0].title = u"Nuit (introuvable)"_s;
    const QImage there = shelf.image();
    shelf.books[0].title = u"Nuit"_s;
    const QImage titled = shelf.image();
    shelf.books[0].available = false;
    const QImage missing = shelf.image();
    PLShelfPicture bare(0, spineMode);
    const QImage behind = bare.image();
    const QRect book = shelf.layout.bookRects[0];
    for (int y = book.top() + 3; y < book.bottom() - 3; ++y) {
        for (int x = book.left() + 3; x < book.right() - 3; ++x) {
            if (!spineMode && y > book.x() + 36)
                continue; // where a title is written over the cover, each of the two fades by itself
            QVERIFY(isNear(missing.pixelColor(x, y),
                           mixed(behind.pixelColor(x, y), titled.pixelColor(x, y), 0.35)));
        }
    }
    QCOMPARE(missing.pixelColor(book.x() - 6, 100),
             QColor(247, 214, 144)); // 255 222 150 at 0.95, on the wood there
    if (spineMode)
        return;
    const QRect label = PLLabelBoxOfCover(book);
    for (int y = label.top(); y < label.bottom(); ++y) {
        for (int x = label.left(); x < label.right(); ++x)
            QVERIFY(isNear(missing.pixelColor(x, y),
                           mixed(behind.pixelColor(x, y), there.pixelColor(x, y), 0.55 / 0.95), 3));
    }
}

void PLShelfBookDrawingTest::theRingsHaveTheirPlaceAndColours()
{
    const QImage selection =
        PLDrawnAlone(paper, [](PLShelfCanvas &canvas) { PLDrawSelectionRing(canvas, place); });
    QCOMPARE(PLInkedRect(selection), place.adjusted(-7, -7, 7, 7)); // 5 away, 3 wide
    const auto isRing = [](const QColor &color, int red, int green, int blue) {
        return isNear(color, QColor(red, green, blue)) && qAbs(color.alpha() - 242) <= 1;
    };
    QVERIFY(isRing(selection.pixelColor(94, 120), 255, 222, 150));
    QVERIFY(isRing(selection.pixelColor(95, 120), 255, 222, 150));
    QVERIFY(isRing(selection.pixelColor(160, 34), 255, 222, 150));
    QVERIFY(isRing(selection.pixelColor(221, 120), 255, 222, 150));
    QVERIFY(isRing(selection.pixelColor(160, 211), 255, 222, 150));
    QCOMPARE(selection.pixelColor(97, 120).alpha(), 0);
    QCOMPARE(selection.pixelColor(93, 33).alpha(), 0); // round corners
    const QImage drop = PLDrawnAlone(paper, [](PLShelfCanvas &canvas) { PLDrawDropRing(canvas, place); });
    QVERIFY(isRing(drop.pixelColor(94, 120), 140, 200, 255));
}

void PLShelfBookDrawingTest::textsFallBackToTheSystemsFonts_data()
{
    QTest::addColumn<PLShelfText>("style");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("fallbackSize");
    QTest::addColumn<bool>("isBold");
    QTest::addColumn<bool>("isItalic");
    QTest::addColumn<QString>("color");

    QTest::newRow("spine title") << PLShelfText::SpineTitle << 12 << 12 << true << false << u"#fff6e8c8"_s;
    QTest::newRow("cover title") << PLShelfText::CoverTitle << 15 << 14 << true << false << u"#fff6e8c8"_s;
    QTest::newRow("cover author") << PLShelfText::CoverAuthor << 11 << 11 << false << true << u"#e6e8d6b0"_s;
    QTest::newRow("label") << PLShelfText::Label << 12 << 12 << false << false << u"#f2faecd2"_s;
    QTest::newRow("missing label") << PLShelfText::MissingLabel << 12 << 12 << false << false
                                   << u"#8cfaecd2"_s;
    QTest::newRow("message") << PLShelfText::EmptyMessage << 16 << 16 << false << true << u"#e6f5e4c8"_s;
}

void PLShelfBookDrawingTest::textsFallBackToTheSystemsFonts()
{
    QFETCH(PLShelfText, style);
    QFETCH(int, size);
    QFETCH(int, fallbackSize);
    QFETCH(bool, isBold);
    QFETCH(bool, isItalic);
    QFETCH(QString, color);
    const bool hasGeorgia = QFontDatabase::hasFamily(u"Georgia"_s);
    const QFont font = PLFontOfShelfText(style);
    QCOMPARE(font.pixelSize(), hasGeorgia ? size : fallbackSize);
    QCOMPARE(font.family(),
             hasGeorgia ? u"Georgia"_s : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
    QCOMPARE(font.bold(), isBold);
    QCOMPARE(font.italic(), isItalic);
    QCOMPARE(PLColorOfShelfText(style).name(QColor::HexArgb), color);
}

void PLShelfBookDrawingTest::anyTextCanBeDrawn_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("drawn");

    QTest::newRow("plain") << u"Été à « Nuit »"_s << u"Été à « Nuit »"_s;
    QTest::newRow("control characters") << u"a\tb\nc"_s << u"a b c"_s;
    QTest::newRow("very long") << QString(100000, u'a') << QString(400, u'a');
    QTest::newRow("not through a pair") << QString(399, u'a') + u"😀"_s << QString(399, u'a');
    QTest::newRow("emoji") << u"👩‍🚀"_s << u"👩‍🚀"_s;
    QTest::newRow("none") << QString() << QString();
}

void PLShelfBookDrawingTest::anyTextCanBeDrawn()
{
    QFETCH(QString, text);
    QFETCH(QString, drawn);
    QCOMPARE(PLDrawableText(text), drawn);
    PLShelfPicture shelf(1);
    shelf.books[0].title = text;
    shelf.books[0].author = text;
    QCOMPARE(shelf.image().size(), shelf.size);
    shelf.spineMode = true;
    shelf.layOut();
    QCOMPARE(shelf.image(1.25).width(), 1250);
}

void PLShelfBookDrawingTest::keptPiecesAreBounded()
{
    PLSpriteCache sprites;
    const QImage large(1024, 1024, QImage::Format_ARGB32_Premultiplied); // 4 MiB
    int drawn = 0;
    const auto ask = [&](int number) {
        const PLSpriteKey key{.kind = PLSpriteKey::Kind::Text, .style = number};
        sprites.sprite(key, [&] {
            ++drawn;
            return large;
        });
    };
    for (int number = 0; number < 20; ++number)
        ask(number);
    QCOMPARE(sprites.count(), PLSpriteCache::kilobytes / 4096);
    ask(19);
    QCOMPARE(drawn, 20);
    ask(0); // gone
    QCOMPARE(drawn, 21);
}

QTEST_MAIN(PLShelfBookDrawingTest)
#include "PLShelfBookDrawingTest.moc"
