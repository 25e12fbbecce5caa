// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endtoend/PLTypist.h"

#include "support/PLTestFiles.h"

#include <QElapsedTimer>
#include <QThread>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 30'000;   // milliseconds
constexpr int lookAgainAfter = 30; // milliseconds
constexpr int firstPages = 3;
constexpr qsizetype mostPages = 12; // all of them in sight
const QString windowTitle = u"Roman"_s;
const QString beforePageTitle = u"Roman — "_s;

QProcessEnvironment environmentIn(const QString &home, const QString &display)
{
    const QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment environment;
    for (const QString &name : {u"PATH"_s, u"LSAN_OPTIONS"_s, u"ASAN_OPTIONS"_s, u"UBSAN_OPTIONS"_s}) {
        if (own.contains(name))
            environment.insert(name, own.value(name));
    }
    environment.insert(u"HOME"_s, home);
    environment.insert(u"XDG_RUNTIME_DIR"_s, home + u"/run"_s);
    environment.insert(u"XDG_CONFIG_HOME"_s, home + u"/config"_s);
    environment.insert(u"LC_CTYPE"_s, u"C.UTF-8"_s);
    environment.insert(u"LANG"_s, u"fr_FR.UTF-8"_s);
    environment.insert(u"LANGUAGE"_s, u"fr"_s);
    environment.insert(u"DISPLAY"_s, display);
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s); // or a bus is started for each screen
    return environment;
}

QStringList keysOf(const QString &text)
{
    QStringList keys;
    for (const QChar character : text)
        keys.append(character == u' ' ? u"space"_s : character == u'\n' ? u"Return"_s : QString(character));
    return keys;
}

bool isPage(const QString &title, const QString &)
{
    return title.startsWith(beforePageTitle);
}

bool isThis(const QString &title, const QString &other)
{
    return title == beforePageTitle + other;
}

bool isOther(const QString &title, const QString &other)
{
    return title.startsWith(windowTitle) && title != other;
}

} // namespace

PLTypist::PLTypist(quint32 seed) : m_random(seed) {}

/// The preview stays hidden: its engine takes its time to start.
QString PLTypist::sitDown()
{
    if (!m_notebook.make(firstPages) || !QDir(m_home.path()).mkdir(u"run"_s) ||
        !PLMakeFile(m_home.filePath(u"config/aquilane/aquilane.ini"_s),
                    "[General]\nPLPreviewVisible=false\n"))
        return u"the notebook was not made"_s;
    QFile::setPermissions(m_home.filePath(u"run"_s), QFile::Permissions(0x7000));
    return m_screen.start();
}

void PLTypist::fail(const QString &complaint)
{
    if (m_complaint.isEmpty())
        m_complaint = complaint;
}

bool PLTypist::startProgram()
{
    QElapsedTimer timer;
    timer.start();
    while (m_screen.activeTitle().startsWith(windowTitle) && !timer.hasExpired(patience))
        QThread::msleep(lookAgainAfter); // the window of the killed program is still there
    m_program.setProcessEnvironment(environmentIn(m_home.path(), m_screen.display()));
    m_program.start(QStringLiteral(AQUILANE_PROGRAM), {m_notebook.path()});
    const bool isStarted = m_program.waitForStarted(patience);
    m_clock = {m_program.processId(), m_screen.serverProcess()};
    return isStarted;
}

QString PLTypist::typeUntilKilled()
{
    if (!startProgram())
        return u"the program does not start"_s;
    PLKiller killer(m_clock, m_notebook.pagesPath());
    m_killer = &killer;
    constexpr int onesThatDieYoung = 12;
    if (m_random.bounded(onesThatDieYoung) == 0)
        killer.takeAim(PLKiller::Aim::AnyMoment, random(0, 700));
    else
        typeOn(killer);
    return lookAfterEnd(killer);
}

/// Half of the kills come anywhere, the others when the disk is written to.
void PLTypist::typeOn(PLKiller &killer)
{
    awaitTitle(isPage);
    if (const QString left = m_notebook.leftBehind(); !left.isEmpty())
        fail(u"left behind by the last kill: "_s + left);
    const bool isAtAChange = m_random.bounded(2) == 0;
    killer.takeAim(isAtAChange ? PLKiller::Aim::AtAChange : PLKiller::Aim::AnyMoment,
                   random(100, isAtAChange ? 4'500 : 9'000));
    press({u"F6"_s});
    goToEnd();
    while (goesOn())
        doSomething();
}

QString PLTypist::lookAfterEnd(PLKiller &killer)
{
    const PLMoment killed = killer.waitForKill();
    m_program.waitForFinished(patience);
    if (m_program.exitStatus() != QProcess::CrashExit || m_program.exitCode() != SIGKILL)
        fail(u"the program has ended by itself, with %1"_s.arg(m_program.exitCode()));
    if (const QByteArray said = m_program.readAllStandardError(); !said.isEmpty())
        fail(u"the program said: "_s + QString::fromUtf8(said));
    if (const QString complaint = m_notebook.lookAfterKill(killed); !complaint.isEmpty())
        fail(complaint);
    return m_complaint;
}

void PLTypist::doSomething()
{
    const int choice = random(1, 20);
    if (choice <= 10)
        typeWords();
    else if (choice == 11)
        type(u"\n"_s);
    else if (choice <= 16)
        pause();
    else if (choice == 17)
        createPage();
    else if (choice == 18)
        renamePage();
    else
        switchPage();
}

void PLTypist::press(const QStringList &keys)
{
    if (goesOn() && !m_screen.press(keys, random(0, 1) * random(0, 60)))
        fail(u"the keyboard is out of order"_s);
}

void PLTypist::typeWords()
{
    for (int words = random(1, 8); words > 0 && goesOn(); --words)
        type(u"w%1 "_s.arg(++m_words));
}

void PLTypist::type(const QString &text)
{
    m_notebook.willType(text, m_clock.now());
    press(keysOf(text));
    m_notebook.hasTyped(m_clock.now());
}

/// Every other one is long enough for the page to be saved.
void PLTypist::pause()
{
    const int length = random(0, 1) == 0 ? random(50, 1'950) : random(1'950, 3'200);
    QElapsedTimer timer;
    timer.start();
    while (goesOn() && !timer.hasExpired(length))
        QThread::msleep(10);
}

/// A title is that of a page that the notebook can have, and shows from then on.
bool PLTypist::awaitTitle(Condition condition, const QString &other)
{
    QElapsedTimer timer;
    timer.start();
    QString title;
    while (goesOn() && !timer.hasExpired(patience)) {
        title = m_screen.activeTitle();
        m_title = title.endsWith(u'*') ? title.chopped(1) : title;
        if (!condition(m_title, other)) {
            QThread::msleep(lookAgainAfter);
            continue;
        }
        if (m_title != windowTitle && !m_notebook.show(m_title.sliced(beforePageTitle.size())))
            fail(u"the page shown is none that was made: "_s + m_title);
        return goesOn();
    }
    if (goesOn())
        fail(u"after %1 seconds the window is “%2”"_s.arg(patience / 1'000).arg(title));
    return false;
}

void PLTypist::goToEnd()
{
    press({u"ctrl+End"_s});
}

void PLTypist::createPage()
{
    if (m_notebook.pageCount() >= mostPages)
        return;
    const QString created = m_notebook.willCreate();
    press({u"ctrl+n"_s});
    if (!awaitTitle(isThis, created))
        return;
    pressTitle(u"Page %1"_s.arg(++m_titles));
}

void PLTypist::renamePage()
{
    press({u"F6"_s, u"F2"_s, u"ctrl+a"_s});
    pressTitle(u"Page %1"_s.arg(++m_titles));
}

void PLTypist::pressTitle(const QString &title)
{
    m_notebook.willRename(title);
    press(keysOf(title + u'\n'));
    awaitTitle(isThis, title);
    goToEnd();
}

/// The next page or the one before; where there is none, the way leads over a section and back.
void PLTypist::switchPage()
{
    const bool isDown = random(0, 1) == 0;
    const QString before = m_title;
    press({u"F6"_s, isDown ? u"Down"_s : u"Up"_s});
    if (awaitTitle(isOther, before) && m_title == windowTitle) {
        press({isDown ? u"Up"_s : u"Down"_s});
        awaitTitle(isPage);
    }
    press({u"F6"_s});
    goToEnd();
}
