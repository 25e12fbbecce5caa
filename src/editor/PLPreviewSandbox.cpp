// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPreviewSandbox.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <QByteArray>

#include <cerrno>

#include <fcntl.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_LINUX
bool writeWhole(const char *path, const QByteArray &text)
{
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    const bool isWritten = file >= 0 && ::write(file, text.constData(), size_t(text.size())) == text.size();
    ::close(file);
    return isWritten;
}

/// A map of one user or group onto itself, as the kernel reads it.
QByteArray mapOfOne(unsigned number)
{
    const QByteArray text = QByteArray::number(number);
    return text + ' ' + text + " 1\n";
}

/// In a child process: what the engine tries at its start, a user namespace with its maps and one inside of
/// it. Some systems allow the first step only.
bool canNestNamespaces(const QByteArray &userMap, const QByteArray &groupMap)
{
    return ::unshare(CLONE_NEWUSER) == 0 && writeWhole("/proc/self/setgroups", "deny") &&
           writeWhole("/proc/self/uid_map", userMap) && writeWhole("/proc/self/gid_map", groupMap) &&
           ::unshare(CLONE_NEWUSER) == 0;
}

bool canMakeSandbox()
{
    const QByteArray userMap = mapOfOne(::geteuid());
    const QByteArray groupMap = mapOfOne(::getegid());
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(canNestNamespaces(userMap, groupMap) ? 0 : 1);
    int status = 1;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
#else
bool canMakeSandbox()
{
    return true;
}
#endif

} // namespace

bool PLIsSuperUser()
{
#ifdef Q_OS_LINUX
    return ::geteuid() == 0;
#else
    return false;
#endif
}

bool PLCanSandboxPreview()
{
    if (qEnvironmentVariableIntValue("QTWEBENGINE_DISABLE_SANDBOX") == 1)
        return true;
    static const bool canSandbox = !PLIsSuperUser() && canMakeSandbox();
    return canSandbox;
}
