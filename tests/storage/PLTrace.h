// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/PLTestFiles.h"

#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

/// A system call of an operation: the `count`th call of that name in the life of the process.
struct PLTracedCall
{
    QString name;
    int count = 0;

    /// The option that makes this call fail with the error, or kill the process: "error=EIO", "signal=KILL".
    QString fault(const QString &what) const
    {
        return QStringLiteral("%1:%2:when=%3").arg(name, what).arg(count);
    }
};

/// Runs PLFileFaultsProbe under strace, which writes down its system calls or makes them fail.
class PLTrace final
{
public:
    static bool isAvailable()
    {
        return !QStandardPaths::findExecutable(QStringLiteral("strace")).isEmpty() &&
               PLTrace().start({QStringLiteral("true")}) == 0;
    }

    /// The probe's exit code, -1 if it was killed. Faults are such as "fsync:error=EIO:when=2".
    int run(const QStringList &arguments, const QStringList &faults = {}) const
    {
        QStringList command;
        for (const QString &fault : faults)
            command << QStringLiteral("-e") << QStringLiteral("inject=") + fault;
        return start(command + QStringList{QStringLiteral(AQUILANE_PROBE)} + arguments);
    }

    /// The calls of the last run between the probe's two marks, those for memory and locks left out: they are
    /// not about files.
    QList<PLTracedCall> calls() const
    {
        static const QRegularExpression callName(QStringLiteral("^(\\w+)\\("));
        static const QStringList otherCalls{QStringLiteral("brk"),      QStringLiteral("futex"),
                                            QStringLiteral("madvise"),  QStringLiteral("mmap"),
                                            QStringLiteral("mprotect"), QStringLiteral("munmap")};
        QHash<QString, int> counts;
        QList<PLTracedCall> calls;
        bool isInside = false;
        const QStringList lines = QString::fromUtf8(PLBytesOf(logPath())).split(u'\n');
        for (const QString &line : lines) {
            const QString name = callName.match(line).captured(1);
            const int count = ++counts[name];
            if (line.contains(u"/aquilane-mark"))
                isInside = !isInside;
            else if (isInside && !name.isEmpty() && !otherCalls.contains(name))
                calls.append({name, count});
        }
        return calls;
    }

private:
    QString logPath() const { return m_logs.filePath(QStringLiteral("calls")); }

    int start(const QStringList &command) const
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // That check cannot be traced.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral("strace"), QStringList{QStringLiteral("-o"), logPath()} + command);
        if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
            return -1;
        return process.exitCode();
    }

    QTemporaryDir m_logs;
};
