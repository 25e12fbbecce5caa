// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <chrono>

/// While it lives, passes the keys that come to a window on to the text that had the keyboard when it was
/// made, until there is a longer gap between two of them. Escape and commands stay with the window.
class PLTypingOn final : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds usualGap{500};

    explicit PLTypingOn(const QWidget &window, std::chrono::milliseconds longestGap = usualGap);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const QWidget &m_window;
    QPointer<QWidget> m_text; ///< null if what had the keyboard is no text
    std::chrono::milliseconds m_longestGap;
    QDeadlineTimer m_end;
};
