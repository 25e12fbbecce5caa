// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldModel.h"

#include "foundation/PLText.h"
#include "storage/PLProjectItem.h"

#include <QTextBoundaryFinder>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Twice, since a comma at an end only becomes white space to trim the first time.
QStringList normalized(const QStringList &tags)
{
    return PLProjectItem::normalizedTags(PLProjectItem::normalizedTags(tags));
}

bool isStartOfWord(const QTextBoundaryFinder &finder, const QString &text)
{
    return (finder.boundaryReasons() & QTextBoundaryFinder::StartOfItem) &&
           !PLSplitsPair(text, finder.position());
}

} // namespace

void PLTagFieldModel::setTags(const QStringList &tags)
{
    m_state = State{normalized(tags), QString(), 0, 0, 0};
    setCaret(length());
    m_undo.clear();
    m_redo.clear();
    endUndoStep();
}

QStringList PLTagFieldModel::tags() const
{
    QStringList tags = m_state.tokens;
    tags.insert(m_state.textIndex, m_state.text);
    return normalized(tags);
}

bool PLTagFieldModel::isCaretInText() const
{
    return !m_state.text.isEmpty() && m_state.caret >= m_state.textIndex && m_state.caret <= textEnd();
}

bool PLTagFieldModel::isTokenSelected(int token) const
{
    const int position = positionOfToken(token);
    return position >= selectionStart() && position < selectionEnd();
}

std::optional<int> PLTagFieldModel::selectedToken() const
{
    return selectionEnd() - selectionStart() == 1 ? tokenAtPosition(selectionStart()) : std::nullopt;
}

std::optional<int> PLTagFieldModel::tokenAtPosition(int position) const
{
    if (position < 0 || position >= length())
        return std::nullopt;
    if (position < m_state.textIndex)
        return position;
    return position < textEnd() ? std::nullopt : std::optional(position - int(m_state.text.size()));
}

int PLTagFieldModel::positionOfToken(int token) const
{
    return token < m_state.textIndex ? token : token + int(m_state.text.size());
}

QStringList PLTagFieldModel::selectedTags() const
{
    QStringList tags;
    for (int position = selectionStart(); position < selectionEnd(); ++position) {
        if (const std::optional<int> token = tokenAtPosition(position)) {
            tags.append(m_state.tokens[*token]);
            continue;
        }
        const int end = qMin(selectionEnd(), textEnd());
        tags.append(m_state.text.mid(position - m_state.textIndex, end - position));
        position = end - 1;
    }
    return tags;
}

QString PLTagFieldModel::selectedText() const
{
    return selectedTags().join(u", "_s);
}

void PLTagFieldModel::setSelection(int anchor, int caret)
{
    const int newAnchor = snapped(anchor);
    const int newCaret = snapped(caret);
    if (newAnchor == m_state.anchor && newCaret == m_state.caret)
        return;
    m_state.anchor = newAnchor;
    m_state.caret = newCaret;
    endUndoStep();
}

void PLTagFieldModel::moveCaret(int position, bool extend)
{
    setSelection(extend ? m_state.anchor : position, position);
}

int PLTagFieldModel::positionAfterWord(int position) const
{
    if (position < m_state.textIndex || position >= textEnd())
        return qMin(position + 1, length());
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, m_state.text);
    finder.setPosition(position - m_state.textIndex);
    do
        finder.toNextBoundary();
    while (finder.position() < m_state.text.size() && !isStartOfWord(finder, m_state.text));
    return m_state.textIndex + int(finder.position());
}

int PLTagFieldModel::positionBeforeWord(int position) const
{
    if (position <= m_state.textIndex || position > textEnd())
        return qMax(position - 1, 0);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, m_state.text);
    finder.setPosition(position - m_state.textIndex);
    do
        finder.toPreviousBoundary();
    while (finder.position() > 0 && !isStartOfWord(finder, m_state.text));
    return m_state.textIndex + int(finder.position());
}

void PLTagFieldModel::undo()
{
    if (!canUndo())
        return;
    m_redo.push_back(std::exchange(m_state, m_undo.back()));
    m_undo.pop_back();
    endUndoStep();
}

void PLTagFieldModel::redo()
{
    if (!canRedo())
        return;
    m_undo.push_back(std::exchange(m_state, m_redo.back()));
    m_redo.pop_back();
    endUndoStep();
}

/// Makes a change that can be undone, in one step with the change before if both are typing or both deleting.
void PLTagFieldModel::edit(Kind kind, const std::function<void()> &change)
{
    const State before = m_state;
    change();
    const bool isTextInPlace = before.textIndex == m_state.textIndex || m_state.text.isEmpty();
    if (before.tokens == m_state.tokens && before.text == m_state.text && isTextInPlace)
        return;
    const bool joins = kind != Kind::Other && kind == m_lastKind && canUndo();
    if (!joins)
        m_undo.push_back(before);
    m_redo.clear();
    m_lastKind = kind;
}

/// A position that exists and is not inside a surrogate pair.
int PLTagFieldModel::snapped(int position) const
{
    const int inside = qBound(0, position, length());
    return PLSplitsPair(m_state.text, inside - m_state.textIndex) ? inside - 1 : inside;
}

QStringList PLTagFieldModel::filtered(const QStringList &tags, int index) const
{
    const QStringList clean = normalized(tags);
    return m_filter && !clean.isEmpty() ? normalized(m_filter(clean, index)) : clean;
}
