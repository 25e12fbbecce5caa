// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarView.h"

#include "notebook_window/PLSidebarModel.h"
#include "notebook_window/PLSidebarRowDelegate.h"
#include "storage/PLProject.h"
#include "theme/PLTheme.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

namespace {

constexpr int pointsPerLevel = 12;

} // namespace

PLSidebarView::PLSidebarView(QWidget *parent) : QTreeView(parent)
{
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
    const QRect row = visualRect(currentIndex());
    Q_EMIT contextMenuRequested(currentIndex(), viewport()->mapToGlobal(row.center()));
}

void PLSidebarView::keyPressEvent(QKeyEvent *event)
{
    // The field of a title lets Return through; it ends the typing and must not begin it anew.
    if (state() == EditingState)
        return event->ignore();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        Q_EMIT renameRequested();
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT trashRequested();
        return;
    default:
        QTreeView::keyPressEvent(event);
    }
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

/// Tab ends a title as Return does; it does not go on to the title of the next page.
void PLSidebarView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint)
{
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void PLSidebarView::applyColors()
{
    QPalette colors = palette();
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
    const auto *section = static_cast<const PLSidebarSection *>(index.internalPointer());
    if (section->isTagSection || !PLSidebarRowDelegate::addButtonRect(visualRect(index)).contains(position))
        return PLSection::None;
    return section->section;
}
