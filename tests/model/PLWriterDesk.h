// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "model/PLWriterModel.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLProjectWindowController.h"
#include "notebook_window/PLSidebarController.h"
#include "platform/PLWindow.h"
#include "support/PLTestNotebook.h"

class QLineEdit;
class QTimer;

/// One of the writer's notebooks: its folder, its window while it is open, and what must be in both.
struct PLWriterDesk
{
    /// Fills the notebook with a few pages that are not all alike.
    explicit PLWriterDesk(const QString &title);

    bool isOpen() const { return controller != nullptr; }
    bool hasPage() const { return !model.current.isNull(); }
    PLSidebarController &sidebar() const { return controller->sidebar(); }
    PLPageSession &session() const { return controller->session(); }
    PLEditorView *editor() const { return controller->editorView(); }
    PLPageTextView *textView() const { return editor()->textView(); }
    void perform(PLCommand command, int tag = 0) const { controller->performCommand(command, tag); }
    /// The field in which a title is typed, null when none is.
    QLineEdit *titleField() const;
    /// What saves the page two seconds after the last change. Those never pass by themselves here.
    QTimer *saveTimer() const;
    /// By their paths in the notebook.
    QMap<QString, QByteArray> filesOnDisk() const;
    QString pathOf(const PLProjectItem &item) const;

    /// Its window is there, with a page that the program has chosen.
    void wasOpened(PLProjectWindowController *window);
    /// The window has got the focus: the list, and a page that has not been written in, follow the disk.
    void becameKey();
    /// The list of pages was read from the disk just now.
    void listWasRead() { listIsOld = tagsAreOld = false; }
    /// The page was, or had to be, written just now. If the file is not what it was left as, its text is kept
    /// in a page beside it.
    void expectSaved();
    /// The page was edited just now: this is what the screen must show.
    void expectText(const QString &text);
    /// The same of the text as it was, with `inserted` in place of the range.
    void expectInserted(const PLTextRange &range, const QString &inserted);
    /// Takes a page that the program has just made into the model; its path, null with the failure if it is
    /// not one page more.
    QString takeNewPage();

    /// What is wrong, null if nothing is.
    QString check() const;
    QString checkDisk() const;
    void fail(const QString &text);

    PLTestNotebook notebook;
    PLProjectWindowController *controller = nullptr; ///< null while the notebook is closed
    PLWriterModel model;
    bool listIsOld = false;  ///< pages have come or gone by other programs since the list was read
    bool tagsAreOld = false; ///< other programs have changed tags since
    int counter = 0;         ///< of what other programs have done
    QString failure;         ///< the first thing that went wrong within a step

private:
    QString checkScreen() const;
    QString checkSaving() const;
    QString checkList() const;
    QString checkTags() const;
};
