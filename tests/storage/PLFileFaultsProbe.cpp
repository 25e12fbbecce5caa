// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Does one thing to a file or a notebook, for tests that make its system calls fail: "write", "create" or
// "move" a file; "cover" a notebook with a picture, "uncover" it. Answers 0 for success, 1 for an error that
// was reported, 2 for one that was not.

#include "storage/PLFiles.h"
#include "storage/PLProject.h"

#include <unistd.h>

namespace {

/// Shows in the list of system calls where the operation begins and ends.
void mark()
{
    (void)::access("/aquilane-mark", F_OK);
}

bool run(const char *operation, const QString &path, const QString &picture, PLError *error)
{
    const QUrl folder = QUrl::fromLocalFile(path);
    if (qstrcmp(operation, "cover") == 0)
        return PLProject::setCoverImageFromURL(QUrl::fromLocalFile(picture), folder, error);
    if (qstrcmp(operation, "uncover") == 0)
        return PLProject::removeCoverImageForProjectAtURL(folder, error);
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
    if (argumentCount < 3)
        return 3;
    PLError error;
    const QString path = QString::fromLocal8Bit(arguments[2]);
    const QString picture = QString::fromLocal8Bit(argumentCount > 3 ? arguments[3] : "");
    mark();
    const bool isDone = run(arguments[1], path, picture, &error);
    mark();
    if (isDone)
        return 0;
    return error.code != 0 && error.domain == PLFileErrorDomain ? 1 : 2;
}
