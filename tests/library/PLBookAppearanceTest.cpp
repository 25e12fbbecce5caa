// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLBookAppearance.h"

#include "library/PLShelfBook.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PLBookAppearanceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLookComesFromThePath_data();
    void theLookComesFromThePath();
    void withoutAPathTheTitleCounts();
    void aNewTitleChangesNothing();
    void aSlashAtTheEndChangesNothing();
    void everySpineIsWithinItsBounds();
};

void PLBookAppearanceTest::theLookComesFromThePath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<quint64>("hash");
    QTest::addColumn<QString>("color");
    QTest::addColumn<QSize>("spine");

    // h = 33 h + unit, from 5381: 5381 * 33 + 47 = 177620, then 177620 * 33 + 97 = 5861557
    QTest::newRow("short") << u"/a"_s << quint64(5861557) << u"#562c5c"_s << QSize(38, 178);
    QTest::newRow("accents, one unit each")
        << u"/home/anne/Carnets/Été"_s << quint64(5613358041367901474U) << u"#295438"_s << QSize(46, 175);
    QTest::newRow("a pair of surrogates, two units")
        << u"/tmp/😀"_s << quint64(229395215584497U) << u"#243a62"_s << QSize(43, 160);
}

void PLBookAppearanceTest::theLookComesFromThePath()
{
    QFETCH(QString, path);
    QFETCH(quint64, hash);
    QFETCH(QString, color);
    QFETCH(QSize, spine);
    PLShelfBook book;
    book.url = QUrl::fromLocalFile(path);

    QCOMPARE(PLBookHash(book), hash);
    QCOMPARE(PLBookAppearance::colorForBook(book).name(), color);
    QCOMPARE(PLBookAppearance::spineSizeForBook(book), spine);
}

void PLBookAppearanceTest::withoutAPathTheTitleCounts()
{
    PLShelfBook book;
    QCOMPARE(PLBookHash(book), quint64(5381)); // nothing at all: 5381 mod 8 = 5, mod 17 = 9, 316 mod 41 = 29
    QCOMPARE(PLBookAppearance::colorForBook(book).name(), u"#562c5c"_s);
    QCOMPARE(PLBookAppearance::spineSizeForBook(book), QSize(39, 179));

    book.title = QString(40, u'x'); // so long that 64 bits overflow
    QCOMPARE(PLBookHash(book), quint64(17569932911619400901U));
}

void PLBookAppearanceTest::aNewTitleChangesNothing()
{
    PLShelfBook book;
    book.url = QUrl::fromLocalFile(u"/carnets/nuit"_s);
    const quint64 before = PLBookHash(book);
    book.title = u"Nuit"_s;
    QCOMPARE(PLBookHash(book), before);
}

void PLBookAppearanceTest::aSlashAtTheEndChangesNothing()
{
    PLShelfBook book;
    book.url = QUrl::fromLocalFile(u"/a/"_s);
    QCOMPARE(PLBookHash(book), quint64(5861557));
}

void PLBookAppearanceTest::everySpineIsWithinItsBounds()
{
    QSet<int> widths;
    QSet<int> heights;
    for (int index = 0; index < 5000; ++index) {
        PLShelfBook book;
        book.title = QString::number(index);
        const QSize spine = PLBookAppearance::spineSizeForBook(book);
        widths.insert(spine.width());
        heights.insert(spine.height());
    }
    QCOMPARE(*std::min_element(widths.begin(), widths.end()), 30);
    QCOMPARE(*std::max_element(widths.begin(), widths.end()), 46);
    QCOMPARE(*std::min_element(heights.begin(), heights.end()), 150);
    QCOMPARE(*std::max_element(heights.begin(), heights.end()), 190);
}

QTEST_APPLESS_MAIN(PLBookAppearanceTest)
#include "PLBookAppearanceTest.moc"
