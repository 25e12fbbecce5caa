// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooVisit.h"

#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "library/PLRecordingLibraryDelegate.h"
#include "markdown/PLMarkdown.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLSidebarController.h"
#include "platform/PLAlert.h"
#include "storage/PLProject.h"
#include "storage/PLRecentProjects.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Every folder that the program may make when it opens a notebook.
constexpr const char *sectionFolders[] = {"Livre", "Personnages", "Lieux", "Fiches", "Notes"};
constexpr int pagesLookedAt = 60;
constexpr double noticeable = 0.1; // seconds

} // namespace

PLZooVisit::PLZooVisit(const PLZooNotebook &notebook, const QByteArray &folder, const QByteArray &outside,
                       bool isFullSize)
    : m_notebook(notebook)
    , m_folder(folder)
    , m_outside(outside)
    , m_trash(qgetenv("XDG_DATA_HOME") + "/Trash/files")
    , m_isFullSize(isFullSize)
{
    PLAlert::setResponder([this](const PLAlert &alert) {
        m_alerts.append(alert.message);
        if (alert.message.isEmpty())
            complain(u"an alert without a word"_s);
        return PLAlert::FirstButton;
    });
}

PLZooVisit::~PLZooVisit()
{
    m_controller.reset();
    PLAlert::setResponder({});
}

QStringList PLZooVisit::run()
{
    m_before = PLTakeZooSnapshot({m_folder, m_outside});
    for (const char *name : sectionFolders) {
        if (const QByteArray path = m_folder + '/' + name; !m_before.contains(path))
            m_mayDiffer.insert(path);
    }
    lookAtLibrary();
    compareDisk(u"the library"_s);
    openNotebook();
    compareDisk(u"opening"_s);
    if (!m_controller)
        return m_complaints;
    lookAtEveryPage();
    compareDisk(u"looking at every page"_s);
    if (!m_notebook.cover) { // what is written does not depend on the cover
        editPages();
        compareDisk(u"editing"_s);
        handlePages();
    }
    closeNotebook();
    return m_complaints;
}

QString PLZooVisit::summary() const
{
    return u"%1 s at most; %2 pages read, %3 alerts; the longest: %4"_s.arg(m_slowest, 0, 'f', 2)
        .arg(m_opened.size())
        .arg(m_alerts.size())
        .arg(m_slowestStep);
}

void PLZooVisit::lookAtLibrary()
{
    PLRecordingLibraryDelegate delegate;
    PLRecentProjects::addURL(QUrl::fromLocalFile(QString::fromUtf8(m_folder)));
    std::unique_ptr<PLLibraryWindowController> library;
    measure(u"making the library"_s, [&] {
        library = std::make_unique<PLLibraryWindowController>(delegate);
        library->showWindow();
    });
    constexpr int mostTurns = 1000;
    for (int turn = 0; turn == 0 || (library->isLoadingCovers() && turn < mostTurns); ++turn)
        measure(u"reading the cover"_s, [] { QTest::qWait(1); });
    for (const bool spines : {true, false}) {
        measure(u"drawing the shelf"_s, [&] {
            library->shelfView()->setSpineMode(spines);
            library->window()->grab();
        });
    }
    const bool hasCover = !library->shelfView()->books().at(0).cover.isNull();
    if (m_notebook.cover && hasCover != *m_notebook.cover)
        complain(hasCover ? u"a cover is shown"_s : u"no cover is shown"_s);
    if (!m_alerts.isEmpty())
        complain(u"the library alerts: "_s + m_alerts.join(u" | "_s));
}

void PLZooVisit::openNotebook()
{
    PLError error;
    measure(u"opening"_s, [&] {
        auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(QString::fromUtf8(m_folder)), &error);
        if (!project)
            return;
        m_controller = std::make_unique<PLProjectWindowController>(std::move(project));
        m_controller->showWindow();
    });
    measure(u"the first turn"_s, [&] { settle(); });
    if (m_notebook.opens != bool(m_controller))
        complain(m_controller ? u"the notebook opens"_s : u"the notebook does not open: "_s + error.message);
    if (!m_controller && error.message.isEmpty())
        complain(u"the notebook does not open, without a word"_s);
}

void PLZooVisit::lookAtEveryPage()
{
    const QStringList listed = listedPages();
    if (m_notebook.pages && listed.size() != *m_notebook.pages)
        complain(u"%1 pages are listed instead of %2"_s.arg(listed.size()).arg(*m_notebook.pages));
    const QStringList tried = pagesToTry(pagesLookedAt);
    for (const QString &path : tried) {
        const qsizetype alertsBefore = m_alerts.size();
        if (select(path)) {
            m_opened.append(path);
            lookAround();
        } else if (m_alerts.size() == alertsBefore)
            complain(u"a page is not opened, without a word: "_s + PLZooShown(path));
    }
    const qsizetype expected = m_notebook.opened.value_or(int(tried.size()));
    if (m_opened.size() != expected)
        complain(u"%1 pages can be read instead of %2"_s.arg(m_opened.size()).arg(expected));
    measure(u"coming back to the window"_s, [&] { m_controller->windowDidBecomeKey(); });
}

bool PLZooVisit::select(const QString &path)
{
    PLSidebarController &sidebar = m_controller->sidebar();
    const PLSidebarPage *row = sidebar.tree().sectionItemForURL(QUrl::fromLocalFile(path));
    if (!row) {
        complain(u"a page has no row any more: "_s + PLZooShown(path));
        return false;
    }
    const QString shown = PLZooShown(path);
    measure(u"opening "_s + shown, [&] { sidebar.selectSidebarObject(row); });
    measure(u"showing "_s + shown, [&] { settle(); });
    const PLProjectItemPointer &item = m_controller->session().currentItem();
    if (item && item->path() != path)
        complain(u"another page is open than "_s + shown);
    if (bool(item) == m_controller->placeholderLabel()->isVisible())
        complain(u"the placeholder is shown, or hidden, wrongly for "_s + shown);
    return item != nullptr;
}

/// To the end and back, another width, and what the preview would be given.
void PLZooVisit::lookAround()
{
    PLEditorView *editor = m_controller->editorView();
    const QString title = m_controller->session().currentItem()->title().left(40);
    measure(u"going to the end of "_s + title,
            [&] { QTest::keyClick(editor->textView(), Qt::Key_End, Qt::ControlModifier); });
    measure(u"drawing the end of "_s + title, [&] { editor->grab(); });
    measure(u"a narrower window on "_s + title, [&] {
        m_controller->window()->resize(900, 500);
        settle();
    });
    measure(u"a wider window on "_s + title, [&] {
        m_controller->window()->resize(1100, 720);
        settle();
    });
    measure(u"going to the start of "_s + title,
            [&] { QTest::keyClick(editor->textView(), Qt::Key_Home, Qt::ControlModifier); });
    measure(u"the preview of "_s + title, [&] { PLMarkdown::HTMLFromMarkdown(editor->text()); });
    if (m_controller->session().isDirty())
        complain(u"a page that was only looked at is dirty: "_s + title);
}

void PLZooVisit::closeNotebook()
{
    measure(u"closing"_s, [&] {
        m_controller->window()->close();
        settle();
    });
    if (m_controller->window()->isVisible())
        complain(u"the window does not close"_s);
    m_controller.reset();
}

QStringList PLZooVisit::listedPages() const
{
    QStringList paths;
    for (const PLSection section : PLAllSections) {
        for (const auto &row : m_controller->sidebar().tree().section(section)->children())
            paths.append(static_cast<const PLSidebarPage *>(row)->item->path());
    }
    return paths;
}

QStringList PLZooVisit::pagesToTry(int most) const
{
    const QStringList paths = listedPages();
    if (paths.size() <= 2 * most)
        return paths;
    QStringList tried = paths.first(most);
    const qsizetype stride = (paths.size() - most) / most;
    for (qsizetype index = most; index < paths.size(); index += stride)
        tried.append(paths[index]);
    return tried;
}

void PLZooVisit::settle() const
{
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void PLZooVisit::compareDisk(const QString &after)
{
    const QStringList changes = PLZooChanges(m_before, PLTakeZooSnapshot({m_folder, m_outside}), m_mayDiffer);
    for (const QString &change : changes)
        complain(u"after %1 %2"_s.arg(after, change));
}

void PLZooVisit::complain(const QString &text)
{
    m_complaints.append(text);
}

void PLZooVisit::noteTime(const QString &what, double seconds)
{
    if (qEnvironmentVariableIsSet("AQUILANE_ZOO_STEPS") && seconds > noticeable)
        qInfo().noquote() << u"%1 s: %2"_s.arg(seconds, 0, 'f', 2).arg(what);
    if (seconds > m_slowest) {
        m_slowest = seconds;
        m_slowestStep = what;
    }
    if (seconds > m_notebook.longestStep * PLZooSlowness)
        complain(u"%1 s: %2"_s.arg(seconds, 0, 'f', 2).arg(what));
}
