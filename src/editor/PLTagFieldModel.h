// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// What a tag field holds, without its look: tags that are tokens, the text being typed among them, the
/// selection and what can be undone.
///
/// A position counts 1 for each token and 1 for each UTF-16 unit of the typed text. The tokens are always
/// normalised: none is empty, holds a comma, or is there twice but for case.
class PLTagFieldModel final
{
public:
    /// Gives the tags to add instead of the new ones at an index; see PLTagFieldDelegate.
    using Filter = std::function<QStringList(const QStringList &tags, int index)>;
    void setFilter(Filter filter) { m_filter = std::move(filter); }

    /// Replaces everything. Nothing is left to undo, the caret is at the end.
    void setTags(const QStringList &tags);
    /// The tags, the text being typed counting as one.
    QStringList tags() const;

    const QStringList &tokens() const { return m_state.tokens; }
    /// The text being typed, and how many tokens stand before it.
    const QString &text() const { return m_state.text; }
    int textIndex() const { return m_state.textIndex; }
    int textEnd() const { return m_state.textIndex + int(m_state.text.size()); }
    /// The position after everything.
    int length() const { return int(m_state.tokens.size() + m_state.text.size()); }

    int caret() const { return m_state.caret; }
    int anchor() const { return m_state.anchor; }
    int selectionStart() const { return qMin(m_state.caret, m_state.anchor); }
    int selectionEnd() const { return qMax(m_state.caret, m_state.anchor); }
    bool hasSelection() const { return m_state.caret != m_state.anchor; }
    /// True if the caret stands in the typed text or at one of its ends.
    bool isCaretInText() const;
    bool isTokenSelected(int token) const;
    /// The token that alone is selected.
    std::optional<int> selectedToken() const;
    /// The token between a position and the next, nothing if there is typed text.
    std::optional<int> tokenAtPosition(int position) const;
    int positionOfToken(int token) const;
    /// The selected tags; typed text that is selected counts as one.
    QStringList selectedTags() const;
    /// "a, b", or the selected part of the typed text as it is.
    QString selectedText() const;

    void setSelection(int anchor, int caret);
    void moveCaret(int position, bool extend = false);
    void selectAll() { setSelection(0, length()); }
    /// Where a caret that jumps over a word or a token ends up.
    int positionAfterWord(int position) const;
    int positionBeforeWord(int position) const;

    /// Types at the caret, in place of the selection; what stands before a comma or a line end becomes
    /// tokens.
    void insertText(const QString &text);
    /// The same, but a text with a comma or a line end becomes tokens to its last piece.
    void insertPasted(const QString &text);
    /// Adds tags as tokens at the caret, in place of the selection.
    void insertTags(const QStringList &tags);
    /// Removes the selection and makes the caret a place to type; what is being typed elsewhere becomes a
    /// token.
    void prepareForTyping();
    /// Puts another text in the place of the typed one as one token.
    void completeText(const QString &tag);
    /// Makes a token of the text being typed.
    void commitText();
    /// Makes the token the text being typed, all of it selected.
    void editToken(int token);
    /// Removes the selection; else the character before (after) the caret, or selects the token that stands
    /// there.
    void deleteBackward();
    void deleteForward();
    void deleteWordBackward();
    void deleteWordForward();
    void removeSelection();
    /// Removes a part of the typed text.
    void removeText(int offset, int length);
    void removeToken(int token);
    /// Moves what is selected to another position.
    void moveSelection(int position);

    bool canUndo() const { return !m_undo.empty(); }
    bool canRedo() const { return !m_redo.empty(); }
    void undo();
    void redo();
    /// What is typed next is a step of its own.
    void endUndoStep() { m_lastKind = Kind::Other; }

private:
    struct State
    {
        QStringList tokens;
        QString text;
        int textIndex = 0;
        int anchor = 0;
        int caret = 0;
    };
    enum class Kind { Other, Typing, Deleting };

    void edit(Kind kind, const std::function<void()> &change);
    void setCaret(int position) { m_state.anchor = m_state.caret = position; }
    int snapped(int position) const;
    void insert(const QString &text, bool isPasted);
    void removeRange(int start, int end);
    void removeSelected() { removeRange(selectionStart(), selectionEnd()); }
    void openTextAtCaret();
    void turnTextIntoTokens();
    void addTokens(const QStringList &tags, int index);
    QStringList filtered(const QStringList &tags, int index) const;

    State m_state;
    std::vector<State> m_undo;
    std::vector<State> m_redo;
    Kind m_lastKind = Kind::Other;
    Filter m_filter;
};
