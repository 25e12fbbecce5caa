// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLFindTarget.h"

class PLFindMarks;
class PLPageTextView;

/// The page as the find and spelling panels see it.
class PLPageTextTarget final : public PLFindTarget
{
public:
    explicit PLPageTextTarget(PLPageTextView *view);

    QString text() const override;
    PLTextRange selection() const override;
    void select(const PLTextRange &range) override;
    void replace(const PLTextRange &range, const QString &replacement) override;
    void takeFocus() override;
    void replaceAll(const QList<PLTextRange> &ranges, const QString &replacement) override;
    void setMatchMarks(const QList<PLTextRange> &matches) override;

private:
    PLPageTextView *m_view;
    PLFindMarks *m_marks = nullptr; ///< made with the first match; the view's child
};
