// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLError.h"

const QString PLApplicationErrorDomain = QStringLiteral("io.github.aquilane");
const QString PLFileErrorDomain = QStringLiteral("posix");

bool PLFail(PLError *error, const PLError &reason)
{
    if (error)
        *error = reason;
    return false;
}
