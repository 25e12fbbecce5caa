// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <csignal>

/// One start of the program, in a process of its own. Killed when it goes out of scope.
class PLProgramStart final
{
public:
    static constexpr int patience = 20'000; // milliseconds

    explicit PLProgramStart(const QProcessEnvironment &environment, const QStringList &paths = {})
    {
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(AQUILANE_START), paths);
    }
    ~PLProgramStart() { kill(); }

    PLProgramStart(const PLProgramStart &) = delete;
    PLProgramStart &operator=(const PLProgramStart &) = delete;

    /// The next line it says; empty when it says no more.
    QByteArray line()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(patience)) {
        }
        return m_process.readLine().chopped(1);
    }
    /// True if this is the program, and listens.
    bool isFirst() { return line() == "first" && line() == "listening"; }

    void send(const QByteArray &bytes) { m_process.write(bytes); }
    void signal(int number) { ::kill(pid_t(m_process.processId()), number); }
    /// Whether it has begun to call, or to listen to, another one.
    bool hasSocket() const
    {
        const QDir files(QStringLiteral("/proc/%1/fd").arg(m_process.processId()));
        const QFileInfoList entries = files.entryInfoList(QDir::Files | QDir::System);
        return std::any_of(entries.begin(), entries.end(), [](const QFileInfo &file) {
            return file.symLinkTarget().contains(QStringLiteral("socket:"));
        });
    }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    void kill()
    {
        m_process.kill(); // SIGKILL
        m_process.waitForFinished(patience);
    }

    /// The line that the program says for a request.
    static QByteArray requestOf(const QStringList &paths, const QString &token = QStringLiteral(""))
    {
        QJsonArray request = QJsonArray::fromStringList(paths);
        request.append(token);
        return QJsonDocument(request).toJson(QJsonDocument::Compact);
    }

private:
    QProcess m_process;
};
