// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFindMarks.h"

#include "editor/PLTextMarks.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextEdit>

#include <algorithm>

PLFindMarks::PLFindMarks(QTextEdit *view) : QObject(view), m_marks(PLTextMarks::of(*view))
{
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &PLFindMarks::showVisible);
    connect(view, &QTextEdit::textChanged, this, &PLFindMarks::forget);
    view->viewport()->installEventFilter(this);
}

void PLFindMarks::setMatches(const QList<PLTextRange> &matches)
{
    m_matches = matches;
    if (matches.isEmpty())
        m_marks.setMarks(PLTextMarks::Kind::Match, {});
    else
        showVisible();
}

bool PLFindMarks::eventFilter(QObject *watched, QEvent *event)
{
    // Queued: the text is laid out for the new width only after this event.
    if (event->type() == QEvent::Resize)
        QMetaObject::invokeMethod(this, &PLFindMarks::showVisible, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void PLFindMarks::showVisible()
{
    if (m_matches.isEmpty())
        return;
    const PLTextRange visible = m_marks.visibleRange();
    const auto first = std::partition_point(m_matches.cbegin(), m_matches.cend(),
                                            [&](auto &match) { return match.end() <= visible.position; });
    const auto last = std::partition_point(first, m_matches.cend(),
                                           [&](auto &match) { return match.position < visible.end(); });
    m_marks.setMarks(PLTextMarks::Kind::Match, QList<PLTextRange>(first, last));
}

/// The positions are wrong now; the marks themselves have moved with the text.
void PLFindMarks::forget()
{
    m_matches.clear();
}
