// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

/// Tells an X11 desktop that the start it shows a busy pointer for is over. The toolkit does so with its
/// first window; this is for a start that hands over to a program that is running, and has none.
void PLCompleteStartup();

/// What a desktop is told at the end of the start of this identifier.
QByteArray PLStartupRemoval(const QByteArray &identifier);
