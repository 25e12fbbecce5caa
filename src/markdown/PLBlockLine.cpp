// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLBlockLine.h"

#include "markdown/PLCharacters.h"

namespace {

/// Where "$" holds before the end: in front of a last line end ("\r\n" counts as one). The text's length if
/// it does not end so.
qsizetype lastLineEnd(QStringView line)
{
    if (line.isEmpty() || !PLEndsLine(line.back().unicode()))
        return line.size();
    return line.endsWith(u"\r\n") ? line.size() - 2 : line.size() - 1;
}

qsizetype skipWhiteSpace(QStringView line, qsizetype position)
{
    while (position < line.size() && PLIsWhiteSpace(line[position].unicode()))
        ++position;
    return position;
}

qsizetype nextLineEnd(QStringView line, qsizetype position)
{
    while (position < line.size() && !PLEndsLine(line[position].unicode()))
        ++position;
    return position;
}

/// Where "\s*#*" can begin at the earliest to end at `end`.
qsizetype closingHashesStart(QStringView line, qsizetype end)
{
    while (end > 0 && line[end - 1] == u'#')
        --end;
    while (end > 0 && PLIsWhiteSpace(line[end - 1].unicode()))
        --end;
    return end;
}

bool readHeading(QStringView line, PLBlockLine *result)
{
    qsizetype level = 0;
    while (level < 6 && level < line.size() && line[level] == u'#')
        ++level;
    const qsizetype start = skipWhiteSpace(line, level);
    if (level == 0 || start == level)
        return false;
    qsizetype end = closingHashesStart(line, line.size());
    const qsizetype lineEnd = lastLineEnd(line);
    if (lineEnd >= start)
        end = qMin(end, closingHashesStart(line, lineEnd));
    end = qMax(end, start);
    if (nextLineEnd(line.first(end), start) < end)
        return false;
    *result = {PLLineKind::Heading, int(level), line.sliced(start, end - start)};
    return true;
}

bool isRule(QStringView line)
{
    const QChar mark = line.front();
    if (mark != u'-' && mark != u'*' && mark != u'_')
        return false;
    qsizetype count = 0;
    qsizetype afterLast = 0;
    for (qsizetype position = 0; position < line.size(); ++position) {
        if (line[position] == mark) {
            ++count;
            afterLast = position + 1;
        } else if (!PLIsWhiteSpace(line[position].unicode())) {
            return false;
        }
    }
    return count >= 3 && (afterLast == line.size() || afterLast == lastLineEnd(line));
}

/// The end of an item's marker, -1 if the line does not begin with one.
qsizetype bulletEnd(QStringView line)
{
    const QChar mark = line.front();
    return mark == u'-' || mark == u'*' || mark == u'+' ? 1 : -1;
}

qsizetype numberEnd(QStringView line)
{
    qsizetype position = 0;
    while (position < line.size()) {
        const char32_t codePoint = PLCodePointAt(line, position);
        if (!PLIsDigit(codePoint))
            break;
        position += codePoint > 0xFFFF ? 2 : 1;
    }
    if (position == 0 || position == line.size())
        return -1;
    return line[position] == u'.' || line[position] == u')' ? position + 1 : -1;
}

bool readItem(QStringView line, qsizetype markerEnd, PLBlockLine *result)
{
    if (markerEnd < 0)
        return false;
    const qsizetype start = skipWhiteSpace(line, markerEnd);
    if (start == markerEnd)
        return false;
    const qsizetype end = nextLineEnd(line, start);
    if (end < line.size() && end != lastLineEnd(line))
        return false;
    result->text = line.sliced(start, end - start);
    return true;
}

} // namespace

PLBlockLine PLBlockLineFromText(QStringView line)
{
    PLBlockLine result;
    if (readHeading(line, &result))
        return result;
    if (isRule(line))
        return {PLLineKind::Rule, 0, {}};
    if (readItem(line, bulletEnd(line), &result))
        result.kind = PLLineKind::BulletedItem;
    else if (readItem(line, numberEnd(line), &result))
        result.kind = PLLineKind::NumberedItem;
    else
        result.text = line;
    return result;
}
