// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"

#include "app/PLMainMenu.h"
#include "app/PLPreferencesWindowController.h"
#include "app/PLRelaunch.h"
#include "foundation/PLPreferences.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "notebook_window/PLProjectWindowController.h"
#include "platform/PLAlert.h"
#include "platform/PLPanels.h"
#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "storage/PLRecentProjects.h"

#include <QApplication>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString reopenKey = u"PLReopenProjects"_s;

bool isText(const QVariant &entry)
{
    return entry.typeId() == QMetaType::QString;
}

bool hasVisibleWindows()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget *window) {
        return window->isVisible() && qobject_cast<const PLWindow *>(window);
    });
}

} // namespace

PLAppDelegate::PLAppDelegate(QObject *parent) : QObject(parent)
{
    PLCommandChain::setApplicationHandler(this);
}

PLAppDelegate::~PLAppDelegate()
{
    delete m_about.data();
    PLCommandChain::setApplicationHandler(nullptr);
}

void PLAppDelegate::applicationDidFinishLaunching(const QStringList &paths)
{
    reopenProjectsAfterRelaunch();
    for (const QString &path : paths)
        openFile(path);
    if (m_projectWindows.empty() && !m_terminating)
        showLibrary();
}

void PLAppDelegate::applicationHandleRequest(const QStringList &paths, const QString &activationToken)
{
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    for (const QString &path : paths)
        openFile(path);
    if (paths.isEmpty() && applicationShouldHandleReopen(hasVisibleWindows()))
        arrangeInFront();
}

bool PLAppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    if (!hasVisibleWindows)
        showLibrary();
    return true;
}

bool PLAppDelegate::openFile(const QString &path)
{
    return openProjectAtURL(QUrl::fromLocalFile(path));
}

bool PLAppDelegate::openProjectAtURL(const QUrl &url)
{
    const QUrl folder = folderOfURL(url);
    if (PLProjectWindowController *open = windowForFolder(folder)) {
        open->showWindow();
        return true;
    }
    if (isBeingOpened(folder))
        return false;
    const auto done = markAsBeingOpened(folder);
    if (!QFileInfo(folder.toLocalFile()).isDir()) {
        tellMissingProject(folder);
        return false;
    }
    PLError error;
    std::unique_ptr<PLProject> project;
    if (PLProject::isProjectFolderAtURL(folder))
        project = PLProject::openProjectAtURL(folder, &error);
    else if (confirmMakingNotebook(folder))
        project = PLProject::createProjectAtURL(folder, QFileInfo(folder.toLocalFile()).fileName(), &error);
    else
        return false;
    if (!project) {
        PLAlert::presentError(error);
        return false;
    }
    showWindowForProject(std::move(project));
    return true;
}

void PLAppDelegate::newProject()
{
    const PLPanelTexts texts{
        PLLocalizedString(u"Nouveau carnet"_s), PLLocalizedString(u"Créer"_s),
        PLLocalizedString(
            u"Aquilane va créer un dossier à ce nom. Tout votre projet y sera rangé en fichiers Markdown."_s)};
    const QUrl folder = PLChooseNewFolder(texts, PLLocalizedString(u"Nom du carnet :"_s),
                                          PLLocalizedString(u"Mon roman"_s), QApplication::activeWindow());
    if (folder.isEmpty())
        return;
    if (PLProjectWindowController *open = windowForFolder(folder))
        return open->showWindow();
    const auto done = markAsBeingOpened(folder);
    PLError error;
    auto project = PLProject::createProjectAtURL(folder, QFileInfo(folder.toLocalFile()).fileName(), &error);
    if (!project)
        return PLAlert::presentError(error);
    showWindowForProject(std::move(project));
}

void PLAppDelegate::openProject()
{
    const PLPanelTexts texts{
        PLLocalizedString(u"Ouvrir un carnet"_s), PLLocalizedString(u"Ouvrir"_s),
        PLLocalizedString(u"Choisissez le dossier d'un carnet, ou son fichier projet.md."_s)};
    const QUrl chosen = PLChooseFolderOrMarkdownFile(texts, QApplication::activeWindow());
    if (!chosen.isEmpty())
        openProjectAtURL(chosen);
}

void PLAppDelegate::showLibrary()
{
    if (!m_library) {
        m_library = std::make_unique<PLLibraryWindowController>(*this);
        connect(m_library.get(), &PLLibraryWindowController::windowClosed, this,
                &PLAppDelegate::libraryClosed);
        PLInstallMainMenu(*m_library->window());
    } else {
        m_library->reload();
    }
    m_library->showWindow();
}

void PLAppDelegate::showPreferences()
{
    if (!m_preferences) {
        m_preferences = std::make_unique<PLPreferencesWindowController>();
        // The alert that asks is still open: let it close before the program does.
        m_preferences->setRestartHandler(
            [this] { QMetaObject::invokeMethod(this, &PLAppDelegate::relaunch, Qt::QueuedConnection); });
        PLInstallMainMenu(*m_preferences->window());
    }
    m_preferences->showWindow();
}

bool PLAppDelegate::applicationShouldTerminate()
{
    for (const auto &controller : m_projectWindows) {
        if (!controller->saveCurrentItem() && !confirmQuitWithoutSaving(*controller))
            return false;
    }
    return true;
}

void PLAppDelegate::terminate()
{
    // A second Quit while the first one asks its question must not ask another.
    if (m_terminating)
        return;
    m_terminating = true;
    m_terminating = applicationShouldTerminate();
    if (!m_terminating)
        return;
    applicationWillTerminate();
    Q_EMIT willTerminate();
}

void PLAppDelegate::terminateQuietly()
{
    m_terminating = true;
    saveAllQuietly();
    Q_EMIT willTerminate();
}

void PLAppDelegate::saveAllQuietly()
{
    for (const auto &controller : m_projectWindows)
        controller->saveCurrentItemQuietly();
    PLPreferences::store().sync();
}

void PLAppDelegate::relaunch()
{
    m_relaunching = true;
    terminate();
    m_relaunching = false;
}

/// A selected `projet.md` stands for its folder.
QUrl PLAppDelegate::folderOfURL(const QUrl &url) const
{
    const QString path = PLStandardizedPath(url);
    const QFileInfo info(path);
    return QUrl::fromLocalFile(info.fileName() == u"projet.md" ? info.path() : path);
}

/// By whatever name: two windows of one folder would overwrite each other's pages.
PLProjectWindowController *PLAppDelegate::windowForFolder(const QUrl &folder) const
{
    const QString path = PLStandardizedPath(folder);
    for (const auto &controller : m_projectWindows) {
        const QString open = PLStandardizedPath(controller->project().folderURL());
        if (open == path || PLIsSameFolder(open, path))
            return controller.get();
    }
    return nullptr;
}

/// A question about the folder, or an alert of its new window, lets the event loop run, and with it another
/// request for the same folder. The answer to the first one is the answer to both.
bool PLAppDelegate::isBeingOpened(const QUrl &folder) const
{
    const QString path = PLStandardizedPath(folder);
    return std::any_of(m_beingOpened.begin(), m_beingOpened.end(), [&path](const QString &opened) {
        return opened == path || PLIsSameFolder(opened, path);
    });
}

PLAppDelegate::Opening PLAppDelegate::markAsBeingOpened(const QUrl &folder)
{
    const QString path = PLStandardizedPath(folder);
    m_beingOpened.append(path);
    return Opening([this, path] { m_beingOpened.removeOne(path); });
}

void PLAppDelegate::tellMissingProject(const QUrl &folder)
{
    const QString path = folder.toLocalFile();
    PLAlert alert;
    alert.message =
        PLFormat(PLLocalizedString(u"Le carnet « %@ » est introuvable"_s), {QFileInfo(path).fileName()});
    alert.informativeText = PLFormat(
        PLLocalizedString(
            u"Le dossier %@ n'existe pas ou plus. S'il est sur une clé USB, branchez-la puis réessayez."_s),
        {path});
    alert.buttons = {PLLocalizedString(u"OK"_s), PLLocalizedString(u"Retirer de la liste"_s)};
    alert.escapeButton = PLAlert::FirstButton;
    if (alert.runModal() != PLAlert::SecondButton)
        return;
    PLRecentProjects::removeURL(folder);
    reloadLibrary();
}

bool PLAppDelegate::confirmMakingNotebook(const QUrl &folder) const
{
    PLAlert alert;
    alert.message = PLFormat(PLLocalizedString(u"« %@ » n'est pas encore un carnet"_s),
                             {QFileInfo(folder.toLocalFile()).fileName()});
    alert.informativeText = PLLocalizedString(
        u"Voulez-vous en faire un carnet ? Aquilane y ajoutera un fichier projet.md et les dossiers Livre, Personnages, Lieux, Fiches et Notes. Les fichiers déjà présents ne seront pas modifiés."_s);
    alert.buttons = {PLLocalizedString(u"En faire un carnet"_s), PLLocalizedString(u"Annuler"_s)};
    alert.style = PLAlert::Style::Informational;
    return alert.runModal() == PLAlert::FirstButton;
}

void PLAppDelegate::showWindowForProject(std::unique_ptr<PLProject> project)
{
    const QUrl folder = project->folderURL();
    m_projectWindows.push_back(std::make_unique<PLProjectWindowController>(std::move(project)));
    PLProjectWindowController *controller = m_projectWindows.back().get();
    connect(controller, &PLProjectWindowController::PLProjectWindowWillCloseNotification, this,
            &PLAppDelegate::projectWindowWillClose);
    PLInstallMainMenu(*controller->window());
    controller->showWindow();
    PLRecentProjects::addURL(folder);
    reloadLibrary();
    if (m_library)
        m_library->window()->hide();
}

/// Not at once: the window is still closing, and the controller in the middle of telling.
void PLAppDelegate::projectWindowWillClose(PLProjectWindowController *controller)
{
    const auto forget = [this, controller] {
        std::erase_if(m_projectWindows, [controller](const auto &open) { return open.get() == controller; });
        if (m_projectWindows.empty() && !m_terminating)
            showLibrary();
    };
    QMetaObject::invokeMethod(this, forget, Qt::QueuedConnection);
}

/// Without a menu bar of its own on the desktop, a program with no window could not be reached any more.
void PLAppDelegate::libraryClosed()
{
#ifndef Q_OS_MACOS
    if (m_projectWindows.empty())
        terminate();
#endif
}

void PLAppDelegate::reopenProjectsAfterRelaunch()
{
    QSettings &store = PLPreferences::store();
    const QVariant stored = store.value(reopenKey);
    if (!stored.isValid())
        return;
    store.remove(reopenKey); // first, so that a crash while reopening does not loop
    store.sync();
    // The ini file gives a list of one text back as that text.
    const QVariantList entries = isText(stored) ? QVariantList{stored} : stored.toList();
    for (const QVariant &entry : entries) {
        if (isText(entry) && QFileInfo::exists(entry.toString()))
            openFile(entry.toString());
    }
}

void PLAppDelegate::applicationWillTerminate()
{
    if (!m_relaunching)
        return;
    QStringList paths;
    for (const auto &controller : m_projectWindows)
        paths.append(PLStandardizedPath(controller->project().folderURL()));
    QSettings &store = PLPreferences::store();
    store.setValue(reopenKey, paths);
    store.sync();
    PLStartRelaunchScript(QCoreApplication::applicationPid(), QCoreApplication::applicationFilePath());
}

bool PLAppDelegate::confirmQuitWithoutSaving(const PLProjectWindowController &controller) const
{
    PLAlert alert;
    alert.message = PLLocalizedString(u"Quitter sans enregistrer ?"_s);
    alert.informativeText =
        PLFormat(PLLocalizedString(u"Une page du carnet « %@ » n'a pas pu être enregistrée."_s),
                 {controller.project().title()});
    alert.buttons = {PLLocalizedString(u"Ne pas quitter"_s), PLLocalizedString(u"Quitter quand même"_s)};
    alert.escapeButton = PLAlert::FirstButton;
    return alert.runModal() == PLAlert::SecondButton;
}

void PLAppDelegate::reloadLibrary()
{
    if (m_library)
        m_library->reload();
}
