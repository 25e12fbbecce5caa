// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellingPanel.h"

#include "foundation/PLText.h"
#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

PLSpellingPanel::PLSpellingPanel(PLTextTarget *target, std::shared_ptr<PLSpellChecker> checker, QWidget *view)
    : PLTextPanel(target, view)
    , m_checker(std::move(checker))
    , m_wordField(new QLineEdit)
    , m_replacementField(new QLineEdit)
    , m_suggestionList(new QListWidget)
    , m_status(new QLabel)
{
    setWindowTitle(PLLocalizedString(u"Orthographe"_s));
    layOut();
    connect(m_suggestionList, &QListWidget::currentTextChanged, this, [this](const QString &text) {
        if (!text.isEmpty())
            m_replacementField->setText(text);
    });
    connect(m_suggestionList, &QListWidget::itemDoubleClicked, this, &PLSpellingPanel::change);
    showNothing(QString());
}

void PLSpellingPanel::showGuesses()
{
    if (!tellMissingDictionary()) {
        const QString text = target()->text();
        const int caret = target()->selection().position;
        if (const auto found = m_checker->misspellingAt(text, caret)) {
            target()->select(*found);
            showWord(text, *found);
        } else {
            selectNext(text, caret);
        }
    }
    present();
    showSuggestions();
}

void PLSpellingPanel::checkNext()
{
    if (tellMissingDictionary() || !selectNext(target()->text(), target()->selection().end())) {
        QApplication::beep();
        present(false);
    }
    showSuggestions();
}

void PLSpellingPanel::performDefault(bool)
{
    change();
}

QWidget *PLSpellingPanel::firstField() const
{
    return m_replacementField;
}

void PLSpellingPanel::layOut()
{
    m_wordField->setReadOnly(true);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setWordWrap(true);
    auto *form = new QFormLayout;
    form->addRow(PLDesktopString(u"Mot inconnu :"_s), m_wordField);
    form->addRow(PLDesktopString(u"Remplacer par :"_s), m_replacementField);
    form->addRow(PLDesktopString(u"Suggestions :"_s), m_suggestionList);
    m_wordField->setAccessibleName(PLDesktopString(u"Mot inconnu :"_s));
    m_replacementField->setAccessibleName(PLDesktopString(u"Remplacer par :"_s));
    m_suggestionList->setAccessibleName(PLDesktopString(u"Suggestions :"_s));
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_status);
    layout->addLayout(makeButtons());
    setTabOrder(m_replacementField, m_suggestionList);
    resize(460, 300);
}

QHBoxLayout *PLSpellingPanel::makeButtons()
{
    auto *row = new QHBoxLayout;
    row->addWidget(makeButton(PLDesktopString(u"Apprendre"_s), &PLSpellingPanel::learnWord));
    row->addWidget(makeButton(PLDesktopString(u"Ignorer"_s), &PLSpellingPanel::ignoreWord));
    row->addStretch();
    row->addWidget(makeButton(PLDesktopString(u"Mot suivant"_s), &PLSpellingPanel::findNext));
    row->addWidget(makeButton(PLDesktopString(u"Corriger"_s), &PLSpellingPanel::change));
    return row;
}

QPushButton *PLSpellingPanel::makeButton(const QString &title, void (PLSpellingPanel::*action)())
{
    auto *button = new QPushButton(title);
    connect(button, &QPushButton::clicked, this, action);
    m_buttons.append(button);
    return button;
}

bool PLSpellingPanel::tellMissingDictionary()
{
    if (m_checker->isAvailable())
        return false;
    showNothing(
        PLFormat(PLDesktopString(u"Le dictionnaire de cette langue n'est pas installé. Installez le paquet "
                                 "« %@ », puis rouvrez Aquilane."_s),
                 {m_checker->packageName()}));
    return true;
}

/// Goes on from the start of the text if need be; false if there is no unknown word at all.
bool PLSpellingPanel::selectNext(const QString &text, int from)
{
    std::optional<PLTextRange> found = m_checker->nextMisspelling(text, from);
    const bool wraps = !found;
    if (wraps)
        found = m_checker->nextMisspelling(text, 0);
    if (!found) {
        showNothing(PLDesktopString(u"Aucun mot inconnu."_s));
        return false;
    }
    target()->select(*found);
    showWord(text, *found);
    m_status->setText(wraps ? PLDesktopString(u"La vérification a repris au début du texte."_s) : QString());
    return true;
}

void PLSpellingPanel::showWord(const QString &text, const PLTextRange &range)
{
    m_range = range;
    m_word = text.mid(range.position, range.length);
    m_wordField->setText(m_word);
    m_status->clear();
    for (QPushButton *button : std::as_const(m_buttons))
        button->setEnabled(true);
}

/// Suggestions take a while, so they are looked for only if somebody sees them.
void PLSpellingPanel::showSuggestions()
{
    if (!isVisible())
        return;
    m_suggestionList->clear();
    m_replacementField->setText(m_word);
    m_suggestionList->addItems(m_checker->suggestions(m_word));
    m_suggestionList->setCurrentRow(0);
    m_replacementField->selectAll();
}

void PLSpellingPanel::showNothing(const QString &status)
{
    m_range = {};
    m_word.clear();
    m_wordField->clear();
    m_replacementField->clear();
    m_suggestionList->clear();
    m_status->setText(status);
    for (QPushButton *button : std::as_const(m_buttons))
        button->setEnabled(false);
}

/// The writer may have changed the text while the panel was open.
bool PLSpellingPanel::isUpToDate() const
{
    return !m_word.isEmpty() && target()->text().mid(m_range.position, m_range.length) == m_word;
}

void PLSpellingPanel::change()
{
    if (isUpToDate() && !m_replacementField->text().isEmpty())
        target()->replace(m_range, m_replacementField->text());
    goOn();
}

void PLSpellingPanel::findNext()
{
    goOn();
}

void PLSpellingPanel::ignoreWord()
{
    m_checker->ignore(m_word);
    goOn();
}

void PLSpellingPanel::learnWord()
{
    m_checker->learn(m_word);
    goOn();
}

void PLSpellingPanel::goOn()
{
    if (!tellMissingDictionary())
        selectNext(target()->text(), target()->selection().end());
    showSuggestions();
}
