// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLTextRange.h"

#include <QString>

/// A change of a page's text: the string that takes the place of the range, and what is selected after it.
struct PLTextEdit
{
    PLTextRange range;
    QString string;
    PLTextRange selecting;
};
