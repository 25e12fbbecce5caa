// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLBookAppearance.h"
#include "library/PLShelfCanvas.h"
#include "library/PLShelfDrawing.h"

#include <QImage>
#include <QPainter>
#include <QTest>

/// A shelf to be drawn without a window.
class PLShelfPicture final
{
public:
    std::vector<PLShelfBook> books;
    PLShelfLayout layout;
    QSize size = QSize(1000, 600);
    bool spineMode = false;
    int selectedIndex = -1;
    int dropIndex = -1;
    QString emptyMessage;
    PLSpriteCache sprites;

    explicit PLShelfPicture(int count = 0, bool spines = false) : spineMode(spines)
    {
        for (int index = 0; index < count; ++index) {
            PLShelfBook book;
            book.title = QStringLiteral("Carnet %1").arg(index);
            book.url = QUrl::fromLocalFile(QStringLiteral("/carnets/%1").arg(index));
            books.push_back(book);
        }
        layOut();
    }

    void layOut()
    {
        layout = spineMode ? PLShelfLayout::ofSpines(books, size.width())
                           : PLShelfLayout::ofCovers(books.size(), size.width());
    }

    void draw(QPainter &painter, const QRect &dirty)
    {
        const PLShelfScene scene{books,     layout,       spineMode, selectedIndex,
                                 dropIndex, emptyMessage, size,      QRect(QPoint(), size)};
        PLDrawShelf(painter, scene, dirty, sprites);
    }

    QImage blank(double scale) const
    {
        QImage image((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        image.setDevicePixelRatio(scale);
        return image;
    }

    QImage image(double scale = 1)
    {
        QImage picture = blank(scale);
        QPainter painter(&picture);
        draw(painter, QRect(QPoint(), size));
        return picture;
    }
};

/// Draws on a transparent picture of some points, at scale 1.
template <typename Draw>
QImage PLDrawnAlone(const QSize &size, Draw draw)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PLSpriteCache sprites;
    {
        PLShelfCanvas canvas(painter, sprites);
        draw(canvas);
    }
    return picture;
}

/// The rectangle of all pixels that are not transparent.
inline QRect PLInkedRect(const QImage &picture)
{
    QRect inked;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).alpha() > 0)
                inked |= QRect(x, y, 1, 1);
        }
    }
    return inked;
}

/// Whether two colours are the same but for the rounding of a blend.
inline bool PLIsNear(const QColor &actual, double red, double green, double blue, double tolerance = 1.5)
{
    const bool isNear = qAbs(actual.red() - red) <= tolerance && qAbs(actual.green() - green) <= tolerance &&
                        qAbs(actual.blue() - blue) <= tolerance;
    if (!isNear)
        qWarning("%s instead of %.1f %.1f %.1f", qPrintable(actual.name()), red, green, blue);
    return isNear;
}
