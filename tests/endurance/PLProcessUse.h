// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObjectList>
#include <QString>

/// What this process holds at a moment.
struct PLProcessUse
{
    qint64 heapBytes = 0;    ///< in use, mapped blocks too
    qint64 privateBytes = 0; ///< in memory, of no file; 0 under the address sanitizer
    int files = 0;
    int threads = 0;
    int children = 0; ///< processes
    int objects = 0;  ///< below the roots
    int timers = 0;   ///< running, of those objects

    /// The objects and timers are those of the application, of all windows, and of the roots.
    static PLProcessUse now(QObjectList roots);

    QString description() const;
};
