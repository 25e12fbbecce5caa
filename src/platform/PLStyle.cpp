// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLStyle.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace {

/// Two arrow heads, one after the other: there is more.
class PLOverflowIconEngine final : public QIconEngine
{
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 1.5));
        painter->translate(QRectF(rect).center());
        painter->scale(rect.height() / 16.0, rect.height() / 16.0);
        for (const double x : {-4.0, 1.0})
            painter->drawPolyline(QPolygonF({{x, -4}, {x + 4, 0}, {x, 4}}));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new PLOverflowIconEngine(*this); }
};

} // namespace

QIcon PLStyle::standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const
{
    if (icon == SP_ToolBarHorizontalExtensionButton)
        return QIcon(new PLOverflowIconEngine);
    return QProxyStyle::standardIcon(icon, option, widget);
}
