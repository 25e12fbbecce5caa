// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldCompletion.h"

#include "editor/PLTagToken.h"
#include "i18n/PLDesktopStrings.h"
#include "theme/PLTheme.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRows = 8;
constexpr int leastWidth = 120;
constexpr int greatestWidth = 320;
constexpr int padding = 12;
constexpr int rowPadding = 5; // above and below a row's text together

/// Rows with some air around their text.
class RowDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, rowPadding);
    }
};

} // namespace

PLTagFieldCompletion::PLTagFieldCompletion(QWidget *field)
    : QListView(field->window()), m_field(field), m_tags(new QStringListModel(this))
{
    hide();
    setModel(m_tags);
    setItemDelegate(new RowDelegate(this));
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(PLDesktopString(u"Tags proposés"_s));
    applyLook();
    connect(this, &QListView::clicked, this,
            [this](const QModelIndex &index) { Q_EMIT tagClicked(index.data().toString()); });
}

void PLTagFieldCompletion::propose(const QStringList &tags, const QRect &around)
{
    m_tags->setStringList(tags);
    setVisible(!tags.isEmpty());
    if (tags.isEmpty())
        return;
    setGeometry(frameAround(around));
    raise();
    scrollToTop();
}

QString PLTagFieldCompletion::chosenTag() const
{
    return isVisible() && currentIndex().isValid() ? currentIndex().data().toString() : QString();
}

void PLTagFieldCompletion::moveChoice(int rows)
{
    const int count = m_tags->rowCount();
    const int first = currentIndex().isValid() ? currentIndex().row() : (rows > 0 ? -1 : count);
    const int row = qAbs(rows) == 1 ? first + rows : qBound(0, first + rows, count - 1);
    setCurrentIndex(m_tags->index(row)); // none outside the list
    if (!currentIndex().isValid())
        return clearSelection();
    QAccessibleEvent event(this, QAccessible::Focus); // the view itself never has the focus
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

/// A press outside the list and its field, and any change of the window's size, close the list.
bool PLTagFieldCompletion::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    const bool isOutside = widget && event->type() == QEvent::MouseButtonPress && widget != m_field &&
                           widget != this && !isAncestorOf(widget);
    if (isOutside || (watched == parent() && event->type() == QEvent::Resize))
        hide();
    return false;
}

void PLTagFieldCompletion::showEvent(QShowEvent *event)
{
    qApp->installEventFilter(this);
    QListView::showEvent(event);
}

void PLTagFieldCompletion::hideEvent(QHideEvent *event)
{
    qApp->removeEventFilter(this);
    QListView::hideEvent(event);
}

void PLTagFieldCompletion::applyLook()
{
    const QColor paper = PLTheme::highlighted(PLTheme::paperColor(), 0.6);
    QPalette colors(PLTheme::coverColor(),
                    paper); // so that frame and scroll bar suit whatever the desktop's theme
    colors.setColor(QPalette::Base, paper);
    colors.setColor(QPalette::Text, PLTheme::inkColor());
    colors.setColor(QPalette::Highlight, PLTheme::tagsColor());
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::WindowText, PLTheme::shadowed(PLTheme::coverColor(), 0.2)); // the frame's line
    setPalette(colors);
    setFont(PLTagToken::font());
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setSpacing(1);
    setAutoFillBackground(true);
}

QRect PLTagFieldCompletion::frameAround(const QRect &around) const
{
    const QRect place(m_field->mapTo(parentWidget(), around.topLeft()), around.size());
    const QRect room = parentWidget()->rect();
    const int below = room.bottom() - place.bottom();
    const int above = place.top();
    const int rows = qMin(mostRows, m_tags->rowCount());
    const int wanted = rows * (sizeHintForRow(0) + 2 * spacing()) + 2 * frameWidth() + 2;
    const bool isBelow = wanted <= below || below >= above;
    const int height = qMin(wanted, isBelow ? below : above);
    const int scrollBar = m_tags->rowCount() > rows ? verticalScrollBar()->sizeHint().width() : 0;
    const int width = qBound(leastWidth, sizeHintForColumn(0) + padding + scrollBar, greatestWidth);
    const int start = layoutDirection() == Qt::RightToLeft ? place.right() - width : place.left();
    const int left = qBound(0, start, qMax(0, room.width() - width));
    return QRect(left, isBelow ? place.bottom() + 1 : place.top() - height, width, height);
}
