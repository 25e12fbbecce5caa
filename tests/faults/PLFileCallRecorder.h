// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLFileCall.h"

/// Stands between this process and the C library: writes down the file-system calls that the calling thread
/// makes below one folder, and makes chosen ones fail. In a shared module, so that its functions come before
/// those of the C library.
class PLFileCallRecorder final
{
public:
    PLFileCallRecorder() = delete;

    /// From now on calls below the folder are recorded; one of them may fail.
    static void start(const QByteArray &folder, const PLFault &fault = {});
    static PLRecording stop();

    /// How many files below the folder have been opened and not closed since the start.
    static int openFiles();

    /// Whether flushes reach the disk. They need not where only the memory's view of it is looked at.
    static void setFlushing(bool isFlushing);
    static bool isFlushing();
};
