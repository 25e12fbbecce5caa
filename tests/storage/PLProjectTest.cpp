// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLProject.h"

#include "storage/PLFiles.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QDate>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

#include <cerrno>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList sectionFolders{u"Fiches"_s, u"Lieux"_s, u"Livre"_s, u"Notes"_s, u"Personnages"_s};

PLSection sectionNumber(unsigned number)
{
    return static_cast<PLSection>(number);
}

} // namespace

class PLProjectTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void sectionsHaveTheirNames_data();
    void sectionsHaveTheirNames();
    void aNewPageStartsWithTheTemplate_data();
    void aNewPageStartsWithTheTemplate();
    void theTitleOfATemplateIsTakenAsItIs();

    void aFolderWithAMetadataFileIsANotebook_data();
    void aFolderWithAMetadataFileIsANotebook();
    void theTitleIsTheFieldOrTheFolder_data();
    void theTitleIsTheFieldOrTheFolder();
    void metadataOfWhatIsNoNotebookIsNothing();
    void metadataOfAnUnreadableFileIsEmpty_data();
    void metadataOfAnUnreadableFileIsEmpty();

    void creatingMakesTheNotebook();
    void creatingWithoutATitleTakesTheFoldersName();
    void creatingInEnglishKeepsTheFoldersFrench();
    void creatingOnAFolderWithFilesKeepsThem();
    void creatingOnAFolderWithAPageMakesNoOther();
    void creatingOnANotebookOpensItAndChangesNothing();
    void creatingOnAFileIsAnError_data();
    void creatingOnAFileIsAnError();
    void creatingUnderAFileIsAnError();
    void creatingWhereASectionIsAFileIsAnError();

    void openingReadsTheMetadata_data();
    void openingReadsTheMetadata();
    void openingMakesTheMissingFolders();
    void openingWhatIsNoNotebookIsAnError_data();
    void openingWhatIsNoNotebookIsAnError();
    void openingAnUnreadableNotebookIsAnError_data();
    void openingAnUnreadableNotebookIsAnError();

    void aHandleStartsWithTheFoldersName();
    void savingMetadataKeepsFourKeysAndTheNotes();
    void savingMetadataFailsWithoutTheFolder();
    void foldersWithOddNamesWork_data();
    void foldersWithOddNamesWork();
    void errorsMayBeIgnored();

private:
    QUrl folder() const { return QUrl::fromLocalFile(m_folder->filePath(u"Roman"_s)); }
    QString path(const QString &name) const { return m_folder->filePath(u"Roman/"_s + name); }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLProjectTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_environment.setLanguage(u"fr"_s);
}

void PLProjectTest::sectionsHaveTheirNames_data()
{
    QTest::addColumn<unsigned>("section");
    QTest::addColumn<QString>("folderName");
    QTest::addColumn<QStringList>("french");
    QTest::addColumn<QStringList>("english");
    QTest::newRow("book") << 0U << u"Livre"_s
                          << QStringList{u"Le livre"_s, u"Nouveau chapitre"_s, u"Chapitre"_s}
                          << QStringList{u"Book"_s, u"New Chapter"_s, u"Chapter"_s};
    QTest::newRow("characters") << 1U << u"Personnages"_s
                                << QStringList{u"Personnages"_s, u"Nouveau personnage"_s,
                                               u"Nouveau personnage"_s}
                                << QStringList{u"Characters"_s, u"New Character"_s, u"New Character"_s};
    QTest::newRow("places") << 2U << u"Lieux"_s
                            << QStringList{u"Lieux"_s, u"Nouveau lieu"_s, u"Nouveau lieu"_s}
                            << QStringList{u"Places"_s, u"New Place"_s, u"New Place"_s};
    QTest::newRow("sheets") << 3U << u"Fiches"_s
                            << QStringList{u"Fiches"_s, u"Nouvelle fiche"_s, u"Nouvelle fiche"_s}
                            << QStringList{u"Sheets"_s, u"New Sheet"_s, u"New Sheet"_s};
    QTest::newRow("research notes") << 4U << u"Notes"_s
                                    << QStringList{u"Notes de recherche"_s, u"Nouvelle note de recherche"_s,
                                                   u"Nouvelle note"_s}
                                    << QStringList{u"Research Notes"_s, u"New Research Note"_s,
                                                   u"New Note"_s};
    const QStringList noFrench{u""_s, u"Nouvel élément"_s, u"Sans titre"_s};
    const QStringList noEnglish{u""_s, u"New Item"_s, u"Untitled"_s};
    QTest::newRow("one too many") << 5U << u"Notes"_s << noFrench << noEnglish;
    QTest::newRow("none") << ~0U << u"Notes"_s << noFrench << noEnglish;
}

void PLProjectTest::sectionsHaveTheirNames()
{
    QFETCH(unsigned, section);
    QFETCH(QString, folderName);
    const auto names = [section] {
        const PLSection which = sectionNumber(section);
        return QStringList{PLProject::displayNameForSection(which),
                           PLProject::addActionTitleForSection(which),
                           PLProject::defaultTitleForSection(which)};
    };
    QTEST(names(), "french");
    m_environment.setLanguage(u"en"_s);
    QTEST(names(), "english");
    QCOMPARE(PLProject::folderNameForSection(sectionNumber(section)), folderName);
    QCOMPARE(PLProject(folder()).URLForSection(sectionNumber(section)),
             QUrl::fromLocalFile(path(folderName + u'/')));
}

void PLProjectTest::aNewPageStartsWithTheTemplate_data()
{
    QTest::addColumn<unsigned>("section");
    QTest::addColumn<QString>("french");
    QTest::addColumn<QString>("english");
    QTest::newRow("book") << 0U << u"# Marie\n\n"_s << u"# Marie\n\n"_s;
    QTest::newRow("characters")
        << 1U
        << u"---\ntype: personnage\ntags:\n---\n\n# Marie\n\n## En bref\n\n\n## Apparence\n\n\n## Caractère\n\n\n## Histoire\n\n\n## Relations\n\n"_s
        << u"---\ntype: personnage\ntags:\n---\n\n# Marie\n\n## At a Glance\n\n\n## Appearance\n\n\n## Personality\n\n\n## Backstory\n\n\n## Relationships\n\n"_s;
    QTest::newRow("places")
        << 2U
        << u"---\ntype: lieu\ntags:\n---\n\n# Marie\n\n## En bref\n\n\n## Description\n\n\n## Ambiance\n\n\n## Histoire\n\n"_s
        << u"---\ntype: lieu\ntags:\n---\n\n# Marie\n\n## At a Glance\n\n\n## Description\n\n\n## Atmosphere\n\n\n## History\n\n"_s;
    const QString sheet = u"---\ntype: fiche\ntags:\n---\n\n# Marie\n\n## Description\n\n"_s;
    QTest::newRow("sheets") << 3U << sheet << sheet;
    const QString note = u"---\ntype: note\ntags:\n---\n\n# Marie\n\n"_s;
    QTest::newRow("research notes") << 4U << note << note;
    QTest::newRow("one too many") << 5U << u""_s << u""_s;
    QTest::newRow("none") << ~0U << u""_s << u""_s;
}

void PLProjectTest::aNewPageStartsWithTheTemplate()
{
    QFETCH(unsigned, section);
    QTEST(PLProject::templateForSection(sectionNumber(section), u"Marie"_s), "french");
    m_environment.setLanguage(u"en"_s);
    QTEST(PLProject::templateForSection(sectionNumber(section), u"Marie"_s), "english");
}

void PLProjectTest::theTitleOfATemplateIsTakenAsItIs()
{
    QCOMPARE(PLProject::templateForSection(PLSection::Book, u"%@ à 100 %ld %1"_s),
             u"# %@ à 100 %ld %1\n\n"_s);
}

void PLProjectTest::aFolderWithAMetadataFileIsANotebook_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isNotebook");
    QTest::newRow("a file") << u"file"_s << true;
    QTest::newRow("an empty file") << u"empty"_s << true;
    QTest::newRow("a folder of that name") << u"folder"_s << false;
    QTest::newRow("a link to a file") << u"link"_s << true;
    QTest::newRow("a dangling link") << u"dangling"_s << false;
    QTest::newRow("nothing") << u"nothing"_s << false;
}

void PLProjectTest::aFolderWithAMetadataFileIsANotebook()
{
    QFETCH(QString, kind);
    QFETCH(bool, isNotebook);
    QVERIFY(QDir().mkpath(path(u"."_s)));
    const QString metadata = path(u"projet.md"_s);
    if (kind == u"file" || kind == u"empty")
        QVERIFY(PLMakeFile(metadata, kind == u"file" ? "a" : ""));
    else if (kind == u"folder")
        QVERIFY(QDir().mkpath(metadata));
    else if (kind == u"link")
        QVERIFY(PLMakeFile(path(u"other.md"_s)) && QFile::link(u"other.md"_s, metadata));
    else if (kind == u"dangling")
        QVERIFY(QFile::link(u"other.md"_s, metadata));
    QCOMPARE(PLProject::isProjectFolderAtURL(folder()), isNotebook);
    QCOMPARE(PLProject::isProjectFolderAtURL(QUrl::fromLocalFile(path(u""_s))), isNotebook); // with a slash
    QCOMPARE(PLProject::metadataURLForFolder(folder()), QUrl::fromLocalFile(metadata));
}

void PLProjectTest::theTitleIsTheFieldOrTheFolder_data()
{
    QTest::addColumn<QByteArray>("metadata");
    QTest::addColumn<QString>("title");
    QTest::newRow("a title") << QByteArray("---\ntitre: Mon roman\n---\n") << u"Mon roman"_s;
    QTest::newRow("an empty title") << QByteArray("---\ntitre:\n---\n") << u"Roman"_s;
    QTest::newRow("no title") << QByteArray("---\nauteur: A\n---\n") << u"Roman"_s;
    QTest::newRow("no header") << QByteArray("titre: A\n") << u"Roman"_s;
    QTest::newRow("an empty file") << QByteArray("") << u"Roman"_s;
    QTest::newRow("a byte-order mark") << QByteArray("\xEF\xBB\xBF---\ntitre: A\n---\n") << u"A"_s;
    QTest::newRow("not UTF-8") << QByteArray("---\ntitre: \xE9t\xE9\n---\n") << u"Roman"_s;
    QTest::newRow("no notebook") << QByteArray() << QString();
}

void PLProjectTest::theTitleIsTheFieldOrTheFolder()
{
    QFETCH(QByteArray, metadata);
    QFETCH(QString, title);
    if (!metadata.isNull())
        QVERIFY(PLMakeFile(path(u"projet.md"_s), metadata));
    QCOMPARE(PLProject::titleOfProjectAtURL(folder()), title);
    QCOMPARE(PLProject::titleOfProjectAtURL(folder()).isNull(), title.isNull());
}

void PLProjectTest::metadataOfWhatIsNoNotebookIsNothing()
{
    QVERIFY(!PLProject::metadataOfProjectAtURL(folder()));
    QVERIFY(PLMakeFile(path(u"projet.md"_s), "---\nTitre: A\ngenre: B\n---\n"));
    const PLProject::Fields fields{{u"titre"_s, u"A"_s}, {u"genre"_s, u"B"_s}};
    QCOMPARE(PLProject::metadataOfProjectAtURL(folder()).value(), fields);
}

void PLProjectTest::metadataOfAnUnreadableFileIsEmpty_data()
{
    QTest::addColumn<bool>("isPipe");
    QTest::newRow("not UTF-8") << false;
    QTest::newRow("a pipe") << true;
}

void PLProjectTest::metadataOfAnUnreadableFileIsEmpty()
{
    QFETCH(bool, isPipe);
    QVERIFY(QDir().mkpath(path(u"."_s)));
    if (isPipe)
        QCOMPARE(::mkfifo(QFile::encodeName(path(u"projet.md"_s)).constData(), 0600), 0);
    else
        QVERIFY(PLMakeFile(path(u"projet.md"_s), "---\ntitre: \xE9\n---\n"));
    QCOMPARE(PLProject::metadataOfProjectAtURL(folder()).value(), PLProject::Fields{});
}

void PLProjectTest::creatingMakesTheNotebook()
{
    const QString before = QDate::currentDate().toString(Qt::ISODate);
    const QUrl deep = QUrl::fromLocalFile(m_folder->filePath(u"a/b/Roman"_s));
    PLError error;
    const auto project = PLProject::createProjectAtURL(deep, u"Mon roman"_s, &error);
    QVERIFY2(project, qPrintable(error.message));
    QCOMPARE(project->title(), u"Mon roman"_s);
    QCOMPARE(project->notes(), u""_s);
    QVERIFY(project->created() >= before);
    static const QRegularExpression date(u"^[0-9]{4}-[0-9]{2}-[0-9]{2}$"_s);
    QVERIFY(date.match(project->created()).hasMatch());

    const QString folder = PLStandardizedPath(deep);
    QCOMPARE(PLNamesIn(folder), sectionFolders + QStringList{u"projet.md"_s});
    const QString text = u"---\ntitre: Mon roman\nauteur:%1\ncreation: %2\nformat: aquilane-1\n---\n\n"_s.arg(
        project->author().isEmpty() ? u""_s : u' ' + project->author(), project->created());
    QCOMPARE(PLBytesOf(folder + u"/projet.md"_s), text.toUtf8());
    QCOMPARE(PLNamesIn(folder + u"/Livre"_s), QStringList{u"01 - Chapitre 1.md"_s});
    QCOMPARE(PLBytesOf(folder + u"/Livre/01 - Chapitre 1.md"_s), "# Chapitre 1\n\n");
    QVERIFY(PLProject::isProjectFolderAtURL(deep));
}

void PLProjectTest::creatingWithoutATitleTakesTheFoldersName()
{
    QCOMPARE(PLProject::createProjectAtURL(folder(), QString())->title(), u"Roman"_s);
    QCOMPARE(PLProject::titleOfProjectAtURL(folder()), u"Roman"_s);
}

void PLProjectTest::creatingInEnglishKeepsTheFoldersFrench()
{
    m_environment.setLanguage(u"en"_s);
    QVERIFY(PLProject::createProjectAtURL(folder(), u"My Novel"_s));
    QCOMPARE(PLNamesIn(path(u"."_s)), sectionFolders + QStringList{u"projet.md"_s});
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), QStringList{u"01 - Chapter 1.md"_s});
}

void PLProjectTest::creatingOnAFolderWithFilesKeepsThem()
{
    QVERIFY(PLMakeFile(path(u"notes.txt"_s), "a"));
    QVERIFY(PLMakeFile(path(u"Livre/plan.txt"_s), "b"));
    QVERIFY(PLMakeFile(path(u"Photos/1.jpg"_s), "c"));
    QVERIFY(PLProject::createProjectAtURL(folder(), QString()));
    QCOMPARE(PLBytesOf(path(u"notes.txt"_s)), "a");
    QCOMPARE(PLBytesOf(path(u"Livre/plan.txt"_s)), "b");
    QCOMPARE(PLBytesOf(path(u"Photos/1.jpg"_s)), "c");
    QCOMPARE(PLNamesIn(path(u"."_s)),
             (QStringList{u"Fiches"_s, u"Lieux"_s, u"Livre"_s, u"Notes"_s, u"Personnages"_s, u"Photos"_s,
                          u"notes.txt"_s, u"projet.md"_s}));
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), (QStringList{u"01 - Chapitre 1.md"_s, u"plan.txt"_s}));
}

void PLProjectTest::creatingOnAFolderWithAPageMakesNoOther()
{
    QVERIFY(PLMakeFile(path(u"Livre/Prologue.md"_s), "a"));
    QVERIFY(PLProject::createProjectAtURL(folder(), QString()));
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), QStringList{u"Prologue.md"_s});
}

void PLProjectTest::creatingOnANotebookOpensItAndChangesNothing()
{
    const QByteArray metadata = "---\r\ntitre: A\r\ngenre: B\r\n---\r\n\r\nNotes";
    QVERIFY(PLMakeFile(path(u"projet.md"_s), metadata));
    const auto project = PLProject::createProjectAtURL(folder(), u"Autre titre"_s);
    QVERIFY(project);
    QCOMPARE(project->title(), u"A"_s);
    QCOMPARE(PLBytesOf(path(u"projet.md"_s)), metadata);
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), QStringList{});
}

void PLProjectTest::creatingOnAFileIsAnError_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::newRow("French") << u"fr"_s << u"« Roman » est un fichier, pas un dossier."_s;
    QTest::newRow("English") << u"en"_s << u"“Roman” is a file, not a folder."_s;
}

void PLProjectTest::creatingOnAFileIsAnError()
{
    QFETCH(QString, language);
    m_environment.setLanguage(language);
    QVERIFY(PLMakeFile(m_folder->filePath(u"Roman"_s), "a"));
    PLError error;
    QVERIFY(!PLProject::createProjectAtURL(folder(), u"Titre"_s, &error));
    QCOMPARE(error.domain, PLApplicationErrorDomain);
    QCOMPARE(error.code, 1);
    QTEST(error.message, "message");
    QCOMPARE(PLBytesOf(m_folder->filePath(u"Roman"_s)), "a");
}

void PLProjectTest::creatingUnderAFileIsAnError()
{
    QVERIFY(PLMakeFile(m_folder->filePath(u"Roman"_s), "a"));
    PLError error;
    QVERIFY(!PLProject::createProjectAtURL(QUrl::fromLocalFile(path(u"Tome 1"_s)), QString(), &error));
    QCOMPARE(error.domain, PLFileErrorDomain);
    QVERIFY(!error.message.isEmpty());
}

void PLProjectTest::creatingWhereASectionIsAFileIsAnError()
{
    QVERIFY(PLMakeFile(path(u"Fiches"_s), "a"));
    PLError error;
    QVERIFY(!PLProject::createProjectAtURL(folder(), QString(), &error));
    QCOMPARE(error.code, EEXIST);
    QCOMPARE(PLBytesOf(path(u"Fiches"_s)), "a");
    QVERIFY(!PLProject::isProjectFolderAtURL(folder()));
}

void PLProjectTest::openingReadsTheMetadata_data()
{
    QTest::addColumn<QByteArray>("metadata");
    QTest::addColumn<QStringList>("values"); // title, author, day of creation, notes
    QTest::newRow("all") << QByteArray(
                                "---\ntitre: A\nauteur: B\ncreation: 2024-03-01\nformat: x\n---\n\nC\n")
                         << QStringList{u"A"_s, u"B"_s, u"2024-03-01"_s, u"C\n"_s};
    QTest::newRow("nothing") << QByteArray("") << QStringList{u"Roman"_s, u""_s, u""_s, u""_s};
    QTest::newRow("only notes") << QByteArray("C") << QStringList{u"Roman"_s, u""_s, u""_s, u"C"_s};
    QTest::newRow("a byte-order mark")
        << QByteArray("\xEF\xBB\xBF---\ntitre: A\n---\n\nC") << QStringList{u"A"_s, u""_s, u""_s, u"C"_s};
}

void PLProjectTest::openingReadsTheMetadata()
{
    QFETCH(QByteArray, metadata);
    QFETCH(QStringList, values);
    QVERIFY(PLMakeFile(path(u"projet.md"_s), metadata));
    const auto project = PLProject::openProjectAtURL(folder());
    QVERIFY(project);
    QCOMPARE((QStringList{project->title(), project->author(), project->created(), project->notes()}),
             values);
    QVERIFY(!project->author().isNull() && !project->created().isNull());
    QCOMPARE(PLBytesOf(path(u"projet.md"_s)), metadata);
    QCOMPARE(project->folderURL(), folder());
}

void PLProjectTest::openingMakesTheMissingFolders()
{
    QVERIFY(PLMakeFile(path(u"projet.md"_s), ""));
    QVERIFY(PLMakeFile(path(u"Lieux/Paris.md"_s), "a"));
    QVERIFY(PLProject::openProjectAtURL(folder()));
    QCOMPARE(PLNamesIn(path(u"."_s)), sectionFolders + QStringList{u"projet.md"_s});
    QCOMPARE(PLBytesOf(path(u"Lieux/Paris.md"_s)), "a");
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), QStringList{}); // opening makes no page
}

void PLProjectTest::openingWhatIsNoNotebookIsAnError_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("message");
    QTest::newRow("French") << u"fr"_s << u"Le dossier « Roman » n'est pas un carnet Aquilane."_s;
    QTest::newRow("English") << u"en"_s << u"The folder “Roman” isn't an Aquilane notebook."_s;
}

void PLProjectTest::openingWhatIsNoNotebookIsAnError()
{
    QFETCH(QString, language);
    m_environment.setLanguage(language);
    QVERIFY(QDir().mkpath(path(u"projet.md"_s)));
    PLError error;
    QVERIFY(!PLProject::openProjectAtURL(QUrl::fromLocalFile(path(u""_s)), &error)); // with a slash
    QCOMPARE(error.domain, PLApplicationErrorDomain);
    QCOMPARE(error.code, 2);
    QTEST(error.message, "message");
    QCOMPARE(PLNamesIn(path(u"."_s)), QStringList{u"projet.md"_s});
}

void PLProjectTest::openingAnUnreadableNotebookIsAnError_data()
{
    QTest::addColumn<bool>("isPipe");
    QTest::addColumn<int>("code");
    QTest::newRow("not UTF-8") << false << EILSEQ;
    QTest::newRow("a pipe") << true << EINVAL;
}

void PLProjectTest::openingAnUnreadableNotebookIsAnError()
{
    QFETCH(bool, isPipe);
    QVERIFY(QDir().mkpath(path(u"."_s)));
    if (isPipe)
        QCOMPARE(::mkfifo(QFile::encodeName(path(u"projet.md"_s)).constData(), 0600), 0);
    else
        QVERIFY(PLMakeFile(path(u"projet.md"_s), "---\ntitre: \xE9\n---\n"));
    QElapsedTimer timer;
    timer.start();
    PLError error;
    QVERIFY(!PLProject::openProjectAtURL(folder(), &error));
    QTEST(error.code, "code");
    QVERIFY(timer.elapsed() < 1000);
    QCOMPARE(PLNamesIn(path(u"."_s)), QStringList{u"projet.md"_s});
}

void PLProjectTest::aHandleStartsWithTheFoldersName()
{
    const PLProject project(QUrl::fromLocalFile(path(u""_s)));
    QCOMPARE(project.title(), u"Roman"_s);
    QCOMPARE(project.author(), u""_s);
    QCOMPARE(project.created(), u""_s);
    QCOMPARE(project.notes(), u""_s);
    QVERIFY(!QFile::exists(path(u""_s)));
    QCOMPARE(PLProject(QUrl::fromLocalFile(u"/"_s)).title(), u"/"_s);
}

void PLProjectTest::savingMetadataKeepsFourKeysAndTheNotes()
{
    QVERIFY(PLMakeFile(path(u"projet.md"_s), "---\ngenre: polar\ntitre: A\nformat: 7\n---\n\n\nNotes\n"));
    const auto project = PLProject::openProjectAtURL(folder());
    QVERIFY(project);
    project->setTitle(u"Titre\nen deux"_s);
    project->setAuthor(QString());
    QVERIFY(project->saveMetadata());
    QCOMPARE(PLBytesOf(path(u"projet.md"_s)),
             "---\ntitre: Titre en deux\nauteur:\ncreation:\nformat: aquilane-1\n---\n\n\nNotes\n");
}

void PLProjectTest::savingMetadataFailsWithoutTheFolder()
{
    PLError error;
    QVERIFY(!PLProject(folder()).saveMetadata(&error));
    QCOMPARE(error.code, ENOENT);
}

void PLProjectTest::foldersWithOddNamesWork_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("signs of an address") << u"100 % #1 ? & = +"_s;
    QTest::newRow("a percent code") << u"a%20b%2Fc"_s;
    QTest::newRow("a line end") << u"a\nb"_s;
    QTest::newRow("quotes and a dollar") << u"l'«\"`$(x)"_s;
    QTest::newRow("another script") << u"小説 🐉"_s;
    QTest::newRow("decomposed accents") << u"e\u0301te\u0301"_s;
    QTest::newRow("a leading dash") << u"-rf"_s;
    QTest::newRow("spaces at the ends") << u" a "_s;
}

void PLProjectTest::foldersWithOddNamesWork()
{
    QFETCH(QString, name);
    const QUrl url = QUrl::fromLocalFile(m_folder->filePath(name));
    QVERIFY(PLProject::createProjectAtURL(url, QString()));
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList{name});
    const auto project = PLProject::openProjectAtURL(url);
    QVERIFY(project);
    QCOMPARE(PLProject(url).title(), name);
    const auto pages = project->itemsInSection(PLSection::Book);
    QCOMPARE(pages.size(), 1U);
    QCOMPARE(pages[0]->readContents(), u"# Chapitre 1\n\n"_s);
}

void PLProjectTest::errorsMayBeIgnored()
{
    QVERIFY(!PLProject::openProjectAtURL(folder()));
    QVERIFY(PLMakeFile(m_folder->filePath(u"Roman"_s), "a"));
    QVERIFY(!PLProject::createProjectAtURL(folder(), QString()));
    QVERIFY(!PLProject(folder()).ensureFolders());
    QVERIFY(!PLProject(folder()).saveMetadata());
}

QTEST_GUILESS_MAIN(PLProjectTest)
#include "PLProjectTest.moc"
