// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLWindowIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

// Those of task bars, title bars and the window switcher; the larger ones come from the desktop's theme.
constexpr int sizes[] = {16, 24, 32, 48, 64};

/// From bare pixels: to read a picture of any format Qt 6.4 opens all its plugins for pictures, which would
/// cost every start their time.
QPixmap iconOfSize(int size)
{
    QFile file(u":/icons/%1"_s.arg(size));
    const QByteArray pixels = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (pixels.size() != 4LL * size * size)
        return QPixmap();
    const QImage image(reinterpret_cast<const uchar *>(pixels.constData()), size, size,
                       QImage::Format_ARGB32_Premultiplied);
    return QPixmap::fromImage(image.copy());
}

} // namespace

void PLInstallWindowIcon()
{
    QIcon icon;
    for (const int size : sizes)
        icon.addPixmap(iconOfSize(size));
    QGuiApplication::setWindowIcon(icon);
}
