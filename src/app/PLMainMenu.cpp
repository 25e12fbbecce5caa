// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLMainMenu.h"

#include "app/PLWindowList.h"
#include "editor/PLFindController.h"
#include "i18n/PLLocalization.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

/// A line of the menu bar. A line with a title and neither command nor level opens a menu.
struct MenuRow
{
    enum class Kind { Menu, Submenu, Item, Separator, EndSubmenu, WindowList };

    Kind kind;
    const char16_t *title = u"";
    PLCommand command = PLCommand::None;
    int keys = 0; ///< a Qt key combination, 0 for none
    int tag = 0;
    int secondKeys = 0; ///< a second habit of some desktops
};

using enum PLCommand;
using Row = MenuRow::Kind;

constexpr int command(Qt::Key key)
{
    return QKeyCombination(Qt::ControlModifier, key).toCombined();
}

constexpr int shiftCommand(Qt::Key key)
{
    return QKeyCombination(Qt::ControlModifier | Qt::ShiftModifier, key).toCombined();
}

constexpr int optionCommand(Qt::Key key)
{
    return QKeyCombination(Qt::ControlModifier | Qt::AltModifier, key).toCombined();
}

constexpr MenuRow separator{Row::Separator};

constexpr MenuRow rows[] = {
    {Row::Menu, u"Aquilane"},
    {Row::Item, u"À propos d'Aquilane", ShowAbout},
    separator,
    {Row::Item, u"Préférences…", ShowPreferences, command(Qt::Key_Comma)},
    {Row::Item, u"Bibliothèque des carnets", ShowLibrary, shiftCommand(Qt::Key_L)},
    separator,
    {Row::Submenu, u"Services"},
    {Row::EndSubmenu},
    separator,
    {Row::Item, u"Masquer Aquilane", Hide, command(Qt::Key_H)},
    {Row::Item, u"Masquer les autres", HideOtherApplications, optionCommand(Qt::Key_H)},
    {Row::Item, u"Tout afficher", UnhideAllApplications},
    separator,
    {Row::Item, u"Quitter Aquilane", Terminate, command(Qt::Key_Q)},

    {Row::Menu, u"Fichier"},
    {Row::Item, u"Nouveau carnet…", NewProject, shiftCommand(Qt::Key_N)},
    {Row::Item, u"Ouvrir un carnet…", OpenProject, command(Qt::Key_O)},
    separator,
    {Row::Item, u"Nouveau chapitre", NewChapter, command(Qt::Key_N)},
    {Row::Item, u"Nouveau personnage", NewCharacter},
    {Row::Item, u"Nouveau lieu", NewPlace},
    {Row::Item, u"Nouvelle fiche", NewSheet},
    {Row::Item, u"Nouvelle note de recherche", NewNote},
    separator,
    {Row::Item, u"Fermer", PerformClose, command(Qt::Key_W)},
    {Row::Item, u"Enregistrer", SaveDocument, command(Qt::Key_S)},

    {Row::Menu, u"Édition"},
    {Row::Item, u"Annuler", Undo, command(Qt::Key_Z)},
    {Row::Item, u"Rétablir", Redo, shiftCommand(Qt::Key_Z), 0, command(Qt::Key_Y)},
    separator,
    {Row::Item, u"Couper", Cut, command(Qt::Key_X)},
    {Row::Item, u"Copier", Copy, command(Qt::Key_C)},
    {Row::Item, u"Coller", Paste, command(Qt::Key_V)},
    {Row::Item, u"Tout sélectionner", SelectAll, command(Qt::Key_A)},
    separator,
    {Row::Submenu, u"Rechercher"},
    {Row::Item, u"Rechercher…", PerformFindPanelAction, command(Qt::Key_F), 1},
    {Row::Item, u"Rechercher et remplacer…", PerformFindPanelAction, optionCommand(Qt::Key_F), 12},
    {Row::Item, u"Suivant", PerformFindPanelAction, command(Qt::Key_G), 2},
    {Row::Item, u"Précédent", PerformFindPanelAction, shiftCommand(Qt::Key_G), 3},
    {Row::Item, u"Rechercher la sélection", PerformFindPanelAction, command(Qt::Key_E), 7},
    {Row::EndSubmenu},
    {Row::Submenu, u"Orthographe et grammaire"},
    {Row::Item, u"Afficher l'orthographe et la grammaire", ShowGuessPanel, command(Qt::Key_Colon)},
    {Row::Item, u"Vérifier le document maintenant", CheckSpelling, command(Qt::Key_Semicolon)},
    {Row::Item, u"Vérifier l'orthographe lors de la frappe", ToggleContinuousSpellChecking},
    {Row::EndSubmenu},

    {Row::Menu, u"Format"},
    {Row::Item, u"Gras", FormatBold, command(Qt::Key_B)},
    {Row::Item, u"Italique", FormatItalic, command(Qt::Key_I)},
    {Row::Item, u"Barré", FormatStrikethrough},
    separator,
    // The second keys are those of the digits on a French keyboard, where the digits need shift.
    {Row::Item, u"Titre 1", FormatHeading, command(Qt::Key_1), 1, command(Qt::Key_Ampersand)},
    {Row::Item, u"Titre 2", FormatHeading, command(Qt::Key_2), 2, command(Qt::Key_Eacute)},
    {Row::Item, u"Titre 3", FormatHeading, command(Qt::Key_3), 3, command(Qt::Key_QuoteDbl)},
    separator,
    {Row::Item, u"Citation", FormatQuote, command(Qt::Key_Apostrophe)},
    {Row::Item, u"Liste à puces", FormatBulletList},
    {Row::Item, u"Liste numérotée", FormatNumberedList},
    {Row::Item, u"Séparateur de scène", FormatSeparator},
    {Row::Item, u"Lien", FormatLink, command(Qt::Key_K)},
    separator,
    {Row::Item, u"Afficher l'aperçu", TogglePreview, optionCommand(Qt::Key_P)},

    {Row::Menu, u"Carnet"},
    {Row::Item, u"Renommer", RenameSelectedItem},
    {Row::Item, u"Afficher dans le Finder", RevealInFinder, shiftCommand(Qt::Key_R)},
    separator,
    {Row::Item, u"Mettre à la corbeille", TrashSelectedItem},

    {Row::Menu, u"Fenêtre"},
    {Row::Item, u"Placer dans le Dock", PerformMiniaturize, command(Qt::Key_M)},
    {Row::Item, u"Réduire/agrandir", PerformZoom},
    {Row::Item, u"Plein écran", ToggleFullScreen,
     QKeyCombination(Qt::ControlModifier | Qt::MetaModifier, Qt::Key_F).toCombined(), 0, Qt::Key_F11},
    separator,
    {Row::Item, u"Tout ramener au premier plan", ArrangeInFront},
    {Row::WindowList},
};

/// The string table has "Annuler" for the buttons of alerts, where it is "Cancel".
QString titleOf(const MenuRow &row)
{
    if (row.command == Undo && PLLocalization::isEnglish())
        return u"Undo"_s;
    return PLLocalizedString(QString::fromUtf16(row.title));
}

/// Items show how their command stands while their menu is open. At any other time they are enabled, so that
/// a shortcut is never refused on old news; whoever handles the command has the last word.
void updateItems(const QMenu *menu)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (!action->data().isValid())
            continue;
        const QPoint commandAndTag = action->data().toPoint();
        const PLCommandState state = PLCommandChain::state(PLCommand(commandAndTag.x()), commandAndTag.y());
        action->setEnabled(state.enabled);
        action->setCheckable(state.checked);
        action->setChecked(state.checked);
    }
}

void enableItems(const QMenu *menu)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->data().isValid())
            action->setEnabled(true);
    }
}

void keepItemsUpToDate(QMenu *menu)
{
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] { updateItems(menu); });
    QObject::connect(
        menu, &QMenu::aboutToHide, menu, [menu] { enableItems(menu); }, Qt::QueuedConnection);
}

void addRow(QMenu *menu, const MenuRow &row)
{
    if (row.kind == Row::Separator) {
        menu->addSeparator();
        return;
    }
    QAction *action = PLAddItem(menu, titleOf(row), row.command, row.tag, QKeySequence(row.keys));
    if (row.secondKeys != 0)
        action->setShortcuts({QKeySequence(row.keys), QKeySequence(row.secondKeys)});
}

/// The key that opens the menu bar on most desktops; the toolkit itself knows only a tap of the Alt key.
void openByKey(QMenuBar *bar)
{
    auto *shortcut = new QShortcut(Qt::Key_F10, bar->window());
    QObject::connect(shortcut, &QShortcut::activated, bar,
                     [bar] { bar->setActiveAction(bar->actions().constFirst()); });
}

/// Whether holding its key down means doing it again and again.
bool isRepeated(PLCommand command, int tag)
{
    const bool isSearch = command == PLCommand::PerformFindPanelAction &&
                          (tag == PLFindController::FindNext || tag == PLFindController::FindPrevious);
    return isSearch || command == PLCommand::Undo || command == PLCommand::Redo ||
           command == PLCommand::Paste;
}

} // namespace

void PLInstallMainMenu(QMainWindow &window)
{
    QMenuBar *bar = window.menuBar();
    QMenu *menu = nullptr;
    QMenu *parentMenu = nullptr;
    openByKey(bar);
    for (const MenuRow &row : rows) {
        switch (row.kind) {
        case Row::Menu:
            menu = bar->addMenu(titleOf(row));
            keepItemsUpToDate(menu);
            break;
        case Row::Submenu:
            parentMenu = std::exchange(menu, PLAddSubmenu(menu, titleOf(row)));
            break;
        case Row::EndSubmenu:
            menu->menuAction()->setEnabled(!menu->isEmpty());
            menu = parentMenu;
            break;
        case Row::WindowList:
            PLAddWindowList(menu);
            break;
        case Row::Item:
        case Row::Separator:
            addRow(menu, row);
            break;
        }
    }
}

QMenu *PLAddSubmenu(QMenu *menu, const QString &title)
{
    QMenu *submenu = menu->addMenu(title);
    keepItemsUpToDate(submenu);
    return submenu;
}

// NOLINTNEXTLINE(readability-function-size): five arguments, as the operation has
QAction *PLAddItem(QMenu *menu, const QString &title, PLCommand command, int tag, const QKeySequence &keys)
{
    QAction *action = menu->addAction(title);
    action->setData(QPoint(int(command), tag));
    action->setMenuRole(QAction::NoRole);
    action->setAutoRepeat(isRepeated(command, tag));
    if (!keys.isEmpty())
        action->setShortcut(keys);
    QObject::connect(action, &QAction::triggered, action,
                     [command, tag] { PLCommandChain::perform(command, tag); });
    return action;
}
