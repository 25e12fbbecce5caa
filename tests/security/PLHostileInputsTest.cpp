// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAlertScript.h"
#include "app/PLAppDelegate.h"
#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "editor/PLTagField.h"
#include "library/PLLibraryWindowController.h"
#include "library/PLShelfView.h"
#include "notebook_window/PLPageCommands.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLProjectWindowController.h"
#include "preview/PLHostileHTML.h"
#include "storage/PLProject.h"
#include "storage/PLRecentProjects.h"
#include "support/PLCanary.h"
#include "support/PLTestEnvironment.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// What comes in by other ways than a key: requests of other starts, pasted and dropped things, links on the
/// disk; and what goes out to other programs. The current folder holds a picture that nobody may open.
class PLHostileInputsTest final : public QObject
{
    Q_OBJECT

private:
    const QString m_before = QDir::currentPath();
    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<PLCanary> m_canary;
    std::unique_ptr<PLAppDelegate> m_delegate;
    QTcpServer m_server;
    int m_connections = 0;
    QStringList m_tree;

    QString path(const QString &relative) const { return m_folder->filePath(relative); }
    QUrl url(const QString &relative) const { return QUrl::fromLocalFile(path(relative)); }
    /// Everything but the notebook.
    QStringList treeAround() const;
    PLProjectWindowController &openNotebook();
    QString hostileHTML() const;

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aRequestOpensFoldersAndNothingElse();
    void pastedHTMLReadsNothing();
    void droppedHTMLReadsNothing();
    void onlyPicturesOfThisMachineAreTakenForCovers_data();
    void onlyPicturesOfThisMachineAreTakenForCovers();
    void aCoverFromElsewhereIsRefused_data();
    void aCoverFromElsewhereIsRefused();
    void thePanelsDeleteNothing();
    void aPageThatIsALinkStaysOne();
    void aLinkToWhatIsNoFileIsNeverWritten_data();
    void aLinkToWhatIsNoFileIsNeverWritten();
};

QStringList PLHostileInputsTest::treeAround() const
{
    QStringList tree = PLTreeOf(m_folder->path());
    tree.removeIf([this](const QString &entry) { return entry.startsWith(path(u"Roman/"_s)); });
    return tree;
}

PLProjectWindowController &PLHostileInputsTest::openNotebook()
{
    if (!m_delegate->openFile(path(u"Roman"_s)))
        qFatal("the notebook does not open");
    return *m_delegate->projectWindows().front();
}

/// All of it, and what the toolkit's own HTML knows beyond.
QString PLHostileInputsTest::hostileHTML() const
{
    QString html;
    for (const PLHostileHTML &payload : PLHostilePayloads)
        html += QString::fromUtf16(payload.html);
    html +=
        u"<link rel='stylesheet' type='text/css' href='canary.png'><style>@import 'canary.png';</style>"
        "<body background='canary.png'><p style='background-image: url(canary.png)'><img src='canary.png'>"
        "<img src='file://{folder}/canary.png'><ul style='list-style-image: url(canary.png)'><li>x</ul>"
        "<table background='canary.png'><tr><td>fin</td></tr></table>"_s;
    return PLFilledPayload(html, u"127.0.0.1:%1"_s.arg(m_server.serverPort()), m_folder->path());
}

void PLHostileInputsTest::initTestCase()
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        ++m_connections;
        m_server.nextPendingConnection()->close();
    });
    QVERIFY(m_server.listen(QHostAddress::LocalHost));
}

void PLHostileInputsTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(PLMakeFile(path(u"Roman/projet.md"_s), "---\ntitre: Roman\n---\n"));
    QVERIFY(PLMakeFile(path(u"Roman/Livre/01 - A.md"_s), "texte\n"));
    QVERIFY(PLMakeFile(path(u"dehors/page.md"_s), "dehors\n"));
    QVERIFY(PLMakeFile(path(u"dehors/a.png"_s), PLPictureBytes()));
    m_canary = std::make_unique<PLCanary>(path(u"canary.png"_s));
    QVERIFY(QDir::setCurrent(m_folder->path()));
    m_connections = 0;
    m_tree = treeAround();
    (void)m_canary->wasOpened(); // the tree has been read
    m_delegate = std::make_unique<PLAppDelegate>();
}

void PLHostileInputsTest::cleanup()
{
    QVERIFY(QDir::setCurrent(m_before));
    m_delegate.reset();
    QCoreApplication::processEvents();
    QCOMPARE(m_connections, 0);
    QVERIFY(!m_canary->wasOpened());
}

void PLHostileInputsTest::aRequestOpensFoldersAndNothingElse()
{
    QCOMPARE(mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    m_tree = treeAround();
    (void)m_canary->wasOpened();
    const QStringList paths{u""_s,
                            path(u"canary.png"_s),
                            path(u"pipe"_s),
                            path(u"dehors/page.md"_s),
                            path(u"Roman/Livre/01 - A.md"_s),
                            u"/dev/zero"_s,
                            u"/proc/self/mem"_s,
                            u"http://127.0.0.1:%1/carnet"_s.arg(m_server.serverPort()),
                            u"javascript:1"_s,
                            u"$(touch canary)"_s,
                            u"`touch canary`"_s,
                            u"; touch canary"_s,
                            u"-rf"_s,
                            u"--help"_s,
                            path(u"Roman\0/../dehors"_s),
                            u"\n"_s,
                            QString(100'000, u'/'),
                            path(u"perdu"_s)};
    PLAlertScript alerts; // the answer that changes nothing
    m_delegate->applicationHandleRequest(paths, u"$(touch canary)\n\"'\0x"_s);
    QVERIFY(m_delegate->projectWindows().empty());
    QCOMPARE(alerts.count(), paths.size());
    QCOMPARE(treeAround(), m_tree);
    (void)m_canary->wasOpened();
    m_delegate->applicationHandleRequest({path(u"Roman/projet.md"_s)}, QString());
    QCOMPARE(m_delegate->projectWindows().size(), size_t(1));
}

void PLHostileInputsTest::pastedHTMLReadsNothing()
{
    PLEditorView &editor = *openNotebook().editorView();
    auto *data = new QMimeData;
    data->setHtml(hostileHTML());
    QGuiApplication::clipboard()->setMimeData(data);
    editor.textView()->selectAll();
    editor.textView()->paste();
    (void)editor.grab();
    QVERIFY2(editor.text().contains(u"fin"_s), qPrintable(editor.text()));
    QVERIFY(!editor.text().contains(u"canary.png"_s));
    editor.tagField()->performCommand(PLCommand::Paste, 0);
    QCOMPARE(editor.tags(), QStringList());
    QTest::qWait(50);
}

void PLHostileInputsTest::droppedHTMLReadsNothing()
{
    PLEditorView &editor = *openNotebook().editorView();
    editor.textView()->selectAll();
    QMimeData data;
    data.setHtml(hostileHTML());
    data.setUrls({url(u"canary.png"_s), QUrl(u"http://127.0.0.1:%1/a.png"_s.arg(m_server.serverPort()))});
    data.setText(u"un <b>mot</b>"_s);
    for (QWidget *target : {editor.textView()->viewport(), static_cast<QWidget *>(editor.tagField())}) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &enter);
        QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &drop);
    }
    (void)editor.grab();
    QVERIFY2(editor.text().contains(u"un <b>mot</b>"_s), qPrintable(editor.text()));
    QCOMPARE(editor.tags(), QStringList{u"un <b>mot</b>"_s});
    QTest::qWait(50);
}

void PLHostileInputsTest::onlyPicturesOfThisMachineAreTakenForCovers_data()
{
    QTest::addColumn<QUrl>("picture");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("web") << QUrl(u"http://127.0.0.1/a.png"_s) << false;
    QTest::newRow("share") << QUrl(u"smb://exemple.invalid/a.png"_s) << false;
    QTest::newRow("script") << QUrl(u"javascript:a.png"_s) << false;
    QTest::newRow("data") << QUrl(u"data:image/png;base64,AAAA.png"_s) << false;
    QTest::newRow("another machine") << QUrl(u"file://exemple.invalid/a.png"_s) << false;
    QTest::newRow("relative") << QUrl(u"dehors/a.png"_s) << false;
    QTest::newRow("a page") << QUrl(u"file:///dehors/page.md"_s) << false;
    QTest::newRow("a device") << QUrl(u"file:///dev/zero"_s) << false;
    QTest::newRow("here") << QUrl() << true;
}

void PLHostileInputsTest::onlyPicturesOfThisMachineAreTakenForCovers()
{
    QFETCH(QUrl, picture);
    QFETCH(bool, isTaken);
    if (isTaken)
        picture = url(u"dehors/a.png"_s);
    PLRecentProjects::addURL(url(u"Roman"_s));
    m_delegate->showLibrary();
    PLShelfView *shelf = m_delegate->library()->shelfView();
    QVERIFY(QTest::qWaitForWindowExposed(m_delegate->library()->window()));
    QMimeData data;
    data.setUrls({picture});
    const QPoint book = shelf->rectForBookAtIndex(0).center();
    QDragEnterEvent enter(book, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(shelf, &enter);
    QDragMoveEvent move(book, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(shelf, &move);
    QDropEvent drop(book, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(shelf, &drop);
    QCOMPARE(drop.isAccepted(), isTaken);
    QCOMPARE(QFileInfo::exists(path(u"Roman/couverture.png"_s)), isTaken);
}

void PLHostileInputsTest::aCoverFromElsewhereIsRefused_data()
{
    QTest::addColumn<QUrl>("picture");
    QTest::newRow("web") << QUrl(u"http://127.0.0.1/a.png"_s);
    QTest::newRow("data") << QUrl(u"data:image/png,a.png"_s);
    QTest::newRow("nothing") << QUrl();
    QTest::newRow("a device") << QUrl(u"file:///dev/zero"_s);
    QTest::newRow("a pipe named as a picture") << QUrl(u"pipe.png"_s); // made below
}

void PLHostileInputsTest::aCoverFromElsewhereIsRefused()
{
    QFETCH(QUrl, picture);
    if (picture.path() == u"pipe.png") {
        picture = url(u"pipe.png"_s);
        QCOMPARE(mkfifo(QFile::encodeName(path(u"pipe.png"_s)).constData(), 0600), 0);
    }
    PLError error;
    QVERIFY(!PLProject::setCoverImageFromURL(picture, url(u"Roman"_s), &error));
    QVERIFY(!error.message.isEmpty());
    QCOMPARE(PLNamesIn(path(u"Roman"_s)), QStringList({u"Livre"_s, u"projet.md"_s}));
}

/// The toolkit's own would, past the trash; and its question reads a file's name as HTML.
void PLHostileInputsTest::thePanelsDeleteNothing()
{
    PLRecentProjects::addURL(url(u"Roman"_s));
    m_delegate->showLibrary();
    const auto pressDelete = [this](const std::function<void()> &ask) {
        int pressed = 0;
        QTimer::singleShot(0, this, [this, &pressed] {
            auto *panel = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (!panel)
                return;
            panel->setDirectory(m_folder->path());
            auto *list = panel->findChild<QAbstractItemView *>(u"listView"_s);
            const auto hasRows = [list] { return list->model()->rowCount(list->rootIndex()) > 0; };
            // One that may delete would ask, and wait.
            if (panel->testOption(QFileDialog::ReadOnly) && QTest::qWaitFor(hasRows)) {
                list->setCurrentIndex(list->model()->index(0, 0, list->rootIndex()));
                pressed = list->selectionModel()->hasSelection() ? 1 : 0;
                QTest::keyClick(list, Qt::Key_Delete);
            }
            panel->reject();
        });
        ask();
        return pressed;
    };
    QVERIFY(pressDelete([this] { m_delegate->openProject(); }) > 0);
    QVERIFY(pressDelete([this] { m_delegate->library()->chooseCover(); }) > 0);
    QCOMPARE(treeAround(), m_tree);
    (void)m_canary->wasOpened();
}

/// A writer may keep a page elsewhere and link to it; what a link leads to changes only when the page is
/// changed.
void PLHostileInputsTest::aPageThatIsALinkStaysOne()
{
    const QString link = path(u"Roman/Livre/01 - A.md"_s);
    QVERIFY(QFile::remove(link) && QFile::link(path(u"dehors/page.md"_s), link));
    PLProjectWindowController &window = openNotebook();
    QCOMPARE(window.editorView()->text(), u"dehors\n"_s);
    window.saveCurrentItem();
    window.pageCommands().endTitleEditing(window.session().currentItem(), u"B"_s);
    QCOMPARE(PLBytesOf(path(u"dehors/page.md"_s)), QByteArray("dehors\n"));

    QTest::keyClicks(window.editorView()->textView(), u"x"_s);
    QVERIFY(window.saveCurrentItem());
    QCOMPARE(PLBytesOf(path(u"dehors/page.md"_s)), QByteArray("xdehors\n"));
    QVERIFY(QFileInfo(path(u"Roman/Livre/01 - B.md"_s)).isSymLink());

    qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"data"_s)));
    QVERIFY(window.project().trashItem(*window.session().currentItem()));
    QCOMPARE(PLNamesIn(path(u"Roman/Livre"_s)), QStringList());
    QCOMPARE(PLBytesOf(path(u"dehors/page.md"_s)), QByteArray("xdehors\n"));
}

void PLHostileInputsTest::aLinkToWhatIsNoFileIsNeverWritten_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("a folder") << u"dehors"_s;
    QTest::newRow("a device") << u"/dev/null"_s;
    QTest::newRow("an endless device") << u"/dev/zero"_s;
    QTest::newRow("a pipe") << u"pipe"_s;
    QTest::newRow("itself") << u"Roman/Livre/01 - A.md"_s;
}

void PLHostileInputsTest::aLinkToWhatIsNoFileIsNeverWritten()
{
    QFETCH(const QString, target);
    const QString link = path(u"Roman/Livre/01 - A.md"_s);
    QVERIFY(QFile::remove(link) && QFile::link(target.startsWith(u'/') ? target : path(target), link));
    QCOMPARE(mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    m_tree = treeAround();
    (void)m_canary->wasOpened();
    const PLAlertScript alerts;
    const auto project = PLProject::openProjectAtURL(url(u"Roman"_s));
    QVERIFY(project);
    const auto item = PLProjectItem::itemWithURL(QUrl::fromLocalFile(link), PLSection::Book);
    QVERIFY(item->readContents().isNull());
    QVERIFY(!item->writeContents(u"x"_s));
    QCOMPARE(treeAround(), m_tree);
    (void)m_canary->wasOpened();
    QVERIFY(QFileInfo(link).isSymLink());
}

QTEST_MAIN(PLHostileInputsTest)
#include "PLHostileInputsTest.moc"
