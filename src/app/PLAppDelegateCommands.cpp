// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The commands that nobody before the application has taken: its windows as a whole, and its panels.

#include "app/PLAboutPanel.h"
#include "app/PLAppDelegate.h"
#include "app/PLPreferencesWindowController.h"
#include "notebook_window/PLProjectWindowController.h"

#include <QApplication>

#include <algorithm>

std::optional<PLCommandState> PLAppDelegate::stateOfCommand(PLCommand command, int) const
{
    const std::vector<PLWindow *> windows = shownWindows();
    const auto isMinimized = [](const PLWindow *window) { return window->isMinimized(); };
    switch (command) {
    case PLCommand::ShowAbout:
    case PLCommand::ShowPreferences:
    case PLCommand::ShowLibrary:
    case PLCommand::NewProject:
    case PLCommand::OpenProject:
    case PLCommand::Terminate:
    case PLCommand::ArrangeInFront:
        return PLCommandState{};
    case PLCommand::Hide:
        return PLCommandState{!std::all_of(windows.begin(), windows.end(), isMinimized)};
    case PLCommand::UnhideAllApplications:
        return PLCommandState{std::any_of(windows.begin(), windows.end(), isMinimized)};
    default:
        return std::nullopt;
    }
}

void PLAppDelegate::performCommand(PLCommand command, int)
{
    switch (command) {
    case PLCommand::ShowAbout:
        return showAbout();
    case PLCommand::ShowPreferences:
        return showPreferences();
    case PLCommand::ShowLibrary:
        return showLibrary();
    case PLCommand::NewProject:
        return newProject();
    case PLCommand::OpenProject:
        return openProject();
    case PLCommand::Terminate:
        return terminate();
    case PLCommand::Hide:
        return hide();
    default:
        return arrangeInFront();
    }
}

void PLAppDelegate::showAbout()
{
    if (!m_about)
        m_about = PLMakeAboutPanel();
    m_about->show();
    m_about->raise();
    m_about->activateWindow();
}

/// The windows on the screen or in the task bar, in order of opening, the library and the preferences last.
std::vector<PLWindow *> PLAppDelegate::shownWindows() const
{
    std::vector<PLWindow *> windows;
    for (const auto &controller : m_projectWindows)
        windows.push_back(controller->window());
    if (m_library)
        windows.push_back(m_library->window());
    if (m_preferences)
        windows.push_back(m_preferences->window());
    std::erase_if(windows, [](const PLWindow *window) { return !window->isVisible(); });
    return windows;
}

/// A program has no place to be hidden in on this desktop but the task bar.
void PLAppDelegate::hide()
{
    for (PLWindow *window : shownWindows())
        window->showMinimized();
}

/// All windows, out of the task bar if need be; the one in front stays there.
void PLAppDelegate::arrangeInFront()
{
    auto *front = qobject_cast<PLWindow *>(QApplication::activeWindow());
    for (PLWindow *window : shownWindows())
        window->makeKeyAndOrderFront();
    if (front)
        front->makeKeyAndOrderFront();
}
