// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLCoverPicture.h"

#include "library/PLTestPicture.h"
#include "support/PLTestFiles.h"

#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class PLCoverPictureTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void thumbnailsAreShrunkAndNeverEnlarged_data();
    void thumbnailsAreShrunkAndNeverEnlarged();
    void everyFormatIsRead_data();
    void everyFormatIsRead();
    void whatIsInTheFileDecidesAndNotItsName_data();
    void whatIsInTheFileDecidesAndNotItsName();
    void theFirstFrameOfAnAnimationIsShown();
    void picturesAreTurnedUpright_data();
    void picturesAreTurnedUpright();
    void transparencyIsKept();
    void shrinkingBlendsThePixels_data();
    void shrinkingBlendsThePixels();
    void picturesThatAreCutShortAreNotShown_data();
    void picturesThatAreCutShortAreNotShown();
    void whatFollowsThePictureDoesNotMatter_data();
    void whatFollowsThePictureDoesNotMatter();
    void whatIsNoPictureIsNotShown_data();
    void whatIsNoPictureIsNotShown();
    void whatIsNotAFileIsNotWaitedFor_data();
    void whatIsNotAFileIsNotWaitedFor();
    void aHugePictureInASmallFileIsRefused_data();
    void aHugePictureInASmallFileIsRefused();
    void aLargePhotographIsReadSmall();
    void veryLongPicturesHaveNoThumbnail();

private:
    QString path(const QString &name = u"couverture.png"_s) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLCoverPictureTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void PLCoverPictureTest::thumbnailsAreShrunkAndNeverEnlarged_data()
{
    QTest::addColumn<QSizeF>("picture");
    QTest::addColumn<QSize>("thumbnail");
    QTest::newRow("wide") << QSizeF(4000, 1000) << QSize(360, 90);
    QTest::newRow("high") << QSizeF(1000, 4000) << QSize(90, 360);
    QTest::newRow("small") << QSizeF(200, 100) << QSize(200, 100);
    QTest::newRow("just the size") << QSizeF(360, 360) << QSize(360, 360);
    QTest::newRow("a little larger") << QSizeF(361, 180) << QSize(360, 180);
    QTest::newRow("rounded up") << QSizeF(720, 501) << QSize(360, 251);
    QTest::newRow("one pixel") << QSizeF(1, 1) << QSize(1, 1);
    QTest::newRow("too thin") << QSizeF(0.5, 100) << QSize();
    QTest::newRow("too flat") << QSizeF(100, 0.5) << QSize();
    QTest::newRow("nothing") << QSizeF(-1, -1) << QSize();
}

void PLCoverPictureTest::thumbnailsAreShrunkAndNeverEnlarged()
{
    QFETCH(QSizeF, picture);
    QFETCH(QSize, thumbnail);
    QCOMPARE(PLThumbnailSize(picture, 360), thumbnail);
}

void PLCoverPictureTest::everyFormatIsRead_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char *format : {"jpeg", "png", "gif", "tiff", "bmp"})
        QTest::newRow(format) << QByteArray(format);
}

void PLCoverPictureTest::everyFormatIsRead()
{
    QFETCH(QByteArray, format);
    if (!QImageReader::supportedImageFormats().contains(format))
        QSKIP("the toolkit's plugin for this format is not installed");
    const QImage drawn = PLTestPicture::drawn({800, 400});
    QVERIFY(PLMakeFile(path(),
                       format == "gif" ? PLTestPicture::animation() : PLTestPicture::encoded(drawn, format)));
    const QImage read = PLReadCoverPicture(path(), 360);
    QCOMPARE(read.size(), format == "gif" ? QSize(2, 1) : QSize(360, 180));
}

void PLCoverPictureTest::whatIsInTheFileDecidesAndNotItsName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("a JPEG named .png") << u"couverture.png"_s << QByteArray("jpeg");
    QTest::newRow("a PNG named .jpg") << u"couverture.jpg"_s << QByteArray("png");
    QTest::newRow("a BMP named .gif") << u"couverture.gif"_s << QByteArray("bmp");
    QTest::newRow("a PNG without a name") << u"couverture"_s << QByteArray("png");
}

void PLCoverPictureTest::whatIsInTheFileDecidesAndNotItsName()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, format);
    QVERIFY(PLMakeFile(path(name), PLTestPicture::encoded(PLTestPicture::drawn({40, 20}), format)));
    QCOMPARE(PLReadCoverPicture(path(name), 360).size(), QSize(40, 20));
}

void PLCoverPictureTest::theFirstFrameOfAnAnimationIsShown()
{
    QVERIFY(PLMakeFile(path(), PLTestPicture::animation()));
    const QImage read = PLReadCoverPicture(path(), 360);
    QCOMPARE(read.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(read.pixelColor(1, 0), QColor(Qt::red));
}

void PLCoverPictureTest::picturesAreTurnedUpright_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("redCorner"); // the upper left one as stored; from 0 to 1
    QTest::newRow("as it is") << 1 << QSize(360, 180) << QPoint(0, 0);
    QTest::newRow("upside down") << 3 << QSize(360, 180) << QPoint(1, 1);
    QTest::newRow("turned to the left") << 6 << QSize(180, 360) << QPoint(1, 0);
    QTest::newRow("turned to the right") << 8 << QSize(180, 360) << QPoint(0, 1);
    QTest::newRow("mirrored") << 2 << QSize(360, 180) << QPoint(1, 0);
}

void PLCoverPictureTest::picturesAreTurnedUpright()
{
    QFETCH(int, orientation);
    QFETCH(QSize, size);
    QFETCH(QPoint, redCorner);
    QVERIFY(PLMakeFile(path(), PLTestPicture::photograph({800, 400}, orientation)));
    const QImage read = PLReadCoverPicture(path(), 360);
    QCOMPARE(read.size(), size);
    const QPoint corner(redCorner.x() * (size.width() - 1), redCorner.y() * (size.height() - 1));
    QVERIFY(read.pixelColor(corner).red() > 200 && read.pixelColor(corner).green() < 60);
}

void PLCoverPictureTest::transparencyIsKept()
{
    QImage glass(800, 800, QImage::Format_ARGB32);
    glass.fill(QColor(10, 20, 30, 128));
    QVERIFY(PLMakeFile(path(), PLTestPicture::encoded(glass, "png")));
    const QImage read = PLReadCoverPicture(path(), 360);
    QCOMPARE(read.pixelColor(180, 180).alpha(), 128);
}

void PLCoverPictureTest::shrinkingBlendsThePixels_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char *format : {"jpeg", "png", "bmp"})
        QTest::newRow(format) << QByteArray(format);
}

/// A chess board of single pixels is grey from afar; taking some pixels and leaving others would give black,
/// white or stripes.
void PLCoverPictureTest::shrinkingBlendsThePixels()
{
    QFETCH(QByteArray, format);
    QImage board(1440, 1440, QImage::Format_RGB32);
    for (int y = 0; y < board.height(); ++y) {
        for (int x = 0; x < board.width(); ++x)
            board.setPixel(x, y, (x + y) % 2 == 0 ? 0xFF000000 : 0xFFFFFFFF);
    }
    QVERIFY(PLMakeFile(path(), PLTestPicture::encoded(board, format)));
    const QImage read = PLReadCoverPicture(path(), 360);
    QCOMPARE(read.size(), QSize(360, 360));
    for (const QPoint &point : {QPoint(10, 10), QPoint(180, 181), QPoint(333, 20)})
        QVERIFY(qAbs(qGray(read.pixel(point)) - 127) < 12);
}

void PLCoverPictureTest::picturesThatAreCutShortAreNotShown_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char *format : {"jpeg", "png", "gif", "bmp", "tiff"})
        QTest::newRow(format) << QByteArray(format);
}

void PLCoverPictureTest::picturesThatAreCutShortAreNotShown()
{
    QFETCH(QByteArray, format);
    if (!QImageReader::supportedImageFormats().contains(format))
        QSKIP("the toolkit's plugin for this format is not installed");
    const QByteArray whole = format == "gif"
                                 ? PLTestPicture::animation()
                                 : PLTestPicture::encoded(PLTestPicture::noise({600, 400}), format);
    const qsizetype firstFrame = format == "gif" ? PLTestPicture::firstFrameSize : whole.size();
    for (const qsizetype size : {qsizetype(0), qsizetype(1), qsizetype(4), qsizetype(20), firstFrame / 3,
                                 firstFrame / 2, firstFrame - 16}) {
        QVERIFY(PLMakeFile(path(), whole.first(qMax<qsizetype>(0, size))));
        QVERIFY2(PLReadCoverPicture(path(), 360).isNull(), qPrintable(QString::number(size)));
    }
}

void PLCoverPictureTest::whatFollowsThePictureDoesNotMatter_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char *format : {"jpeg", "png", "bmp"})
        QTest::newRow(format) << QByteArray(format);
}

void PLCoverPictureTest::whatFollowsThePictureDoesNotMatter()
{
    QFETCH(QByteArray, format);
    for (int size = 0; size < 64; ++size) { // the end falls on every place in the reader's buffer
        const QByteArray picture = PLTestPicture::encoded(PLTestPicture::noise({100 + size, 60}), format);
        QVERIFY(PLMakeFile(path(), picture));
        QVERIFY(!PLReadCoverPicture(path(), 360).isNull());
        QVERIFY(PLMakeFile(path(), picture + QByteArray(size, '\0')));
        QVERIFY(!PLReadCoverPicture(path(), 360).isNull());
    }
}

void PLCoverPictureTest::whatIsNoPictureIsNotShown_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("# Chapitre 1\n");
    QTest::newRow("a format not taken, that can fetch files")
        << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\">"
                      "<image href=\"/etc/hostname\"/></svg>");
    QTest::newRow("another format not taken") << QByteArray("P6 2 1 255\nabcdef");
    QTest::newRow("the start of a PNG") << QByteArray("\x89PNG\r\n\x1A\n");
    QTest::newRow("zeros") << QByteArray(100'000, '\0');
}

void PLCoverPictureTest::whatIsNoPictureIsNotShown()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(PLMakeFile(path(), bytes));
    QVERIFY(PLReadCoverPicture(path(), 360).isNull());
}

void PLCoverPictureTest::whatIsNotAFileIsNotWaitedFor_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("nothing") << u"nothing"_s;
    QTest::newRow("a folder") << u"folder"_s;
    QTest::newRow("a pipe") << u"pipe"_s;
    QTest::newRow("a device without an end") << u"/dev/zero"_s;
    QTest::newRow("a loop of links") << u"couverture.png"_s;
}

void PLCoverPictureTest::whatIsNotAFileIsNotWaitedFor()
{
    QFETCH(QString, kind);
    if (kind == u"folder")
        QVERIFY(QDir().mkpath(path()));
    else if (kind == u"pipe")
        QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    else if (kind != u"nothing")
        QVERIFY(QFile::link(kind, path()));
    QVERIFY(PLReadCoverPicture(path(), 360).isNull());
}

void PLCoverPictureTest::aHugePictureInASmallFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("PNG") << PLTestPicture::blackPNG(30'000);
    QTest::newRow("JPEG") << PLTestPicture::withJPEGSize(
        PLTestPicture::encoded(PLTestPicture::drawn({16, 16}), "jpeg"), 30'000);
    QTest::newRow("GIF") << PLTestPicture::hugeAnimation(30'000);
    QTest::newRow("BMP") << PLTestPicture::hugeBMP(30'000);
}

void PLCoverPictureTest::aHugePictureInASmallFileIsRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(PLMakeFile(path(), bytes));
    QVERIFY(PLReadCoverPicture(path(), 360).isNull());
}

void PLCoverPictureTest::aLargePhotographIsReadSmall()
{
    QVERIFY(PLMakeFile(path(), PLTestPicture::photograph({4000, 3000}, 1)));
    QCOMPARE(PLReadCoverPicture(path(), 360).size(), QSize(360, 270));
}

void PLCoverPictureTest::veryLongPicturesHaveNoThumbnail()
{
    QVERIFY(PLMakeFile(path(), PLTestPicture::encoded(PLTestPicture::drawn({30'000, 1}), "png")));
    QVERIFY(PLReadCoverPicture(path(), 360).isNull());
}

QTEST_GUILESS_MAIN(PLCoverPictureTest)
#include "PLCoverPictureTest.moc"
