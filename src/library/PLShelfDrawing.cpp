// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfDrawing.h"

#include "library/PLShelfBookDrawing.h"
#include "library/PLShelfCanvas.h"
#include "library/PLShelfText.h"
#include "library/PLShelfWood.h"

namespace {

constexpr double missingOpacity = 0.35;
constexpr int sideReach = 12;     // of a book's shadow and ring
constexpr int verticalReach = 48; // of its label
constexpr int plankReach = 40;

void drawPlanks(PLShelfCanvas &canvas, const PLShelfScene &scene, const QRect &dirty)
{
    const int rowHeight = scene.layout.rowHeight;
    const int planks = (scene.size.height() + rowHeight - 1) / rowHeight + 1;
    for (int shelf = 0; shelf < planks; ++shelf) {
        const QRect plank = scene.layout.plankRect(shelf, scene.size.width());
        if (plank.adjusted(-plankReach, -plankReach, plankReach, plankReach).intersects(dirty))
            PLDrawPlankInRect(canvas, plank);
    }
}

void drawRing(PLShelfCanvas &canvas, const PLShelfScene &scene, int index, const QRect &rect)
{
    if (index == scene.dropIndex)
        PLDrawDropRing(canvas, rect);
    else if (index == scene.selectedIndex)
        PLDrawSelectionRing(canvas, rect);
}

/// The text of a cover can be far from it. It is shown while the cover is in sight or nearly, wherever the
/// text is, so that what is drawn does not depend on which parts of the view are drawn together.
void drawCoverText(PLShelfCanvas &canvas, const PLShelfScene &scene, int index, const QRect &rect)
{
    const PLShelfBook &book = scene.books[size_t(index)];
    if (!book.cover.isNull() || !scene.isBookNear(index, scene.visible))
        return;
    canvas.painter().setOpacity(book.available ? 1 : missingOpacity);
    PLDrawCoverTextOfBook(canvas, book, rect);
    canvas.painter().setOpacity(1);
}

void drawBook(PLShelfCanvas &canvas, const PLShelfScene &scene, int index, const QRect &rect)
{
    const PLShelfBook &book = scene.books[size_t(index)];
    canvas.painter().setOpacity(book.available ? 1 : missingOpacity);
    if (scene.spineMode)
        PLDrawSpineOfBook(canvas, book, rect);
    else
        PLDrawCoverOfBook(canvas, book, rect);
    canvas.painter().setOpacity(1);
}

void drawBooks(PLShelfCanvas &canvas, const PLShelfScene &scene, const QRect &dirty)
{
    for (int index = 0; index < int(scene.books.size()); ++index) {
        const QRect rect = scene.layout.bookRects[size_t(index)];
        const bool isNear = scene.isBookNear(index, dirty);
        if (isNear)
            drawBook(canvas, scene, index, rect);
        if (!scene.spineMode)
            drawCoverText(canvas, scene, index, rect);
        if (isNear && !scene.spineMode)
            PLDrawLabelOfBook(canvas, scene.books[size_t(index)], rect);
        if (isNear)
            drawRing(canvas, scene, index, rect);
    }
}

void drawEmptyMessage(PLShelfCanvas &canvas, const PLShelfScene &scene)
{
    const QRect box(40, scene.layout.bookAreaHeight / 2 + 30 - 24, scene.size.width() - 80, 60);
    PLDrawShelfText(canvas, PLShelfText::EmptyMessage, scene.emptyMessage, box);
}

} // namespace

bool PLShelfScene::isBookNear(int index, const QRect &rect) const
{
    return layout.bookRects[size_t(index)]
        .adjusted(-sideReach, -verticalReach, sideReach, verticalReach)
        .intersects(rect);
}

void PLDrawShelf(QPainter &painter, const PLShelfScene &scene, const QRect &dirty, PLSpriteCache &sprites)
{
    painter.save();
    painter.setClipRect(dirty, Qt::IntersectClip);
    {
        PLShelfCanvas canvas(painter, sprites);
        PLDrawWoodInRect(canvas, dirty, scene.size, scene.layout);
        drawPlanks(canvas, scene, dirty);
        drawBooks(canvas, scene, dirty);
        if (scene.books.empty())
            drawEmptyMessage(canvas, scene);
    }
    painter.restore();
}
