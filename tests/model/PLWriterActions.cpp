// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a writer does, and what must come of it.

#include "editor/PLFormatCommands.h"
#include "editor/PLTagField.h"
#include "model/PLWriter.h"

#include <QClipboard>
#include <QDir>
#include <QInputMethodEvent>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

const QStringList writtenTexts = {u"a"_s,   u"Elle part. "_s, u"**"_s,      u"- "_s,
                                  u"---"_s, u"> "_s,          u"tags: x"_s, u"mot mot "_s};
const QStringList composedTexts = {u"é"_s,       u"\u00A0!"_s, u"œ\u202F;"_s,    u"\U0001F600"_s,
                                   u"e\u0301"_s, u"\u2028"_s,  u"\uFDD0\uFEFF"_s};
const QStringList pastedTexts = {u"un\ndeux\n\n"_s, u"\r\nfin\r\n"_s, u"---\ntags: a\n---\n"_s,
                                 u"\u2029\u00A0x\ty\r"_s, QString(3000, u'z')};
const QStringList typedTags = {u"mer"_s, u"MER"_s, u"été"_s, u"Paris"_s, u"a b"_s, u"x:y"_s};
const QStringList typedTitles = {u"Le retour"_s, u"le retour"_s, u"../../x"_s,  u"Où ça ?"_s,   u"a/b"_s,
                                 u" "_s,         u".caché"_s,    u"12 - Fin"_s, u"\U0001F600"_s};
constexpr PLCommand formatCommands[] = {
    PLCommand::FormatBold,         PLCommand::FormatItalic,    PLCommand::FormatStrikethrough,
    PLCommand::FormatHeading,      PLCommand::FormatQuote,     PLCommand::FormatBulletList,
    PLCommand::FormatNumberedList, PLCommand::FormatSeparator, PLCommand::FormatLink};
constexpr PLCommand newPageCommands[] = {PLCommand::NewChapter, PLCommand::NewCharacter, PLCommand::NewPlace,
                                         PLCommand::NewSheet, PLCommand::NewNote};

template <typename List>
decltype(auto) pick(const List &list, quint32 number)
{
    return list[number % std::size(list)];
}

} // namespace

/// Each answers nothing; what is wrong is kept by the writer.
struct PLWriterActions
{
    static bool hasPage(const PLWriter &writer) { return !writer.m_model.current.isNull(); }

    static QString keyAt(const QMap<QString, QByteArray> &map, quint32 number)
    {
        return map.isEmpty() ? QString() : std::next(map.keyBegin(), number % map.size()).operator*();
    }

    /// The text with `inserted` in place of the selection is what the screen must show now.
    static void expectInserted(PLWriter &writer, const PLTextRange &selection, const QString &inserted)
    {
        QString text = writer.m_model.page.text;
        text.replace(selection.position, selection.length, inserted);
        // The same again may count as a change or not.
        if (text == writer.m_model.page.text)
            writer.m_model.dirty = writer.m_window->session().isDirty();
        writer.m_model.textBecame(text);
    }

    static void write(PLWriter &writer, quint32 which, quint32)
    {
        if (!hasPage(writer))
            return;
        for (const QChar letter : pick(writtenTexts, which)) {
            const PLTextRange selection = writer.textView()->selectedRange();
            QTest::keyClick(writer.textView(), letter.toLatin1());
            expectInserted(writer, selection, letter);
        }
    }

    static void pressReturn(PLWriter &writer, quint32, quint32)
    {
        if (!hasPage(writer))
            return;
        const PLTextRange selection = writer.textView()->selectedRange();
        QTest::keyClick(writer.textView(), Qt::Key_Return);
        expectInserted(writer, selection, u"\n"_s);
    }

    static void compose(PLWriter &writer, quint32 which, quint32)
    {
        if (!hasPage(writer))
            return;
        const PLTextRange selection = writer.textView()->selectedRange();
        QInputMethodEvent event;
        event.setCommitString(pick(composedTexts, which));
        QCoreApplication::sendEvent(writer.textView(), &event);
        expectInserted(writer, selection, pick(composedTexts, which));
    }

    static void paste(PLWriter &writer, quint32 which, quint32)
    {
        if (!hasPage(writer))
            return;
        QString text = pick(pastedTexts, which);
        QGuiApplication::clipboard()->setText(text);
        const PLTextRange selection = writer.textView()->selectedRange();
        writer.textView()->performCommand(PLCommand::Paste, 0);
        expectInserted(writer, selection, text.replace(u"\r\n"_s, u"\n"_s));
    }

    static void select(PLWriter &writer, quint32 from, quint32 length)
    {
        if (!hasPage(writer))
            return;
        const QString &text = writer.m_model.page.text;
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
        const auto snapped = [&finder](qsizetype position) {
            finder.setPosition(position);
            return int(finder.isAtBoundary() ? position : qMax(qsizetype(0), finder.toPreviousBoundary()));
        };
        QTextCursor cursor = writer.textView()->textCursor();
        const qsizetype start = from % (text.size() + 1);
        cursor.setPosition(snapped(start));
        cursor.setPosition(snapped(qMin(start + length % 40, text.size())), QTextCursor::KeepAnchor);
        writer.textView()->setTextCursor(cursor);
    }

    static void moveToEnd(PLWriter &writer, quint32, quint32)
    {
        if (hasPage(writer))
            writer.textView()->moveCursor(QTextCursor::End);
    }

    /// The selection goes, or one character beside the caret.
    static void erase(PLWriter &writer, quint32 forwards, quint32)
    {
        if (!hasPage(writer))
            return;
        const PLTextRange selection = writer.textView()->selectedRange();
        const QString before = writer.m_model.page.text;
        QTest::keyClick(writer.textView(), forwards % 2 ? Qt::Key_Delete : Qt::Key_Backspace);
        if (selection.length > 0)
            return expectInserted(writer, selection, QString());
        const QString after = writer.m_window->editor()->text();
        const qsizetype gone = before.size() - after.size();
        const qsizetype place = forwards % 2 ? selection.position : selection.position - gone;
        QString expected = before;
        if (gone < 0 || gone > 12 || place < 0 || expected.remove(place, gone) != after)
            writer.fail(u"more than the character beside the caret was erased"_s);
        writer.m_model.textBecame(after);
    }

    static void cut(PLWriter &writer, quint32, quint32)
    {
        if (!hasPage(writer))
            return;
        const PLTextRange selection = writer.textView()->selectedRange();
        const QString text = writer.m_model.page.text.mid(selection.position, selection.length);
        writer.textView()->performCommand(PLCommand::Cut, 0);
        expectInserted(writer, selection, QString());
        if (!text.isEmpty() && QGuiApplication::clipboard()->text() != text)
            writer.fail(u"the clipboard does not hold what was cut"_s);
    }

    /// Undo and redo lead to texts that were there.
    static void stepBack(PLWriter &writer, quint32 steps, quint32 isRedo)
    {
        if (!hasPage(writer))
            return;
        for (quint32 step = 0; step <= steps % 4; ++step) {
            isRedo % 3 ? writer.textView()->undo() : writer.textView()->redo();
            const QString text = writer.m_window->editor()->text();
            if (!writer.m_model.texts.contains(text))
                writer.fail(u"undo or redo leads to a text that never was"_s);
            writer.m_model.textBecame(text);
        }
    }

    /// As the pure function says; undone, the text and the selection are back.
    static void format(PLWriter &writer, quint32 which, quint32 level)
    {
        if (!hasPage(writer))
            return;
        const PLCommand command = pick(formatCommands, which);
        const PLTextRange selection = writer.textView()->selectedRange();
        const QString before = writer.m_model.page.text;
        const auto edit = PLEditForFormatCommand(before, selection, command, int(level % 4));
        writer.m_window->editor()->performCommand(command, int(level % 4));
        if (!edit)
            return;
        QString after = before;
        writer.m_model.textBecame(after.replace(edit->range.position, edit->range.length, edit->string));
        if (after == before || writer.m_window->editor()->text() != after)
            return; // checked when the step is over
        writer.textView()->undo();
        if (writer.m_window->editor()->text() != before || writer.textView()->selectedRange() != selection)
            writer.fail(u"a formatting command is not undone with its selection"_s);
        writer.textView()->redo();
    }

    /// A tag is typed, and the field left; the notebook's own spelling wins.
    static void tag(PLWriter &writer, quint32 which, quint32)
    {
        if (!hasPage(writer))
            return;
        const QString typed = pick(typedTags, which);
        PLTagField *field = writer.m_window->editor()->tagField();
        QStringList tags = writer.m_model.page.tags;
        tags.append(typed);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_End);
        for (const QChar letter : typed) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
            QCoreApplication::sendEvent(field, &press);
        }
        QTest::keyClick(field, Qt::Key_Return); // makes it a token
        QTest::keyClick(field, Qt::Key_Return); // is done with the field
        writer.textView()->setFocus();
        writer.settle();
        const QStringList shown = writer.m_window->editor()->tags();
        if (PLProjectItem::normalizedTags(shown) != shown || shown.size() > tags.size() ||
            shown.size() + 1 < tags.size())
            writer.fail(u"a tag was typed, and there are now "_s + shown.join(u", "_s));
        const bool isChanged = shown != writer.m_model.page.tags;
        writer.m_model.page.tags = shown;
        writer.m_model.dirty = true;
        if (isChanged)
            writer.expectSaved();                                    // at once, for the sidebar
        writer.m_model.dirty = writer.m_window->session().isDirty(); // the spelling is looked after later
    }

    static void openPage(PLWriter &writer, quint32 which, quint32)
    {
        const QString path = keyAt(writer.m_model.disk, which);
        const PLSidebarPage *page =
            writer.m_window->sidebar().tree().sectionItemForURL(writer.m_window->notebook.url(path));
        if (!page || path == writer.m_model.current)
            return;
        writer.m_window->sidebar().selectSidebarObject(page);
        writer.expectSaved();
        writer.m_model.load(path);
    }

    static void openTag(PLWriter &writer, quint32, quint32)
    {
        const auto &tags = writer.m_window->sidebar().tree().tagSection()->children();
        if (tags.empty())
            return;
        writer.m_window->sidebar().selectSidebarObject(tags.front().get());
        writer.expectSaved();
        writer.m_model.close();
    }

    static void typeTitle(PLWriter &writer, const QString &title, bool isTaken)
    {
        QLineEdit *field = writer.m_window->titleField();
        if (!field) {
            writer.fail(u"no title can be typed"_s);
            return;
        }
        const QMap<QString, QByteArray> before = writer.filesOnDisk();
        field->selectAll();
        field->insert(title);
        QTest::keyClick(field, isTaken ? Qt::Key_Return : Qt::Key_Escape);
        writer.settle();
        const QString path = writer.m_model.current;
        if (writer.filesOnDisk().contains(path))
            return;
        const QByteArray bytes = writer.m_model.disk.take(path);
        const QString moved = writer.takeNewPage();
        if (!isTaken || moved.section(u'/', 0, 0) != path.section(u'/', 0, 0) ||
            writer.m_model.disk.value(moved) != bytes)
            writer.fail(u"the renamed page is not what it was: "_s + moved);
        writer.m_model.current = moved;
    }

    static void makePage(PLWriter &writer, quint32 section, quint32 title)
    {
        if (writer.m_model.dirty)
            save(writer, 0, 0); // a page kept beside it would be a second new one
        writer.m_window->controller->performCommand(pick(newPageCommands, section), 0);
        writer.m_listIsOld = false;
        const QString path = writer.takeNewPage();
        writer.m_model.load(path);
        typeTitle(writer, pick(typedTitles, title), title % 5 != 0);
    }

    static void renamePage(PLWriter &writer, quint32 title, quint32 isTaken)
    {
        // A page that is no more on the disk cannot be renamed; the alert is not looked at here.
        if (!hasPage(writer) || writer.m_listIsOld)
            return;
        writer.m_window->controller->performCommand(PLCommand::RenameSelectedItem, 0);
        if (!writer.m_window->titleField())
            return;
        const bool willRename = isTaken % 4 != 0;
        const QString path = writer.m_model.current;
        if (willRename && writer.m_model.dirty) {
            writer.m_window->controller->performCommand(PLCommand::SaveDocument, 0);
            writer.expectSaved();
        }
        if (!writer.m_window->titleField())
            return writer.fail(u"saving has closed the title's field"_s), void();
        typeTitle(writer, pick(typedTitles, title), willRename);
    }

    static void trashPage(PLWriter &writer, quint32 answer, quint32)
    {
        if (!hasPage(writer) || writer.m_listIsOld)
            return;
        const bool isConfirmed = answer % 3 == 0 && writer.m_model.disk.size() > 4;
        writer.m_window->answers = {isConfirmed ? PLAlert::FirstButton : PLAlert::SecondButton};
        const QString path = writer.m_model.current;
        writer.m_window->controller->performCommand(PLCommand::TrashSelectedItem, 0);
        if (!isConfirmed) {
            writer.m_model.dirty = writer.m_window->session().isDirty();
            if (!writer.m_model.dirty)
                writer.m_model.disk.insert(path, writer.filesOnDisk().value(path));
            return;
        }
        writer.m_model.disk.remove(path);
        writer.m_model.close();
    }

    static void save(PLWriter &writer, quint32, quint32)
    {
        if (!hasPage(writer))
            return;
        writer.m_window->controller->performCommand(PLCommand::SaveDocument, 0);
        writer.m_model.dirty = true;
        writer.expectSaved();
    }

    static void closeAndReopen(PLWriter &writer, quint32, quint32)
    {
        if (!writer.m_window->controller->window()->close())
            writer.fail(u"the window does not close"_s);
        writer.expectSaved();
        writer.settle();
        writer.m_window->controller.reset();
        if (!writer.checkDisk().isNull())
            writer.fail(writer.checkDisk());
        writer.openNotebook();
    }

    /// To another window and back: the page is saved, then the list follows the disk.
    static void leaveAndComeBack(PLWriter &writer, quint32, quint32)
    {
        writer.m_window->controller->windowDidResignKey();
        writer.expectSaved();
        writer.m_window->controller->windowDidBecomeKey();
        writer.m_listIsOld = false;
        if (!hasPage(writer))
            return;
        const QString path = writer.m_model.current;
        if (!writer.m_model.disk.contains(path))
            writer.m_model.close();
        else if (writer.m_model.disk.value(path) != writer.m_model.known)
            writer.m_model.load(path);
    }

    static void resize(PLWriter &writer, quint32 width, quint32 height)
    {
        writer.m_window->controller->window()->resize(int(780 + width % 900), int(440 + height % 600));
    }

    static void togglePreview(PLWriter &writer, quint32, quint32)
    {
        writer.m_window->editor()->togglePreview();
    }

    static void otherProgramWrites(PLWriter &writer, quint32 which, quint32)
    {
        const QString path = keyAt(writer.m_model.disk, which);
        if (path.isNull())
            return;
        const QByteArray bytes =
            "---\ntags: ailleurs\n---\n\nautre texte " + QByteArray::number(++writer.m_counter) + '\n';
        writer.m_window->notebook.write(path, QString::fromUtf8(bytes));
        writer.m_model.disk.insert(path, bytes);
    }

    static void otherProgramMakesPage(PLWriter &writer, quint32, quint32)
    {
        const QString path = u"Fiches/Venue d'ailleurs %1.md"_s.arg(++writer.m_counter);
        writer.m_window->notebook.write(path, u"x"_s);
        writer.m_model.disk.insert(path, "x");
        writer.m_listIsOld = true;
    }

    static void otherProgramRemovesPage(PLWriter &writer, quint32 which, quint32)
    {
        const QString path = keyAt(writer.m_model.disk, which);
        if (writer.m_model.disk.size() < 4)
            return;
        QFile::remove(writer.m_window->notebook.path(path));
        writer.m_model.disk.remove(path);
        writer.m_listIsOld = true;
    }
};

namespace {

struct Action
{
    const char *name;
    int weight;
    void (*run)(PLWriter &, quint32, quint32);
};

constexpr Action actions[] = {
    {"write", 20, PLWriterActions::write},
    {"press Return", 6, PLWriterActions::pressReturn},
    {"compose", 6, PLWriterActions::compose},
    {"paste", 4, PLWriterActions::paste},
    {"select", 12, PLWriterActions::select},
    {"move to the end", 3, PLWriterActions::moveToEnd},
    {"erase", 10, PLWriterActions::erase},
    {"cut", 2, PLWriterActions::cut},
    {"undo or redo", 10, PLWriterActions::stepBack},
    {"format", 10, PLWriterActions::format},
    {"tag", 4, PLWriterActions::tag},
    {"open a page", 10, PLWriterActions::openPage},
    {"open a tag", 1, PLWriterActions::openTag},
    {"make a page", 2, PLWriterActions::makePage},
    {"rename", 3, PLWriterActions::renamePage},
    {"trash", 3, PLWriterActions::trashPage},
    {"save", 4, PLWriterActions::save},
    {"close and reopen", 1, PLWriterActions::closeAndReopen},
    {"leave and come back", 4, PLWriterActions::leaveAndComeBack},
    {"resize", 2, PLWriterActions::resize},
    {"toggle the preview", 1, PLWriterActions::togglePreview},
    {"another program writes", 2, PLWriterActions::otherProgramWrites},
    {"another program makes a page", 1, PLWriterActions::otherProgramMakesPage},
    {"another program removes a page", 1, PLWriterActions::otherProgramRemovesPage},
};

/// Each action as often as it weighs.
const Action &actionNumbered(int number)
{
    for (const Action &action : actions) {
        number -= action.weight;
        if (number < 0)
            return action;
    }
    return actions[0];
}

} // namespace

int PLWriter::actionCount()
{
    int count = 0;
    for (const Action &action : actions)
        count += action.weight;
    return count;
}

QString PLWriterStep::description() const
{
    return u"%1 (%2, %3)"_s.arg(QString::fromLatin1(actionNumbered(action).name)).arg(first).arg(second);
}

QString PLWriter::perform(const PLWriterStep &step)
{
    actionNumbered(step.action).run(*this, step.first, step.second);
    settle();
    for (const QString &problem : {m_failure, checkScreen(), checkDisk(), checkList()}) {
        if (!problem.isNull())
            return problem;
    }
    return QString();
}
