// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLProjectWindowController.h"

#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "editor/PLTagField.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "notebook_window/PLMakeLabel.h"
#include "notebook_window/PLPageCommands.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLPaperView.h"
#include "notebook_window/PLPlaceholderText.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarView.h"
#include "notebook_window/PLTagCompletion.h"
#include "platform/PLAlert.h"
#include "storage/PLProject.h"
#include "theme/PLTheme.h"

#include <QApplication>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize contentSize(1100, 720);
constexpr QSize smallestSize(780, 440);
constexpr int sidebarWidth = 240;
constexpr int smallestSidebarWidth = 170;
constexpr int largestSidebarWidth = 420;
constexpr int smallestPageWidth = 320;
constexpr int dividerWidth = 1;

/// Looking for words and at their spelling is meant for the page, also from the sidebar.
bool isForPage(PLCommand command)
{
    return command == PLCommand::PerformFindPanelAction || command == PLCommand::ShowGuessPanel ||
           command == PLCommand::CheckSpelling || command == PLCommand::ToggleContinuousSpellChecking;
}

} // namespace

PLProjectWindowController::PLProjectWindowController(std::unique_ptr<PLProject> project)
    : m_project(std::move(project))
    , m_window(std::make_unique<PLWindow>(this))
    , m_sidebar(std::make_unique<PLSidebarController>(*m_project))
{
    buildWindow();
    connectParts();
    selectionChanged(); // nothing yet: what is shown should the first chapter be unreadable
    m_sidebar->selectFirstChapter();
}

PLProjectWindowController::~PLProjectWindowController()
{
    m_window->forgetDelegate();
    // The views go with the window; nothing of theirs may call back into what is being taken down.
    m_editorView->tagField()->setDelegate(nullptr);
    m_pageCommands.reset();
    m_session.reset();
    m_sidebar.reset();
}

void PLProjectWindowController::showWindow()
{
    m_window->makeKeyAndOrderFront();
}

bool PLProjectWindowController::saveCurrentItem()
{
    m_sidebar->commitTitle();
    return m_session->saveCurrentItem();
}

bool PLProjectWindowController::saveCurrentItemQuietly()
{
    const bool isSaved = m_session->saveCurrentItem(PLPageSession::SaveFailure::KeepQuiet);
    if (const auto [item, title] = m_sidebar->takeTitle(); item)
        m_pageCommands->endTitleEditing(item, title, PLPageSession::SaveFailure::KeepQuiet);
    return isSaved;
}

void PLProjectWindowController::refreshSidebar()
{
    const PLProjectItemPointer &current = m_session->currentItem();
    m_sidebar->refreshSidebar(current ? current->fileURL() : QUrl());
}

bool PLProjectWindowController::windowShouldClose()
{
    if (saveCurrentItem())
        return true;
    PLAlert alert;
    alert.message = PLLocalizedString(u"Fermer sans enregistrer ?"_s);
    alert.informativeText =
        PLLocalizedString(u"Les dernières modifications de cette page n'ont pas pu être enregistrées."_s);
    alert.buttons = {PLLocalizedString(u"Ne pas fermer"_s), PLLocalizedString(u"Fermer quand même"_s)};
    alert.escapeButton = PLAlert::FirstButton;
    return alert.runModal() == PLAlert::SecondButton;
}

void PLProjectWindowController::windowWillClose()
{
    m_session->closeItem();
    Q_EMIT PLProjectWindowWillCloseNotification(this);
}

void PLProjectWindowController::windowDidBecomeKey()
{
    // A page that is still dirty could not be saved. Its folder may be gone, and a list without the page
    // would close it, and its text with it.
    if (m_session->isDirty() || m_sidebar->isEditingName() || m_sidebar->tree().isEmpty())
        return;
    m_session->followDisk();
    refreshSidebar();
}

void PLProjectWindowController::windowDidResignKey()
{
    // An alert of our own takes the focus, perhaps about this very page: it must not lead to another one.
    if (!QApplication::activeModalWidget())
        m_session->saveCurrentItem();
}

std::optional<PLCommandState> PLProjectWindowController::stateOfCommand(PLCommand command, int tag) const
{
    if (command == PLCommand::TogglePreview)
        return PLCommandState{true, m_editorView->isPreviewVisible()};
    return isForPage(command) ? m_editorView->stateOfCommand(command, tag)
                              : m_pageCommands->stateOfCommand(command);
}

void PLProjectWindowController::performCommand(PLCommand command, int tag)
{
    if (command == PLCommand::TogglePreview || isForPage(command))
        m_editorView->performCommand(command, tag);
    else
        m_pageCommands->performCommand(command);
}

void PLProjectWindowController::buildWindow()
{
    m_window->setController(this);
    m_window->setMinimumSize(smallestSize);
    m_window->resize(contentSize);
    m_splitView = new QSplitter(Qt::Horizontal);
    m_splitView->setHandleWidth(dividerWidth);
    m_splitView->setChildrenCollapsible(false);
    m_splitView->addWidget(buildSidebar());
    m_splitView->addWidget(buildEditor());
    m_splitView->setStretchFactor(0, 0);
    m_splitView->setStretchFactor(1, 1);
    m_splitView->setSizes({sidebarWidth, contentSize.width() - sidebarWidth - dividerWidth});
    m_window->setCentralWidget(m_splitView);

    const QString folder = m_project->folderURL().toLocalFile();
    m_window->setWindowFilePath(folder);
    m_window->center();
    m_window->setFrameAutosaveName(u"PLProject "_s + folder);
}

QWidget *PLProjectWindowController::buildSidebar()
{
    PLSidebarView *view = m_sidebar->view();
    view->setMinimumWidth(smallestSidebarWidth);
    view->setMaximumWidth(largestSidebarWidth);
    return view;
}

QWidget *PLProjectWindowController::buildEditor()
{
    m_paperView = new PLPaperView;
    m_paperView->setMinimumWidth(smallestPageWidth);
    m_editorView = new PLEditorView;
    m_placeholderLabel = PLMakeLabel(PLTheme::sidebarFont(), PLTheme::faintInkColor());
    m_placeholderLabel->setAlignment(Qt::AlignCenter);
    m_placeholderLabel->setWordWrap(true);
    m_placeholderLabel->setContentsMargins(20, 0, 20, 0);
    auto *layout = new QVBoxLayout(m_paperView);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_editorView);
    layout->addWidget(m_placeholderLabel);
    return m_paperView;
}

void PLProjectWindowController::connectParts()
{
    m_session = std::make_unique<PLPageSession>(*m_editorView);
    m_pageCommands = std::make_unique<PLPageCommands>(
        PLPageCommands::Parts{*m_project, *m_sidebar, *m_session, *m_editorView, *m_window});
    connect(m_session.get(), &PLPageSession::dirtyChanged, m_window.get(), &QWidget::setWindowModified);
    // Not now, the page is being saved; and without a word, the writer may be typing.
    connect(m_session.get(), &PLPageSession::outsideTextKept, this,
            &PLProjectWindowController::refreshWhenNoTitleIsTyped, Qt::QueuedConnection);
    connect(m_pageCommands.get(), &PLPageCommands::currentItemRenamed, this,
            &PLProjectWindowController::updateWindowTitle);
    connectSidebar();
    connectTagField();
    auto *paneKey = new QShortcut(QKeySequence(Qt::Key_F6), m_window.get());
    connect(paneKey, &QShortcut::activated, this, &PLProjectWindowController::switchPane);
}

void PLProjectWindowController::connectSidebar()
{
    PLSidebarController *sidebar = m_sidebar.get();
    PLSidebarView *view = sidebar->view();
    PLPageCommands *commands = m_pageCommands.get();
    connect(sidebar, &PLSidebarController::selectionChanged, this,
            &PLProjectWindowController::selectionChanged);
    connect(sidebar, &PLSidebarController::titleTyped, commands,
            [=](const PLProjectItemPointer &item, const QString &title) {
                commands->endTitleEditing(item, title);
            });
    connect(sidebar, &PLSidebarController::nameEditingEnded, this, [this] {
        if (m_refreshIsDue)
            refreshWhenNoTitleIsTyped();
    });
    connect(view, &PLSidebarView::titleFieldLeft, commands, [=] {
        if (const PLProjectItemPointer item = PLItemOfNode(sidebar->selectedNode()))
            commands->focusTextIfEditing(item);
    });
    connect(view, &PLSidebarView::addRequested, commands, &PLPageCommands::createItemInSection);
    connect(view, &PLSidebarView::renameRequested, commands,
            [=] { commands->performCommand(PLCommand::RenameSelectedItem); });
    connect(view, &PLSidebarView::trashRequested, commands,
            [=] { commands->performCommand(PLCommand::TrashSelectedItem); });
    connect(view, &QTreeView::doubleClicked, commands, [=](const QModelIndex &index) {
        if (const PLProjectItemPointer item = PLItemOfNode(sidebar->nodeForIndex(index)))
            commands->focusTextIfEditing(item);
    });
    connect(view, &PLSidebarView::contextMenuRequested, commands,
            [=](const QModelIndex &index, const QPoint &position) {
                const PLSidebarNode *clicked = sidebar->nodeForIndex(index);
                commands->showContextMenu(clicked ? clicked : sidebar->selectedNode(), position);
            });
}

void PLProjectWindowController::connectTagField()
{
    PLTagField *field = m_editorView->tagField();
    m_tagCompletion = std::make_unique<PLTagCompletion>([this] { return m_sidebar->allTags(); });
    field->setDelegate(m_tagCompletion.get());
    connect(field, &PLTagField::textDidChange, m_session.get(), &PLPageSession::contentDidChange);
    connect(m_tagCompletion.get(), &PLTagCompletion::tagsAdded, m_session.get(), [this] {
        if (m_session->haveTagsChanged()) // told late: they may be saved, and another page open
            m_session->contentDidChange();
    });
    connect(field, &PLTagField::didEndEditing, this, &PLProjectWindowController::tagsDidChange);
}

/// From the text to the sidebar, and from anywhere else to the text.
void PLProjectWindowController::switchPane()
{
    if (m_window->focusWidget() == m_editorView->textView() || m_editorView->isHidden())
        m_sidebar->view()->setFocus();
    else
        m_editorView->textView()->setFocus();
}

void PLProjectWindowController::selectionChanged()
{
    if (const PLProjectItemPointer item = PLItemOfNode(m_sidebar->selectedNode()))
        return openSelectedItem(item);
    m_session->saveCurrentItem();
    m_session->closeItem();
    m_failedURL.clear();
    const PLSidebarNode *node = m_sidebar->selectedNode(); // an alert may have let the list be read again
    if (node && node->kind() == PLSidebarNode::Kind::Tag)
        m_sidebar->expandNode(node);
    m_placeholderLabel->setText(PLPlaceholderText(node));
    showPlaceholder(true);
    updateWindowTitle();
}

void PLProjectWindowController::openSelectedItem(const PLProjectItemPointer &item)
{
    if (item->isSameFileAsItem(m_session->currentItem().get())) {
        m_session->setCurrentItem(item);
        return updateWindowTitle();
    }
    m_session->saveCurrentItem();
    PLError error;
    const bool opened = m_session->openItem(item, &error);
    showPlaceholder(!opened);
    updateWindowTitle();
    const QUrl failed = opened ? QUrl() : item->fileURL();
    const bool isTold = std::exchange(m_failedURL, failed) == failed;
    if (!opened && !isTold)
        PLAlert::presentError(error, m_window.get());
}

void PLProjectWindowController::showPlaceholder(bool visible)
{
    m_editorView->setVisible(!visible);
    m_placeholderLabel->setVisible(visible);
}

void PLProjectWindowController::updateWindowTitle()
{
    const PLProjectItemPointer &item = m_session->currentItem();
    const QString title =
        item ? PLFormat(u"%@ — %@"_s, {m_project->title(), item->title()}) : m_project->title();
    // Qt puts its mark of an edited window where "[*]" stands; one of the writer's own is doubled.
    m_window->setWindowTitle(QString(title).replace(u"[*]"_s, u"[*][*]"_s) + u"[*]"_s);
}

/// The sidebar shows the page's new tags, but only when the event loop has turned: the field is still
/// closing.
void PLProjectWindowController::tagsDidChange()
{
    if (m_session->saveChangedTags())
        QMetaObject::invokeMethod(this, &PLProjectWindowController::refreshWhenNoTitleIsTyped,
                                  Qt::QueuedConnection);
}

void PLProjectWindowController::refreshWhenNoTitleIsTyped()
{
    m_refreshIsDue = m_sidebar->isEditingName();
    if (!m_refreshIsDue)
        refreshSidebar();
}
