// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLWindowIcon.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

class PLWindowIconTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PLInstallWindowIcon(); }

    void theIconNeedsNoPlugin();
    void everyWindowHasTheIconAsItIsDrawn_data();
    void everyWindowHasTheIconAsItIsDrawn();
};

/// First of all: the other tests read pictures.
void PLWindowIconTest::theIconNeedsNoPlugin()
{
    QFile maps(u"/proc/self/maps"_s);
    if (!maps.open(QIODevice::ReadOnly))
        QSKIP("only Linux tells what a process has loaded");
    const QString loaded = QString::fromUtf8(maps.readAll());
    QVERIFY(loaded.contains(u"libQt6Gui"_s));
    QVERIFY2(!loaded.contains(u"imageformats"_s), "a plugin for pictures was loaded");
    QVERIFY2(!loaded.contains(u"iconengines"_s), "a plugin for icons was loaded");
}

void PLWindowIconTest::everyWindowHasTheIconAsItIsDrawn_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 24, 32, 48, 64})
        QTest::addRow("%d", size) << size;
}

void PLWindowIconTest::everyWindowHasTheIconAsItIsDrawn()
{
    QFETCH(const int, size);
    const QWidget window;
    QVERIFY(window.windowIcon().availableSizes().contains(QSize(size, size)));
    const QImage drawn(u"" AQUILANE_SOURCE_DIR "/packaging/icons/%1.png"_s.arg(size));
    const QImage icon = window.windowIcon().pixmap(size).toImage();
    QCOMPARE(icon.convertToFormat(QImage::Format_ARGB32_Premultiplied),
             drawn.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

QTEST_MAIN(PLWindowIconTest)
#include "PLWindowIconTest.moc"
