// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>

class PLProject;

/// Saves one page, renames a second (every other time in case only) and creates a third, over and over; and
/// tells, after it was killed, whether what is on the disk is what it had done. What it had done is counted
/// in memory that outlives the process.
class PLSaveLoop final
{
public:
    explicit PLSaveLoop(const QString &notebookPath);
    ~PLSaveLoop();
    PLSaveLoop(const PLSaveLoop &) = delete;
    PLSaveLoop &operator=(const PLSaveLoop &) = delete;

    [[nodiscard]] bool makeNotebook();
    /// Runs that many rounds, or for ever; ends sooner only if an operation fails.
    void run(int rounds = -1);
    /// Opens the notebook: empty if all is well, else what is wrong. Deletes the created pages.
    QString lookAfterKill();

    qint64 saves() const { return m_counts->saves.done; }
    qint64 renames() const { return m_counts->renames.done; }
    qint64 creations() const { return m_counts->creations.done; }
    /// How many kills came in the middle of a change.
    int cutShort() const { return m_cutShort; }

    QString savedPagePath() const;
    /// The text of a save: its number in each line, of a length of its own.
    static QByteArray pageText(qint64 number);

private:
    struct Count
    {
        std::atomic<qint64> begun;
        std::atomic<qint64> done;
    };
    struct Counts
    {
        Count saves;
        Count renames;
        Count creations;
        std::atomic<qint64> creationsBefore; ///< those whose pages have been deleted
    };

    QString lookAtSavedPage(const PLProject &project);
    QString lookAtRenamedPage(const PLProject &project);
    QString lookAtCreatedPages(const PLProject &project);
    static QString nameAfter(qint64 renames);

    QString m_path;
    Counts *m_counts = nullptr;
    int m_cutShort = 0;
};
