// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageTextTarget.h"

#include "editor/PLFindMarks.h"
#include "editor/PLPageTextView.h"

#include <QTextCursor>

#include <algorithm>

PLPageTextTarget::PLPageTextTarget(PLPageTextView *view) : m_view(view) {}

QString PLPageTextTarget::text() const
{
    return m_view->pageText();
}

PLTextRange PLPageTextTarget::selection() const
{
    const QTextCursor cursor = m_view->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void PLPageTextTarget::select(const PLTextRange &range)
{
    QTextCursor cursor = m_view->textCursor();
    cursor.setPosition(range.position);
    cursor.setPosition(range.end(), QTextCursor::KeepAnchor);
    m_view->setTextCursor(cursor);
    m_view->ensureCursorVisible();
}

void PLPageTextTarget::replace(const PLTextRange &range, const QString &replacement)
{
    m_view->replaceText(range, replacement);
    select({range.position + replacement.size(), 0});
}

void PLPageTextTarget::takeFocus()
{
    m_view->activateWindow();
    m_view->setFocus();
}

/// From the last to the first, so that the positions of those before still hold. An edit block that changes
/// nothing would count as a change (Qt 6.4).
void PLPageTextTarget::replaceAll(const QList<PLTextRange> &ranges, const QString &replacement)
{
    const QString before = text();
    const bool isChange = std::any_of(ranges.begin(), ranges.end(), [&](const PLTextRange &range) {
        return QStringView(before).mid(range.position, range.length) != replacement;
    });
    if (!isChange)
        return;
    QTextCursor step(m_view->document());
    step.beginEditBlock();
    for (auto range = ranges.crbegin(); range != ranges.crend(); ++range)
        m_view->replaceText(*range, replacement);
    step.endEditBlock();
}

void PLPageTextTarget::setMatchMarks(const QList<PLTextRange> &matches)
{
    if (!m_marks && matches.isEmpty())
        return;
    if (!m_marks)
        m_marks = new PLFindMarks(m_view);
    m_marks->setMatches(matches);
}
