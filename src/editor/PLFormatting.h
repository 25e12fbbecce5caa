// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTextEdit.h"

#include <QStringList>

#include <functional>
#include <optional>

class PLPattern;

/// The Markdown formatting commands, as functions of a page's text and of what is selected in it. Each one
/// takes its markers away where they are and puts them where they are not. A line ends at "\n" and nowhere
/// else.
class PLFormatting final
{
public:
    PLFormatting() = delete;

    /// Bold, italic and strike-through answer nothing when only white space is selected.
    static std::optional<PLTextEdit> formatBold(const QString &text, PLTextRange selection);
    static std::optional<PLTextEdit> formatItalic(const QString &text, PLTextRange selection);
    static std::optional<PLTextEdit> formatStrikethrough(const QString &text, PLTextRange selection);

    /// A level below 1 counts as 1, one above 6 as 6.
    static PLTextEdit formatHeading(const QString &text, PLTextRange selection, int level);
    static PLTextEdit formatQuote(const QString &text, PLTextRange selection);
    static PLTextEdit formatBulletList(const QString &text, PLTextRange selection);
    static PLTextEdit formatNumberedList(const QString &text, PLTextRange selection);

    static PLTextEdit formatSeparator(const QString &text, PLTextRange selection);
    static PLTextEdit formatLink(const QString &text, PLTextRange selection);

    /// Puts the marker on both sides of the selection or takes it away. `placeholder` is French; it stands
    /// between the markers when there is only a caret. Nothing when only white space is selected.
    static std::optional<PLTextEdit> toggleWrapWithMarker(const QString &text, PLTextRange selection,
                                                          const QString &marker, const QString &placeholder);

    /// The lines, without their line feeds, in; the text that takes their place, joined by line feeds, out.
    using LinesTransformation = std::function<QString(const QStringList &lines)>;
    static PLTextEdit transformSelectedLines(const QString &text, PLTextRange selection,
                                             const LinesTransformation &transformation);

    /// The prefix of the n-th line that is not empty, from 1.
    using PrefixMaker = std::function<QString(qsizetype n)>;
    /// Takes what matches the pattern away if each line has it, else gives each line its prefix in place of
    /// any prefix of a list or a quote. Empty lines stay empty.
    static PLTextEdit toggleLinePrefixMatching(const QString &text, PLTextRange selection,
                                               const PLPattern &pattern, const PrefixMaker &makePrefix);
};
