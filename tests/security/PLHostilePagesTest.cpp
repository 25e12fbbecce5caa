// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLEditorView.h"
#include "editor/PLLivePreview.h"
#include "editor/PLPageTextView.h"
#include "preview/PLHostileHTML.h"
#include "support/PLCanary.h"
#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QDesktopServices>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// What a link or a picture of a page can lead to. {server} and {folder} as in PLHostileHTML.h; RUN is a
/// script that would change the document's title.
constexpr const char16_t *targets[] = {
    u"javascript:RUN",
    u"JaVaScRiPt:RUN",
    u"java\u0001script:RUN",
    u"\u0001javascript:RUN",
    u"java\uFFFDscript:RUN",
    u"java&#9;script:RUN",
    u"javascript&#58;RUN",
    u"javascript&colon;RUN",
    u"&#106;avascript:RUN",
    u"java%73cript:RUN",
    u"javascript://{server}/%0aRUN",
    u"javascript:fetch`http://{server}/a`",
    u"javascript:location='http://{server}/a'",
    u"vbscript:RUN",
    u"livescript:RUN",
    u"data:text/html,<script>RUN</script>",
    u"data:text/html;base64,PHNjcmlwdD5kb2N1bWVudC50aXRsZT0nUlVOJzwvc2NyaXB0Pg==",
    u"DATA:image/svg+xml,<svg/onload=RUN>",
    u"data:text/css,@import'http://{server}/a'",
    u"file://{folder}/../dehors.png",
    u"FILE://{folder}/../dehors.png",
    u"file://localhost{folder}/../dehors.png",
    u"file://{server}/a.png",
    u"file:////{server}/a.png",
    u"{folder}/../dehors.png",
    u"../../dehors.png",
    u"%2e%2e/%2e%2e/dehors.png",
    u"..%2f..%2fdehors.png",
    u"..\\..\\dehors.png",
    u"../images/lien-dehors.png",
    u"../../secret.txt",
    u"//{server}/a.png",
    u"///{server}/a.png",
    u"\\\\{server}\\a.png",
    u"/\\{server}/a.png",
    u"http://{server}/a.png",
    u"HTTP://{server}/a.png",
    u"http:{server}/a.png",
    u"http:/\\{server}/a.png",
    u"http://x@{server}/a.png",
    u"https://{server}/a.png",
    u"ftp://{server}/a.png",
    u"ws://{server}/a",
    u"blob:http://{server}/a",
    u"filesystem:http://{server}/temporary/a.png",
    u"view-source:http://{server}/a",
    u"chrome://gpu/",
    u"devtools://devtools/bundled/inspector.html",
    u"about:blank",
    u"qrc:/a.png",
    u"qtwebchannel:a",
    u"intent://{server}/a",
    u"search-ms:query=a",
    u"tel:123",
    u"mailto:a@b.invalid?attach=/etc/passwd",
    u"?http://{server}/a",
    u"#http://{server}/a",
    u"http:///",
    u"http://[x",
    u"http://a:99999/",
    u"//[x",
    u"file://%/",
};

/// Each target in every place of the dialect that takes one, and where one rule works on what another has
/// made.
constexpr const char16_t *targetShapes[] = {u"[a](T)",
                                            u"![a](T)",
                                            u"[![a](T)](T)",
                                            u"![[a](T)](onerror=T)",
                                            u"![[a](T)](style=background:T)",
                                            u"[a](x[[b]](T)y)",
                                            u"[[a]](T)\n<T>\n"};

/// Each piece of HTML in every place of a page.
constexpr const char16_t *htmlShapes[] = {u"---\ntags: a, T\n---\n\n",
                                          u"T\n\n",
                                          u"# T\n\n",
                                          u"- T\n\n",
                                          u"1. T\n\n",
                                          u"> T\n\n",
                                          u"`T`\n\n",
                                          u"```\nT\n```\n\n",
                                          u"*T* **T** ~~T~~\n\n",
                                          u"[T](x) ![T](x) [[T]]\n\n",
                                          u"| T |\n|---|\n| T |\n\n"};

constexpr int perPage = 8; // a page takes the engine a tenth of a second

QString filled(const char16_t *shape, const QString &text)
{
    return QString::fromUtf16(shape).replace(u'T', text);
}

/// A text as a script's.
QString literal(const QString &text)
{
    const QByteArray json = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(json.sliced(1, json.size() - 2));
}

} // namespace

/// A page of a notebook that somebody has sent, as a writer sees it: loaded into the editor, rendered, shown
/// by the real engine, and each of its links clicked.
class PLHostilePagesTest final : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void handedToTheSystem(const QUrl &url) { m_handedToTheSystem.append(url); }

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void htmlInAPageIsText_data();
    void htmlInAPageIsText();
    void linksAndPicturesReachNothing_data();
    void linksAndPicturesReachNothing();
    void onlyTheWebAndMailAreHandedToTheSystem_data();
    void onlyTheWebAndMailAreHandedToTheSystem();
    void anUnguardedViewIsHeardOf();

private:
    QString address() const { return u"127.0.0.1:%1"_s.arg(m_server.serverPort()); }
    QString path(const QString &relative) const { return m_folder.filePath(relative); }
    QString page(const char16_t *shape, const QString &text) const
    {
        return PLFilledPayload(filled(shape, text), address(), path(u"Roman"_s))
            .replace(u"RUN"_s, u"document.title='RUN';1"_s);
    }
    QVariant evaluate(const QString &script) const;
    void show(const QString &text);
    QStringList whatHappened() const;
    void followEveryLink() const;
    void clickFirstLink() const;

    const QStringList m_schemes = {
        u"http"_s,         u"https"_s,      u"mailto"_s,    u"file"_s,       u"ftp"_s,   u"ws"_s,
        u"data"_s,         u"javascript"_s, u"vbscript"_s,  u"livescript"_s, u"blob"_s,  u"filesystem"_s,
        u"view-source"_s,  u"chrome"_s,     u"devtools"_s,  u"ms-word"_s,    u"about"_s, u"qrc"_s,
        u"qtwebchannel"_s, u"intent"_s,     u"search-ms"_s, u"tel"_s};

    PLTestEnvironment m_environment;
    QTemporaryDir m_folder;
    QTcpServer m_server;
    int m_connections = 0;
    int m_pages = 0;
    QList<QUrl> m_handedToTheSystem;
    std::unique_ptr<PLCanary> m_picture;
    std::unique_ptr<PLCanary> m_secret;
    std::unique_ptr<PLEditorView> m_editor;
    QWebEngineView *m_view = nullptr;
};

void PLHostilePagesTest::initTestCase()
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        ++m_connections;
        m_server.nextPendingConnection()->close();
    });
    QVERIFY(m_server.listen(QHostAddress::LocalHost));
    for (const QString &scheme : m_schemes)
        QDesktopServices::setUrlHandler(scheme, this, "handedToTheSystem");
    QVERIFY(QDir().mkpath(path(u"Roman/Livre"_s)) && QDir().mkpath(path(u"Roman/images"_s)));
    m_picture = std::make_unique<PLCanary>(path(u"dehors.png"_s));
    m_secret = std::make_unique<PLCanary>(path(u"secret.txt"_s));
    QVERIFY(QFile::link(path(u"dehors.png"_s), path(u"Roman/images/lien-dehors.png"_s)));

    m_editor = std::make_unique<PLEditorView>();
    m_editor->resize(900, 600);
    m_editor->setPreviewVisible(true);
    m_editor->show();
    QTRY_VERIFY_WITH_TIMEOUT(m_view = m_editor->findChild<QWebEngineView *>(), 30'000);
}

void PLHostilePagesTest::cleanupTestCase()
{
    m_editor.reset();
    for (const QString &scheme : m_schemes)
        QDesktopServices::unsetUrlHandler(scheme);
}

QVariant PLHostilePagesTest::evaluate(const QString &script) const
{
    const auto value = std::make_shared<std::optional<QVariant>>();
    m_view->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                                  [value](const QVariant &answer) { *value = answer; });
    return QTest::qWaitFor([value] { return value->has_value(); }, 30'000) ? **value : QVariant();
}

/// Opens a page as the sidebar does, then types into it, so that it is shown both ways.
void PLHostilePagesTest::show(const QString &text)
{
    m_connections = 0;
    m_handedToTheSystem.clear();
    const QUrl folder = QUrl::fromLocalFile(path(u"Roman/Livre/"_s));
    for (const auto &way : {u"ouverte"_s, u"changée"_s}) {
        const QString end = way + QString::number(++m_pages);
        if (way == u"ouverte")
            m_editor->setText(text + u"\n\n"_s + end, folder);
        else
            m_editor->textView()->textCursor().insertText(end + u' ');
        if (way == u"changée")
            m_editor->livePreview()->updatePreview(); // at once, not after a pause
        QTRY_VERIFY_WITH_TIMEOUT(evaluate(u"document.body?.textContent"_s).toString().contains(end), 30'000);
        evaluate(u"document.body.getBoundingClientRect().height"_s);
    }
}

/// What should not have; a line each.
QStringList PLHostilePagesTest::whatHappened() const
{
    QStringList events;
    if (m_connections > 0)
        events.append(u"%1 requests"_s.arg(m_connections));
    if (m_picture->wasOpened() || m_secret->wasOpened())
        events.append(u"a file outside of the notebook was read"_s);
    if (evaluate(u"document.title"_s).toString().contains(u"RUN"_s))
        events.append(u"a script ran"_s);
    // The engine shows an empty page for some links by itself; the preview then comes back.
    const QString hasContent = u"document.getElementById('contenu')?.children.length > 0"_s;
    if (!QTest::qWaitFor([&] { return evaluate(hasContent).toBool(); }, 10'000))
        events.append(u"the preview went elsewhere"_s);
    return events;
}

/// Each target's own link, not those that it makes in other places.
void PLHostilePagesTest::followEveryLink() const
{
    const QStringList links =
        evaluate(u"Array.from(document.links).filter(a => a.innerHTML === 'a').map(a => a.href)"_s)
            .toStringList();
    for (const QString &link : links)
        evaluate(u"Array.from(document.links).find(a => a.href === "_s + literal(link) + u")?.click()"_s);
}

/// With the mouse, as the writer does: the engine then lets through more than to a script. What it hears
/// comes in order, so that once it has heard of a move, no click is left for the page that comes next.
void PLHostilePagesTest::clickFirstLink() const
{
    evaluate(
        u"window.clicks = window.moves = 0;"
        "document.addEventListener('click', () => ++window.clicks);"
        "document.addEventListener('mousemove', e => window.moves += e.clientX === 3 && e.clientY === 2)"_s);
    QWidget *surface = m_view->findChildren<QWidget *>().constFirst();
    // A page that was blank has no such variable.
    const auto hasHeard = [this](const QString &what) {
        QTest::qWait(20);
        return evaluate(u"window."_s + what + u" !== 0"_s).toBool();
    };
    const auto click = [&] {
        const QVariantList place = evaluate(u"(r => [r.x + r.width / 2, r.y + r.height / 2])"
                                            "(document.links[0].getBoundingClientRect())"_s)
                                       .toList();
        if (place.size() == 2)
            QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(place[0].toInt(), place[1].toInt()));
        return hasHeard(u"clicks"_s);
    };
    const auto move = [&] {
        QTest::mouseMove(surface, QPoint(9, 9));
        QTest::mouseMove(surface, QPoint(3, 2));
        return hasHeard(u"moves"_s);
    };
    QVERIFY(QTest::qWaitFor(click, 30'000));
    QVERIFY(QTest::qWaitFor(move, 30'000));
}

void PLHostilePagesTest::htmlInAPageIsText_data()
{
    QTest::addColumn<int>("first");
    for (int first = 0; first < int(std::size(PLHostilePayloads)); first += perPage)
        QTest::addRow("from \"%s\" on", PLHostilePayloads[first].name) << first;
}

void PLHostilePagesTest::htmlInAPageIsText()
{
    QFETCH(const int, first);
    QString text;
    for (int index = first; index < qMin(first + perPage, int(std::size(PLHostilePayloads))); ++index) {
        for (const char16_t *shape : htmlShapes)
            text += page(shape, QString::fromUtf16(PLHostilePayloads[index].html));
    }
    show(u"---\ntags: a, <b>, <img/src=x/onerror=document.title='RUN'>\n---\n\n"_s + text);
    const QString known = u"p br h1 hr ul ol li pre code strong em del a span img blockquote"_s;
    QCOMPARE(evaluate(u"Array.from(document.querySelectorAll('#contenu *')).map(e => e.localName)"
                      ".filter(name => !'"_s +
                      known + u"'.split(' ').includes(name)).join(' ')"_s)
                 .toString(),
             QString());
    QTest::qWait(20);
    QCOMPARE(whatHappened(), QStringList());
    QCOMPARE(m_handedToTheSystem, QList<QUrl>());
}

void PLHostilePagesTest::linksAndPicturesReachNothing_data()
{
    QTest::addColumn<int>("first");
    for (int first = 0; first < int(std::size(targets)); first += perPage)
        QTest::addRow("from \"%s\" on", qPrintable(QString::fromUtf16(targets[first]))) << first;
}

void PLHostilePagesTest::linksAndPicturesReachNothing()
{
    QFETCH(const int, first);
    QString text;
    for (int index = first; index < qMin(first + perPage, int(std::size(targets))); ++index) {
        for (const char16_t *shape : targetShapes)
            text += page(shape, QString::fromUtf16(targets[index])) + u"\n\n"_s;
    }
    show(text);
    QTest::qWait(20);
    QCOMPARE(whatHappened(), QStringList());
    QCOMPARE(m_handedToTheSystem, QList<QUrl>());

    followEveryLink();
    QCOMPARE(whatHappened(), QStringList());
    for (const QUrl &url : std::as_const(m_handedToTheSystem))
        QVERIFY2(url.scheme().startsWith(u"http") || url.scheme() == u"mailto", qPrintable(url.toString()));
}

void PLHostilePagesTest::onlyTheWebAndMailAreHandedToTheSystem_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("url"); ///< as the system is given it; empty if it is not
    QTest::newRow("web") << u"http://exemple.invalid/a?b=1&c=2"_s << u"http://exemple.invalid/a?b=1&c=2"_s;
    QTest::newRow("capitals") << u"HTTPS://exemple.invalid/"_s << u"https://exemple.invalid/"_s;
    QTest::newRow("mail") << u"mailto:a@exemple.invalid"_s << u"mailto:a@exemple.invalid"_s;
    QTest::newRow("a command of the shell") << u"http://exemple.invalid/%60id%60;id|id&'id'$id"_s
                                            << u"http://exemple.invalid/%60id%60;id%7Cid&'id'$id"_s;
    QTest::newRow("quotes and spaces")
        << u"http://exemple.invalid/%22%20--option%27"_s << u"http://exemple.invalid/%22%20--option%27"_s;
    for (const char16_t *target :
         {u"autre.md", u"/etc/passwd", u"file:///etc/passwd", u"javascript:RUN", u"data:text/html,x",
          u"tel:123", u"search-ms:query=a", u"intent://x", u"ms-word:x", u"ftp://exemple.invalid/",
          u"about:blank", u"http:///", u"//exemple.invalid:1/a", u"chrome://gpu/"})
        QTest::newRow(qPrintable(QString::fromUtf16(target))) << QString::fromUtf16(target) << QString();
}

void PLHostilePagesTest::onlyTheWebAndMailAreHandedToTheSystem()
{
    QFETCH(const QString, target);
    QFETCH(const QString, url);
    show(page(u"[suite](T)", target));
    clickFirstLink();
    if (!url.isEmpty())
        QTRY_VERIFY_WITH_TIMEOUT(!m_handedToTheSystem.isEmpty(), 30'000);
    QCOMPARE(whatHappened(), QStringList());
    QStringList handed;
    for (const QUrl &address : std::as_const(m_handedToTheSystem))
        handed.append(address.toString(QUrl::FullyEncoded));
    handed.removeDuplicates(); // a slow machine may be clicked twice
    QCOMPARE(handed, url.isEmpty() ? QStringList() : QStringList{url});
}

/// What the other tests are worth: a view as the engine makes it asks the server, reads the file and runs the
/// script.
void PLHostilePagesTest::anUnguardedViewIsHeardOf()
{
    m_connections = 0;
    QWebEngineView unguarded;
    unguarded.setHtml(u"<img src='%1'><script>document.title='RUN'</script>"_s.arg(path(u"dehors.png"_s)),
                      QUrl::fromLocalFile(path(u"Roman/Livre/"_s)));
    QTRY_COMPARE_WITH_TIMEOUT(unguarded.title(), u"RUN"_s, 30'000);
    QVERIFY(QTest::qWaitFor([this] { return m_picture->wasOpened(); }, 30'000));
    unguarded.setHtml(u"<img src='http://%1/a.png'>"_s.arg(address()));
    QTRY_VERIFY_WITH_TIMEOUT(m_connections > 0, 30'000);
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    PLHostilePagesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "PLHostilePagesTest.moc"
