// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSingleInstance.h"

#include "platform/PLLineServer.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QThread>

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

#ifdef Q_OS_UNIX
bool isOurFolder(const struct stat &information, mode_t keptFromOthers)
{
    return S_ISDIR(information.st_mode) && information.st_uid == getuid() &&
           (information.st_mode & keptFromOthers) == 0;
}

/// The session's folder, as its environment names it. One in which somebody else could put a socket of his
/// own is none: he would be handed the paths, and the program would not start.
QString sessionFolder()
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    struct stat information = {};
    const bool isFound =
        folder.startsWith(u'/') && stat(QFile::encodeName(folder).constData(), &information) == 0;
    return isFound && isOurFolder(information, 022) ? folder : QString();
}

/// A folder made under the temporary folder, where others can make one of that name, or a link, before us.
QString temporaryFolder()
{
    const QString folder = QDir::tempPath() + u"/aquilane-%1"_s.arg(getuid());
    const QByteArray name = QFile::encodeName(folder);
    mkdir(name.constData(), 0700);
    struct stat information = {};
    const bool isFound = lstat(name.constData(), &information) == 0;
    return isFound && isOurFolder(information, 077) ? folder : QString();
}

/// A folder in which only this user can make a file.
QString privateFolder()
{
    if (const QString folder = sessionFolder(); !folder.isEmpty())
        return folder;
    if (const QString folder = temporaryFolder(); !folder.isEmpty())
        return folder;
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}
#else
QString privateFolder()
{
    return QDir::tempPath();
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

} // namespace

PLSingleInstance::PLSingleInstance(QObject *parent) : QObject(parent), m_folder(privateFolder()) {}

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
    if (m_lockDescriptor >= 0)
        return true;
    const QByteArray path = QFile::encodeName(m_folder + u"/aquilane.lock"_s);
    const int descriptor = open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0)
        return true; // no place to lock in: better to start than to refuse
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        close(descriptor);
        return false;
    }
    m_lockDescriptor = descriptor;
    return true;
#else
    static QLockFile file(m_folder + u"/aquilane.lock"_s);
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
    return m_folder + u"/aquilane.socket"_s;
}

bool PLSingleInstance::takeRequest(const QByteArray &line)
{
    const QJsonDocument request = QJsonDocument::fromJson(line);
    if (!request.isObject())
        return false;
    QStringList paths;
    const QJsonArray elements = request[u"paths"].toArray();
    for (const auto &element : elements)
        paths.append(element.toString());
    const QString token = request[u"activationToken"].toString();
    // Later: the other process waits for its answer, and what comes now may put up an alert.
    QMetaObject::invokeMethod(
        this, [this, paths, token] { Q_EMIT requestReceived(paths, token); }, Qt::QueuedConnection);
    return true;
}
