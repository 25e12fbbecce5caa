// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarController.h"

#include "notebook_window/PLSidebarPlace.h"
#include "notebook_window/PLSidebarRowDelegate.h"
#include "notebook_window/PLSidebarView.h"
#include "storage/PLProject.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>

using Kind = PLSidebarNode::Kind;

PLSidebarController::PLSidebarController(const PLProject &project, QObject *parent)
    : QObject(parent)
    , m_project(project)
    , m_view(new PLSidebarView)
    , m_rowDelegate(new PLSidebarRowDelegate(this))
{
    m_view->setModel(&m_model);
    m_view->setItemDelegate(m_rowDelegate);
    connect(m_view, &QTreeView::expanded, this,
            [this](const QModelIndex &index) { rememberExpansion(index, true); });
    connect(m_view, &QTreeView::collapsed, this,
            [this](const QModelIndex &index) { rememberExpansion(index, false); });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_reloading)
            Q_EMIT selectionChanged();
    });
    connect(m_rowDelegate, &PLSidebarRowDelegate::editingBegan, this,
            &PLSidebarController::titleEditingBegan);
    connect(m_rowDelegate, &QAbstractItemDelegate::closeEditor, this,
            &PLSidebarController::titleEditingEnded);
    connect(m_rowDelegate, &PLSidebarRowDelegate::editingEnded, this,
            &PLSidebarController::titleEditingEnded);
    connect(m_rowDelegate, &PLSidebarRowDelegate::titleTyped, this,
            [this](const QModelIndex &, const QString &title) { titleFieldFilled(title); });
}

PLSidebarController::~PLSidebarController()
{
    m_rowDelegate->disconnect(this);
    if (m_view->selectionModel())
        m_view->selectionModel()->disconnect(this);
    m_view->disconnect(this);
}

PLSidebarNode *PLSidebarController::selectedNode() const
{
    const QModelIndexList selected = m_view->selectionModel()->selectedIndexes();
    if (selected.isEmpty() || !isInSight(selected.constFirst()))
        return nullptr;
    return m_model.nodeForIndex(selected.constFirst());
}

void PLSidebarController::reloadSidebarData()
{
    const QScopedValueRollback reloading(m_reloading, true);
    const int scrollPosition = m_view->verticalScrollBar()->value(); // the rows in sight stay where they are
    m_model.readProject(m_project);
    expandSectionsAndKnownTags();
    m_view->doItemsLayout();
    m_view->verticalScrollBar()->setValue(scrollPosition);
}

void PLSidebarController::selectSidebarObject(const PLSidebarNode *node)
{
    {
        const QScopedValueRollback reloading(m_reloading, true);
        const QModelIndex index = m_model.indexForNode(node);
        if (index.isValid() && isInSight(index)) {
            m_view->setCurrentIndex(index);
            m_view->scrollTo(index);
        } else {
            m_view->selectionModel()->clear();
        }
    }
    Q_EMIT selectionChanged();
}

void PLSidebarController::reloadSidebarSelectingURL(const QUrl &fileURL, PLSection section)
{
    reloadSidebarData();
    const PLSidebarNode *target = tree().sectionItemForURL(fileURL);
    selectSidebarObject(target ? target : tree().section(section));
}

void PLSidebarController::refreshSidebar(const QUrl &currentURL)
{
    const PLSidebarPlace selected(selectedNode()); // the rows themselves go away
    reloadSidebarData();
    const PLSidebarNode *target = selected.rowIn(tree());
    selectSidebarObject(target ? target : tree().sectionItemForURL(currentURL));
}

void PLSidebarController::selectFirstChapter()
{
    reloadSidebarData();
    const PLSidebarSection *book = tree().section(PLSection::Book);
    const bool hasPages = book && book->childCount() > 0;
    selectSidebarObject(hasPages ? book->children().front() : book);
}

void PLSidebarController::expandNode(const PLSidebarNode *node)
{
    m_view->expand(m_model.indexForNode(node));
}

void PLSidebarController::editTitleOfNode(const PLSidebarNode *node)
{
    const QModelIndex index = m_model.indexForNode(node);
    if (!index.isValid() || !isInSight(index))
        return;
    m_view->setCurrentIndex(index);
    m_view->setFocus();
    // Opening the page or leaving the tags may have shown an alert, and the list been read again since.
    const PLSidebarNode *selected = selectedNode();
    if (!selected || selected->kind() != Kind::Page)
        return;
    m_titleItem = PLItemOfNode(selected);
    m_view->edit(m_view->currentIndex());
}

void PLSidebarController::commitTitle()
{
    closeTitleField();
    tellTypedTitle();
}

std::pair<PLProjectItemPointer, QString> PLSidebarController::takeTitle()
{
    closeTitleField();
    QMetaObject::invokeMethod(this, &PLSidebarController::nameEditingEnded, Qt::QueuedConnection);
    return {std::exchange(m_typedItem, nullptr), m_typedTitle};
}

void PLSidebarController::closeTitleField()
{
    QLineEdit *field = std::exchange(m_titleField, nullptr);
    if (!field)
        return;
    QGuiApplication::inputMethod()->commit();
    m_typedItem = std::exchange(m_titleItem, nullptr);
    m_typedTitle = field->text();
    Q_EMIT m_rowDelegate->closeEditor(field);
}

void PLSidebarController::rememberExpansion(const QModelIndex &index, bool isExpanded)
{
    const PLSidebarNode *node = m_model.nodeForIndex(index);
    if (m_reloading || !node || node->kind() != Kind::Tag)
        return;
    const QString key = static_cast<const PLSidebarTag *>(node)->name.toLower();
    if (isExpanded)
        m_expandedTags.insert(key);
    else
        m_expandedTags.remove(key);
}

void PLSidebarController::expandSectionsAndKnownTags()
{
    for (const PLSidebarNode *section : tree().root()->children())
        m_view->expand(m_model.indexForNode(section));
    const PLSidebarSection *tags = tree().tagSection();
    for (size_t index = 0; tags && index < tags->children().size(); ++index) {
        const auto *tag = static_cast<const PLSidebarTag *>(tags->children()[index]);
        if (m_expandedTags.contains(tag->name.toLower()))
            m_view->expand(m_model.indexForNode(tag));
    }
}

bool PLSidebarController::isInSight(const QModelIndex &index) const
{
    for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent()) {
        if (!m_view->isExpanded(parent))
            return false;
    }
    return true;
}

void PLSidebarController::titleEditingBegan(QLineEdit *field)
{
    m_titleField = field;
}

/// Told when the event loop has turned. The view is in the middle of closing the field, and an alert about
/// the title, which runs a loop of its own, would pull the field from under it.
void PLSidebarController::titleFieldFilled(const QString &title)
{
    if (!m_titleItem)
        return;
    m_titleField = nullptr;
    m_typedItem = std::exchange(m_titleItem, nullptr);
    m_typedTitle = title;
    QMetaObject::invokeMethod(this, &PLSidebarController::tellTypedTitle, Qt::QueuedConnection);
}

void PLSidebarController::tellTypedTitle()
{
    const PLProjectItemPointer item = std::exchange(m_typedItem, nullptr);
    if (!item)
        return;
    Q_EMIT titleTyped(item, m_typedTitle);
    Q_EMIT nameEditingEnded();
}

/// Without a word to the model before: Escape has closed the field, or its row has gone and it with it. Told
/// later, for the view is still closing it.
void PLSidebarController::titleEditingEnded(const QObject *field)
{
    if (field != m_titleField)
        return;
    m_titleField = nullptr;
    m_titleItem = nullptr;
    QMetaObject::invokeMethod(this, &PLSidebarController::nameEditingEnded, Qt::QueuedConnection);
}
