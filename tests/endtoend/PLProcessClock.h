// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// A moment, and how long some processes have been kept from a processor until then; in nanoseconds.
struct PLMoment
{
    qint64 time = 0;
    qint64 waited = 0;
};

/// Tells the time to whoever has to be fair to two processes on a busy machine.
struct PLProcessClock
{
    qint64 program = 0;
    qint64 server = 0;

    PLMoment now() const;
};
