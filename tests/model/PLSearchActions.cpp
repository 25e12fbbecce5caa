// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// How a writer finds and replaces.

#include "editor/PLFindController.h"
#include "model/PLWriter.h"
#include "model/PLWriterActions.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList needles = {u"mot"_s,     u"MOT"_s, u"a"_s,    u"e"_s,           u"É"_s,
                             u"l'"_s,      u"l’"_s,  u"**"_s,   u"z"_s,           u"\u00A0"_s,
                             u"e\u0301"_s, u"- "_s,  QString(), u"introuvable"_s, u"\U0001F600"_s};
const QStringList replacements = {QString(), u"deux"_s, u"mot"_s, u"mots d’été\u00A0!"_s, u"a"_s};
constexpr int longestProposal = 100;

PLFindPanel *panelOf(const PLWriterDesk &desk)
{
    return desk.textView()->findChild<PLFindPanel *>();
}

void fill(QLineEdit *field, const QString &text)
{
    field->selectAll();
    text.isEmpty() ? field->del() : field->insert(text);
}

/// The panel takes the focus, as any other window does: the page is saved. A selection within a paragraph is
/// what a panel that opens proposes.
void openPanel(PLWriter &writer, bool replaces)
{
    PLWriterDesk &desk = writer.desk();
    const bool isOpen = panelOf(desk) && panelOf(desk)->isVisible();
    const PLTextRange range = desk.textView()->selectedRange();
    const QString selected = desk.model.page.text.mid(range.position, range.length);
    if (!isOpen && !selected.isEmpty() && selected.size() <= longestProposal && !selected.contains(u'\n'))
        writer.search.needle = selected;
    desk.perform(PLCommand::PerformFindPanelAction,
                 replaces ? PLFindController::ShowReplacePanel : PLFindController::ShowFindPanel);
    writer.settle();
    desk.expectSaved();
}

void fillPanel(PLWriter &writer, quint32 what, quint32 how)
{
    const auto fields = panelOf(writer.desk())->findChildren<QLineEdit *>();
    const auto boxes = panelOf(writer.desk())->findChildren<QCheckBox *>();
    writer.search.needle = PLPick(needles, what);
    writer.search.replacement = PLPick(replacements, what / 32);
    fill(fields[0], writer.search.needle);
    fill(fields[1], writer.search.replacement);
    for (QCheckBox *box : {boxes[0], boxes[1]}) {
        if (how & (box == boxes[0] ? 1 : 2))
            box->click();
    }
    writer.search.ignoresCase = boxes[0]->isChecked();
    writer.search.wholeWords = boxes[1]->isChecked();
}

void press(const PLWriterDesk &desk, const QString &title)
{
    const auto buttons = panelOf(desk)->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text() == title)
            return button->click();
    }
    qFatal("the find panel has no button \"%s\"", qPrintable(title));
}

void expectFound(PLWriterDesk &desk, const std::optional<PLTextRange> &match, const PLTextRange &before)
{
    const PLTextRange selection = desk.textView()->selectedRange();
    if (selection != match.value_or(before))
        desk.fail(u"found at %1, length %2"_s.arg(selection.position).arg(selection.length));
}

void findNext(PLWriter &writer)
{
    PLWriterDesk &desk = writer.desk();
    const PLTextRange before = desk.textView()->selectedRange();
    const auto match = writer.search.next(desk.model.page.text, before);
    press(desk, u"Suivant"_s);
    expectFound(desk, match, before);
}

void findPrevious(PLWriter &writer)
{
    PLWriterDesk &desk = writer.desk();
    const PLTextRange before = desk.textView()->selectedRange();
    const auto match = writer.search.previous(desk.model.page.text, before);
    press(desk, u"Précédent"_s);
    expectFound(desk, match, before);
}

/// A selection that is a match is replaced and the caret set behind; without, or if it goes on, the next
/// match is found.
void replace(PLWriter &writer, bool goesOn)
{
    PLWriterDesk &desk = writer.desk();
    PLTextRange range = desk.textView()->selectedRange();
    const bool isMatch = writer.search.matches(desk.model.page.text).contains(range);
    press(desk, goesOn ? u"Remplacer et rechercher"_s : u"Remplacer"_s);
    if (isMatch) {
        QString text = desk.model.page.text;
        desk.model.textBecame(text.replace(range.position, range.length, writer.search.replacement));
        range = {range.position + writer.search.replacement.size(), 0};
    }
    if (!isMatch || goesOn)
        expectFound(desk, writer.search.next(desk.model.page.text, range), range);
    else
        expectFound(desk, range, range);
}

void replaceMatch(PLWriter &writer)
{
    replace(writer, false);
}

void replaceAndFind(PLWriter &writer)
{
    replace(writer, true);
}

/// One step of undo brings back what was there.
void replaceAll(PLWriter &writer)
{
    PLWriterDesk &desk = writer.desk();
    const QString before = desk.model.page.text;
    const QString after = writer.search.replacedAll(before);
    press(desk, u"Tout remplacer"_s);
    desk.model.textBecame(after);
    if (after == before || desk.editor()->text() != after)
        return; // checked when the step is over
    desk.textView()->undo();
    if (desk.editor()->text() != before)
        desk.fail(u"replacing all is not undone at once"_s);
    desk.textView()->redo();
}

/// The panel is closed by Escape, or stays while the writer writes on.
void leavePanel(PLWriter &writer, bool closes)
{
    if (closes)
        QTest::keyClick(panelOf(writer.desk()), Qt::Key_Escape);
    else
        writer.desk().controller->window()->activateWindow();
    writer.settle();
    writer.desk().becameKey();
}

void usePanel(PLWriter &writer, quint32 what, quint32 how)
{
    constexpr void (*uses[])(PLWriter &) = {findNext, findPrevious, replaceMatch, replaceAndFind, replaceAll};
    openPanel(writer, how % 4 != 0);
    if (how / 4 % 4 != 0)
        fillPanel(writer, what, how / 16);
    if (!writer.search.needle.isEmpty()) {
        for (quint32 time = 0; time <= what / 256 % 3; ++time)
            PLPick(uses, how / 64)(writer);
    }
    leavePanel(writer, how / 1024 % 3 != 0);
}

/// By the menu; with nothing to look for it would open the panel.
void findAgain(PLWriter &writer, quint32 isBackwards, quint32)
{
    PLWriterDesk &desk = writer.desk();
    if (writer.search.needle.isEmpty())
        return;
    const PLTextRange before = desk.textView()->selectedRange();
    const bool isNext = isBackwards % 2 == 0;
    const QString &text = desk.model.page.text;
    const auto match = isNext ? writer.search.next(text, before) : writer.search.previous(text, before);
    desk.perform(PLCommand::PerformFindPanelAction,
                 isNext ? PLFindController::FindNext : PLFindController::FindPrevious);
    expectFound(desk, match, before);
}

void lookForSelection(PLWriter &writer, quint32, quint32)
{
    PLWriterDesk &desk = writer.desk();
    const PLTextRange range = desk.textView()->selectedRange();
    if (range.length > 0)
        writer.search.needle = desk.model.page.text.mid(range.position, range.length);
    desk.perform(PLCommand::PerformFindPanelAction, PLFindController::UseSelection);
}

constexpr auto page = PLWriterAction::Needs::Page;
constexpr PLWriterAction actions[] = {
    {"use the find panel", 8, page, usePanel},
    {"find again", 3, page, findAgain},
    {"look for the selection", 1, page, lookForSelection},
};

} // namespace

std::span<const PLWriterAction> PLSearchActions()
{
    return actions;
}
