// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLMainMenu.h"

#include "i18n/PLLocalization.h"
#include "platform/PLWindow.h"
#include "support/PLTestEnvironment.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Takes every command, and keeps what it was asked to do.
class Recorder final : public PLCommandHandler
{
public:
    Recorder() { PLCommandChain::setApplicationHandler(this); }
    ~Recorder() override { PLCommandChain::setApplicationHandler(nullptr); }

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int) const override
    {
        return command == refused ? std::nullopt : std::optional(state);
    }
    void performCommand(PLCommand command, int tag) override { performed.append({int(command), tag}); }

    PLCommandState state;
    PLCommand refused = PLCommand::None;
    QList<QPoint> performed;
};

QString keysOf(const QAction &action)
{
    QStringList keys;
    const QList<QKeySequence> shortcuts = action.shortcuts();
    for (const QKeySequence &shortcut : shortcuts)
        keys.append(shortcut.toString(QKeySequence::PortableText));
    return keys.join(u" | "_s);
}

/// All items of a menu in order, those of its submenus after their own item, with their level.
void collectItems(const QList<QAction *> &actions, QList<std::pair<int, QAction *>> &items, int level = 0)
{
    for (QAction *action : actions) {
        items.append({level, action});
        if (action->menu())
            collectItems(action->menu()->actions(), items, level + 1);
    }
}

/// A line of the menu bar as it should be; a separator has "---" for its title. Menus have no command.
struct ExpectedRow
{
    int level;
    const char16_t *french;
    const char16_t *english = u"---";
    PLCommand command = PLCommand::None;
    const char16_t *keys = u"";
    int tag = 0;
};

using enum PLCommand;

// clang-format off
constexpr ExpectedRow menuBar[] = {
    {0, u"Aquilane", u"Aquilane"},
    {1, u"À propos d'Aquilane", u"About Aquilane", ShowAbout},
    {1, u"---"},
    {1, u"Préférences…", u"Preferences…", ShowPreferences, u"Ctrl+,"},
    {1, u"Bibliothèque des carnets", u"Notebook Library", ShowLibrary, u"Ctrl+Shift+L"},
    {1, u"---"},
    {1, u"Services", u"Services"},
    {1, u"---"},
    {1, u"Masquer Aquilane", u"Hide Aquilane", Hide, u"Ctrl+H"},
    {1, u"Masquer les autres", u"Hide Others", HideOtherApplications, u"Ctrl+Alt+H"},
    {1, u"Tout afficher", u"Show All", UnhideAllApplications},
    {1, u"---"},
    {1, u"Quitter Aquilane", u"Quit Aquilane", Terminate, u"Ctrl+Q"},
    {0, u"Fichier", u"File"},
    {1, u"Nouveau carnet…", u"New Notebook…", NewProject, u"Ctrl+Shift+N"},
    {1, u"Ouvrir un carnet…", u"Open Notebook…", OpenProject, u"Ctrl+O"},
    {1, u"---"},
    {1, u"Nouveau chapitre", u"New Chapter", NewChapter, u"Ctrl+N"},
    {1, u"Nouveau personnage", u"New Character", NewCharacter},
    {1, u"Nouveau lieu", u"New Place", NewPlace},
    {1, u"Nouvelle fiche", u"New Sheet", NewSheet},
    {1, u"Nouvelle note de recherche", u"New Research Note", NewNote},
    {1, u"---"},
    {1, u"Fermer", u"Close", PerformClose, u"Ctrl+W"},
    {1, u"Enregistrer", u"Save", SaveDocument, u"Ctrl+S"},
    {0, u"Édition", u"Edit"},
    {1, u"Annuler", u"Undo", Undo, u"Ctrl+Z"},
    {1, u"Rétablir", u"Redo", Redo, u"Ctrl+Shift+Z | Ctrl+Y"},
    {1, u"---"},
    {1, u"Couper", u"Cut", Cut, u"Ctrl+X"},
    {1, u"Copier", u"Copy", Copy, u"Ctrl+C"},
    {1, u"Coller", u"Paste", Paste, u"Ctrl+V"},
    {1, u"Tout sélectionner", u"Select All", SelectAll, u"Ctrl+A"},
    {1, u"---"},
    {1, u"Rechercher", u"Find"},
    {2, u"Rechercher…", u"Find…", PerformFindPanelAction, u"Ctrl+F", 1},
    {2, u"Rechercher et remplacer…", u"Find and Replace…", PerformFindPanelAction, u"Ctrl+Alt+F", 12},
    {2, u"Suivant", u"Find Next", PerformFindPanelAction, u"Ctrl+G", 2},
    {2, u"Précédent", u"Find Previous", PerformFindPanelAction, u"Ctrl+Shift+G", 3},
    {2, u"Rechercher la sélection", u"Use Selection for Find", PerformFindPanelAction, u"Ctrl+E", 7},
    {1, u"Orthographe et grammaire", u"Spelling and Grammar"},
    {2, u"Afficher l'orthographe et la grammaire", u"Show Spelling and Grammar", ShowGuessPanel, u"Ctrl+:"},
    {2, u"Vérifier le document maintenant", u"Check Document Now", CheckSpelling, u"Ctrl+;"},
    {2, u"Vérifier l'orthographe lors de la frappe", u"Check Spelling While Typing", ToggleContinuousSpellChecking},
    {0, u"Format", u"Format"},
    {1, u"Gras", u"Bold", FormatBold, u"Ctrl+B"},
    {1, u"Italique", u"Italic", FormatItalic, u"Ctrl+I"},
    {1, u"Barré", u"Strikethrough", FormatStrikethrough},
    {1, u"---"},
    {1, u"Titre 1", u"Heading 1", FormatHeading, u"Ctrl+1 | Ctrl+&", 1},
    {1, u"Titre 2", u"Heading 2", FormatHeading, u"Ctrl+2 | Ctrl+É", 2},
    {1, u"Titre 3", u"Heading 3", FormatHeading, u"Ctrl+3 | Ctrl+\"", 3},
    {1, u"---"},
    {1, u"Citation", u"Quote", FormatQuote, u"Ctrl+'"},
    {1, u"Liste à puces", u"Bulleted List", FormatBulletList},
    {1, u"Liste numérotée", u"Numbered List", FormatNumberedList},
    {1, u"Séparateur de scène", u"Scene Break", FormatSeparator},
    {1, u"Lien", u"Link", FormatLink, u"Ctrl+K"},
    {1, u"---"},
    {1, u"Afficher l'aperçu", u"Show Preview", TogglePreview, u"Ctrl+Alt+P"},
    {0, u"Carnet", u"Notebook"},
    {1, u"Renommer", u"Rename", RenameSelectedItem},
    {1, u"Afficher dans le Finder", u"Show in Finder", RevealInFinder, u"Ctrl+Shift+R"},
    {1, u"---"},
    {1, u"Mettre à la corbeille", u"Move to Trash", TrashSelectedItem},
    {0, u"Fenêtre", u"Window"},
    {1, u"Placer dans le Dock", u"Minimize", PerformMiniaturize, u"Ctrl+M"},
    {1, u"Réduire/agrandir", u"Zoom", PerformZoom},
    {1, u"Plein écran", u"Enter Full Screen", ToggleFullScreen, u"Meta+Ctrl+F | F11"},
    {1, u"---"},
    {1, u"Tout ramener au premier plan", u"Bring All to Front", ArrangeInFront}
};
// clang-format on

QAction *actionWithText(const QList<QAction *> &actions, const QString &text)
{
    for (QAction *action : actions) {
        if (action->text() == text)
            return action;
        QAction *found = action->menu() ? actionWithText(action->menu()->actions(), text) : nullptr;
        if (found)
            return found;
    }
    return nullptr;
}

} // namespace

class PLMainMenuTest final : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<PLTestEnvironment> m_environment;

private Q_SLOTS:
    void init() { m_environment = std::make_unique<PLTestEnvironment>(); }

    void theMenuBarIsAsItShouldBe_data();
    void theMenuBarIsAsItShouldBe();
    void underEnglishTheEditMenuBeginsWithUndo();
    void everyItemSendsItsCommand();
    void keysSendTheirCommand_data();
    void keysSendTheirCommand();
    void keysOfTheWindowMenuChangeTheWindow();
    void aKeyOpensTheMenuBar();
    void anOpenMenuShowsHowItsCommandsStand();
    void aClosedMenuRefusesNoShortcut();
    void everyItemHasACommandOfItsOwn();
    void aKeyHeldDownRepeatsNoMoreThanItShould();
    void anEmptySubmenuIsDisabled();
};

void PLMainMenuTest::theMenuBarIsAsItShouldBe_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("fr") << u"fr"_s;
    QTest::newRow("en") << u"en"_s;
}

/// Item after item: title, level, separators, keys, tag and command.
void PLMainMenuTest::theMenuBarIsAsItShouldBe()
{
    QFETCH(const QString, language);
    m_environment->setLanguage(language);
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    QList<std::pair<int, QAction *>> items;
    collectItems(window.menuBar()->actions(), items);
    for (qsizetype index = 0; index < qMin(items.size(), qsizetype(std::size(menuBar))); ++index) {
        const ExpectedRow &row = menuBar[index];
        const auto &[level, action] = items[index];
        const QString title = QString::fromUtf16(language == u"fr" ? row.french : row.english);
        QCOMPARE(action->isSeparator() ? u"---"_s : action->text(), title);
        QVERIFY2(level == row.level, qPrintable(title));
        QCOMPARE(keysOf(*action), QString::fromUtf16(row.keys));
        QVERIFY2(action->data().toPoint() == QPoint(int(row.command), row.tag), qPrintable(title));
    }
    QCOMPARE(items.size(), qsizetype(std::size(menuBar)));
}

void PLMainMenuTest::underEnglishTheEditMenuBeginsWithUndo()
{
    m_environment->setLanguage(u"en"_s);
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    const QAction *edit = actionWithText(window.menuBar()->actions(), u"Edit"_s);
    QVERIFY(edit && edit->menu());
    QCOMPARE(edit->menu()->actions().constFirst()->text(), u"Undo"_s);
}

void PLMainMenuTest::everyItemSendsItsCommand()
{
    Recorder recorder;
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    QList<QPoint> expected;
    for (const ExpectedRow &row : menuBar) {
        if (row.command == PLCommand::None)
            continue;
        expected.append({int(row.command), row.tag});
        actionWithText(window.menuBar()->actions(), QString::fromUtf16(row.french))->trigger();
        QCOMPARE(recorder.performed, expected);
    }
    QVERIFY(expected.size() > 40);
}

void PLMainMenuTest::keysSendTheirCommand_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<PLCommand>("command");
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    QTest::newRow("a new chapter") << Qt::Key_N << control << PLCommand::NewChapter;
    QTest::newRow("a new notebook") << Qt::Key_N << (control | Qt::ShiftModifier) << PLCommand::NewProject;
    QTest::newRow("save") << Qt::Key_S << control << PLCommand::SaveDocument;
    QTest::newRow("redo") << Qt::Key_Z << (control | Qt::ShiftModifier) << PLCommand::Redo;
    QTest::newRow("redo, the other habit") << Qt::Key_Y << control << PLCommand::Redo;
    QTest::newRow("the preview") << Qt::Key_P << (control | Qt::AltModifier) << PLCommand::TogglePreview;
    QTest::newRow("hide") << Qt::Key_H << control << PLCommand::Hide;
}

void PLMainMenuTest::keysSendTheirCommand()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const PLCommand, command);
    Recorder recorder;
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    window.makeKeyAndOrderFront();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, key, modifiers);
    QCOMPARE(recorder.performed, QList<QPoint>({{int(command), 0}}));
}

void PLMainMenuTest::keysOfTheWindowMenuChangeTheWindow()
{
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    window.makeKeyAndOrderFront();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F11);
    QVERIFY(window.isFullScreen());
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier | Qt::MetaModifier);
    QVERIFY(!window.isFullScreen());
    QTest::keyClick(&window, Qt::Key_M, Qt::ControlModifier);
    QVERIFY(window.isMinimized());
    window.makeKeyAndOrderFront();
    QVERIFY(!window.isMinimized());
    actionWithText(window.menuBar()->actions(), u"Réduire/agrandir"_s)->trigger();
    QVERIFY(window.isMaximized());
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    QVERIFY(!window.isVisible());
}

void PLMainMenuTest::aKeyOpensTheMenuBar()
{
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    window.makeKeyAndOrderFront();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F10);
    QMenu *first = window.menuBar()->actions().constFirst()->menu();
    QCOMPARE(QApplication::activePopupWidget(), first);
    QTest::keyClick(first, Qt::Key_Escape);
    QVERIFY(!first->isVisible());
}

void PLMainMenuTest::anOpenMenuShowsHowItsCommandsStand()
{
    Recorder recorder;
    recorder.state = {true, true};
    recorder.refused = PLCommand::FormatBold; // nobody knows this one
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    QMenu *format = actionWithText(window.menuBar()->actions(), u"Format"_s)->menu();
    Q_EMIT format->aboutToShow();
    QVERIFY(!actionWithText(format->actions(), u"Gras"_s)->isEnabled());
    const QAction *preview = actionWithText(format->actions(), u"Afficher l'aperçu"_s);
    QVERIFY(preview->isEnabled());
    QVERIFY(preview->isChecked());
    recorder.state = {false, false};
    Q_EMIT format->aboutToShow();
    QVERIFY(!preview->isEnabled());
    QVERIFY(!preview->isChecked());
}

void PLMainMenuTest::aClosedMenuRefusesNoShortcut()
{
    Recorder recorder;
    recorder.state = {false, false};
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    QMenu *format = actionWithText(window.menuBar()->actions(), u"Format"_s)->menu();
    const QAction *bold = actionWithText(format->actions(), u"Gras"_s);
    Q_EMIT format->aboutToShow();
    QVERIFY(!bold->isEnabled());
    Q_EMIT format->aboutToHide();
    QTRY_VERIFY(bold->isEnabled());
}

void PLMainMenuTest::everyItemHasACommandOfItsOwn()
{
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    QSet<QPoint> commands;
    const QList<QAction *> actions = window.menuBar()->findChildren<QAction *>();
    for (const QAction *action : actions) {
        if (action->isSeparator() || action->menu())
            continue;
        const QPoint command = action->data().toPoint();
        QVERIFY2(command.x() != int(PLCommand::None), qPrintable(action->text()));
        QVERIFY2(!commands.contains(command), qPrintable(action->text()));
        commands.insert(command);
    }
}

/// Step after step of undoing, but not page after page or window after window.
void PLMainMenuTest::aKeyHeldDownRepeatsNoMoreThanItShould()
{
    m_environment->setLanguage(u"fr"_s);
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    QList<std::pair<int, QAction *>> items;
    collectItems(window.menuBar()->actions(), items);
    QStringList repeated;
    for (const auto &[level, action] : items) {
        if (action->autoRepeat() && !action->shortcut().isEmpty())
            repeated.append(action->text());
    }
    QCOMPARE(repeated, QStringList({u"Annuler"_s, u"Rétablir"_s, u"Coller"_s, u"Suivant"_s, u"Précédent"_s}));
}

/// Services are another desktop's; the item stays in its place.
void PLMainMenuTest::anEmptySubmenuIsDisabled()
{
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    QMenu *menu = window.menuBar()->actions().constFirst()->menu();
    const QAction *services = actionWithText(menu->actions(), u"Services"_s);
    QVERIFY(!services->isEnabled());
    Q_EMIT menu->aboutToShow();
    QVERIFY(!services->isEnabled());
    Q_EMIT menu->aboutToHide();
    QCoreApplication::processEvents();
    QVERIFY(!services->isEnabled());
}

QTEST_MAIN(PLMainMenuTest)
#include "PLMainMenuTest.moc"
