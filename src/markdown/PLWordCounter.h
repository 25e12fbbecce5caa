// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

/// The number of words of a text: the segments between the word boundaries of Unicode (UAX #29) that hold
/// more than spaces and punctuation, exactly as ICU's word iterator of the root locale finds them. Alphabets
/// are counted by a table; what needs more (Hebrew quotes, emoji, the dictionaries of Thai, Chinese,
/// Japanese) goes to ICU, in the smallest stretch that can be cut out. For the thread of the user interface
/// only.
qsizetype PLWordCount(QStringView text);
