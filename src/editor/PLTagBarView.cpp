// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagBarView.h"

#include "editor/PLTagField.h"
#include "i18n/PLLocalization.h"
#include "theme/PLTheme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

PLTagBarView::PLTagBarView(QWidget *parent) : QWidget(parent), m_tagField(new PLTagField)
{
    setFixedHeight(barHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
    auto *label = new QLabel(PLLocalizedString(u"Tags :"_s));
    label->setTextFormat(Qt::PlainText);
    label->setFont(PLTheme::systemFont(12));
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, PLTheme::highlighted(PLTheme::inkColor(), 0.2));
    label->setPalette(colors);
    label->setBuddy(m_tagField);
    m_tagField->setPlaceholderText(
        PLLocalizedString(u"Ajoutez des tags (personnages, lieux, thèmes…), séparés par des virgules"_s));

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 0, 8, 1);
    layout->setSpacing(8);
    layout->addWidget(label);
    layout->addWidget(m_tagField);
}

void PLTagBarView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    drawRect(painter, event->rect());
}

void PLTagBarView::drawRect(QPainter &painter, const QRect &rectangle)
{
    painter.fillRect(rectangle, PLTheme::shadowed(PLTheme::paperColor(), 0.03));
    painter.fillRect(0, height() - 1, width(), 1, PLTheme::shadowed(PLTheme::coverColor(), 0.1));
}
