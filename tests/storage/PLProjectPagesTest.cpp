// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QElapsedTimer>
#include <QTest>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/inotify.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// The moves in a folder since this was made, where the system tells of them.
class Moves final
{
public:
#ifdef Q_OS_LINUX
    explicit Moves(const QString &folder) : m_events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        ::inotify_add_watch(m_events, QFile::encodeName(folder).constData(), IN_MOVE);
    }
    ~Moves()
    {
        ::close(m_events);
    }

    /// The old and the new name of each move, one after the other.
    QStringList names() const
    {
        alignas(inotify_event) char buffer[8192];
        const ssize_t length = ::read(m_events, buffer, sizeof buffer);
        QStringList names;
        for (ssize_t position = 0; position < length;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer + position);
            names.append(QFile::decodeName(event->name));
            position += ssize_t(sizeof(inotify_event) + event->len);
        }
        return names;
    }

private:
    int m_events;
#else
    explicit Moves(const QString &) {}
    QStringList names() const
    {
        return {};
    }
#endif
};

} // namespace

class PLProjectPagesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theBookIsListedByNumberThenTitle_data();
    void theBookIsListedByNumberThenTitle();
    void otherSectionsAreListedByTitle_data();
    void otherSectionsAreListedByTitle();
    void equalTitlesAreListedByFileName();
    void onlyPagesAreListed();
    void linksToPagesAreListedAndLinksToFoldersAreNot();
    void whatCannotBeReadIsListedAndReadsAsAnError();
    void theListingWithTagsIsTheListingAndTheTagsOfEachPage();
    void aMissingSectionIsEmpty();
    void aNameThatIsNotUnicodeIsNeverSavedOver();

    void newChaptersFollowTheHighestNumber_data();
    void newChaptersFollowTheHighestNumber();
    void newPagesGetTheirNameAndTemplate_data();
    void newPagesGetTheirNameAndTemplate();
    void aTitleThatIsTakenIsNumbered();
    void aNewPageInAMissingSectionIsAnError();

    void renamingMovesTheFile_data();
    void renamingMovesTheFile();
    void renamingToItsOwnTitleChangesNothing();
    void renamingInAnotherCaseGoesByWayOfATemporaryName_data();
    void renamingInAnotherCaseGoesByWayOfATemporaryName();
    void renamingInTheCaseOfAnotherPageFailsAndLosesNothing();
    void renamingAPageThatIsGoneIsAnError_data();
    void renamingAPageThatIsGoneIsAnError();
    void renamingKeepsTheText();

private:
    QString path(const QString &name) const { return m_folder->filePath(u"Roman/"_s + name); }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    QStringList titles(PLSection section) const
    {
        QStringList titles;
        for (const PLProjectItemPointer &item : m_project->itemsInSection(section))
            titles.append(item->number() == 0 ? item->title()
                                              : QString::number(item->number()) + u' ' + item->title());
        return titles;
    }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<PLProject> m_project;
};

void PLProjectPagesTest::init()
{
    m_environment.setLanguage(u"fr"_s);
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(PLMakeFile(path(u"projet.md"_s)));
    m_project = PLProject::openProjectAtURL(url(u""_s));
    QVERIFY(m_project);
}

void PLProjectPagesTest::theBookIsListedByNumberThenTitle_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("numbers first, in order")
        << QStringList{u"02 - B.md"_s, u"Prologue.md"_s, u"1 - A.md"_s, u"10 - C.md"_s}
        << QStringList{u"1 A"_s, u"2 B"_s, u"10 C"_s, u"Prologue"_s};
    QTest::newRow("equal numbers by title")
        << QStringList{u"1 - b.md"_s, u"1 - É.md"_s, u"1 - A.md"_s, u"01 - Acte 10.md"_s, u"1 - Acte 9.md"_s}
        << QStringList{u"1 A"_s, u"1 Acte 9"_s, u"1 Acte 10"_s, u"1 b"_s, u"1 É"_s};
    QTest::newRow("without numbers, by title")
        << QStringList{u"Prologue.md"_s, u"épilogue.md"_s, u"Avant.md"_s, u"0 - Zéro.md"_s}
        << QStringList{u"Avant"_s, u"épilogue"_s, u"Prologue"_s, u"Zéro"_s};
    QTest::newRow("nothing") << QStringList{} << QStringList{};
}

void PLProjectPagesTest::theBookIsListedByNumberThenTitle()
{
    QFETCH(QStringList, names);
    for (const QString &name : names)
        QVERIFY(PLMakeFile(path(u"Livre/"_s + name)));
    QTEST(titles(PLSection::Book), "titles");
}

void PLProjectPagesTest::otherSectionsAreListedByTitle_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("French") << u"fr"_s;
    QTest::newRow("English") << u"en"_s;
}

void PLProjectPagesTest::otherSectionsAreListedByTitle()
{
    QFETCH(QString, language);
    m_environment.setLanguage(language);
    const QStringList expected{u"2 - Deux"_s, u"10 - Dix"_s, u"abbé"_s,  u"Élise"_s, u"Lieu 2"_s,
                               u"lieu 10"_s,  u"marie"_s,    u"Œuvre"_s, u"Zoé"_s};
    for (qsizetype index = expected.size() - 1; index >= 0; --index)
        QVERIFY(PLMakeFile(path(u"Fiches/"_s + expected[index] + u".md"_s)));
    QCOMPARE(titles(PLSection::Sheets), expected);
}

void PLProjectPagesTest::equalTitlesAreListedByFileName()
{
    QStringList names;
    for (int zeros = 0; zeros < 60; ++zeros) {
        names.append(QString(zeros, u'0') + u"1 - X.md"_s);
        QVERIFY(PLMakeFile(path(u"Livre/"_s + names.last())));
    }
    names.sort();
    QStringList listed;
    for (const PLProjectItemPointer &item : m_project->itemsInSection(PLSection::Book))
        listed.append(item->fileURL().fileName());
    QCOMPARE(listed, names);
}

void PLProjectPagesTest::onlyPagesAreListed()
{
    QVERIFY(PLMakeFile(path(u"Notes/.brouillon.md"_s)));
    QVERIFY(PLMakeFile(path(u"Notes/notes.txt"_s)));
    QVERIFY(PLMakeFile(path(u"Notes/x.md/inside.md"_s)));
    QVERIFY(PLMakeFile(path(u"Notes/md"_s)));
    QVERIFY(PLMakeFile(path(u"Notes/a.md~"_s)));
    QVERIFY(PLMakeFile(path(u"Notes/.aquilane-01234567.tmp"_s)));
    QVERIFY(PLMakeFile(path(u"Notes/A.MD"_s)));
    QVERIFY(PLMakeFile(path(u"Notes/b.Md"_s)));
    QCOMPARE(titles(PLSection::Notes), (QStringList{u"A"_s, u"b"_s}));
}

void PLProjectPagesTest::linksToPagesAreListedAndLinksToFoldersAreNot()
{
    QVERIFY(PLMakeFile(path(u"ailleurs/p.md"_s), "a"));
    QVERIFY(QFile::link(path(u"ailleurs/p.md"_s), path(u"Notes/page.md"_s)));
    QVERIFY(QFile::link(path(u"ailleurs"_s), path(u"Notes/folder.md"_s)));
    QCOMPARE(titles(PLSection::Notes), QStringList{u"page"_s});
    QCOMPARE(m_project->itemsInSection(PLSection::Notes)[0]->readContents(), u"a"_s);
}

void PLProjectPagesTest::whatCannotBeReadIsListedAndReadsAsAnError()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"Notes/pipe.md"_s)).constData(), 0600), 0);
    QVERIFY(QFile::link(u"/dev/zero"_s, path(u"Notes/device.md"_s)));
    QVERIFY(QFile::link(u"loop.md"_s, path(u"Notes/loop.md"_s)));
    QVERIFY(QFile::link(u"not there"_s, path(u"Notes/dangling.md"_s)));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(titles(PLSection::Notes), (QStringList{u"dangling"_s, u"device"_s, u"loop"_s, u"pipe"_s}));
    for (const PLProjectItemPointer &item : m_project->itemsInSection(PLSection::Notes)) {
        PLError error;
        QVERIFY(item->readContents(&error).isNull());
        QVERIFY(!error.message.isEmpty());
        QCOMPARE(item->readTags(), QStringList{});
    }
    QVERIFY(timer.elapsed() < 1000);
}

/// Whatever a page is like: the listing reads its start by a quicker road than the page itself does.
void PLProjectPagesTest::theListingWithTagsIsTheListingAndTheTagsOfEachPage()
{
    const QByteArray tags = "tags: b, a\n---\n";
    QVERIFY(PLMakeFile(path(u"ailleurs.md"_s), "---\n" + tags));
    QVERIFY(QFile::link(path(u"ailleurs.md"_s), path(u"Livre/2 - Lien.md"_s)));
    QVERIFY(QFile::link(u"nulle part"_s, path(u"Livre/3 - Rien.md"_s)));
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"Livre/4 - Tube.md"_s)).constData(), 0600), 0);
    QVERIFY(PLMakeFile(path(u"Livre/1 - Courte.md"_s), "---\n" + tags));
    QVERIFY(PLMakeFile(path(u"Livre/Longue.md"_s), "---\nx: " + QByteArray(9000, 'y') + '\n' + tags));
    QVERIFY(PLMakeFile(path(u"Livre/Au bord.md"_s), "---\nx: " + QByteArray(489, 'y') + '\n' + tags));
    QVERIFY(PLMakeFile(path(u"Livre/Latin.md"_s), "---\ntags: \xE9t\xE9\n---\n"));
    QVERIFY(PLMakeFile(path(u"Livre/Large.md"_s), QByteArray("\xFE\xFF\0-\0-\0-\0\n", 10)));
    QVERIFY(PLMakeFile(path(u"Livre/Sans.md"_s), "Texte."));
    QVERIFY(PLMakeFile(path(u"Livre/Vide.md"_s)));

    const std::vector<PLProjectItemPointer> items = m_project->itemsInSection(PLSection::Book);
    const std::vector<PLTaggedItem> tagged = m_project->taggedItemsInSection(PLSection::Book);
    QCOMPARE(tagged.size(), size_t(10));
    QCOMPARE(tagged.size(), items.size());
    int pagesWithTags = 0;
    for (size_t index = 0; index < items.size(); ++index) {
        QVERIFY(tagged[index].item->isSameFileAsItem(items[index].get()));
        QCOMPARE(tagged[index].tags, items[index]->readTags());
        pagesWithTags += tagged[index].tags.isEmpty() ? 0 : 1;
    }
    QCOMPARE(pagesWithTags, 5);
}

void PLProjectPagesTest::aMissingSectionIsEmpty()
{
    QVERIFY(QDir().rmdir(path(u"Notes"_s)));
    QCOMPARE(titles(PLSection::Notes), QStringList{});
    QVERIFY(PLMakeFile(path(u"Notes"_s)));
    QCOMPARE(titles(PLSection::Notes), QStringList{});
}

void PLProjectPagesTest::aNameThatIsNotUnicodeIsNeverSavedOver()
{
    const QByteArray native = QFile::encodeName(path(u"Notes/"_s)) + "caf\xE9.md";
    if (::mknod(native.constData(), S_IFREG | 0600, 0) != 0)
        QSKIP("this disk takes no such name");
    // No path of ours could reach the file, so it is not shown; nor does another page take its place.
    QCOMPARE(titles(PLSection::Notes), QStringList{});
    const auto page = m_project->createItemInSection(PLSection::Notes, u"caf\uFFFD"_s);
    QVERIFY(page);
    QVERIFY(page->writeContents(u"texte"_s));
    QCOMPARE(titles(PLSection::Notes), QStringList{u"caf\uFFFD"_s});
    struct stat status;
    QCOMPARE(::stat(native.constData(), &status), 0);
    QCOMPARE(status.st_size, 0);
    ::unlink(native.constData()); // the toolkit cannot name it, so it cannot clean up either
}

void PLProjectPagesTest::newChaptersFollowTheHighestNumber_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("name");
    QTest::newRow("the first") << QStringList{} << u"01 - Chapitre 1.md"_s;
    QTest::newRow("the second") << QStringList{u"01 - Chapitre 1.md"_s} << u"02 - Chapitre 2.md"_s;
    QTest::newRow("gaps stay") << QStringList{u"1.md"_s, u"2.md"_s, u"5.md"_s} << u"06 - Chapitre 6.md"_s;
    QTest::newRow("only unnumbered ones") << QStringList{u"Prologue.md"_s} << u"01 - Chapitre 1.md"_s;
    QTest::newRow("the hundredth") << QStringList{u"99 - A.md"_s} << u"100 - Chapitre 100.md"_s;
    QTest::newRow("after the largest number") << QStringList{u"9223372036854775807 - A.md"_s}
                                              << u"9223372036854775807 - Chapitre 9223372036854775807.md"_s;
    QTest::newRow("after more than the largest number")
        << QStringList{QString(100, u'9') + u".md"_s}
        << u"9223372036854775807 - Chapitre 9223372036854775807.md"_s;
    QTest::newRow("folders do not count") << QStringList{u"7 - dossier.md/x"_s} << u"01 - Chapitre 1.md"_s;
}

void PLProjectPagesTest::newChaptersFollowTheHighestNumber()
{
    QFETCH(QStringList, names);
    QFETCH(QString, name);
    for (const QString &existing : names)
        QVERIFY(PLMakeFile(path(u"Livre/"_s + existing)));
    const auto page = m_project->createItemInSection(PLSection::Book);
    QVERIFY(page);
    QCOMPARE(page->fileURL(), url(u"Livre/"_s + name));
    QVERIFY(QFile::exists(path(u"Livre/"_s + name)));
}

void PLProjectPagesTest::newPagesGetTheirNameAndTemplate_data()
{
    QTest::addColumn<PLSection>("section");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("heading");
    QTest::newRow("a chapter") << PLSection::Book << u"La fuite"_s << u"Livre/01 - La fuite.md"_s
                               << u"La fuite"_s;
    QTest::newRow("a character") << PLSection::Characters << u"Marie"_s << u"Personnages/Marie.md"_s
                                 << u"Marie"_s;
    QTest::newRow("a character without a title")
        << PLSection::Characters << QString() << u"Personnages/Nouveau personnage.md"_s
        << u"Nouveau personnage"_s;
    QTest::newRow("a place without a title")
        << PLSection::Places << u""_s << u"Lieux/Nouveau lieu.md"_s << u"Nouveau lieu"_s;
    QTest::newRow("a sheet without a title")
        << PLSection::Sheets << QString() << u"Fiches/Nouvelle fiche.md"_s << u"Nouvelle fiche"_s;
    QTest::newRow("a note without a title")
        << PLSection::Notes << QString() << u"Notes/Nouvelle note.md"_s << u"Nouvelle note"_s;
    QTest::newRow("only spaces") << PLSection::Notes << u"   "_s << u"Notes/Sans titre.md"_s
                                 << u"Sans titre"_s;
    QTest::newRow("a way out") << PLSection::Notes << u"../Secret: v1?"_s << u"Notes/-Secret- v1-.md"_s
                               << u"-Secret- v1-"_s;
    QTest::newRow("a numbered title in the book")
        << PLSection::Book << u"3 petits cochons"_s << u"Livre/01 - 3 petits cochons.md"_s
        << u"3 petits cochons"_s;
    QTest::newRow("signs of an address")
        << PLSection::Notes << u"100%25 #1"_s << u"Notes/100%25 #1.md"_s << u"100%25 #1"_s;
}

void PLProjectPagesTest::newPagesGetTheirNameAndTemplate()
{
    QFETCH(PLSection, section);
    QFETCH(QString, title);
    QFETCH(QString, name);
    QFETCH(QString, heading);
    PLError error;
    const auto page = m_project->createItemInSection(section, title, &error);
    QVERIFY2(page, qPrintable(error.message));
    QCOMPARE(page->fileURL(), url(name));
    QCOMPARE(page->title(), heading);
    QCOMPARE(page->section(), section);
    QCOMPARE(PLBytesOf(path(name)), PLProject::templateForSection(section, heading).toUtf8());
}

void PLProjectPagesTest::aTitleThatIsTakenIsNumbered()
{
    for (const QString &title : {u"Marie"_s, u"Marie 2"_s, u"Marie 3"_s}) {
        const auto page = m_project->createItemInSection(PLSection::Characters, u"Marie"_s);
        QVERIFY(page);
        QCOMPARE(page->title(), title);
        QVERIFY(page->readContents().contains(u"# "_s + title + u'\n'));
    }
    QCOMPARE(PLNamesIn(path(u"Personnages"_s)),
             (QStringList{u"Marie 2.md"_s, u"Marie 3.md"_s, u"Marie.md"_s}));
}

void PLProjectPagesTest::aNewPageInAMissingSectionIsAnError()
{
    QVERIFY(QDir().rmdir(path(u"Notes"_s)));
    PLError error;
    QVERIFY(!m_project->createItemInSection(PLSection::Notes, u"A"_s, &error));
    QCOMPARE(error.code, ENOENT);
    QVERIFY(!error.message.isEmpty());
}

void PLProjectPagesTest::renamingMovesTheFile_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("after");
    QTest::newRow("a chapter keeps its number") << u"Livre/03 - A.md"_s << u"B"_s << u"Livre/03 - B.md"_s;
    QTest::newRow("a number by hand becomes two digits")
        << u"Livre/3. A.md"_s << u"A"_s << u"Livre/03 - A.md"_s;
    QTest::newRow("an unnumbered chapter") << u"Livre/Prologue.md"_s << u"Avant"_s << u"Livre/Avant.md"_s;
    QTest::newRow("a sheet") << u"Fiches/A.md"_s << u"B"_s << u"Fiches/B.md"_s;
    QTest::newRow("an unsafe title") << u"Fiches/A.md"_s << u" .x/y\n"_s << u"Fiches/x-y.md"_s;
    QTest::newRow("an empty title") << u"Fiches/A.md"_s << u""_s << u"Fiches/Sans titre.md"_s;
    QTest::newRow("a title that is taken") << u"Fiches/A.md"_s << u"Pris"_s << u"Fiches/Pris 2.md"_s;
    QTest::newRow("another case") << u"Fiches/marie.md"_s << u"Marie"_s << u"Fiches/Marie.md"_s;
    QTest::newRow("an accent in another case") << u"Fiches/élise.md"_s << u"Élise"_s << u"Fiches/Élise.md"_s;
    QTest::newRow("the extension in another case") << u"Fiches/A.MD"_s << u"A"_s << u"Fiches/A.md"_s;
    QTest::newRow("a line end and a percent sign")
        << u"Fiches/a\n%20.md"_s << u"100 %"_s << u"Fiches/100 %.md"_s;
}

void PLProjectPagesTest::renamingMovesTheFile()
{
    QFETCH(QString, before);
    QFETCH(QString, title);
    QFETCH(QString, after);
    QVERIFY(PLMakeFile(path(u"Fiches/Pris.md"_s), "other"));
    QVERIFY(PLMakeFile(path(before), "text"));
    const PLSection section = before.startsWith(u"Livre") ? PLSection::Book : PLSection::Sheets;
    const auto page = PLProjectItem::itemWithURL(url(before), section);
    const qint64 number = page->number();

    PLError error;
    QVERIFY2(m_project->renameItem(*page, title, &error), qPrintable(error.message));
    QCOMPARE(page->fileURL(), url(after));
    QCOMPARE(page->number(), number);
    QCOMPARE(PLProjectItem::itemWithURL(url(after), section)->title(), page->title());
    QCOMPARE(PLBytesOf(path(after)), "text");
    QVERIFY(!QFile::exists(path(before)));
    QCOMPARE(PLBytesOf(path(u"Fiches/Pris.md"_s)), "other");
    const qsizetype pages = section == PLSection::Book ? 1 : 2;
    QCOMPARE(PLNamesIn(QFileInfo(path(after)).path()).size(), pages); // nothing is left on the way
}

void PLProjectPagesTest::renamingToItsOwnTitleChangesNothing()
{
    QVERIFY(PLMakeFile(path(u"Livre/03 - A.md"_s), "text"));
    struct stat before;
    struct stat after;
    const QByteArray folder = QFile::encodeName(path(u"Livre"_s));
    QCOMPARE(::stat(folder.constData(), &before), 0);
    const auto page = PLProjectItem::itemWithURL(url(u"Livre/03 - A.md"_s), PLSection::Book);
    QVERIFY(m_project->renameItem(*page, u" A "_s));
    QCOMPARE(page->title(), u"A"_s);
    QCOMPARE(::stat(folder.constData(), &after), 0);
    QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), QStringList{u"03 - A.md"_s});
}

void PLProjectPagesTest::renamingInAnotherCaseGoesByWayOfATemporaryName_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("a short name") << u"marie"_s << u"Marie"_s;
    // It leaves no room for a temporary name with the old one in it.
    QTest::newRow("a long name") << QString(77, u'漢') + u"é"_s << QString(77, u'漢') + u"É"_s;
}

void PLProjectPagesTest::renamingInAnotherCaseGoesByWayOfATemporaryName()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QVERIFY(PLMakeFile(path(u"Fiches/"_s + before + u".md"_s), "text"));
    const auto page = PLProjectItem::itemWithURL(url(u"Fiches/"_s + before + u".md"_s), PLSection::Sheets);
    const Moves moves(path(u"Fiches"_s));
    QVERIFY(m_project->renameItem(*page, after));
    QCOMPARE(PLNamesIn(path(u"Fiches"_s)), QStringList{after + u".md"_s});
    QCOMPARE(PLBytesOf(path(u"Fiches/"_s + after + u".md"_s)), "text");

    const QStringList names = moves.names();
    if (names.isEmpty())
        QSKIP("this system does not tell of moves");
    QCOMPARE(names.size(), 4);
    QCOMPARE(names[0], before + u".md"_s);
    QVERIFY(names[1].startsWith(u"aquilane-"_s) && names[1].endsWith(u".tmp"_s));
    QCOMPARE(names[2], names[1]);
    QCOMPARE(names[3], after + u".md"_s);
}

void PLProjectPagesTest::renamingInTheCaseOfAnotherPageFailsAndLosesNothing()
{
    QVERIFY(PLMakeFile(path(u"Fiches/marie.md"_s), "small"));
    QVERIFY(PLMakeFile(path(u"Fiches/Marie.md"_s), "capital"));
    if (PLBytesOf(path(u"Fiches/marie.md"_s)) != "small")
        QSKIP("this disk takes both for the same");
    const auto page = PLProjectItem::itemWithURL(url(u"Fiches/marie.md"_s), PLSection::Sheets);
    PLError error;
    QVERIFY(!m_project->renameItem(*page, u"Marie"_s, &error));
    QCOMPARE(error.code, EEXIST);
    QCOMPARE(page->fileURL(), url(u"Fiches/marie.md"_s));
    QCOMPARE(page->title(), u"marie"_s);
    QCOMPARE(PLNamesIn(path(u"Fiches"_s)), (QStringList{u"Marie.md"_s, u"marie.md"_s}));
    QCOMPARE(PLBytesOf(path(u"Fiches/marie.md"_s)), "small");
    QCOMPARE(PLBytesOf(path(u"Fiches/Marie.md"_s)), "capital");
}

void PLProjectPagesTest::renamingAPageThatIsGoneIsAnError_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("to another title") << u"B"_s;
    QTest::newRow("to another case") << u"a"_s;
}

void PLProjectPagesTest::renamingAPageThatIsGoneIsAnError()
{
    QFETCH(QString, title);
    const auto page = PLProjectItem::itemWithURL(url(u"Fiches/A.md"_s), PLSection::Sheets);
    PLError error;
    QVERIFY(!m_project->renameItem(*page, title, &error));
    QCOMPARE(error.code, ENOENT);
    QCOMPARE(page->title(), u"A"_s);
    QCOMPARE(page->fileURL(), url(u"Fiches/A.md"_s));
    QCOMPARE(PLNamesIn(path(u"Fiches"_s)), QStringList{});
}

void PLProjectPagesTest::renamingKeepsTheText()
{
    QVERIFY(PLMakeFile(path(u"Fiches/A.md"_s), "# A\n"));
    const auto page = PLProjectItem::itemWithURL(url(u"Fiches/A.md"_s), PLSection::Sheets);
    for (const QString &title : {u"B"_s, u"b"_s, u"B"_s, u"A"_s}) {
        QVERIFY(m_project->renameItem(*page, title));
        QCOMPARE(page->title(), title);
        QCOMPARE(page->readContents(), u"# A\n"_s);
    }
    QCOMPARE(PLNamesIn(path(u"Fiches"_s)), QStringList{u"A.md"_s});
}

QTEST_GUILESS_MAIN(PLProjectPagesTest)
#include "PLProjectPagesTest.moc"
