// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLLibraryWindowController.h"
#include "platform/PLCommand.h"

#include <QObject>
#include <QPointer>
#include <QScopeGuard>
#include <QUrl>

#include <functional>
#include <memory>
#include <vector>

class PLPreferencesWindowController;
class PLProject;
class PLProjectWindowController;

/// Owns every window; opens and creates notebooks, and sees that nothing is left unsaved when the program
/// ends.
class PLAppDelegate final : public QObject, public PLLibraryDelegate, public PLCommandHandler
{
    Q_OBJECT

public:
    explicit PLAppDelegate(QObject *parent = nullptr);
    ~PLAppDelegate() override;

    /// The open notebook windows, in order of opening.
    const std::vector<std::unique_ptr<PLProjectWindowController>> &projectWindows() const
    {
        return m_projectWindows;
    }
    /// Null until it is first shown.
    PLLibraryWindowController *library() const { return m_library.get(); }

    /// Opens the notebooks of the last relaunch and the given paths; without any, shows the library.
    void applicationDidFinishLaunching(const QStringList &paths = {});
    /// Another start of the program: opens its paths, or shows a window if it had none.
    void applicationHandleRequest(const QStringList &paths, const QString &activationToken);
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    bool openFile(const QString &path);

    bool openProjectAtURL(const QUrl &url) override;
    void newProject() override;
    void openProject() override;
    void showLibrary();
    void showPreferences();
    void showAbout();

    /// Saves every page, asking where that fails; true if the program may end.
    bool applicationShouldTerminate();
    /// Ends the program, unless a page cannot be saved and the writer would rather stay.
    void terminate();
    /// Saves what can be saved without a question, and ends the program.
    void terminateQuietly();
    void saveAllQuietly();
    /// Ends the program and starts it again with the same notebooks.
    void relaunch();

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

Q_SIGNALS:
    /// The event loop is to be left.
    void willTerminate();

private:
    using Opening = QScopeGuard<std::function<void()>>;

    QUrl folderOfURL(const QUrl &url) const;
    PLProjectWindowController *windowForFolder(const QUrl &folder) const;
    bool isBeingOpened(const QUrl &folder) const;
    /// For as long as the answer lives.
    [[nodiscard]] Opening markAsBeingOpened(const QUrl &folder);
    void tellMissingProject(const QUrl &folder);
    bool confirmMakingNotebook(const QUrl &folder) const;
    void showWindowForProject(std::unique_ptr<PLProject> project);
    void projectWindowWillClose(PLProjectWindowController *controller);
    void libraryClosed();
    void reopenProjectsAfterRelaunch();
    void applicationWillTerminate();
    std::vector<PLWindow *> shownWindows() const;
    void hide();
    void arrangeInFront();
    bool confirmQuitWithoutSaving(const PLProjectWindowController &controller) const;
    void reloadLibrary();

    std::vector<std::unique_ptr<PLProjectWindowController>> m_projectWindows;
    std::unique_ptr<PLLibraryWindowController> m_library;
    std::unique_ptr<PLPreferencesWindowController> m_preferences;
    QStringList m_beingOpened; ///< folders
    QPointer<QWidget> m_about; ///< while it is open
    bool m_relaunching = false;
    bool m_terminating = false;
};
