// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfWood.h"

#include "library/PLShelfCanvas.h"
#include "library/PLShelfLayout.h"

namespace {

constexpr QRgb woodColor = 0xFF5C3820;
constexpr int stripePitch = 3;
constexpr int stripeWidth = 2;
constexpr int chunkRows = 16; // the grain is put down in chunks that fit the processor's cache

constexpr int shelfShadowHeight = 26;
constexpr double shelfShadowAlpha = 0.45;
constexpr int castShadowHeight = 12;
constexpr double castShadowAlpha = 0.5;

/// A byte that looks random and depends on the stripe's number alone, so that the grain never moves.
quint32 grainByte(quint64 stripe)
{
    const quint64 seed = stripe * 374761393U ^ 0x5BD1E995U;
    const quint32 mixed = quint32(seed >> 13 ^ seed) * 1274126177U;
    return (mixed >> 16 ^ mixed) & 0xFFU;
}

QRgb blended(QRgb color, int tone, double fraction)
{
    const auto mix = [=](int component) { return qRound(component + (tone - component) * fraction); };
    return qRgb(mix(qRed(color)), mix(qGreen(color)), mix(qBlue(color)));
}

/// The grain over the width of some pixels, a few rows of it.
QImage grainOf(const PLShelfCanvas &canvas, const QRect &dirty, const QRect &pixels)
{
    QImage grain(pixels.width(), qMin(chunkRows, pixels.height()), QImage::Format_RGB32);
    auto *first = reinterpret_cast<QRgb *>(grain.scanLine(0));
    std::fill_n(first, grain.width(), woodColor);
    const int last = (dirty.x() + dirty.width() + stripePitch - 1) / stripePitch;
    for (int stripe = dirty.x() / stripePitch; stripe <= last; ++stripe) {
        const QRect place = canvas.deviceRect(QRect(stripe * stripePitch, 0, stripeWidth, 1));
        const int from = qMax(place.left(), pixels.left()) - pixels.left();
        const int to = qMin(place.right(), pixels.right()) - pixels.left();
        if (from <= to)
            std::fill(first + from, first + to + 1, PLColorOfGrain(quint64(stripe)));
    }
    for (int row = 1; row < grain.height(); ++row)
        std::copy_n(first, grain.width(), reinterpret_cast<QRgb *>(grain.scanLine(row)));
    return grain;
}

void drawGrain(PLShelfCanvas &canvas, const QRect &dirty)
{
    const QRect pixels = canvas.deviceRect(dirty);
    if (pixels.isEmpty())
        return;
    const QImage grain = grainOf(canvas, dirty, pixels);
    for (int y = pixels.top(); y <= pixels.bottom(); y += chunkRows) {
        const QRect part(0, 0, grain.width(), qMin(chunkRows, pixels.bottom() + 1 - y));
        canvas.painter().drawImage(QPoint(pixels.left(), y), grain, part);
    }
}

void drawShadow(PLShelfCanvas &canvas, const QRect &rect, double alpha)
{
    canvas.fillRows(rect,
                    [alpha](double depth) { return QColor::fromRgbF(0, 0, 0, float(alpha * (1 - depth))); });
}

/// From a light front edge to a dark lower one.
QColor plankColor(double depth)
{
    struct Stop
    {
        double depth;
        double red, green, blue;
    };
    static constexpr Stop stops[] = {{0, 196, 146, 94}, {0.45, 164, 112, 66}, {1, 128, 84, 46}};
    const size_t first = depth < stops[1].depth ? 0 : 1;
    const Stop &from = stops[first];
    const Stop &to = stops[first + 1];
    const double part = (depth - from.depth) / (to.depth - from.depth);
    const auto mix = [part](double start, double end) { return qRound(start + (end - start) * part); };
    return QColor(mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue));
}

} // namespace

QRgb PLColorOfGrain(quint64 stripe)
{
    const double shade = grainByte(stripe) / 255.0;
    return shade > 0.5 ? blended(woodColor, 0, (shade - 0.5) * 0.22)
                       : blended(woodColor, 255, (0.5 - shade) * 0.06);
}

void PLDrawWoodInRect(PLShelfCanvas &canvas, const QRect &dirty, const QSize &size,
                      const PLShelfLayout &layout)
{
    drawGrain(canvas, dirty);
    for (int shelf = 0; shelf == 0 || (shelf - 1) * layout.rowHeight < size.height(); ++shelf) {
        const QRect plankAbove = layout.plankRect(shelf - 1, size.width());
        const int top = shelf == 0 ? 0 : plankAbove.y() + plankAbove.height();
        const QRect shadow(0, top, size.width(), shelfShadowHeight);
        if (shadow.intersects(dirty))
            drawShadow(canvas, shadow, shelfShadowAlpha);
    }
}

void PLDrawPlankInRect(PLShelfCanvas &canvas, const QRect &plank)
{
    canvas.fillRows(plank, plankColor);
    canvas.fill(QRect(plank.x(), plank.y(), plank.width(), 1),
                QColor::fromRgbF(232 / 255.F, 196 / 255.F, 150 / 255.F, 0.8F));
    canvas.fill(QRect(plank.x(), plank.y() + plank.height() - 2, plank.width(), 2),
                QColor::fromRgbF(60 / 255.F, 34 / 255.F, 16 / 255.F, 0.9F));
    drawShadow(canvas, QRect(plank.x(), plank.y() + plank.height(), plank.width(), castShadowHeight),
               castShadowAlpha);
}
