// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "model/PLWriterDesk.h"

#include "notebook_window/PLSidebarView.h"
#include "support/PLTestFiles.h"

#include <QLineEdit>
#include <QTimer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr const char *sectionFolders[] = {"Livre", "Personnages", "Lieux", "Fiches", "Notes"};
constexpr auto autosaveDelay = 2s;
constexpr auto longerThanAnyTest = 24h;

/// The first place where two texts differ, with a little of both.
QString difference(const QString &seen, const QString &expected)
{
    qsizetype place = 0;
    while (place < seen.size() && place < expected.size() && seen[place] == expected[place])
        ++place;
    const qsizetype from = qMax(qsizetype(0), place - 10);
    return u"at %1: %2 instead of %3"_s.arg(place).arg(
        QString::fromUtf8(seen.mid(from, 40).toUtf8().toPercentEncoding(" ")),
        QString::fromUtf8(expected.mid(from, 40).toUtf8().toPercentEncoding(" ")));
}

} // namespace

PLWriterDesk::PLWriterDesk(const QString &title) : notebook(title)
{
    notebook.write(u"Livre/01 - Le départ.md"_s,
                   u"---\nhumeur: grise: ou noire\ntags: Paris, mer\n---\n\nLe train part\u00A0!\n"_s);
    notebook.write(u"Livre/02 - La traversée.md"_s, u"Une ligne.\r\n\r\nUne autre.\r\n"_s);
    notebook.write(u"Livre/Épilogue.md"_s, QString());
    notebook.write(u"Personnages/Marie.md"_s,
                   u"\uFEFF---\ntype: personnage\ntags:\n---\n\n# Marie\n\n\u2028fin"_s);
    notebook.write(u"Lieux/Le port.md"_s, u"---\nTAGS: mer\n---\nSans ligne vide"_s);
    notebook.write(u"Notes/à faire.md"_s, u"- un\n- deux\n\n"_s.repeated(200));
    model.disk = filesOnDisk();
}

QLineEdit *PLWriterDesk::titleField() const
{
    const QList<QLineEdit *> fields = sidebar().view()->findChildren<QLineEdit *>();
    const auto shown =
        std::find_if(fields.begin(), fields.end(), [](const QLineEdit *field) { return field->isVisible(); });
    return shown == fields.end() ? nullptr : *shown;
}

QTimer *PLWriterDesk::saveTimer() const
{
    return session().findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
}

QMap<QString, QByteArray> PLWriterDesk::filesOnDisk() const
{
    QMap<QString, QByteArray> files;
    for (const char *folder : sectionFolders) {
        const QString section = QString::fromLatin1(folder);
        for (const QString &name : PLNamesIn(notebook.path(section))) {
            const QString path = section + u'/' + name;
            files.insert(path, PLBytesOf(notebook.path(path)));
        }
    }
    return files;
}

QString PLWriterDesk::pathOf(const PLProjectItem &item) const
{
    return QDir(notebook.path()).relativeFilePath(item.fileURL().toLocalFile());
}

void PLWriterDesk::wasOpened(PLProjectWindowController *window)
{
    controller = window;
    if (saveTimer()->intervalAsDuration() != autosaveDelay)
        fail(u"a page is not saved two seconds after a change"_s);
    saveTimer()->setInterval(longerThanAnyTest);
    if (filesOnDisk() != model.disk)
        fail(u"opening the notebook has changed it: "_s + checkDisk());
    listWasRead();
    const PLProjectItemPointer &item = session().currentItem();
    if (item)
        model.load(pathOf(*item));
    else
        model.close();
}

void PLWriterDesk::becameKey()
{
    if (model.dirty)
        return;
    listWasRead();
    if (!hasPage())
        return;
    const QString path = model.current;
    if (!model.disk.contains(path))
        model.close();
    else if (model.disk.value(path) != model.known)
        model.load(path);
}

void PLWriterDesk::expectSaved()
{
    if (!model.dirty)
        return;
    const QByteArray ours = model.page.bytes();
    const auto onDisk = model.disk.constFind(model.current);
    const bool isForeign = onDisk != model.disk.constEnd() && *onDisk != model.known && *onDisk != ours;
    const QByteArray theirs = isForeign ? *onDisk : QByteArray();
    // A text that begins as a header does is one from now on, without the sidebar's being told.
    if (PLModelPage::fromBytes(ours).tags != PLModelPage::fromBytes(model.known).tags)
        tagsAreOld = true;
    model.disk.insert(model.current, ours);
    model.known = ours;
    model.dirty = false;
    if (isForeign && model.disk.value(takeNewPage()) != theirs)
        fail(u"the other program's text is not the one that was kept"_s);
}

void PLWriterDesk::expectInserted(const PLTextRange &range, const QString &inserted)
{
    QString text = model.page.text;
    expectText(text.replace(range.position, range.length, inserted));
}

/// The same again, typed over itself, may count as a change or not.
void PLWriterDesk::expectText(const QString &text)
{
    if (text == model.page.text)
        model.dirty = session().isDirty();
    model.textBecame(text);
}

QString PLWriterDesk::takeNewPage()
{
    const QMap<QString, QByteArray> files = filesOnDisk();
    QStringList added;
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (!model.disk.contains(file.key()))
            added.append(file.key());
    }
    if (added.size() != 1) {
        fail(u"not one page more, but: %1"_s.arg(added.join(u", "_s)));
        return QString();
    }
    model.disk.insert(added.first(), files.value(added.first()));
    return added.first();
}

QString PLWriterDesk::check() const
{
    if (!failure.isNull())
        return failure;
    if (isOpen()) {
        for (const QString &problem : {checkScreen(), checkSaving(), checkList(), checkTags()}) {
            if (!problem.isNull())
                return problem;
        }
    }
    return checkDisk();
}

QString PLWriterDesk::checkScreen() const
{
    const PLProjectItemPointer &item = session().currentItem();
    const QString path = item ? pathOf(*item) : QString();
    if (path != model.current)
        return u"the open page is \"%1\" instead of \"%2\""_s.arg(path, model.current);
    if (editor()->isHidden() == bool(item))
        return u"the editor is hidden, or shown, when it must not be"_s;
    if (!item)
        return QString();
    const QString text = editor()->text();
    if (text != model.page.text)
        return u"the text on the screen "_s + difference(text, model.page.text);
    if (editor()->tags() != model.page.tags)
        return u"the tags are "_s + editor()->tags().join(u", "_s) + u" instead of "_s +
               model.page.tags.join(u", "_s);
    return QString();
}

/// A page with changes is marked so, and will be saved.
QString PLWriterDesk::checkSaving() const
{
    if (session().isDirty() != model.dirty)
        return model.dirty ? u"the page is not dirty"_s : u"the page is dirty"_s;
    if (controller->window()->isWindowModified() != model.dirty)
        return u"the window has not the mark it must have"_s;
    if (saveTimer()->isActive() != model.dirty)
        return model.dirty ? u"the page would not be saved by itself"_s : u"a clean page is to be saved"_s;
    return QString();
}

QString PLWriterDesk::checkDisk() const
{
    const QMap<QString, QByteArray> files = filesOnDisk();
    for (auto file = files.begin(); file != files.end(); ++file) {
        const auto expected = model.disk.constFind(file.key());
        if (expected == model.disk.constEnd())
            return u"there is a file too many: "_s + file.key();
        if (*expected != *file)
            return file.key() + u" on the disk "_s +
                   difference(QString::fromUtf8(*file), QString::fromUtf8(*expected));
    }
    for (auto expected = model.disk.begin(); expected != model.disk.end(); ++expected) {
        if (!files.contains(expected.key()))
            return u"a file is missing: "_s + expected.key();
    }
    return QString();
}

/// Every page stands in the sidebar, in its section.
QString PLWriterDesk::checkList() const
{
    if (listIsOld)
        return QString();
    QStringList listed;
    for (unsigned number = 0; number < std::size(sectionFolders); ++number) {
        for (const PLSidebarNode *page : sidebar().tree().section(PLSection(number))->children())
            listed.append(pathOf(*PLItemOfNode(page)));
    }
    listed.sort();
    QStringList expected = model.disk.keys();
    expected.sort();
    return listed == expected ? QString() : u"the list shows "_s + listed.join(u" | "_s);
}

/// The sidebar knows every tag on the disk, whatever its case, and the pages that have it.
QString PLWriterDesk::checkTags() const
{
    if (listIsOld || tagsAreOld)
        return QString();
    QMap<QString, QStringList> expected;
    for (auto file = model.disk.begin(); file != model.disk.end(); ++file) {
        for (const QString &tag : PLModelPage::fromBytes(*file).tags)
            expected[tag.toLower()].append(file.key());
    }
    QMap<QString, QStringList> shown;
    for (const PLSidebarNode *tag : sidebar().tree().tagSection()->children()) {
        QStringList &pages = shown[static_cast<const PLSidebarTag *>(tag)->name.toLower()];
        for (const PLSidebarNode *reference : tag->children())
            pages.append(pathOf(*PLItemOfNode(reference)));
        pages.sort();
    }
    return shown == expected ? QString() : u"the tags shown are "_s + shown.keys().join(u", "_s);
}

void PLWriterDesk::fail(const QString &text)
{
    if (failure.isNull())
        failure = text;
}
