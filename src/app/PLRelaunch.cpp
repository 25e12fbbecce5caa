// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLRelaunch.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

/// How a program is opened again: by the system's command for application bundles, or as it is.
#ifdef Q_OS_MACOS
constexpr QStringView openCommand = u"open \"$0\"";
#else
constexpr QStringView openCommand = u"exec \"$0\"";
#endif

bool (*relaunchHandler)(qint64, const QString &) = nullptr;

} // namespace

QString PLRelaunchScript(qint64 processIdentifier)
{
    return u"i=0; while kill -0 %1 2>/dev/null && [ $i -lt 100 ]; do sleep 0.2; i=$((i+1)); done; %2"_s.arg(
        QString::number(processIdentifier), openCommand);
}

bool PLStartRelaunchScript(qint64 processIdentifier, const QString &program)
{
    if (relaunchHandler)
        return relaunchHandler(processIdentifier, program);
    return QProcess::startDetached(u"/bin/sh"_s, {u"-c"_s, PLRelaunchScript(processIdentifier), program});
}

void PLSetRelaunchHandler(bool (*handler)(qint64, const QString &))
{
    relaunchHandler = handler;
}
