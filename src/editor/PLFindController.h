// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPageTextTarget.h"
#include "platform/PLCommand.h"
#include "platform/PLFindPanel.h"

#include <QObject>
#include <QPointer>

/// Carries out the commands of the Find menu on a page.
class PLFindController final : public QObject, public PLCommandHandler
{
    Q_OBJECT

public:
    /// What the tags of PLCommand::PerformFindPanelAction mean.
    enum Action {
        ShowFindPanel = 1,
        FindNext = 2,
        FindPrevious = 3,
        UseSelection = 7,
        ShowReplacePanel = 12
    };

    explicit PLFindController(PLPageTextView *view);
    ~PLFindController() override;

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

    /// Null until it is first asked for.
    PLFindPanel *panel() const { return m_panel; }

private:
    void showPanel(bool replaces);
    void selectMatch(bool forwards);
    void tellInPlace(const PLFindSearch::Place &place);

    PLPageTextView *m_view;
    PLPageTextTarget m_target;
    PLFindSearch m_search;
    QPointer<PLFindPanel> m_panel; ///< floats above the view, and goes with it or with this object
};
