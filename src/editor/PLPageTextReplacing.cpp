// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The edits of PLPageTextView that come from a command, and the selection that undo and redo bring back.

#include "editor/PLPageTextView.h"

#include <QTextDocument>

namespace {

/// An item of the document's own undo history, within the step of an edit: Qt's undo leaves a caret (6.4),
/// this one brings back what was selected. The history deletes it; the view outlives the history.
class PLSelectionUndoItem final : public QAbstractUndoItem
{
public:
    PLSelectionUndoItem(PLPageTextView &view, PLSelectionEnds before, PLSelectionEnds after)
        : m_view(view), m_before(before), m_after(after)
    {
    }

    void undo() override { m_view.restoreAfterStep(m_before); }
    void redo() override { m_view.restoreAfterStep(m_after); }

private:
    PLPageTextView &m_view;
    PLSelectionEnds m_before;
    PLSelectionEnds m_after;
};

/// Stands between two steps of typing, which the history would otherwise make one.
class PLStepMark final : public QAbstractUndoItem
{
public:
    explicit PLStepMark(PLPageTextView &view) : m_view(view) {}

    void undo() override { m_view.passStepMark(); }
    void redo() override { m_view.passStepMark(); }

private:
    PLPageTextView &m_view;
};

} // namespace

PLTextRange PLPageTextView::selectedRange() const
{
    const QTextCursor cursor = textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void PLPageTextView::replaceRange(PLTextRange range, const QString &string, PLTextRange selecting)
{
    if (isReadOnly())
        return;
    const PLSelectionEnds before = selectionEnds();
    const PLSelectionEnds after{int(selecting.position), int(selecting.end())};
    QTextCursor cursor(document());
    cursor.setPosition(int(range.position));
    cursor.setPosition(int(range.end()), QTextCursor::KeepAnchor);
    if (pageTextOf(cursor) != string) {
        cursor.beginEditBlock();
        replaceSelection(cursor, string);
        document()->appendUndoItem(new PLSelectionUndoItem(*this, before, after));
        cursor.endEditBlock();
    }
    select(after);
    setFocus();
}

void PLPageTextView::replaceText(PLTextRange range, const QString &string)
{
    QTextCursor cursor(document());
    cursor.setPosition(int(range.position));
    cursor.setPosition(int(range.end()), QTextCursor::KeepAnchor);
    if (pageTextOf(cursor) != string)
        replaceSelection(cursor, string);
}

void PLPageTextView::undo()
{
    do {
        m_passedStepMark = false;
        QTextEdit::undo();
    } while (m_passedStepMark && document()->isUndoAvailable());
    restoreSelection();
}

void PLPageTextView::redo()
{
    do {
        m_passedStepMark = false;
        QTextEdit::redo();
    } while (m_passedStepMark && document()->isRedoAvailable());
    restoreSelection();
}

/// Called while the document undoes; the selection can be set only when it has done. Undo that does not come
/// through this class (Qt's own context menu) is followed by the queued call.
void PLPageTextView::restoreAfterStep(PLSelectionEnds ends)
{
    m_selectionToRestore = ends;
    QMetaObject::invokeMethod(this, &PLPageTextView::restoreSelection, Qt::QueuedConnection);
}

void PLPageTextView::restoreSelection()
{
    if (const auto ends = std::exchange(m_selectionToRestore, std::nullopt))
        select(*ends);
}

PLSelectionEnds PLPageTextView::selectionEnds() const
{
    return {textCursor().anchor(), textCursor().position()};
}

/// Shows both ends where they fit, else the second one.
void PLPageTextView::select(PLSelectionEnds ends)
{
    const int last = document()->characterCount() - 1;
    QTextCursor cursor(document());
    cursor.setPosition(qMin(ends.anchor, last));
    setTextCursor(cursor);
    cursor.setPosition(qMin(ends.position, last), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void PLPageTextView::beginUndoStep()
{
    if (document()->isUndoAvailable())
        document()->appendUndoItem(new PLStepMark(*this));
}
