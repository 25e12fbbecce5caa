// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLHostileHTML.h"
#include "preview/PLPreviewBench.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QApplication>
#include <QDesktopServices>
#include <QImage>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class PLPreviewSecurityTest final : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void handedToTheSystem(const QUrl &url) { m_handedToTheSystem.append(url); }

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void nothingInAPageRunsOrIsFetched_data();
    void nothingInAPageRunsOrIsFetched();
    void anUnguardedViewIsHeardOf();
    void linksClickedFetchNothing_data();
    void linksClickedFetchNothing();
    void picturesOfTheNotebookAreShown_data();
    void picturesOfTheNotebookAreShown();

private:
    QString address() const { return u"127.0.0.1:%1"_s.arg(m_server.serverPort()); }
    QString path(const QString &relative) const { return m_folder.filePath(relative); }
    QUrl pageFolder() const { return QUrl::fromLocalFile(path(u"Roman/Livre/"_s)); }

    /// What the system would open; here it is this test.
    const QStringList m_schemes = {u"mailto"_s, u"http"_s, u"https"_s, u"file"_s, u"ftp"_s};

    PLTestEnvironment m_environment;
    QTemporaryDir m_folder;
    QTcpServer m_server;
    int m_connections = 0;
    QList<QUrl> m_handedToTheSystem;
};

void PLPreviewSecurityTest::initTestCase()
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        ++m_connections;
        m_server.nextPendingConnection()->close();
    });
    QVERIFY(m_server.listen(QHostAddress::LocalHost));
    for (const QString &scheme : m_schemes)
        QDesktopServices::setUrlHandler(scheme, this, "handedToTheSystem");
    QVERIFY(!QImage::fromData(PLPictureBytes()).isNull());
    for (const QString &name : {u"Roman/Livre/ici.png"_s, u"Roman/Livre/vue d'été #1.png"_s,
                                u"Roman/images/là.PNG"_s, u"Roman/images/texte.txt"_s, u"dehors.png"_s})
        QVERIFY(PLMakeFile(path(name), PLPictureBytes()));
    QVERIFY(PLMakeFile(path(u"secret.txt"_s), "secret"));
    QVERIFY(PLMakeFile(path(u"Roman/dessin.svg"_s),
                       "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"));
    QVERIFY(QFile::link(path(u"dehors.png"_s), path(u"Roman/images/lien-dehors.png"_s)));
    QVERIFY(QFile::link(path(u"Roman/Livre/ici.png"_s), path(u"Roman/images/lien-dedans.png"_s)));
}

void PLPreviewSecurityTest::cleanupTestCase()
{
    for (const QString &scheme : m_schemes)
        QDesktopServices::unsetUrlHandler(scheme);
}

void PLPreviewSecurityTest::nothingInAPageRunsOrIsFetched_data()
{
    QTest::addColumn<QString>("html");
    for (const PLHostileHTML &payload : PLHostilePayloads)
        QTest::newRow(payload.name) << QString::fromUtf16(payload.html);
}

/// Each payload three ways: as a document of its own, in the content of a document, and put in later.
void PLPreviewSecurityTest::nothingInAPageRunsOrIsFetched()
{
    QFETCH(QString, html);
    const QString filled = PLFilledPayload(html, address(), path(u"Roman"_s));
    m_connections = 0;
    m_handedToTheSystem.clear();
    PLPreviewBench bench;
    QSignalSpy clicked(bench.preview, &PLPreviewView::linkClicked);
    const auto settle = [&bench] {
        // Twice around: what a page does by itself it does when it is laid out, or right after.
        for (int turn = 0; turn < 2; ++turn)
            bench.evaluate(u"document.body.getBoundingClientRect().height"_s);
        QTest::qWait(30);
    };

    QVERIFY(bench.load(u"<!DOCTYPE html><html><head>"_s + filled + u"</head><body>"_s + filled +
                           u"<p>là</p></body></html>"_s,
                       pageFolder()));
    settle();
    QVERIFY(bench.evaluate(u"document.body.textContent"_s).toString().contains(u"là"_s));
    QVERIFY(bench.evaluate(u"document.title"_s).toString() != u"RUN"_s);

    // Without a folder of its own a page counts as remote itself, and may ask for more.
    QVERIFY(bench.load(bench.document(filled)));
    settle();
    bench.preview->replaceContent(filled + u"<p id='fin'>encore</p>"_s);
    QTRY_VERIFY_WITH_TIMEOUT(bench.evaluate(u"document.getElementById('fin') !== null"_s).toBool(), 30'000);
    settle();
    QVERIFY(bench.evaluate(u"document.title"_s).toString() != u"RUN"_s);
    QCOMPARE(m_connections, 0);
    QCOMPARE(m_handedToTheSystem, QList<QUrl>());
    QCOMPARE(clicked.count(), 0);
}

/// What these tests are worth: a view as the engine makes it does ask the server.
void PLPreviewSecurityTest::anUnguardedViewIsHeardOf()
{
    m_connections = 0;
    QWebEngineView unguarded;
    unguarded.setHtml(u"<img src='http://%1/a.png'>"_s.arg(address()));
    QTRY_VERIFY_WITH_TIMEOUT(m_connections > 0, 30'000);
}

void PLPreviewSecurityTest::linksClickedFetchNothing_data()
{
    QTest::addColumn<QString>("html");
    QTest::newRow("link") << u"<a href='http://{server}/a'>"_s;
    QTest::newRow("ping") << u"<a href='https://exemple.invalid/' ping='http://{server}/ping'>"_s;
    QTest::newRow("download") << u"<a href='http://{server}/a' download='a.exe'>"_s;
    QTest::newRow("new window") << u"<a href='http://{server}/a' target='_blank' rel='opener'>"_s;
    QTest::newRow("script") << u"<a href=\"javascript:document.title='RUN'\">"_s;
    QTest::newRow("data") << u"<a href='data:text/html,<title>RUN</title>'>"_s;
    QTest::newRow("file") << u"<a href='file://{folder}/../secret.txt'>"_s;
    QTest::newRow("button of a form") << u"<form action='http://{server}/a'><button style='all:unset'>"_s;
}

void PLPreviewSecurityTest::linksClickedFetchNothing()
{
    QFETCH(QString, html);
    m_connections = 0;
    m_handedToTheSystem.clear();
    PLPreviewBench bench;
    const QString content = PLFilledPayload(html, address(), path(u"Roman"_s)) +
                            u"<span style='display:block;width:900px;height:200px'>ici</span>"_s;
    QVERIFY(bench.load(bench.document(content), pageFolder()));
    bench.evaluate(u"window.clicks = 0; document.addEventListener('click', () => ++window.clicks)"_s);
    for (int attempt = 0; attempt < 200 && bench.evaluate(u"window.clicks"_s).toInt() == 0; ++attempt) {
        QTest::mouseClick(bench.surface(), Qt::LeftButton, {}, QPoint(60, 60));
        QTest::qWait(20);
    }
    QVERIFY(bench.evaluate(u"window.clicks"_s).toInt() > 0);
    QTest::qWait(100);
    QVERIFY(bench.evaluate(u"document.getElementById('contenu') !== null"_s).toBool());
    QVERIFY(bench.evaluate(u"document.title"_s).toString() != u"RUN"_s);
    QCOMPARE(m_connections, 0);
    QCOMPARE(m_handedToTheSystem, QList<QUrl>()); // only the editor hands links on
}

void PLPreviewSecurityTest::picturesOfTheNotebookAreShown_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("beside the page") << u"ici.png"_s << true;
    QTest::newRow("strange name") << u"vue%20d%27%C3%A9t%C3%A9%20%231.png"_s << true;
    QTest::newRow("elsewhere in the notebook") << u"../images/l%C3%A0.PNG"_s << true;
    QTest::newRow("drawing") << u"../dessin.svg"_s << true;
    QTest::newRow("link within") << u"../images/lien-dedans.png"_s << true;
    QTest::newRow("missing") << u"rien.png"_s << false;
    QTest::newRow("no extension of a picture") << u"../images/texte.txt"_s << false;
    QTest::newRow("outside") << u"../../dehors.png"_s << false;
    QTest::newRow("outside by its full name") << u"file://{folder}/../dehors.png"_s << false;
    QTest::newRow("link to the outside") << u"../images/lien-dehors.png"_s << false;
}

void PLPreviewSecurityTest::picturesOfTheNotebookAreShown()
{
    QFETCH(QString, source);
    PLPreviewBench bench;
    const QString image = u"<img src=\"%1\">"_s.arg(PLFilledPayload(source, address(), path(u"Roman"_s)));
    QVERIFY(bench.load(bench.document(image), pageFolder()));
    QTRY_VERIFY_WITH_TIMEOUT(bench.evaluate(u"document.images[0].complete"_s).toBool(), 30'000);
    QTEST(bench.evaluate(u"document.images[0].naturalWidth > 0"_s).toBool(), "isShown");
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    PLPreviewSecurityTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "PLPreviewSecurityTest.moc"
