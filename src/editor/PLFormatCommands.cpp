// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFormatCommands.h"

#include "editor/PLFormatting.h"
#include "editor/PLPageTextView.h"
#include "foundation/PLText.h"

#include <QApplication>
#include <QInputMethod>

namespace {

/// Assistive software can put a caret between the two halves of a character, which a marker there would
/// destroy.
PLTextRange withWholePairs(const QString &text, PLTextRange range)
{
    const qsizetype start = range.position - (PLSplitsPair(text, range.position) ? 1 : 0);
    if (range.length == 0)
        return {start, 0};
    const qsizetype end = range.end() + (PLSplitsPair(text, range.end()) ? 1 : 0);
    return {start, end - start};
}

} // namespace

bool PLIsFormatCommand(PLCommand command)
{
    return command >= PLCommand::FormatBold && command <= PLCommand::FormatLink;
}

std::optional<PLTextEdit> PLEditForFormatCommand(const QString &text, PLTextRange selection,
                                                 PLCommand command, int tag)
{
    switch (command) {
    case PLCommand::FormatBold:
        return PLFormatting::formatBold(text, selection);
    case PLCommand::FormatItalic:
        return PLFormatting::formatItalic(text, selection);
    case PLCommand::FormatStrikethrough:
        return PLFormatting::formatStrikethrough(text, selection);
    case PLCommand::FormatHeading:
        return PLFormatting::formatHeading(text, selection, tag);
    case PLCommand::FormatQuote:
        return PLFormatting::formatQuote(text, selection);
    case PLCommand::FormatBulletList:
        return PLFormatting::formatBulletList(text, selection);
    case PLCommand::FormatNumberedList:
        return PLFormatting::formatNumberedList(text, selection);
    case PLCommand::FormatSeparator:
        return PLFormatting::formatSeparator(text, selection);
    case PLCommand::FormatLink:
        return PLFormatting::formatLink(text, selection);
    default:
        return std::nullopt;
    }
}

void PLPerformFormatCommand(PLPageTextView &view, PLCommand command, int tag)
{
    QGuiApplication::inputMethod()->commit(); // what is being composed is part of the text from here on
    const QString text = view.pageText();
    const PLTextRange selection = withWholePairs(text, view.selectedRange());
    const auto edit = PLEditForFormatCommand(text, selection, command, tag);
    if (!edit)
        return QApplication::beep();
    view.replaceRange(edit->range, edit->string, edit->selecting);
}
