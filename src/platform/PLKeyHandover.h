// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

/// Hands the keys that come to one window on to another, which is about to get the keyboard. The window
/// manager takes its time for that, some tenths of a second, and who types goes on meanwhile. It ends by
/// itself: when the other window has the keyboard, or is closed, at a click into the first one, after a
/// second, for a window manager may refuse, and when the next one begins.
class PLKeyHandover final : public QObject
{
    Q_OBJECT

public:
    /// From the window of the one widget to that of the other: to what has the focus there, else the widget.
    static void begin(const QWidget *from, QWidget *to);
    /// The window that is to have the keyboard, null when none is under way.
    static QWidget *target();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PLKeyHandover(const QWidget *from, QWidget *to);
    bool isOfFirstWindow(QObject *watched) const;
    void end();

    QPointer<const QWidget> m_from; ///< the window
    QWidget *m_to;
};
