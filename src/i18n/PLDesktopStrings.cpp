// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "i18n/PLDesktopStrings.h"

#include "i18n/PLLocalization.h"
#include "i18n/PLStringTable.h"

#include <QHash>

#include <cerrno>

namespace {

// clang-format off
constexpr PLStringPair pairs[] = {
    // File errors
    {u"Il n'y a plus de place sur le disque.", u"There is no space left on the disk."},
    {u"Le quota de disque est dépassé.", u"The disk quota is exceeded."},
    {u"Le disque est en lecture seule.", u"The disk is read-only."},
    {u"Vous n'avez pas le droit d'accéder à ce fichier ou à ce dossier.", u"You don't have permission to access this file or folder."},
    {u"Le fichier ou le dossier n'existe pas ou plus.", u"The file or folder doesn't exist, or no longer exists."},
    {u"Un fichier de ce nom existe déjà.", u"A file of this name already exists."},
    {u"Le nom du fichier est trop long.", u"The file name is too long."},
    {u"Le fichier est trop gros.", u"The file is too large."},
    {u"Une erreur de lecture ou d'écriture s'est produite sur le disque.", u"The disk reported a read or write error."},
    {u"Ce n'est pas un fichier ordinaire.", u"This is not an ordinary file."},
    {u"Le lien symbolique tourne en rond.", u"The symbolic link goes round in circles."},
    {u"Un élément du chemin n'est pas un dossier.", u"An element of the path is not a folder."},
    {u"C'est un dossier, pas un fichier.", u"This is a folder, not a file."},
    {u"Le fichier ou le disque est occupé.", u"The file or the disk is busy."},
    {u"Le fichier est sur un autre disque.", u"The file is on another disk."},
    {u"Trop de fichiers sont ouverts.", u"Too many files are open."},
    {u"Le texte de ce fichier ne peut pas être lu : son codage est inconnu.", u"The text of this file can't be read: its encoding is unknown."},
    {u"Le système a répondu par l'erreur %@.", u"The system answered with error %@."},
    // Start
    {u"Aquilane est déjà ouvert, mais ne répond pas.", u"Aquilane is already open, but doesn't answer."},
    {u"Attendez un instant, ou quittez l'autre Aquilane, puis réessayez.", u"Wait a moment, or quit the other Aquilane, then try again."},
    // The about panel
    {u"© 2026 les auteurs d'Aquilane.", u"© 2026 the Aquilane authors."},
    {u"Logiciel libre, sous licence MIT.", u"Free software, under the MIT licence."},
    // The preview
    {u"L'aperçu n'est pas installé (paquet aquilane-preview).", u"The preview isn't installed (package aquilane-preview)."},
    {u"L'aperçu n'est pas affiché : Aquilane a été ouvert par l'administrateur du système.", u"The preview isn't shown: Aquilane was opened by the system's administrator."},
    {u"L'aperçu n'est pas affiché : le système ne permet pas de l'isoler.", u"The preview isn't shown: the system doesn't allow it to be isolated."},
    // Panels
    {u"Choisir le dossier…", u"Choose Folder…"},
    {u"Dans le dossier :", u"In the folder:"},
    // Names of parts of the window, for a screen reader
    {u"Texte de la page", u"Page Text"},
    {u"Pages du carnet", u"Notebook Pages"},
    // The format bar
    {u"Autres commandes", u"More Commands"},
    // Tag field, for a screen reader
    {u"Tags proposés", u"Suggested tags"},
    {u"Supprimer le tag", u"Delete Tag"},
    {u"Modifier le tag", u"Edit Tag"},
    // Finding
    {u"Rechercher :", u"Find:"},
    {u"Remplacer par :", u"Replace with:"},
    {u"Ignorer la casse", u"Ignore Case"},
    {u"Mots entiers", u"Whole Words"},
    {u"Remplacer", u"Replace"},
    {u"Remplacer et rechercher", u"Replace and Find"},
    {u"Tout remplacer", u"Replace All"},
    {u"Introuvable", u"Not found"},
    {u"%@ occurrence", u"%@ match"},
    {u"%@ occurrences", u"%@ matches"},
    {u"%@ sur %@", u"%@ of %@"},
    {u"%@ (retour au début)", u"%@ (back at the start)"},
    {u"%@ (retour à la fin)", u"%@ (back at the end)"},
    {u"%@ occurrence remplacée", u"%@ match replaced"},
    {u"%@ occurrences remplacées", u"%@ matches replaced"},
    // Spelling
    {u"Mot inconnu :", u"Unknown word:"},
    {u"Suggestions :", u"Suggestions:"},
    {u"Aucune suggestion", u"No Suggestions"},
    {u"Corriger", u"Change"},
    {u"Mot suivant", u"Next Word"},
    {u"Ignorer", u"Ignore"},
    {u"Apprendre", u"Learn"},
    {u"Aucun mot inconnu.", u"No unknown words."},
    {u"La vérification a repris au début du texte.", u"The check went on from the start of the text."},
    {u"Le dictionnaire de cette langue n'est pas installé. Installez le paquet « %@ », puis rouvrez Aquilane.", u"The dictionary of this language is not installed. Install the package “%@”, then reopen Aquilane."},
};
// clang-format on

struct ErrorText
{
    int number;
    const char16_t *french;
};

constexpr ErrorText errorTexts[] = {
    {ENOSPC, u"Il n'y a plus de place sur le disque."},
    {EDQUOT, u"Le quota de disque est dépassé."},
    {EROFS, u"Le disque est en lecture seule."},
    {EACCES, u"Vous n'avez pas le droit d'accéder à ce fichier ou à ce dossier."},
    {EPERM, u"Vous n'avez pas le droit d'accéder à ce fichier ou à ce dossier."},
    {ENOENT, u"Le fichier ou le dossier n'existe pas ou plus."},
    {ENODEV, u"Le fichier ou le dossier n'existe pas ou plus."},
    {EEXIST, u"Un fichier de ce nom existe déjà."},
    {ENAMETOOLONG, u"Le nom du fichier est trop long."},
    {EFBIG, u"Le fichier est trop gros."},
    {EIO, u"Une erreur de lecture ou d'écriture s'est produite sur le disque."},
    {EINVAL, u"Ce n'est pas un fichier ordinaire."},
    {ELOOP, u"Le lien symbolique tourne en rond."},
    {ENOTDIR, u"Un élément du chemin n'est pas un dossier."},
    {EISDIR, u"C'est un dossier, pas un fichier."},
    {EBUSY, u"Le fichier ou le disque est occupé."},
    {EXDEV, u"Le fichier est sur un autre disque."},
    {EMFILE, u"Trop de fichiers sont ouverts."},
    {ENFILE, u"Trop de fichiers sont ouverts."},
    {EILSEQ, u"Le texte de ce fichier ne peut pas être lu : son codage est inconnu."},
};

QHash<QString, QString> englishByFrench()
{
    QHash<QString, QString> table;
    for (const PLStringPair &pair : pairs)
        table.insert(QString::fromUtf16(pair.french), QString::fromUtf16(pair.english));
    return table;
}

} // namespace

QString PLDesktopString(const QString &french)
{
    if (!PLLocalization::isEnglish())
        return french;
    static const QHash<QString, QString> table = englishByFrench();
    return table.value(french, french);
}

QString PLFileErrorMessage(int errorNumber)
{
    for (const ErrorText &text : errorTexts) {
        if (text.number == errorNumber)
            return PLDesktopString(QString::fromUtf16(text.french));
    }
    const QString unknown = PLDesktopString(QStringLiteral("Le système a répondu par l'erreur %@."));
    return QString(unknown).replace(QStringLiteral("%@"), QString::number(errorNumber));
}
