// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The pages of a PLProject: listing, creating, renaming, moving to the trash.

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLFileNames.h"
#include "storage/PLFiles.h"
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
    PLProjectItemPointer item;
    QCollatorSortKey titleKey;
    QString fileName; ///< settles the order of equal titles
};

bool comesBefore(const ListedPage &left, const ListedPage &right)
{
    const qint64 leftNumber = left.item->number();
    const qint64 rightNumber = right.item->number();
    if (leftNumber != rightNumber)
        return leftNumber != 0 && (rightNumber == 0 || leftNumber < rightNumber);
    const int order = left.titleKey.compare(right.titleKey);
    return order != 0 ? order < 0 : left.fileName < right.fileName;
}

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

/// The names in a section's folder, after pages that a failing disk left in the middle of a change of case
/// have their names back.
QStringList namesInSection(const PLProject &project, PLSection section)
{
    const QString folder = PLStandardizedPath(project.URLForSection(section));
    const QStringList names = PLFileNamesInFolder(folder);
    if (std::none_of(names.begin(), names.end(), PLIsTemporaryNameForRename))
        return names;
    PLRecoverRenames(project, section);
    return PLFileNamesInFolder(folder);
}

} // namespace

std::vector<PLProjectItemPointer> PLProject::itemsInSection(PLSection section) const
{
    const QString prefix = PLStandardizedPath(URLForSection(section)) + u'/';
    const PLTitleComparer comparer(PLLocalization::localeIdentifier());
    std::vector<ListedPage> pages;
    const QStringList names = namesInSection(*this, section);
    pages.reserve(size_t(names.size()));
    for (const QString &name : names) {
        if (!isPageName(name))
            continue;
        const PLProjectItemPointer item = PLProjectItem::itemWithPath(prefix + name, section);
        pages.push_back({item, comparer.sortKey(item->title()), name});
    }
    std::sort(pages.begin(), pages.end(), comesBefore);
    std::vector<PLProjectItemPointer> items;
    items.reserve(pages.size());
    for (ListedPage &page : pages)
        items.push_back(std::move(page.item));
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
