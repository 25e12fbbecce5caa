// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLTextPanel.h"

#include "platform/PLKeyHandover.h"
#include "platform/PLWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

namespace {

constexpr int cornerDistance = 24;
constexpr int longestLeave = 250; // milliseconds

} // namespace

PLTextPanel::PLTextPanel(PLTextTarget *target, QWidget *view) : QWidget(view, Qt::Tool), m_target(target)
{
    m_leaveTimer.setSingleShot(true);
    m_leaveTimer.setInterval(longestLeave);
    connect(&m_leaveTimer, &QTimer::timeout, this, &QWidget::close);
}

std::optional<PLCommandState> PLTextPanel::stateOfCommand(PLCommand command, int tag) const
{
    if (command == PLCommand::PerformClose)
        return PLCommandState{};
    const PLCommandHandler *handler = nextHandler(command, tag);
    return handler ? handler->stateOfCommand(command, tag) : std::nullopt;
}

void PLTextPanel::performCommand(PLCommand command, int tag)
{
    if (command == PLCommand::PerformClose) {
        leave();
        return;
    }
    if (PLCommandHandler *handler = nextHandler(command, tag))
        handler->performCommand(command, tag);
}

void PLTextPanel::present(bool takesFocus)
{
    const bool wasLeaving = m_leaveTimer.isActive();
    m_leaveTimer.stop();
    setAttribute(Qt::WA_ShowWithoutActivating, !takesFocus);
    if (!m_isPlaced)
        place();
    show();
    raise();
    if (!takesFocus)
        return;
    activateWindow();
    firstField()->setFocus();
    // The window manager may still be about to give the text the keyboard that the panel has.
    const QWidget *active = QApplication::activeWindow();
    if (wasLeaving || active != this)
        PLKeyHandover::begin(wasLeaving || !active ? parentWidget() : active, this);
}

void PLTextPanel::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        leave();
    } else if (auto *button = qobject_cast<QPushButton *>(focusWidget()); isReturn && button) {
        button->click();
    } else if (isReturn) {
        performDefault(event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}

/// The panel goes when the text's window has the keyboard; before, the window manager would leave it to
/// nobody for a moment.
void PLTextPanel::leave()
{
    if (QApplication::activeWindow() != this) {
        close();
    } else if (!m_leaveTimer.isActive()) {
        m_leaveTimer.start();
        giveKeyboardBack();
    }
}

void PLTextPanel::giveKeyboardBack()
{
    m_target->takeFocus();
    if (QApplication::activeWindow() == this)
        PLKeyHandover::begin(this, parentWidget());
}

bool PLTextPanel::event(QEvent *event)
{
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::WindowDeactivate && m_leaveTimer.isActive())
        close();
    return isHandled;
}

void PLTextPanel::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (!m_leaveTimer.isActive())
        giveKeyboardBack();
    m_leaveTimer.stop();
    Q_EMIT didClose();
}

/// The chain that a command goes along from the text, not from the panel.
PLCommandHandler *PLTextPanel::nextHandler(PLCommand command, int tag) const
{
    const auto knows = [&](PLCommandHandler *handler) {
        return handler && handler->stateOfCommand(command, tag);
    };
    for (QWidget *widget = parentWidget(); widget; widget = widget->parentWidget()) {
        if (auto *handler = dynamic_cast<PLCommandHandler *>(widget); knows(handler))
            return handler;
    }
    const auto *window = qobject_cast<PLWindow *>(parentWidget()->window());
    return window && knows(window->controller()) ? window->controller() : nullptr;
}

void PLTextPanel::place()
{
    m_isPlaced = true;
    adjustSize();
    const QRect window = parentWidget()->window()->frameGeometry();
    move(window.right() - width() - cornerDistance, window.top() + 3 * cornerDistance);
}
