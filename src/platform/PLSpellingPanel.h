// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLSpellChecker.h"
#include "platform/PLTextPanel.h"

class QHBoxLayout;
class QLineEdit;
class QListWidget;

/// The panel that goes through the unknown words of a text, one after another.
class PLSpellingPanel final : public PLTextPanel
{
    Q_OBJECT

public:
    PLSpellingPanel(PLTextTarget *target, std::shared_ptr<PLSpellChecker> checker, QWidget *view);

    /// Opens the panel on the unknown word at the caret, or else on the next one.
    void showGuesses();
    /// Selects the next unknown word behind the caret, from the start again at the end of the text. If there
    /// is none, or no dictionary, the panel opens and says so; else it stays open or closed.
    void checkNext();

protected:
    void performDefault(bool withShift) override;
    QWidget *firstField() const override;

private:
    void layOut();
    QHBoxLayout *makeButtons();
    QPushButton *makeButton(const QString &title, void (PLSpellingPanel::*action)());
    bool tellMissingDictionary();
    bool selectNext(const QString &text, int from);
    void showWord(const QString &text, const PLTextRange &range);
    void showSuggestions();
    void showNothing(const QString &status);
    bool isUpToDate() const;
    void change();
    void findNext();
    void ignoreWord();
    void learnWord();
    void goOn();

    std::shared_ptr<PLSpellChecker> m_checker;
    QString m_word;
    PLTextRange m_range;
    QLineEdit *m_wordField;
    QLineEdit *m_replacementField;
    QListWidget *m_suggestionList;
    QLabel *m_status;
    QList<QPushButton *> m_buttons;
};
