// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QWidget;

/// Calls `remake`, which makes the native window of this window anew, so that no key is lost that is pressed
/// while there is none. Under X11 it is called a moment later, the keys wait meanwhile, and come when the new
/// window has the focus, or after a second. Elsewhere, and for a window that is not active, it is called at
/// once.
void PLRemakeHoldingKeys(QWidget &window, const std::function<void()> &remake);
