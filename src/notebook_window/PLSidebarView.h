// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLSection.h"

#include <QElapsedTimer>
#include <QTreeView>

/// The outline of a notebook: turns clicks and keys on its rows into what the writer wants of them.
class PLSidebarView final : public QTreeView
{
    Q_OBJECT

public:
    explicit PLSidebarView(QWidget *parent = nullptr);

Q_SIGNALS:
    /// The add button of a section.
    void addRequested(PLSection section);
    /// Return or F2 on a row.
    void renameRequested();
    /// Delete on a row.
    void trashRequested();
    /// A row's context menu is wanted, by mouse or key; the index is invalid beside the rows.
    void contextMenuRequested(const QModelIndex &index, const QPoint &globalPosition);
    /// A key has closed the field of a title, and the keys that follow are for something else.
    void titleFieldLeft();

protected:
    bool viewportEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyboardSearch(const QString &typed) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void applyColors();
    void requestMenuOfCurrentRow();
    /// The section whose add button is at this point, None for another point.
    PLSection addButtonAt(const QPoint &position) const;
    /// The row below, or the first one below the last.
    QModelIndex rowAfter(const QModelIndex &row) const;

    QString m_searchedTitle; ///< what was typed so far to find a row by its title
    QElapsedTimer m_sinceTyping;
};
