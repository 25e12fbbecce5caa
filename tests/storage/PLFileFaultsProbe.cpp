// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Does one thing to a file, for PLFileFaultsTest, which makes its system calls fail: "write", "create" or
// "move". Answers 0 for success, 1 for an error that was reported, 2 for one that was not.

#include "storage/PLFiles.h"

#include <unistd.h>

namespace {

/// Shows in the list of system calls where the operation begins and ends.
void mark()
{
    (void)::access("/aquilane-mark", F_OK);
}

bool run(const char *operation, const QString &path, PLError *error)
{
    const QByteArray text(20'000, 'n');
    if (qstrcmp(operation, "write") == 0)
        return PLWriteFile(path, text, PLWriteMode::Replace, error);
    if (qstrcmp(operation, "create") == 0)
        return PLWriteFile(path, text, PLWriteMode::CreateNew, error);
    return PLMoveFile(path, path + QStringLiteral(".moved"), error);
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount != 3)
        return 3;
    PLError error;
    const QString path = QString::fromLocal8Bit(arguments[2]);
    mark();
    const bool isDone = run(arguments[1], path, &error);
    mark();
    if (isDone)
        return 0;
    return error.code != 0 && error.domain == PLFileErrorDomain ? 1 : 2;
}
