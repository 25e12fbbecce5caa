// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"
#include "app/PLWindowList.h"
#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "editor/PLTagField.h"
#include "library/PLLibraryWindowController.h"
#include "notebook_window/PLProjectWindowController.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarView.h"
#include "platform/PLNewFolderPanel.h"
#include "storage/PLRecentProjects.h"
#include "support/PLCanary.h"
#include "support/PLTestEnvironment.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// What a notebook that somebody has sent may call things: HTML, a mnemonic, the placeholders of two ways to
/// format, a command of the shell. The picture lies in the current folder.
const QString hostile = u"<img src=canary.png> &File %1 %2 %@ %ld $(id)"_s;
const QString mark = u"canary.png"_s;

/// What the walk over all widgets has found.
struct Findings
{
    QStringList faults;
    int shown = 0; ///< texts that hold the hostile one
};

bool isDrawnAsHTML(const QLabel &label)
{
    return label.textFormat() == Qt::RichText ||
           (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
}

void lookAtText(const QString &text, const QString &expected, const QString &where, Findings &findings)
{
    if (!text.contains(mark))
        return;
    ++findings.shown;
    if (!text.contains(expected))
        findings.faults.append(where + u" says "_s + text);
}

void lookAtToolTip(const QString &text, const QString &where, Findings &findings)
{
    if (text.contains(u"<img"_s) && Qt::mightBeRichText(text))
        findings.faults.append(where + u" has the tool tip "_s + text);
}

void lookAtModel(const QAbstractItemModel &model, const QModelIndex &parent, Findings &findings)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        lookAtText(index.data().toString(), hostile, u"a row"_s, findings);
        lookAtToolTip(index.data(Qt::ToolTipRole).toString(), u"a row"_s, findings);
        lookAtModel(model, index, findings);
    }
}

void lookAt(const QWidget &widget, Findings &findings)
{
    const QString where = QString::fromLatin1(widget.metaObject()->className());
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        lookAtText(label->text(), hostile, where, findings);
        if (label->text().contains(mark) && (isDrawnAsHTML(*label) || label->buddy()))
            findings.faults.append(u"drawn as HTML: "_s + label->text());
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        lookAtText(button->text(), QString(hostile).replace(u'&', u"&&"_s), where, findings);
    if (const auto *view = qobject_cast<const QAbstractItemView *>(&widget); view && view->model())
        lookAtModel(*view->model(), QModelIndex(), findings);
    const QList<QAction *> actions = widget.actions();
    for (const QAction *action : actions)
        lookAtText(action->text(), QString(hostile).replace(u'&', u"&&"_s), where, findings);
    lookAtText(widget.windowTitle(), hostile, where, findings);
    for (const QString &help : {widget.toolTip(), widget.statusTip(), widget.whatsThis()})
        lookAtToolTip(help, where, findings);
}

Findings lookAtEverything()
{
    QCoreApplication::processEvents();
    Findings findings;
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget *widget : widgets) {
        if (widget->window()->isVisible())
            lookAt(*widget, findings);
    }
    return findings;
}

/// Does something that asks, and looks at each alert or panel that comes up, then cancels it.
Findings lookAtQuestionsOf(const std::function<void()> &operation)
{
    Findings findings;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&findings] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        (void)dialog->grab(); // drawn once
        const Findings now = lookAtEverything();
        findings.faults += now.faults;
        findings.shown += now.shown;
        dialog->close();
    });
    poll.start(1);
    operation();
    return findings;
}

/// What a reader sees of a tool tip.
QString readText(const QString &toolTip)
{
    QTextDocument document;
    if (!Qt::mightBeRichText(toolTip))
        return toolTip;
    document.setHtml(toolTip);
    return document.toPlainText();
}

} // namespace

/// Whatever a page, a tag, a notebook or a folder is called is shown as it is, everywhere: never as HTML,
/// with no letter underlined, with no placeholder filled in. And no picture that a name tells of is read.
class PLShownTextTest final : public QObject
{
    Q_OBJECT

private:
    const QString m_before = QDir::currentPath();
    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<PLCanary> m_canary;
    std::unique_ptr<PLAppDelegate> m_delegate;

    /// A notebook in a folder of a hostile name, with the title, a page and a tag of the same name.
    QString makeNotebook() const;
    PLProjectWindowController &openNotebook();

private Q_SLOTS:
    void init();
    void cleanup();

    void theWalkFindsWhatIsWrong();
    void theLibrary();
    void theNotebookWindow();
    void thePlaceholderOfATag();
    void theWindowMenu();
    void alerts_data();
    void alerts();
    void thePanelOfACover();
    void thePanelOfANewNotebook();
    void theToolTipOfATag_data();
    void theToolTipOfATag();
};

QString PLShownTextTest::makeNotebook() const
{
    const QString path = m_folder->filePath(hostile);
    const QByteArray name = hostile.toUtf8();
    const bool isMade =
        PLMakeFile(path + u"/projet.md"_s, "---\ntitre: " + name + "\nauteur: " + name + "\n---\n") &&
        PLMakeFile(path + u"/Livre/01 - "_s + hostile + u".md"_s, "---\ntags: " + name + "\n---\n\ntext\n");
    return isMade ? path : QString();
}

PLProjectWindowController &PLShownTextTest::openNotebook()
{
    if (!m_delegate->openFile(makeNotebook()))
        qFatal("the notebook does not open");
    PLProjectWindowController &controller = *m_delegate->projectWindows().front();
    (void)QTest::qWaitForWindowActive(controller.window());
    return controller;
}

void PLShownTextTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(m_folder->filePath(u"home"_s)));
    qputenv("HOME", QFile::encodeName(m_folder->filePath(u"home"_s)));
    m_canary = std::make_unique<PLCanary>(m_folder->filePath(mark));
    QVERIFY(QDir::setCurrent(m_folder->path()));
    m_delegate = std::make_unique<PLAppDelegate>();
}

void PLShownTextTest::cleanup()
{
    QVERIFY(QDir::setCurrent(m_before));
    QVERIFY(!m_canary->wasOpened());
    m_delegate.reset();
    m_folder.reset();
    m_environment.reset();
}

/// What the other tests are worth: each kind of mistake is seen, and the toolkit does open such a picture.
void PLShownTextTest::theWalkFindsWhatIsWrong()
{
    QMenu window;
    const QLabel label(hostile, &window);
    window.addAction(hostile);
    window.setToolTip(hostile);
    window.setWindowTitle(QString(hostile).replace(u"%1"_s, u"x"_s));
    window.popup(QPoint(10, 10));
    const QString faults = lookAtEverything().faults.join(u'\n');
    QVERIFY2(faults.contains(u"drawn as HTML: <img"_s), qPrintable(faults));
    QVERIFY2(faults.contains(u"QMenu says <img src=canary.png> &File"_s), qPrintable(faults));
    QVERIFY2(faults.contains(u"QMenu has the tool tip"_s), qPrintable(faults));
    QVERIFY2(faults.contains(u"&File x"_s), qPrintable(faults));
    (void)window.grab();
    QVERIFY(m_canary->wasOpened());
}

void PLShownTextTest::theLibrary()
{
    PLRecentProjects::addURL(QUrl::fromLocalFile(makeNotebook()));
    PLRecentProjects::addURL(QUrl::fromLocalFile(m_folder->filePath(u"Perdu "_s + hostile)));
    m_delegate->showLibrary();
    (void)m_delegate->library()->window()->grab();
    QCOMPARE(lookAtEverything().faults, QStringList());
}

void PLShownTextTest::theNotebookWindow()
{
    const PLProjectWindowController &controller = openNotebook();
    (void)controller.window()->grab();
    const Findings findings = lookAtEverything();
    QCOMPARE(findings.faults, QStringList());
    QVERIFY2(findings.shown >= 3, qPrintable(QString::number(findings.shown))); // title, row, row of the tag
    QCOMPARE(controller.window()->windowTitle(), hostile + u" — "_s + hostile + u"[*]"_s);
    QCOMPARE(controller.editorView()->tags(), QStringList{hostile});
}

void PLShownTextTest::thePlaceholderOfATag()
{
    const PLProjectWindowController &controller = openNotebook();
    const PLSidebarTree &tree = controller.sidebar().tree();
    controller.sidebar().selectSidebarObject(tree.sidebarTagNamed(hostile));
    QVERIFY(controller.placeholderLabel()->isVisible());
    QVERIFY(controller.placeholderLabel()->text().contains(u'«' + u" "_s + hostile + u" »"_s));
    (void)controller.window()->grab();
    QCOMPARE(lookAtEverything().faults, QStringList());
}

void PLShownTextTest::theWindowMenu()
{
    openNotebook();
    QMenu menu;
    PLAddWindowList(&menu);
    menu.popup(QPoint(10, 10));
    (void)menu.grab();
    QVERIFY(menu.actions().constLast()->text().startsWith(QString(hostile).replace(u'&', u"&&"_s)));
    QCOMPARE(lookAtEverything().faults, QStringList());
}

void PLShownTextTest::alerts_data()
{
    using Operation = std::function<void(PLShownTextTest &)>;
    QTest::addColumn<Operation>("operation");
    QTest::newRow("a missing notebook") << Operation([](PLShownTextTest &test) {
        test.m_delegate->openFile(test.m_folder->filePath(u"Perdu "_s + hostile));
    });
    QTest::newRow("a plain folder") << Operation([](PLShownTextTest &test) {
        QDir(test.m_folder->path()).mkdir(u"Vrac "_s + hostile);
        test.m_delegate->openFile(test.m_folder->filePath(u"Vrac "_s + hostile));
    });
    QTest::newRow("a page for the trash") << Operation(
        [](PLShownTextTest &test) { test.openNotebook().performCommand(PLCommand::TrashSelectedItem, 0); });
    QTest::newRow("a page that cannot be saved, and quitting") << Operation([](PLShownTextTest &test) {
        const PLProjectWindowController &controller = test.openNotebook();
        QTest::keyClicks(controller.editorView()->textView(), u"x"_s);
        QDir(test.m_folder->filePath(hostile)).rename(u"Livre"_s, u".Livre"_s);
        test.m_delegate->applicationShouldTerminate();
        QDir(test.m_folder->filePath(hostile)).rename(u".Livre"_s, u"Livre"_s);
    });
}

void PLShownTextTest::alerts()
{
    QFETCH(const std::function<void(PLShownTextTest &)>, operation);
    const Findings findings = lookAtQuestionsOf([&] { operation(*this); });
    QCOMPARE(findings.faults, QStringList());
    QVERIFY(findings.shown > 0);
}

void PLShownTextTest::thePanelOfACover()
{
    PLRecentProjects::addURL(QUrl::fromLocalFile(makeNotebook()));
    m_delegate->showLibrary();
    const Findings findings = lookAtQuestionsOf([this] { m_delegate->library()->chooseCover(); });
    QCOMPARE(findings.faults, QStringList());
    QVERIFY(findings.shown > 0);
}

/// Its place is the writer's documents, or else the home folder.
void PLShownTextTest::thePanelOfANewNotebook()
{
    QVERIFY(QDir().mkpath(m_folder->filePath(hostile)));
    qputenv("HOME", QFile::encodeName(m_folder->filePath(hostile)));
    PLNewFolderPanel panel({u"Titre"_s, u"Créer"_s, hostile}, u"Nom"_s, hostile, nullptr);
    panel.show();
    (void)panel.grab();
    const Findings findings = lookAtEverything();
    QCOMPARE(findings.faults, QStringList());
    QVERIFY(findings.shown > 0);
    const auto labels = panel.findChildren<QLabel *>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [this](const QLabel *label) {
        return readText(label->toolTip()) == m_folder->filePath(hostile);
    }));
}

void PLShownTextTest::theToolTipOfATag_data()
{
    QTest::addColumn<QString>("tag");
    QTest::newRow("hostile") << hostile;
    QTest::newRow("an ampersand and quotes") << u"R&D \"Recherche\" & 'développement'"_s;
    QTest::newRow("an entity") << u"a &lt; b &amp; c"_s;
    QTest::newRow("an angle") << u"a < b > c"_s;
    QTest::newRow("HTML further on") << u"le <b>gras</b>"_s;
}

void PLShownTextTest::theToolTipOfATag()
{
    QFETCH(const QString, tag);
    const QString whole = tag + u' ' + QString(50, u'x');
    PLTagField field;
    field.resize(120, field.sizeHint().height());
    field.setTags({whole});
    field.show();
    QVERIFY(QTest::qWaitForWindowExposed(&field));
    const QPoint point = QPoint(40, field.height() / 2);
    QHelpEvent help(QEvent::ToolTip, point, field.mapToGlobal(point));
    QCoreApplication::sendEvent(&field, &help);
    QCOMPARE(readText(QToolTip::text()), whole);
    QToolTip::hideText();
}

QTEST_MAIN(PLShownTextTest)
#include "PLShownTextTest.moc"
