// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLExitSignals.h"

#include <QGuiApplication>
#include <QSessionManager>

#ifdef Q_OS_UNIX
#include <QSocketNotifier>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

// A handler of a signal may do little more than write to a pipe; the event loop reads it.
int pipeEnds[2] = {-1, -1};

void signalArrived(int)
{
    const int savedErrno = errno;
    const char byte = 1;
    [[maybe_unused]] const auto written = write(pipeEnds[1], &byte, 1);
    errno = savedErrno;
}

void installHandlers()
{
    struct sigaction action = {};
    action.sa_handler = signalArrived;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaction(number, &action, nullptr);
    // A write to a preview process or socket that is gone must be an error, not the end.
    signal(SIGPIPE, SIG_IGN);
    // A full quota on file sizes must be an error of the write.
    signal(SIGXFSZ, SIG_IGN);
}

} // namespace
#endif

PLExitSignals::PLExitSignals(QObject *parent) : QObject(parent)
{
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Q_EMIT sessionWillEnd(); },
        Qt::DirectConnection);
#ifdef Q_OS_UNIX
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &PLExitSignals::readSignal);
    installHandlers();
#endif
}

PLExitSignals::~PLExitSignals()
{
#ifdef Q_OS_UNIX
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        signal(number, SIG_DFL);
    close(pipeEnds[0]);
    close(pipeEnds[1]);
#endif
}

void PLExitSignals::readSignal()
{
#ifdef Q_OS_UNIX
    char bytes[16];
    while (read(pipeEnds[0], bytes, sizeof bytes) > 0) {
    }
    Q_EMIT exitRequested();
#endif
}
