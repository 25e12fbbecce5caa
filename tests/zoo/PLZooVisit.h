// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notebook_window/PLProjectWindowController.h"
#include "support/PLTestEnvironment.h"
#include "zoo/PLZoo.h"
#include "zoo/PLZooMeasure.h"
#include "zoo/PLZooSnapshot.h"

#include <QStringList>

/// Takes one notebook of the zoo through the real windows: in the library, opened, each page looked at,
/// edited where that is possible, pages made, renamed, put into the trash, closed. After each part the disk
/// is compared with what it was.
class PLZooVisit final
{
public:
    PLZooVisit(const PLZooNotebook &notebook, const QByteArray &folder, const QByteArray &outside,
               bool isFullSize);
    ~PLZooVisit();

    /// What is wrong; empty if all is as it must be.
    QStringList run();
    /// One line about how long it took, for whoever watches.
    QString summary() const;

private:
    // The parts, in order.
    void lookAtLibrary();
    void openNotebook();
    void lookAtEveryPage();
    void editPages();
    void handlePages();
    void closeNotebook();

    // In one page.
    bool select(const QString &path);
    void lookAround();
    void typeAndUndo(const QString &path);
    void typeAndSave(const QString &path);
    void makePageIn(PLSection section);
    void typeTitle(const QString &title);
    QStringList listedPages() const;
    /// Of many pages the first ones, and some all along the list.
    QStringList pagesToTry(int most) const;

    // What must hold.
    template <typename Step>
    void measure(const QString &what, Step step)
    {
        const PLZooStopwatch stopwatch;
        step();
        noteTime(what, stopwatch.seconds());
    }
    void noteTime(const QString &what, double seconds);
    void settle() const;
    void compareDisk(const QString &after);
    void complain(const QString &text);

    const PLZooNotebook &m_notebook;
    QByteArray m_folder;
    QByteArray m_outside;
    QByteArray m_trash;
    bool m_isFullSize;
    PLTestEnvironment m_environment;
    std::unique_ptr<PLProjectWindowController> m_controller;
    PLZooSnapshot m_before;
    QSet<QByteArray> m_mayDiffer; ///< paths that the visit itself has changed since
    QStringList m_opened;         ///< pages that could be read
    QStringList m_alerts;
    QStringList m_complaints;
    QString m_slowestStep;
    double m_slowest = 0;
};
