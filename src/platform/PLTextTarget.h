// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLTextRange.h"

#include <QString>

/// The text that a panel works on. Positions count the code units of `text`.
class PLTextTarget
{
public:
    virtual ~PLTextTarget() = default;

    virtual QString text() const = 0;
    virtual PLTextRange selection() const = 0;
    /// Selects the range and scrolls it into sight.
    virtual void select(const PLTextRange &range) = 0;
    /// Replaces the range as one undo step; the caret stands behind the replacement then.
    virtual void replace(const PLTextRange &range, const QString &replacement) = 0;
    /// Gives the keyboard back to the text, and brings its window to the front.
    virtual void takeFocus() = 0;
};
