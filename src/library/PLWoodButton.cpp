// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLWoodButton.h"

#include "theme/PLTheme.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

constexpr double radius = 5;
constexpr int sideMargin = 5; // beside a button of its own, where its frame and the next one's meet
constexpr int margin = 2;
constexpr int titleSize = 12; // the size of menus on most desktops, whose font is in memory then
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

QRectF wholePixels(const QRectF &rect)
{
    return {QPointF(std::round(rect.left()), std::round(rect.top())),
            QPointF(std::round(rect.right()), std::round(rect.bottom()))};
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
}

QRect PLWoodButton::bezel() const
{
    const int left = m_ends == Ends::Both ? sideMargin : m_ends == Ends::Left ? margin : 0;
    const int right = m_ends == Ends::Both ? sideMargin : m_ends == Ends::Right ? margin : 0;
    return rect().adjusted(left, margin, -right, -margin);
}

QPainterPath PLWoodButton::outline(const QRectF &frame, double cornerRadius) const
{
    const double left = m_ends == Ends::Right ? 0 : cornerRadius;
    const double right = m_ends == Ends::Left ? 0 : cornerRadius;
    QPainterPath path(QPointF(frame.left(), frame.bottom() - left));
    // A corner's square by its middle. An arc of no size would not even draw the line to its place.
    const auto addCorner = [&path](const QPointF &middle, double size, double angle) {
        const QRectF square(middle.x() - size, middle.y() - size, 2 * size, 2 * size);
        if (size > 0)
            path.arcTo(square, angle, -90);
        else
            path.lineTo(middle);
    };
    addCorner(frame.topLeft() + QPointF(left, left), left, 180);
    addCorner(frame.topRight() + QPointF(-right, right), right, 90);
    addCorner(frame.bottomRight() + QPointF(-right, -right), right, 0);
    addCorner(frame.bottomLeft() + QPointF(left, -left), left, 270);
    path.closeSubpath();
    return path;
}

/// On whole device pixels, so that the edge is sharp at every scale.
void PLWoodButton::drawBezel(QPainter &painter) const
{
    const QTransform toDevice = painter.deviceTransform();
    const double scale = toDevice.m11();
    const double line = qMax(1.0, std::round(scale));
    const QRectF frame = wholePixels(toDevice.mapRect(QRectF(bezel())));
    const Look look = lookOf(*this, m_isProminent);
    QLinearGradient fill(frame.topLeft(), frame.bottomLeft());
    fill.setColorAt(0, QColor(look.top));
    fill.setColorAt(1, QColor(look.bottom));
    const auto strokeInside = [&](double inset, double width, QRgb color) {
        const double in = inset + width / 2;
        painter.setPen(QPen(QColor(color), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawPath(outline(frame.adjusted(in, in, -in, -in), qMax(1.0, radius * scale - in)));
    };
    painter.save();
    painter.setWorldTransform(toDevice.inverted() * painter.worldTransform());
    painter.setBrush(fill);
    strokeInside(0, line, edgeColor);
    painter.setBrush(Qt::NoBrush);
    if (hasFocus()) {
        strokeInside(0, 2 * line, ringColor);
        strokeInside(2 * line, line, edgeColor);
    }
    painter.restore();
}

void PLWoodButton::drawTitle(QPainter &painter) const
{
    painter.setPen(QColor(lookOf(*this, m_isProminent).title));
    painter.setFont(font());
    painter.drawText(bezel(), Qt::AlignCenter | Qt::TextSingleLine, text());
}
