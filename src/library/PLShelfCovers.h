// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLCoverThumbnails.h"

#include <QBasicTimer>
#include <QObject>
#include <QUrl>

#include <deque>
#include <vector>

class PLShelfView;
struct PLShelfBook;

/// Gives the books of a shelf their covers. Those that have not been read yet are read once the shelf has
/// been drawn, one at each turn of the event loop that has nothing else to do: no picture makes the window
/// wait.
class PLShelfCovers final : public QObject
{
    Q_OBJECT

public:
    explicit PLShelfCovers(PLShelfView &shelfView);

    PLCoverThumbnails &thumbnails() { return m_thumbnails; }

    /// Puts the books on the shelf, with the covers that are known; the others follow.
    void setBooks(std::vector<PLShelfBook> books);
    /// True while covers are to follow.
    bool isLoading() const { return !m_missing.empty(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    struct MissingCover
    {
        size_t book;
        QUrl image;
    };

    void loadNext();

    PLShelfView &m_shelfView;
    PLCoverThumbnails m_thumbnails;
    std::deque<MissingCover> m_missing;
    QBasicTimer m_timer;
};
