// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLLineServer.h"

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>

#include <memory>

namespace {

constexpr char acknowledgement = '+';

void readLine(QLocalSocket *socket, const std::function<bool(const QByteArray &)> &take)
{
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > PLLineServer::LongestLine)
            socket->abort();
        return;
    }
    if (!take(socket->readLine(PLLineServer::LongestLine).chopped(1)))
        return socket->abort();
    socket->write(QByteArray(1, acknowledgement));
    socket->flush();
    socket->disconnectFromServer();
}

} // namespace

PLLineServer::PLLineServer(std::function<bool(const QByteArray &)> take, QObject *parent)
    : QObject(parent), m_take(std::move(take))
{
}

PLLineServer::~PLLineServer() = default;

bool PLLineServer::canListenAt(const QString &)
{
    return true; // the toolkit shortens what has to be short
}

void PLLineServer::listen(const QString &path)
{
    QLocalServer::removeServer(path);
    auto *server = new QLocalServer(this);
    server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server, &QLocalServer::newConnection, this, &PLLineServer::accept);
    server->listen(path);
}

void PLLineServer::accept()
{
    auto *server = findChild<QLocalServer *>();
    while (QLocalSocket *socket = server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readLine(socket, m_take); });
        readLine(socket, m_take);
    }
}

bool PLLineServer::send(const QString &path, const QByteArray &line, int timeout)
{
    // Qt's sockets want an application object; the real one may not be there yet.
    static char name[] = "aquilane";
    static char *arguments[] = {name, nullptr};
    int count = 1;
    std::unique_ptr<QCoreApplication> application;
    if (!QCoreApplication::instance())
        application = std::make_unique<QCoreApplication>(count, arguments);
    QLocalSocket socket;
    socket.connectToServer(path);
    if (!socket.waitForConnected(timeout))
        return false;
    socket.write(line + '\n');
    if (!socket.waitForBytesWritten(timeout) || !socket.waitForReadyRead(timeout))
        return false;
    return socket.read(1) == QByteArray(1, acknowledgement);
}
