// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "faults/PLSaveLoop.h"

#include "storage/PLProject.h"
#include "support/PLTestFiles.h"

#include <sys/mman.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray constantText = "This page is only ever renamed.\n";

QStringList titlesIn(const PLProject &project, PLSection section)
{
    QStringList titles;
    const std::vector<PLProjectItemPointer> items = project.itemsInSection(section);
    for (const PLProjectItemPointer &item : items)
        titles.append(item->title());
    return titles;
}

PLProjectItemPointer page(const QString &path, PLSection section)
{
    return PLProjectItem::itemWithURL(QUrl::fromLocalFile(path), section);
}

} // namespace

PLSaveLoop::PLSaveLoop(const QString &notebookPath) : m_path(notebookPath)
{
    void *memory = ::mmap(nullptr, sizeof(Counts), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        qFatal("no memory to share");
    m_counts = new (memory) Counts{};
}

PLSaveLoop::~PLSaveLoop()
{
    ::munmap(m_counts, sizeof(Counts));
}

QString PLSaveLoop::savedPagePath() const
{
    return m_path + u"/Livre/01 - Chapitre 1.md"_s;
}

QByteArray PLSaveLoop::pageText(qint64 number)
{
    const QByteArray line = "save " + QByteArray::number(number) + '\n';
    return line.repeated(1 + number % 3'000) + "end " + QByteArray::number(number) + '\n';
}

/// The four names follow each other: two that differ in case only, twice.
QString PLSaveLoop::nameAfter(qint64 renames)
{
    const QString names[] = {u"anne"_s, u"Anne"_s, u"berthe"_s, u"Berthe"_s};
    return names[renames % 4];
}

bool PLSaveLoop::makeNotebook()
{
    const auto project = PLProject::createProjectAtURL(QUrl::fromLocalFile(m_path), u"Roman"_s);
    return project && PLMakeFile(savedPagePath(), pageText(0)) &&
           PLMakeFile(m_path + u"/Personnages/"_s + nameAfter(0) + u".md"_s, constantText);
}

void PLSaveLoop::run(int rounds)
{
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(m_path));
    const PLProjectItemPointer saved = page(savedPagePath(), PLSection::Book);
    const PLProjectItemPointer renamed = project->itemsInSection(PLSection::Characters).front();
    for (int round = 0; round != rounds; ++round) {
        const qint64 save = m_counts->saves.begun = m_counts->saves.done + 1;
        if (!saved->writeContents(QString::fromUtf8(pageText(save))))
            return;
        m_counts->saves.done = save;
        const qint64 rename = m_counts->renames.begun = m_counts->renames.done + 1;
        if (!project->renameItem(*renamed, nameAfter(rename)))
            return;
        m_counts->renames.done = rename;
        const qint64 creation = m_counts->creations.begun = m_counts->creations.done + 1;
        if (!project->createItemInSection(PLSection::Notes, u"note %1"_s.arg(creation)))
            return;
        m_counts->creations.done = creation;
    }
}

QString PLSaveLoop::lookAtSavedPage(const PLProject &project)
{
    if (titlesIn(project, PLSection::Book) != QStringList{u"Chapitre 1"_s})
        return u"the pages of the book are "_s + titlesIn(project, PLSection::Book).join(u", "_s);
    const QByteArray text = PLBytesOf(savedPagePath());
    const qint64 number = text.mid(5, text.indexOf('\n') - 5).toLongLong();
    if (text != pageText(number))
        return u"the saved page is torn"_s;
    if (number < m_counts->saves.done || number > m_counts->saves.begun)
        return u"save %1 is on the disk, which is older than %2"_s.arg(number).arg(m_counts->saves.done);
    m_counts->saves.begun = m_counts->saves.done = number;
    return QString();
}

QString PLSaveLoop::lookAtRenamedPage(const PLProject &project)
{
    const QStringList titles = titlesIn(project, PLSection::Characters);
    const bool isDone = titles == QStringList{nameAfter(m_counts->renames.begun)};
    if (!isDone && titles != QStringList{nameAfter(m_counts->renames.done)})
        return u"the renamed page has the names “%1”"_s.arg(titles.join(u", "_s));
    if (PLBytesOf(m_path + u"/Personnages/"_s + titles.first() + u".md"_s) != constantText)
        return u"the renamed page is torn"_s;
    m_counts->renames.done = isDone ? m_counts->renames.begun.load() : m_counts->renames.done.load();
    m_counts->renames.begun = m_counts->renames.done.load();
    return QString();
}

QString PLSaveLoop::lookAtCreatedPages(const PLProject &project)
{
    const std::vector<PLProjectItemPointer> items = project.itemsInSection(PLSection::Notes);
    const qint64 first = m_counts->creationsBefore + 1;
    const qint64 last = first + qint64(items.size()) - 1;
    if (last < m_counts->creations.done || last > m_counts->creations.begun)
        return u"%1 created pages, the last is not %2"_s.arg(items.size()).arg(m_counts->creations.done);
    for (qint64 number = first; number <= last; ++number) {
        const QString title = u"note %1"_s.arg(number);
        const QString path = m_path + u"/Notes/"_s + title + u".md"_s;
        if (QString::fromUtf8(PLBytesOf(path)) != PLProject::templateForSection(PLSection::Notes, title))
            return u"created page %1 is missing or torn"_s.arg(number);
        QFile::remove(path);
    }
    m_counts->creationsBefore = last;
    m_counts->creations.begun = m_counts->creations.done = last;
    return QString();
}

QString PLSaveLoop::lookAfterKill()
{
    const auto isOpen = [](const Count &count) { return count.begun != count.done; };
    m_cutShort += isOpen(m_counts->saves) || isOpen(m_counts->renames) || isOpen(m_counts->creations) ? 1 : 0;
    PLError error;
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(m_path), &error);
    if (!project)
        return error.message;
    for (const auto look :
         {&PLSaveLoop::lookAtSavedPage, &PLSaveLoop::lookAtRenamedPage, &PLSaveLoop::lookAtCreatedPages}) {
        if (const QString complaint = (this->*look)(*project); !complaint.isEmpty())
            return complaint;
    }
    for (const QString &folder : {u""_s, u"/Livre"_s, u"/Personnages"_s, u"/Notes"_s}) {
        const QStringList strays = PLNamesIn(m_path + folder).filter(u"aquilane"_s);
        if (!strays.isEmpty())
            return u"left behind: "_s + strays.join(u", "_s);
    }
    return QString();
}
