// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLFileCall.h"

#include <optional>

/// What the functions that stand in for those of the C library ask the recorder.
class PLInterposed final
{
public:
    PLInterposed() = delete;

    /// The path as it is recorded; none if it is not below the recorded folder or nothing is recorded.
    static std::optional<QByteArray> pathBelow(int folder, const char *path);
    /// The beginning of a record of a call on an open file; none if that file is not recorded.
    static std::optional<PLFileCall> callOnFile(int number, PLFileCall::Kind kind);

    /// The error that the call must answer, or 0.
    static int errorFor(const PLFileCall &call);
    /// How many of the bytes this write may take.
    static size_t bytesTaken(const PLFileCall &call, size_t wanted);

    static void note(const PLFileCall &call);
    static void noteOpened(PLFileCall call, int number);
    static void forget(int number);
};
