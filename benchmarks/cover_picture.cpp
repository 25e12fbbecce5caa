// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Writes a photograph of 12 megapixels for start_bench, into the file given.

#include <QGuiApplication>
#include <QImage>
#include <QRandomGenerator>

namespace {

/// Light falling off towards the corners, with the noise of a sensor: compresses as a photograph does.
QImage photograph(const QSize &size)
{
    QRandomGenerator random(7);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int light = 64 + 96 * x / size.width() + 64 * y / size.height();
            const int noise = int(random.generate() % 24);
            line[x] = qRgb(light + noise, light / 2 + noise, 160 - light / 2 + noise);
        }
    }
    return picture;
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QString file = QGuiApplication::arguments().value(1);
    return photograph({4000, 3000}).save(file, "jpeg", 85) ? 0 : 1;
}
