// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLFindTarget.h"
#include "platform/PLFindText.h"

/// What is looked for. All windows share it, so that one finds what another has looked for, until the program
/// ends.
struct PLFindTerms
{
    QString needle;
    QString replacement;
    PLFindOptions options;

    static PLFindTerms &shared();
};

/// Goes from match to match in a text. Each operation looks at the text as it is now.
class PLFindSearch final
{
public:
    explicit PLFindSearch(PLFindTarget *target);

    /// How the selection stands among the matches.
    struct Place
    {
        enum class Wrap { None, ToStart, ToEnd };

        int number = 0; ///< of the match that is selected, from 1; 0 if none is
        int count = 0;
        Wrap wrap = Wrap::None; ///< whether the search has gone on from the other end of the text
    };

    /// Selects the match behind (before) the selection, if there is any at all.
    Place selectNext();
    Place selectPrevious();

    /// Replaces the selected match; false if the selection is none.
    bool replace();
    /// How many matches were replaced.
    int replaceAll();

    /// Looks for the selected text from now on.
    void useSelection();

    /// Shows all matches in the text, or none. How the selection stands among them.
    Place showMarks();
    void hideMarks();

private:
    QList<PLTextRange> matches() const;
    Place selectMatch(const QList<PLTextRange> &all, qsizetype index, Place::Wrap wrap);

    PLFindTarget *m_target;
};
