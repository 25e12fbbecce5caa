// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The pages of a PLProject: listing, creating, renaming, moving to the trash.

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLFileNames.h"
#include "storage/PLFiles.h"
#include "storage/PLFolderReader.h"
#include "storage/PLPageTags.h"
#include "storage/PLProject.h"
#include "storage/PLRecovery.h"
#include "storage/PLTrash.h"

#include <algorithm>
#include <cerrno>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// How often a new page looks for another name when somebody else takes the one it found.
constexpr int mostNamesTried = 100;

/// A page with what it is sorted by.
struct ListedPage
{
    PLTaggedItem page;
    std::optional<QCollatorSortKey> titleKey; ///< none for a chapter, which its number sorts
};

class ListingOrder final
{
public:
    bool comesBefore(const ListedPage &left, const ListedPage &right) const
    {
        const PLProjectItem &leftItem = *left.page.item;
        const PLProjectItem &rightItem = *right.page.item;
        if (leftItem.number() != rightItem.number())
            return leftItem.number() != 0 &&
                   (rightItem.number() == 0 || leftItem.number() < rightItem.number());
        const int order = left.titleKey && right.titleKey
                              ? left.titleKey->compare(*right.titleKey)
                              : m_comparer.compare(leftItem.title(), rightItem.title());
        return order != 0 ? order < 0 : leftItem.fileName() < rightItem.fileName();
    }

    std::optional<QCollatorSortKey> keyOf(const PLProjectItem &item) const
    {
        return item.number() == 0 ? std::optional(m_comparer.sortKey(item.title())) : std::nullopt;
    }

private:
    PLTitleComparer m_comparer{PLLocalization::localeIdentifier()};
};

bool isPageName(const QString &fileName)
{
    return !fileName.startsWith(u'.') && fileName.endsWith(u".md", Qt::CaseInsensitive);
}

qint64 nextChapterNumber(const std::vector<PLProjectItemPointer> &chapters)
{
    qint64 highest = 0;
    for (const PLProjectItemPointer &chapter : chapters)
        highest = std::max(highest, chapter->number());
    return highest < std::numeric_limits<qint64>::max() ? highest + 1 : highest;
}

QString defaultTitle(PLSection section, qint64 number)
{
    if (section != PLSection::Book)
        return PLProject::defaultTitleForSection(section);
    return PLFormat(PLLocalizedString(u"Chapitre %ld"_s), {QString::number(number)});
}

/// Moves a page to a name that differs in case only, which some disks take for the same: by way of a third
/// name.
bool moveInTwoSteps(const QString &from, const QString &to, PLError *error)
{
    const QString temporary = PLTemporaryPathForRename(from);
    if (!PLMoveFile(from, temporary, error))
        return false;
    if (PLMoveFile(temporary, to, error))
        return true;
    (void)PLMoveFile(temporary, from); // if this fails too, the next listing or opening brings it back
    return false;
}

bool movePage(const QString &from, const QString &to, PLError *error)
{
    const bool onlyCaseDiffers = from.compare(to, Qt::CaseInsensitive) == 0;
    return onlyCaseDiffers ? moveInTwoSteps(from, to, error) : PLMoveFile(from, to, error);
}

QStringList tagsOf(const PLProjectItem &item, PLFolderReader &file)
{
    if (const std::optional<QByteArrayView> start = file.start()) {
        const bool isWhole = start->size() < PLFolderReader::startSize;
        if (const std::optional<QStringList> tags = PLTagsInPageStart(*start, isWhole))
            return *tags;
    }
    return item.readTags();
}

enum class Reading { Names, NamesAndTags };

/// `isInterrupted` tells whether there is a page that a failing disk left in the middle of a change of case.
std::vector<ListedPage> listPages(const QString &folder, PLSection section, Reading reading,
                                  bool &isInterrupted)
{
    const ListingOrder order;
    const QString prefix = folder + u'/';
    std::vector<ListedPage> pages;
    for (PLFolderReader file(folder); file.next();) {
        isInterrupted = isInterrupted || PLIsTemporaryNameForRename(file.name());
        if (!isPageName(file.name()))
            continue;
        PLProjectItemPointer item = PLProjectItem::itemInFolder(prefix, file.name(), section);
        QStringList tags = reading == Reading::Names ? QStringList() : tagsOf(*item, file);
        std::optional<QCollatorSortKey> key = order.keyOf(*item);
        pages.push_back({{std::move(item), std::move(tags)}, std::move(key)});
    }
    std::sort(pages.begin(), pages.end(), [&order](const ListedPage &left, const ListedPage &right) {
        return order.comesBefore(left, right);
    });
    return pages;
}

std::vector<ListedPage> pagesInSection(const PLProject &project, PLSection section, Reading reading)
{
    const QString folder = PLStandardizedPath(project.URLForSection(section));
    bool isInterrupted = false;
    std::vector<ListedPage> pages = listPages(folder, section, reading, isInterrupted);
    if (!isInterrupted)
        return pages;
    PLRecoverRenames(project, section);
    return listPages(folder, section, reading, isInterrupted);
}

} // namespace

std::vector<PLProjectItemPointer> PLProject::itemsInSection(PLSection section) const
{
    std::vector<ListedPage> pages = pagesInSection(*this, section, Reading::Names);
    std::vector<PLProjectItemPointer> items;
    items.reserve(pages.size());
    for (ListedPage &listed : pages)
        items.push_back(std::move(listed.page.item));
    return items;
}

std::vector<PLTaggedItem> PLProject::taggedItemsInSection(PLSection section) const
{
    std::vector<ListedPage> pages = pagesInSection(*this, section, Reading::NamesAndTags);
    std::vector<PLTaggedItem> items;
    items.reserve(pages.size());
    for (ListedPage &listed : pages)
        items.push_back(std::move(listed.page));
    return items;
}

// NOLINTNEXTLINE(readability-function-size): five arguments, as the operation has
QUrl PLProject::availableURLInFolder(const QUrl &folder, const QString &title, qint64 number,
                                     PLSection section, const QUrl &ignoringURL) const
{
    return PLAvailableURL(folder, title, number, section, ignoringURL);
}

PLProjectItemPointer PLProject::createItemInSection(PLSection section, const QString &title,
                                                    PLError *error) const
{
    const qint64 number = section == PLSection::Book ? nextChapterNumber(itemsInSection(section)) : 0;
    const QString name = PLSanitizedFileName(title.isEmpty() ? defaultTitle(section, number) : title);
    PLError failure;
    for (int tries = 0; tries < mostNamesTried; ++tries) {
        const QUrl url = PLAvailableURL(URLForSection(section), name, number, section, QUrl());
        const PLProjectItemPointer item = PLProjectItem::itemWithURL(url, section);
        const QString text = templateForSection(section, item->title());
        if (item->writeContents(text, &failure, PLWriteMode::CreateNew))
            return item;
        if (failure.code != EEXIST)
            break;
    }
    PLFail(error, failure);
    return nullptr;
}

bool PLProject::renameItem(PLProjectItem &item, const QString &title, PLError *error) const
{
    const QString from = item.path();
    if (!PLSomethingExistsAt(from))
        PLRecoverRenames(*this, item.section());
    const QUrl folder = QUrl::fromLocalFile(from.first(from.lastIndexOf(u'/') + 1));
    const QUrl url =
        PLAvailableURL(folder, PLSanitizedFileName(title), item.number(), item.section(), item.fileURL());
    const QString to = PLStandardizedPath(url);
    if (from != to && !movePage(from, to, error))
        return false;
    item.setFileURL(url);
    return true;
}

bool PLProject::trashItem(const PLProjectItem &item, PLError *error) const
{
    if (PLMoveToTrash(item.path()))
        return true;
    const QString message = PLLocalizedString(u"Impossible de mettre « %@ » à la corbeille."_s);
    return PLFail(error, {PLApplicationErrorDomain, PLErrorRefused, PLFormat(message, {item.title()})});
}
