// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLTextTarget.h"

#include <QList>
#include <QStringView>

/// How a text is searched.
struct PLFindOptions
{
    bool ignoresCase = true;
    bool wholeWords = false; ///< no letter, digit or accent right before or behind a match

    bool operator==(const PLFindOptions &) const = default;
};

/// Where `needle` stands in the text, from left to right and without overlaps; nowhere if it is empty.
/// Characters are compared one by one, so a no-break space is found by a no-break space alone; but unless
/// case counts, the apostrophe of the keyboard finds the curved one too. A match never cuts a surrogate pair,
/// nor a letter from the accents that follow it.
QList<PLTextRange> PLFindMatches(const QString &text, const QString &needle,
                                 const PLFindOptions &options = {});
