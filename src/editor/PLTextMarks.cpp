// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTextMarks.h"

#include <QTextEdit>

namespace {

constexpr int markProperty = QTextFormat::UserProperty + 1;

bool isOfKind(const QTextEdit::ExtraSelection &selection, PLTextMark kind)
{
    return selection.format.intProperty(markProperty) == int(kind);
}

QTextCharFormat formatOf(PLTextMark kind)
{
    QTextCharFormat format;
    format.setProperty(markProperty, int(kind));
    if (kind == PLTextMark::Match) {
        format.setBackground(QColor(0xFF, 0xE0, 0x7A));
    } else {
        format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        format.setUnderlineColor(QColor(0xD0, 0x30, 0x20));
    }
    return format;
}

QList<QTextEdit::ExtraSelection> selectionsOf(const QTextEdit &view, PLTextMark kind,
                                              const QList<PLTextRange> &ranges)
{
    QList<QTextEdit::ExtraSelection> selections;
    selections.reserve(ranges.size());
    const QTextCharFormat format = formatOf(kind);
    for (const PLTextRange &range : ranges) {
        QTextCursor cursor(view.document());
        cursor.setPosition(range.position);
        cursor.setPosition(range.end(), QTextCursor::KeepAnchor);
        selections.append({cursor, format});
    }
    return selections;
}

} // namespace

void PLSetTextMarks(QTextEdit &view, PLTextMark kind, const QList<PLTextRange> &ranges)
{
    if (PLTextMarks(view, kind) == ranges)
        return;
    QList<QTextEdit::ExtraSelection> others = view.extraSelections();
    others.removeIf([&](const auto &selection) {
        return isOfKind(selection, kind) || selection.cursor.document() != view.document();
    });
    const QList<QTextEdit::ExtraSelection> own = selectionsOf(view, kind, ranges);
    // A later one is drawn over the others: what is wrong is seen in a match too.
    view.setExtraSelections(kind == PLTextMark::Match ? own + others : others + own);
}

QList<PLTextRange> PLTextMarks(const QTextEdit &view, PLTextMark kind)
{
    QList<PLTextRange> ranges;
    const QList<QTextEdit::ExtraSelection> selections = view.extraSelections();
    for (const QTextEdit::ExtraSelection &selection : selections) {
        if (!isOfKind(selection, kind))
            continue;
        const int start = selection.cursor.selectionStart();
        ranges.append({start, selection.cursor.selectionEnd() - start});
    }
    return ranges;
}

PLTextRange PLVisibleTextRange(const QTextEdit &view)
{
    const QRect rect = view.viewport()->rect();
    const int start = view.cursorForPosition(rect.topLeft()).position();
    const int end = view.cursorForPosition(rect.bottomRight()).position();
    return {start, qMax(0, end - start)};
}
