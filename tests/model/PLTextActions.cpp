// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a writer does in the text of a page.

#include "editor/PLFormatCommands.h"
#include "model/PLWriter.h"
#include "model/PLWriterActions.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QTest>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

const QStringList writtenTexts = {u"a"_s,   u"Elle part. "_s, u"**"_s,      u"- "_s,
                                  u"---"_s, u"> "_s,          u"tags: x"_s, u"mot mot "_s};
const QStringList composedTexts = {u"é"_s,       u"\u00A0!"_s, u"œ\u202F;"_s,     u"\U0001F600"_s,
                                   u"e\u0301"_s, u"\u2028"_s,  u"\uFDD0\uFEFF"_s, u"l’été"_s};
const QStringList pastedTexts = {u"un\ndeux\n\n"_s, u"\r\nfin\r\n"_s, u"---\ntags: a\n---\n"_s,
                                 u"\u2029\u00A0x\ty\r"_s, QString(3000, u'z')};
constexpr PLCommand formatCommands[] = {
    PLCommand::FormatBold,         PLCommand::FormatItalic,    PLCommand::FormatStrikethrough,
    PLCommand::FormatHeading,      PLCommand::FormatQuote,     PLCommand::FormatBulletList,
    PLCommand::FormatNumberedList, PLCommand::FormatSeparator, PLCommand::FormatLink};

void write(PLWriter &writer, quint32 which, quint32)
{
    PLWriterDesk &desk = writer.desk();
    for (const QChar letter : PLPick(writtenTexts, which)) {
        const PLTextRange selection = desk.textView()->selectedRange();
        QTest::keyClick(desk.textView(), letter.toLatin1());
        desk.expectInserted(selection, letter);
    }
}

void pressReturn(PLWriter &writer, quint32, quint32)
{
    PLWriterDesk &desk = writer.desk();
    const PLTextRange selection = desk.textView()->selectedRange();
    QTest::keyClick(desk.textView(), Qt::Key_Return);
    desk.expectInserted(selection, u"\n"_s);
}

void compose(PLWriter &writer, quint32 which, quint32)
{
    PLWriterDesk &desk = writer.desk();
    const PLTextRange selection = desk.textView()->selectedRange();
    QInputMethodEvent event;
    event.setCommitString(PLPick(composedTexts, which));
    QCoreApplication::sendEvent(desk.textView(), &event);
    desk.expectInserted(selection, PLPick(composedTexts, which));
}

void paste(PLWriter &writer, quint32 which, quint32)
{
    PLWriterDesk &desk = writer.desk();
    QString text = PLPick(pastedTexts, which);
    QGuiApplication::clipboard()->setText(text);
    const PLTextRange selection = desk.textView()->selectedRange();
    desk.textView()->performCommand(PLCommand::Paste, 0);
    desk.expectInserted(selection, text.replace(u"\r\n"_s, u"\n"_s));
}

void cut(PLWriter &writer, quint32, quint32)
{
    PLWriterDesk &desk = writer.desk();
    const PLTextRange selection = desk.textView()->selectedRange();
    const QString text = desk.model.page.text.mid(selection.position, selection.length);
    desk.textView()->performCommand(PLCommand::Cut, 0);
    desk.expectInserted(selection, QString());
    if (!text.isEmpty() && QGuiApplication::clipboard()->text() != text)
        desk.fail(u"the clipboard does not hold what was cut"_s);
}

void select(PLWriter &writer, quint32 from, quint32 length)
{
    const QString &text = writer.desk().model.page.text;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    const auto snapped = [&finder](qsizetype position) {
        finder.setPosition(position);
        return int(finder.isAtBoundary() ? position : qMax(qsizetype(0), finder.toPreviousBoundary()));
    };
    QTextCursor cursor = writer.desk().textView()->textCursor();
    const qsizetype start = from % (text.size() + 1);
    cursor.setPosition(snapped(start));
    cursor.setPosition(snapped(qMin(start + length % 40, text.size())), QTextCursor::KeepAnchor);
    writer.desk().textView()->setTextCursor(cursor);
}

void moveToEnd(PLWriter &writer, quint32, quint32)
{
    writer.desk().textView()->moveCursor(QTextCursor::End);
}

/// The selection goes, or one character beside the caret.
void erase(PLWriter &writer, quint32 forwards, quint32)
{
    PLWriterDesk &desk = writer.desk();
    const PLTextRange selection = desk.textView()->selectedRange();
    const QString before = desk.model.page.text;
    QTest::keyClick(desk.textView(), forwards % 2 ? Qt::Key_Delete : Qt::Key_Backspace);
    if (selection.length > 0)
        return desk.expectInserted(selection, QString());
    const QString after = desk.editor()->text();
    const qsizetype gone = before.size() - after.size();
    const qsizetype place = forwards % 2 ? selection.position : selection.position - gone;
    QString expected = before;
    if (gone < 0 || gone > 12 || place < 0 || expected.remove(place, gone) != after)
        desk.fail(u"more than the character beside the caret was erased"_s);
    desk.model.textBecame(after);
}

/// Undo and redo lead to texts that were there.
void stepBack(PLWriter &writer, quint32 steps, quint32 isRedo)
{
    PLWriterDesk &desk = writer.desk();
    for (quint32 step = 0; step <= steps % 4; ++step) {
        isRedo % 3 ? desk.textView()->undo() : desk.textView()->redo();
        const QString text = desk.editor()->text();
        if (!desk.model.texts.contains(text))
            desk.fail(u"undo or redo leads to a text that never was"_s);
        desk.expectText(text);
    }
}

/// As the pure function says; undone, the text and the selection are back.
void format(PLWriter &writer, quint32 which, quint32 level)
{
    PLWriterDesk &desk = writer.desk();
    const PLCommand command = PLPick(formatCommands, which);
    const PLTextRange selection = desk.textView()->selectedRange();
    const QString before = desk.model.page.text;
    const auto edit = PLEditForFormatCommand(before, selection, command, int(level % 4));
    desk.editor()->performCommand(command, int(level % 4));
    if (!edit)
        return;
    QString after = before;
    desk.model.textBecame(after.replace(edit->range.position, edit->range.length, edit->string));
    if (after == before || desk.editor()->text() != after)
        return; // checked when the step is over
    desk.textView()->undo();
    if (desk.editor()->text() != before || desk.textView()->selectedRange() != selection)
        desk.fail(u"a formatting command is not undone with its selection"_s);
    desk.textView()->redo();
}

constexpr auto page = PLWriterAction::Needs::Page;
constexpr PLWriterAction actions[] = {
    {"write", 20, page, write},
    {"press Return", 6, page, pressReturn},
    {"compose", 6, page, compose},
    {"paste", 4, page, paste},
    {"cut", 2, page, cut},
    {"select", 12, page, select},
    {"move to the end", 3, page, moveToEnd},
    {"erase", 10, page, erase},
    {"undo or redo", 10, page, stepBack},
    {"format", 10, page, format},
};

} // namespace

std::span<const PLWriterAction> PLTextActions()
{
    return actions;
}
