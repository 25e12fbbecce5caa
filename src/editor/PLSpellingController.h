// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPageTextTarget.h"
#include "platform/PLCommand.h"
#include "platform/PLSpellChecker.h"
#include "platform/PLSpellingPanel.h"

#include <QObject>
#include <QPointer>

#include <memory>

class PLSpellingMarks;
class QAction;
class QMenu;

/// Carries out the commands of the Spelling menu on a page, and marks its unknown words if the writer wants
/// that.
class PLSpellingController final : public QObject, public PLCommandHandler
{
    Q_OBJECT

public:
    explicit PLSpellingController(PLPageTextView *view,
                                  std::shared_ptr<PLSpellChecker> checker = PLSpellChecker::shared());
    ~PLSpellingController() override;

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

    /// If the word at this position of the page is unknown: puts what it may have been meant to be at the top
    /// of a context menu, with "learn" and "ignore" below. Nothing happens to the menu otherwise.
    void addSuggestions(QMenu *menu, int position);

    PLSpellingMarks *marks() const { return m_marks; }
    /// Null until it is first asked for.
    PLSpellingPanel *panel() const { return m_panel; }

private:
    PLSpellingPanel *ensurePanel();
    void addReplacements(QMenu *menu, QAction *before, const PLTextRange &range, const QString &word);

    PLPageTextView *m_view;
    PLPageTextTarget m_target;
    std::shared_ptr<PLSpellChecker> m_checker;
    PLSpellingMarks *m_marks;
    QPointer<PLSpellingPanel> m_panel; ///< floats above the view, and goes with it or with this object
};
