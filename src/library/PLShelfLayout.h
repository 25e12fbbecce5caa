// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>

#include <vector>

struct PLShelfBook;

/// Where the books of a shelf stand, in points from its upper left corner.
struct PLShelfLayout
{
    static constexpr int topMargin = 30;   ///< above the first row of books
    static constexpr int plankHeight = 18; ///< the plank begins where the band of books ends

    int rowHeight = 250;      ///< from shelf to shelf
    int bookAreaHeight = 166; ///< of the band that the books of a shelf stand in
    int rows = 0;
    std::vector<QRect> bookRects; ///< in the order of the books

    /// Books that show their covers, in columns that are centred.
    static PLShelfLayout ofCovers(size_t books, int width);
    /// Books side by side, by their spines.
    static PLShelfLayout ofSpines(const std::vector<PLShelfBook> &books, int width);

    /// The height of all shelves; an empty one still has one shelf.
    int contentHeight() const { return qMax(rows, 1) * rowHeight + 10; }
    /// The plank of a shelf, from 0, as wide as the view.
    QRect plankRect(int shelf, int width) const;
    /// The first book that has this point in it, or at most 3 points away; -1 for none.
    int indexOfBookAtPoint(const QPointF &point) const;
};
