// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarPlace.h"

#include "notebook_window/PLSidebarTree.h"

using Kind = PLSidebarNode::Kind;

PLSidebarPlace::PLSidebarPlace(const PLSidebarNode *row)
{
    if (!row)
        return;
    m_kind = row->kind();
    m_item = PLItemOfNode(row);
    if (row->kind() == Kind::Section) {
        const auto &section = static_cast<const PLSidebarSection &>(*row);
        m_section = section.isTagSection ? PLSection::None : section.section;
    }
    if (row->kind() == Kind::Tag)
        m_tagName = static_cast<const PLSidebarTag &>(*row).name;
    if (row->kind() == Kind::Reference)
        m_tagName = static_cast<const PLTagReference &>(*row).parentTagName;
}

const PLSidebarNode *PLSidebarPlace::rowIn(const PLSidebarTree &tree) const
{
    if (!m_kind)
        return nullptr;
    if (*m_kind == Kind::Section)
        return m_section == PLSection::None ? tree.tagSection() : tree.section(m_section);
    if (*m_kind == Kind::Tag) {
        const PLSidebarNode *tag = tree.sidebarTagNamed(m_tagName);
        return tag ? tag : tree.tagSection();
    }
    if (*m_kind == Kind::Reference) {
        if (const PLSidebarNode *reference = rowUnderTag(tree))
            return reference;
    }
    return tree.sectionItemForURL(m_item->fileURL());
}

const PLSidebarNode *PLSidebarPlace::rowUnderTag(const PLSidebarTree &tree) const
{
    const PLSidebarTag *tag = tree.sidebarTagNamed(m_tagName);
    for (size_t index = 0; tag && index < tag->children().size(); ++index) {
        const PLSidebarNode *reference = tag->children()[index];
        if (PLItemOfNode(reference)->isSameFileAsItem(m_item.get()))
            return reference;
    }
    return nullptr;
}
