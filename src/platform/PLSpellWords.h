// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLTextTarget.h"

#include <QList>
#include <QStringView>

/// The words of a line of Markdown that are worth checking, in order: letters, with the apostrophes and
/// hyphens between them. Left out are words with digits, words all in capitals, other scripts than the Latin
/// one, addresses and file names, code between back-ticks, the targets of links and what stands in "[[...]]".
QList<PLTextRange> PLSpellWords(QStringView line);

/// True for both apostrophes, ' and U+2019.
bool PLIsApostrophe(QChar character);
