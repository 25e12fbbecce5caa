// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLPaperView.h"

#include "theme/PLTheme.h"

#include <QPaintEvent>
#include <QPainter>

PLPaperView::PLPaperView(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PLPaperView::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), PLTheme::paperColor());
}
