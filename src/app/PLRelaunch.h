// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The shell script that waits for the process to be gone, 20 seconds at most, then starts the program again.
/// The program's path reaches it as `$0`, so that no character of it is read by the shell.
QString PLRelaunchScript(qint64 processIdentifier);

/// Starts that script in a process of its own; false if it could not be started.
bool PLStartRelaunchScript(qint64 processIdentifier, const QString &program);

/// What is called instead of starting the script from now on; null starts it again. For tests, which must not
/// start themselves.
void PLSetRelaunchHandler(bool (*handler)(qint64 processIdentifier, const QString &program));
