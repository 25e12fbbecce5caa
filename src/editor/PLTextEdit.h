// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A range of a page's text in UTF-16 units; one of length 0 is a caret.
struct PLTextRange
{
    qsizetype location = 0;
    qsizetype length = 0;

    qsizetype end() const { return location + length; }
    bool operator==(const PLTextRange &) const = default;
};

/// A change of a page's text: the string that takes the place of the range, and what is selected after it.
struct PLTextEdit
{
    PLTextRange range;
    QString string;
    PLTextRange selecting;
};
