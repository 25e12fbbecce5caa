// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLFileCallRecorder.h"
#include "notebook_window/PLNotebookWindowFixture.h"

#include <functional>

/// Something that a writer does who has just typed into the page "A" of the book, which has a tag.
struct PLPageAction
{
    using Step = std::function<void(PLNotebookWindowFixture &)>;

    const char *name = nullptr;
    Step perform;
    Step prepare = nullptr;                 ///< before the disk begins to fail
    QString newTitle = QStringLiteral("A"); ///< of the page, then
    QString newTags = QStringLiteral("bal");
    bool createsPage = false;
    bool leavesPage = false;  ///< goes to another page, even if this one cannot be saved
    bool isQuiet = false;     ///< nobody is there to be told
    bool isOneOfMany = false; ///< one more road to the same calls
};

/// Every road on which a page is saved, renamed or made.
QList<PLPageAction> PLPageActions();

/// A notebook window in which such an action meets a failing disk.
class PLPageUnderFaults final
{
public:
    explicit PLPageUnderFaults(PLPageAction action);
    bool isReady() const { return m_isActive; }
    ~PLPageUnderFaults();

    /// Lets the action meet the fault; any number of times.
    void perform(const PLFault &fault);
    const PLRecording &calls() const { return m_calls; }

    /// What is wrong with how the fault was taken; empty if nothing is. Tries again, now that it has gone.
    QString complaint();
    /// Whether all of the action was done.
    bool isDone() const;
    /// Whether there was an alert.
    bool isTold() const { return !m_alerts.isEmpty(); }

    /// For tests of the tests.
    PLNotebookWindowFixture &window() { return m_window; }

private:
    using Files = QMap<QString, QString>;

    void writeFiles() const;
    void arrange();
    Files files() const;
    QString lookAtDisk();
    QString lookAtScreen() const;
    QString lookAtAlerts() const;
    QString tryAgain();
    bool isPageOpen() const;
    bool isSaved() const { return m_onDisk == m_new; }

    PLPageAction m_action;
    PLNotebookWindowFixture m_window;
    PLFault m_fault;
    PLRecording m_calls;
    QList<PLAlert> m_alerts;
    QString m_old;
    QString m_new;
    QString m_path;   ///< of the page, as it is found
    QString m_onDisk; ///< its text, as it is found
    bool m_isCreated = false;
    bool m_isActive = false;
};
