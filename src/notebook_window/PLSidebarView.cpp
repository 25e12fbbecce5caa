// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarView.h"

#include "foundation/PLText.h"
#include "i18n/PLDesktopStrings.h"
#include "notebook_window/PLSidebarModel.h"
#include "notebook_window/PLSidebarRowDelegate.h"
#include "storage/PLProject.h"
#include "theme/PLTheme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int pointsPerLevel = 12;

} // namespace

PLSidebarView::PLSidebarView(QWidget *parent) : QTreeView(parent)
{
    setAccessibleName(PLDesktopString(u"Pages du carnet"_s));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setIndentation(pointsPerLevel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTextElideMode(Qt::ElideRight);
    applyColors();
}

bool PLSidebarView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const PLSection section = addButtonAt(help->pos());
        if (section != PLSection::None) {
            QToolTip::showText(help->globalPos(), PLProject::addActionTitleForSection(section), this);
            return true;
        }
    }
    return QTreeView::viewportEvent(event);
}

void PLSidebarView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Mouse) {
        Q_EMIT contextMenuRequested(indexAt(event->pos()), event->globalPos());
        return;
    }
    requestMenuOfCurrentRow();
}

void PLSidebarView::requestMenuOfCurrentRow()
{
    scrollTo(currentIndex());
    const QRect row = visualRect(currentIndex());
    Q_EMIT contextMenuRequested(currentIndex(), viewport()->mapToGlobal(row.center()));
}

void PLSidebarView::keyPressEvent(QKeyEvent *event)
{
    // What the field of a title has no use for is not for the rows.
    if (state() == EditingState)
        return event->ignore();
    const int key = event->key();
    const bool isCommand = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2 ||
                           key == Qt::Key_Delete || key == Qt::Key_Backspace;
    if (isCommand && event->isAutoRepeat())
        return; // held down, perhaps since another window had the keys
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        Q_EMIT renameRequested();
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT trashRequested();
        return;
    case Qt::Key_F10:
        // Qt 6.4 makes a request of the menu key under X11, but not of the older Shift+F10.
        if (event->modifiers() == Qt::ShiftModifier)
            return requestMenuOfCurrentRow();
        break;
    default:
        break;
    }
    QTreeView::keyPressEvent(event);
}

void PLSidebarView::mousePressEvent(QMouseEvent *event)
{
    const PLSection section = addButtonAt(event->pos());
    if (event->button() == Qt::LeftButton && section != PLSection::None) {
        Q_EMIT addRequested(section);
        return;
    }
    // A right click shows the menu of a row without selecting it: the page that is open stays open.
    if (event->button() != Qt::RightButton)
        QTreeView::mousePressEvent(event);
}

/// Finds the next row whose title begins as typed, whatever its case and accents.
void PLSidebarView::keyboardSearch(const QString &typed)
{
    const bool goesOn =
        m_sinceTyping.isValid() && !m_sinceTyping.hasExpired(QApplication::keyboardInputInterval());
    m_sinceTyping.start();
    m_searchedTitle = goesOn ? m_searchedTitle + typed : typed;
    if (m_searchedTitle.isEmpty() || !model()->hasChildren())
        return;
    // One letter, and the same letter again, go on to the next row.
    const bool isOneLetter = m_searchedTitle.count(m_searchedTitle.front()) == m_searchedTitle.size();
    const QString start =
        PLFoldedCaseAndDiacritics(isOneLetter ? QString(m_searchedTitle.front()) : m_searchedTitle);
    const QModelIndex first = currentIndex().isValid() ? currentIndex() : model()->index(0, 0);
    QModelIndex row = isOneLetter ? rowAfter(first) : first;
    do {
        const auto *node = static_cast<const PLSidebarNode *>(row.internalPointer());
        if (PLFoldedCaseAndDiacritics(PLSidebarTitle(*node)).startsWith(start))
            return setCurrentIndex(row);
        row = rowAfter(row);
    } while (row != (isOneLetter ? rowAfter(first) : first));
}

QModelIndex PLSidebarView::rowAfter(const QModelIndex &row) const
{
    const QModelIndex below = indexBelow(row);
    return below.isValid() ? below : model()->index(0, 0);
}

/// Tab ends a title as Return does; it does not go on to the title of the next page.
void PLSidebarView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint)
{
    const bool hadFocus = window()->focusWidget() == editor;
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (hadFocus)
        Q_EMIT titleFieldLeft();
}

/// Whatever the desktop's theme is, also for the scroll bar.
void PLSidebarView::applyColors()
{
    QPalette colors(PLTheme::coverColor(), PLTheme::coverColor());
    colors.setColor(QPalette::Base, PLTheme::coverColor());
    colors.setColor(QPalette::Window, PLTheme::coverColor());
    colors.setColor(QPalette::Text, PLTheme::inkColor());
    colors.setColor(QPalette::WindowText, PLTheme::inkColor());
    colors.setColor(QPalette::Highlight, PLTheme::shadowed(PLTheme::coverColor(), 0.08));
    colors.setColor(QPalette::Active, QPalette::Highlight, PLTheme::shadowed(PLTheme::coverColor(), 0.14));
    colors.setColor(QPalette::HighlightedText, PLTheme::inkColor());
    setPalette(colors);
}

PLSection PLSidebarView::addButtonAt(const QPoint &position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || index.parent().isValid())
        return PLSection::None;
    const auto *node = static_cast<const PLSidebarNode *>(index.internalPointer());
    const auto *section = static_cast<const PLSidebarSection *>(node);
    if (section->isTagSection || !PLSidebarRowDelegate::addButtonRect(visualRect(index)).contains(position))
        return PLSection::None;
    return section->section;
}
