// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldModel.h"
#include "foundation/PLText.h"
#include "storage/PLProjectItem.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <utility>

namespace {

bool isSeparator(QChar character)
{
    return character == u',' || PLIsNewline(character);
}

/// The text with a space for each control character that ends no line: a header could not keep them.
QString withoutControls(QString text)
{
    const auto isControl = [](QChar character) {
        return character.category() == QChar::Other_Control && !PLIsNewline(character);
    };
    std::replace_if(text.begin(), text.end(), isControl, QChar(u' '));
    return text;
}

QStringList pieces(const QString &text)
{
    QStringList pieces{QString()};
    for (const QChar character : text) {
        if (isSeparator(character))
            pieces.append(QString());
        else
            pieces.last() += character;
    }
    return pieces;
}

/// In whatever case; -1 if it is not there.
int indexOfTag(const QStringList &tags, const QString &tag)
{
    const auto isTag = [key = tag.toLower()](const QString &other) { return other.toLower() == key; };
    const auto found = std::find_if(tags.begin(), tags.end(), isTag);
    return found == tags.end() ? -1 : int(found - tags.begin());
}

int previousCharacter(const QString &text, int offset)
{
    return offset - (PLSplitsPair(text, offset - 1) ? 2 : 1);
}

int nextGrapheme(const QString &text, int offset)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(offset);
    do
        finder.toNextBoundary();
    while (PLSplitsPair(text, finder.position()));
    return int(finder.position());
}

} // namespace

void PLTagFieldModel::insertText(const QString &text)
{
    const bool makesTokens = std::any_of(text.begin(), text.end(), isSeparator);
    edit(makesTokens ? Kind::Other : Kind::Typing, [&] { insert(text, false); });
}

void PLTagFieldModel::insertPasted(const QString &text)
{
    edit(Kind::Other, [&] { insert(text, true); });
}

void PLTagFieldModel::insertTags(const QStringList &tags)
{
    edit(Kind::Other, [&] {
        removeSelected();
        turnTextIntoTokens();
        addTokens(filtered(tags, m_state.caret), m_state.caret);
    });
}

void PLTagFieldModel::prepareForTyping()
{
    edit(Kind::Other, [&] {
        removeSelected();
        openTextAtCaret();
    });
}

void PLTagFieldModel::completeText(const QString &tag)
{
    edit(Kind::Other, [&] {
        removeSelected();
        openTextAtCaret();
        m_state.text = tag;
        setCaret(m_state.textIndex);
        turnTextIntoTokens();
    });
}

void PLTagFieldModel::commitText()
{
    edit(Kind::Other, [&] { turnTextIntoTokens(); });
}

void PLTagFieldModel::editToken(int token)
{
    if (token < 0 || token >= m_state.tokens.size())
        return;
    edit(Kind::Other, [&] {
        const QString tag = m_state.tokens[token];
        turnTextIntoTokens();
        const int index = indexOfTag(m_state.tokens, tag);
        if (index < 0)
            return;
        m_state.text = m_state.tokens.takeAt(index);
        m_state.textIndex = index;
        m_state.anchor = index;
        m_state.caret = textEnd();
    });
}

void PLTagFieldModel::deleteBackward()
{
    const int start = m_state.textIndex;
    if (hasSelection())
        removeSelection();
    else if (isCaretInText() && m_state.caret > start)
        edit(Kind::Deleting, [&] {
            removeRange(start + previousCharacter(m_state.text, m_state.caret - start), m_state.caret);
        });
    else
        setSelection(m_state.caret, m_state.caret - 1);
}

void PLTagFieldModel::deleteForward()
{
    const int start = m_state.textIndex;
    if (hasSelection())
        removeSelection();
    else if (isCaretInText() && m_state.caret < textEnd())
        edit(Kind::Deleting,
             [&] { removeRange(m_state.caret, start + nextGrapheme(m_state.text, m_state.caret - start)); });
    else
        setSelection(m_state.caret, m_state.caret + 1);
}

void PLTagFieldModel::deleteWordBackward()
{
    const bool hasWord = !hasSelection() && isCaretInText() && m_state.caret > m_state.textIndex;
    if (!hasWord)
        return deleteBackward();
    edit(Kind::Other, [&] { removeRange(positionBeforeWord(m_state.caret), m_state.caret); });
}

void PLTagFieldModel::deleteWordForward()
{
    const bool hasWord = !hasSelection() && isCaretInText() && m_state.caret < textEnd();
    if (!hasWord)
        return deleteForward();
    edit(Kind::Other, [&] { removeRange(m_state.caret, positionAfterWord(m_state.caret)); });
}

void PLTagFieldModel::removeSelection()
{
    edit(Kind::Other, [&] { removeSelected(); });
}

void PLTagFieldModel::removeText(int offset, int length)
{
    const auto place = [this](int at) {
        return snapped(qBound(m_state.textIndex, m_state.textIndex + at, textEnd()));
    };
    const int start = place(offset);
    edit(Kind::Other, [&] { removeRange(start, qMax(start, place(offset + length))); });
}

void PLTagFieldModel::removeToken(int token)
{
    if (token < 0 || token >= m_state.tokens.size())
        return;
    const int position = positionOfToken(token);
    edit(Kind::Other, [&] { removeRange(position, position + 1); });
}

void PLTagFieldModel::moveSelection(int position)
{
    const int start = selectionStart();
    const int end = selectionEnd();
    if (position >= start && position <= end)
        return;
    edit(Kind::Other, [&] {
        const QStringList tags = PLProjectItem::normalizedTags(selectedTags());
        removeRange(start, end);
        setCaret(position > end ? position - (end - start) : position);
        turnTextIntoTokens();
        const int index = m_state.caret;
        addTokens(tags, index);
        m_state.anchor = qMin(index, m_state.caret);
    });
}

void PLTagFieldModel::insert(const QString &text, bool isPasted)
{
    removeSelected();
    openTextAtCaret();
    const int offset = m_state.caret - m_state.textIndex;
    QStringList parts = pieces(m_state.text.left(offset) + withoutControls(text));
    QString rest = m_state.text.mid(offset);
    if (isPasted && parts.size() > 1) {
        parts.last() += std::exchange(rest, QString());
        parts.append(QString());
    }
    const QString typed = parts.takeLast();
    m_state.text.clear();
    setCaret(m_state.textIndex);
    addTokens(filtered(parts, m_state.textIndex), m_state.textIndex);
    m_state.textIndex = m_state.caret;
    m_state.text = typed + rest;
    setCaret(m_state.textIndex + int(typed.size()));
}

void PLTagFieldModel::removeRange(int start, int end)
{
    const int textStart = m_state.textIndex;
    const int size = int(m_state.text.size());
    const auto removeTokens = [this](int first, int last) {
        if (last > first)
            m_state.tokens.remove(first, last - first);
        return qMax(0, last - first);
    };
    removeTokens(qMax(start, textStart + size) - size, end - size);
    const int first = qMax(start, textStart) - textStart;
    const int last = qMin(end - textStart, size);
    if (last > first)
        m_state.text.remove(first, last - first);
    m_state.textIndex -= removeTokens(start, qMin(end, textStart));
    setCaret(start);
}

void PLTagFieldModel::openTextAtCaret()
{
    if (isCaretInText())
        return;
    turnTextIntoTokens();
    m_state.textIndex = m_state.caret;
}

/// A caret in the text ends up after the new token.
void PLTagFieldModel::turnTextIntoTokens()
{
    const QString typed = std::exchange(m_state.text, QString());
    const int index = m_state.textIndex;
    const int size = int(typed.size());
    setCaret(m_state.caret > index + size ? m_state.caret - size : qMin(m_state.caret, index));
    addTokens(filtered({typed}, index), index);
}

/// Only while there is no typed text. A caret at the index ends up after the new tokens.
void PLTagFieldModel::addTokens(const QStringList &tags, int index)
{
    QStringList tokens = m_state.tokens.first(index) + tags + m_state.tokens.sliced(index);
    const int caret = m_state.caret < index ? m_state.caret : m_state.caret + int(tags.size());
    // Of a tag that is there twice the first one stays, so the tags before the caret are the same without the
    // rest.
    setCaret(int(PLProjectItem::normalizedTags(tokens.first(caret)).size()));
    m_state.tokens = PLProjectItem::normalizedTags(tokens);
    m_state.textIndex = qMin(index, int(m_state.tokens.size()));
}
