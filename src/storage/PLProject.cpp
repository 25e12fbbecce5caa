// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLProject.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "storage/PLFiles.h"
#include "storage/PLFrontMatter.h"
#include "storage/PLRecovery.h"
#include "storage/PLUserName.h"

#include <QDate>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

/// `projet.md`, split.
struct Metadata
{
    PLFrontMatter::Fields fields;
    QString notes;
};

std::optional<Metadata> readMetadata(const QUrl &folder, PLError *error = nullptr)
{
    const QString path = PLStandardizedPath(PLProject::metadataURLForFolder(folder));
    const std::optional<QByteArray> bytes = PLReadFile(path, error);
    if (!bytes)
        return std::nullopt;
    std::optional<QString> text = PLDecodedUTF8(*bytes, error);
    if (!text)
        return std::nullopt;
    if (text->startsWith(QChar(QChar::ByteOrderMark)))
        text->remove(0, 1);
    Metadata metadata;
    metadata.fields = PLFrontMatter::fieldsFromString(*text, &metadata.notes);
    return metadata;
}

QString lastPathComponent(const QUrl &folder)
{
    const QString path = PLStandardizedPath(folder);
    const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? path : name;
}

QString textOr(const QString &text, const QString &otherwise)
{
    return text.isEmpty() ? otherwise : text;
}

/// An error of the program's own whose message names the folder.
std::nullptr_t refuse(PLError *error, int code, const QString &message, const QUrl &folder)
{
    PLFail(error, {PLApplicationErrorDomain, code,
                   PLFormat(PLLocalizedString(message), {lastPathComponent(folder)})});
    return nullptr;
}

} // namespace

QUrl PLProject::metadataURLForFolder(const QUrl &folder)
{
    return QUrl::fromLocalFile(PLStandardizedPath(folder) + u"/projet.md"_s);
}

bool PLProject::isProjectFolderAtURL(const QUrl &folder)
{
    return PLFileExistsAt(PLStandardizedPath(metadataURLForFolder(folder)));
}

QString PLProject::titleOfProjectAtURL(const QUrl &folder)
{
    const std::optional<Fields> fields = metadataOfProjectAtURL(folder);
    return fields ? textOr(fields->value(u"titre"_s), lastPathComponent(folder)) : QString();
}

std::optional<PLProject::Fields> PLProject::metadataOfProjectAtURL(const QUrl &folder)
{
    if (!isProjectFolderAtURL(folder))
        return std::nullopt;
    return readMetadata(folder).value_or(Metadata{}).fields;
}

std::unique_ptr<PLProject> PLProject::createProjectAtURL(const QUrl &folder, const QString &title,
                                                         PLError *error)
{
    if (PLFileExistsAt(PLStandardizedPath(folder)))
        return refuse(error, PLErrorRefused, u"« %@ » est un fichier, pas un dossier."_s, folder);
    if (isProjectFolderAtURL(folder))
        return openProjectAtURL(folder, error);
    if (!PLCreateFolder(PLStandardizedPath(folder), error))
        return nullptr;
    auto project = std::make_unique<PLProject>(folder);
    project->setTitle(textOr(title, project->title()));
    project->setAuthor(PLFullUserName());
    project->setCreated(QLocale::c().toString(QDate::currentDate(), u"yyyy-MM-dd"));
    // A notebook that was there all the time, on a disk that failed to say so, keeps its notes.
    if (!project->ensureFolders(error) || !project->writeMetadata(PLWriteMode::CreateNew, error))
        return nullptr;
    // The notebook is made; without its first page it is only emptier.
    if (project->itemsInSection(PLSection::Book).empty())
        (void)project->createItemInSection(PLSection::Book);
    return project;
}

std::unique_ptr<PLProject> PLProject::openProjectAtURL(const QUrl &folder, PLError *error)
{
    if (!isProjectFolderAtURL(folder))
        return refuse(error, PLErrorNotANotebook, u"Le dossier « %@ » n'est pas un carnet Aquilane."_s,
                      folder);
    const std::optional<Metadata> metadata = readMetadata(folder, error);
    if (!metadata)
        return nullptr;
    auto project = std::make_unique<PLProject>(folder);
    project->setTitle(textOr(metadata->fields.value(u"titre"_s), project->title()));
    project->setAuthor(metadata->fields.value(u"auteur"_s, u""_s));
    project->setCreated(metadata->fields.value(u"creation"_s, u""_s));
    project->setNotes(metadata->notes);
    if (!project->ensureFolders(error))
        return nullptr;
    PLRecoverNotebook(*project);
    return project;
}

PLProject::PLProject(const QUrl &folderURL)
    : m_folderURL(folderURL)
    , m_title(lastPathComponent(folderURL))
    , m_author(u""_s)
    , m_created(u""_s)
    , m_notes(u""_s)
{
}

bool PLProject::ensureFolders(PLError *error) const
{
    for (const PLSection section : PLAllSections) {
        if (!PLCreateFolder(PLStandardizedPath(URLForSection(section)), error))
            return false;
    }
    return true;
}

bool PLProject::saveMetadata(PLError *error) const
{
    return writeMetadata(PLWriteMode::Replace, error);
}

bool PLProject::writeMetadata(PLWriteMode mode, PLError *error) const
{
    const Fields fields{{u"titre"_s, m_title},
                        {u"auteur"_s, m_author},
                        {u"creation"_s, m_created},
                        {u"format"_s, u"aquilane-1"_s}};
    const QStringList keys{u"titre"_s, u"auteur"_s, u"creation"_s, u"format"_s};
    const QString text = PLFrontMatter::stringWithKeys(keys, fields, m_notes);
    return PLWriteFile(PLStandardizedPath(metadataURLForFolder(m_folderURL)), text.toUtf8(), mode, error);
}

QUrl PLProject::URLForSection(PLSection section) const
{
    return QUrl::fromLocalFile(PLStandardizedPath(m_folderURL) + u'/' + folderNameForSection(section) + u'/');
}
