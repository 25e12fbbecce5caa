// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "PLPlainTagField.h"

#include "foundation/PLText.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Tags as the storage keeps them: trimmed, without commas, each once whatever its case.
QStringList cleaned(const QStringList &tags)
{
    QStringList result;
    QSet<QString> met;
    for (const QString &tag : tags) {
        const QString spaced = PLTrimmedSpacesAndNewlines(tag).toString().replace(u',', u' ');
        const QString name = PLTrimmedSpacesAndNewlines(spaced).toString();
        if (name.isEmpty() || met.contains(name.toLower()))
            continue;
        met.insert(name.toLower());
        result.append(name);
    }
    return result;
}

bool isSeparator(const QString &unit)
{
    return unit == u"," || PLIsNewline(unit.front());
}

QStringList unitsOf(const QString &text)
{
    QStringList units;
    for (const QChar character : text) {
        const bool isControl = character.category() == QChar::Other_Control && !PLIsNewline(character);
        units.append(isControl ? u" "_s : QString(character));
    }
    return units;
}

} // namespace

void PLPlainTagField::setTags(const QStringList &tags)
{
    m_now = {};
    insertElements(cleaned(tags), true);
    m_undo.clear();
    m_redo.clear();
    m_last = Kind::Other;
}

QStringList PLPlainTagField::tokens() const
{
    QStringList tokens;
    for (const Element &element : m_now.row) {
        if (element.isTag)
            tokens.append(element.text);
    }
    return tokens;
}

QString PLPlainTagField::text() const
{
    QString text;
    for (const Element &element : m_now.row) {
        if (!element.isTag)
            text += element.text;
    }
    return text;
}

QStringList PLPlainTagField::tags() const
{
    QStringList tags = tokens();
    tags.insert(typedStart(), text());
    return cleaned(tags);
}

void PLPlainTagField::setSelection(int anchor, int caret)
{
    const int newAnchor = snapped(anchor);
    const int newCaret = snapped(caret);
    if (newAnchor != m_now.anchor || newCaret != m_now.caret)
        m_last = Kind::Other;
    m_now.anchor = newAnchor;
    m_now.caret = newCaret;
}

void PLPlainTagField::insertText(const QString &text)
{
    const QStringList units = unitsOf(text);
    const bool makesTags = std::any_of(units.begin(), units.end(), isSeparator);
    edit(makesTags ? Kind::Other : Kind::Typing, [&] { insert(text, false); });
}

void PLPlainTagField::insertPasted(const QString &text)
{
    edit(Kind::Other, [&] { insert(text, true); });
}

void PLPlainTagField::insertTags(const QStringList &tags)
{
    edit(Kind::Other, [&] {
        eraseSelection();
        commit();
        const QStringList clean = cleaned(tags);
        insertElements(clean.isEmpty() ? clean : cleaned(m_filter(clean)), true);
        dropSecondTags();
    });
}

void PLPlainTagField::prepareForTyping()
{
    edit(Kind::Other, [&] {
        eraseSelection();
        openText();
    });
}

void PLPlainTagField::completeText(const QString &tag)
{
    edit(Kind::Other, [&] {
        eraseSelection();
        openText();
        if (isCaretInText())
            erase(typedStart(), typedEnd());
        const QStringList clean = cleaned({tag});
        insertElements(clean.isEmpty() ? clean : cleaned(m_filter(clean)), true);
        dropSecondTags();
    });
}

void PLPlainTagField::commitText()
{
    edit(Kind::Other, [&] { commit(); });
}

void PLPlainTagField::editToken(int token)
{
    if (token < 0 || token >= tokens().size())
        return;
    edit(Kind::Other, [&] {
        const QString key = tokens()[token].toLower();
        commit();
        const auto place = std::find_if(m_now.row.begin(), m_now.row.end(),
                                        [&](const Element &tag) { return tag.text.toLower() == key; });
        const QString text = place->text;
        const int index = int(place - m_now.row.begin());
        erase(index, index + 1);
        insertElements(text.split(QString(), Qt::SkipEmptyParts), false);
        m_now.anchor = index;
    });
}

void PLPlainTagField::remove(int start, int end, bool isStep)
{
    edit(isStep ? Kind::Deleting : Kind::Other, [&] { erase(start, end); });
}

void PLPlainTagField::removeSelection()
{
    edit(Kind::Other, [&] { eraseSelection(); });
}

void PLPlainTagField::moveSelection(int position)
{
    const auto [start, end] = std::minmax(m_now.anchor, m_now.caret);
    if (position >= start && position <= end)
        return;
    edit(Kind::Other, [&, first = start, last = end] {
        QStringList moved;
        QString typed;
        for (int index = first; index <= last; ++index) {
            const bool isTyped = index < last && !m_now.row[size_t(index)].isTag;
            if (isTyped)
                typed += m_now.row[size_t(index)].text;
            else
                moved.append(std::exchange(typed, QString()));
            if (index < last && !isTyped)
                moved.append(m_now.row[size_t(index)].text);
        }
        erase(first, last);
        setCaret(position > last ? position - (last - first) : position);
        commit();
        const int index = m_now.caret;
        insertElements(cleaned(moved), true);
        dropSecondTags();
        m_now.anchor = qMin(index, m_now.caret);
    });
}

/// What is typed or deleted one after the other is one step.
void PLPlainTagField::edit(Kind kind, const std::function<void()> &change)
{
    const State before = m_now;
    change();
    if (before.row == m_now.row)
        return;
    if (kind == Kind::Other || kind != m_last || m_undo.empty())
        m_undo.push_back(before);
    m_redo.clear();
    m_last = kind;
}

void PLPlainTagField::exchange(std::vector<State> &from, std::vector<State> &to)
{
    if (from.empty())
        return;
    to.push_back(m_now);
    m_now = from.back();
    from.pop_back();
    m_last = Kind::Other;
}

/// Before a surrogate pair, where the position is in it.
int PLPlainTagField::snapped(int position) const
{
    const int inside = qBound(0, position, length());
    if (inside == 0 || inside == length())
        return inside;
    const Element &before = m_now.row[size_t(inside - 1)];
    const Element &after = m_now.row[size_t(inside)];
    const bool isPair = !before.isTag && !after.isTag && before.text.front().isHighSurrogate() &&
                        after.text.front().isLowSurrogate();
    return isPair ? inside - 1 : inside;
}

int PLPlainTagField::typedStart() const
{
    const auto isTyped = [](const Element &element) { return !element.isTag; };
    const auto first = std::find_if(m_now.row.begin(), m_now.row.end(), isTyped);
    return first == m_now.row.end() ? m_now.caret : int(first - m_now.row.begin());
}

int PLPlainTagField::typedEnd() const
{
    return typedStart() + int(text().size());
}

bool PLPlainTagField::isCaretInText() const
{
    return !text().isEmpty() && m_now.caret >= typedStart() && m_now.caret <= typedEnd();
}

void PLPlainTagField::erase(int start, int end)
{
    m_now.row.erase(m_now.row.begin() + start, m_now.row.begin() + end);
    setCaret(start);
}

void PLPlainTagField::eraseSelection()
{
    const auto [start, end] = std::minmax(m_now.anchor, m_now.caret);
    erase(start, end);
}

/// Before the caret.
void PLPlainTagField::insertElements(const QStringList &texts, bool areTags)
{
    for (const QString &text : texts) {
        m_now.row.insert(m_now.row.begin() + m_now.caret, Element{areTags, text});
        setCaret(m_now.caret + 1);
    }
}

void PLPlainTagField::insert(const QString &text, bool isPasted)
{
    eraseSelection();
    openText();
    const int start = isCaretInText() ? typedStart() : m_now.caret;
    insertElements(unitsOf(text), false);
    const auto isEnd = [](const Element &element) { return !element.isTag && isSeparator(element.text); };
    const auto caret = m_now.row.rend() - m_now.caret;
    const auto separator = std::find_if(caret, m_now.row.rend() - start, isEnd);
    if (separator == m_now.row.rend() - start)
        return;
    if (isPasted)
        return makeTags(start, typedEnd(), m_now.caret);
    const int end = int(m_now.row.rend() - separator);
    const int typed = m_now.caret - end;
    m_now.caret = end;
    makeTags(start, end, end);
    setCaret(m_now.caret + typed);
}

void PLPlainTagField::commit()
{
    makeTags(typedStart(), typedEnd(), typedStart());
}

/// Makes tags of these units of the typed text, cut at the separators before `cutEnd`; a caret at them comes
/// after the tags.
void PLPlainTagField::makeTags(int start, int end, int cutEnd)
{
    QStringList pieces{QString()};
    for (int index = start; index < end; ++index) {
        const QString &unit = m_now.row[size_t(index)].text;
        if (index < cutEnd && isSeparator(unit))
            pieces.append(QString());
        else
            pieces.last() += unit;
    }
    const int caret = m_now.caret;
    erase(start, end);
    const QStringList clean = cleaned(pieces);
    const QStringList tags = clean.isEmpty() ? clean : cleaned(m_filter(clean));
    insertElements(tags, true);
    if (caret < start)
        setCaret(caret);
    else if (caret > end)
        setCaret(caret - (end - start) + int(tags.size()));
    dropSecondTags();
}

void PLPlainTagField::dropSecondTags()
{
    QSet<QString> met;
    for (int index = 0; index < length();) {
        const Element &element = m_now.row[size_t(index)];
        const QString key = element.text.toLower();
        if (!element.isTag || !met.contains(key)) {
            met.insert(element.isTag ? key : QString());
            ++index;
            continue;
        }
        m_now.row.erase(m_now.row.begin() + index);
        setCaret(m_now.caret - (index < m_now.caret ? 1 : 0));
    }
}

void PLPlainTagField::openText()
{
    if (!isCaretInText())
        commit();
}
