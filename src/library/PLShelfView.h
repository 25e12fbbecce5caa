// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLShelfBook.h"
#include "library/PLShelfLayout.h"
#include "library/PLShelfViewDelegate.h"

#include <QMenu>
#include <QPointer>
#include <QWidget>

class QMimeData;

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

    /// Told of what the writer does; not owned, null for none.
    void setDelegate(PLShelfViewDelegate *delegate) { m_delegate = delegate; }
    /// The context menu of a book; not owned.
    void setMenu(QMenu *menu) { m_menu = menu; }
    QMenu *menu() const { return m_menu; }
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
    /// The book that a picture is being dragged over, -1 for none.
    int dropIndex() const { return m_dropIndex; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QSize visibleSize() const;
    void scrollToSelectedBook();

    std::vector<PLShelfBook> m_books;
    PLShelfLayout m_layout;
    PLShelfViewDelegate *m_delegate = nullptr;
    QPointer<QMenu> m_menu;
    QString m_emptyMessage;
    int m_selectedIndex = -1;
    int m_dropIndex = -1;
    bool m_spineMode = false;
};
