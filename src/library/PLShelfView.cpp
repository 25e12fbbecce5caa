// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfView.h"

#include "i18n/PLLocalization.h"
#include "library/PLShelfBookDrawing.h"
#include "library/PLShelfDrawing.h"
#include "library/PLShelfViewAccessible.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int sightSide = 10; // what is shown around a book that is scrolled to
constexpr int sightAbove = 40;
constexpr int ringReach = 8;

/// A new cover is no news to a screen reader.
bool readAlike(const PLShelfBook &first, const PLShelfBook &second)
{
    return first.url == second.url && first.title == second.title && first.author == second.author &&
           first.available == second.available;
}

} // namespace

PLShelfView::PLShelfView(QWidget *parent) : QWidget(parent)
{
    PLShelfViewAccessible::install();
    setAttribute(Qt::WA_OpaquePaintEvent); // so that scrolling moves what is drawn
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setAccessibleName(PLLocalizedString(u"Ma bibliothèque"_s));
}

void PLShelfView::setBooks(std::vector<PLShelfBook> books)
{
    const bool isNew = !std::equal(books.begin(), books.end(), m_books.begin(), m_books.end(), readAlike);
    m_books = std::move(books);
    m_selectedIndex = qMin(m_selectedIndex, int(m_books.size()) - 1);
    if (!canTakeCover(m_dropIndex))
        m_dropIndex = -1;
    layoutBooks();
    if (!isNew)
        return;
    QAccessibleEvent event(this, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
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
    updateBook(m_selectedIndex);
    m_selectedIndex = normalised;
    scrollToSelectedBook();
    updateBook(m_selectedIndex);
    announceSelection();
    if (m_delegate)
        m_delegate->shelfViewSelectionDidChange(*this);
}

const PLShelfBook *PLShelfView::selectedBook() const
{
    return m_selectedIndex < 0 ? nullptr : &m_books[size_t(m_selectedIndex)];
}

void PLShelfView::openBookAtIndex(int index)
{
    if (index < 0 || index >= int(m_books.size()) || !m_delegate)
        return;
    const PLShelfBook book = m_books[size_t(index)]; // the delegate may give other books
    m_delegate->openBook(book);
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
    m_layout = layoutForWidth(visible.width());
    const QSize wanted(visible.width(), qMax(m_layout.contentHeight(), visible.height()));
    if (wanted != size())
        resize(wanted);
    update();
}

PLShelfLayout PLShelfView::layoutForWidth(int width) const
{
    return m_spineMode ? PLShelfLayout::ofSpines(m_books, width)
                       : PLShelfLayout::ofCovers(m_books.size(), width);
}

QAbstractScrollArea *PLShelfView::scrollArea() const
{
    auto *area =
        parentWidget() ? qobject_cast<QAbstractScrollArea *>(parentWidget()->parentWidget()) : nullptr;
    return area && area->viewport() == parentWidget() ? area : nullptr;
}

/// Where everything fits without a scroll bar, the size is that without one, also while one is still shown.
QSize PLShelfView::visibleSize() const
{
    const QAbstractScrollArea *area = scrollArea();
    if (!area)
        return size();
    const QSize whole = area->maximumViewportSize();
    const bool fits = layoutForWidth(whole.width()).contentHeight() <= whole.height();
    return fits ? whole : area->viewport()->size();
}

QRect PLShelfView::visibleRect() const
{
    return scrollArea() ? QRect(-pos(), parentWidget()->size()).intersected(rect()) : rect();
}

/// A hidden scroll area does not know yet how far it can scroll.
void PLShelfView::scrollToSelectedBook()
{
    m_scrollsWhenShown = !isVisible();
    const QAbstractScrollArea *area = scrollArea();
    if (!area || m_selectedIndex < 0 || m_scrollsWhenShown)
        return;
    const QRect wanted =
        rectForBookAtIndex(m_selectedIndex).adjusted(-sightSide, -sightAbove, sightSide, sightAbove);
    QScrollBar *bar = area->verticalScrollBar();
    const int lowest = wanted.bottom() + 1 - parentWidget()->height();
    bar->setValue(qMin(qMax(bar->value(), lowest), wanted.top()));
}

PLShelfScene PLShelfView::scene() const
{
    return {m_books,     m_layout,       m_spineMode, m_selectedIndex,
            m_dropIndex, m_emptyMessage, size(),      visibleRect()};
}

void PLShelfView::updateBook(int index)
{
    if (index >= 0)
        update(rectForBookAtIndex(index).adjusted(-ringReach, -ringReach, ringReach, ringReach));
}

void PLShelfView::updateCoverText(int index)
{
    const QRect cover = rectForBookAtIndex(index);
    update(PLTitleBoxOfCover(cover).united(PLAuthorBoxOfCover(cover)));
}

void PLShelfView::announceSelection()
{
    if (m_selectedIndex < 0)
        return;
    QAccessibleEvent selection(this, QAccessible::Selection);
    selection.setChild(m_selectedIndex);
    QAccessible::updateAccessibility(&selection);
    if (!hasFocus())
        return;
    QAccessibleEvent focus(this, QAccessible::Focus);
    focus.setChild(m_selectedIndex);
    QAccessible::updateAccessibility(&focus);
}

void PLShelfView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    // At a fractional scale the pixels to be painted can reach out of the points.
    PLDrawShelf(painter, scene(), event->rect().marginsAdded(QMargins(1, 1, 1, 1)), m_sprites);
}

/// What is in sight moves along by itself; but the texts of covers come and go with their books, far from
/// them.
void PLShelfView::moveEvent(QMoveEvent *event)
{
    if (m_spineMode || !scrollArea())
        return;
    const PLShelfScene now = scene();
    const QRect before = QRect(-event->oldPos(), parentWidget()->size());
    for (int index = 0; index < int(m_books.size()); ++index) {
        if (m_books[size_t(index)].cover.isNull() &&
            now.isBookNear(index, before) != now.isBookNear(index, now.visible))
            updateCoverText(index);
    }
}

/// Where a scroll area scrolls to when the focus leaves it: nowhere. By itself it would go to the middle of
/// the view.
QVariant PLShelfView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return query == Qt::ImCursorRectangle ? QRect(visibleRect().center(), QSize(1, 1))
                                          : QWidget::inputMethodQuery(query);
}

void PLShelfView::showEvent(QShowEvent *)
{
    if (m_scrollsWhenShown)
        scrollToSelectedBook();
}

void PLShelfView::hideEvent(QHideEvent *)
{
    m_sprites.clear();
}

void PLShelfView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        m_sprites.clear();
    QWidget::changeEvent(event);
}

/// Qt tells that the list has the focus after this event; the reader is to end at the book.
void PLShelfView::focusInEvent(QFocusEvent *)
{
    QMetaObject::invokeMethod(this, &PLShelfView::announceSelection, Qt::QueuedConnection);
}
