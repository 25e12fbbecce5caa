// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/PLAppDelegate.h"
#include "model/PLModelSearch.h"
#include "model/PLWriterDesk.h"
#include "support/PLTestEnvironment.h"

#include <QWidget>

#include <array>

class PLAlert;

/// One thing that a writer does, with the numbers that say how: what they mean depends on the notebooks as
/// they are then, so that any part of a sequence can be played again.
struct PLWriterStep
{
    int action = 0;
    quint32 first = 0;
    quint32 second = 0;

    QString description() const;
};

/// Sits at the real program with two notebooks, does what it is told, and compares the screen and the disk
/// with the model after each step. One notebook window has the focus whenever a step is over.
class PLWriter final
{
public:
    PLWriter();
    ~PLWriter();

    /// How many kinds of steps there are.
    static int actionCount();
    /// What is wrong after the step; null if all is as it must be.
    QString perform(const PLWriterStep &step);

    /// The notebook in front, and the one that is not.
    PLWriterDesk &desk() { return m_desks[m_front]; }
    PLWriterDesk &otherDesk() { return m_desks[1 - m_front]; }
    PLAppDelegate &program() { return *m_program; }

    /// Starts the program with both notebooks.
    void start();
    void quit();
    /// Closes the window in front; then no notebook has the focus.
    void closeWindow();
    /// Gives the focus to the notebook, which is opened if need be: by itself, by its file or in the library.
    void goTo(PLWriterDesk &desk, quint32 way);
    void showLibrary();
    /// Takes the book that stands there out of the library.
    void forgetBook(int index);
    /// To a window of another program, and back.
    void leave();
    void comeBack();
    /// What was put off until the event loop turns is done.
    void settle() const;

    QList<int> answers;   ///< to the next questions
    PLModelSearch search; ///< what is looked for, in any window

private:
    int answer(const PLAlert &alert);
    PLProjectWindowController *windowOf(const PLWriterDesk &desk) const;
    void open(const PLWriterDesk &desk, quint32 way);
    void openFromLibrary(const PLWriterDesk &desk);
    void takeOpenedWindow(PLWriterDesk &desk);
    QString check() const;
    QString checkLibrary() const;

    PLTestEnvironment m_environment;
    std::array<PLWriterDesk, 2> m_desks;
    size_t m_front = 0;
    bool m_hasFocus = false; ///< the notebook in front, and no other window
    QStringList m_known;     ///< the notebooks in the library
    QString m_failure;
    QWidget m_elsewhere; ///< a window of another program
    std::unique_ptr<PLAppDelegate> m_program;
};
