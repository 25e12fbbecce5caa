// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLBookShadow.h"

#include <QMargins>
#include <QtMath>

#include <vector>

namespace {

/// How much of the light a blurred edge takes away at a distance inside it: the integral of a bell that ends
/// at `blur` and is nearly the Gaussian with half of it for its deviation.
double covered(double distance, double blur)
{
    const double part = qBound(0.0, (distance + blur) / (2 * blur), 1.0);
    return part * part * (3 - 2 * part);
}

/// The shadow of a length along one axis, for the middle of each pixel. That of a rectangle is the product of
/// two.
std::vector<double> profile(int pixels, int length, double start, double blur)
{
    std::vector<double> values(static_cast<size_t>(pixels));
    for (int pixel = 0; pixel < pixels; ++pixel) {
        const double place = pixel + 0.5 - start;
        values[size_t(pixel)] = covered(place, blur) * covered(length - place, blur);
    }
    return values;
}

} // namespace

QMargins PLBookShadow::margins(double scale) const
{
    const int before = qCeil(qMax(0, blur - offset) * scale);
    const int after = qCeil((blur + offset) * scale);
    return QMargins(before, before, after, after);
}

QImage PLBookShadow::picture(const QSize &pixels, double scale) const
{
    const QMargins around = margins(scale);
    QImage image(pixels.grownBy(around), QImage::Format_ARGB32_Premultiplied);
    const double shift = around.left() + offset * scale;
    const std::vector<double> across = profile(image.width(), pixels.width(), shift, blur * scale);
    const std::vector<double> down = profile(image.height(), pixels.height(), shift, blur * scale);
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        const double darkness = 255 * alpha * down[size_t(y)];
        for (int x = 0; x < image.width(); ++x)
            row[x] = qRgba(0, 0, 0, qRound(darkness * across[size_t(x)]));
    }
    return image;
}
