// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

/// Waits until no key has been pressed anywhere in the program for a while, and says so once.
class PLTypingPause final : public QObject
{
    Q_OBJECT

public:
    /// Starts waiting at once.
    explicit PLTypingPause(std::chrono::milliseconds length, QObject *parent = nullptr);

Q_SIGNALS:
    void reached();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTimer m_timer;
};
