// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRect>

class PLShelfCanvas;
struct PLShelfBook;

/// The gold of bands and rules.
QColor PLGoldColor();

/// A book that stands spine out, with its title along it.
void PLDrawSpineOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &spine);

/// A book that shows its cover: the notebook's picture, or a binding in the book's colour.
void PLDrawCoverOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &cover);
/// Title and author of a book without a picture.
void PLDrawCoverTextOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &cover);
/// Where they are written. Both hang from the cover's x, not from its y: they are on the cover only
/// where the two are alike.
QRect PLTitleBoxOfCover(const QRect &cover);
QRect PLAuthorBoxOfCover(const QRect &cover);

/// The title below a cover, and that the notebook is missing.
void PLDrawLabelOfBook(PLShelfCanvas &canvas, const PLShelfBook &book, const QRect &cover);
QRect PLLabelBoxOfCover(const QRect &cover);

/// The line around the selected book, and around the one that a picture would be dropped on.
void PLDrawSelectionRing(PLShelfCanvas &canvas, const QRect &book);
void PLDrawDropRing(PLShelfCanvas &canvas, const QRect &book);
