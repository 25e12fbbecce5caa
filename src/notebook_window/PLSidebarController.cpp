// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarController.h"

#include "notebook_window/PLSidebarRowDelegate.h"
#include "notebook_window/PLSidebarView.h"
#include "storage/PLProject.h"

#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>

using Kind = PLSidebarNode::Kind;

namespace {

/// The row under this tag (which may be null) for the same file as the reference, null if there is none.
const PLSidebarNode *referenceUnderTag(const PLSidebarTag *tag, const PLTagReference &reference)
{
    if (!tag)
        return nullptr;
    for (const auto &candidate : tag->children()) {
        if (PLItemOfNode(candidate.get())->isSameFileAsItem(reference.referencedItem.get()))
            return candidate.get();
    }
    return nullptr;
}

} // namespace

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
    showTree(std::make_unique<PLSidebarTree>(m_project));
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
    auto newTree = std::make_unique<PLSidebarTree>(m_project);
    const PLSidebarNode *selected = selectedNode();
    // The old tree goes away with its nodes, so the new target is looked up before.
    const PLSidebarNode *target = selected ? equivalentOf(*selected, *newTree) : nullptr;
    if (!target)
        target = newTree->sectionItemForURL(currentURL);
    showTree(std::move(newTree));
    selectSidebarObject(target);
}

void PLSidebarController::selectFirstChapter()
{
    reloadSidebarData();
    const PLSidebarSection *book = tree().section(PLSection::Book);
    const bool hasPages = book && book->childCount() > 0;
    selectSidebarObject(hasPages ? book->children().front().get() : book);
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
    if (QLineEdit *field = std::exchange(m_titleField, nullptr)) {
        m_typedItem = std::exchange(m_titleItem, nullptr);
        m_typedTitle = field->text();
        Q_EMIT m_rowDelegate->closeEditor(field);
    }
    tellTypedTitle();
}

/// The rows that were in sight stay where they are.
void PLSidebarController::showTree(std::unique_ptr<PLSidebarTree> tree)
{
    const QScopedValueRollback reloading(m_reloading, true);
    const int scrollPosition = m_view->verticalScrollBar()->value();
    m_model.setTree(std::move(tree));
    expandSectionsAndKnownTags();
    m_view->doItemsLayout();
    m_view->verticalScrollBar()->setValue(scrollPosition);
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
    for (const auto &section : tree().root()->children())
        m_view->expand(m_model.indexForNode(section.get()));
    const PLSidebarSection *tags = tree().tagSection();
    for (size_t index = 0; tags && index < tags->children().size(); ++index) {
        const auto *tag = static_cast<const PLSidebarTag *>(tags->children()[index].get());
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

/// The row of the new tree that means what this one of the old tree means, null if there is none.
const PLSidebarNode *PLSidebarController::equivalentOf(const PLSidebarNode &node,
                                                       const PLSidebarTree &newTree) const
{
    switch (node.kind()) {
    case Kind::Reference: {
        const auto &reference = static_cast<const PLTagReference &>(node);
        if (const PLSidebarNode *same =
                referenceUnderTag(newTree.sidebarTagNamed(reference.parentTagName), reference))
            return same;
        return newTree.sectionItemForURL(reference.referencedItem->fileURL());
    }
    case Kind::Tag: {
        const PLSidebarTag *tag = newTree.sidebarTagNamed(static_cast<const PLSidebarTag &>(node).name);
        return tag ? static_cast<const PLSidebarNode *>(tag) : newTree.tagSection();
    }
    case Kind::Section: {
        const auto &section = static_cast<const PLSidebarSection &>(node);
        return section.isTagSection ? newTree.tagSection() : newTree.section(section.section);
    }
    case Kind::Page:
        break;
    }
    return newTree.sectionItemForURL(PLItemOfNode(&node)->fileURL());
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

/// Escape leaves the field without a word to the model, so the end of the editor is what is waited for.
void PLSidebarController::titleEditingEnded(const QObject *field)
{
    if (field != m_titleField)
        return;
    m_titleField = nullptr;
    const PLProjectItemPointer item = std::exchange(m_titleItem, nullptr);
    if (item)
        Q_EMIT titleEditingCancelled(item);
    Q_EMIT nameEditingEnded();
}
