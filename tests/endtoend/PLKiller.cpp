// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endtoend/PLKiller.h"

#include <QFile>
#include <QRandomGenerator>

#include <csignal>

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

constexpr int longestWaitForChange = 8'000;   // milliseconds; whoever types without a pause changes nothing
constexpr quint32 longestAfterChange = 2'000; // microseconds

} // namespace

PLKiller::PLKiller(const PLProcessClock &clock, const QString &watched)
    : m_clock(clock), m_changes(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
{
    constexpr uint32_t changes = IN_CREATE | IN_MOVED_FROM | IN_MOVED_TO;
    ::inotify_add_watch(m_changes, QFile::encodeName(watched).constData(), changes);
}

PLKiller::~PLKiller()
{
    waitForKill();
    ::close(m_changes);
}

void PLKiller::takeAim(Aim aim, int delay)
{
    m_thread = std::thread([this, aim, delay] {
        ::usleep(useconds_t(delay) * 1'000);
        if (aim == Aim::AtAChange)
            waitForChange();
        ::kill(pid_t(m_clock.program), SIGKILL);
        m_killed = m_clock.now();
        m_hasKilled = true;
    });
}

void PLKiller::waitForChange() const
{
    char earlier[4'096];
    while (::read(m_changes, earlier, sizeof earlier) > 0) {
    }
    pollfd waiting = {m_changes, POLLIN, 0};
    ::poll(&waiting, 1, longestWaitForChange);
    // A save is over in much less than a millisecond on some disks, and takes several on others.
    const quint32 delay = QRandomGenerator::global()->bounded(longestAfterChange);
    if (delay % 2 == 0)
        ::usleep(delay);
}

PLMoment PLKiller::waitForKill()
{
    if (m_thread.joinable())
        m_thread.join();
    return m_killed;
}
