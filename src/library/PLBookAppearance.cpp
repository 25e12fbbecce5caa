// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLBookAppearance.h"

#include "library/PLShelfBook.h"

namespace {

constexpr QRgb palette[] = {0xFF7A2226, 0xFF243A62, 0xFF295438, 0xFF623E24,
                            0xFF1E5C60, 0xFF562C5C, 0xFF966828, 0xFF404850};

QString keyOfBook(const PLShelfBook &book)
{
    const QString path = book.url.path();
    return path.isEmpty() ? book.title : path;
}

} // namespace

quint64 PLBookHash(const PLShelfBook &book)
{
    quint64 hash = 5381;
    const QString key = keyOfBook(book);
    for (const QChar unit : key)
        hash = hash * 33 + unit.unicode();
    return hash;
}

QColor PLBookAppearance::colorForBook(const PLShelfBook &book)
{
    return palette[PLBookHash(book) % std::size(palette)];
}

QSize PLBookAppearance::spineSizeForBook(const PLShelfBook &book)
{
    const quint64 hash = PLBookHash(book);
    return QSize(int(30 + hash % 17), int(150 + hash / 17 % 41));
}
