// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QWidget;

/// Calls `remake`, which makes the native window of this window anew, so that no key is lost that is pressed
/// while there is none, nor what is half composed. Under X11 it is called a moment later, the keys wait
/// meanwhile, a second at most, and come when the new window has the focus. Elsewhere, and for a window that
/// is not active, it is called at once.
void PLRemakeHoldingKeys(QWidget &window, const std::function<void()> &remake);
