// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLTextRange.h"

#include <QList>
#include <QString>

#include <optional>

/// What a writer looks for, found in the plainest way: at each character it is compared anew.
struct PLModelSearch
{
    QString needle;
    QString replacement;
    bool ignoresCase = true;
    bool wholeWords = false;

    QList<PLTextRange> matches(const QString &text) const;
    /// The match behind (before) the selection, going round at the end; none if there is none at all.
    std::optional<PLTextRange> next(const QString &text, const PLTextRange &selection) const;
    std::optional<PLTextRange> previous(const QString &text, const PLTextRange &selection) const;
    QString replacedAll(QString text) const;
};
