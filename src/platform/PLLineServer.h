// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>

/// Takes one line of text from each caller, on a socket that only its user can reach.
/// On Unix it stands on the system's own sockets: the toolkit's network library, with all that it pulls in,
/// would cost the start a quarter of what a bare window costs.
class PLLineServer final : public QObject
{
public:
    /// The longest line, in bytes; a caller who sends more is cut off.
    static constexpr qsizetype LongestLine = 4 << 20;

    /// `take` is called with each line, without its end, and says whether it is one; the caller is told so at
    /// once. What there is to do about it has to wait until the event loop turns.
    explicit PLLineServer(std::function<bool(const QByteArray &line)> take, QObject *parent = nullptr);
    /// Takes the socket away.
    ~PLLineServer() override;

    /// Whether a path is short enough to listen at.
    static bool canListenAt(const QString &path);

    /// Listens at this path, in the place of a socket, a file, a link or an empty folder that was left there.
    void listen(const QString &path);

    /// Sends a line to whoever listens at this path; needs no application object. True if it was taken within
    /// `timeout` milliseconds.
    [[nodiscard]] static bool send(const QString &path, const QByteArray &line, int timeout);

private:
    void accept();

    std::function<bool(const QByteArray &)> m_take;
    QString m_path; ///< empty if nothing listens there
    int m_descriptor = -1;
};
