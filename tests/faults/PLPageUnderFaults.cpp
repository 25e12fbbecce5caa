// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLPageUnderFaults.h"

#include "editor/PLTagField.h"
#include "storage/PLFiles.h"
#include "support/PLTestFiles.h"

#include <QDirIterator>
#include <QTimer>

#include <cerrno>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Reach = PLFault::Reach;
using Window = PLNotebookWindowFixture;

const QMap<QString, QString> otherFiles{
    {u"projet.md"_s, u"---\ntitre: Roman\nformat: aquilane-1\n---\n\n"_s},
    {u"Livre/02 - B.md"_s, u"deux"_s},
    {u"Personnages/Emma.md"_s, u"trois"_s},
};

QString pageText(const QString &tags, const QString &body)
{
    return u"---\ntags: %1\n---\n\n%2"_s.arg(tags, body);
}

QString pathOfTitle(const QString &title)
{
    return u"Livre/01 - %1.md"_s.arg(title);
}

/// The whole of what waits in the event loop, without waiting for more.
void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // of fields that are closed
}

void letTimeRun(Window &window)
{
    auto *timer = window.session().findChild<QTimer *>();
    const int delay = timer->interval();
    timer->start(0);
    while (timer->isActive())
        QCoreApplication::processEvents();
    timer->setInterval(delay);
}

void typeTitle(Window &window, const QString &title)
{
    window.controller->performCommand(PLCommand::RenameSelectedItem, 0);
    window.titleField()->setText(title);
}

void endTitle(Window &window, Qt::Key key)
{
    if (QLineEdit *field = window.titleField())
        QTest::keyClick(field, key);
    settle();
}

void lookAway(Window &window)
{
    window.controller->windowDidResignKey();
    window.controller->windowDidBecomeKey();
}

PLPageAction saving(const char *name, const PLPageAction::Step &perform)
{
    PLPageAction action;
    action.name = name;
    action.perform = perform;
    return action;
}

PLPageAction alsoSaving(const char *name, const PLPageAction::Step &perform)
{
    PLPageAction action = saving(name, perform);
    action.isOneOfMany = true;
    return action;
}

PLPageAction renaming(const char *name, const QString &title)
{
    PLPageAction action;
    action.name = name;
    action.prepare = [title](Window &window) { typeTitle(window, title); };
    action.perform = [](Window &window) { endTitle(window, Qt::Key_Return); };
    action.newTitle = title;
    return action;
}

PLPageAction leaving(const char *name, const PLPageAction::Step &perform)
{
    PLPageAction action = alsoSaving(name, perform);
    action.leavesPage = true;
    return action;
}

PLPageAction creating()
{
    PLPageAction action = leaving("a new chapter", [](Window &window) {
        window.controller->performCommand(PLCommand::NewChapter, 0);
        settle();
    });
    action.createsPage = true;
    action.isOneOfMany = false;
    return action;
}

PLPageAction tagging()
{
    PLPageAction action;
    action.name = "a tag";
    action.prepare = [](Window &window) { window.editor()->setTags({u"bal"_s, u"mer"_s}); };
    action.perform = [](Window &window) {
        Q_EMIT window.editor()->tagField()->didEndEditing();
        settle();
    };
    action.newTags = u"bal, mer"_s;
    return action;
}

PLPageAction quitting()
{
    PLPageAction action = alsoSaving("the end of the session",
                                     [](Window &window) { window.controller->saveCurrentItemQuietly(); });
    action.isQuiet = true;
    return action;
}

QString nameOf(const PLFault &fault, const PLRecording &calls)
{
    const char *const reaches[] = {"once", "for good", "with everything after it"};
    return u"call %1 of %2 (“%3”): %4, %5"_s.arg(fault.call)
        .arg(calls.size())
        .arg(QString::fromUtf8(calls.value(fault.call).path),
             QString::fromLocal8Bit(std::strerror(fault.error)),
             QString::fromLatin1(reaches[int(fault.reach)]));
}

} // namespace

QList<PLPageAction> PLPageActions()
{
    return {
        saving("the Save command",
               [](Window &window) { window.controller->performCommand(PLCommand::SaveDocument, 0); }),
        saving("two seconds are over", letTimeRun),
        renaming("a new title", u"Autre"_s),
        renaming("a title in another case", u"a"_s),
        creating(),
        tagging(),
        alsoSaving("the question before closing",
                   [](Window &window) { window.controller->windowShouldClose(); }),
        alsoSaving("another window and back", lookAway),
        quitting(),
        leaving("another page", [](Window &window) { window.select(u"Personnages/Emma.md"_s); }),
        leaving("no page", [](Window &window) { window.sidebar().selectSidebarObject(nullptr); }),
    };
}

PLPageUnderFaults::PLPageUnderFaults(PLPageAction action)
    : m_action(std::move(action))
    , m_old(pageText(u"bal"_s, u"un"_s))
    , m_new(pageText(m_action.newTags, u"xun"_s))
{
    PLAlert::setResponder([this](const PLAlert &alert) {
        m_alerts.append(alert);
        return PLAlert::FirstButton;
    });
    writeFiles();
    m_window.open();
    m_isActive = QTest::qWaitForWindowActive(m_window.controller->window());
    settle();
}

PLPageUnderFaults::~PLPageUnderFaults() = default;

void PLPageUnderFaults::writeFiles() const
{
    QDir(m_window.notebook.path(u"Livre"_s)).removeRecursively();
    m_window.notebook.write(pathOfTitle(u"A"_s), m_old);
    for (auto file = otherFiles.begin(); file != otherFiles.end(); ++file)
        m_window.notebook.write(file.key(), file.value());
}

/// Whatever was before: the page is as it was at first, and one letter is typed into it.
void PLPageUnderFaults::arrange()
{
    endTitle(m_window, Qt::Key_Escape);
    m_window.select(u"Personnages/Emma.md"_s);
    writeFiles();
    m_window.controller->refreshSidebar();
    m_window.select(pathOfTitle(u"A"_s));
    m_alerts.clear();
    m_isCreated = false;
    m_window.type(u"x"_s);
    if (m_action.prepare)
        m_action.prepare(m_window);
}

void PLPageUnderFaults::perform(const PLFault &fault)
{
    arrange();
    m_fault = fault;
    PLFileCallRecorder::start(QFile::encodeName(m_window.notebook.path()), fault);
    m_action.perform(m_window);
    m_calls = PLFileCallRecorder::stop();
}

PLPageUnderFaults::Files PLPageUnderFaults::files() const
{
    Files files;
    const QDir folder(m_window.notebook.path());
    QDirIterator entries(folder.path(), QDir::Files | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        files.insert(folder.relativeFilePath(path), QString::fromUtf8(PLBytesOf(path)));
    }
    return files;
}

bool PLPageUnderFaults::isPageOpen() const
{
    const PLProjectItemPointer &item = m_window.session().currentItem();
    return item && item->path() == m_window.notebook.path(m_path);
}

bool PLPageUnderFaults::isDone() const
{
    return isSaved() && m_path == pathOfTitle(m_action.newTitle) && m_isCreated == m_action.createsPage;
}

/// The page is there once, old or new; perhaps a new page, whole; all else is as it was.
QString PLPageUnderFaults::lookAtDisk()
{
    Files found = files();
    const bool isBetweenNames = !QStringList(found.keys()).filter(u"Livre/aquilane-"_s).isEmpty();
    if (isBetweenNames) { // which the next listing puts right
        m_window.controller->refreshSidebar();
        found = files();
    }
    QStringList pages;
    for (const QString &path : {pathOfTitle(u"A"_s), pathOfTitle(m_action.newTitle)}) {
        if (found.contains(path) && !pages.contains(path))
            pages.append(path);
    }
    if (pages.size() != 1)
        return u"the page is there %1 times"_s.arg(pages.size());
    m_path = pages.first();
    m_onDisk = found.take(m_path);
    if (m_onDisk != m_old && m_onDisk != m_new)
        return u"neither old nor new: "_s + m_onDisk;
    // A folder that could not be listed is shown as empty; the chapter after none is the first.
    const QPair<QString, QString> chapters[] = {{u"Livre/03 - Chapitre 3.md"_s, u"# Chapitre 3\n\n"_s},
                                                {u"Livre/01 - Chapitre 1.md"_s, u"# Chapitre 1\n\n"_s}};
    for (const auto &[path, text] : chapters)
        m_isCreated =
            m_isCreated || (m_action.createsPage && found.contains(path) && found.take(path) == text);
    if (m_fault.reach == Reach::Everything) // nor could it be taken away; the next opening does it
        found.removeIf([](const auto &file) { return file.key().contains(u"/.aquilane-"); });
    return found == otherFiles ? QString() : u"strays: "_s + QStringList(found.keys()).join(u", "_s);
}

/// What is not on the disk is on the screen; and no page is said to be saved that is not.
QString PLPageUnderFaults::lookAtScreen() const
{
    const PLPageSession &session = m_window.session();
    if (!isPageOpen())
        return isSaved() || (m_action.leavesPage && isTold()) ? QString() : u"the text is gone"_s;
    if (m_window.editor()->text() != u"xun" ||
        m_window.editor()->tags().join(u", "_s) !=
            (isSaved() ? m_onDisk : m_new).section(u'\n', 1, 1).sliced(6))
        return u"on the screen: "_s + m_window.editor()->text();
    if (!session.isDirty() && !isSaved())
        return u"not saved, and not marked so"_s;
    if (m_window.controller->window()->isWindowModified() != session.isDirty())
        return u"the window's mark is wrong"_s;
    return QString();
}

/// An alert says which page, and why; without one all is done.
QString PLPageUnderFaults::lookAtAlerts() const
{
    const bool isTransient = m_fault.call < 0 || (m_fault.error == EINTR && m_fault.reach == Reach::Once);
    if (isTransient && (isTold() || !isDone()))
        return u"an interrupted call was not made again"_s;
    const bool isDirty = isPageOpen() && m_window.session().isDirty();
    if (m_action.isQuiet)
        return isTold() ? u"an alert that nobody can answer"_s : QString();
    if (!isTold())
        return isDone() && !isDirty ? QString() : u"not done, and not told"_s;
    const QString reason = PLFileError(m_fault.error).message;
    const PLAlert &first = m_alerts.first();
    const bool isOfSave =
        first.message == u"Impossible d'enregistrer « A »" &&
        first.informativeText.startsWith(reason + u"\n\nSi le carnet est sur une clé USB, "_s);
    if ((isDirty || !isSaved()) && !isOfSave)
        return u"the failed save is told as “%1”: %2"_s.arg(first.message, first.informativeText);
    return isOfSave || first.message == reason ? QString()
                                               : u"told instead of the reason: "_s + first.message;
}

/// The fault has gone: one more key, and the page saves itself, without a word.
QString PLPageUnderFaults::tryAgain()
{
    const qsizetype alerts = m_alerts.size();
    endTitle(m_window, Qt::Key_Escape);
    if (!isPageOpen()) {
        m_window.controller->refreshSidebar();
        m_window.select(m_path);
    }
    m_window.type(u"y"_s);
    letTimeRun(m_window);
    const QString text = m_window.editor()->text();
    if (m_alerts.size() > alerts || m_window.session().isDirty() || text.size() < 3 || !text.contains(u'y'))
        return u"the next save fails"_s;
    if (m_window.notebook.read(m_path) != pageText(m_window.editor()->tags().join(u", "_s), text))
        return u"the next save has written: "_s + m_window.notebook.read(m_path);
    if (m_fault.reach == Reach::Everything)
        (void)m_window.notebook.open(); // takes away what then could not be
    const QStringList paths = files().keys();
    return paths.filter(u"aquilane"_s).isEmpty() ? QString() : u"left behind: "_s + paths.join(u", "_s);
}

QString PLPageUnderFaults::complaint()
{
    if (m_calls.size() <= m_fault.call)
        return u"the fault has not struck"_s;
    QString reason = PLFileCallRecorder::openFiles() != 0 ? u"files are left open"_s : lookAtDisk();
    if (reason.isEmpty())
        reason = lookAtScreen();
    if (reason.isEmpty())
        reason = lookAtAlerts();
    if (reason.isEmpty())
        reason = tryAgain();
    return reason.isEmpty() ? reason : nameOf(m_fault, m_calls) + u"\n    "_s + reason;
}
