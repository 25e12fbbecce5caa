// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "model/PLWriter.h"

#include "model/PLWriterActions.h"
#include "platform/PLAlert.h"
#include "platform/PLFindSearch.h"
#include "storage/PLFiles.h"
#include "storage/PLRecentProjects.h"

#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Each action as often as it weighs.
QList<const PLWriterAction *> weighedActions()
{
    QList<const PLWriterAction *> weighed;
    for (const auto group :
         {PLTextActions(), PLSearchActions(), PLPageActions(), PLWindowActions(), PLOutsideActions()}) {
        for (const PLWriterAction &action : group)
            weighed.insert(weighed.size(), action.weight, &action);
    }
    return weighed;
}

const PLWriterAction &actionNumbered(int number)
{
    static const QList<const PLWriterAction *> weighed = weighedActions();
    return *weighed[number % weighed.size()];
}

} // namespace

QString PLWriterStep::description() const
{
    return u"%1 (%2, %3)"_s.arg(QString::fromLatin1(actionNumbered(action).name)).arg(first).arg(second);
}

PLWriter::PLWriter() : m_desks{PLWriterDesk(u"Roman"_s), PLWriterDesk(u"Journal"_s)}
{
    PLFindTerms::shared() = {};
    PLAlert::setResponder([this](const PLAlert &alert) { return answer(alert); });
    start();
}

PLWriter::~PLWriter()
{
    m_program.reset();
    PLAlert::setResponder({});
}

int PLWriter::actionCount()
{
    return int(weighedActions().size());
}

QString PLWriter::perform(const PLWriterStep &step)
{
    const PLWriterAction &action = actionNumbered(step.action);
    if (action.needs == PLWriterAction::Needs::Page && !desk().hasPage())
        return QString();
    action.run(*this, step.first, step.second);
    settle();
    return check();
}

void PLWriter::start()
{
    m_program = std::make_unique<PLAppDelegate>();
    m_program->applicationDidFinishLaunching({m_desks[0].notebook.path(), m_desks[1].notebook.path()});
    settle();
    takeOpenedWindow(m_desks[0]);
    takeOpenedWindow(m_desks[1]);
    m_front = 1;
    m_hasFocus = true;
}

void PLWriter::quit()
{
    const QSignalSpy ends(m_program.get(), &PLAppDelegate::willTerminate);
    m_program->terminate();
    if (ends.isEmpty())
        m_failure = u"the program does not end"_s;
    for (PLWriterDesk &open : m_desks) {
        open.expectSaved();
        open.controller = nullptr;
    }
    m_program.reset();
    settle();
}

void PLWriter::closeWindow()
{
    if (!desk().controller->window()->close())
        desk().fail(u"the window does not close"_s);
    desk().expectSaved();
    settle();
    desk().controller = nullptr;
    if (!otherDesk().isOpen() && !(m_program->library() && m_program->library()->window()->isVisible()))
        desk().fail(u"the last notebook is closed, and there is no library"_s);
}

void PLWriter::goTo(PLWriterDesk &target, quint32 way)
{
    const bool wasOpen = target.isOpen();
    if (&desk() != &target) {
        m_front = 1 - m_front;
        m_hasFocus = false;
    }
    open(target, way);
    settle();
    otherDesk().expectSaved();
    if (!wasOpen)
        takeOpenedWindow(target);
    else if (!m_hasFocus)
        target.becameKey();
    m_hasFocus = true;
}

void PLWriter::open(const PLWriterDesk &target, quint32 way)
{
    if (way % 4 == 0 && target.isOpen())
        target.controller->window()->makeKeyAndOrderFront();
    else if (way % 4 == 1 && m_known.contains(target.notebook.path()))
        openFromLibrary(target);
    else
        m_program->openFile(target.notebook.path(way % 2 ? QString() : u"projet.md"_s));
}

void PLWriter::openFromLibrary(const PLWriterDesk &target)
{
    showLibrary();
    m_program->library()->shelfView()->openBookAtIndex(int(m_known.indexOf(target.notebook.path())));
}

void PLWriter::takeOpenedWindow(PLWriterDesk &opened)
{
    PLProjectWindowController *window = windowOf(opened);
    if (!window)
        return opened.fail(u"the notebook is not open"_s);
    opened.wasOpened(window);
    m_known.removeOne(opened.notebook.path());
    m_known.prepend(opened.notebook.path());
}

PLProjectWindowController *PLWriter::windowOf(const PLWriterDesk &searched) const
{
    const auto &windows = m_program->projectWindows();
    const auto found = std::find_if(windows.begin(), windows.end(), [&](const auto &window) {
        return PLStandardizedPath(window->project().folderURL()) == searched.notebook.path();
    });
    return found == windows.end() ? nullptr : found->get();
}

void PLWriter::showLibrary()
{
    m_program->showLibrary();
    settle();
    desk().expectSaved();
    m_hasFocus = false;
}

void PLWriter::forgetBook(int index)
{
    m_program->library()->shelfView()->setSelectedIndex(index);
    m_program->library()->performCommand(PLCommand::RemoveSelected, 0);
    m_known.removeAt(index);
}

void PLWriter::leave()
{
    m_elsewhere.show();
    m_elsewhere.activateWindow();
    settle();
    desk().expectSaved();
    m_hasFocus = false;
}

void PLWriter::comeBack()
{
    goTo(desk(), 0);
}

/// The timers are not waited for.
void PLWriter::settle() const
{
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// No save fails here.
int PLWriter::answer(const PLAlert &alert)
{
    if (alert.message.startsWith(u"Impossible d'enregistrer"))
        m_failure = alert.message + u": "_s + alert.informativeText;
    return answers.isEmpty() ? PLAlert::FirstButton : answers.takeFirst();
}

QString PLWriter::check() const
{
    if (!m_failure.isNull())
        return m_failure;
    for (size_t index = 0; index < m_desks.size(); ++index) {
        const QString problem = m_desks[index].check();
        if (!problem.isNull())
            return (index == m_front ? u"in front: "_s : u"behind: "_s) + problem;
    }
    if (!m_desks[m_front].controller->window()->isActiveWindow())
        return u"the window in front has not the focus"_s;
    return checkLibrary();
}

/// The library knows the notebooks, the one opened last first.
QString PLWriter::checkLibrary() const
{
    if (PLRecentProjects::paths() != m_known)
        return u"the known notebooks are "_s + PLRecentProjects::paths().join(u", "_s);
    if (!m_program->library())
        return QString();
    QStringList shown;
    for (const PLShelfBook &book : m_program->library()->shelfView()->books())
        shown.append(book.available ? PLStandardizedPath(book.url) : book.title);
    return shown == m_known ? QString() : u"the library shows "_s + shown.join(u", "_s);
}
