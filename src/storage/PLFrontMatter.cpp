// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFrontMatter.h"

#include "foundation/PLText.h"

#include <algorithm>

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

/// The header at the start of a text that outlives it.
class Header final
{
public:
    explicit Header(const QString &text)
        : m_fence(text.startsWith(openingFence) ? closingFenceIndex(text) : -1)
    {
        const qsizetype start = qMin(openingFence.size(), m_fence);
        if (m_fence >= 0)
            m_lines = QStringView(text).sliced(start, m_fence - start);
    }

    bool isThere() const { return m_fence >= 0; }

    /// Where the closing fence ends.
    qsizetype end() const { return m_fence + closingFence.size(); }

    qsizetype lineCount() const
    {
        const QList<QStringView> lines = m_lines.split(u'\n');
        return std::count_if(lines.begin(), lines.end(),
                             [](QStringView line) { return !PLTrimmedSpaces(line).isEmpty(); });
    }

    /// Calls `receive` with the key as it is written, and the value, of each field.
    template <typename Receive>
    void eachField(Receive receive) const
    {
        for (const QStringView line : m_lines.tokenize(u'\n')) {
            const qsizetype colon = line.indexOf(u':');
            const QStringView key = colon < 0 ? QStringView() : PLTrimmedSpaces(line.first(colon));
            if (!key.isEmpty())
                receive(key, PLTrimmedSpaces(line.sliced(colon + 1)));
        }
    }

private:
    qsizetype m_fence; ///< where the closing one is, -1 for none
    QStringView m_lines;
};

QString lowerCased(QStringView text)
{
    return text.toString().toLower();
}

QString withLineFeeds(const QString &text)
{
    QString normalized = text;
    if (text.contains(u'\r')) // much quicker to answer than the replacing
        normalized.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return normalized;
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
    const QString normalized = withLineFeeds(text);
    const Header header(normalized);
    QStringList order;
    Fields fields;
    header.eachField([&](QStringView writtenKey, QStringView value) {
        const QString key = lowerCased(writtenKey);
        if (!fields.contains(key))
            order.append(key);
        fields.insert(key, value.toString());
    });
    if (body)
        *body = header.isThere() ? normalized.sliced(bodyStart(normalized, header.end())) : normalized;
    if (keys)
        *keys = order;
    return fields;
}

QString PLFrontMatter::fieldInString(const QString &text, QStringView key)
{
    const QString normalized = withLineFeeds(text);
    QString found;
    Header(normalized).eachField([&](QStringView writtenKey, QStringView value) {
        // Nothing that is longer or shorter has an ASCII text for its lower case.
        if (writtenKey.size() == key.size() && lowerCased(writtenKey) == key)
            found = value.toString();
    });
    return found;
}

bool PLFrontMatter::losesLinesOfString(const QString &text)
{
    QStringList keys;
    fieldsFromString(text, nullptr, &keys);
    const QString normalized = withLineFeeds(text);
    return keys.size() < Header(normalized).lineCount();
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
