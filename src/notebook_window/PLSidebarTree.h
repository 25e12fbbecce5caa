// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notebook_window/PLSidebarNodes.h"

#include <QHash>
#include <QStringList>
#include <QUrl>

#include <memory>

class PLProject;
struct PLTaggedItem;

/// The sidebar's rows as they are on the disk at one moment: the five sections with their pages, then the
/// tags gathered from those pages.
class PLSidebarTree final
{
public:
    /// An empty tree: no section at all.
    PLSidebarTree();
    /// Lists the notebook and reads the tags of every page.
    explicit PLSidebarTree(const PLProject &project);
    ~PLSidebarTree();

    /// The node above the sections; it has no row of its own.
    const PLSidebarNode *root() const;
    bool isEmpty() const { return root()->childCount() == 0; }

    /// The node of one of the five sections, null for another number or in an empty tree.
    PLSidebarSection *section(PLSection section) const;
    PLSidebarSection *tagSection() const;

    /// The names of all tags in the order of display.
    const QStringList &allTags() const { return m_allTags; }

    /// The first tag whose name is this one but for case, null without any.
    PLSidebarTag *sidebarTagNamed(const QString &name) const;
    /// The page in its section whose file is at this place, null without any.
    PLSidebarPage *sectionItemForURL(const QUrl &fileURL) const;

private:
    struct Rows;

    /// Gathers the tags of the pages of each section.
    void buildTagSectionFromSections(const std::vector<std::vector<PLTaggedItem>> &sections);

    void addReferences(const PLTaggedItem &page, PLSidebarSection &tagSection,
                       QHash<QString, PLSidebarTag *> &tagsByKey);

    std::unique_ptr<Rows> m_rows;
    QStringList m_allTags;
};

/// The page a row stands for: a page's own row or one under a tag. Null for the others.
PLProjectItemPointer PLItemOfNode(const PLSidebarNode *node);
