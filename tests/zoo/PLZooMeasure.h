// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#if defined(__SANITIZE_ADDRESS__)
#define PL_ZOO_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define PL_ZOO_SANITIZED 1
#endif
#endif

/// How much longer a step may take in this build: our own code is three to five times as slow under the
/// sanitizers, which check each access to memory.
#ifdef PL_ZOO_SANITIZED
inline constexpr double PLZooSlowness = 5;
#else
inline constexpr double PLZooSlowness = 1;
#endif

/// How long a step has kept the thread of the windows: the time it worked and the time it waited for the disk
/// or for whatever else, but not the time in which other programs had the processor.
class PLZooStopwatch final
{
public:
    PLZooStopwatch();
    double seconds() const;

private:
    double m_begin;
};

/// A path or a title of any characters in a form that a terminal survives.
QString PLZooShown(const QString &text);
