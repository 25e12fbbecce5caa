// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLCoverThumbnails.h"

#include "library/PLTestPicture.h"
#include "support/PLTestFiles.h"

#include <QDateTime>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

class PLCoverThumbnailsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theKeyIsThePathAndTheDate();
    void aMissingFileHasTheReferenceDate();
    void aThumbnailIsReadOnceAndKept();
    void aPictureThatHasChangedIsReadAnew();
    void whatCannotBeReadIsNotKept();
    void aFineScreenGetsFinerThumbnails();

private:
    QUrl url() const { return QUrl::fromLocalFile(m_folder->filePath(u"couverture.png"_s)); }
    bool make(const QSize &size, const QDateTime &date) const
    {
        QFile file(url().toLocalFile());
        return PLMakeFile(file.fileName(), PLTestPicture::encoded(PLTestPicture::drawn(size), "png")) &&
               file.open(QIODevice::ReadWrite) && file.setFileTime(date, QFileDevice::FileModificationTime);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLCoverThumbnailsTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void PLCoverThumbnailsTest::theKeyIsThePathAndTheDate()
{
    QVERIFY(make({4, 4}, QDateTime({2001, 1, 2}, {0, 0, 1, 250}, Qt::UTC)));
    QCOMPARE(PLCoverThumbnails::keyForImageAtURL(url()), url().toLocalFile() + u"|86401.250000"_s);
}

void PLCoverThumbnailsTest::aMissingFileHasTheReferenceDate()
{
    QCOMPARE(PLCoverThumbnails::keyForImageAtURL(url()), url().toLocalFile() + u"|0.000000"_s);
}

void PLCoverThumbnailsTest::aThumbnailIsReadOnceAndKept()
{
    const QDateTime date({2024, 3, 1}, {12, 0}, Qt::UTC);
    QVERIFY(make({4000, 1000}, date));
    PLCoverThumbnails thumbnails;
    QVERIFY(thumbnails.knownThumbnailForImageAtURL(url()).isNull());
    const QImage first = thumbnails.thumbnailForImageAtURL(url());
    QCOMPARE(first.size(), QSize(360, 90));
    // Something else under the same key is not looked at.
    QVERIFY(make({200, 100}, date));
    QCOMPARE(thumbnails.thumbnailForImageAtURL(url()).cacheKey(), first.cacheKey());
    QCOMPARE(thumbnails.knownThumbnailForImageAtURL(url()).cacheKey(), first.cacheKey());
    QCOMPARE(thumbnails.count(), 1);
}

void PLCoverThumbnailsTest::aPictureThatHasChangedIsReadAnew()
{
    QVERIFY(make({4000, 1000}, QDateTime({2024, 3, 1}, {12, 0}, Qt::UTC)));
    PLCoverThumbnails thumbnails;
    QCOMPARE(thumbnails.thumbnailForImageAtURL(url()).size(), QSize(360, 90));
    QVERIFY(make({200, 100}, QDateTime({2024, 3, 1}, {12, 0, 0, 1}, Qt::UTC)));
    QVERIFY(thumbnails.knownThumbnailForImageAtURL(url()).isNull());
    QCOMPARE(thumbnails.thumbnailForImageAtURL(url()).size(), QSize(200, 100));
    QCOMPARE(thumbnails.count(), 2); // the old one is not dropped
}

void PLCoverThumbnailsTest::whatCannotBeReadIsNotKept()
{
    QVERIFY(PLMakeFile(url().toLocalFile(), "not a picture"));
    PLCoverThumbnails thumbnails;
    QVERIFY(thumbnails.thumbnailForImageAtURL(url()).isNull());
    QCOMPARE(thumbnails.count(), 0);
    QVERIFY(make({200, 100}, QFileInfo(url().toLocalFile()).lastModified()));
    QVERIFY(!thumbnails.thumbnailForImageAtURL(url()).isNull());
}

void PLCoverThumbnailsTest::aFineScreenGetsFinerThumbnails()
{
    QVERIFY(make({4000, 1000}, QDateTime::currentDateTime()));
    PLCoverThumbnails thumbnails(1.5);
    QCOMPARE(thumbnails.thumbnailForImageAtURL(url()).size(), QSize(540, 135));
}

QTEST_GUILESS_MAIN(PLCoverThumbnailsTest)
#include "PLCoverThumbnailsTest.moc"
