// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notebook_window/PLPageSession.h"
#include "platform/PLCommand.h"
#include "storage/PLProjectItem.h"

#include <QObject>

#include <optional>

class PLEditorView;
class PLProject;
class PLSidebarController;
class PLSidebarNode;
class QWidget;

/// The commands on pages: create, rename, move to the trash, show in the file manager.
class PLPageCommands final : public QObject
{
    Q_OBJECT

public:
    /// What the commands work on; all of it belongs to the notebook window.
    struct Parts
    {
        const PLProject &project;
        PLSidebarController &sidebar;
        PLPageSession &session;
        PLEditorView &editor;
        QWidget &window;
    };

    explicit PLPageCommands(const Parts &parts, QObject *parent = nullptr);

    /// What a command of the menu bar does now, for the row that is selected; nothing for a command of
    /// others.
    std::optional<PLCommandState> stateOfCommand(PLCommand command) const;
    void performCommand(PLCommand command);

    /// Makes a page, opens it, and lets its title be typed.
    void createItemInSection(PLSection section);
    /// Opens the page's title for typing in its row; nothing for null.
    void renameItem(const PLProjectItemPointer &item);
    /// Asks, then moves the page to the trash; a beep for null.
    void trashItem(PLProjectItemPointer item);
    /// Shows the row's file, the section's folder or the notebook's in the file manager.
    void revealInFinder(const PLSidebarNode *node) const;

    /// The page a command applies to: the row's page in its own section. Null for a row that is no page.
    PLProjectItemPointer targetItemForNode(const PLSidebarNode *node) const;

    /// A title was typed for a page: renames its file, unless the text of the page could not be saved before.
    void endTitleEditing(PLProjectItemPointer item, const QString &typedTitle,
                         PLPageSession::SaveFailure failure = PLPageSession::SaveFailure::Tell);
    /// Goes on typing in the page, if this is the one that is open.
    void focusTextIfEditing(const PLProjectItemPointer &item) const;

    void showContextMenu(const PLSidebarNode *node, const QPoint &globalPosition);

Q_SIGNALS:
    /// The page that is open has got another title.
    void currentItemRenamed();

private:
    /// The page of the row that is selected, null for another row or none.
    PLProjectItemPointer selectedItem() const;
    QUrl locationOfNode(const PLSidebarNode *node) const;
    bool confirmTrash(const PLProjectItem &item) const;
    void goOnInText(const PLProjectItemPointer &item) const;
    void finishRename();

    Parts m_parts;
    PLProjectItemPointer m_renamedItem; ///< until the sidebar shows its new title
};
