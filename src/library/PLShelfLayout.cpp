// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfLayout.h"

#include "library/PLBookAppearance.h"
#include "library/PLShelfBook.h"

#include <QtMath>

namespace {

constexpr QSize coverSize(116, 166);
constexpr int columnGap = 34;
constexpr int columnPitch = coverSize.width() + columnGap;
constexpr int sideMargin = 40;
constexpr int spineAreaHeight = 190;
constexpr int spineRowHeight = 256;
constexpr int spineGap = 2;
constexpr int reach = 3; // how far beside a book a click still is on it

int halfRoundedDown(int length)
{
    return length >= 0 ? length / 2 : -((1 - length) / 2);
}

} // namespace

PLShelfLayout PLShelfLayout::ofCovers(size_t books, int width)
{
    PLShelfLayout layout;
    const int columns = qMax(1, (width - 2 * sideMargin + columnGap) / columnPitch);
    const int left = halfRoundedDown(width - (columns * columnPitch - columnGap));
    layout.bookRects.reserve(books);
    for (int index = 0; index < int(books); ++index) {
        const int row = index / columns;
        const QPoint corner(left + index % columns * columnPitch, topMargin + row * layout.rowHeight);
        layout.bookRects.emplace_back(corner, coverSize);
        layout.rows = row + 1;
    }
    return layout;
}

PLShelfLayout PLShelfLayout::ofSpines(const std::vector<PLShelfBook> &books, int width)
{
    PLShelfLayout layout;
    layout.rowHeight = spineRowHeight;
    layout.bookAreaHeight = spineAreaHeight;
    layout.bookRects.reserve(books.size());
    int x = sideMargin;
    int row = 0;
    for (const PLShelfBook &book : books) {
        const QSize size = PLBookAppearance::spineSizeForBook(book);
        if (x + size.width() > width - sideMargin && x > sideMargin) {
            ++row;
            x = sideMargin;
        }
        const int y = topMargin + row * spineRowHeight + spineAreaHeight - size.height();
        layout.bookRects.emplace_back(QPoint(x, y), size);
        x += size.width() + spineGap;
    }
    layout.rows = books.empty() ? 0 : row + 1;
    return layout;
}

QRect PLShelfLayout::plankRect(int shelf, int width) const
{
    return QRect(0, shelf * rowHeight + topMargin + bookAreaHeight, width, plankHeight);
}

int PLShelfLayout::indexOfBookAtPoint(const QPointF &point) const
{
    const QPoint place(qFloor(point.x()), qFloor(point.y()));
    for (size_t index = 0; index < bookRects.size(); ++index) {
        if (bookRects[index].adjusted(-reach, -reach, reach, reach).contains(place))
            return int(index);
    }
    return -1;
}
