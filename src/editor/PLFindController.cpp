// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFindController.h"

#include "editor/PLPageTextView.h"

#include <QApplication>
#include <QToolTip>

PLFindController::PLFindController(PLPageTextView *view)
    : QObject(view), m_view(view), m_target(view), m_search(&m_target)
{
}

PLFindController::~PLFindController()
{
    delete m_panel; // it works on our text
}

std::optional<PLCommandState> PLFindController::stateOfCommand(PLCommand command, int tag) const
{
    if (command != PLCommand::PerformFindPanelAction)
        return std::nullopt;
    return PLCommandState{tag != UseSelection || m_view->textCursor().hasSelection()};
}

void PLFindController::performCommand(PLCommand, int tag)
{
    switch (tag) {
    case ShowFindPanel:
        return showPanel(false);
    case ShowReplacePanel:
        return showPanel(true);
    case FindNext:
        return selectMatch(true);
    case FindPrevious:
        return selectMatch(false);
    case UseSelection:
        m_search.useSelection();
        if (m_panel && m_panel->isVisible())
            m_panel->takeTerms();
        return;
    default:
        return;
    }
}

void PLFindController::showPanel(bool replaces)
{
    if (!m_panel) {
        m_panel = new PLFindPanel(&m_target, m_view);
        connect(m_view, &QTextEdit::textChanged, m_panel, &PLFindPanel::textDidChange);
    }
    m_panel->showFind(replaces);
}

/// With nothing to look for yet, the writer is asked for it.
void PLFindController::selectMatch(bool forwards)
{
    if (PLFindTerms::shared().needle.isEmpty())
        return showPanel(false);
    if (m_panel && m_panel->isVisible())
        return forwards ? m_panel->findNext() : m_panel->findPrevious();
    tellInPlace(forwards ? m_search.selectNext() : m_search.selectPrevious());
}

/// Without a panel to say it in, what a writer must know is said at the caret.
void PLFindController::tellInPlace(const PLFindSearch::Place &place)
{
    if (place.count == 0)
        QApplication::beep();
    if (place.count > 0 && place.wrap == PLFindSearch::Place::Wrap::None)
        return;
    const QPoint corner = m_view->viewport()->mapToGlobal(m_view->cursorRect().bottomLeft());
    QToolTip::showText(corner, PLFindPanel::describe(place), m_view);
}
