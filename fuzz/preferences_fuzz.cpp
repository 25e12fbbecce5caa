// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// The file of preferences with any bytes in it: the program starts with a default for what it cannot read,
// and what it then writes keeps what it could.

#include "PLFuzzFiles.h"
#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"
#include "storage/PLRecentProjects.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Each time another path: the settings keep what they have read of one as long as size and time agree.
QString nextPath()
{
    static const QTemporaryDir folder(PLFuzzFolderPattern(u"preferences"_s));
    static int count = 0;
    return folder.filePath(QString::number(++count));
}

/// The bytes of a file that is not there any more then; null if there is none.
QByteArray takenFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray bytes = file.readAll();
    file.remove();
    return bytes;
}

using Values = QHash<QString, QVariant>;

/// A key such as a program has: of printable characters, in groups that have names.
bool isOrdinary(const QString &key)
{
    return !(u'/' + key + u'/').contains(u"//"_s) && std::all_of(key.begin(), key.end(), [](QChar character) {
        return character >= u' ' && character <= u'~';
    });
}

/// All but those that the test itself changes. None if there is an odd key: the toolkit takes it for another
/// one now and then, and writes the value of the one for that of the other.
Values otherValues()
{
    Values values;
    const QStringList keys = PLPreferences::store().allKeys();
    if (!std::all_of(keys.begin(), keys.end(), isOrdinary))
        return values;
    for (const QString &key : keys)
        values.insert(key, PLPreferences::store().value(key));
    for (const QString &key : {u"PLRecentProjects"_s, u"PLInterfaceLanguage"_s, u"AppleLanguages"_s})
        values.remove(key);
    return values;
}

/// Half a surrogate pair cannot be written.
bool canBeWritten(const QStringList &texts)
{
    return std::all_of(texts.begin(), texts.end(), [](const QString &text) { return text.isValidUtf16(); });
}

/// A list of texts is sometimes read as one of values, and an empty one as nothing.
bool isSame(const QVariant &left, const QVariant &right)
{
    const bool isList = left.typeId() == QMetaType::QStringList || left.typeId() == QMetaType::QVariantList;
    if (isList && left.toList().isEmpty())
        return right.toList().isEmpty();
    const bool isSameList = !left.toList().isEmpty() && left.toStringList() == right.toStringList();
    return left == right || isSameList || !canBeWritten(left.toStringList());
}

/// What the program reads when it starts.
void checkStart()
{
    const QStringList languages = PLLocalization::availableLanguages();
    PLRequire(languages.contains(PLLocalization::preferredLanguage()), "there is a language");
    PLRequire(PLRecentProjects::URLs().size() == PLRecentProjects::paths().size(), "each path is a folder's");
    (void)PLPreferences::store().value(u"PLReopenProjects"_s).toStringList();
    (void)PLPreferences::store().value(u"PLShelfSpineMode"_s).toBool();
}

void checkAdding(const QString &path)
{
    QStringList expected = PLRecentProjects::paths();
    expected.removeAll(path);
    expected.prepend(path);
    const qsizetype others = PLPreferences::store().value(u"PLRecentProjects"_s).toList().size();
    PLRecentProjects::addURL(QUrl::fromLocalFile(path));
    const QStringList paths = PLRecentProjects::paths();
    PLRequire(!paths.isEmpty() && paths.first() == path, "a folder comes first in the list");
    PLRequire(paths == expected.first(qMin(expected.size(), paths.size())), "the others keep their order");
    PLRequire(paths.size() == qMin<qsizetype>(expected.size(), 15) || others > 14,
              "none is dropped before its time");
}

/// What no folder's path can be: the toolkit's ini files do not give all such texts back.
bool holdsNoPath(const QStringList &texts)
{
    return !canBeWritten(texts) || std::any_of(texts.begin(), texts.end(), [](const QString &text) {
        return text.contains(QChar(QChar::Null)) || text.contains(QChar(QChar::ReplacementCharacter));
    });
}

/// Whether the paths are all there, in their order. What is kept beside them and is no text becomes one in an
/// ini file.
bool areKept(const QStringList &paths, const QStringList &later)
{
    qsizetype found = 0;
    for (const QString &path : later)
        found += found < paths.size() && paths[found] == path ? 1 : 0;
    return found == paths.size();
}

bool holdsOnlyTexts(const QVariantList &list)
{
    return std::all_of(list.begin(), list.end(),
                       [](const QVariant &entry) { return entry.typeId() == QMetaType::QString; });
}

/// What the program has written itself, and what else was in the file.
void checkWriting(const QString &path)
{
    const Values values = otherValues();
    checkAdding(u"/tmp/Carnet"_s);
    PLLocalization::setPreferredLanguage(u"fr"_s);
    const QStringList paths = PLRecentProjects::paths();
    const bool isPure = holdsOnlyTexts(PLPreferences::store().value(u"PLRecentProjects"_s).toList());
    const QString copy = nextPath();
    PLRequire(link(path.toUtf8().constData(), copy.toUtf8().constData()) == 0, "the file is there");
    PLPreferences::useFile(copy); // as by the next start of the program
    const QStringList later = PLRecentProjects::paths();
    PLRequire((isPure ? later == paths : areKept(paths, later)) || holdsNoPath(paths),
              "the list is read as it was written");
    PLRequire(PLLocalization::preferredLanguage() == u"fr", "the language is read as it was written");
    const Values kept = otherValues();
    const bool isKept = std::all_of(values.keyBegin(), values.keyEnd(), [&](const QString &key) {
        return isSame(values.value(key), kept.value(key));
    });
    PLRequire(isKept, "what could be read is still there after something was written");
    unlink(copy.toUtf8().constData());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PLFuzzInput input(data, size);
    const QString path = nextPath();
    const QByteArray bytes = input.rest();
    PLWriteFuzzFile(path.toUtf8(), bytes);
    PLPreferences::useFile(path);
    if (const QByteArray kept = takenFile(path + u".damaged"_s); !kept.isNull())
        PLRequire(kept == bytes, "a damaged file is kept as it was");
    checkStart();
    if (input.isOneIn(64)) // which takes long
        checkWriting(path);
    unlink(path.toUtf8().constData());
    return 0;
}
