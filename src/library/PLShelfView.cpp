// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfView.h"

#include "library/PLBookAppearance.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

PLShelfView::PLShelfView(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
}

void PLShelfView::setBooks(std::vector<PLShelfBook> books)
{
    m_books = std::move(books);
    m_selectedIndex = qMin(m_selectedIndex, int(m_books.size()) - 1);
    layoutBooks();
}

void PLShelfView::setSpineMode(bool spineMode)
{
    m_spineMode = spineMode;
    layoutBooks();
    scrollToSelectedBook();
}

void PLShelfView::setSelectedIndex(int index)
{
    const int normalised = index >= 0 && index < int(m_books.size()) ? index : -1;
    if (normalised == m_selectedIndex)
        return;
    m_selectedIndex = normalised;
    scrollToSelectedBook();
    update();
    if (m_delegate)
        m_delegate->shelfViewSelectionDidChange(*this);
}

const PLShelfBook *PLShelfView::selectedBook() const
{
    return m_selectedIndex < 0 ? nullptr : &m_books[size_t(m_selectedIndex)];
}

void PLShelfView::setEmptyMessage(const QString &message)
{
    m_emptyMessage = message;
    update();
}

QRect PLShelfView::rectForBookAtIndex(int index) const
{
    const bool isBook = index >= 0 && index < int(m_layout.bookRects.size());
    return isBook ? m_layout.bookRects[size_t(index)] : QRect();
}

void PLShelfView::layoutBooks()
{
    const QSize visible = visibleSize();
    m_layout = m_spineMode ? PLShelfLayout::ofSpines(m_books, visible.width())
                           : PLShelfLayout::ofCovers(m_books.size(), visible.width());
    resize(visible.width(), qMax(m_layout.contentHeight(), visible.height()));
    update();
}

QSize PLShelfView::visibleSize() const
{
    const auto *area =
        parentWidget() ? qobject_cast<QAbstractScrollArea *>(parentWidget()->parentWidget()) : nullptr;
    return area && area->viewport() == parentWidget() ? area->viewport()->size() : size();
}

void PLShelfView::scrollToSelectedBook() {}

void PLShelfView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), QColor(92, 56, 32));
    for (size_t index = 0; index < m_books.size(); ++index) {
        painter.fillRect(m_layout.bookRects[index], PLBookAppearance::colorForBook(m_books[index]));
        if (int(index) == m_selectedIndex)
            painter.drawRect(m_layout.bookRects[index]);
    }
}
