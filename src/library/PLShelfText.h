// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QRect>

class PLShelfCanvas;

/// The kinds of text on a shelf.
enum class PLShelfText { SpineTitle, CoverTitle, CoverAuthor, Label, MissingLabel, EmptyMessage };

QFont PLFontOfShelfText(PLShelfText style);
QColor PLColorOfShelfText(PLShelfText style);

/// A text as it is drawn: not longer than can ever be seen, and without control characters.
QString PLDrawableText(const QString &text);

/// Draws a text centred in a box, from its top: on one line with an ellipsis at the end if it has to be, the
/// title of a cover on as many as fit, the message on all of its own.
void PLDrawShelfText(PLShelfCanvas &canvas, PLShelfText style, const QString &text, const QRect &box);

/// The same, for a drawable text, with a painter that counts in points.
void PLPaintShelfText(QPainter &painter, PLShelfText style, const QString &text, const QRectF &box);
