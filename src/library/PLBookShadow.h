// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

/// The shadow that a book throws on the wood.
struct PLBookShadow
{
    int offset; ///< to the right and down
    int blur;   ///< how far it fades on either side of its edge
    double alpha;

    /// How far it reaches out, in pixels of this scale.
    QMargins margins(double scale) const;
    /// A picture of these pixels with the shadow around them, as large as the margins say.
    QImage picture(const QSize &pixels, double scale) const;
};
