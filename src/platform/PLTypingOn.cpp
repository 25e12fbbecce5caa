// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLTypingOn.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>

namespace {

/// A list takes input methods too, for the field that it would open.
bool isText(const QWidget *widget)
{
    return widget && widget->testAttribute(Qt::WA_InputMethodEnabled) &&
           !qobject_cast<const QAbstractItemView *>(widget);
}

/// Ctrl and Alt together are AltGr, which types characters.
bool isCommand(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    return event.key() == Qt::Key_Escape || held.testFlag(Qt::MetaModifier) ||
           held.testFlag(Qt::ControlModifier) != held.testFlag(Qt::AltModifier);
}

/// A key, what is composed of several, and the question whether anything is to be composed.
bool isTyping(const QEvent &event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return !isCommand(static_cast<const QKeyEvent &>(event));
    case QEvent::InputMethod:
    case QEvent::InputMethodQuery:
        return true;
    default:
        return false;
    }
}

} // namespace

PLTypingOn::PLTypingOn(const QWidget &window, std::chrono::milliseconds longestGap)
    : m_window(window), m_longestGap(longestGap), m_end(longestGap)
{
    if (!isText(QApplication::focusWidget()))
        return;
    m_text = QApplication::focusWidget();
    QCoreApplication::instance()->installEventFilter(this);
}

bool PLTypingOn::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget || widget->window() != &m_window)
        return false;
    if (event->type() == QEvent::WindowActivate)
        m_end.setRemainingTime(m_longestGap); // until now no key could come
    if (!m_text || m_end.hasExpired() || !isTyping(*event))
        return false;
    m_end.setRemainingTime(m_longestGap);
    QCoreApplication::sendEvent(m_text, event);
    event->accept();
    return true;
}
