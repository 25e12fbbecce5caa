// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// PLTagFieldModel's rules once more, on a plain row of elements: each a tag, or one unit of the text that is
/// being typed. For comparison alone; nothing here is quick.
class PLPlainTagField final
{
public:
    using Filter = std::function<QStringList(const QStringList &tags)>;
    explicit PLPlainTagField(Filter filter) : m_filter(std::move(filter)) {}

    void setTags(const QStringList &tags);
    QStringList tokens() const;
    QString text() const;
    QStringList tags() const;
    int length() const { return int(m_now.row.size()); }
    int anchor() const { return m_now.anchor; }
    int caret() const { return m_now.caret; }
    bool canUndo() const { return !m_undo.empty(); }
    bool canRedo() const { return !m_redo.empty(); }

    void setSelection(int anchor, int caret);
    void insertText(const QString &text);
    void insertPasted(const QString &text);
    void insertTags(const QStringList &tags);
    void prepareForTyping();
    void completeText(const QString &tag);
    void commitText();
    void editToken(int token);
    /// Removes these elements; a whole character of the typed text as `isStep` of deleting.
    void remove(int start, int end, bool isStep = false);
    void removeSelection();
    void moveSelection(int position);
    void undo() { exchange(m_undo, m_redo); }
    void redo() { exchange(m_redo, m_undo); }
    void endUndoStep() { m_last = Kind::Other; }

private:
    struct Element
    {
        bool isTag = false;
        QString text;

        bool operator==(const Element &) const = default;
    };
    struct State
    {
        std::vector<Element> row;
        int anchor = 0;
        int caret = 0;
    };
    enum class Kind { Other, Typing, Deleting };

    void edit(Kind kind, const std::function<void()> &change);
    void exchange(std::vector<State> &from, std::vector<State> &to);
    int snapped(int position) const;
    int typedStart() const;
    int typedEnd() const;
    bool isCaretInText() const;
    void setCaret(int position) { m_now.anchor = m_now.caret = position; }
    void erase(int start, int end);
    void eraseSelection();
    void insertElements(const QStringList &texts, bool areTags);
    void insert(const QString &text, bool isPasted);
    void commit();
    void makeTags(int start, int end, int cutEnd);
    void dropSecondTags();
    void openText();

    Filter m_filter;
    State m_now;
    std::vector<State> m_undo;
    std::vector<State> m_redo;
    Kind m_last = Kind::Other;
};
