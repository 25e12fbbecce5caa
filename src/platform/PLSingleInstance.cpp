// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSingleInstance.h"

#include "platform/PLLineServer.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QLockFile>
#endif

using namespace Qt::StringLiterals;

namespace {

const QString lockName = u"/aquilane.lock"_s;
const QString socketName = u"/aquilane.socket"_s;

#ifdef Q_OS_UNIX
/// A folder of this user's, to which those whose rights are among these `others` have none.
bool isOwnFolder(const QString &folder, mode_t others)
{
    struct stat information = {};
    return lstat(QFile::encodeName(folder).constData(), &information) == 0 && S_ISDIR(information.st_mode) &&
           information.st_uid == getuid() && (information.st_mode & others) == 0;
}

/// The session's own folder; empty if it will not do.
QString sessionFolder()
{
    const QString given = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString folder = given.startsWith(u'/') ? QFileInfo(given).canonicalFilePath() : QString();
    const bool isFit =
        isOwnFolder(folder, S_IWGRP | S_IWOTH) && PLLineServer::canListenAt(folder + socketName);
    return isFit ? folder : QString();
}

/// One made for this user under the temporary folder; empty if it will not do.
QString temporaryFolder()
{
    const QString folder = QDir::tempPath() + u"/aquilane-%1"_s.arg(getuid());
    mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
    return isOwnFolder(folder, S_IRWXG | S_IRWXO) ? folder : QString();
}

QString settingsFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QDir().mkpath(folder);
    return folder;
}

/// Negative if there is no place for a lock, as on a disk that cannot be written to, or if something else has
/// its name.
int openLock(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder + lockName);
    return open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
}
#endif

/// A request is one line of JSON.
QByteArray encodedRequest(const QStringList &paths)
{
    QJsonObject request;
    request[u"paths"] = QJsonArray::fromStringList(paths);
    request[u"activationToken"] = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return QJsonDocument(request).toJson(QJsonDocument::Compact);
}

/// Not one of the program's own resources, whose paths count as absolute.
bool isAbsolutePath(const QString &path)
{
    return QDir::isAbsolutePath(path) && !path.startsWith(u':');
}

} // namespace

PLSingleInstance::PLSingleInstance(QObject *parent) : QObject(parent), m_folder(QDir::tempPath())
{
#ifdef Q_OS_UNIX
    for (const auto candidate : {sessionFolder, temporaryFolder, settingsFolder}) {
        m_folder = candidate();
        m_lockDescriptor = m_folder.isEmpty() ? -1 : openLock(m_folder);
        if (m_lockDescriptor >= 0)
            return;
    }
#endif
}

PLSingleInstance::~PLSingleInstance()
{
    m_server.reset(); // before the lock goes, and another start makes a socket of its own
#ifdef Q_OS_UNIX
    if (m_lockDescriptor >= 0)
        close(m_lockDescriptor);
#endif
}

PLSingleInstance::Role PLSingleInstance::start(const QStringList &paths, int timeout)
{
    QDeadlineTimer deadline(timeout);
    do {
        if (lock())
            return Role::First;
        // The other process may still be starting, or just ending: try both roles again.
        if (PLLineServer::send(socketPath(), encodedRequest(paths), int(deadline.remainingTime())))
            return Role::HandedOver;
        QThread::msleep(20);
    } while (!deadline.hasExpired());
    return Role::NoAnswer;
}

bool PLSingleInstance::lock()
{
#ifdef Q_OS_UNIX
    // No place to lock in: better to start than to refuse.
    return m_lockDescriptor < 0 || flock(m_lockDescriptor, LOCK_EX | LOCK_NB) == 0;
#else
    static QLockFile file(m_folder + lockName);
    return file.tryLock(0);
#endif
}

void PLSingleInstance::listen()
{
    // A socket that is there was left by a killed process: the lock says that nobody uses it.
    m_server = std::make_unique<PLLineServer>([this](const QByteArray &line) { return takeRequest(line); });
    m_server->listen(socketPath());
}

QString PLSingleInstance::socketPath() const
{
    return m_folder + socketName;
}

bool PLSingleInstance::takeRequest(const QByteArray &line)
{
    const QJsonDocument request = QJsonDocument::fromJson(line);
    if (!request[u"paths"].isArray())
        return false;
    QStringList paths;
    const QJsonArray elements = request[u"paths"].toArray();
    for (const auto &element : elements)
        paths.append(element.toString());
    if (!std::all_of(paths.begin(), paths.end(), isAbsolutePath))
        return false;
    const QString token = request[u"activationToken"].toString();
    // Later: the other process waits for its answer, and what comes now may put up an alert.
    QMetaObject::invokeMethod(
        this, [this, paths, token] { Q_EMIT requestReceived(paths, token); }, Qt::QueuedConnection);
    return true;
}
