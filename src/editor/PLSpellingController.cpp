// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLSpellingController.h"

#include "editor/PLPageTextView.h"
#include "editor/PLSpellingMarks.h"
#include "i18n/PLDesktopStrings.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostSuggestions = 6;

QAction *insertAction(QMenu *menu, QAction *before, const QString &text)
{
    auto *action = new QAction(QString(text).replace(u'&', u"&&"_s), menu);
    menu->insertAction(before, action);
    return action;
}

} // namespace

PLSpellingController::PLSpellingController(PLPageTextView *view, std::shared_ptr<PLSpellChecker> checker)
    : QObject(view)
    , m_view(view)
    , m_target(view)
    , m_checker(std::move(checker))
    , m_marks(new PLSpellingMarks(view, m_checker))
{
    connect(m_checker.get(), &PLSpellChecker::continuousDidChange, m_marks, &PLSpellingMarks::setEnabled);
    m_marks->setEnabled(m_checker->isContinuous());
}

PLSpellingController::~PLSpellingController()
{
    delete m_panel; // it works on our text
}

std::optional<PLCommandState> PLSpellingController::stateOfCommand(PLCommand command, int) const
{
    switch (command) {
    case PLCommand::ShowGuessPanel:
    case PLCommand::CheckSpelling:
        return PLCommandState{};
    case PLCommand::ToggleContinuousSpellChecking:
        return PLCommandState{true, m_checker->isContinuous()};
    default:
        return std::nullopt;
    }
}

void PLSpellingController::performCommand(PLCommand command, int)
{
    switch (command) {
    case PLCommand::ShowGuessPanel:
        return ensurePanel()->showGuesses();
    case PLCommand::CheckSpelling:
        return ensurePanel()->checkNext();
    case PLCommand::ToggleContinuousSpellChecking:
        m_checker->setContinuous(!m_checker->isContinuous());
        if (m_checker->isContinuous() && !m_checker->isAvailable())
            ensurePanel()->showGuesses(); // which says why nothing will be marked
        return;
    default:
        return;
    }
}

void PLSpellingController::addSuggestions(QMenu *menu, int position)
{
    const QString text = m_target.text();
    const std::optional<PLTextRange> range = m_checker->misspellingAt(text, position);
    if (!range)
        return;
    const QString word = text.mid(range->position, range->length);
    QAction *before = menu->actions().value(0);
    addReplacements(menu, before, *range, word);
    menu->insertSeparator(before);
    const auto *ignore = insertAction(menu, before, PLDesktopString(u"Ignorer"_s));
    connect(ignore, &QAction::triggered, this, [this, word] { m_checker->ignore(word); });
    const auto *learn = insertAction(menu, before, PLDesktopString(u"Apprendre"_s));
    connect(learn, &QAction::triggered, this, [this, word] { m_checker->learn(word); });
    menu->insertSeparator(before);
}

PLSpellingPanel *PLSpellingController::ensurePanel()
{
    if (!m_panel)
        m_panel = new PLSpellingPanel(&m_target, m_checker, m_view);
    return m_panel;
}

void PLSpellingController::addReplacements(QMenu *menu, QAction *before, const PLTextRange &range,
                                           const QString &word)
{
    const QStringList suggestions = m_checker->suggestions(word).mid(0, mostSuggestions);
    for (const QString &suggestion : suggestions) {
        const auto *action = insertAction(menu, before, suggestion);
        connect(action, &QAction::triggered, this, [this, range, word, suggestion] {
            if (m_target.text().mid(range.position, range.length) == word)
                m_target.replace(range, suggestion);
        });
    }
    if (suggestions.isEmpty())
        insertAction(menu, before, PLDesktopString(u"Aucune suggestion"_s))->setEnabled(false);
}
