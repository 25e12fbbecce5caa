// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTextEdit.h"

#include <QRandomGenerator>
#include <QStringList>

/// A text and what is selected in it. Tests write it as one string with the selection between "⟦" and "⟧", or
/// with "¦" for a caret: "un ⟦mot⟧", "un¦ mot".
struct PLMarkedText
{
    QString text;
    PLTextRange selection;

    static PLMarkedText fromString(const QString &marked)
    {
        const qsizetype caret = marked.indexOf(u'¦');
        if (caret >= 0)
            return {QString(marked).remove(caret, 1), {caret, 0}};
        const qsizetype start = marked.indexOf(u'⟦');
        const qsizetype end = marked.indexOf(u'⟧') - 1;
        return {QString(marked).remove(u'⟦').remove(u'⟧'), {start, end - start}};
    }

    QString toString() const
    {
        QString marked = text;
        if (selection.length == 0)
            return marked.insert(selection.position, u'¦');
        return marked.insert(selection.end(), u'⟧').insert(selection.position, u'⟦');
    }

    bool contains(PLTextRange range) const
    {
        return range.position >= 0 && range.length >= 0 && range.end() <= text.size();
    }

    /// The text after an edit, with what is selected then.
    PLMarkedText after(const PLTextEdit &edit) const
    {
        QString edited = text;
        edited.replace(edit.range.position, edit.range.length, edit.string);
        return {edited, edit.selecting};
    }

    /// Markers, prefixes, spaces of every kind and characters of several units, with anything selected.
    static PLMarkedText random(QRandomGenerator &random)
    {
        static const QStringList pieces = {
            QStringLiteral("a"),       QStringLiteral("mot"),    QStringLiteral("é"),
            QStringLiteral("e\u0301"), QStringLiteral("\u0301"), QStringLiteral("\U0001f58b"),
            QStringLiteral("\u200d"),  QStringLiteral(" "),      QStringLiteral("\t"),
            QStringLiteral("\u00a0"),  QStringLiteral("\u2028"), QStringLiteral("\u2029"),
            QStringLiteral("\r"),      QStringLiteral("\n"),     QStringLiteral("\n\n"),
            QStringLiteral("\ufdd0"),  QStringLiteral("*"),      QStringLiteral("**"),
            QStringLiteral("_"),       QStringLiteral("~~"),     QStringLiteral("\n- "),
            QStringLiteral("\n+ "),    QStringLiteral("\n12) "), QStringLiteral("\n1. "),
            QStringLiteral("\n> "),    QStringLiteral("\n>"),    QStringLiteral("\n## "),
            QStringLiteral("#"),       QStringLiteral("[%@]("),  QStringLiteral("$1"),
            QStringLiteral("\\"),      QStringLiteral("\n  "),
        };
        QString text;
        for (int count = random.bounded(24); count > 0; --count)
            text += pieces[random.bounded(pieces.size())];
        const int position = random.bounded(int(text.size()) + 1);
        const int length = random.bounded(3) == 0 ? 0 : random.bounded(int(text.size()) - position + 1);
        return {text, {position, length}};
    }
};
