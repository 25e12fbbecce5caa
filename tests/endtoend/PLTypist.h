// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "endtoend/PLKiller.h"
#include "endtoend/PLTestScreen.h"
#include "endtoend/PLTypedNotebook.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

/// Sits at a screen, in a home and with a notebook of his own, and types into the program until it is killed;
/// then looks at the disk and starts it again. To be used in the thread that he was made in.
class PLTypist final
{
public:
    explicit PLTypist(quint32 seed);

    /// What is missing; empty if nothing is.
    QString sitDown();
    /// One life of the program; what went wrong, empty if nothing did.
    QString typeUntilKilled();

    const PLTypedNotebook::Figures &figures() const { return m_notebook.figures(); }

private:
    using Condition = bool (*)(const QString &title, const QString &other);

    bool startProgram();
    QString lookAfterEnd(PLKiller &killer);

    void typeOn(PLKiller &killer);
    void doSomething();
    void typeWords();
    void type(const QString &text);
    void pause();
    void createPage();
    void renamePage();
    void switchPage();

    void press(const QStringList &keys);
    void pressTitle(const QString &title);
    /// Waits until the window's title is one that the condition takes, and the notebook shows that page.
    bool awaitTitle(Condition condition, const QString &other = QString());
    void goToEnd();
    void fail(const QString &complaint);
    bool goesOn() const { return m_complaint.isEmpty() && !m_killer->hasKilled(); }
    int random(int lowest, int highest) { return m_random.bounded(lowest, highest + 1); }

    QRandomGenerator m_random;
    QTemporaryDir m_home;
    PLTypedNotebook m_notebook{m_home.filePath(QStringLiteral("Roman"))};
    PLTestScreen m_screen;
    QProcess m_program;
    PLProcessClock m_clock;
    PLKiller *m_killer = nullptr;
    QString m_title; ///< of the window, without the mark of an edited one
    QString m_complaint;
    int m_words = 0;
    int m_titles = 3;
};
