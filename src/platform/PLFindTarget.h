// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLTextTarget.h"

#include <QList>

/// The text that the find panel works on.
class PLFindTarget : public PLTextTarget
{
public:
    /// Replaces all the ranges, which are in order and do not overlap, as one undo step.
    virtual void replaceAll(const QList<PLTextRange> &ranges, const QString &replacement) = 0;
    /// Shows these matches in the text from now on, those in sight at least; an empty list shows none.
    virtual void setMatchMarks(const QList<PLTextRange> &matches) = 0;
};
