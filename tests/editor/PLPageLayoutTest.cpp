// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageLayout.h"

#include "editor/PLPageDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Page
{
    explicit Page(const QString &text, int width = 900) : layout(new PLPageLayout(&document))
    {
        QFont font;
        font.setPixelSize(16);
        document.setDefaultFont(font);
        document.setDocumentLayout(layout);
        document.setPageSize(QSizeF(width, -1));
        QTextCursor(&document).insertText(text);
    }

    void layOutAll()
    {
        while (layout->layOutMore(1000).hasMore) {
        }
    }

    double topOf(int number) { return layout->blockBoundingRect(document.findBlockByNumber(number)).top(); }

    QTextDocument document;
    PLPageLayout *layout;
};

QString randomText(QRandomGenerator &random, int length)
{
    static const QStringList pieces = {u"un "_s,       u"mot "_s,        u"\n"_s,  u"\n\n"_s,
                                       u"écriture "_s, u"\U0001f58b "_s, u"漢字"_s};
    QString text;
    while (text.size() < length)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

} // namespace

class PLPageLayoutTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theColumnIsCentredWithALeastMargin_data();
    void theColumnIsCentredWithALeastMargin();
    void linesAreSpacedAlikeInEveryParagraph();
    void changesGiveTheLayoutOfAFreshPage();
    void estimatesAreTheTruthWhenAllIsLaidOut();
    void aWiderPageWithTheSameColumnIsNotLaidOutAgain();
    void aPointLeadsToItsCharacter();
    void everyPositionIsFoundWhereItIsDrawn();
    void aKeyRepaintsItsParagraphOnly();
    void theSizeIsToldWhenItChanges();
    void whatIsDrawnIsTheTextAndTheCaret();
    void aSelectionHasNoStripes();
    void aWordWithoutEndIsBrokenAnywhere_data();
    void aWordWithoutEndIsBrokenAnywhere();
    void aTextThatNoDocumentHoldsIsKnown_data();
    void aTextThatNoDocumentHoldsIsKnown();
};

void PLPageLayoutTest::theColumnIsCentredWithALeastMargin_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("inset");

    QTest::newRow("narrow") << 600 << 44;
    QTest::newRow("as wide as column and margins") << 808 << 44;
    QTest::newRow("wide") << 1000 << 140;
    QTest::newRow("odd width") << 1001 << 140;
    QTest::newRow("no width") << 0 << 44;
}

void PLPageLayoutTest::theColumnIsCentredWithALeastMargin()
{
    QFETCH(int, width);
    QFETCH(int, inset);

    QCOMPARE(PLPageLayout::horizontalInsetForWidth(width), inset);
    Page page(u"x"_s, width);
    QCOMPARE(page.layout->horizontalInset(), inset);
    QCOMPARE(page.topOf(0), 32.0);
}

void PLPageLayoutTest::linesAreSpacedAlikeInEveryParagraph()
{
    Page page(u"un\n\n\ndeux\n"_s);
    QTextCursor(&page.document).insertText(u"collé\nen deux\n"_s);
    const QTextLine line = page.document.firstBlock().layout()->lineAt(0);
    const double spacing = std::round(line.height() * 1.3);

    QCOMPARE(page.document.blockCount(), 7);
    for (int number = 0; number < 7; ++number)
        QCOMPARE(page.topOf(number), 32 + number * spacing);
    QCOMPARE(page.layout->documentSize().height(), 7 * spacing + 64);
}

void PLPageLayoutTest::changesGiveTheLayoutOfAFreshPage()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    Page page(randomText(random, 4000), 500);
    page.document.setUndoRedoEnabled(true);
    for (int step = 0; step < 300; ++step) {
        QTextCursor cursor(&page.document);
        const int length = page.document.characterCount() - 1;
        cursor.setPosition(random.bounded(length + 1));
        cursor.setPosition(qMin(length, cursor.position() + random.bounded(200)), QTextCursor::KeepAnchor);
        if (random.bounded(5) == 0)
            page.document.undo();
        else
            cursor.insertText(randomText(random, random.bounded(300)));
        if (random.bounded(4) == 0)
            page.layout->layOutMore(0);
        if (step % 20 != 0)
            continue;
        Page fresh(page.document.toPlainText(), 500);
        for (int number = 0; number < page.document.blockCount(); ++number)
            (void)page.topOf(number), (void)fresh.topOf(number);
        QCOMPARE(page.layout->documentSize(), fresh.layout->documentSize());
        for (int number = 0; number < page.document.blockCount(); ++number)
            QCOMPARE(page.topOf(number), fresh.topOf(number));
    }
}

void PLPageLayoutTest::estimatesAreTheTruthWhenAllIsLaidOut()
{
    QRandomGenerator random(7);
    const QString text = randomText(random, 60000);
    Page page(text);
    QSignalSpy sizes(page.layout, &QAbstractTextDocumentLayout::documentSizeChanged);
    page.layOutAll();
    Page other(text);
    for (int number = other.document.blockCount() - 1; number >= 0; --number)
        (void)other.topOf(number); // laid out by being asked for, from the end

    QVERIFY(!sizes.isEmpty());
    QCOMPARE(page.layout->documentSize(), other.layout->documentSize());
    QVERIFY(!page.layout->layOutMore(0).hasMore);
}

void PLPageLayoutTest::aWiderPageWithTheSameColumnIsNotLaidOutAgain()
{
    Page page(u"un mot "_s.repeated(2000), 1000);
    page.layOutAll();
    const QSizeF before = page.layout->documentSize();

    page.document.setPageSize(QSizeF(1200, -1));
    QCOMPARE(page.layout->horizontalInset(), 240);
    QCOMPARE(page.layout->documentSize(), QSizeF(1200, before.height()));
    QVERIFY(!page.layout->layOutMore(0).hasMore);

    page.document.setPageSize(QSizeF(500, -1));
    page.layOutAll();
    QVERIFY(page.layout->documentSize().height() > before.height());
}

void PLPageLayoutTest::aPointLeadsToItsCharacter()
{
    Page page(u"un\ndeux"_s);
    const double secondLine = page.topOf(1) + 2;

    QCOMPARE(page.layout->hitTest(QPointF(0, 0), Qt::FuzzyHit), 0);
    QCOMPARE(page.layout->hitTest(QPointF(899, 0), Qt::FuzzyHit), 2);
    QCOMPARE(page.layout->hitTest(QPointF(0, secondLine), Qt::FuzzyHit), 3);
    QCOMPARE(page.layout->hitTest(QPointF(899, 5000), Qt::FuzzyHit), 7);
    QCOMPARE(page.layout->hitTest(QPointF(0, secondLine), Qt::ExactHit), -1);
    QCOMPARE(page.layout->hitTest(QPointF(899, 5000), Qt::ExactHit), -1);
    QCOMPARE(page.layout->hitTest(QPointF(page.layout->horizontalInset() + 1, secondLine), Qt::ExactHit), 3);
}

void PLPageLayoutTest::everyPositionIsFoundWhereItIsDrawn()
{
    Page page(u"Un mot, 漢字 et \U0001f58b encore, sur une ligne qui se brise deux fois au moins.\n\nfin"_s,
              300);
    for (QTextBlock block = page.document.begin(); block.isValid(); block = block.next()) {
        const QPointF origin = page.layout->blockBoundingRect(block).topLeft();
        for (int position = 0; position < block.length(); ++position) {
            if (position > 0 && block.text()[position - 1].isHighSurrogate())
                continue;
            const QTextLine line = block.layout()->lineForTextPosition(position);
            const QPointF point = origin + QPointF(line.cursorToX(position), line.y() + line.height() / 2);
            const int found = page.layout->hitTest(point, Qt::FuzzyHit) - block.position();
            QCOMPARE(line.lineNumber(), block.layout()->lineForTextPosition(found).lineNumber());
            QCOMPARE(found, position);
        }
    }
}

void PLPageLayoutTest::aKeyRepaintsItsParagraphOnly()
{
    Page page(u"un\ndeux\ntrois"_s);
    page.layOutAll();
    QSignalSpy updates(page.layout, &QAbstractTextDocumentLayout::update);
    QTextCursor cursor(&page.document);
    cursor.setPosition(4);

    cursor.insertText(u"x"_s);
    QCOMPARE(updates.count(), 1);
    QCOMPARE(updates[0][0].toRectF(), QRectF(0, page.topOf(1), 900, page.topOf(2) - page.topOf(1)));

    cursor.insertText(u"\n"_s); // everything below moves
    QCOMPARE(updates.last()[0].toRectF().bottom() > page.topOf(3), true);
}

void PLPageLayoutTest::theSizeIsToldWhenItChanges()
{
    Page page(u"un"_s);
    page.layOutAll();
    QSignalSpy sizes(page.layout, &QAbstractTextDocumentLayout::documentSizeChanged);
    QTextCursor cursor(&page.document);

    cursor.insertText(u"x"_s);
    QCOMPARE(sizes.count(), 0);
    cursor.insertText(u"\n"_s);
    QCOMPARE(sizes.count(), 1);
    QCOMPARE(sizes[0][0].toSizeF(), page.layout->documentSize());
}

void PLPageLayoutTest::whatIsDrawnIsTheTextAndTheCaret()
{
    Page page(u"un\ndeux"_s);
    const auto drawn = [&page](int cursorPosition) {
        QImage image(900, 200, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QAbstractTextDocumentLayout::PaintContext context;
        context.cursorPosition = cursorPosition;
        page.layout->draw(&painter, context);
        return image;
    };
    QImage blank(900, 200, QImage::Format_RGB32);
    blank.fill(Qt::white);
    const QImage text = drawn(-1);
    const int secondLine = int(page.topOf(1));

    QVERIFY(text != blank);
    QVERIFY(drawn(0) != text);
    QCOMPARE(drawn(4).copy(0, 0, 900, secondLine), text.copy(0, 0, 900, secondLine));
    QVERIFY(drawn(4) != text);
    QCOMPARE(text.copy(0, 0, page.layout->horizontalInset() - 1, 200).allGray(), true);
}

void PLPageLayoutTest::aSelectionHasNoStripes()
{
    Page page(u"    m\n\n    m"_s);
    QAbstractTextDocumentLayout::Selection selection;
    selection.cursor = QTextCursor(&page.document);
    selection.cursor.select(QTextCursor::Document);
    selection.format.setBackground(Qt::red);
    QAbstractTextDocumentLayout::PaintContext context;
    context.selections = {selection};
    QImage image(900, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    page.layout->draw(&painter, context);

    const int x = page.layout->horizontalInset() + 1;
    int reds = 0;
    for (int y = 32; y < int(page.layout->documentSize().height()) - 32; ++y)
        reds += image.pixelColor(x, y) == QColor(Qt::red);
    QCOMPARE(reds, int(page.layout->documentSize().height()) - 64);
    QCOMPARE(image.pixelColor(x, 30), QColor(Qt::white));
}

void PLPageLayoutTest::aWordWithoutEndIsBrokenAnywhere_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isBrokenAnywhere");
    QTest::newRow("a word of 1,000 letters") << QString(1000, u'a') << false;
    QTest::newRow("one of 1,001") << QString(1001, u'a') << true;
    QTest::newRow("prose") << u"un mot "_s.repeated(1000) << false;
    QTest::newRow("such a word in prose") << u"un mot "_s.repeated(10) + QString(1001, u'>') << true;
    QTest::newRow("one in each of two paragraphs")
        << QString(600, u'a') + u'\n' + QString(600, u'a') << false;
    QTest::newRow("spaces that do not break") << u"un\u00a0mot\u202f"_s.repeated(200) << true;
    QTest::newRow("Chinese") << u"紅樓夢"_s.repeated(1000) << false;
    QTest::newRow("Japanese") << u"げんじものがたり"_s.repeated(1000) << false;
    QTest::newRow("Korean") << u"춘향전"_s.repeated(1000) << false;
}

void PLPageLayoutTest::aWordWithoutEndIsBrokenAnywhere()
{
    QFETCH(QString, text);
    QFETCH(bool, isBrokenAnywhere);
    Page page(text);
    page.layOutAll();
    const QTextLayout &layout = *page.document.begin().layout();
    QCOMPARE(layout.textOption().wrapMode() == QTextOption::WrapAnywhere, isBrokenAnywhere);
    QVERIFY(layout.lineCount() > 1);
}

void PLPageLayoutTest::aTextThatNoDocumentHoldsIsKnown_data()
{
    QTest::addColumn<int>("paragraph");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("isTooLarge");
    constexpr int million = 1'000'000;
    QTest::newRow("nothing") << 0 << 1 << false;
    QTest::newRow("the longest paragraph") << 4 * million << 1 << false;
    QTest::newRow("the longest paragraphs") << 4 * million << 10 << false;
    QTest::newRow("a longer paragraph") << 4 * million + 1 << 1 << true;
    QTest::newRow("longer ones") << 4 * million + 1 << 3 << true;
    QTest::newRow("the most paragraphs") << 0 << 3 * million / 2 << false;
    QTest::newRow("more paragraphs") << 0 << 3 * million / 2 + 1 << true;
    QTest::newRow("the most characters") << 499 << 100'000 << false;
    QTest::newRow("more characters") << 499 << 100'002 << true;
}

void PLPageLayoutTest::aTextThatNoDocumentHoldsIsKnown()
{
    QFETCH(int, paragraph);
    QFETCH(int, count);
    QFETCH(bool, isTooLarge);
    QString text = (QString(paragraph, u'a') + u'\n').repeated(count);
    text.chop(1);
    QCOMPARE(PLIsTooLargeForPage(text), isTooLarge);
}

QTEST_MAIN(PLPageLayoutTest)
#include "PLPageLayoutTest.moc"
