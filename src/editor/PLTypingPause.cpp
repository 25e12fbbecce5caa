// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTypingPause.h"

#include <QCoreApplication>
#include <QEvent>

PLTypingPause::PLTypingPause(std::chrono::milliseconds length, QObject *parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(length);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        QCoreApplication::instance()->removeEventFilter(this);
        Q_EMIT reached();
    });
    QCoreApplication::instance()->installEventFilter(this);
    m_timer.start();
}

bool PLTypingPause::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::InputMethod)
        m_timer.start();
    return QObject::eventFilter(watched, event);
}
