// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFileNames.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLFiles.h"
#include "storage/PLProjectItem.h"

#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestTitle = 120;    // UTF-16 units
constexpr qsizetype longestFileName = 240; // bytes of UTF-8

/// True for what a common file system refuses in a name. No system takes a NUL.
bool isRefused(QChar character)
{
    return character.isNull() || QStringView(u"/\\:*?\"<>|").contains(character);
}

QString withoutRefusedCharacters(QString title)
{
    for (QChar &character : title) {
        if (isRefused(character))
            character = u'-';
        else if (PLIsNewline(character))
            character = u' ';
    }
    return title;
}

QStringView withoutLeadingStops(QStringView text)
{
    while (text.startsWith(u'.'))
        text = text.sliced(1);
    return text;
}

/// The title without the half of a surrogate pair, which no file name can hold.
QString withoutLoneSurrogates(const QString &title)
{
    return title.isValidUtf16() ? title : QString::fromUtf8(title.toUtf8());
}

qsizetype byteCount(QStringView text)
{
    return text.toUtf8().size();
}

/// The longest beginning of the text that fits, cut between two of the finder's boundaries.
QStringView beginning(QStringView text, qsizetype bytes, QTextBoundaryFinder::BoundaryType type)
{
    QTextBoundaryFinder finder(type, text.data(), text.size());
    qsizetype end = 0;
    qsizetype used = 0;
    for (qsizetype next = finder.toNextBoundary(); next > end; next = finder.toNextBoundary()) {
        if (PLSplitsPair(text, next))
            continue;
        used += byteCount(text.sliced(end, next - end));
        if (used > bytes)
            break;
        end = next;
    }
    return text.first(end);
}

/// The longest beginning that ends at a code point, for a character with a hundred accents.
QStringView beginningOfCharacter(QStringView text, qsizetype bytes)
{
    while (byteCount(text) > bytes)
        text.chop(text.size() > 1 && text.back().isLowSurrogate() ? 2 : 1);
    return text;
}

/// The title cut so that title and suffix make a file name that every system takes.
QString fittingTitle(const QString &title, const QString &suffix, qint64 number, PLSection section)
{
    const qsizetype rest = byteCount(PLProjectItem::fileNameForTitle(suffix, number, section));
    const qsizetype room = longestFileName - rest;
    if (byteCount(title) <= room)
        return title + suffix;
    QStringView cut = beginning(title, room, QTextBoundaryFinder::Grapheme);
    if (cut.isEmpty())
        cut = beginningOfCharacter(title, room);
    while (!cut.isEmpty() && PLTrimmedSpaces(cut.last(1)).isEmpty())
        cut.chop(1);
    return cut.toString() + suffix;
}

} // namespace

QString PLSanitizedFileName(const QString &title)
{
    QString name = PLTrimmedSpacesAndNewlines(withoutLoneSurrogates(title)).toString();
    name = withoutRefusedCharacters(name);
    QStringView rest = withoutLeadingStops(name).left(longestTitle);
    if (!rest.isEmpty() && rest.back().isHighSurrogate())
        rest.chop(1);
    rest = PLTrimmedSpaces(rest);
    // A stop behind a space would come first now, and the page would be hidden.
    while (rest.startsWith(u'.'))
        rest = PLTrimmedSpaces(withoutLeadingStops(rest));
    return rest.isEmpty() ? PLLocalizedString(u"Sans titre"_s) : rest.toString();
}

// NOLINTNEXTLINE(readability-function-size): five arguments, as the operation has
QUrl PLAvailableURL(const QUrl &folder, const QString &title, qint64 number, PLSection section,
                    const QUrl &ignoredURL)
{
    const QString prefix = PLStandardizedPath(folder) + u'/';
    const QString ignoredPath = PLStandardizedPath(ignoredURL);
    // A page made elsewhere may have a longer name than the program gives; it keeps it.
    if (prefix + PLProjectItem::fileNameForTitle(title, number, section) == ignoredPath)
        return QUrl::fromLocalFile(ignoredPath);
    QString suffix;
    for (qint64 counter = 2;; ++counter) {
        const QString candidate = fittingTitle(title, suffix, number, section);
        const QString path = prefix + PLProjectItem::fileNameForTitle(candidate, number, section);
        if (path.compare(ignoredPath, Qt::CaseInsensitive) == 0 || !PLSomethingExistsAt(path))
            return QUrl::fromLocalFile(path);
        suffix = u' ' + QString::number(counter);
    }
}
