// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// What a tag field asks its owner.
class PLTagFieldDelegate
{
public:
    virtual ~PLTagFieldDelegate() = default;

    /// The tags to propose for the text being typed, white space at its ends included. `present` are the tags
    /// that the field already holds.
    virtual QStringList completionsForSubstring(const QString &substring, const QStringList &present)
    {
        Q_UNUSED(substring);
        Q_UNUSED(present);
        return {};
    }

    /// The tags to add instead of those that were typed, pasted or dropped at this index.
    virtual QStringList shouldAddObjects(const QStringList &tokens, int index)
    {
        Q_UNUSED(index);
        return tokens;
    }
};
