// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "i18n/PLStringTable.h"

#include <QHash>

namespace {

// One text a line, however long: a text broken over lines cannot be searched for.
// clang-format off
constexpr PLStringPair pairs[] = {
    // Application menu
    {u"À propos d'Aquilane", u"About Aquilane"},
    {u"Préférences…", u"Preferences…"},
    {u"Bibliothèque des carnets", u"Notebook Library"},
    {u"Services", u"Services"},
    {u"Masquer Aquilane", u"Hide Aquilane"},
    {u"Masquer les autres", u"Hide Others"},
    {u"Tout afficher", u"Show All"},
    {u"Quitter Aquilane", u"Quit Aquilane"},
    {u"Un carnet d'écriture pour les Mac d'hier.", u"A writing notebook for yesterday's Macs."},
    // File
    {u"Fichier", u"File"},
    {u"Nouveau carnet…", u"New Notebook…"},
    {u"Ouvrir un carnet…", u"Open Notebook…"},
    {u"Nouveau chapitre", u"New Chapter"},
    {u"Nouveau personnage", u"New Character"},
    {u"Nouveau lieu", u"New Place"},
    {u"Nouvelle fiche", u"New Sheet"},
    {u"Nouvelle note de recherche", u"New Research Note"},
    {u"Nouvelle note", u"New Note"},
    {u"Nouvel élément", u"New Item"},
    {u"Fermer", u"Close"},
    {u"Enregistrer", u"Save"},
    // Edit
    {u"Édition", u"Edit"},
    {u"Annuler", u"Cancel"},
    {u"Rétablir", u"Redo"},
    {u"Couper", u"Cut"},
    {u"Copier", u"Copy"},
    {u"Coller", u"Paste"},
    {u"Tout sélectionner", u"Select All"},
    {u"Rechercher", u"Find"},
    {u"Rechercher…", u"Find…"},
    {u"Rechercher et remplacer…", u"Find and Replace…"},
    {u"Suivant", u"Find Next"},
    {u"Précédent", u"Find Previous"},
    {u"Rechercher la sélection", u"Use Selection for Find"},
    {u"Orthographe", u"Spelling"},
    {u"Orthographe et grammaire", u"Spelling and Grammar"},
    {u"Afficher l'orthographe et la grammaire", u"Show Spelling and Grammar"},
    {u"Vérifier le document maintenant", u"Check Document Now"},
    {u"Vérifier l'orthographe lors de la frappe", u"Check Spelling While Typing"},
    // Format
    {u"Format", u"Format"},
    {u"Gras", u"Bold"},
    {u"Italique", u"Italic"},
    {u"Barré", u"Strikethrough"},
    {u"Titre 1", u"Heading 1"},
    {u"Titre 2", u"Heading 2"},
    {u"Titre 3", u"Heading 3"},
    {u"Citation", u"Quote"},
    {u"Liste à puces", u"Bulleted List"},
    {u"Liste numérotée", u"Numbered List"},
    {u"Séparateur de scène", u"Scene Break"},
    {u"Lien", u"Link"},
    {u"Afficher l'aperçu", u"Show Preview"},
    // Editor
    {u"T%ld", u"H%ld"},
    {u"Titre de niveau %ld (⌘%ld)", u"Heading level %ld (⌘%ld)"},
    {u"G", u"B"},
    {u"Gras (⌘B)", u"Bold (⌘B)"},
    {u"Italique (⌘I)", u"Italic (⌘I)"},
    {u"Citation (⌘')", u"Quote (⌘')"},
    {u"• Liste", u"• List"},
    {u"1. Liste", u"1. List"},
    {u"Lien (⌘K)", u"Link (⌘K)"},
    {u"Aperçu", u"Preview"},
    {u"Afficher ou masquer l'aperçu (⌥⌘P)", u"Show or hide the preview (⌥⌘P)"},
    {u"Tags :", u"Tags:"},
    {u"Ajoutez des tags (personnages, lieux, thèmes…), séparés par des virgules",
     u"Add tags (characters, places, themes…), separated by commas"},
    {u"mot", u"word"},
    {u"mots", u"words"},
    {u"texte en gras", u"bold text"},
    {u"texte en italique", u"italic text"},
    {u"texte barré", u"struck-out text"},
    {u"texte du lien", u"link text"},
    {u"L'aperçu de votre texte apparaîtra ici.", u"A preview of your text will appear here."},
    {u"Carnet", u"Notebook"},
    {u"Renommer", u"Rename"},
    {u"Afficher dans le Finder", u"Show in Finder"},
    {u"Mettre à la corbeille", u"Move to Trash"},
    // Window
    {u"Fenêtre", u"Window"},
    {u"Placer dans le Dock", u"Minimize"},
    {u"Réduire/agrandir", u"Zoom"},
    {u"Plein écran", u"Enter Full Screen"},
    {u"Tout ramener au premier plan", u"Bring All to Front"},
    // Preferences
    {u"Préférences", u"Preferences"},
    {u"Langue de l'interface :", u"Interface language:"},
    {u"Les dossiers d'un carnet (Livre, Personnages, Lieux…) gardent leur nom quelle que soit la langue, pour que tous les carnets restent compatibles.",
     u"A notebook's folders (Livre, Personnages, Lieux…) keep their names whatever the language, so every notebook stays compatible."},
    {u"Aquilane doit redémarrer pour passer en français.",
     u"Aquilane needs to restart to switch to English."},
    {u"Vos carnets ouverts seront enregistrés puis rouverts.",
     u"Your open notebooks will be saved and reopened."},
    {u"Redémarrer maintenant", u"Restart Now"},
    {u"Plus tard", u"Later"},
    {u"La nouvelle langue sera appliquée au prochain lancement d'Aquilane.",
     u"The new language will be used the next time Aquilane starts."},
    // Sections and templates
    {u"Le livre", u"Book"},
    {u"Personnages", u"Characters"},
    {u"Lieux", u"Places"},
    {u"Fiches", u"Sheets"},
    {u"Notes de recherche", u"Research Notes"},
    {u"Chapitre %ld", u"Chapter %ld"},
    {u"Chapitre", u"Chapter"},
    {u"Sans titre", u"Untitled"},
    {u"# %@\n\n## En bref\n\n\n## Apparence\n\n\n## Caractère\n\n\n## Histoire\n\n\n## Relations\n\n",
     u"# %@\n\n## At a Glance\n\n\n## Appearance\n\n\n## Personality\n\n\n## Backstory\n\n\n## Relationships\n\n"},
    {u"# %@\n\n## En bref\n\n\n## Description\n\n\n## Ambiance\n\n\n## Histoire\n\n",
     u"# %@\n\n## At a Glance\n\n\n## Description\n\n\n## Atmosphere\n\n\n## History\n\n"},
    // Library
    {u"Bibliothèque", u"Library"},
    {u"Ma bibliothèque", u"My Library"},
    {u"De face", u"Covers"},
    {u"Sur la tranche", u"Spines"},
    {u"Votre bibliothèque est vide.\nCréez un premier carnet pour commencer à écrire.",
     u"Your library is empty.\nCreate a first notebook to start writing."},
    {u"Ouvrir un autre…", u"Open Another…"},
    {u"Ouvrir", u"Open"},
    {u"Choisir une image de couverture…", u"Choose Cover Image…"},
    {u"Retirer l'image de couverture", u"Remove Cover Image"},
    {u"Retirer de la bibliothèque", u"Remove from Library"},
    {u"Image de couverture", u"Cover Image"},
    {u"Choisir", u"Choose"},
    {u"Choisissez une image pour la couverture de « %@ ». Elle sera copiée dans le dossier du carnet.",
     u"Choose an image for the cover of “%@”. It will be copied into the notebook's folder."},
    {u"%@ (introuvable)", u"%@ (missing)"},
    // Sidebar
    {u"TAGS", u"TAGS"},
    {u"Le tag « %@ » est porté par %lu élément%@.\nChoisissez-en un sous le tag, dans la liste.",
     u"The tag “%@” is on %lu item%@.\nPick one under the tag, in the list."},
    {u"Cliquez sur un tag pour voir les éléments qui le portent.",
     u"Click a tag to see the items that carry it."},
    {u"Aucun tag pour l'instant.\nAjoutez-en dans le champ « Tags », au-dessus du texte d'une fiche ou d'un chapitre.",
     u"No tags yet.\nAdd some in the “Tags” field, above the text of a sheet or a chapter."},
    {u"un chapitre", u"a chapter"},
    {u"un élément", u"an item"},
    {u"Choisissez %@ dans la liste,\nou ajoutez-en un avec le + à côté de la catégorie.",
     u"Choose %@ in the list,\nor add one with the + next to the category."},
    {u"%@ est encore vide.\nAjoutez %@ avec le + à côté de la catégorie.",
     u"%@ is still empty.\nAdd %@ with the + next to the category."},
    {u"Choisissez une page dans la liste,\nou ajoutez-en une avec le + d'une catégorie.",
     u"Choose a page in the list,\nor add one with the + next to a category."},
    // Alerts
    {u"Impossible d'enregistrer « %@ »", u"Couldn't save “%@”"},
    {u"%@\n\nSi le carnet est sur une clé USB, vérifiez qu'elle est bien branchée. Votre texte reste affiché tant que la fenêtre est ouverte.",
     u"%@\n\nIf the notebook is on a USB stick, check that it is plugged in. Your text stays on screen as long as the window is open."},
    {u"Mettre « %@ » à la corbeille ?", u"Move “%@” to the Trash?"},
    {u"Le fichier sera déplacé dans la corbeille. Vous pourrez l'y récupérer tant qu'elle n'a pas été vidée.",
     u"The file will be moved to the Trash. You can get it back until the Trash is emptied."},
    {u"Fermer sans enregistrer ?", u"Close without saving?"},
    {u"Les dernières modifications de cette page n'ont pas pu être enregistrées.",
     u"The latest changes to this page couldn't be saved."},
    {u"Ne pas fermer", u"Don't Close"},
    {u"Fermer quand même", u"Close Anyway"},
    {u"Quitter sans enregistrer ?", u"Quit without saving?"},
    {u"Une page du carnet « %@ » n'a pas pu être enregistrée.",
     u"A page of the notebook “%@” couldn't be saved."},
    {u"Ne pas quitter", u"Don't Quit"},
    {u"Quitter quand même", u"Quit Anyway"},
    {u"Nouveau carnet", u"New Notebook"},
    {u"Créer", u"Create"},
    {u"Nom du carnet :", u"Notebook name:"},
    {u"Mon roman", u"My Novel"},
    {u"Aquilane va créer un dossier à ce nom. Tout votre projet y sera rangé en fichiers Markdown.",
     u"Aquilane will create a folder with this name. Your whole project will be stored in it as Markdown files."},
    {u"Ouvrir un carnet", u"Open a Notebook"},
    {u"Choisissez le dossier d'un carnet, ou son fichier projet.md.",
     u"Choose a notebook's folder, or its projet.md file."},
    {u"Le carnet « %@ » est introuvable", u"The notebook “%@” can't be found"},
    {u"Le dossier %@ n'existe pas ou plus. S'il est sur une clé USB, branchez-la puis réessayez.",
     u"The folder %@ doesn't exist, or no longer exists. If it is on a USB stick, plug it in and try again."},
    {u"OK", u"OK"},
    {u"Retirer de la liste", u"Remove from List"},
    {u"« %@ » n'est pas encore un carnet", u"“%@” isn't a notebook yet"},
    {u"Voulez-vous en faire un carnet ? Aquilane y ajoutera un fichier projet.md et les dossiers Livre, Personnages, Lieux, Fiches et Notes. Les fichiers déjà présents ne seront pas modifiés.",
     u"Do you want to turn it into a notebook? Aquilane will add a projet.md file and the folders Livre, Personnages, Lieux, Fiches and Notes. Files already there won't be changed."},
    {u"En faire un carnet", u"Make It a Notebook"},
    // Errors
    {u"Ce fichier n'est pas une image reconnue (JPEG, PNG, GIF, TIFF ou BMP).",
     u"This file isn't a supported image (JPEG, PNG, GIF, TIFF or BMP)."},
    {u"« %@ » est un fichier, pas un dossier.", u"“%@” is a file, not a folder."},
    {u"Le dossier « %@ » n'est pas un carnet Aquilane.", u"The folder “%@” isn't an Aquilane notebook."},
    {u"Impossible de mettre « %@ » à la corbeille.", u"Couldn't move “%@” to the Trash."},
};
// clang-format on

QHash<QString, QString> englishByFrench()
{
    QHash<QString, QString> table;
    table.reserve(std::size(pairs));
    for (const PLStringPair &pair : pairs)
        table.insert(QString::fromUtf16(pair.french), QString::fromUtf16(pair.english));
    return table;
}

} // namespace

std::span<const PLStringPair> PLStringTable()
{
    return pairs;
}

QString PLEnglishString(const QString &french)
{
    static const QHash<QString, QString> table = englishByFrench();
    return table.value(french, french);
}
