// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfCovers.h"

#include "library/PLBookAppearance.h"
#include "library/PLShelfView.h"
#include "storage/PLProject.h"

#include <QEvent>
#include <QGuiApplication>

namespace {

/// Between two pictures, in milliseconds: what has been drawn gets to the screen, and keys and clicks get in.
constexpr int pauseBetween = 16;

/// What a book wears until its picture has been read: its cloth without a word, since the title would only be
/// seen to vanish. One image for each colour, so that they are drawn once.
QImage clothOfBook(const PLShelfBook &book)
{
    static QHash<QRgb, QImage> cloths;
    const QRgb color = PLBookAppearance::colorForBook(book).rgb();
    QImage &cloth = cloths[color];
    if (cloth.isNull()) {
        cloth = QImage(1, 1, QImage::Format_RGB32);
        cloth.fill(color);
    }
    return cloth;
}

} // namespace

PLShelfCovers::PLShelfCovers(PLShelfView &shelfView)
    : m_shelfView(shelfView), m_thumbnails(qGuiApp->devicePixelRatio())
{
    shelfView.installEventFilter(this);
}

void PLShelfCovers::setBooks(std::vector<PLShelfBook> books)
{
    m_missing.clear();
    for (size_t index = 0; index < books.size(); ++index) {
        PLShelfBook &book = books[index];
        const QUrl image = book.available ? PLProject::coverImageURLForProjectAtURL(book.url) : QUrl();
        if (image.isEmpty())
            continue;
        book.cover = m_thumbnails.knownThumbnailForImageAtURL(image);
        if (!book.cover.isNull())
            continue;
        book.cover = clothOfBook(book);
        m_missing.push_back({index, image});
    }
    m_shelfView.setBooks(std::move(books));
}

bool PLShelfCovers::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && isLoading() && !m_timer.isActive())
        m_timer.start(pauseBetween, this);
    return QObject::eventFilter(watched, event);
}

void PLShelfCovers::timerEvent(QTimerEvent *)
{
    if (isLoading() && m_shelfView.isVisible())
        loadNext();
    if (!isLoading() || !m_shelfView.isVisible())
        m_timer.stop();
}

void PLShelfCovers::loadNext()
{
    const MissingCover missing = m_missing.front();
    m_missing.pop_front();
    std::vector<PLShelfBook> books = m_shelfView.books();
    books[missing.book].cover = m_thumbnails.thumbnailForImageAtURL(missing.image);
    m_shelfView.setBooks(std::move(books));
}
