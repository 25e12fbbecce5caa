// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLBarButton.h"

#include "theme/PLTheme.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr double radius = 4;

}

PLBarButton::PLBarButton(const QString &title, QWidget *parent) : QPushButton(title, parent)
{
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
}

void PLBarButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return click();
    QPushButton::keyPressEvent(event);
}

void PLBarButton::enterEvent(QEnterEvent *event)
{
    update();
    QPushButton::enterEvent(event);
}

void PLBarButton::leaveEvent(QEvent *event)
{
    update();
    QPushButton::leaveEvent(event);
}

void PLBarButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawRect(painter);
}

void PLBarButton::drawRect(QPainter &painter)
{
    const QRectF outline = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool isRaised = isDown() || isChecked() || (underMouse() && isEnabled());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(
        Qt::LayoutDirectionAuto); // the title's own script decides, not the interface's
    painter.setPen(isRaised ? QPen(PLTheme::shadowed(PLTheme::coverColor(), 0.18), 1) : QPen(Qt::NoPen));
    painter.setBrush(fillColor());
    painter.drawRoundedRect(outline, radius, radius);
    if (hasFocus()) {
        painter.setPen(QPen(PLTheme::tagsColor(), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(outline, radius, radius);
    }
    painter.setPen(isEnabled() ? PLTheme::inkColor() : PLTheme::faintInkColor());
    painter.setFont(font());
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
}

QColor PLBarButton::fillColor() const
{
    const QColor cover = PLTheme::coverColor();
    if (isDown())
        return PLTheme::shadowed(cover, 0.14);
    if (isChecked())
        return PLTheme::shadowed(cover, 0.07);
    return underMouse() && isEnabled() ? PLTheme::highlighted(cover, 0.55) : QColor(Qt::transparent);
}
