// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "endtoend/PLProcessClock.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <vector>

/// What was typed into the pages of a notebook, and what of it must be on the disk when the program is
/// killed: all that is two seconds old, but for the time that one save takes, and all that was on a page when
/// the window went on to another or showed it under a new title. And never anything but the beginning of what
/// was typed.
class PLTypedNotebook final
{
public:
    struct Figures
    {
        int kills = 0;
        int words = 0;
        int due = 0;      ///< of the words: those that had to be on the disk
        int lost = 0;     ///< of the words: those younger than that, which were not
        int cutShort = 0; ///< kills that came in the middle of a save
        int creations = 0;
        int renames = 0;
        int switches = 0;
    };

    explicit PLTypedNotebook(QString path);

    /// Makes the notebook, with "Page 1" and those that follow.
    [[nodiscard]] bool make(int pages);
    const QString &path() const { return m_path; }
    QString pagesPath() const { return m_path + QStringLiteral("/Livre"); }
    qsizetype pageCount() const { return qsizetype(m_pages.size()); }
    const Figures &figures() const { return m_figures; }

    /// The window has this page open. False if there can be none of this title.
    [[nodiscard]] bool show(const QString &title);
    /// The page that a new chapter will be.
    QString willCreate();
    void willRename(const QString &newTitle);
    /// A word, between the moment before its first key and the one after its last.
    void willType(const QString &word, const PLMoment &now);
    void hasTyped(const PLMoment &now);

    /// What is wrong with what is on the disk; empty if nothing is. What is there is then what the notebook
    /// holds.
    QString lookAfterKill(const PLMoment &killed);
    /// What a kill has left that a new start must have taken away; empty if all is.
    QString leftBehind() const;

private:
    struct Word
    {
        qsizetype end = 0; ///< of the text with it
        PLMoment typed;
        PLMoment next; ///< when the next one began; at 0 if none did
    };
    struct Page
    {
        int number = 0;
        QString title;
        QString text;        ///< that was typed
        qsizetype saved = 0; ///< of the text: what must be on the disk, however young
        std::vector<Word> words;
    };

    Page *pageOfTitle(const QString &title);
    QString lookAtFolders(QStringList &files);
    QString takeFile(Page &page, QStringList &files) const;
    void takeCreated(QStringList &files);
    QString lookAtPage(Page &page, const PLMoment &killed);
    void count(const Page &page, qsizetype onDisk, const PLMoment &killed);

    QString m_path;
    std::deque<Page> m_pages; ///< which stay where they are when one comes
    Page *m_current = nullptr;
    QString m_created;    ///< the title of the page that is being made
    QString m_newTitle;   ///< that the current page is being given
    bool m_isCut = false; ///< the kill has left a save unfinished
    Figures m_figures;
};
