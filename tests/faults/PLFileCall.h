// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>

/// One file-system call that was made below a folder. Paths are relative to that folder, and empty for it.
struct PLFileCall
{
    enum class Kind {
        Look,     ///< stat, access, readlink: nothing changes
        Read,     ///< read, opendir
        Open,     ///< of a file or folder that was there
        Create,   ///< an open that makes a file
        Truncate, ///< to `offset` bytes
        Write,    ///< `bytes` at `offset`
        SetMode,
        Flush, ///< fsync, fdatasync
        Close,
        Rename, ///< from `path` to `otherPath`
        Link,   ///< `otherPath` is a further name of `path`
        Unlink,
        MakeFolder,
        RemoveFolder,
        Unknown, ///< a change that nothing here understands
    };

    Kind kind = Kind::Unknown;
    QByteArray path;
    QByteArray otherPath;
    int handle = 0; ///< which open file, counted from 1 in the order of opening; 0 for none
    qint64 offset = 0;
    QByteArray bytes;
    unsigned mode = 0;
    int error = 0; ///< errno; 0 for a call that has succeeded
    bool isFolder = false;
};

/// The calls of an operation, in order, the failed ones too.
using PLRecording = QList<PLFileCall>;

/// Makes calls fail.
struct PLFault
{
    enum class Reach {
        Once,
        SameKind,   ///< and all later calls of that kind
        Everything, ///< and all later calls: a disk that has gone
    };

    int call = -1; ///< the index in the recording; -1 for no fault
    int error = 0; ///< the errno value that is answered
    Reach reach = Reach::Once;
    qsizetype writtenBytes = 0; ///< without an error: the most bytes that a write takes
};
