// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarTree.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLProject.h"

#include <deque>

/// All rows of a tree. They are made and given back thousands at a time, so they stand side by side.
struct PLSidebarTree::Rows
{
    class Root final : public PLSidebarNode
    {
    public:
        Root() : PLSidebarNode(Kind::Section) {}
    };

    Root root;
    std::deque<PLSidebarSection> sections;
    std::deque<PLSidebarPage> pages;
    std::deque<PLSidebarTag> tags;
    std::deque<PLTagReference> references;
};

PLSidebarTree::PLSidebarTree() : m_rows(std::make_unique<Rows>()) {}

PLSidebarTree::PLSidebarTree(const PLProject &project) : PLSidebarTree()
{
    std::vector<std::vector<PLTaggedItem>> sections;
    for (const PLSection section : PLAllSections) {
        PLSidebarSection &node = m_rows->sections.emplace_back(section);
        m_rows->root.append(node);
        sections.push_back(project.taggedItemsInSection(section));
        for (const PLTaggedItem &page : sections.back())
            node.append(m_rows->pages.emplace_back(page.item));
    }
    buildTagSectionFromSections(sections);
}

PLSidebarTree::~PLSidebarTree() = default;

const PLSidebarNode *PLSidebarTree::root() const
{
    return &m_rows->root;
}

PLSidebarSection *PLSidebarTree::section(PLSection section) const
{
    const auto index = size_t(section);
    if (index >= std::size(PLAllSections) || isEmpty())
        return nullptr;
    return static_cast<PLSidebarSection *>(root()->children()[index]);
}

PLSidebarSection *PLSidebarTree::tagSection() const
{
    if (isEmpty())
        return nullptr;
    auto *last = static_cast<PLSidebarSection *>(root()->children().back());
    return last->isTagSection ? last : nullptr;
}

PLSidebarTag *PLSidebarTree::sidebarTagNamed(const QString &name) const
{
    if (!tagSection())
        return nullptr;
    for (PLSidebarNode *node : tagSection()->children()) {
        auto *tag = static_cast<PLSidebarTag *>(node);
        if (tag->name.compare(name, Qt::CaseInsensitive) == 0)
            return tag;
    }
    return nullptr;
}

PLSidebarPage *PLSidebarTree::sectionItemForURL(const QUrl &fileURL) const
{
    if (fileURL.isEmpty())
        return nullptr;
    const QString path = PLStandardizedPath(fileURL);
    for (const PLSection number : PLAllSections) {
        const PLSidebarSection *sectionNode = section(number);
        for (size_t index = 0; sectionNode && index < sectionNode->children().size(); ++index) {
            auto *page = static_cast<PLSidebarPage *>(sectionNode->children()[index]);
            if (page->item->hasPath(path))
                return page;
        }
    }
    return nullptr;
}

void PLSidebarTree::buildTagSectionFromSections(const std::vector<std::vector<PLTaggedItem>> &sections)
{
    PLSidebarSection &tagSection = m_rows->sections.emplace_back(PLSection::Book);
    tagSection.isTagSection = true;
    m_rows->root.append(tagSection);
    QHash<QString, PLSidebarTag *> tagsByKey;
    for (const std::vector<PLTaggedItem> &pages : sections) {
        for (const PLTaggedItem &page : pages)
            addReferences(page, tagSection, tagsByKey);
    }
    const PLTitleComparer comparer(PLLocalization::localeIdentifier());
    tagSection.sortChildren([&comparer](const PLSidebarNode &tag) {
        return comparer.sortKey(static_cast<const PLSidebarTag &>(tag).name);
    });
    for (const PLSidebarNode *tag : tagSection.children())
        m_allTags.append(static_cast<const PLSidebarTag *>(tag)->name);
}

/// Puts the page under each of its tags; a tag is made when it is first met.
void PLSidebarTree::addReferences(const PLTaggedItem &page, PLSidebarSection &tagSection,
                                  QHash<QString, PLSidebarTag *> &tagsByKey)
{
    for (const QString &tag : page.tags) {
        PLSidebarTag *&node = tagsByKey[tag.toLower()];
        if (!node) {
            node = &m_rows->tags.emplace_back(tag);
            tagSection.append(*node);
        }
        node->append(m_rows->references.emplace_back(node->name, page.item));
    }
}

PLProjectItemPointer PLItemOfNode(const PLSidebarNode *node)
{
    if (node && node->kind() == PLSidebarNode::Kind::Page)
        return static_cast<const PLSidebarPage *>(node)->item;
    if (node && node->kind() == PLSidebarNode::Kind::Reference)
        return static_cast<const PLTagReference *>(node)->referencedItem;
    return nullptr;
}
