// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTypingPause.h"
#include "platform/PLSpellChecker.h"

#include <QObject>
#include <QPointer>
#include <QTextDocument>
#include <QTimer>

#include <memory>

class PLTextMarks;
class QTextBlock;
class QTextEdit;

/// Underlines the unknown words of a text while it is written: those in sight, a moment after the last change
/// and in slices short enough for no key to wait. The dictionary is read at the first pause. The word at the
/// caret is left alone as long as it is being typed, and so is everything while an input method composes.
class PLSpellingMarks final : public QObject
{
    Q_OBJECT

public:
    PLSpellingMarks(QTextEdit *view, std::shared_ptr<PLSpellChecker> checker);
    ~PLSpellingMarks() override;

    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool enabled);

    /// Whether everything in sight has been looked at.
    bool isSettled() const { return !m_timer.isActive() && !m_pause; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void adoptDocument();
    void textDidChange();
    void caretDidMove();
    void schedule(int milliseconds);
    void update();
    void loadAtNextPause();
    bool isComposing() const;
    const QList<PLTextRange> &misspellingsOf(QTextBlock block, const PLTextRange &visible);
    bool isBeingTyped(const PLTextRange &word) const;

    QTextEdit *m_view;
    PLTextMarks &m_marks;
    std::shared_ptr<PLSpellChecker> m_checker;
    QPointer<QTextDocument> m_document;
    QTimer m_timer;
    QPointer<PLTypingPause> m_pause; ///< that the dictionary waits for
    int m_lastEdit = -1;             ///< where the last change ended, -1 once the caret has left that word
    int m_generation = 0;            ///< of the words known: what was found under another one is out of date
    bool m_isEnabled = false;
};
