// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLProjectItem.h"

#include "foundation/PLPattern.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLFolderReader.h"
#include "storage/PLPageTags.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// How many times more of a page is read when its header does not end in what was read.
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

QStringView withoutExtension(QStringView fileName)
{
    const qsizetype stop = fileName.lastIndexOf(u'.');
    return stop > 0 ? fileName.first(stop) : fileName;
}

} // namespace

PLProjectItemPointer PLProjectItem::itemWithURL(const QUrl &fileURL, PLSection section)
{
    return itemWithPath(PLStandardizedPath(fileURL), section);
}

PLProjectItemPointer PLProjectItem::itemWithPath(const QString &path, PLSection section)
{
    const auto item = std::make_shared<PLProjectItem>(Private(), section);
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
    return PLNormalizedTags(tags);
}

QStringList PLProjectItem::tagsFromString(const QString &text)
{
    return PLTagsFromString(text);
}

QString PLProjectItem::stringFromTags(const QStringList &tags)
{
    return normalizedTags(tags).join(u", "_s);
}

QString PLProjectItem::readContents(PLError *error) const
{
    const std::optional<QByteArray> bytes = PLReadFile(m_path, error);
    if (!bytes)
        return QString();
    const std::optional<QString> text = PLDecodedText(*bytes, error);
    if (!text)
        return QString();
    return text->isNull() ? u""_s : *text; // an empty page is not a missing one
}

bool PLProjectItem::writeContents(const QString &text, PLError *error, PLWriteMode mode) const
{
    return PLWriteFile(m_path, text.toUtf8(), mode, error);
}

QStringList PLProjectItem::readTags() const
{
    for (qint64 limit = PLFolderReader::startSize;; limit *= chunkGrowth) {
        const std::optional<QByteArray> bytes = PLReadFile(m_path, nullptr, limit);
        if (!bytes)
            return {};
        if (const std::optional<QStringList> tags = PLTagsInPageStart(*bytes, bytes->size() < limit))
            return *tags;
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
    const QString name = withoutExtension(QStringView(path).sliced(path.lastIndexOf(u'/') + 1)).toString();
    const NumberedTitle derived = m_section == PLSection::Book ? numberedTitle(name) : NumberedTitle{0, name};
    m_number = derived.number;
    m_title = derived.title;
}

QString PLProjectItem::debugDescription() const
{
    return PLFormat(u"<PLProjectItem %@ (%ld)>"_s, {m_title, QString::number(m_number)});
}
