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
    qint64 number;
    QString title;
};

/// Takes a chapter's number from the front of its file name, nothing if there is none.
std::optional<NumberedTitle> numberedTitle(const QString &name)
{
    static const std::optional<PLPattern> pattern =
        PLPattern::compiled(u"^\\s*(\\d+)\\s*[-–—._]?\\s*(.*)$"_s);
    const std::optional<QStringList> groups = pattern->firstMatch(name);
    if (!groups)
        return std::nullopt;
    const qint64 number = integerValue(groups->at(1));
    if (!groups->at(2).isEmpty())
        return NumberedTitle{number, groups->at(2)};
    return NumberedTitle{number, PLFormat(PLLocalizedString(u"Chapitre %ld"_s), {QString::number(number)})};
}

QStringView withoutExtension(QStringView fileName)
{
    const qsizetype stop = fileName.lastIndexOf(u'.');
    return stop > 0 ? fileName.first(stop) : fileName;
}

} // namespace

PLProjectItemPointer PLProjectItem::itemWithURL(const QUrl &fileURL, PLSection section)
{
    const auto item = std::make_shared<PLProjectItem>(Private(), section);
    item->setFileURL(fileURL);
    return item;
}

PLProjectItemPointer PLProjectItem::itemInFolder(const QString &folder, const QString &fileName,
                                                 PLSection section)
{
    const auto item = std::make_shared<PLProjectItem>(Private(), section);
    item->setFile(folder, fileName);
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

QString PLProjectItem::readContents(PLError *error, QByteArray *bytes) const
{
    const std::optional<QByteArray> read = PLReadFile(path(), error);
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
    return PLWriteFile(path(), text.toUtf8(), mode, error);
}

QStringList PLProjectItem::readTags() const
{
    for (qint64 limit = PLFolderReader::startSize;; limit *= chunkGrowth) {
        const std::optional<QByteArray> bytes = PLReadFile(path(), nullptr, limit);
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
    return this == other || (m_fileName == other->m_fileName && m_folder == other->m_folder);
}

bool PLProjectItem::hasPath(QStringView path) const
{
    return path.size() == m_folder.size() + m_fileName.size() && path.endsWith(m_fileName) &&
           path.startsWith(m_folder);
}

void PLProjectItem::setFileURL(const QUrl &fileURL)
{
    const QString path = PLStandardizedPath(fileURL);
    const qsizetype nameStart = path.lastIndexOf(u'/') + 1;
    setFile(path.first(nameStart), path.sliced(nameStart));
}

QString PLProjectItem::title() const
{
    return m_chapterTitle.isNull() ? withoutExtension(m_fileName).toString() : m_chapterTitle;
}

void PLProjectItem::setFile(const QString &folder, const QString &fileName)
{
    m_folder = folder;
    m_fileName = fileName;
    const bool isChapter = m_section == PLSection::Book;
    const auto chapter = isChapter ? numberedTitle(withoutExtension(fileName).toString()) : std::nullopt;
    m_number = chapter ? chapter->number : 0;
    m_chapterTitle = chapter ? chapter->title : QString();
}

QString PLProjectItem::debugDescription() const
{
    return PLFormat(u"<PLProjectItem %@ (%ld)>"_s, {title(), QString::number(m_number)});
}
