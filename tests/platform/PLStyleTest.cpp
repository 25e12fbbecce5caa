// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLStyle.h"

#include "support/PLTestFiles.h"

#include <QApplication>
#include <QMenuBar>
#include <QTest>

class PLStyleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new PLStyle); }

    void aMenuBarOpensNoPluginForPictures();
    void theOverflowIconIsDrawn_data();
    void theOverflowIconIsDrawn();
    void otherIconsAreTheStylesOwn();
};

void PLStyleTest::aMenuBarOpensNoPluginForPictures()
{
    if (!QFile::exists(QStringLiteral("/proc/self/maps")))
        QSKIP("only where the system tells what is loaded");
    const QMenuBar bar;
    QVERIFY(!PLBytesOf(QStringLiteral("/proc/self/maps")).contains("/imageformats/"));
}

void PLStyleTest::theOverflowIconIsDrawn_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::newRow("1") << 1.0;
    QTest::newRow("1.5") << 1.5;
    QTest::newRow("2") << 2.0;
}

void PLStyleTest::theOverflowIconIsDrawn()
{
    QFETCH(const qreal, scale);
    const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
    const QPixmap pixmap = icon.pixmap(QSize(16, 16), scale);
    QCOMPARE(pixmap.size(), QSize(16, 16) * scale);
    const QImage image = pixmap.toImage();
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    int left = image.width();
    int right = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            left = qAlpha(image.pixel(x, y)) > 0 ? qMin(left, x) : left;
            right = qAlpha(image.pixel(x, y)) > 0 ? qMax(right, x) : right;
        }
    }
    QVERIFY(right - left >= image.width() / 2);
    QVERIFY(right - left < image.width());
}

void PLStyleTest::otherIconsAreTheStylesOwn()
{
    QVERIFY(!QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning).isNull());
}

QTEST_MAIN(PLStyleTest)
#include "PLStyleTest.moc"
