// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfCovers.h"

#include "library/PLShelfView.h"
#include "storage/PLProject.h"

#include <QEvent>
#include <QGuiApplication>

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
        if (book.cover.isNull())
            m_missing.push_back({index, image});
    }
    m_shelfView.setBooks(std::move(books));
}

bool PLShelfCovers::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && isLoading() && !m_timer.isActive())
        m_timer.start(0, this); // after what is being drawn has gone to the screen
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
    const QImage cover = m_thumbnails.thumbnailForImageAtURL(missing.image);
    if (cover.isNull())
        return;
    std::vector<PLShelfBook> books = m_shelfView.books();
    books[missing.book].cover = cover;
    m_shelfView.setBooks(std::move(books));
}
