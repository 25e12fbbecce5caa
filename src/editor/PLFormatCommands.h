// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTextEdit.h"
#include "platform/PLCommand.h"

#include <optional>

class PLPageTextView;

/// True for the commands that change the text's Markdown markers, FormatBold to FormatLink.
bool PLIsFormatCommand(PLCommand command);

/// What a formatting command does to the text; `tag` is the level of a heading. Nothing when the command has
/// nothing to work on, or is no formatting command.
std::optional<PLTextEdit> PLEditForFormatCommand(const QString &text, PLTextRange selection,
                                                 PLCommand command, int tag = 0);

/// Carries a formatting command out on the page as one undo step, with a beep if it has nothing to work on.
void PLPerformFormatCommand(PLPageTextView &view, PLCommand command, int tag = 0);
