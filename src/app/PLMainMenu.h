// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLCommand.h"

#include <QKeySequence>
#include <QString>

class QAction;
class QMenu;
class QMenuBar;
class QMainWindow;

/// Builds the menu bar into a window, in the interface language. Each item sends its command along the chain.
void PLInstallMainMenu(QMainWindow &window);

/// Adds a submenu of this title, and returns it.
QMenu *PLAddSubmenu(QMenu *menu, const QString &title);

/// Adds an item; without a shortcut for an empty key sequence.
QAction *PLAddItem(QMenu *menu, const QString &title, PLCommand command, int tag, const QKeySequence &keys);
