// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLTextTarget.h"

#include <QList>

class QTextEdit;

/// What is drawn over a text without being part of it: no undo step, no change, nothing that is saved.
enum class PLTextMark { Match = 1, Misspelling = 2 };

/// Shows these ranges under one kind of mark from now on; marks of the other kinds stay. Marks move with the
/// text around them. When the view gets another document they must go before the old one does: Qt 6.4 looks
/// at the marks that were there before, and crashes if their document is gone.
void PLSetTextMarks(QTextEdit &view, PLTextMark kind, const QList<PLTextRange> &ranges);

/// Where the marks of a kind are now.
QList<PLTextRange> PLTextMarks(const QTextEdit &view, PLTextMark kind);

/// The part of the text that is in sight.
PLTextRange PLVisibleTextRange(const QTextEdit &view);
