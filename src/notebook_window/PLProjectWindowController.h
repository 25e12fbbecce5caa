// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLCommand.h"
#include "platform/PLWindow.h"
#include "storage/PLProjectItem.h"

#include <QObject>

#include <memory>

class PLEditorView;
class PLPageCommands;
class PLPageSession;
class PLPaperView;
class PLProject;
class PLSidebarController;
class PLSidebarNode;
class PLTagCompletion;
class QLabel;
class QSplitter;

/// The window of one notebook: a frame that holds the sidebar and the page, and hands each command on to the
/// small object that does it.
class PLProjectWindowController final : public QObject, public PLWindowDelegate, public PLCommandHandler
{
    Q_OBJECT

public:
    /// Builds the window, not yet shown, and opens the first chapter.
    explicit PLProjectWindowController(std::unique_ptr<PLProject> project);
    ~PLProjectWindowController() override;

    const PLProject &project() const { return *m_project; }
    PLWindow *window() const { return m_window.get(); }
    PLEditorView *editorView() const { return m_editorView; }
    PLSidebarController &sidebar() const { return *m_sidebar; }
    PLPageSession &session() const { return *m_session; }
    PLPageCommands &pageCommands() const { return *m_pageCommands; }
    QLabel *placeholderLabel() const { return m_placeholderLabel; }
    QSplitter *splitView() const { return m_splitView; }

    void showWindow();

    /// Writes the page that is open if it has changed; false if that failed, which the writer has been told.
    bool saveCurrentItem();
    /// The same without a word, for when nobody is there to read it; a title that is being typed is kept too.
    bool saveCurrentItemQuietly();

    /// Reads the list of pages again and keeps the selection.
    void refreshSidebar();

    bool windowShouldClose() override;
    void windowWillClose() override;
    void windowDidBecomeKey() override;
    void windowDidResignKey() override;

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

Q_SIGNALS:
    /// The window is about to close; whoever owns the controller drops it when the event loop turns.
    void PLProjectWindowWillCloseNotification(PLProjectWindowController *controller);

private:
    void buildWindow();
    QWidget *buildSidebar();
    QWidget *buildEditor();
    void connectParts();
    void connectSidebar();
    void connectTagField();
    void switchPane();

    void selectionChanged();
    void openSelectedItem(const PLProjectItemPointer &item);
    void showPlaceholder(bool visible);
    void updateWindowTitle();
    void tagsDidChange();
    void refreshWhenNoTitleIsTyped();

    std::unique_ptr<PLProject> m_project;
    std::unique_ptr<PLWindow> m_window;
    std::unique_ptr<PLSidebarController> m_sidebar;
    std::unique_ptr<PLPageSession> m_session;
    std::unique_ptr<PLPageCommands> m_pageCommands;
    std::unique_ptr<PLTagCompletion> m_tagCompletion;
    QSplitter *m_splitView = nullptr;
    PLPaperView *m_paperView = nullptr;
    PLEditorView *m_editorView = nullptr;
    QLabel *m_placeholderLabel = nullptr;
    /// The page that is selected but could not be opened, which has been told: its alert gives the keyboard
    /// back to this window, which then tries again.
    QUrl m_failedURL;
    bool m_refreshIsDue = false; ///< when the title that is being typed is done
};
