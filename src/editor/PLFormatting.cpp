// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLFormatting.h"

#include "foundation/PLPattern.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"

#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringView textIn(const QString &text, PLTextRange range)
{
    return QStringView(text).sliced(range.position, range.length);
}

PLTextEdit wrapped(PLTextRange range, const QString &content, const QString &marker)
{
    return {range, marker + content + marker, {range.position + marker.size(), content.size()}};
}

/// The selection without the markers at its two ends, if it has both.
std::optional<PLTextEdit> unwrappedInside(const QString &text, PLTextRange selection, const QString &marker)
{
    const QStringView selected = textIn(text, selection);
    const qsizetype length = selection.length - 2 * marker.size();
    if (length < 0 || !selected.startsWith(marker) || !selected.endsWith(marker))
        return std::nullopt;
    return PLTextEdit{
        selection, selected.sliced(marker.size(), length).toString(), {selection.position, length}};
}

/// The selection without the markers just before and just after it, if both are there.
std::optional<PLTextEdit> unwrappedOutside(const QString &text, PLTextRange selection, const QString &marker)
{
    const QStringView before = QStringView(text).first(selection.position);
    const QStringView after = QStringView(text).sliced(selection.end());
    if (!before.endsWith(marker) || !after.startsWith(marker))
        return std::nullopt;
    const qsizetype start = selection.position - marker.size();
    return PLTextEdit{{start, selection.length + 2 * marker.size()},
                      textIn(text, selection).toString(),
                      {start, selection.length}};
}

/// True between a space and the accent that it carries: what the writer sees there is one character.
bool isInsideCharacter(QStringView text, qsizetype position)
{
    if (position == 0 || position == text.size())
        return false;
    const QStringView around = text.sliced(position - 1, qMin<qsizetype>(3, text.size() - position + 1));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, around);
    finder.setPosition(1);
    return !finder.isAtBoundary();
}

/// The range without the white space at its two ends.
PLTextRange trimmed(const QString &text, PLTextRange range)
{
    const QStringView whole = textIn(text, range);
    const QStringView kept = PLTrimmedSpacesAndNewlines(whole);
    if (kept.isEmpty())
        return {range.position, 0};
    const qsizetype skipped = kept.data() - whole.data();
    const qsizetype start = skipped - (isInsideCharacter(whole, skipped) ? 1 : 0);
    return {range.position + start, skipped - start + kept.size()};
}

/// From the start of the line that holds the start of the range to the end of the one that holds its last
/// character, line feed included: a selection that ends after a line feed does not reach into the next line.
PLTextRange lineRangeForRange(const QString &text, PLTextRange range)
{
    const qsizetype start = range.position == 0 ? 0 : text.lastIndexOf(u'\n', range.position - 1) + 1;
    const qsizetype last = range.length == 0 ? range.position : range.end() - 1;
    const qsizetype lineFeed = text.indexOf(u'\n', last);
    return {start, (lineFeed < 0 ? text.size() : lineFeed + 1) - start};
}

const PLPattern &quotePattern()
{
    static const PLPattern pattern = PLPattern::compiled(u"^>\\s?"_s).value();
    return pattern;
}

const PLPattern &bulletPattern()
{
    static const PLPattern pattern = PLPattern::compiled(u"^\\s*[-*+]\\s+"_s).value();
    return pattern;
}

const PLPattern &numberPattern()
{
    static const PLPattern pattern = PLPattern::compiled(u"^\\s*\\d+[.)]\\s+"_s).value();
    return pattern;
}

const PLPattern &anyPrefixPattern()
{
    static const PLPattern pattern = PLPattern::compiled(u"^(\\s*([-*+]|\\d+[.)]|>)\\s+)"_s).value();
    return pattern;
}

const PLPattern &headingPattern()
{
    static const PLPattern pattern = PLPattern::compiled(u"^#{1,6}\\s*"_s).value();
    return pattern;
}

/// Empty lines do not count.
bool eachMatches(const QStringList &lines, const PLPattern &pattern)
{
    return std::all_of(lines.begin(), lines.end(), [&pattern](const QString &line) {
        return line.isEmpty() || pattern.firstMatch(line).has_value();
    });
}

QString withoutPrefixes(QStringList lines, const PLPattern &pattern)
{
    for (QString &line : lines)
        line = line.isEmpty() ? line : pattern.replaced(line, u""_s);
    return lines.join(u'\n');
}

QString withPrefixes(QStringList lines, const PLFormatting::PrefixMaker &makePrefix)
{
    qsizetype n = 0;
    for (QString &line : lines) {
        if (!line.isEmpty())
            line = makePrefix(++n) + anyPrefixPattern().replaced(line, u""_s);
    }
    return lines.join(u'\n');
}

QString withHeading(const QString &line, qsizetype level)
{
    if (line.isEmpty())
        return line;
    const auto isNumberSign = [](QChar character) { return character == u'#'; };
    const auto count = std::find_if_not(line.begin(), line.end(), isNumberSign) - line.begin();
    const QString rest = headingPattern().replaced(line, u""_s);
    return count == level ? rest : PLFormat(u"%@ %@"_s, {QString(level, u'#'), rest});
}

} // namespace

std::optional<PLTextEdit> PLFormatting::formatBold(const QString &text, PLTextRange selection)
{
    return toggleWrapWithMarker(text, selection, u"**"_s, u"texte en gras"_s);
}

std::optional<PLTextEdit> PLFormatting::formatItalic(const QString &text, PLTextRange selection)
{
    return toggleWrapWithMarker(text, selection, u"_"_s, u"texte en italique"_s);
}

std::optional<PLTextEdit> PLFormatting::formatStrikethrough(const QString &text, PLTextRange selection)
{
    return toggleWrapWithMarker(text, selection, u"~~"_s, u"texte barré"_s);
}

PLTextEdit PLFormatting::formatHeading(const QString &text, PLTextRange selection, int level)
{
    const int count = qBound(1, level, 6);
    return transformSelectedLines(text, selection, [count](QStringList lines) {
        for (QString &line : lines)
            line = withHeading(line, count);
        return lines.join(u'\n');
    });
}

PLTextEdit PLFormatting::formatQuote(const QString &text, PLTextRange selection)
{
    return toggleLinePrefixMatching(text, selection, quotePattern(), [](qsizetype) { return u"> "_s; });
}

PLTextEdit PLFormatting::formatBulletList(const QString &text, PLTextRange selection)
{
    return toggleLinePrefixMatching(text, selection, bulletPattern(), [](qsizetype) { return u"- "_s; });
}

PLTextEdit PLFormatting::formatNumberedList(const QString &text, PLTextRange selection)
{
    return toggleLinePrefixMatching(text, selection, numberPattern(),
                                    [](qsizetype n) { return PLFormat(u"%lu. "_s, {QString::number(n)}); });
}

PLTextEdit PLFormatting::formatSeparator(const QString &text, PLTextRange selection)
{
    const qsizetype position = selection.position;
    const QString afterText = position > 0 && text[position - 1] == u'\n' ? u"\n"_s : u"\n\n"_s;
    const QString string = PLFormat(u"%@* * *\n\n"_s, {position == 0 ? u""_s : afterText});
    return {selection, string, {position + string.size(), 0}};
}

PLTextEdit PLFormatting::formatLink(const QString &text, PLTextRange selection)
{
    const bool isCaret = selection.length == 0;
    const QString linkText =
        isCaret ? PLLocalizedString(u"texte du lien"_s) : textIn(text, selection).toString();
    const PLTextRange linkTextRange{selection.position + 1, linkText.size()};
    const PLTextRange addressRange{linkTextRange.end() + 2, u"http://"_s.size()};
    return {selection, PLFormat(u"[%@](http://)"_s, {linkText}), isCaret ? linkTextRange : addressRange};
}

std::optional<PLTextEdit> PLFormatting::toggleWrapWithMarker(const QString &text, PLTextRange selection,
                                                             const QString &marker,
                                                             const QString &placeholder)
{
    if (auto edit = unwrappedInside(text, selection, marker))
        return edit;
    if (auto edit = unwrappedOutside(text, selection, marker))
        return edit;
    if (selection.length == 0)
        return wrapped(selection, PLLocalizedString(placeholder), marker);
    const PLTextRange words = trimmed(text, selection);
    if (words.length == 0)
        return std::nullopt;
    return wrapped(words, textIn(text, words).toString(), marker);
}

PLTextEdit PLFormatting::transformSelectedLines(const QString &text, PLTextRange selection,
                                                const LinesTransformation &transformation)
{
    const PLTextRange lines = lineRangeForRange(text, selection);
    QString selected = textIn(text, lines).toString();
    const QString lastLineFeed = selected.endsWith(u'\n') ? u"\n"_s : u""_s;
    selected.chop(lastLineFeed.size());
    const QString result = transformation(selected.split(u'\n'));
    if (selection.length > 0)
        return {lines, result + lastLineFeed, {lines.position, result.size()}};
    const qsizetype lineFeed = result.indexOf(u'\n');
    return {lines, result + lastLineFeed, {lines.position + (lineFeed < 0 ? result.size() : lineFeed), 0}};
}

PLTextEdit PLFormatting::toggleLinePrefixMatching(const QString &text, PLTextRange selection,
                                                  const PLPattern &pattern, const PrefixMaker &makePrefix)
{
    return transformSelectedLines(text, selection, [&](const QStringList &lines) {
        return eachMatches(lines, pattern) ? withoutPrefixes(lines, pattern)
                                           : withPrefixes(lines, makePrefix);
    });
}
