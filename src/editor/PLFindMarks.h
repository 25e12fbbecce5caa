// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLTextTarget.h"

#include <QList>
#include <QObject>

class PLTextMarks;
class QTextEdit;

/// Shows the matches of a search in a text, those that are in sight: a word may stand in a novel a hundred
/// thousand times.
class PLFindMarks final : public QObject
{
    Q_OBJECT

public:
    explicit PLFindMarks(QTextEdit *view);

    /// In order. They hold until the text changes; what is shown then stays until the next call.
    void setMatches(const QList<PLTextRange> &matches);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showVisible();
    void forget();

    PLTextMarks &m_marks; ///< what is shown of them
    QList<PLTextRange> m_matches;
};
