// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// A stretch of a text, in UTF-16 code units; one of length 0 is a caret.
struct PLTextRange
{
    qsizetype position = 0;
    qsizetype length = 0;

    qsizetype end() const { return position + length; }
    bool operator==(const PLTextRange &) const = default;
};
