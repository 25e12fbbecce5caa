// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <future>

/// Reads the configuration of the fonts in another thread, where the toolkit will find it read. That takes
/// half as long as making the application, and is otherwise waited for at the first text of the first window.
/// Hold the future while the application is made: its destructor waits for the end.
[[nodiscard]] std::future<void> PLReadFontsAhead();
