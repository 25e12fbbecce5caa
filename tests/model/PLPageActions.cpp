// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a writer does with pages and their tags.

#include "editor/PLTagField.h"
#include "model/PLWriter.h"
#include "model/PLWriterActions.h"
#include "platform/PLAlert.h"
#include "support/PLTestFiles.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QStringList typedTags = {u"mer"_s, u"MER"_s, u"été"_s, u"Paris"_s, u"a b"_s, u"x:y"_s};
const QStringList typedTitles = {u"Le retour"_s, u"le retour"_s, u"../../x"_s,  u"Où ça ?"_s,   u"a/b"_s,
                                 u" "_s,         u".caché"_s,    u"12 - Fin"_s, u"\U0001F600"_s};
constexpr PLCommand newPageCommands[] = {PLCommand::NewChapter, PLCommand::NewCharacter, PLCommand::NewPlace,
                                         PLCommand::NewSheet, PLCommand::NewNote};
constexpr qsizetype fewestPages = 4;

QString trashFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Trash/files/"_s;
}

/// A tag is typed, and the field left; the notebook's own spelling wins.
void tag(PLWriter &writer, quint32 which, quint32)
{
    PLWriterDesk &desk = writer.desk();
    const QString typed = PLPick(typedTags, which);
    PLTagField *field = desk.editor()->tagField();
    const QStringList before = desk.model.page.tags;
    field->setFocus();
    QTest::keyClick(field, Qt::Key_End);
    for (const QChar letter : typed) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QCoreApplication::sendEvent(field, &press);
    }
    QTest::keyClick(field, Qt::Key_Return); // makes it a token
    QTest::keyClick(field, Qt::Key_Return); // is done with the field
    desk.textView()->setFocus();
    writer.settle();
    const QStringList shown = desk.editor()->tags();
    if (PLProjectItem::normalizedTags(shown) != shown || shown.size() > before.size() + 1 ||
        shown.size() < before.size())
        desk.fail(u"a tag was typed, and there are now "_s + shown.join(u", "_s));
    desk.model.page.tags = shown;
    desk.model.dirty = true;
    if (shown != before)
        desk.expectSaved();                      // at once, for the sidebar
    desk.model.dirty = desk.session().isDirty(); // the spelling is looked after later
}

void openPage(PLWriter &writer, quint32 which, quint32)
{
    PLWriterDesk &desk = writer.desk();
    const QString path = PLPickPath(desk.model.disk, which);
    const PLSidebarPage *page = desk.sidebar().tree().sectionItemForURL(desk.notebook.url(path));
    if (!page || path == desk.model.current)
        return;
    desk.sidebar().selectSidebarObject(page);
    desk.expectSaved();
    desk.model.load(path);
}

/// A tag opens its list of pages and closes the page; a page in that list opens as any other.
void openTag(PLWriter &writer, quint32 which, quint32 pageOfTag)
{
    PLWriterDesk &desk = writer.desk();
    const auto &tags = desk.sidebar().tree().tagSection()->children();
    if (tags.empty())
        return;
    const PLSidebarNode *tag = PLPick(tags, which);
    desk.sidebar().selectSidebarObject(tag);
    desk.expectSaved();
    desk.model.close();
    if (desk.listIsOld || pageOfTag % 2 == 0)
        return;
    const PLSidebarNode *reference = PLPick(tag->children(), pageOfTag / 2);
    const QString path = desk.pathOf(*PLItemOfNode(reference));
    desk.sidebar().selectSidebarObject(reference);
    desk.model.load(path);
}

void typeTitle(PLWriter &writer, const QString &title, bool isTaken)
{
    PLWriterDesk &desk = writer.desk();
    QLineEdit *field = desk.titleField();
    if (!field)
        return desk.fail(u"no title can be typed"_s);
    field->selectAll();
    field->insert(title);
    QTest::keyClick(field, isTaken ? Qt::Key_Return : Qt::Key_Escape);
    writer.settle();
    const QString path = desk.model.current;
    if (desk.filesOnDisk().contains(path))
        return;
    const QByteArray bytes = desk.model.disk.take(path);
    const QString moved = desk.takeNewPage();
    if (!isTaken || moved.section(u'/', 0, 0) != path.section(u'/', 0, 0) ||
        desk.model.disk.value(moved) != bytes)
        desk.fail(u"the renamed page is not what it was: "_s + moved);
    desk.model.current = moved;
}

void save(PLWriter &writer, quint32, quint32)
{
    writer.desk().perform(PLCommand::SaveDocument);
    writer.desk().model.dirty = true;
    writer.desk().expectSaved();
}

/// Two seconds without a change.
void pause(PLWriter &writer, quint32, quint32)
{
    QTimer *timer = writer.desk().saveTimer();
    if (!timer->isActive())
        return;
    const int interval = timer->interval();
    timer->setInterval(0);
    writer.settle();
    timer->setInterval(interval);
    writer.desk().expectSaved();
}

void makePage(PLWriter &writer, quint32 section, quint32 title)
{
    PLWriterDesk &desk = writer.desk();
    if (desk.model.dirty)
        save(writer, 0, 0); // a page kept beside it would be a second new one
    desk.perform(PLPick(newPageCommands, section));
    desk.listWasRead();
    desk.model.load(desk.takeNewPage());
    typeTitle(writer, PLPick(typedTitles, title), title % 5 != 0);
}

void renamePage(PLWriter &writer, quint32 title, quint32 isTaken)
{
    PLWriterDesk &desk = writer.desk();
    // A page that is no more on the disk cannot be renamed; the alert is not looked at here.
    if (desk.listIsOld)
        return;
    desk.perform(PLCommand::RenameSelectedItem);
    if (!desk.titleField())
        return;
    const bool willRename = isTaken % 4 != 0;
    if (willRename && desk.model.dirty)
        save(writer, 0, 0);
    if (!desk.titleField())
        return desk.fail(u"saving has closed the title's field"_s);
    typeTitle(writer, PLPick(typedTitles, title), willRename);
}

/// What was not saved goes with the page.
void trashPage(PLWriter &writer, quint32 answer, quint32)
{
    PLWriterDesk &desk = writer.desk();
    if (desk.listIsOld)
        return;
    const bool isConfirmed = answer % 3 == 0 && desk.model.disk.size() > fewestPages;
    writer.answers = {isConfirmed ? PLAlert::FirstButton : PLAlert::SecondButton};
    const QStringList before = PLNamesIn(trashFolder());
    desk.perform(PLCommand::TrashSelectedItem);
    if (!isConfirmed)
        return;
    const QByteArray bytes = desk.model.disk.take(desk.model.current);
    QStringList trashed = PLNamesIn(trashFolder());
    trashed.removeIf([&](const QString &name) { return before.contains(name); });
    if (trashed.size() != 1 || PLBytesOf(trashFolder() + trashed.constFirst()) != bytes)
        desk.fail(u"the page is not in the trash"_s);
    desk.model.close();
    desk.listWasRead();
}

constexpr auto window = PLWriterAction::Needs::Window;
constexpr auto page = PLWriterAction::Needs::Page;
constexpr PLWriterAction actions[] = {
    {"tag", 4, page, tag},
    {"open a page", 10, window, openPage},
    {"open a tag", 2, window, openTag},
    {"save", 4, page, save},
    {"pause", 4, page, pause},
    {"make a page", 2, window, makePage},
    {"rename", 3, page, renamePage},
    {"trash", 3, page, trashPage},
};

} // namespace

std::span<const PLWriterAction> PLPageActions()
{
    return actions;
}
