// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarTree.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLProject.h"

#include <QHash>

class PLSidebarTree::Root final : public PLSidebarNode
{
public:
    Root() : PLSidebarNode(Kind::Section) {}
};

namespace {

/// Puts the page under each of its tags; a tag is made when it is first met.
void addReferences(PLSidebarSection &tagSection, QHash<QString, PLSidebarTag *> &tagsByKey,
                   const PLTaggedItem &page)
{
    for (const QString &tag : page.tags) {
        PLSidebarTag *&node = tagsByKey[tag.toLower()];
        if (!node)
            node = tagSection.append(std::make_unique<PLSidebarTag>(tag));
        node->append(std::make_unique<PLTagReference>(node->name, page.item));
    }
}

} // namespace

PLSidebarTree::PLSidebarTree() : m_root(std::make_unique<Root>()) {}

PLSidebarTree::PLSidebarTree(const PLProject &project) : PLSidebarTree()
{
    std::vector<std::vector<PLTaggedItem>> sections;
    for (const PLSection section : PLAllSections) {
        auto *node = m_root->append(std::make_unique<PLSidebarSection>(section));
        sections.push_back(project.taggedItemsInSection(section));
        for (const PLTaggedItem &page : sections.back())
            node->append(std::make_unique<PLSidebarPage>(page.item));
    }
    buildTagSectionFromSections(sections);
}

PLSidebarTree::~PLSidebarTree() = default;

const PLSidebarNode *PLSidebarTree::root() const
{
    return m_root.get();
}

PLSidebarSection *PLSidebarTree::section(PLSection section) const
{
    const auto index = size_t(section);
    if (index >= std::size(PLAllSections) || isEmpty())
        return nullptr;
    return static_cast<PLSidebarSection *>(m_root->children()[index].get());
}

PLSidebarSection *PLSidebarTree::tagSection() const
{
    if (isEmpty())
        return nullptr;
    auto *last = static_cast<PLSidebarSection *>(m_root->children().back().get());
    return last->isTagSection ? last : nullptr;
}

PLSidebarTag *PLSidebarTree::sidebarTagNamed(const QString &name) const
{
    if (!tagSection())
        return nullptr;
    for (const auto &node : tagSection()->children()) {
        auto *tag = static_cast<PLSidebarTag *>(node.get());
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
            auto *page = static_cast<PLSidebarPage *>(sectionNode->children()[index].get());
            if (page->item->path() == path)
                return page;
        }
    }
    return nullptr;
}

void PLSidebarTree::buildTagSectionFromSections(const std::vector<std::vector<PLTaggedItem>> &sections)
{
    auto tagSection = std::make_unique<PLSidebarSection>(PLSection::Book);
    tagSection->isTagSection = true;
    QHash<QString, PLSidebarTag *> tagsByKey;
    for (const std::vector<PLTaggedItem> &pages : sections) {
        for (const PLTaggedItem &page : pages)
            addReferences(*tagSection, tagsByKey, page);
    }
    const PLTitleComparer comparer(PLLocalization::localeIdentifier());
    tagSection->sortChildren([&comparer](const PLSidebarNode &tag) {
        return comparer.sortKey(static_cast<const PLSidebarTag &>(tag).name);
    });
    for (const auto &tag : tagSection->children())
        m_allTags.append(static_cast<const PLSidebarTag *>(tag.get())->name);
    m_root->append(std::move(tagSection));
}

PLProjectItemPointer PLItemOfNode(const PLSidebarNode *node)
{
    if (node && node->kind() == PLSidebarNode::Kind::Page)
        return static_cast<const PLSidebarPage *>(node)->item;
    if (node && node->kind() == PLSidebarNode::Kind::Reference)
        return static_cast<const PLTagReference *>(node)->referencedItem;
    return nullptr;
}
