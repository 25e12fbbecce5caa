// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The text with its keys named as this desktop names them: where there is no command key, "Gras (⌘B)"
/// becomes "Gras (Ctrl+B)" and "(⌥⌘P)" becomes "(Ctrl+Alt+P)".
QString PLTextWithPlatformKeys(const QString &text);

/// The text without the keys in parentheses at its end: "Gras" for "Gras (⌘B)".
QString PLTextWithoutKeys(const QString &text);
