// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLCommand.h"
#include "storage/PLProjectItem.h"

#include <QObject>

class PLEditorView;
class PLPageSession;
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

    /// Makes a page, opens it, and lets its title be typed.
    void createItemInSection(PLSection section);
    void renameItemOfNode(const PLSidebarNode *node);
    void trashItemOfNode(const PLSidebarNode *node);
    void revealNode(const PLSidebarNode *node) const;

    /// The page a command applies to: the row's page in its own section. Null for a row that is no page.
    PLProjectItemPointer targetItemForNode(const PLSidebarNode *node) const;

    /// A title was typed for a page: renames its file, unless the text of the page could not be saved before.
    void endTitleEditing(const PLProjectItemPointer &item, const QString &typedTitle);
    /// Goes on typing in the page, if this is the one that is open.
    void focusTextIfEditing(const PLProjectItemPointer &item) const;

    void showContextMenu(const PLSidebarNode *node, const QPoint &globalPosition);

Q_SIGNALS:
    /// The page that is open has got another title.
    void currentItemRenamed();

private:
    bool confirmTrash(const PLProjectItem &item) const;
    void finishRename(const PLProjectItemPointer &item);

    Parts m_parts;
};
