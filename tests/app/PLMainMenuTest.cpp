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

/// A menu as lines of text, one for each item: its title, its keys, its tag.
QStringList linesOf(const QList<QAction *> &actions, const QString &indent = QString())
{
    QStringList lines;
    for (const QAction *action : actions) {
        if (action->isSeparator()) {
            lines.append(indent + u"---"_s);
            continue;
        }
        const int tag = action->data().toPoint().y();
        QString line = indent + action->text();
        line += action->shortcuts().isEmpty() ? QString() : u" ["_s + keysOf(*action) + u']';
        line += tag == 0 ? QString() : u" #"_s + QString::number(tag);
        lines.append(line);
        if (action->menu())
            lines += linesOf(action->menu()->actions(), indent + u"  "_s);
    }
    return lines;
}

const char *const frenchMenuBar = R"(Aquilane
  À propos d'Aquilane
  ---
  Préférences… [Ctrl+,]
  Bibliothèque des carnets [Ctrl+Shift+L]
  ---
  Services
  ---
  Masquer Aquilane [Ctrl+H]
  Masquer les autres [Ctrl+Alt+H]
  Tout afficher
  ---
  Quitter Aquilane [Ctrl+Q]
Fichier
  Nouveau carnet… [Ctrl+Shift+N]
  Ouvrir un carnet… [Ctrl+O]
  ---
  Nouveau chapitre [Ctrl+N]
  Nouveau personnage
  Nouveau lieu
  Nouvelle fiche
  Nouvelle note de recherche
  ---
  Fermer [Ctrl+W]
  Enregistrer [Ctrl+S]
Édition
  Annuler [Ctrl+Z]
  Rétablir [Ctrl+Shift+Z | Ctrl+Y]
  ---
  Couper [Ctrl+X]
  Copier [Ctrl+C]
  Coller [Ctrl+V]
  Tout sélectionner [Ctrl+A]
  ---
  Rechercher
    Rechercher… [Ctrl+F] #1
    Rechercher et remplacer… [Ctrl+Alt+F] #12
    Suivant [Ctrl+G] #2
    Précédent [Ctrl+Shift+G] #3
    Rechercher la sélection [Ctrl+E] #7
  Orthographe et grammaire
    Afficher l'orthographe et la grammaire [Ctrl+:]
    Vérifier le document maintenant [Ctrl+;]
    Vérifier l'orthographe lors de la frappe
Format
  Gras [Ctrl+B]
  Italique [Ctrl+I]
  Barré
  ---
  Titre 1 [Ctrl+1] #1
  Titre 2 [Ctrl+2] #2
  Titre 3 [Ctrl+3] #3
  ---
  Citation [Ctrl+']
  Liste à puces
  Liste numérotée
  Séparateur de scène
  Lien [Ctrl+K]
  ---
  Afficher l'aperçu [Ctrl+Alt+P]
Carnet
  Renommer
  Afficher dans le Finder [Ctrl+Shift+R]
  ---
  Mettre à la corbeille
Fenêtre
  Placer dans le Dock [Ctrl+M]
  Réduire/agrandir
  Plein écran [Meta+Ctrl+F | F11]
  ---
  Tout ramener au premier plan)";

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

    void theMenuBarIsAsItShouldBe();
    void everyTitleIsTranslated();
    void underEnglishTheEditMenuBeginsWithUndo();
    void anItemSendsItsCommand_data();
    void anItemSendsItsCommand();
    void keysSendTheirCommand_data();
    void keysSendTheirCommand();
    void anOpenMenuShowsHowItsCommandsStand();
    void aClosedMenuRefusesNoShortcut();
    void everyItemHasACommandOfItsOwn();
};

void PLMainMenuTest::theMenuBarIsAsItShouldBe()
{
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    const QStringList expected = QString::fromUtf8(frenchMenuBar).split(u'\n');
    const QStringList lines = linesOf(window.menuBar()->actions());
    for (qsizetype index = 0; index < qMin(lines.size(), expected.size()); ++index)
        QCOMPARE(lines[index], expected[index]);
    QCOMPARE(lines.size(), expected.size());
}

void PLMainMenuTest::everyTitleIsTranslated()
{
    PLWindow french(nullptr);
    PLInstallMainMenu(french);
    m_environment->setLanguage(u"en"_s);
    PLWindow english(nullptr);
    PLInstallMainMenu(english);
    const QList<QAction *> frenchActions = french.menuBar()->findChildren<QAction *>();
    const QList<QAction *> englishActions = english.menuBar()->findChildren<QAction *>();
    QVERIFY(frenchActions.size() > 50);
    QCOMPARE(englishActions.size(), frenchActions.size());
    for (qsizetype index = 0; index < frenchActions.size(); ++index) {
        const QString title = frenchActions[index]->text();
        if (title != u"Annuler")
            QCOMPARE(englishActions[index]->text(), PLLocalization::string(title, u"en"_s));
        QCOMPARE(englishActions[index]->shortcuts(), frenchActions[index]->shortcuts());
    }
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

void PLMainMenuTest::anItemSendsItsCommand_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<PLCommand>("command");
    QTest::addColumn<int>("tag");
    QTest::newRow("about") << u"À propos d'Aquilane"_s << PLCommand::ShowAbout << 0;
    QTest::newRow("place") << u"Nouveau lieu"_s << PLCommand::NewPlace << 0;
    QTest::newRow("undo") << u"Annuler"_s << PLCommand::Undo << 0;
    QTest::newRow("find and replace")
        << u"Rechercher et remplacer…"_s << PLCommand::PerformFindPanelAction << 12;
    QTest::newRow("heading 3") << u"Titre 3"_s << PLCommand::FormatHeading << 3;
    QTest::newRow("trash") << u"Mettre à la corbeille"_s << PLCommand::TrashSelectedItem << 0;
    QTest::newRow("zoom") << u"Tout ramener au premier plan"_s << PLCommand::ArrangeInFront << 0;
}

void PLMainMenuTest::anItemSendsItsCommand()
{
    QFETCH(const QString, title);
    QFETCH(const PLCommand, command);
    QFETCH(const int, tag);
    Recorder recorder;
    PLWindow window(nullptr);
    PLInstallMainMenu(window);
    actionWithText(window.menuBar()->actions(), title)->trigger();
    QCOMPARE(recorder.performed, QList<QPoint>({{int(command), tag}}));
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

QTEST_MAIN(PLMainMenuTest)
#include "PLMainMenuTest.moc"
