// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "PLExampleShelf.h"

#include "storage/PLProject.h"
#include "storage/PLRecentProjects.h"

#include <QLinearGradient>
#include <QPainter>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct ExampleBook
{
    const char16_t *french;
    const char16_t *english;
    int picture; ///< -1 for none
};

constexpr ExampleBook exampleBooks[] = {
    {u"Les heures claires", u"The Bright Hours", -1},
    {u"Hiver à Prague", u"Winter in Prague", 1},
    {u"La Maison du quai", u"The House on the Quay", -1},
    {u"Carnets d'un jardinier", u"A Gardener's Notebooks", 2},
    {u"Nouvelles", u"Short Stories", -1},
};

constexpr QSize coverSize(600, 860);

void paintSky(QPainter &painter, QRgb top, QRgb bottom)
{
    QLinearGradient sky(0, 0, 0, coverSize.height());
    sky.setColorAt(0, QColor(top));
    sky.setColorAt(1, QColor(bottom));
    painter.fillRect(QRect(QPoint(), coverSize), sky);
}

void paintLighthouse(QPainter &painter)
{
    paintSky(painter, 0xFF101C3A, 0xFFE89A5B);
    painter.setBrush(QColor(255, 236, 170, 70));
    painter.drawPolygon(QPolygonF({{330, 250}, {-40, 120}, {-40, 330}}));
    painter.setBrush(QColor(0xFF0B1120));
    painter.drawPolygon(QPolygonF({{300, 290}, {360, 290}, {380, 690}, {280, 690}}));
    painter.drawRect(290, 220, 80, 70);
    painter.drawPolygon(QPolygonF({{282, 222}, {378, 222}, {330, 170}}));
    painter.drawEllipse(QRect(60, 660, 560, 320));
    painter.setBrush(QColor(0xFFFFECB0));
    painter.drawEllipse(QRect(312, 236, 36, 36));
}

void paintTowers(QPainter &painter)
{
    paintSky(painter, 0xFFB9C6D6, 0xFFF2EDE6);
    painter.setBrush(QColor(0xFF4A5A6E));
    for (const int x : {60, 200, 330, 470}) {
        painter.drawRect(x, 380 + x % 90, 70, 500);
        painter.drawPolygon(
            QPolygonF({{x - 8.0, 382.0 + x % 90}, {x + 78.0, 382.0 + x % 90}, {x + 35.0, 240.0 + x % 90}}));
    }
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRect(-120, 720, 520, 300));
    painter.drawEllipse(QRect(220, 750, 560, 300));
}

void paintGarden(QPainter &painter)
{
    paintSky(painter, 0xFFDDE8C8, 0xFF7FA35B);
    constexpr QRgb petals[] = {0xFFC9513F, 0xFFE6B13C, 0xFFB9567E, 0xFFF2E7C9};
    for (int flower = 0; flower < 15; ++flower) {
        const int row = flower / 3;
        const QPointF center(100 + flower % 3 * 190 + row % 2 * 60, 110 + row * 160);
        painter.setBrush(QColor(petals[flower % 4]));
        for (int petal = 0; petal < 6; ++petal) {
            painter.save();
            painter.translate(center);
            painter.rotate(60 * petal);
            painter.drawEllipse(QRectF(8, -16, 52, 32));
            painter.restore();
        }
        painter.setBrush(QColor(0xFF5A3A1E));
        painter.drawEllipse(center, 14, 14);
    }
}

} // namespace

bool PLPaintExampleCover(const QString &notebook, int picture)
{
    constexpr void (*painters[])(QPainter &) = {paintLighthouse, paintTowers, paintGarden};
    QImage cover(coverSize, QImage::Format_RGB32);
    QPainter painter(&cover);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painters[picture](painter);
    painter.end();
    return cover.save(notebook + u"/couverture.png"_s);
}

bool PLMakeExampleShelf(const QDir &folder, const QString &language)
{
    PLRecentProjects::addURL(QUrl::fromLocalFile(
        folder.filePath(language == u"fr" ? u"Sur la clé USB"_s : u"On the USB stick"_s)));
    for (const ExampleBook &book : exampleBooks) {
        const QString title = QString::fromUtf16(language == u"fr" ? book.french : book.english);
        const QUrl url = QUrl::fromLocalFile(folder.filePath(title));
        const auto notebook = PLProject::createProjectAtURL(url, title);
        if (!notebook)
            return false;
        notebook->setAuthor(u"Jeanne Martin"_s);
        if (!notebook->saveMetadata())
            return false;
        if (book.picture >= 0 && !PLPaintExampleCover(url.toLocalFile(), book.picture))
            return false;
        PLRecentProjects::addURL(url);
    }
    return true;
}
