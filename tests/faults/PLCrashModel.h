// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLDiskState.h"
#include "faults/PLFileCall.h"

#include <functional>

/// What a power cut may leave of a recorded operation. Touches no disk; docs/notes/crash-states.md says what
/// is taken for possible, and why.
class PLCrashModel final
{
public:
    /// What a disk writes in one go, in bytes.
    static constexpr qsizetype sectorSize = 512;
    /// Above these nothing is left out in silence: the enumeration is refused.
    static constexpr int mostUnflushedNames = 12;
    static constexpr qsizetype mostContents = 1 << 16;

    using Visitor = std::function<void(const PLDiskState &)>;

    PLCrashModel(const PLDiskState &initial, const PLRecording &recording)
        : m_initial(initial), m_recording(recording)
    {
    }

    /// True if every call that changed something is one that the model knows.
    bool isUnderstood() const;

    /// What programs see after that many calls of the recording.
    PLDiskState liveState(qsizetype calls) const;

    /// Visits each state that a power cut may leave after that many calls; some come more than once. False if
    /// there are too many.
    [[nodiscard]] bool visitCrashStates(qsizetype calls, const Visitor &visit) const;

private:
    PLDiskState m_initial;
    PLRecording m_recording;
};
