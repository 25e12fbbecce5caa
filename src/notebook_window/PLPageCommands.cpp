// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLPageCommands.h"

#include "editor/PLEditorView.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarView.h"
#include "platform/PLAlert.h"
#include "platform/PLReveal.h"
#include "storage/PLProject.h"

#include <QApplication>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

std::optional<PLSection> sectionOfCommand(PLCommand command)
{
    switch (command) {
    case PLCommand::NewChapter:
        return PLSection::Book;
    case PLCommand::NewCharacter:
        return PLSection::Characters;
    case PLCommand::NewPlace:
        return PLSection::Places;
    case PLCommand::NewSheet:
        return PLSection::Sheets;
    case PLCommand::NewNote:
        return PLSection::Notes;
    default:
        return std::nullopt;
    }
}

} // namespace

PLPageCommands::PLPageCommands(const Parts &parts, QObject *parent) : QObject(parent), m_parts(parts) {}

std::optional<PLCommandState> PLPageCommands::stateOfCommand(PLCommand command) const
{
    if (sectionOfCommand(command))
        return PLCommandState{};
    switch (command) {
    case PLCommand::RenameSelectedItem:
    case PLCommand::TrashSelectedItem:
        return PLCommandState{selectedItem() != nullptr};
    case PLCommand::RevealInFinder:
        return PLCommandState{};
    case PLCommand::SaveDocument:
        return PLCommandState{m_parts.session.currentItem() != nullptr};
    default:
        return std::nullopt;
    }
}

void PLPageCommands::performCommand(PLCommand command)
{
    if (const auto section = sectionOfCommand(command))
        return createItemInSection(*section);
    if (command == PLCommand::RenameSelectedItem)
        renameItem(selectedItem());
    else if (command == PLCommand::TrashSelectedItem)
        trashItem(selectedItem());
    else if (command == PLCommand::RevealInFinder)
        revealInFinder(m_parts.sidebar.selectedNode());
    else if (command == PLCommand::SaveDocument)
        m_parts.session.saveDocument();
}

void PLPageCommands::createItemInSection(PLSection section)
{
    m_parts.sidebar.commitTitle();
    m_parts.session.saveCurrentItem();
    PLError error;
    const PLProjectItemPointer item = m_parts.project.createItemInSection(section, QString(), &error);
    if (!item)
        return PLAlert::presentError(error, &m_parts.window);
    m_renamedItem = nullptr; // the sidebar is read again here, and shows the new page
    m_parts.sidebar.reloadSidebarSelectingURL(item->fileURL(), PLSection::None);
    m_parts.sidebar.editTitleOfNode(m_parts.sidebar.selectedNode());
}

void PLPageCommands::renameItem(const PLProjectItemPointer &item)
{
    m_parts.sidebar.commitTitle();
    finishRename();
    if (item)
        m_parts.sidebar.editTitleOfNode(m_parts.sidebar.tree().sectionItemForURL(item->fileURL()));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the caller's may go while a question is asked
void PLPageCommands::trashItem(PLProjectItemPointer item)
{
    if (!item)
        return QApplication::beep();
    if (!confirmTrash(*item))
        return;
    if (item->isSameFileAsItem(m_parts.session.currentItem().get()))
        m_parts.session.closeItem();
    PLError error;
    if (!m_parts.project.trashItem(*item, &error))
        PLAlert::presentError(error, &m_parts.window);
    m_parts.sidebar.reloadSidebarSelectingURL(QUrl(), item->section());
}

void PLPageCommands::revealInFinder(const PLSidebarNode *node) const
{
    PLRevealInFileManager(locationOfNode(node));
}

QUrl PLPageCommands::locationOfNode(const PLSidebarNode *node) const
{
    if (const PLProjectItemPointer item = PLItemOfNode(node))
        return item->fileURL();
    if (node && node->kind() == PLSidebarNode::Kind::Section) {
        const auto &section = static_cast<const PLSidebarSection &>(*node);
        if (!section.isTagSection)
            return m_parts.project.URLForSection(section.section);
    }
    return m_parts.project.folderURL();
}

PLProjectItemPointer PLPageCommands::targetItemForNode(const PLSidebarNode *node) const
{
    const PLProjectItemPointer item = PLItemOfNode(node);
    if (!item || node->kind() == PLSidebarNode::Kind::Page)
        return item;
    const PLSidebarPage *page = m_parts.sidebar.tree().sectionItemForURL(item->fileURL());
    return page ? page->item : item;
}

PLProjectItemPointer PLPageCommands::selectedItem() const
{
    return targetItemForNode(m_parts.sidebar.selectedNode());
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the caller's may go while an alert is shown
void PLPageCommands::endTitleEditing(PLProjectItemPointer item, const QString &typedTitle,
                                     PLPageSession::SaveFailure failure)
{
    const QString title = PLTrimmedSpacesAndNewlines(typedTitle).toString();
    if (title.isEmpty() || title == item->title())
        return goOnInText(item);
    const bool isCurrent = item->isSameFileAsItem(m_parts.session.currentItem().get());
    if (isCurrent && !m_parts.session.saveCurrentItem(failure))
        return;
    PLError error;
    if (!m_parts.project.renameItem(*item, title, &error)) {
        if (failure == PLPageSession::SaveFailure::Tell)
            PLAlert::presentError(error, &m_parts.window);
        return;
    }
    if (isCurrent)
        m_parts.session.setCurrentItem(item);
    Q_EMIT currentItemRenamed();
    m_renamedItem = item;
    QMetaObject::invokeMethod(this, &PLPageCommands::finishRename, Qt::QueuedConnection);
}

/// But not if the writer, who has ended the title by a click, is somewhere else already.
void PLPageCommands::goOnInText(const PLProjectItemPointer &item) const
{
    const QWidget *focus = m_parts.window.focusWidget();
    const QWidget *sidebar = m_parts.sidebar.view();
    if (!focus || focus == sidebar || sidebar->isAncestorOf(focus))
        focusTextIfEditing(item);
}

void PLPageCommands::focusTextIfEditing(const PLProjectItemPointer &item) const
{
    if (item->isSameFileAsItem(m_parts.session.currentItem().get()))
        m_parts.editor.setFocus();
}

void PLPageCommands::showContextMenu(const PLSidebarNode *node, const QPoint &globalPosition)
{
    // The sidebar may be read again while the menu is open, and the row's node be gone.
    const PLProjectItemPointer item = targetItemForNode(node);
    const QUrl location = locationOfNode(node);
    QMenu menu(&m_parts.window);
    menu.addAction(PLLocalizedString(u"Renommer"_s), this, [this, item] { renameItem(item); })
        ->setEnabled(item != nullptr);
    menu.addAction(PLLocalizedString(u"Afficher dans le Finder"_s), this,
                   [location] { PLRevealInFileManager(location); });
    menu.addSeparator();
    menu.addAction(PLLocalizedString(u"Mettre à la corbeille"_s), this, [this, item] { trashItem(item); })
        ->setEnabled(item != nullptr);
    menu.exec(globalPosition);
}

bool PLPageCommands::confirmTrash(const PLProjectItem &item) const
{
    PLAlert alert;
    alert.message = PLFormat(PLLocalizedString(u"Mettre « %@ » à la corbeille ?"_s), {item.title()});
    alert.informativeText = PLLocalizedString(
        u"Le fichier sera déplacé dans la corbeille. Vous pourrez l'y récupérer tant qu'elle n'a pas été vidée."_s);
    alert.buttons = {PLLocalizedString(u"Mettre à la corbeille"_s), PLLocalizedString(u"Annuler"_s)};
    return alert.runModal() == PLAlert::FirstButton;
}

void PLPageCommands::finishRename()
{
    const PLProjectItemPointer item = std::exchange(m_renamedItem, nullptr);
    if (!item)
        return;
    const PLProjectItemPointer selected = selectedItem();
    if (!selected || !item->isSameFileAsItem(selected.get())) {
        const PLProjectItemPointer current = m_parts.session.currentItem();
        return m_parts.sidebar.refreshSidebar(current ? current->fileURL() : QUrl());
    }
    m_parts.sidebar.reloadSidebarSelectingURL(item->fileURL(), PLSection::None);
    goOnInText(item);
}
