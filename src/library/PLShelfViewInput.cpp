// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What the writer does to the shelf.

#include "library/PLShelfView.h"
#include "storage/PLProject.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QStyleHints>

namespace {

bool isShowMenuKey(const QKeyEvent &event)
{
    return event.key() == Qt::Key_F10 &&
           event.modifiers() == Qt::ShiftModifier; // the Menu key comes as an event
}

/// A folder can have the name of a picture. A file of another machine is one here by its URL alone.
bool isImage(const QUrl &url)
{
    const QFileInfo file(url.toLocalFile());
    return url.isLocalFile() && url.host().isEmpty() && !file.completeBaseName().isEmpty() &&
           PLProject::coverImageExtensions().contains(file.suffix().toLower()) && !file.isDir();
}

} // namespace

void PLShelfView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        clickBook(*event);
}

void PLShelfView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && clickBook(*event) == 2)
        openBookAtIndex(m_selectedIndex);
}

/// Selects the book under the pointer. Answers how many clicks on it have followed each other quickly: Qt
/// calls the fourth a double click again.
int PLShelfView::clickBook(const QMouseEvent &event)
{
    const int index = indexOfBookAtPoint(event.position());
    const auto interval = quint64(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    const bool isQuick = index == m_clickedIndex && event.timestamp() - m_lastClickTime <= interval;
    if (event.type() == QEvent::MouseButtonDblClick)
        m_clicks = isQuick ? m_clicks + 1 : 2;
    else
        m_clicks = isQuick && m_clicks > 1 ? m_clicks + 1 : 1;
    m_clickedIndex = index;
    m_lastClickTime = event.timestamp();
    setFocus(Qt::MouseFocusReason);
    setSelectedIndex(index);
    return m_clicks;
}

QMenu *PLShelfView::menuForPoint(const QPointF &point)
{
    const int index = indexOfBookAtPoint(point);
    if (index < 0)
        return nullptr;
    setSelectedIndex(index);
    return m_menu;
}

void PLShelfView::showMenuOfSelectedBook()
{
    const QRect book = rectForBookAtIndex(m_selectedIndex).intersected(visibleRect());
    if (m_menu && m_selectedIndex >= 0)
        m_menu->popup(mapToGlobal(book.isEmpty() ? visibleRect().center() : book.center()));
}

void PLShelfView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        showMenuOfSelectedBook();
    else if (QMenu *menu = menuForPoint(event->pos()))
        menu->popup(event->globalPos());
}

void PLShelfView::keyPressEvent(QKeyEvent *event)
{
    if (!performKey(*event))
        QWidget::keyPressEvent(event);
}

/// There is no way up or down between the shelves, and no key that removes a book: that is for the menu
/// alone. What has no effect now is not passed on either.
bool PLShelfView::performKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Right:
        setSelectedIndex(qMin(m_selectedIndex + 1, int(m_books.size()) - 1));
        return true;
    case Qt::Key_Left:
        setSelectedIndex(qMax(m_selectedIndex - 1, 0));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event.isAutoRepeat())
            openBookAtIndex(m_selectedIndex);
        return true;
    default:
        break;
    }
    if (isShowMenuKey(event))
        showMenuOfSelectedBook();
    return isShowMenuKey(event);
}

QUrl PLShelfView::imageURLFromDrag(const QMimeData &drag)
{
    const QList<QUrl> urls = drag.urls();
    const auto image = std::find_if(urls.begin(), urls.end(), isImage);
    return image == urls.end() ? QUrl() : *image;
}

bool PLShelfView::canTakeCover(int index) const
{
    return index >= 0 && index < int(m_books.size()) && m_books[size_t(index)].available;
}

/// The book under a dragged picture gets a ring, if the picture can become its cover. Gives the picture.
QUrl PLShelfView::updateDrag(QDropEvent &event)
{
    const bool canCopy = event.possibleActions().testFlag(Qt::CopyAction) && event.mimeData();
    const QUrl image = canCopy ? imageURLFromDrag(*event.mimeData()) : QUrl();
    int target = image.isValid() ? indexOfBookAtPoint(event.position()) : -1;
    if (!canTakeCover(target))
        target = -1;
    setDropIndex(target);
    event.setDropAction(target >= 0 ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(target >= 0);
    return image;
}

void PLShelfView::setDropIndex(int index)
{
    if (index == m_dropIndex)
        return;
    updateBook(m_dropIndex);
    m_dropIndex = index;
    updateBook(m_dropIndex);
}

void PLShelfView::dragEnterEvent(QDragEnterEvent *event)
{
    updateDrag(*event);
    event->accept(); // the drag goes on over the view, or no move would be told
}

void PLShelfView::dragMoveEvent(QDragMoveEvent *event)
{
    updateDrag(*event);
}

void PLShelfView::dragLeaveEvent(QDragLeaveEvent *)
{
    setDropIndex(-1);
}

void PLShelfView::dropEvent(QDropEvent *event)
{
    // Asked for once more: in the last move it may have had no answer, when the button was just released.
    const QUrl image = updateDrag(*event);
    const int index = m_dropIndex;
    setDropIndex(-1);
    event->setAccepted(index >= 0 && image.isValid());
    if (!event->isAccepted())
        return;
    event->setDropAction(Qt::CopyAction);
    const PLShelfBook book = m_books[size_t(index)]; // the delegate may give other books
    if (m_delegate)
        m_delegate->didDropImageAtURL(image, book);
}
