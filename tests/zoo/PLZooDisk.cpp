// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// In these programs, files are not flushed: on a busy disk that takes seconds, which are not ours, and
// whether the program flushes what it must is proven in tests/faults.

extern "C" int fsync(int descriptor);

extern "C" int fsync(int)
{
    return 0;
}
