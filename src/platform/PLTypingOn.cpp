// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLTypingOn.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>

#include <memory>

namespace {

/// A list takes input methods too, for the field that it would open.
bool isText(const QWidget *widget)
{
    return widget && widget->testAttribute(Qt::WA_InputMethodEnabled) &&
           !qobject_cast<const QAbstractItemView *>(widget);
}

/// Ctrl and Alt together are AltGr, which types characters.
bool isOfText(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    const bool isCommand = held.testFlag(Qt::ControlModifier) != held.testFlag(Qt::AltModifier) ||
                           held.testFlag(Qt::MetaModifier);
    return event.key() != Qt::Key_Escape && !isCommand;
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
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (!isKey || !m_text || m_end.hasExpired() || !isOfText(*static_cast<QKeyEvent *>(event)))
        return false;
    m_end.setRemainingTime(m_longestGap);
    const std::unique_ptr<QEvent> copy(event->clone());
    QCoreApplication::sendEvent(m_text, copy.get());
    event->accept();
    return true;
}
