// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLWoodBarView.h"

#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr QRgb outerColor = 0xFF684226;
constexpr QRgb innerColor = 0xFF422816;
constexpr QRgb edgeColor = 0xFF28160A;

} // namespace

PLWoodBarView::PLWoodBarView(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PLWoodBarView::setAtTop(bool atTop)
{
    m_atTop = atTop;
    update();
}

void PLWoodBarView::paintEvent(QPaintEvent *)
{
    QLinearGradient wood(0, 0, 0, height());
    wood.setColorAt(m_atTop ? 0 : 1, outerColor);
    wood.setColorAt(m_atTop ? 1 : 0, innerColor);
    QPainter painter(this);
    painter.fillRect(rect(), wood);
    painter.fillRect(0, m_atTop ? height() - 1 : 0, width(), 1, QColor(edgeColor));
}
