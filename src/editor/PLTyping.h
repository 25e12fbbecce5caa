// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

class QKeyEvent;

/// True for a key that types a character: not for one of a menu, a shortcut, a movement or a deletion.
bool PLIsTyping(const QKeyEvent &event);
