// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLShelfBook.h"
#include "library/PLShelfLayout.h"

class PLSpriteCache;
class QPainter;

/// Everything that a shelf's picture depends on, but for its sprites.
struct PLShelfScene
{
    const std::vector<PLShelfBook> &books;
    const PLShelfLayout &layout;
    bool spineMode = false;
    int selectedIndex = -1;
    int dropIndex = -1;
    QString emptyMessage;
    QSize size;    ///< of the whole view
    QRect visible; ///< what of it is in sight

    /// A book is drawn if what is around it touches the rectangle.
    bool isBookNear(int index, const QRect &rect) const;
};

/// Draws what touches the rectangle `dirty`, and nothing outside of it. The painter counts in points from the
/// view's upper left corner.
void PLDrawShelf(QPainter &painter, const PLShelfScene &scene, const QRect &dirty, PLSpriteCache &sprites);
