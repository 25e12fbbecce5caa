// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLProjectItem.h"
#include "storage/PLSection.h"

#include <QString>

#include <algorithm>
#include <utility>
#include <vector>

/// A row of the sidebar: a section, a page in it, a tag, or a page under a tag.
/// Every rebuild makes all rows anew: what must outlive one is kept by tag name or by file.
class PLSidebarNode
{
public:
    enum class Kind { Section, Page, Tag, Reference };

    PLSidebarNode(const PLSidebarNode &) = delete;
    PLSidebarNode &operator=(const PLSidebarNode &) = delete;

    Kind kind() const { return m_kind; }
    PLSidebarNode *parent() const { return m_parent; }
    /// The place among the parent's children.
    int row() const { return m_row; }
    /// The rows under this one. The tree owns them all.
    const std::vector<PLSidebarNode *> &children() const { return m_children; }
    int childCount() const { return int(m_children.size()); }

    void append(PLSidebarNode &child)
    {
        child.m_parent = this;
        child.m_row = childCount();
        m_children.push_back(&child);
    }

    /// Puts the children in the order of the keys that `keyOf` makes of them.
    template <typename KeyOf>
    void sortChildren(KeyOf keyOf)
    {
        using Key = decltype(keyOf(*m_children.front()));
        std::vector<std::pair<Key, PLSidebarNode *>> keyed;
        keyed.reserve(m_children.size());
        for (PLSidebarNode *child : m_children)
            keyed.emplace_back(keyOf(*child), child);
        std::stable_sort(keyed.begin(), keyed.end(),
                         [](const auto &left, const auto &right) { return left.first < right.first; });
        m_children.clear();
        for (const auto &[key, child] : keyed)
            append(*child);
    }

protected:
    explicit PLSidebarNode(Kind kind) : m_kind(kind) {}
    ~PLSidebarNode() = default;

private:
    Kind m_kind;
    int m_row = 0;
    PLSidebarNode *m_parent = nullptr;
    std::vector<PLSidebarNode *> m_children;
};

/// One of the five sections with its pages, or the section of tags.
class PLSidebarSection final : public PLSidebarNode
{
public:
    explicit PLSidebarSection(PLSection number) : PLSidebarNode(Kind::Section), section(number) {}

    PLSection section;
    bool isTagSection = false;
};

/// A page in its section.
class PLSidebarPage final : public PLSidebarNode
{
public:
    explicit PLSidebarPage(PLProjectItemPointer page) : PLSidebarNode(Kind::Page), item(std::move(page)) {}

    PLProjectItemPointer item;
};

/// A tag, spelled as in the first page that carries it.
class PLSidebarTag final : public PLSidebarNode
{
public:
    explicit PLSidebarTag(const QString &tag) : PLSidebarNode(Kind::Tag), name(tag) {}

    QString name;
};

/// A page under a tag.
class PLTagReference final : public PLSidebarNode
{
public:
    PLTagReference(const QString &tagName, PLProjectItemPointer page)
        : PLSidebarNode(Kind::Reference), parentTagName(tagName), referencedItem(std::move(page))
    {
    }

    QString parentTagName;
    PLProjectItemPointer referencedItem;
};
