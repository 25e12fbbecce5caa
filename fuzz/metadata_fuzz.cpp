// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// Notebooks whose `projet.md` holds any bytes: what is read of it, and what is left of it when it is saved
// with another title.

#include "PLFuzzFiles.h"
#include "foundation/PLText.h"
#include "storage/PLFiles.h"
#include "storage/PLFrontMatter.h"
#include "storage/PLProject.h"

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QUrl &folder()
{
    static const QTemporaryDir parent(PLFuzzFolderPattern(u"metadata"_s));
    static const QUrl url = QUrl::fromLocalFile(parent.filePath(u"Carnet"_s));
    return url;
}

QString metadataPath()
{
    static const QString path = PLStandardizedPath(PLProject::metadataURLForFolder(folder()));
    return path;
}

/// A value as it comes back: in one line, without the spaces at its ends.
QString keptValue(const QString &value)
{
    return PLTrimmedSpaces(PLSplitAtNewlines(value).join(u' ')).toString();
}

QString orFolderName(const QString &title)
{
    return title.isEmpty() ? u"Carnet"_s : title;
}

struct Metadata
{
    PLProject::Fields fields;
    QString notes;
};

/// What the bytes say; nothing if they are not UTF-8.
std::optional<Metadata> plainMetadata(const QByteArray &bytes)
{
    QString text = QString::fromUtf8("x" + bytes).sliced(1); // a leading U+FEFF stays
    if (text.toUtf8() != bytes)
        return std::nullopt;
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    Metadata metadata;
    metadata.fields = PLFrontMatter::fieldsFromString(text, &metadata.notes);
    return metadata;
}

void checkQuestions(const std::optional<Metadata> &plain)
{
    const PLProject::Fields fields = plain ? plain->fields : PLProject::Fields();
    PLRequire(PLProject::isProjectFolderAtURL(folder()), "any projet.md makes a notebook");
    PLRequire(PLProject::metadataOfProjectAtURL(folder()) == fields, "the fields are those of the header");
    PLRequire(PLProject::titleOfProjectAtURL(folder()) == orFolderName(fields.value(u"titre"_s)),
              "a notebook has its title or its folder's name");
}

void checkOpened(const PLProject &project, const Metadata &plain)
{
    PLRequire(project.title() == orFolderName(plain.fields.value(u"titre"_s)), "the title is read");
    PLRequire(project.author() == plain.fields.value(u"auteur"_s), "the author is read");
    PLRequire(project.created() == plain.fields.value(u"creation"_s), "the day of creation is read");
    PLRequire(project.notes() == plain.notes, "the notes are read");
}

void checkSaved(PLProject &project)
{
    PLRequire(project.saveMetadata(), "metadata can be saved");
    const QByteArray once = PLReadFile(metadataPath()).value_or(QByteArray());
    PLRequire(once.endsWith(project.notes().toUtf8()), "the notes are written as they are");
    const std::optional<Metadata> saved = plainMetadata(once);
    PLRequire(saved.has_value(), "metadata is written as UTF-8");
    const PLProject::Fields expected{{u"titre"_s, keptValue(project.title())},
                                     {u"auteur"_s, keptValue(project.author())},
                                     {u"creation"_s, keptValue(project.created())},
                                     {u"format"_s, u"aquilane-1"_s}};
    PLRequire(saved->fields == expected, "exactly the four keys are saved");
    PLRequire(saved->notes == project.notes().replace(u"\r\n"_s, u"\n"_s),
              "the notes are read as they were saved");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool hasFolder = PLCreateFolder(PLStandardizedPath(folder()));
    PLRequire(hasFolder, "a folder is made");
    PLFuzzInput input(data, size);
    const QString title = QString::fromUtf8(input.piece());
    const QByteArray bytes = input.rest();
    static const QByteArray path = metadataPath().toUtf8();
    PLWriteFuzzFile(path, bytes);
    const std::optional<Metadata> plain = plainMetadata(bytes);
    checkQuestions(plain);
    if (!input.isOneIn(32)) // opening and saving take long
        return 0;
    PLError error;
    const std::unique_ptr<PLProject> project = PLProject::openProjectAtURL(folder(), &error);
    PLRequire(PLReadFile(metadataPath()) == bytes, "opening changes no byte");
    PLRequire(bool(project) == plain.has_value(), "what is UTF-8 opens");
    PLRequire(bool(project) == error.message.isEmpty(), "what does not open says why");
    if (!project)
        return 0;
    checkOpened(*project, *plain);
    if (!title.isEmpty())
        project->setTitle(title);
    checkSaved(*project);
    return 0;
}
