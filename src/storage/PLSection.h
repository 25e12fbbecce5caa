// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

/// The five sections of a notebook, in the order of display.
enum class PLSection : unsigned {
    Book = 0,
    Characters = 1,
    Places = 2,
    Sheets = 3,
    Notes = 4,
    None = ~0U, ///< no section, where an operation accepts it
};

/// Every section, for loops.
inline constexpr PLSection PLAllSections[] = {PLSection::Book, PLSection::Characters, PLSection::Places,
                                              PLSection::Sheets, PLSection::Notes};
