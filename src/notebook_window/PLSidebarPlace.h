// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notebook_window/PLSidebarNodes.h"

#include <optional>

class PLSidebarTree;

/// What a row of the sidebar stands for. Unlike the row it outlives the tree, and finds the row that stands
/// for the same in another one.
class PLSidebarPlace final
{
public:
    /// Of no row for null.
    explicit PLSidebarPlace(const PLSidebarNode *row);

    /// The row in this tree; null if there is none. A page that has lost the tag it was under is found in its
    /// section; what was a tag is the section of tags.
    const PLSidebarNode *rowIn(const PLSidebarTree &tree) const;

private:
    const PLSidebarNode *rowUnderTag(const PLSidebarTree &tree) const;

    std::optional<PLSidebarNode::Kind> m_kind; ///< none for no row
    PLSection m_section = PLSection::None;     ///< None for the section of tags
    QString m_tagName;
    PLProjectItemPointer m_item;
};
