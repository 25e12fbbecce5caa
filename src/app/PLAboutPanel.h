// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// Makes the about panel: icon, name, version and licence. It holds no other window up, and is deleted when
/// it is closed.
QWidget *PLMakeAboutPanel();
