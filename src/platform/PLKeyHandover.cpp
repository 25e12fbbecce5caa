// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLKeyHandover.h"

#include <QApplication>
#include <QInputMethod>
#include <QTimer>

#include <memory>

namespace {

constexpr int longest = 1'000; // milliseconds

QPointer<PLKeyHandover> &current()
{
    static QPointer<PLKeyHandover> handover;
    return handover;
}

} // namespace

void PLKeyHandover::begin(const QWidget *from, QWidget *to)
{
    QGuiApplication::inputMethod()->commit(); // what is half composed belongs to the first window
    if (current())
        current()->end();
    current() = new PLKeyHandover(from, to);
}

QWidget *PLKeyHandover::target()
{
    return current() ? current()->m_to->window() : nullptr;
}

PLKeyHandover::PLKeyHandover(const QWidget *from, QWidget *to) : QObject(to), m_from(from->window()), m_to(to)
{
    QCoreApplication::instance()->installEventFilter(this);
    QTimer::singleShot(longest, this, &PLKeyHandover::end);
}

bool PLKeyHandover::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
        if (isOfFirstWindow(watched)) {
            const std::unique_ptr<QEvent> copy(event->clone());
            QWidget *focus = m_to->window()->focusWidget();
            QCoreApplication::sendEvent(focus ? focus : m_to, copy.get());
            event->accept();
            return true;
        }
        break;
    case QEvent::MouseButtonPress:
        if (isOfFirstWindow(watched))
            end();
        break;
    case QEvent::WindowActivate:
    case QEvent::Hide:
        if (watched == m_to->window())
            end();
        break;
    default:
        break;
    }
    return false;
}

bool PLKeyHandover::isOfFirstWindow(QObject *watched) const
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    return widget && m_from && widget->window() == m_from;
}

void PLKeyHandover::end()
{
    QCoreApplication::instance()->removeEventFilter(this);
    if (current() == this)
        current().clear();
    deleteLater();
}
