// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>

#include <memory>

class PLLineServer;

/// Sees to it that one user has one Aquilane: the first start listens on a socket that only its user can
/// reach, a later one hands its paths over and ends. A lock held by the kernel tells them apart, so that a
/// socket left by a killed process never stops a start.
class PLSingleInstance final : public QObject
{
    Q_OBJECT

public:
    enum class Role {
        First,      ///< this process is the program
        HandedOver, ///< another one is, and has taken the paths
        NoAnswer,   ///< another one is, but does not answer
    };

    explicit PLSingleInstance(QObject *parent = nullptr);
    ~PLSingleInstance() override;

    /// Decides who this process is. Needs no application object; waits at most `timeout` milliseconds for the
    /// answer of another process. The paths are absolute.
    Role start(const QStringList &paths, int timeout = 5000);

    /// Begins to take the paths of later starts; needs the application object.
    void listen();

Q_SIGNALS:
    /// Another start asks to open these; with none it asks to show the program.
    /// `activationToken` is the desktop's leave to come to the front (Wayland), often empty.
    void requestReceived(const QStringList &paths, const QString &activationToken);

private:
    bool lock();
    QString socketPath() const;
    /// False if it is not a request.
    bool takeRequest(const QByteArray &line);

    QString m_folder;
    int m_lockDescriptor = -1; ///< of the open file, locked or not
    std::unique_ptr<PLLineServer> m_server;
};
