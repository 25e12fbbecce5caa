// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QSessionManager;

/// Tells when the program is asked from outside to end: SIGTERM, SIGINT, SIGHUP, or the end of the desktop
/// session. Nobody is there to answer a question then.
class PLExitSignals final : public QObject
{
    Q_OBJECT

public:
    explicit PLExitSignals(QObject *parent = nullptr);
    ~PLExitSignals() override;

Q_SIGNALS:
    /// The desktop session may end now: save everything, the program may still go on.
    void sessionWillEnd();
    /// The process must end: save everything and leave the event loop.
    void exitRequested();

private:
    void readSignal();
};
