// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLWindow.h"

#include "platform/PLWindowFrame.h"

#include <QCloseEvent>
#include <QScreen>
#include <QWindow>

PLWindow::PLWindow(PLWindowDelegate *delegate) : m_delegate(delegate)
{
    setContextMenuPolicy(Qt::NoContextMenu);
}

PLWindow::~PLWindow()
{
    saveFrame();
}

void PLWindow::forgetDelegate()
{
    m_delegate = nullptr;
    m_controller = nullptr;
}

void PLWindow::setFrameAutosaveName(const QString &name)
{
    m_frameName = name;
    PLRestoreWindowFrame(*this, name);
}

void PLWindow::center()
{
    const QRect available = screen()->availableGeometry();
    QRect frame(QPoint(), size().boundedTo(available.size()));
    frame.moveCenter(available.center());
    setGeometry(frame);
}

void PLWindow::makeKeyAndOrderFront()
{
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    if (isVisible())
        raise();
    show();
    activateWindow();
}

std::optional<PLCommandState> PLWindow::stateOfCommand(PLCommand command, int) const
{
    switch (command) {
    case PLCommand::PerformClose:
    case PLCommand::PerformMiniaturize:
    case PLCommand::PerformZoom:
        return PLCommandState{};
    case PLCommand::ToggleFullScreen:
        return PLCommandState{true, isFullScreen()};
    default:
        return std::nullopt;
    }
}

void PLWindow::performCommand(PLCommand command, int)
{
    if (command == PLCommand::PerformClose)
        close();
    else if (command == PLCommand::PerformMiniaturize)
        showMinimized();
    else if (command == PLCommand::PerformZoom)
        setWindowState(windowState() ^ Qt::WindowMaximized);
    else if (command == PLCommand::ToggleFullScreen)
        toggleFullScreen();
}

void PLWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || isActiveWindow() == m_isKey)
        return;
    m_isKey = isActiveWindow();
    if (!m_isKey)
        saveFrame();
    if (m_delegate && m_isKey)
        m_delegate->windowDidBecomeKey();
    else if (m_delegate)
        m_delegate->windowDidResignKey();
}

void PLWindow::closeEvent(QCloseEvent *event)
{
    if (m_delegate && !m_delegate->windowShouldClose()) {
        event->ignore();
        return;
    }
    event->accept();
    if (m_delegate)
        m_delegate->windowWillClose();
}

void PLWindow::hideEvent(QHideEvent *event)
{
    saveFrame();
    QMainWindow::hideEvent(event);
}

void PLWindow::saveFrame()
{
    if (!m_frameName.isEmpty() && testAttribute(Qt::WA_WState_Created))
        PLSaveWindowFrame(*this, m_frameName);
}

void PLWindow::toggleFullScreen()
{
    setWindowState(windowState() ^ Qt::WindowFullScreen);
}
