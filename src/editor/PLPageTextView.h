// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPageCharacters.h"
#include "editor/PLTextEdit.h"
#include "editor/PLTypingSteps.h"
#include "platform/PLCommand.h"

#include <QTextEdit>
#include <QTimer>

#include <memory>

class PLPageLayout;

/// The two ends of a selection as the writer made it, which may be from right to left.
struct PLSelectionEnds
{
    int anchor = 0;
    int position = 0;
};

/// The page in which the writer writes: a column of text of at most 720 points in the middle of the pane,
/// with a thin margin rule on its left. It gives back every character of the text it was given.
class PLPageTextView final : public QTextEdit, public PLCommandHandler
{
    Q_OBJECT

public:
    explicit PLPageTextView(QWidget *parent = nullptr);
    ~PLPageTextView() override;

    /// Loads a page; undo does not reach back before it, and textDidChange is not sent. Line ends are "\n".
    void setPageText(const QString &text);
    QString pageText() const;

    PLTextRange selectedRange() const;

    /// Puts the string in place of the range and selects `selecting` after it, as one undo step that brings
    /// back both the text and the selection. Does nothing if the page cannot be edited; a string that is
    /// there already is no change.
    void replaceRange(PLTextRange range, const QString &string, PLTextRange selecting);
    /// Puts the string in place of the range, as one undo step; the focus stays where it is. A string that is
    /// there already is no change.
    void replaceText(PLTextRange range, const QString &string);
    /// For the undo history: what to select when the step that is being undone or redone is over.
    void restoreAfterStep(PLSelectionEnds ends);

    /// For the undo history: a mark between two steps of typing was passed.
    void passStepMark() { m_passedStepMark = true; }

    /// These stand before the toolkit's own, which leave a caret where a step had a selection.
    void undo();
    void redo();

    /// Where the margin rule stands for such an inset, nothing if there is no room for it.
    static std::optional<int> marginRuleForInset(int inset);

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

Q_SIGNALS:
    /// The writer has changed the text; loading a page does not count.
    void textDidChange();
    /// A context menu is about to be shown for this position of the page; more can be added at its top.
    void contextMenuWillOpen(QMenu *menu, int position);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void applyColors();
    void drawBackgroundInRect(const QRect &rect);
    void layOutMore();
    PLPageLayout *pageLayout() const;
    void type(QKeyEvent *event);
    void insertPageText(const QString &text);
    void replaceSelection(QTextCursor &cursor, const QString &text);
    QString pageTextOf(const QTextCursor &selection) const;
    PLSelectionEnds selectionEnds() const;
    void select(PLSelectionEnds ends);
    void restoreSelection();
    void beginUndoStep();

    std::unique_ptr<PLPageCharacters> m_characters;
    QTextDocument *m_loadedDocument = nullptr;
    QTimer m_layoutTimer; ///< runs while paragraphs are still to be laid out
    std::optional<PLSelectionEnds> m_selectionToRestore;
    PLTypingSteps m_typingSteps;
    QTextCursor m_keptInSight; ///< by resizing, as long as the page is scrolled to m_keptScroll
    int m_keptScroll = -1;
    bool m_passedStepMark = false; ///< undo or redo has met nothing but the mark between two steps
    bool m_loading = false;
};
