// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLPlaceholderText.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "notebook_window/PLSidebarNodes.h"
#include "storage/PLProject.h"

using namespace Qt::StringLiterals;

namespace {

QString tagText(const PLSidebarTag &tag)
{
    const int count = tag.childCount();
    return PLFormat(
        PLLocalizedString(
            u"Le tag « %@ » est porté par %lu élément%@.\nChoisissez-en un sous le tag, dans la liste."_s),
        {tag.name, QString::number(count), PLLocalization::isPlural(count) ? u"s"_s : QString()});
}

QString tagSectionText(bool hasTags)
{
    if (hasTags)
        return PLLocalizedString(u"Cliquez sur un tag pour voir les éléments qui le portent."_s);
    return PLLocalizedString(
        u"Aucun tag pour l'instant.\nAjoutez-en dans le champ « Tags », au-dessus du texte d'une fiche ou d'un chapitre."_s);
}

QString pageSectionText(const PLSidebarSection &section)
{
    const QString noun =
        PLLocalizedString(section.section == PLSection::Book ? u"un chapitre"_s : u"un élément"_s);
    if (section.childCount() > 0)
        return PLFormat(
            PLLocalizedString(
                u"Choisissez %@ dans la liste,\nou ajoutez-en un avec le + à côté de la catégorie."_s),
            {noun});
    return PLFormat(PLLocalizedString(u"%@ est encore vide.\nAjoutez %@ avec le + à côté de la catégorie."_s),
                    {PLProject::displayNameForSection(section.section), noun});
}

} // namespace

QString PLPlaceholderText(const PLSidebarNode *node)
{
    if (node && node->kind() == PLSidebarNode::Kind::Tag)
        return tagText(static_cast<const PLSidebarTag &>(*node));
    if (node && node->kind() == PLSidebarNode::Kind::Section) {
        const auto &section = static_cast<const PLSidebarSection &>(*node);
        return section.isTagSection ? tagSectionText(section.childCount() > 0) : pageSectionText(section);
    }
    return PLLocalizedString(
        u"Choisissez une page dans la liste,\nou ajoutez-en une avec le + d'une catégorie."_s);
}
