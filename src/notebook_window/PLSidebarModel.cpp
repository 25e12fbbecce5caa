// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarModel.h"

#include "foundation/PLText.h"
#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"
#include "storage/PLProject.h"

using namespace Qt::StringLiterals;

namespace {

QString upperCased(const QString &text)
{
    return QLocale(PLLocalization::localeIdentifier()).toUpper(text);
}

QString sectionText(const PLSidebarSection &section)
{
    const QString title = upperCased(PLSidebarTitle(section));
    if (section.childCount() == 0)
        return title;
    return PLFormat(u"%@  ·  %lu"_s, {title, QString::number(section.childCount())});
}

/// The dot, the sign of tags and the capitals are for the eye.
QString accessibleText(const PLSidebarNode &node)
{
    if (node.childCount() == 0)
        return PLSidebarTitle(node);
    return PLFormat(u"%@, %lu"_s, {PLSidebarTitle(node), QString::number(node.childCount())});
}

} // namespace

PLSidebarModel::PLSidebarModel(QObject *parent)
    : QAbstractItemModel(parent), m_tree(std::make_unique<PLSidebarTree>())
{
}

PLSidebarModel::~PLSidebarModel() = default;

void PLSidebarModel::readProject(const PLProject &project)
{
    beginResetModel();
    m_tree = std::make_unique<PLSidebarTree>(); // first, so that the new rows can have its memory
    m_tree = std::make_unique<PLSidebarTree>(project);
    endResetModel();
}

PLSidebarNode *PLSidebarModel::nodeForIndex(const QModelIndex &index) const
{
    return static_cast<PLSidebarNode *>(index.internalPointer());
}

QModelIndex PLSidebarModel::indexForNode(const PLSidebarNode *node) const
{
    if (!node || node == m_tree->root())
        return {};
    return createIndex(node->row(), 0, node);
}

QModelIndex PLSidebarModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const PLSidebarNode *parentNode = parent.isValid() ? nodeForIndex(parent) : m_tree->root();
    return indexForNode(parentNode->children()[size_t(row)]);
}

QModelIndex PLSidebarModel::parent(const QModelIndex &index) const
{
    const PLSidebarNode *node = nodeForIndex(index);
    return node ? indexForNode(node->parent()) : QModelIndex();
}

int PLSidebarModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_tree->root()->childCount();
    return parent.column() == 0 ? nodeForIndex(parent)->childCount() : 0;
}

int PLSidebarModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant PLSidebarModel::data(const QModelIndex &index, int role) const
{
    const PLSidebarNode *node = nodeForIndex(index);
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return PLSidebarText(*node);
    case Qt::AccessibleTextRole:
        return accessibleText(*node);
    case Qt::EditRole:
        return node->kind() == PLSidebarNode::Kind::Page ? PLItemOfNode(node)->title() : QVariant();
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: {
        const QString toolTip = PLSidebarToolTip(*node);
        return toolTip.isNull() ? QVariant() : QVariant(toolTip);
    }
    default:
        return {};
    }
}

QVariant PLSidebarModel::headerData(int, Qt::Orientation, int role) const
{
    return role == Qt::DisplayRole ? QVariant(PLDesktopString(u"Pages du carnet"_s)) : QVariant();
}

Qt::ItemFlags PLSidebarModel::flags(const QModelIndex &index) const
{
    const PLSidebarNode *node = nodeForIndex(index);
    if (!node)
        return Qt::NoItemFlags;
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return node->kind() == PLSidebarNode::Kind::Page ? common | Qt::ItemIsEditable : common;
}

QString PLSidebarTitle(const PLSidebarNode &node)
{
    if (node.kind() == PLSidebarNode::Kind::Tag)
        return static_cast<const PLSidebarTag &>(node).name;
    if (node.kind() != PLSidebarNode::Kind::Section)
        return PLItemOfNode(&node)->title();
    const auto &section = static_cast<const PLSidebarSection &>(node);
    return section.isTagSection ? PLLocalizedString(u"TAGS"_s)
                                : PLProject::displayNameForSection(section.section);
}

QString PLSidebarText(const PLSidebarNode &node)
{
    switch (node.kind()) {
    case PLSidebarNode::Kind::Section:
        return sectionText(static_cast<const PLSidebarSection &>(node));
    case PLSidebarNode::Kind::Tag:
        return PLFormat(u"# %@  (%lu)"_s,
                        {static_cast<const PLSidebarTag &>(node).name, QString::number(node.childCount())});
    case PLSidebarNode::Kind::Page:
    case PLSidebarNode::Kind::Reference:
        break;
    }
    return PLItemOfNode(&node)->title();
}

QString PLSidebarToolTip(const PLSidebarNode &node)
{
    const PLProjectItemPointer item = PLItemOfNode(&node);
    if (node.kind() == PLSidebarNode::Kind::Reference)
        return PLProject::displayNameForSection(item->section());
    if (node.kind() != PLSidebarNode::Kind::Page || item->number() <= 0)
        return {};
    return PLFormat(PLLocalizedString(u"Chapitre %ld"_s), {QString::number(item->number())});
}
