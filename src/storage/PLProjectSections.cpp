// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What PLProject says of each section: names and templates.

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLFrontMatter.h"
#include "storage/PLProject.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct SectionTexts
{
    const char16_t *folderName; ///< the same in every language
    const char16_t *displayName;
    const char16_t *addActionTitle;
    const char16_t *defaultTitle;
    const char16_t *type; ///< in the header of a new page; none for no header
    const char16_t *body; ///< of a new page; in the string table where the languages differ
};

// clang-format off
constexpr SectionTexts sectionTexts[] = {
    {u"Livre", u"Le livre", u"Nouveau chapitre", u"Chapitre", nullptr,
     u"# %@\n\n"},
    {u"Personnages", u"Personnages", u"Nouveau personnage", u"Nouveau personnage", u"personnage",
     u"# %@\n\n## En bref\n\n\n## Apparence\n\n\n## Caractère\n\n\n## Histoire\n\n\n## Relations\n\n"},
    {u"Lieux", u"Lieux", u"Nouveau lieu", u"Nouveau lieu", u"lieu",
     u"# %@\n\n## En bref\n\n\n## Description\n\n\n## Ambiance\n\n\n## Histoire\n\n"},
    {u"Fiches", u"Fiches", u"Nouvelle fiche", u"Nouvelle fiche", u"fiche",
     u"# %@\n\n## Description\n\n"},
    {u"Notes", u"Notes de recherche", u"Nouvelle note de recherche", u"Nouvelle note", u"note",
     u"# %@\n\n"},
};
// clang-format on

/// For a section that there is not.
constexpr SectionTexts noSectionTexts = {u"Notes", u"", u"Nouvel élément", u"Sans titre", nullptr, u""};

const SectionTexts &textsFor(PLSection section)
{
    const auto index = static_cast<unsigned>(section);
    return index < std::size(sectionTexts) ? sectionTexts[index] : noSectionTexts;
}

QString localized(const char16_t *french)
{
    return PLLocalizedString(QString::fromUtf16(french));
}

} // namespace

QString PLProject::folderNameForSection(PLSection section)
{
    return QString::fromUtf16(textsFor(section).folderName);
}

QString PLProject::displayNameForSection(PLSection section)
{
    return localized(textsFor(section).displayName);
}

QString PLProject::addActionTitleForSection(PLSection section)
{
    return localized(textsFor(section).addActionTitle);
}

QString PLProject::defaultTitleForSection(PLSection section)
{
    return localized(textsFor(section).defaultTitle);
}

QString PLProject::templateForSection(PLSection section, const QString &title)
{
    const SectionTexts &texts = textsFor(section);
    const QString body = PLFormat(localized(texts.body), {title});
    if (!texts.type)
        return body;
    const PLFrontMatter::Fields fields{{u"type"_s, QString::fromUtf16(texts.type)}};
    return PLFrontMatter::stringWithKeys({u"type"_s, u"tags"_s}, fields, body);
}
