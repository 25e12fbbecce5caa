// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLEditorView.h"

#include "editor/PLFindController.h"
#include "editor/PLFormatBarView.h"
#include "editor/PLFormatCommands.h"
#include "editor/PLLivePreview.h"
#include "editor/PLPageTextView.h"
#include "editor/PLSpellingController.h"
#include "editor/PLTagBarView.h"
#include "editor/PLTagField.h"
#include "foundation/PLPreferences.h"
#include "foundation/PLText.h"
#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"
#include "markdown/PLMarkdown.h"
#include "theme/PLTheme.h"

#include <QLocale>
#include <QMenu>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestPaneWidth = 240;
const QString previewVisibleKey = u"PLPreviewVisible"_s;

} // namespace

PLEditorView::PLEditorView(QWidget *parent)
    : QWidget(parent)
    , m_formatBar(new PLFormatBarView)
    , m_tagBar(new PLTagBarView)
    , m_textView(new PLPageTextView)
    , m_findController(std::make_unique<PLFindController>(m_textView))
    , m_spellingController(std::make_unique<PLSpellingController>(m_textView))
    , m_livePreview(new PLLivePreview(*m_textView))
    , m_splitView(new QSplitter(Qt::Horizontal))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_formatBar);
    layout->addWidget(m_tagBar);
    layout->addWidget(buildPanes(), 1);
    setFocusProxy(m_textView);
    setTabOrder(m_tagBar->tagField(), m_textView);
    connectParts();
    setPreviewVisible(PLPreferences::store().value(previewVisibleKey, true).toBool());
    updateWordCount();
}

PLEditorView::~PLEditorView() = default;

void PLEditorView::setText(const QString &text, const QUrl &baseURL)
{
    m_textView->setPageText(text);
    m_livePreview->pageDidLoad(baseURL);
    updateWordCount();
}

QString PLEditorView::text() const
{
    return m_textView->pageText();
}

QStringList PLEditorView::tags() const
{
    return m_tagBar->tagField()->tags();
}

void PLEditorView::setTags(const QStringList &tags)
{
    m_tagBar->tagField()->setTags(tags);
}

PLTagField *PLEditorView::tagField() const
{
    return m_tagBar->tagField();
}

void PLEditorView::setPreviewVisible(bool visible)
{
    m_isPreviewVisible = visible;
    if (visible)
        m_livePreview->prepareWindow();
    m_livePreview->setVisible(visible);
    m_splitView->refresh(); // a pane just shown has its divider only then
    m_formatBar->setPreviewOn(visible);
    if (visible)
        divideInHalf();
    PLPreferences::store().setValue(previewVisibleKey, visible);
}

std::optional<PLCommandState> PLEditorView::stateOfCommand(PLCommand command, int tag) const
{
    if (const PLCommandHandler *handler = handlerOf(command, tag)) {
        const PLCommandState state = *handler->stateOfCommand(command, tag);
        return PLCommandState{state.enabled && !isHidden(), state.checked};
    }
    if (command == PLCommand::TogglePreview)
        return PLCommandState{!isHidden(), m_isPreviewVisible};
    if (PLIsFormatCommand(command))
        return PLCommandState{!isHidden()};
    return std::nullopt;
}

void PLEditorView::performCommand(PLCommand command, int tag)
{
    if (PLCommandHandler *handler = handlerOf(command, tag))
        handler->performCommand(command, tag);
    else if (command == PLCommand::TogglePreview)
        togglePreview();
    else
        PLPerformFormatCommand(*m_textView, command, tag);
}

PLCommandHandler *PLEditorView::handlerOf(PLCommand command, int tag) const
{
    if (m_findController->stateOfCommand(command, tag))
        return m_findController.get();
    if (m_spellingController->stateOfCommand(command, tag))
        return m_spellingController.get();
    return nullptr;
}

QWidget *PLEditorView::buildPanes()
{
    m_splitView->setHandleWidth(1);
    m_splitView->setChildrenCollapsible(false);
    m_textView->setAccessibleName(PLDesktopString(u"Texte de la page"_s));
    m_livePreview->setAccessibleName(PLLocalizedString(u"Aperçu"_s));
    m_splitView->addWidget(m_textView);
    m_splitView->addWidget(m_livePreview);
    showDivider();
    connect(m_splitView, &QSplitter::splitterMoved, this, &PLEditorView::constrainDivider);
    return m_splitView;
}

/// A line between two panes of the same paper; many desktops draw none.
void PLEditorView::showDivider()
{
    QWidget *divider = m_splitView->handle(1);
    QPalette colors = divider->palette();
    colors.setColor(QPalette::Window, PLTheme::shadowed(PLTheme::coverColor(), 0.1));
    divider->setPalette(colors);
    divider->setAutoFillBackground(true);
}

void PLEditorView::connectParts()
{
    connect(m_textView, &PLPageTextView::textDidChange, m_livePreview, &PLLivePreview::textDidChange);
    connect(m_textView, &PLPageTextView::contextMenuWillOpen, m_spellingController.get(),
            &PLSpellingController::addSuggestions);
    connect(m_livePreview, &PLLivePreview::previewTimerFired, this, &PLEditorView::updateWordCount);
    connect(m_formatBar, &PLFormatBarView::commandTriggered, this, &PLEditorView::performCommand);
}

void PLEditorView::updateWordCount()
{
    const qsizetype count = PLMarkdown::wordCountOfMarkdown(text());
    const QString number = QLocale(PLLocalization::localeIdentifier()).toString(count);
    const QString unit = PLLocalizedString(PLLocalization::isPlural(count) ? u"mots"_s : u"mot"_s);
    m_formatBar->setWordCountText(PLFormat(u"%@ %@"_s, {number, unit}));
}

void PLEditorView::divideInHalf()
{
    const int width = m_splitView->width();
    m_splitView->setSizes({width / 2, width - width / 2 - m_splitView->handleWidth()});
}

/// The limits hold for the writer's hand: a window that is made narrow may squeeze the panes further.
void PLEditorView::constrainDivider()
{
    const int width = m_splitView->width();
    const int position =
        qMax(smallestPaneWidth, qMin(m_splitView->sizes().constFirst(), width - smallestPaneWidth));
    if (position != m_splitView->sizes().constFirst())
        m_splitView->setSizes({position, width - position - m_splitView->handleWidth()});
}
