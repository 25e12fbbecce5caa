// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QChar>
#include <QElapsedTimer>

/// Parts typing into the steps that undo takes back: a word at a time, and what was typed before a pause.
class PLTypingSteps final
{
public:
    /// To be asked before each character that is typed: whether a new step begins with it.
    bool beginsWith(QChar character);

private:
    QElapsedTimer m_sinceLast;
    QChar m_last;
};
