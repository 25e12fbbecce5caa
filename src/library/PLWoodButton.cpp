// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLWoodButton.h"

#include "theme/PLTheme.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr double radius = 5;
constexpr double sideMargin = 5; // beside a button of its own, where its frame and the next one's meet
constexpr double margin = 2;     // room for the focus ring
constexpr int titleSize = 13;
constexpr double disabledOpacity = 0.6;

/// The look of a button in one of its states.
struct Look
{
    QRgb top;
    QRgb bottom;
    QRgb title;
};
constexpr Look plainLook = {0xFFFBF3E0, 0xFFE6D5B0, 0xFF3A2414};
constexpr Look hoveredLook = {0xFFFFFAEE, 0xFFF0E2C4, 0xFF3A2414};
constexpr Look prominentLook = {0xFFFBE2A6, 0xFFDFB45E, 0xFF3A2010};
constexpr Look hoveredProminentLook = {0xFFFFEDC0, 0xFFEAC578, 0xFF3A2010};
constexpr Look pressedLook = {0xFFCDB88E, 0xFFDECBA2, 0xFF2B1A0E};
constexpr Look checkedLook = {0xFF3A2213, 0xFF57351E, 0xFFFFF0D2};
constexpr QRgb edgeColor = 0xFF2A180C;
constexpr QRgb ringColor = 0xFFFFDE96;

Look lookOf(const QAbstractButton &button, bool isProminent)
{
    const bool isHovered = button.underMouse() && button.isEnabled();
    if (button.isDown())
        return pressedLook;
    if (button.isChecked())
        return checkedLook;
    if (isProminent)
        return isHovered ? hoveredProminentLook : prominentLook;
    return isHovered ? hoveredLook : plainLook;
}

} // namespace

PLWoodButton::PLWoodButton(const QString &title, QWidget *parent) : QPushButton(title, parent)
{
    setFocusPolicy(Qt::TabFocus); // a click leaves the shelf its arrow keys
    setAutoDefault(true);
    setFont(PLTheme::systemFont(titleSize, QFont::Normal));
}

void PLWoodButton::enterEvent(QEnterEvent *event)
{
    update();
    QPushButton::enterEvent(event);
}

void PLWoodButton::leaveEvent(QEvent *event)
{
    update();
    QPushButton::leaveEvent(event);
}

void PLWoodButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    drawBezel(painter);
    drawTitle(painter);
    if (hasFocus())
        drawFocusRing(painter);
}

/// Half a point in, so that the edge line covers whole pixels.
QRectF PLWoodButton::bezel() const
{
    const double left = m_ends == Ends::Both ? sideMargin : m_ends == Ends::Left ? margin : 0;
    const double right = m_ends == Ends::Both ? sideMargin : m_ends == Ends::Right ? margin : 0;
    return QRectF(rect()).adjusted(left + 0.5, margin + 0.5, -right - 0.5, -margin - 0.5);
}

QPainterPath PLWoodButton::outline(const QRectF &bezel, double cornerRadius) const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(bezel, cornerRadius, cornerRadius);
    QRectF half = bezel;
    if (m_ends == Ends::Left)
        half.setLeft(bezel.center().x());
    else if (m_ends == Ends::Right)
        half.setRight(bezel.center().x());
    if (m_ends != Ends::Both)
        path.addRect(half);
    return path.simplified();
}

void PLWoodButton::drawBezel(QPainter &painter) const
{
    const QRectF frame = bezel();
    const Look look = lookOf(*this, m_isProminent);
    QLinearGradient fill(frame.topLeft(), frame.bottomLeft());
    fill.setColorAt(0, QColor(look.top));
    fill.setColorAt(1, QColor(look.bottom));
    painter.setPen(QPen(QColor(edgeColor), 1));
    painter.setBrush(fill);
    painter.drawPath(outline(frame, radius));
}

void PLWoodButton::drawFocusRing(QPainter &painter) const
{
    const QRectF frame = bezel();
    painter.setPen(QPen(QColor(edgeColor), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline(frame.adjusted(2.5, 2.5, -2.5, -2.5), radius - 2));
    painter.setPen(QPen(QColor(ringColor), 2));
    painter.drawPath(outline(frame.adjusted(0.5, 0.5, -0.5, -0.5), radius));
}

void PLWoodButton::drawTitle(QPainter &painter) const
{
    painter.setPen(QColor(lookOf(*this, m_isProminent).title));
    painter.setFont(font());
    painter.drawText(bezel(), Qt::AlignCenter | Qt::TextSingleLine, text());
}
