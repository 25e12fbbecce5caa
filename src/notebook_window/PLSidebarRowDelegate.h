// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLSection.h"

#include <QStyledItemDelegate>

class QLineEdit;

/// Draws the four kinds of rows of the sidebar, and edits a page's title in its row.
class PLSidebarRowDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PLSidebarRowDelegate(QObject *parent = nullptr);

    /// Where the button that adds a page stands in a section's row.
    static QRect addButtonRect(const QRect &row);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

Q_SIGNALS:
    /// The writer has typed a title for the page of this row.
    void titleTyped(const QModelIndex &index, const QString &title) const;
    void editingBegan(QLineEdit *field) const;
    /// The field is gone, whatever became of its text. Only its address is told.
    void editingEnded(const QObject *field) const;

protected:
    bool eventFilter(QObject *field, QEvent *event) override;

private:
    void endTyping(QWidget *field);
};
