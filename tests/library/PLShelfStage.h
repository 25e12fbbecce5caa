// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLShelfView.h"

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

/// Books named after their numbers, each in a folder of its own.
inline std::vector<PLShelfBook> PLTestBooks(int count)
{
    std::vector<PLShelfBook> books;
    for (int index = 0; index < count; ++index) {
        PLShelfBook book;
        book.title = QStringLiteral("Carnet %1").arg(index);
        book.url = QUrl::fromLocalFile(QStringLiteral("/carnets/%1").arg(index));
        books.push_back(book);
    }
    return books;
}

/// Writes down what a shelf tells.
class PLTestShelfDelegate final : public PLShelfViewDelegate
{
public:
    void shelfViewSelectionDidChange(PLShelfView &view) override { selections.append(view.selectedIndex()); }
    void openBook(const PLShelfBook &book) override
    {
        if (whenTold)
            whenTold();
        opened.append(book.title);
    }
    void didDropImageAtURL(const QUrl &image, const PLShelfBook &book) override
    {
        if (whenTold)
            whenTold();
        dropped.append(image.fileName() + QStringLiteral(" on ") + book.title);
    }

    QList<int> selections;
    QStringList opened;
    QStringList dropped;
    std::function<void()> whenTold; ///< done before the book is looked at
};

/// A shelf in a scroll area that has it laid out whenever its viewport has another size.
class PLShelfStage final : public QObject
{
public:
    explicit PLShelfStage(int books, QSize size = QSize(900, 532)) : shelf(new PLShelfView)
    {
        area.setFrameShape(QFrame::NoFrame);
        area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area.setWidget(shelf);
        area.viewport()->installEventFilter(this);
        area.resize(size);
        shelf->setBooks(PLTestBooks(books));
        area.show();
        QApplication::setActiveWindow(&area);
        shelf->setFocus();
        shelf->setDelegate(&delegate);
        settle();
    }
    ~PLShelfStage() override { area.viewport()->removeEventFilter(this); }

    /// The scroll bar comes and goes a turn of the main loop later.
    void settle() const { QCoreApplication::processEvents(); }
    QPoint centerOf(int index) const { return shelf->rectForBookAtIndex(index).center(); }
    void press(int key) const { QTest::keyClick(shelf, Qt::Key(key)); }
    void click(const QPoint &point) const { QTest::mouseClick(shelf, Qt::LeftButton, {}, point); }

    QScrollArea area;
    PLShelfView *shelf;
    PLTestShelfDelegate delegate;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            shelf->layoutBooks();
        return QObject::eventFilter(watched, event);
    }
};
