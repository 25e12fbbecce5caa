// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLSpriteCache.h"

#include <QColor>
#include <QPainter>

/// A painter on whole device pixels. Every edge, given in points, goes to the nearest pixel: what touches in
/// points touches on the screen, without a seam and without blur, at every scale. While a canvas lives, its
/// painter counts in device pixels.
class PLShelfCanvas final
{
public:
    PLShelfCanvas(QPainter &painter, PLSpriteCache &sprites);
    ~PLShelfCanvas();

    PLShelfCanvas(const PLShelfCanvas &) = delete;
    PLShelfCanvas &operator=(const PLShelfCanvas &) = delete;

    QPainter &painter() { return m_painter; }
    PLSpriteCache &sprites() { return m_sprites; }
    /// Device pixels to a point.
    double scale() const { return m_toDevice.m11(); }
    /// The pixels of a rectangle in points.
    QRect deviceRect(const QRect &rect) const;

    void fill(const QRect &rect, const QColor &color);
    /// Fills the rows of a rectangle, each in the colour for its middle: 0 is the top, 1 the bottom.
    void fillRows(const QRect &rect, const std::function<QColor(double)> &colorAt);
    /// Draws a picture with its pixel `origin` on the upper left corner of a rectangle in points.
    void drawSprite(const QRect &rect, const QImage &sprite, const QPoint &origin = QPoint());

private:
    QPainter &m_painter;
    PLSpriteCache &m_sprites;
    QTransform m_toDevice;
};
