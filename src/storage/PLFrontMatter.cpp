// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFrontMatter.h"

#include "foundation/PLText.h"

namespace {

constexpr QStringView openingFence = u"---\n";
constexpr QStringView closingFence = u"\n---";

/// The index of the line feed before the closing "---", -1 if the header is never closed.
qsizetype closingFenceIndex(const QString &text)
{
    // From the opening fence's line feed, so that an empty header is found.
    qsizetype from = openingFence.size() - 1;
    while (from < text.size()) {
        const qsizetype found = text.indexOf(closingFence, from);
        if (found < 0)
            return -1;
        from = found + closingFence.size();
        if (from == text.size() || text[from] == u'\n')
            return found;
    }
    return -1;
}

void readLine(QStringView line, PLFrontMatter::Fields &fields, QStringList &keys)
{
    const qsizetype colon = line.indexOf(u':');
    if (colon < 0)
        return;
    const QString key = PLTrimmedSpaces(line.first(colon)).toString().toLower();
    if (key.isEmpty())
        return;
    if (!fields.contains(key))
        keys.append(key);
    fields.insert(key, PLTrimmedSpaces(line.sliced(colon + 1)).toString());
}

/// Skips the fence's own line end and one blank line.
qsizetype bodyStart(const QString &text, qsizetype position)
{
    for (int skipped = 0; skipped < 2 && position < text.size() && text[position] == u'\n'; ++skipped)
        ++position;
    return position;
}

} // namespace

PLFrontMatter::Fields PLFrontMatter::fieldsFromString(const QString &text, QString *body, QStringList *keys)
{
    QStringList order;
    Fields fields;
    QString normalized = text;
    if (text.contains(u'\r')) // much quicker to answer than the replacing
        normalized.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));

    const qsizetype fence = normalized.startsWith(openingFence) ? closingFenceIndex(normalized) : -1;
    if (fence >= 0) {
        const qsizetype headerStart = qMin(openingFence.size(), fence);
        const QStringView header = QStringView(normalized).sliced(headerStart, fence - headerStart);
        for (const QStringView line : header.split(u'\n'))
            readLine(line, fields, order);
        normalized.remove(0, bodyStart(normalized, fence + closingFence.size()));
    }
    if (body)
        *body = normalized;
    if (keys)
        *keys = order;
    return fields;
}

QString PLFrontMatter::stringWithKeys(const QStringList &keys, const Fields &values, const QString &body)
{
    QString text = openingFence.toString();
    for (const QString &key : keys) {
        const QString value = PLSplitAtNewlines(values.value(key)).join(u' ');
        text += key;
        text += value.isEmpty() ? QStringLiteral(":\n") : QStringLiteral(": ") + value + u'\n';
    }
    return text + QStringLiteral("---\n\n") + body;
}
