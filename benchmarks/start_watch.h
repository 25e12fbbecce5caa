// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

struct xcb_connection_t;

/// What one start has cost.
struct StartCost
{
    double milliseconds = 0; ///< from before the fork until the first window has something painted in it
    double kibibytes = 0; ///< the proportional set size of the process and its children, once it is at rest
};

/// An X server of its own, without a screen and without a window manager, a session bus of its own, and the
/// programs started under them. Throws std::runtime_error when one of them is not as it has to be.
class StartWatch final
{
public:
    StartWatch();
    ~StartWatch();

    StartWatch(const StartWatch &) = delete;
    StartWatch &operator=(const StartWatch &) = delete;

    /// Starts the program, waits for its window, looks at its memory and ends it.
    StartCost start(const std::vector<std::string> &command);

private:
    void startServer();
    void startBus();
    void waitForPaintedWindow();
    bool isPainted(unsigned window);

    pid_t m_server = -1;
    pid_t m_bus = -1;
    xcb_connection_t *m_connection = nullptr;
    unsigned m_root = 0;
};
