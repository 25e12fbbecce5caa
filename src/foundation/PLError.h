// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Why an operation failed: who says so, a number, and a sentence for the writer.
struct PLError
{
    QString domain;
    int code = 0;
    QString message; ///< in the interface language
};

/// The domain of the program's own errors. File-system errors use PLFileErrorDomain with errno as code.
extern const QString PLApplicationErrorDomain;
extern const QString PLFileErrorDomain;

/// Codes in PLApplicationErrorDomain.
constexpr int PLErrorRefused = 1; ///< a file where a folder is wanted, a page that cannot go to the trash
constexpr int PLErrorNotANotebook = 2; ///< the folder has no `projet.md`

/// Fills the optional out argument and answers false, so that a failing function ends in one statement.
bool PLFail(PLError *error, const PLError &reason);
