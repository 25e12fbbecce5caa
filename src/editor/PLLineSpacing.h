// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTextLayout>

#include <cmath>

/// The spacing of the lines of a page: 1.3 times the font's own line height.
inline constexpr double PLLineHeightMultiple = 1.3;

/// The height of a line with its spacing, in whole points so that every line is equally sharp.
inline double PLSpacedHeight(double naturalHeight)
{
    return std::round(naturalHeight * PLLineHeightMultiple);
}

/// The spacing above the text of a line; the rest of it is below.
inline double PLSpaceAbove(double naturalHeight)
{
    return std::floor((PLSpacedHeight(naturalHeight) - naturalHeight) / 2);
}

/// The top of a line with its spacing, within its paragraph.
inline double PLTopOfLine(const QTextLine &line)
{
    return line.y() - PLSpaceAbove(line.height());
}
