// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSettings>
#include <QString>

/// The per-user store of preferences: one ini file, keys at top level.
class PLPreferences final
{
public:
    PLPreferences() = delete;

    /// The store; opened at first use. It is written by Qt at the next turn of the event loop and at exit.
    static QSettings &store();

    /// Makes the store the file at this path, from now on; tests call it so that they never meet a writer's
    /// own.
    static void useFile(const QString &path);
};
