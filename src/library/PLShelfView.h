// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLShelfBook.h"
#include "library/PLShelfLayout.h"
#include "library/PLShelfViewDelegate.h"
#include "library/PLSpriteCache.h"

#include <QMenu>
#include <QPointer>
#include <QWidget>

class QAbstractScrollArea;
class QMimeData;
struct PLShelfScene;

/// The known notebooks as books on wooden shelves, by their covers or by their spines. It belongs into a
/// scroll area with `widgetResizable` off, whose owner asks for `layoutBooks` whenever the viewport has
/// another size; by itself it fills its own size.
class PLShelfView final : public QWidget
{
    Q_OBJECT

public:
    explicit PLShelfView(QWidget *parent = nullptr);

    const std::vector<PLShelfBook> &books() const { return m_books; }
    /// A selection beyond the last book goes to it; the delegate is not told.
    void setBooks(std::vector<PLShelfBook> books);
    bool spineMode() const { return m_spineMode; }
    /// Stands the books spine out; the selected one stays in sight.
    void setSpineMode(bool spineMode);

    /// -1 for none.
    int selectedIndex() const { return m_selectedIndex; }
    /// Selects a book and scrolls to it; what is no index selects none.
    void setSelectedIndex(int index);
    /// Null for none.
    const PLShelfBook *selectedBook() const;
    /// Tells the delegate to open a book; nothing for an index out of range.
    void openBookAtIndex(int index);

    /// Told of what the writer does; not owned, null for none.
    void setDelegate(PLShelfViewDelegate *delegate) { m_delegate = delegate; }
    /// The context menu of a book; not owned.
    void setMenu(QMenu *menu) { m_menu = menu; }
    QMenu *menu() const { return m_menu; }
    /// The menu for a place, whose book gets selected; null where there is no book.
    QMenu *menuForPoint(const QPointF &point);
    /// Shows the menu at the selected book, if there is one.
    void showMenuOfSelectedBook();
    /// What is written on a shelf without books.
    void setEmptyMessage(const QString &message);
    QString emptyMessage() const { return m_emptyMessage; }

    /// Stands the books anew in the size that can be seen.
    void layoutBooks();
    const PLShelfLayout &shelfLayout() const { return m_layout; }
    /// Null for an index out of range.
    QRect rectForBookAtIndex(int index) const;
    /// -1 for none.
    int indexOfBookAtPoint(const QPointF &point) const { return m_layout.indexOfBookAtPoint(point); }
    /// What of the view is in sight.
    QRect visibleRect() const;

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    /// The book that a picture is being dragged over, -1 for none.
    int dropIndex() const { return m_dropIndex; }
    /// The first picture among the dragged files; an empty URL for none.
    static QUrl imageURLFromDrag(const QMimeData &drag);

protected:
    void paintEvent(QPaintEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QAbstractScrollArea *scrollArea() const;
    QSize visibleSize() const;
    PLShelfLayout layoutForWidth(int width) const;
    PLShelfScene scene() const;
    void scrollToSelectedBook();
    void updateBook(int index);
    void updateCoverText(int index);
    void announceSelection();

    int clickBook(const QMouseEvent &event);
    bool performKey(const QKeyEvent &event);
    bool canTakeCover(int index) const;
    QUrl updateDrag(QDropEvent &event);
    void setDropIndex(int index);

    std::vector<PLShelfBook> m_books;
    PLShelfLayout m_layout;
    PLSpriteCache m_sprites;
    PLShelfViewDelegate *m_delegate = nullptr;
    QPointer<QMenu> m_menu;
    QString m_emptyMessage;
    int m_selectedIndex = -1;
    int m_dropIndex = -1;
    bool m_spineMode = false;
    bool m_scrollsWhenShown = false;
    int m_clicks = 0; ///< in quick succession on one book
    int m_clickedIndex = -1;
    quint64 m_lastClickTime = 0; ///< milliseconds, as the events count them
};
