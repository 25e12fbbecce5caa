// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endtoend/PLTypedNotebook.h"

#include "support/PLTestFiles.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 millisecond = 1'000'000; // nanoseconds
constexpr qint64 autosaveDelay = 2'000 * millisecond;
constexpr qint64 oneSave = 500 * millisecond;

const QByteArray metadata = "---\ntitre: Roman\nformat: aquilane-1\n---\n";
const QStringList emptySections{u"Fiches"_s, u"Lieux"_s, u"Notes"_s, u"Personnages"_s};

bool isTemporary(const QString &name)
{
    return name.startsWith(u".aquilane-") && name.endsWith(u".tmp");
}

QString fileName(int number, const QString &title)
{
    return u"%1 - %2.md"_s.arg(number, 2, 10, QChar(u'0')).arg(title);
}

/// Whether it had its two seconds, and the time for one save, before the next word or the kill. What the
/// program was kept from a processor meanwhile does not count.
template <typename Word>
bool isOld(const Word &word, const PLMoment &killed)
{
    const PLMoment &until = word.next.time != 0 && word.next.time < killed.time ? word.next : killed;
    const qint64 kept = until.waited - word.typed.waited;
    return until.time - word.typed.time >= autosaveDelay + oneSave + kept;
}

} // namespace

PLTypedNotebook::PLTypedNotebook(QString path) : m_path(std::move(path)) {}

bool PLTypedNotebook::make(int pages)
{
    bool isMade = PLMakeFile(m_path + u"/projet.md"_s, metadata);
    for (int number = 1; number <= pages; ++number) {
        const QString title = u"Page %1"_s.arg(number);
        isMade = isMade && PLMakeFile(pagesPath() + u'/' + fileName(number, title));
        m_pages.push_back({number, title, u""_s, 0, {}});
    }
    for (const QString &section : emptySections)
        isMade = isMade && QDir(m_path).mkdir(section);
    return isMade;
}

PLTypedNotebook::Page *PLTypedNotebook::pageOfTitle(const QString &title)
{
    const auto page = std::find_if(m_pages.begin(), m_pages.end(),
                                   [&](const Page &candidate) { return candidate.title == title; });
    return page == m_pages.end() ? nullptr : &*page;
}

bool PLTypedNotebook::show(const QString &title)
{
    Page *page = pageOfTitle(title);
    if (title == m_newTitle) {
        page = m_current;
        page->title = title;
        ++m_figures.renames;
    } else if (title == m_created) {
        m_pages.push_back({m_pages.back().number + 1, title, u"# %1\n\n"_s.arg(title), 0, {}});
        page = &m_pages.back();
        page->saved = page->text.size();
        ++m_figures.creations;
    } else if (m_current && page != m_current) {
        ++m_figures.switches;
    }
    if (m_current)
        m_current->saved = m_current->text.size();
    m_current = page;
    m_created = m_newTitle = QString();
    return page != nullptr;
}

/// Chapters are never thrown away here: the last one has the highest number.
QString PLTypedNotebook::willCreate()
{
    m_created = u"Chapitre %1"_s.arg(m_pages.back().number + 1);
    return m_created;
}

void PLTypedNotebook::willRename(const QString &newTitle)
{
    m_newTitle = newTitle;
}

void PLTypedNotebook::willType(const QString &word, const PLMoment &now)
{
    if (!m_current->words.empty())
        m_current->words.back().next = now;
    m_current->text += word;
}

void PLTypedNotebook::hasTyped(const PLMoment &now)
{
    m_current->words.push_back({m_current->text.size(), now, {}});
}

/// `files` are then those of pages.
QString PLTypedNotebook::lookAtFolders(QStringList &files)
{
    if (PLNamesIn(m_path) != emptySections.mid(0, 2) + QStringList{u"Livre"_s} + emptySections.mid(2) +
                                 QStringList{u"projet.md"_s})
        return u"in the notebook: "_s + PLNamesIn(m_path).join(u", "_s);
    if (PLBytesOf(m_path + u"/projet.md"_s) != metadata)
        return u"projet.md is changed"_s;
    for (const QString &section : emptySections) {
        if (!PLNamesIn(m_path + u'/' + section).isEmpty())
            return u"a stray file in "_s + section;
    }
    files = PLNamesIn(pagesPath());
    m_isCut = files.removeIf(isTemporary) > 0;
    return QString();
}

/// Takes the page's file out of the list; it may have its new name already.
QString PLTypedNotebook::takeFile(Page &page, QStringList &files) const
{
    const bool isRenamed =
        &page == m_current && !m_newTitle.isEmpty() && files.removeAll(fileName(page.number, m_newTitle)) > 0;
    const bool isThere = files.removeAll(fileName(page.number, page.title)) > 0;
    if (isRenamed == isThere)
        return isThere ? u"there twice: "_s + page.title : u"not there: "_s + page.title;
    if (isRenamed)
        page.title = m_newTitle;
    return QString();
}

void PLTypedNotebook::takeCreated(QStringList &files)
{
    const int number = m_pages.back().number + 1;
    if (m_created.isEmpty() || files.removeAll(fileName(number, m_created)) == 0)
        return;
    m_pages.push_back({number, m_created, u"# %1\n\n"_s.arg(m_created), 0, {}});
    m_pages.back().saved = m_pages.back().text.size();
}

void PLTypedNotebook::count(const Page &page, qsizetype onDisk, const PLMoment &killed)
{
    for (const Word &word : page.words) {
        if (word.typed.time > killed.time)
            continue;
        const bool isDue = word.end <= page.saved || (!m_isCut && isOld(word, killed));
        ++m_figures.words;
        m_figures.due += isDue ? 1 : 0;
        m_figures.lost += word.end > onDisk ? 1 : 0;
    }
}

/// A save that the kill has cut short counts as not made: a disk may take its time.
QString PLTypedNotebook::lookAtPage(Page &page, const PLMoment &killed)
{
    const QByteArray bytes = PLBytesOf(pagesPath() + u'/' + fileName(page.number, page.title));
    const QString onDisk = QString::fromUtf8(bytes);
    if (!page.text.startsWith(onDisk))
        return u"“%1” is torn: it ends in “%2”"_s.arg(page.title, onDisk.right(40));
    qsizetype due = page.saved;
    for (const Word &word : page.words)
        due = !m_isCut && isOld(word, killed) ? qMax(due, word.end) : due;
    if (onDisk.size() < due)
        return u"“%1” has lost “%2”"_s.arg(page.title, page.text.sliced(onDisk.size(), due - onDisk.size()));
    count(page, onDisk.size(), killed);
    page.text = onDisk;
    page.saved = onDisk.size();
    page.words.clear();
    return QString();
}

QString PLTypedNotebook::lookAfterKill(const PLMoment &killed)
{
    QStringList files;
    QString complaint = lookAtFolders(files);
    for (Page &page : m_pages)
        complaint = complaint.isEmpty() ? takeFile(page, files) : complaint;
    takeCreated(files);
    if (complaint.isEmpty() && !files.isEmpty())
        complaint = u"strays: "_s + files.join(u", "_s);
    for (Page &page : m_pages)
        complaint = complaint.isEmpty() ? lookAtPage(page, killed) : complaint;
    ++m_figures.kills;
    m_figures.cutShort += m_isCut ? 1 : 0;
    m_current = nullptr;
    m_created = m_newTitle = QString();
    return complaint;
}

QString PLTypedNotebook::leftBehind() const
{
    return PLNamesIn(pagesPath()).filter(u"aquilane"_s).join(u", "_s);
}
