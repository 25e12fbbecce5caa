// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLBlockHeights.h"

#include <QRandomGenerator>
#include <QTest>

#include <numeric>

class PLBlockHeightsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesAreSumsOfHeights();
    void aPlaceLeadsToItsParagraph();
    void randomChangesAgreeWithAPlainList();
};

void PLBlockHeightsTest::placesAreSumsOfHeights()
{
    PLBlockHeights heights;
    heights.replace(0, 0, 5, 10);
    heights.setHeight(2, 30);

    QCOMPARE(heights.top(0), 0.0);
    QCOMPARE(heights.top(2), 20.0);
    QCOMPARE(heights.top(3), 50.0);
    QCOMPARE(heights.total(), 70.0);
}

void PLBlockHeightsTest::aPlaceLeadsToItsParagraph()
{
    PLBlockHeights heights;
    heights.replace(0, 0, 3, 10);

    QCOMPARE(heights.indexAt(-5), size_t(0));
    QCOMPARE(heights.indexAt(0), size_t(0));
    QCOMPARE(heights.indexAt(9.9), size_t(0));
    QCOMPARE(heights.indexAt(10), size_t(1));
    QCOMPARE(heights.indexAt(29), size_t(2));
    QCOMPARE(heights.indexAt(1000), size_t(2));
}

void PLBlockHeightsTest::randomChangesAgreeWithAPlainList()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    PLBlockHeights heights;
    std::vector<double> plain;
    for (int step = 0; step < 2000; ++step) {
        const size_t index = plain.empty() ? 0 : random.bounded(quint32(plain.size()));
        if (plain.empty() || random.bounded(3) == 0) {
            const size_t removed = std::min<size_t>(random.bounded(4U), plain.size() - index);
            const size_t added = random.bounded(5U) + (plain.size() == removed ? 1 : 0);
            heights.replace(index, removed, added, 7);
            const auto place = plain.begin() + std::ptrdiff_t(index);
            plain.insert(plain.erase(place, place + std::ptrdiff_t(removed)), added, 7);
        } else {
            plain[index] = 1 + random.bounded(40);
            heights.setHeight(index, plain[index]);
        }
        QCOMPARE(heights.size(), plain.size());
        const size_t asked = random.bounded(quint32(plain.size()) + 1);
        const double top = std::accumulate(plain.begin(), plain.begin() + std::ptrdiff_t(asked), 0.0);
        QCOMPARE(heights.top(asked), top);
        if (asked < plain.size())
            QCOMPARE(heights.indexAt(top), asked);
    }
}

QTEST_APPLESS_MAIN(PLBlockHeightsTest)
#include "PLBlockHeightsTest.moc"
