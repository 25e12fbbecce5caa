// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notebook_window/PLSidebarModel.h"

#include <QSet>

#include <utility>

class PLProject;
class PLSidebarRowDelegate;
class PLSidebarView;
class QLineEdit;

/// Keeps the sidebar in step with the disk: rebuilds it, remembers which tags are open, and puts the
/// selection back on the row that means the same.
class PLSidebarController final : public QObject
{
    Q_OBJECT

public:
    PLSidebarController(const PLProject &project, QObject *parent = nullptr);
    ~PLSidebarController() override;

    /// The widget to put into the window; its parent owns it.
    PLSidebarView *view() const { return m_view; }
    PLSidebarRowDelegate *rowDelegate() const { return m_rowDelegate; }
    const PLSidebarTree &tree() const { return m_model.tree(); }
    const QStringList &allTags() const { return tree().allTags(); }

    /// Null when no row is selected; a row inside a closed one is not.
    PLSidebarNode *selectedNode() const;
    PLSidebarNode *nodeForIndex(const QModelIndex &index) const { return m_model.nodeForIndex(index); }
    bool isEditingName() const { return m_titleField != nullptr; }

    /// Reads the notebook again. All sections are open then, and the tags the writer had opened.
    void reloadSidebarData();
    /// Selects a row, or nothing for null or a row that is not in sight, then tells selectionChanged once.
    void selectSidebarObject(const PLSidebarNode *node);
    /// Rebuilds and selects the page at the URL, else the section, else nothing.
    void reloadSidebarSelectingURL(const QUrl &fileURL, PLSection section);
    /// Rebuilds and selects what was selected; `currentURL` is the page that is open.
    void refreshSidebar(const QUrl &currentURL);
    /// Rebuilds and selects the first page of the book, else the book.
    void selectFirstChapter();

    void expandNode(const PLSidebarNode *node);
    /// Selects the row and opens its title for typing, all of it selected.
    void editTitleOfNode(const PLSidebarNode *node);
    /// Takes the title that is being typed as it is, as Return would; titleTyped is told before this returns.
    void commitTitle();
    /// The title that is being typed, or not told yet; its field is closed, and titleTyped is not told. A
    /// null page when there is none.
    std::pair<PLProjectItemPointer, QString> takeTitle();

Q_SIGNALS:
    /// The selection has moved, or has been set again by the program.
    void selectionChanged();
    /// A title was typed into the row of a page, and its field is closed.
    void titleTyped(const PLProjectItemPointer &item, const QString &title);
    /// No title is being typed any more; told after titleTyped.
    void nameEditingEnded();

private:
    void rememberExpansion(const QModelIndex &index, bool isExpanded);
    void expandSectionsAndKnownTags();
    bool isInSight(const QModelIndex &index) const;
    void titleEditingBegan(QLineEdit *field);
    void titleFieldFilled(const QString &title);
    void closeTitleField();
    void tellTypedTitle();
    void titleEditingEnded(const QObject *field);

    const PLProject &m_project;
    PLSidebarModel m_model;
    PLSidebarView *m_view;
    PLSidebarRowDelegate *m_rowDelegate;
    QSet<QString> m_expandedTags;      ///< in lower case
    PLProjectItemPointer m_titleItem;  ///< whose title is being typed
    QLineEdit *m_titleField = nullptr; ///< where it is being typed
    PLProjectItemPointer m_typedItem;  ///< whose title has been typed, until that is told
    QString m_typedTitle;
    bool m_reloading = false;
};
