// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endtoend/PLTestScreen.h"

#include <QElapsedTimer>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20'000; // milliseconds

void end(QProcess &process)
{
    process.kill();
    process.waitForFinished(patience);
}

} // namespace

PLTestScreen::~PLTestScreen()
{
    end(m_keyboard);
    end(m_eyes);
    end(m_manager);
    end(m_server);
}

bool PLTestScreen::startProcess(QProcess &process, const QString &program, const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, m_display);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    process.setProcessEnvironment(environment);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForStarted(patience);
}

/// The server finds a free display number itself.
QString PLTestScreen::start()
{
    // It repeats no key: on a busy machine, a key is held for longer than was meant.
    const QStringList options = u"-r -displayfd 1 -screen 0 1000x700x24 -noreset -nolisten tcp"_s.split(u' ');
    if (!startProcess(m_server, u"Xvfb"_s, options))
        return u"no Xvfb"_s;
    while (!m_server.canReadLine() && m_server.waitForReadyRead(patience)) {
    }
    m_display = u':' + QString::fromLatin1(m_server.readLine().trimmed());
    return startManager() ? QString() : u"no openbox"_s;
}

/// It is up when it runs what it is to run then; a window that comes just before would never be shown.
bool PLTestScreen::startManager()
{
    const QString mark = m_folder.filePath(u"managed"_s);
    if (!startProcess(m_manager, u"openbox"_s, {u"--sm-disable"_s, u"--startup"_s, u"touch "_s + mark}))
        return false;
    QElapsedTimer timer;
    timer.start();
    while (!QFile::exists(mark) && !timer.hasExpired(patience))
        QThread::msleep(20);
    return QFile::exists(mark);
}

/// xdotool takes command after command from its input, and ends at the first that fails.
QByteArray PLTestScreen::ask(QProcess &tool, const QByteArray &command) const
{
    if (tool.state() != QProcess::Running && !startProcess(tool, u"xdotool"_s, {u"-"_s}))
        return QByteArray();
    tool.write(command + '\n');
    while (!tool.canReadLine() && tool.waitForReadyRead(patience)) {
    }
    const QByteArray answer = tool.readLine().trimmed();
    if (answer.isEmpty())
        end(tool);
    return answer;
}

/// The window may go while it is asked for its name, which ends the tool.
QString PLTestScreen::activeTitle()
{
    return QString::fromUtf8(ask(m_eyes, "getwindowfocus getwindowname"));
}

bool PLTestScreen::press(const QStringList &keys, int delay)
{
    const QByteArray command = "key --delay " + QByteArray::number(delay) + ' ' + keys.join(u' ').toLatin1();
    return !ask(m_keyboard, command + "\ngetdisplaygeometry")
                .isEmpty(); // which is answered when the keys are done
}
