// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "model/PLWriter.h"

#include "support/PLTestFiles.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *sectionFolders[] = {"Livre", "Personnages", "Lieux", "Fiches", "Notes"};

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

PLWriter::PLWriter() : m_window(std::make_unique<PLNotebookWindowFixture>())
{
    const PLTestNotebook &notebook = m_window->notebook;
    notebook.write(u"Livre/01 - Le départ.md"_s,
                   u"---\nhumeur: grise: ou noire\ntags: Paris, mer\n---\n\nLe train part\u00A0!\n"_s);
    notebook.write(u"Livre/02 - La traversée.md"_s, u"Une ligne.\r\n\r\nUne autre.\r\n"_s);
    notebook.write(u"Livre/Épilogue.md"_s, QString());
    notebook.write(u"Personnages/Marie.md"_s,
                   u"\uFEFF---\ntype: personnage\ntags:\n---\n\n# Marie\n\n\u2028fin"_s);
    notebook.write(u"Lieux/Le port.md"_s, u"---\nTAGS: mer\n---\nSans ligne vide"_s);
    notebook.write(u"Notes/à faire.md"_s, u"- un\n- deux\n\n"_s.repeated(200));
    openNotebook();
}

PLWriter::~PLWriter() = default;

void PLWriter::openNotebook()
{
    m_window->open();
    settle();
    m_model.disk = filesOnDisk();
    m_listIsOld = false;
    const PLProjectItemPointer &item = m_window->session().currentItem();
    if (item)
        m_model.load(QDir(m_window->notebook.path()).relativeFilePath(item->fileURL().toLocalFile()));
    else
        m_model.close();
}

QMap<QString, QByteArray> PLWriter::filesOnDisk() const
{
    QMap<QString, QByteArray> files;
    for (const char *folder : sectionFolders) {
        const QString section = QString::fromLatin1(folder);
        for (const QString &name : PLNamesIn(m_window->notebook.path(section))) {
            const QString path = section + u'/' + name;
            files.insert(path, PLBytesOf(m_window->notebook.path(path)));
        }
    }
    return files;
}

/// What was put off until the event loop turns is done; the timers of two seconds are not waited for.
void PLWriter::settle() const
{
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

QString PLWriter::fail(const QString &text) const
{
    if (m_failure.isNull())
        m_failure = text;
    return m_failure;
}

QString PLWriter::takeNewPage()
{
    const QMap<QString, QByteArray> files = filesOnDisk();
    QStringList added;
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (!m_model.disk.contains(file.key()))
            added.append(file.key());
    }
    if (added.size() != 1) {
        fail(u"not one page more, but: %1"_s.arg(added.join(u", "_s)));
        return QString();
    }
    m_model.disk.insert(added.first(), files.value(added.first()));
    return added.first();
}

/// If the page's file is not what it was left as, its text is kept in a page beside it.
void PLWriter::expectSaved()
{
    if (!m_model.dirty)
        return;
    const QByteArray ours = m_model.page.bytes();
    const auto onDisk = m_model.disk.constFind(m_model.current);
    const bool isForeign = onDisk != m_model.disk.constEnd() && *onDisk != m_model.known && *onDisk != ours;
    const QByteArray theirs = isForeign ? *onDisk : QByteArray();
    m_model.disk.insert(m_model.current, ours);
    m_model.known = ours;
    m_model.dirty = false;
    if (isForeign && m_model.disk.value(takeNewPage()) != theirs)
        fail(u"the other program's text is not the one that was kept"_s);
}

QString PLWriter::checkScreen() const
{
    const PLProjectItemPointer &item = m_window->session().currentItem();
    const QString path =
        item ? QDir(m_window->notebook.path()).relativeFilePath(item->fileURL().toLocalFile()) : QString();
    if (path != m_model.current)
        return u"the open page is \"%1\" instead of \"%2\""_s.arg(path, m_model.current);
    if (m_window->editor()->isHidden() == bool(item))
        return u"the editor is hidden, or shown, when it must not be"_s;
    if (!item)
        return QString();
    const QString text = m_window->editor()->text();
    if (text != m_model.page.text)
        return u"the text on the screen "_s + difference(text, m_model.page.text);
    if (m_window->editor()->tags() != m_model.page.tags)
        return u"the tags are "_s + m_window->editor()->tags().join(u", "_s) + u" instead of "_s +
               m_model.page.tags.join(u", "_s);
    if (m_window->session().isDirty() != m_model.dirty)
        return m_model.dirty ? u"the page is not dirty"_s : u"the page is dirty"_s;
    if (m_window->controller->window()->isWindowModified() != m_model.dirty)
        return u"the window has not the mark it must have"_s;
    return QString();
}

QString PLWriter::checkDisk() const
{
    const QMap<QString, QByteArray> files = filesOnDisk();
    for (auto file = files.begin(); file != files.end(); ++file) {
        const auto expected = m_model.disk.constFind(file.key());
        if (expected == m_model.disk.constEnd())
            return u"there is a file too many: "_s + file.key();
        if (*expected != *file)
            return file.key() + u" on the disk "_s +
                   difference(QString::fromUtf8(*file), QString::fromUtf8(*expected));
    }
    for (auto expected = m_model.disk.begin(); expected != m_model.disk.end(); ++expected) {
        if (!files.contains(expected.key()))
            return u"a file is missing: "_s + expected.key();
    }
    return QString();
}

/// Every page stands in the sidebar, in its section.
QString PLWriter::checkList() const
{
    QStringList listed;
    for (unsigned number = 0; number < std::size(sectionFolders); ++number) {
        const PLSidebarSection *section = m_window->sidebar().tree().section(PLSection(number));
        for (const auto &child : section->children()) {
            if (const auto *page = dynamic_cast<const PLSidebarPage *>(child.get()))
                listed.append(
                    QDir(m_window->notebook.path()).relativeFilePath(page->item->fileURL().toLocalFile()));
        }
    }
    listed.sort();
    QStringList expected = m_model.disk.keys();
    expected.sort();
    return listed == expected || m_listIsOld ? QString() : u"the list shows "_s + listed.join(u" | "_s);
}
