// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTyping.h"

#include <QKeyEvent>

namespace {

#ifdef Q_OS_MACOS
constexpr bool isAltForTyping = true;
#else
constexpr bool isAltForTyping = false; // it opens the menus
#endif

} // namespace

/// Ctrl with Alt is the AltGr of some keyboards.
bool PLIsTyping(const QKeyEvent &event)
{
    const QString text = event.text();
    if (text.isEmpty())
        return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool isMenuKey = modifiers == Qt::AltModifier && !isAltForTyping;
    if (modifiers == Qt::ControlModifier || modifiers & Qt::MetaModifier || isMenuKey)
        return false;
    return text.front().category() != QChar::Other_Control; // those of Return, Backspace and the like
}
