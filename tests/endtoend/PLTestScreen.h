// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// An X server with a window manager and a keyboard. To be used in the thread that it was made in.
class PLTestScreen final
{
public:
    PLTestScreen() = default;
    ~PLTestScreen();
    PLTestScreen(const PLTestScreen &) = delete;
    PLTestScreen &operator=(const PLTestScreen &) = delete;

    /// What is missing; empty if all is there.
    QString start();
    QString display() const { return m_display; }
    qint64 serverProcess() const { return m_server.processId(); }

    /// The title of the window that gets the keys; empty if none does.
    QString activeTitle();
    /// Presses the keys, named as X names them, so many milliseconds apart; returns once the server has them
    /// all. False if the keyboard is out of order.
    [[nodiscard]] bool press(const QStringList &keys, int delay = 12);

private:
    bool startManager();
    QByteArray ask(QProcess &tool, const QByteArray &command) const;
    bool startProcess(QProcess &process, const QString &program, const QStringList &arguments) const;

    QTemporaryDir m_folder;
    QString m_display;
    QProcess m_server;
    QProcess m_manager;
    QProcess m_keyboard;
    QProcess m_eyes;
};
