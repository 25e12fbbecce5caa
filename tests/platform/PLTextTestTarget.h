// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLFindTarget.h"

#include <QStringList>

/// A text for the panels that notes what is done to it.
class PLTextTestTarget final : public PLFindTarget
{
public:
    explicit PLTextTestTarget(const QString &text, int caret = 0) : content(text), selected{caret, 0} {}

    QString text() const override { return content; }
    PLTextRange selection() const override { return selected; }
    void select(const PLTextRange &range) override { selected = range; }

    void replace(const PLTextRange &range, const QString &replacement) override
    {
        content.replace(range.position, range.length, replacement);
        selected = {range.position + int(replacement.size()), 0};
        ++steps;
    }

    void takeFocus() override { ++focusTaken; }

    void replaceAll(const QList<PLTextRange> &ranges, const QString &replacement) override
    {
        for (auto range = ranges.crbegin(); range != ranges.crend(); ++range)
            content.replace(range->position, range->length, replacement);
        ++steps;
    }

    void setMatchMarks(const QList<PLTextRange> &matches) override { marks = matches; }

    QString selectedText() const { return content.mid(selected.position, selected.length); }

    QString content;
    PLTextRange selected;
    QList<PLTextRange> marks;
    int steps = 0;
    int focusTaken = 0;
};
