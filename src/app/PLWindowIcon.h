// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

/// Gives all windows of the program, present and to come, their icon.
void PLInstallWindowIcon();
