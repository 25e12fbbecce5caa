// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFindPanel.h"

#include "foundation/PLText.h"
#include "i18n/PLDesktopStrings.h"
#include "i18n/PLLocalization.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int refreshDelay = 200; // milliseconds
constexpr int longestProposal = 100;

QString formattedCount(int count)
{
    return QLocale(PLLocalization::localeIdentifier()).toString(count);
}

QString replacedText(int count)
{
    if (count == 0)
        return PLDesktopString(u"Introuvable"_s);
    const QString format = PLLocalization::isPlural(count) ? PLDesktopString(u"%@ occurrences remplacées"_s)
                                                           : PLDesktopString(u"%@ occurrence remplacée"_s);
    return PLFormat(format, {formattedCount(count)});
}

QLabel *makeLabel(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    buddy->setAccessibleName(text);
    return label;
}

} // namespace

PLFindPanel::PLFindPanel(PLFindTarget *target, QWidget *view)
    : PLTextPanel(target, view)
    , m_search(target)
    , m_findField(new QLineEdit)
    , m_replaceField(new QLineEdit)
    , m_ignoreCase(new QCheckBox(PLDesktopString(u"Ignorer la casse"_s)))
    , m_wholeWords(new QCheckBox(PLDesktopString(u"Mots entiers"_s)))
    , m_status(new QLabel)
{
    setWindowTitle(PLLocalizedString(u"Rechercher"_s));
    layOut();
    connectFields();
    m_refreshTimer.setSingleShot(true);
    connect(&m_refreshTimer, &QTimer::timeout, this, &PLFindPanel::refresh);
}

void PLFindPanel::showFind(bool replaces)
{
    const PLTextRange selection = target()->selection();
    if (!isVisible() && selection.length > 0 && selection.length <= longestProposal &&
        !target()->text().mid(selection.position, selection.length).contains(u'\n'))
        m_search.useSelection();
    m_replaceLabel->setVisible(replaces);
    m_replaceField->setVisible(replaces);
    for (QPushButton *button : std::as_const(m_replaceButtons))
        button->setVisible(replaces);
    layout()->activate();
    adjustSize();
    takeTerms();
    present();
    m_findField->selectAll();
}

void PLFindPanel::findNext()
{
    tell(m_search.selectNext());
}

void PLFindPanel::findPrevious()
{
    tell(m_search.selectPrevious());
}

void PLFindPanel::textDidChange()
{
    if (isVisible())
        m_refreshTimer.start(refreshDelay);
}

QString PLFindPanel::describe(const PLFindSearch::Place &place)
{
    if (PLFindTerms::shared().needle.isEmpty())
        return QString();
    if (place.count == 0)
        return PLDesktopString(u"Introuvable"_s);
    const QString count = formattedCount(place.count);
    if (place.number == 0) {
        const bool isPlural = PLLocalization::isPlural(place.count);
        return PLFormat(PLDesktopString(isPlural ? u"%@ occurrences"_s : u"%@ occurrence"_s), {count});
    }
    const QString position = PLFormat(PLDesktopString(u"%@ sur %@"_s), {formattedCount(place.number), count});
    switch (place.wrap) {
    case PLFindSearch::Place::Wrap::ToStart:
        return PLFormat(PLDesktopString(u"%@ (retour au début)"_s), {position});
    case PLFindSearch::Place::Wrap::ToEnd:
        return PLFormat(PLDesktopString(u"%@ (retour à la fin)"_s), {position});
    default:
        return position;
    }
}

void PLFindPanel::performDefault(bool withShift)
{
    if (withShift)
        findPrevious();
    else
        findNext();
}

QWidget *PLFindPanel::firstField() const
{
    return m_findField;
}

void PLFindPanel::showEvent(QShowEvent *event)
{
    PLTextPanel::showEvent(event);
    refresh();
}

void PLFindPanel::hideEvent(QHideEvent *event)
{
    m_refreshTimer.stop();
    m_search.hideMarks();
    PLTextPanel::hideEvent(event);
}

/// Another window may have looked for something else meanwhile.
void PLFindPanel::changeEvent(QEvent *event)
{
    PLTextPanel::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        takeTerms();
}

void PLFindPanel::layOut()
{
    auto *grid = new QGridLayout(this);
    m_replaceLabel = makeLabel(PLDesktopString(u"Remplacer par :"_s), m_replaceField);
    grid->addWidget(makeLabel(PLDesktopString(u"Rechercher :"_s), m_findField), 0, 0, Qt::AlignRight);
    grid->addWidget(m_findField, 0, 1);
    grid->addWidget(m_replaceLabel, 1, 0, Qt::AlignRight);
    grid->addWidget(m_replaceField, 1, 1);
    auto *options = new QHBoxLayout;
    options->addWidget(m_ignoreCase);
    options->addWidget(m_wholeWords);
    options->addStretch();
    grid->addLayout(options, 2, 1);
    m_findField->setMinimumWidth(320);
    layOutButtons(grid);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
}

void PLFindPanel::layOutButtons(QGridLayout *grid)
{
    m_replaceButtons = {
        makeButton(PLDesktopString(u"Tout remplacer"_s), &PLFindPanel::replaceAll),
        makeButton(PLDesktopString(u"Remplacer"_s), &PLFindPanel::replaceMatch),
        makeButton(PLDesktopString(u"Remplacer et rechercher"_s), &PLFindPanel::replaceAndFind)};
    auto *replaceRow = new QHBoxLayout;
    replaceRow->addStretch();
    for (QPushButton *button : std::as_const(m_replaceButtons))
        replaceRow->addWidget(button);
    auto *findRow = new QHBoxLayout;
    m_status->setTextFormat(Qt::PlainText);
    findRow->addWidget(m_status, 1);
    findRow->addWidget(makeButton(PLLocalizedString(u"Précédent"_s), &PLFindPanel::findPrevious));
    findRow->addWidget(makeButton(PLLocalizedString(u"Suivant"_s), &PLFindPanel::findNext));
    grid->addLayout(replaceRow, 3, 0, 1, 2);
    grid->addLayout(findRow, 4, 0, 1, 2);
}

QPushButton *PLFindPanel::makeButton(const QString &title, void (PLFindPanel::*action)())
{
    auto *button = new QPushButton(title);
    connect(button, &QPushButton::clicked, this, action);
    m_buttons.append(button);
    return button;
}

void PLFindPanel::connectFields()
{
    const auto takeFields = [this] {
        PLFindTerms &terms = PLFindTerms::shared();
        terms.options = {m_ignoreCase->isChecked(), m_wholeWords->isChecked()};
        refresh();
    };
    connect(m_ignoreCase, &QCheckBox::clicked, this, takeFields);
    connect(m_wholeWords, &QCheckBox::clicked, this, takeFields);
    connect(m_replaceField, &QLineEdit::textEdited, this,
            [](const QString &text) { PLFindTerms::shared().replacement = text; });
    connect(m_findField, &QLineEdit::textEdited, this, [this](const QString &text) {
        PLFindTerms::shared().needle = text;
        refresh();
    });
}

void PLFindPanel::replaceMatch()
{
    if (m_search.replace())
        refresh();
    else
        findNext();
}

void PLFindPanel::replaceAndFind()
{
    m_search.replace();
    findNext();
}

void PLFindPanel::replaceAll()
{
    const int count = m_search.replaceAll();
    refresh();
    m_refreshTimer.stop();
    m_status->setText(replacedText(count));
    if (count == 0)
        QApplication::beep();
}

void PLFindPanel::takeTerms()
{
    const PLFindTerms &terms = PLFindTerms::shared();
    if (m_findField->text() != terms.needle)
        m_findField->setText(terms.needle);
    if (m_replaceField->text() != terms.replacement)
        m_replaceField->setText(terms.replacement);
    m_ignoreCase->setChecked(terms.options.ignoresCase);
    m_wholeWords->setChecked(terms.options.wholeWords);
    refresh();
}

void PLFindPanel::refresh()
{
    updateButtons();
    if (isVisible())
        m_status->setText(describe(m_search.showMarks()));
}

void PLFindPanel::updateButtons()
{
    for (QPushButton *button : std::as_const(m_buttons))
        button->setEnabled(!PLFindTerms::shared().needle.isEmpty());
}

void PLFindPanel::tell(const PLFindSearch::Place &place)
{
    if (isVisible())
        m_search.showMarks();
    m_status->setText(describe(place));
    if (place.count == 0)
        QApplication::beep();
}
