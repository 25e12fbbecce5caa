// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLWoodBarView.h"

#include "library/PLShelfPicture.h"

class PLWoodBarViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theUpperBarDarkensDownwards();
    void theLowerBarDarkensUpwards();
};

void PLWoodBarViewTest::theUpperBarDarkensDownwards()
{
    PLWoodBarView bar;
    QVERIFY(!bar.atTop());
    bar.setAtTop(true);
    bar.resize(40, 56);
    const QImage picture = bar.grab().toImage();
    QVERIFY(PLIsNear(picture.pixelColor(20, 0), 104, 66, 38));
    QVERIFY(PLIsNear(picture.pixelColor(20, 28), 85, 53, 30));
    QVERIFY(PLIsNear(picture.pixelColor(20, 54), 67, 41, 22.4));
    QCOMPARE(picture.pixelColor(0, 55), QColor(40, 22, 10));
    QCOMPARE(picture.pixelColor(39, 55), QColor(40, 22, 10));
}

void PLWoodBarViewTest::theLowerBarDarkensUpwards()
{
    PLWoodBarView bar;
    bar.resize(40, 52);
    const QImage picture = bar.grab().toImage();
    QCOMPARE(picture.pixelColor(0, 0), QColor(40, 22, 10));
    QCOMPARE(picture.pixelColor(39, 0), QColor(40, 22, 10));
    QVERIFY(PLIsNear(picture.pixelColor(20, 1), 67, 41, 22.4));
    QVERIFY(PLIsNear(picture.pixelColor(20, 26), 85, 53, 30));
    QVERIFY(PLIsNear(picture.pixelColor(20, 51), 104, 66, 38));
}

QTEST_MAIN(PLWoodBarViewTest)
#include "PLWoodBarViewTest.moc"
