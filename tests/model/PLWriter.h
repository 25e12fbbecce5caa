// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/PLWriterModel.h"
#include "notebook_window/PLNotebookWindowFixture.h"

#include <span>

/// One thing that a writer does, with the numbers that say how: what they mean depends on the notebook as it
/// is then, so that any part of a sequence can be played again.
struct PLWriterStep
{
    int action = 0;
    quint32 first = 0;
    quint32 second = 0;

    QString description() const;
};

/// Sits at the real notebook window, does what it is told, and compares the screen and the disk with the
/// model after each step.
class PLWriter final
{
public:
    PLWriter();
    ~PLWriter();

    /// How many kinds of steps there are.
    static int actionCount();
    /// What is wrong after the step; null if all is as it must be.
    QString perform(const PLWriterStep &step);

private:
    friend struct PLWriterActions;

    void openNotebook();
    QString checkScreen() const;
    QString checkDisk() const;
    QString checkList() const;
    QMap<QString, QByteArray> filesOnDisk() const;

    /// The page was, or had to be, written just now.
    void expectSaved();
    /// Takes a page that the program has just made into the model; its path, null with the error if it is not
    /// one page more.
    QString takeNewPage();
    void settle() const;
    PLPageTextView *textView() const { return m_window->textView(); }
    QString fail(const QString &text) const;

    std::unique_ptr<PLNotebookWindowFixture> m_window;
    PLWriterModel m_model;
    bool m_listIsOld = false; ///< the disk was changed from outside since the list was read
    int m_counter = 0;
    mutable QString m_failure;
};
