// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// File names for any title and number, in a folder that already holds the names before.

#include "PLFuzzFiles.h"
#include "foundation/PLText.h"
#include "storage/PLFileNames.h"
#include "storage/PLFiles.h"
#include "storage/PLProjectItem.h"
#include "storage/PLRecovery.h"

#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestName = 255; // bytes

QString folderPath()
{
    static const QTemporaryDir folder(PLFuzzFolderPattern(u"filenames"_s));
    return folder.path();
}

/// The rules for a title, one after the other; a null text for one that a file name cannot hold as it is.
QString plainName(const QString &title)
{
    if (title.contains(QChar(QChar::Null)) || !title.isValidUtf16())
        return QString();
    QString name = PLTrimmedSpacesAndNewlines(title).toString();
    for (const QChar refused : u"/\\:*?\"<>|"_s)
        name.replace(refused, u'-');
    name = PLSplitAtNewlines(name).join(u' ');
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    name = PLTrimmedSpaces(name.left(120)).toString();
    if (name.startsWith(u'.') || !name.isValidUtf16())
        return QString();
    return name.isEmpty() ? PLSanitizedFileName(QString()) : name;
}

void checkSanitized(const QString &title, const QString &name)
{
    const auto isRefused = [](QChar character) {
        return character.isNull() || PLIsNewline(character) || u"/\\:*?\"<>|"_s.contains(character);
    };
    PLRequire(!name.isEmpty() && name.size() <= 120, "a name has 1 to 120 units");
    PLRequire(std::none_of(name.begin(), name.end(), isRefused), "a name holds nothing that disks refuse");
    PLRequire(!name.startsWith(u'.'), "a name is not hidden");
    PLRequire(name.isValidUtf16(), "a name holds whole characters");
    PLRequire(PLTrimmedSpaces(name) == name, "a name has no space at its ends");
    PLRequire(PLSanitizedFileName(name) == name, "a name is a name");
    const QString plain = plainName(title);
    PLRequire(plain.isNull() || plain == name, "a name keeps to the rules");
}

/// A title is cut between two characters, before a space, or in a first character that no name has room for.
bool isCutWell(const QString &title, const QString &cut)
{
    if (!title.startsWith(cut) || !cut.isValidUtf16())
        return false;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, title);
    const qsizetype firstEnd = finder.toNextBoundary();
    finder.setPosition(cut.size());
    return finder.isAtBoundary() || cut.size() < firstEnd ||
           PLTrimmedSpaces(title.sliced(cut.size(), 1)).isEmpty();
}

struct Wish
{
    QString title;
    qint64 number = 0;
    PLSection section = PLSection::Book;
};

/// The path for a page, checked; with a number at its end if the title itself is taken.
QString checkedPath(const Wish &wish, bool isTaken)
{
    const QUrl url =
        PLAvailableURL(QUrl::fromLocalFile(folderPath()), wish.title, wish.number, wish.section, {});
    const QString path = PLStandardizedPath(url);
    PLRequire(path.startsWith(folderPath() + u'/'), "a page stays in its folder");
    const QString name = path.sliced(folderPath().size() + 1);
    PLRequire(!name.contains(u'/') && !name.contains(QChar(QChar::Null)), "a page's name is one name");
    PLRequire(!name.startsWith(u'.') && name.endsWith(u".md"), "a page's name is one that is listed");
    PLRequire(name.toUtf8().size() <= longestName, "a page's name fits a disk");
    PLRequire(QString::fromUtf8(name.toUtf8()) == name, "a page's name goes to the disk and back");
    PLRequire(!PLSomethingExistsAt(path), "a free name is free");

    const PLProjectItemPointer item = PLProjectItem::itemWithURL(url, wish.section);
    const bool hasNumber = wish.section == PLSection::Book && wish.number > 0;
    if (hasNumber)
        PLRequire(item->number() == wish.number, "a chapter's number is read as it was written");
    if (hasNumber || wish.section != PLSection::Book) {
        const qsizetype end = isTaken ? item->title().lastIndexOf(u' ') : item->title().size();
        PLRequire(!isTaken || item->title().sliced(end + 1).toInt() > 1,
                  "a name that is taken gets a number");
        PLRequire(isCutWell(wish.title, item->title().first(end)), "a title is read as it was given");
    }
    const QString temporary = PLTemporaryPathForRename(path).sliced(folderPath().size() + 1);
    PLRequire(temporary.toUtf8().size() <= longestName, "a name between two moves fits a disk");
    PLRequire(PLIsTemporaryNameForRename(temporary), "a name between two moves is known as one");
    return path;
}

/// A page keeps its name, and may change the case of it.
void checkOwnName(const Wish &wish, const QString &path)
{
    const QUrl folder = QUrl::fromLocalFile(folderPath());
    const QUrl own = QUrl::fromLocalFile(path);
    PLRequire(PLAvailableURL(folder, wish.title, wish.number, wish.section, own) == own,
              "a page keeps its name");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PLFuzzInput input(data, size);
    const int taken = input.isOneIn(16) ? 3 : 0; // making files takes long
    const auto section = PLSection(input.below(5));
    const qint64 digits = input.piece().left(18).toLongLong();
    const QString title = input.text();
    const QString name = PLSanitizedFileName(title);
    checkSanitized(title, name);

    const Wish wish{name, digits, section};
    QList<QByteArray> made;
    for (int count = 0;; ++count) {
        const QString path = checkedPath(wish, count > 0);
        if (count == taken)
            break;
        made.append(path.toUtf8());
        PLWriteFuzzFile(made.last(), {});
        if (count == 0)
            checkOwnName(wish, path);
    }
    for (const QByteArray &path : made)
        unlink(path.constData());
    return 0;
}
