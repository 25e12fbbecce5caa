// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLPageTags.h"

#include "foundation/PLText.h"
#include "storage/PLFiles.h"
#include "storage/PLFrontMatter.h"

#include <QSet>
#include <QVarLengthArray>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar byteOrderMark(0xFEFF);

/// A list of tags that takes each of them once.
class TagList final
{
public:
    void add(QStringView tag)
    {
        const QString name = PLTrimmedSpacesAndNewlines(tag).toString().replace(u',', u' ');
        if (name.isEmpty())
            return;
        const QString key = name.toLower();
        if (m_keys.contains(key) || m_moreKeys.contains(key))
            return;
        if (m_keys.size() < few)
            m_keys.append(key);
        else
            m_moreKeys.insert(key);
        m_tags.append(name);
    }

    const QStringList &tags() const { return m_tags; }

private:
    static constexpr qsizetype few = 8; ///< most pages have fewer, which are quicker compared than hashed

    QStringList m_tags;
    QVarLengthArray<QString, few> m_keys; ///< of the first tags, in lower case
    QSet<QString> m_moreKeys;             ///< of the others
};

bool hasUTF16Mark(QByteArrayView bytes)
{
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
}

/// The length of a line end at this place, 0 if there is none.
qsizetype lineEndLength(QByteArrayView bytes, qsizetype position)
{
    const QByteArrayView rest = bytes.sliced(position);
    if (rest.startsWith("\r\n"))
        return 2;
    return rest.startsWith('\n') ? 1 : 0;
}

/// How many bytes of a page, from its start, hold the header with both fences; 0 if it is not closed in them.
/// Whether they are a header indeed is for PLFrontMatter to say.
qsizetype headerLength(QByteArrayView bytes, bool isWholePage)
{
    constexpr QByteArrayView fence = "\n---";
    for (qsizetype found = bytes.indexOf(fence); found >= 0; found = bytes.indexOf(fence, found + 1)) {
        const qsizetype end = found + fence.size();
        if (end == bytes.size())
            return isWholePage ? end : 0;
        if (const qsizetype lineEnd = lineEndLength(bytes, end))
            return end + lineEnd;
    }
    return 0;
}

/// True if the page opens with a fence, which a byte-order mark may stand before.
bool opensWithFence(QByteArrayView bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes = bytes.sliced(3);
    return bytes.startsWith("---") && lineEndLength(bytes, 3) > 0;
}

QStringList tagsOfBytes(QByteArrayView bytes)
{
    const QString text = PLDecodedText(bytes).value_or(QString());
    const bool hasMark = text.startsWith(byteOrderMark);
    return PLTagsFromString(PLFrontMatter::fieldInString(hasMark ? text.sliced(1) : text, u"tags"));
}

} // namespace

QStringList PLNormalizedTags(const QStringList &tags)
{
    TagList list;
    for (const QString &tag : tags)
        list.add(tag);
    return list.tags();
}

QStringList PLTagsFromString(QStringView text)
{
    TagList list;
    for (const QStringView tag : text.tokenize(u','))
        list.add(tag);
    return list.tags();
}

std::optional<QStringList> PLTagsInPageStart(QByteArrayView start, bool isWholePage)
{
    if (hasUTF16Mark(start))
        return isWholePage ? std::optional(tagsOfBytes(start)) : std::nullopt;
    if (!opensWithFence(start))
        return QStringList();
    if (const qsizetype length = headerLength(start, isWholePage))
        return tagsOfBytes(start.first(length));
    return isWholePage ? std::optional(QStringList()) : std::nullopt;
}
