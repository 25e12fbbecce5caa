// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QWidget;

/// Remembers a window's size, place and state under a name in the preferences.
void PLSaveWindowFrame(const QWidget &window, const QString &name);

/// Gives the window the frame saved under the name; false if there is none, or none within reach.
bool PLRestoreWindowFrame(QWidget &window, const QString &name);
