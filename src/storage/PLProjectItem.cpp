// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLProjectItem.h"

#include "foundation/PLPattern.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLFrontMatter.h"

#include <QSet>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar byteOrderMark(0xFEFF);
constexpr qint64 firstChunk = 512; // bytes; nearly every header fits
constexpr qint64 chunkGrowth = 8;

/// The integer value of decimal digits of any script; the largest integer if they are too many.
qint64 integerValue(const QString &digits)
{
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    qint64 value = 0;
    const QList<uint> characters = digits.toUcs4();
    for (const uint character : characters) {
        const int digit = QChar::digitValue(char32_t(character));
        if (value > (largest - digit) / 10)
            return largest;
        value = 10 * value + digit;
    }
    return value;
}

struct NumberedTitle
{
    qint64 number = 0;
    QString title;
};

/// Takes a chapter's number from the front of its file name.
NumberedTitle numberedTitle(const QString &name)
{
    static const std::optional<PLPattern> pattern =
        PLPattern::compiled(u"^\\s*(\\d+)\\s*[-–—._]?\\s*(.*)$"_s);
    const std::optional<QStringList> groups = pattern->firstMatch(name);
    if (!groups)
        return {0, name};
    const qint64 number = integerValue(groups->at(1));
    if (!groups->at(2).isEmpty())
        return {number, groups->at(2)};
    return {number, PLFormat(PLLocalizedString(u"Chapitre %ld"_s), {QString::number(number)})};
}

QString withoutExtension(const QString &fileName)
{
    const qsizetype stop = fileName.lastIndexOf(u'.');
    return stop > 0 ? fileName.first(stop) : fileName;
}

QStringList tagsOfText(const QString &text)
{
    const QString page = text.startsWith(byteOrderMark) ? text.sliced(1) : text;
    return PLProjectItem::tagsFromString(PLFrontMatter::fieldsFromString(page).value(u"tags"_s));
}

bool hasUTF16Mark(const QByteArray &bytes)
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
qsizetype headerLength(QByteArrayView bytes, bool isWholeFile)
{
    constexpr QByteArrayView fence = "\n---";
    for (qsizetype found = bytes.indexOf(fence); found >= 0; found = bytes.indexOf(fence, found + 1)) {
        const qsizetype end = found + fence.size();
        if (end == bytes.size())
            return isWholeFile ? end : 0;
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

} // namespace

PLProjectItemPointer PLProjectItem::itemWithURL(const QUrl &fileURL, PLSection section)
{
    return itemWithPath(PLStandardizedPath(fileURL), section);
}

PLProjectItemPointer PLProjectItem::itemWithPath(const QString &path, PLSection section)
{
    const PLProjectItemPointer item(new PLProjectItem(section));
    item->setPath(path);
    return item;
}

QString PLProjectItem::fileNameForTitle(const QString &title, qint64 number, PLSection section)
{
    if (section != PLSection::Book || number < 1)
        return title + u".md"_s;
    return QString::number(number).rightJustified(2, u'0') + u" - "_s + title + u".md"_s;
}

QStringList PLProjectItem::normalizedTags(const QStringList &tags)
{
    QStringList normalized;
    QSet<QString> met;
    for (const QString &tag : tags) {
        const QString name = PLTrimmedSpacesAndNewlines(tag).toString().replace(u',', u' ');
        const QString key = name.toLower();
        if (name.isEmpty() || met.contains(key))
            continue;
        met.insert(key);
        normalized.append(name);
    }
    return normalized;
}

QStringList PLProjectItem::tagsFromString(const QString &text)
{
    return normalizedTags(text.split(u','));
}

QString PLProjectItem::stringFromTags(const QStringList &tags)
{
    return normalizedTags(tags).join(u", "_s);
}

QString PLProjectItem::readContents(PLError *error, QByteArray *bytes) const
{
    const std::optional<QByteArray> read = PLReadFile(m_path, error);
    if (!read)
        return QString();
    const std::optional<QString> text = PLDecodedText(*read, error);
    if (!text)
        return QString();
    if (bytes)
        *bytes = *read;
    return text->isNull() ? u""_s : *text; // an empty page is not a missing one
}

bool PLProjectItem::writeContents(const QString &text, PLError *error, PLWriteMode mode) const
{
    return PLWriteFile(m_path, text.toUtf8(), mode, error);
}

QStringList PLProjectItem::readTags() const
{
    for (qint64 limit = firstChunk;; limit *= chunkGrowth) {
        const std::optional<QByteArray> bytes = PLReadFile(m_path, nullptr, limit);
        if (!bytes)
            return {};
        if (hasUTF16Mark(*bytes))
            return tagsOfText(readContents());
        if (!opensWithFence(*bytes))
            return {};
        const bool isWholeFile = bytes->size() < limit;
        if (const qsizetype length = headerLength(*bytes, isWholeFile))
            return tagsOfText(PLDecodedText(bytes->first(length)).value_or(QString()));
        if (isWholeFile)
            return {};
    }
}

bool PLProjectItem::isSameFileAsItem(const PLProjectItem *other) const
{
    if (!other)
        return false;
    return this == other || m_path == other->m_path;
}

void PLProjectItem::setFileURL(const QUrl &fileURL)
{
    setPath(PLStandardizedPath(fileURL));
}

void PLProjectItem::setPath(const QString &path)
{
    m_path = path;
    const QString name = withoutExtension(path.sliced(path.lastIndexOf(u'/') + 1));
    const NumberedTitle derived = m_section == PLSection::Book ? numberedTitle(name) : NumberedTitle{0, name};
    m_number = derived.number;
    m_title = derived.title;
}

QString PLProjectItem::debugDescription() const
{
    return PLFormat(u"<PLProjectItem %@ (%ld)>"_s, {m_title, QString::number(m_number)});
}
