// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLUserName.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <pwd.h>
#include <unistd.h>
#endif

QString PLFullUserName()
{
#ifdef Q_OS_UNIX
    const passwd *user = ::getpwuid(::getuid());
    if (!user || !user->pw_gecos)
        return QStringLiteral("");
    // The field goes on with room and telephone numbers, after commas.
    return QString::fromLocal8Bit(user->pw_gecos).section(u',', 0, 0);
#else
    return qEnvironmentVariable("USERNAME", QStringLiteral(""));
#endif
}
