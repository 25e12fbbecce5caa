// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfCanvas.h"

PLShelfCanvas::PLShelfCanvas(QPainter &painter, PLSpriteCache &sprites)
    : m_painter(painter), m_sprites(sprites), m_toDevice(painter.deviceTransform())
{
    m_painter.save();
    m_painter.setWorldTransform(m_toDevice.inverted() * m_painter.worldTransform());
}

PLShelfCanvas::~PLShelfCanvas()
{
    m_painter.restore();
}

QRect PLShelfCanvas::deviceRect(const QRect &rect) const
{
    const QRectF exact = m_toDevice.mapRect(QRectF(rect));
    return QRect(QPoint(qRound(exact.left()), qRound(exact.top())),
                 QPoint(qRound(exact.right()) - 1, qRound(exact.bottom()) - 1));
}

void PLShelfCanvas::fill(const QRect &rect, const QColor &color)
{
    m_painter.fillRect(deviceRect(rect), color);
}

void PLShelfCanvas::fillRows(const QRect &rect, const std::function<QColor(double)> &colorAt)
{
    const QRect rows = deviceRect(rect);
    for (int row = 0; row < rows.height(); ++row)
        m_painter.fillRect(QRect(rows.x(), rows.y() + row, rows.width(), 1),
                           colorAt((row + 0.5) / rows.height()));
}

void PLShelfCanvas::drawSprite(const QRect &rect, const QImage &sprite, const QPoint &origin)
{
    m_painter.drawImage(deviceRect(rect).topLeft() - origin, sprite);
}
