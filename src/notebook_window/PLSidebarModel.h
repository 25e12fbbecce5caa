// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notebook_window/PLSidebarTree.h"

#include <QAbstractItemModel>

/// Shows a sidebar tree to the outline view.
class PLSidebarModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit PLSidebarModel(QObject *parent = nullptr);
    ~PLSidebarModel() override;

    const PLSidebarTree &tree() const { return *m_tree; }
    /// Makes all rows anew, as they are on the disk now.
    void readProject(const PLProject &project);

    /// Null for an invalid index, and the reverse.
    PLSidebarNode *nodeForIndex(const QModelIndex &index) const;
    QModelIndex indexForNode(const PLSidebarNode *node) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    /// No header is shown, but a screen reader reads it.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    std::unique_ptr<PLSidebarTree> m_tree;
};

/// The name of the section, of the tag or of the page, without signs or counts.
QString PLSidebarTitle(const PLSidebarNode &node);
/// What a row shows: "LE LIVRE  ·  35", "# Paris  (3)", the page's title.
QString PLSidebarText(const PLSidebarNode &node);
/// The chapter's number, the section of a page under a tag; null for the other rows.
QString PLSidebarToolTip(const PLSidebarNode &node);
