// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRect>

class PLShelfCanvas;
struct PLShelfLayout;

/// The shade of the grain's stripe of this number, as it is seen on the wood. Stripe k is 2 points wide, from
/// 3k.
QRgb PLColorOfGrain(quint64 stripe);

/// The back of the shelf, and the shadow under each plank. All of the view has `size`.
void PLDrawWoodInRect(PLShelfCanvas &canvas, const QRect &dirty, const QSize &size,
                      const PLShelfLayout &layout);

/// A board that books stand on, and the shadow that it casts below.
void PLDrawPlankInRect(PLShelfCanvas &canvas, const QRect &plank);
