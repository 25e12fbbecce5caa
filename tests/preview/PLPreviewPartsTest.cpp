// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewDocument.h"
#include "preview/PLPreviewImages.h"
#include "preview/PLPreviewScripts.h"
#include "support/PLTestFiles.h"

#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <cmath>
#include <limits>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// The parts of the preview that need no engine.
class PLPreviewPartsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDocumentIsTakenApart_data();
    void aDocumentIsTakenApart();
    void aTextIsOneToken();
    void theScrollScriptHasFourDecimals_data();
    void theScrollScriptHasFourDecimals();
    void anImageIsAFileOfTheNotebook_data();
    void anImageIsAFileOfTheNotebook();
    void aPipeIsNoImage();
    void theWholeDiskIsNoNotebook();
};

void PLPreviewPartsTest::aDocumentIsTakenApart_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("content");
    const QString head = u"<html><body><div id=\"contenu\">"_s;
    const QString tail = u"</div></body></html>"_s;
    QTest::newRow("content") << head + u"<p>é</p>"_s + tail << head + tail << u"<p>é</p>"_s;
    QTest::newRow("no content") << head + tail << head + tail << u""_s;
    QTest::newRow("content like the frame") << head + tail + head + tail << head + tail << tail + head;
    QTest::newRow("no element") << u"<p>x</p>"_s << u"<p>x</p>"_s << QString();
    QTest::newRow("no end") << head + u"x"_s << head + u"x"_s << QString();
    QTest::newRow("end before the element") << tail + head << tail + head << QString();
    QTest::newRow("nothing") << u""_s << u""_s << QString();
}

void PLPreviewPartsTest::aDocumentIsTakenApart()
{
    QFETCH(QString, html);
    QFETCH(QString, content);
    const PLPreviewDocument document = PLPreviewDocument::fromHTML(html);
    QTEST(document.frame, "frame");
    QCOMPARE(document.content, content);
    QCOMPARE(document.content.isNull(), content.isNull());
}

void PLPreviewPartsTest::aTextIsOneToken()
{
    const QString text = u"é\"\\\n\r\t</script><!--\u2028\u2029\U0001F600"_s + QChar(0xd800) + QChar(u'\0');
    QCOMPARE(PLScriptLiteral(text),
             u"\"é\\u0022\\u005c\\u000a\\u000d\\u0009\\u003c/script>\\u003c!--\\u2028\\u2029"
             "\\ud83d\\ude00\\ud800\\u0000\""_s);
    QCOMPARE(PLScriptLiteral(QString()), u"\"\""_s);
}

void PLPreviewPartsTest::theScrollScriptHasFourDecimals_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QString>("number");
    QTest::newRow("top") << 0.0 << u"0.0000"_s;
    QTest::newRow("below zero") << -0.00001 << u"0.0000"_s;
    QTest::newRow("a third") << 1.0 / 3 << u"0.3333"_s;
    QTest::newRow("rounded up") << 0.99996 << u"1.0000"_s;
    QTest::newRow("bottom") << 1.0 << u"1.0000"_s;
    QTest::newRow("beyond") << std::numeric_limits<double>::infinity() << u"1.0000"_s;
    QTest::newRow("no number") << std::nan("") << u"0.0000"_s;
}

void PLPreviewPartsTest::theScrollScriptHasFourDecimals()
{
    QFETCH(double, ratio);
    QFETCH(QString, number);
    QLocale::setDefault(QLocale(QLocale::French)); // whose decimals follow a comma
    QCOMPARE(PLScrollScript(ratio),
             u"window.scrollTo(0, %1 * (document.body.scrollHeight - window.innerHeight));"_s.arg(number));
}

void PLPreviewPartsTest::anImageIsAFileOfTheNotebook_data()
{
    QTest::addColumn<QString>("image");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("in the folder") << u"file://{root}/Roman/Livre/a.png"_s << true;
    QTest::newRow("in the notebook") << u"file://{root}/Roman/b.JPG"_s << true;
    QTest::newRow("up and down") << u"file://{root}/Roman/Livre/../../Roman/b.JPG"_s << true;
    QTest::newRow("with a query") << u"file://{root}/Roman/b.JPG?x#y"_s << true;
    QTest::newRow("a neighbour of a like name") << u"file://{root}/Roman 2/c.png"_s << false;
    QTest::newRow("outside") << u"file://{root}/c.png"_s << false;
    QTest::newRow("up and out") << u"file://{root}/Roman/Livre/../../c.png"_s << false;
    QTest::newRow("a page") << u"file://{root}/Roman/Livre/01 - A.md"_s << false;
    QTest::newRow("a link of a picture's name to a page") << u"file://{root}/Roman/page.png"_s << false;
    QTest::newRow("a folder") << u"file://{root}/Roman/dossier.png"_s << false;
    QTest::newRow("missing") << u"file://{root}/Roman/z.png"_s << false;
    QTest::newRow("on another machine") << u"file://serveur{root}/Roman/b.JPG"_s << false;
    QTest::newRow("remote") << u"http://exemple.invalid/Roman/b.JPG"_s << false;
    QTest::newRow("no address") << u""_s << false;
}

void PLPreviewPartsTest::anImageIsAFileOfTheNotebook()
{
    QFETCH(QString, image);
    QTemporaryDir folder;
    const QString root = folder.path();
    for (const QString &name : {u"Roman/Livre/a.png"_s, u"Roman/b.JPG"_s, u"Roman 2/c.png"_s, u"c.png"_s,
                                u"Roman/Livre/01 - A.md"_s, u"Roman/dossier.png/d.txt"_s})
        QVERIFY(PLMakeFile(root + u'/' + name, "x"));
    QVERIFY(QFile::link(root + u"/Roman/Livre/01 - A.md"_s, root + u"/Roman/page.png"_s));
    const QUrl url(QString(image).replace(u"{root}"_s, root));
    for (const QString &base : {root + u"/Roman/Livre/"_s, root + u"/Roman/Livre"_s})
        QTEST(PLPreviewMayShowImage(url, QUrl::fromLocalFile(base)), "isShown");
    QVERIFY(!PLPreviewMayShowImage(url, QUrl()));
}

void PLPreviewPartsTest::aPipeIsNoImage()
{
    QTemporaryDir folder;
    QVERIFY(PLMakeFile(folder.filePath(u"Roman/Livre/a.png"_s)));
    const QString pipe = folder.filePath(u"Roman/Livre/pipe.png"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(!PLPreviewMayShowImage(QUrl::fromLocalFile(pipe),
                                   QUrl::fromLocalFile(folder.filePath(u"Roman/Livre/"_s))));
}

void PLPreviewPartsTest::theWholeDiskIsNoNotebook()
{
    QTemporaryDir folder;
    const QString image = folder.filePath(u"a.png"_s);
    QVERIFY(PLMakeFile(image));
    for (const QString &base : {u"/"_s, u"/usr/"_s})
        QVERIFY(!PLPreviewMayShowImage(QUrl::fromLocalFile(image), QUrl::fromLocalFile(base)));
}

QTEST_GUILESS_MAIN(PLPreviewPartsTest)
#include "PLPreviewPartsTest.moc"
