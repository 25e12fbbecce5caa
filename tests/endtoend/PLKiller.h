// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "endtoend/PLProcessClock.h"

#include <QString>

#include <atomic>
#include <thread>

/// Kills a program at a moment of its own choice, while another thread keeps it busy.
class PLKiller final
{
public:
    enum class Aim {
        AnyMoment,
        AtAChange, ///< when a file comes, goes or is moved, or some moments later
    };

    /// `watched` is the folder whose changes are meant.
    PLKiller(const PLProcessClock &clock, const QString &watched);
    ~PLKiller();
    PLKiller(const PLKiller &) = delete;
    PLKiller &operator=(const PLKiller &) = delete;

    /// Begins to wait: for so many milliseconds and then, aiming at a change, for the next one.
    void takeAim(Aim aim, int delay);
    bool hasKilled() const { return m_hasKilled; }
    /// When the program was killed; waits until it is.
    PLMoment waitForKill();

private:
    void waitForChange() const;

    PLProcessClock m_clock;
    int m_changes = -1; ///< the descriptor that tells of them
    std::atomic<bool> m_hasKilled = false;
    PLMoment m_killed;
    std::thread m_thread;
};
