// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTypingSteps.h"

namespace {

constexpr qint64 longPause = 1500; // milliseconds

} // namespace

bool PLTypingSteps::beginsWith(QChar character)
{
    const bool isAfterPause = !m_sinceLast.isValid() || m_sinceLast.elapsed() > longPause;
    const bool isNewWord = m_last.isSpace() && !character.isSpace();
    m_sinceLast.start();
    m_last = character;
    return isAfterPause || isNewWord;
}
