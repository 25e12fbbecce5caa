// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"
#include "notebook_window/PLPageCommands.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLProjectWindowController.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarView.h"
#include "platform/PLAlert.h"
#include "platform/PLNewFolderPanel.h"
#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "support/PLCanary.h"
#include "support/PLTestEnvironment.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Titles that would do harm where they were read as a path, by a shell, as an option or as the end of a
/// line.
QStringList hostileTitles()
{
    return {
        u"../dehors/pris"_s,
        u"../../dehors/pris"_s,
        u"../../../../../../../../../../tmp/aquilane-canary"_s,
        u"/etc/aquilane-canary"_s,
        u"//etc/aquilane-canary"_s,
        u".."_s,
        u"."_s,
        u"..."_s,
        u" .."_s,
        u". ./x"_s,
        u"../"_s,
        u".\u2028./x"_s,
        u"~"_s,
        u"~root"_s,
        u"~/pris"_s,
        u"$HOME/pris"_s,
        u"-rf"_s,
        u"--"_s,
        u"-- -rf /"_s,
        u"$(touch canary)"_s,
        u"`touch canary`"_s,
        u"';touch canary;'"_s,
        u"\";touch canary;\""_s,
        u"|touch canary"_s,
        u">canary"_s,
        u"<canary"_s,
        u"a&touch canary&"_s,
        u"*"_s,
        u"?"_s,
        u"[a-z]"_s,
        u"{a,b}"_s,
        u"!!"_s,
        u"#"_s,
        u"\\"_s,
        u"..\\..\\dehors\\pris"_s,
        u"%2e%2e%2fdehors%2fpris"_s,
        u"%s%n%@%1"_s,
        u"..%00/dehors"_s,
        u"a\0b"_s,
        u"\0"_s,
        u"../dehors/secret.txt\0.md"_s,
        u"a\nb"_s,
        u"\n../dehors/pris"_s,
        u"a\r\nformat: autre\r\n---\r\n"_s,
        u"\u2025/dehors"_s,
        u"\uFF0E\uFF0E\uFF0Fdehors"_s,
        u"\u2215etc\u2215passwd"_s,
        u"\u202Egnp.dm"_s,
        u"\uFEFF../x"_s,
        u"\x1B[2J\x07"_s,
        u"\x7F\b\b\b"_s,
        u"file:///etc/passwd"_s,
        u"http://exemple.invalid/"_s,
        u"projet"_s,
        u"../projet"_s,
        u"x.md/../../projet"_s,
        u".aquilane-00000000.tmp"_s,
        u"aquilane-1.tmp"_s,
        u".couverture-1.jpg"_s,
        u"con"_s,
        u"nul.txt"_s,
        u"c:evil"_s,
        u"a:stream"_s,
        QString(QChar(0xD800)) + u"/../x"_s,
        QString(255, u'x'),
        QString(256, u'é'),
        QString(300, u'漢'),
        u"👩‍👩‍👧‍👦"_s.repeated(100),
        u"../"_s.repeated(200) + u"tmp/aquilane-canary"_s,
    };
}

} // namespace

/// Nothing that a writer types as a title, or that a file is called, reaches anything but its own folder.
/// Around the notebook lie things that must stay as they are; so must the home folder and the current one.
class PLHostileTitlesTest final : public QObject
{
    Q_OBJECT

private:
    const QString m_before = QDir::currentPath();
    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_tree; ///< of what lies around

    QString path(const QString &relative) const { return m_folder->filePath(relative); }
    QString notebook() const { return path(u"carnets/Roman"_s); }
    /// All that is there but the notebook and the trash.
    QStringList treeAround() const;
    /// Where a page is must be right below its section.
    bool isInSection(const PLProjectItem &item) const;
    void letEventsCome() const;

private Q_SLOTS:
    void init();
    void cleanup();

    void newPages();
    void renamedPages();
    void titlesTypedInTheSidebar();
    void pagesMadeByOthers();
    void namesOfNewNotebooks();
    void titlesOfNotebooks();
};

QStringList PLHostileTitlesTest::treeAround() const
{
    QStringList tree = PLTreeOf(m_folder->path());
    tree.removeIf([this](const QString &entry) {
        return entry.startsWith(notebook() + u'/') || entry.startsWith(path(u"data/"_s));
    });
    return tree;
}

bool PLHostileTitlesTest::isInSection(const PLProjectItem &item) const
{
    const QString folder = notebook() + u'/' + PLProject::folderNameForSection(item.section());
    const QFileInfo file(item.path());
    return file.isFile() && file.canonicalPath() == folder && file.fileName().endsWith(u".md"_s) &&
           PLFileNamesInFolder(folder).contains(file.fileName());
}

void PLHostileTitlesTest::letEventsCome() const
{
    for (int turn = 0; turn < 3; ++turn)
        QCoreApplication::processEvents();
}

void PLHostileTitlesTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
    for (const QString &file : {u"carnets/dehors/secret.txt"_s, u"carnets/Autre/projet.md"_s,
                                u"dehors/x.md"_s, u"home/.profile"_s, u"here/file"_s})
        QVERIFY(PLMakeFile(path(file), "as it was"));
    QVERIFY(PLMakeFile(notebook() + u"/projet.md"_s, "---\ntitre: Roman\n---\n"));
    QVERIFY(QDir().mkpath(path(u"data"_s)));
    qputenv("HOME", QFile::encodeName(path(u"home"_s)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"data"_s)));
    QVERIFY(QDir::setCurrent(path(u"here"_s)));
    m_tree = treeAround();
    QCOMPARE(m_tree.size(), 11);
    PLAlert::setResponder([](const PLAlert &) { return PLAlert::FirstButton; });
}

void PLHostileTitlesTest::cleanup()
{
    QVERIFY(QDir::setCurrent(m_before));
    QCOMPARE(treeAround(), m_tree);
    QVERIFY(!QFileInfo::exists(u"/tmp/aquilane-canary"_s) &&
            !QFileInfo::exists(u"/tmp/aquilane-canary.md"_s));
    QVERIFY(!QFileInfo::exists(u"/etc/aquilane-canary.md"_s));
    PLAlert::setResponder({});
}

void PLHostileTitlesTest::newPages()
{
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(notebook()));
    QVERIFY(project);
    for (const PLSection section : {PLSection::Book, PLSection::Places}) {
        for (const QString &title : hostileTitles()) {
            PLError error;
            const PLProjectItemPointer item = project->createItemInSection(section, title, &error);
            QVERIFY2(item, qPrintable(title + u": "_s + error.message));
            QVERIFY2(isInSection(*item), qPrintable(title));
        }
        QCOMPARE(project->itemsInSection(section).size(), size_t(hostileTitles().size()));
    }
}

void PLHostileTitlesTest::renamedPages()
{
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(notebook()));
    QVERIFY(project);
    for (const PLSection section : {PLSection::Book, PLSection::Places}) {
        const PLProjectItemPointer item = project->createItemInSection(section, u"A"_s);
        QVERIFY(item && item->writeContents(u"text"_s));
        for (const QString &title : hostileTitles()) {
            PLError error;
            QVERIFY2(project->renameItem(*item, title, &error), qPrintable(title + u": "_s + error.message));
            QVERIFY2(isInSection(*item), qPrintable(title));
        }
        QCOMPARE(item->readContents(), u"text"_s);
        QCOMPARE(project->itemsInSection(section).size(), size_t(1));
    }
}

void PLHostileTitlesTest::titlesTypedInTheSidebar()
{
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(notebook()));
    PLProjectWindowController &window = *delegate.projectWindows().front();
    QVERIFY(QTest::qWaitForWindowActive(window.window()));
    window.performCommand(PLCommand::NewCharacter, 0);
    for (const QString &title : hostileTitles()) {
        letEventsCome();
        window.performCommand(PLCommand::RenameSelectedItem, 0);
        auto *field = window.sidebar().view()->findChild<QLineEdit *>();
        QVERIFY2(field, qPrintable(title));
        field->setText(title);
        QTest::keyClick(field, Qt::Key_Return);
        letEventsCome();
        window.pageCommands().endTitleEditing(window.session().currentItem(), title); // a field shortens
        letEventsCome();
        QVERIFY2(isInSection(*window.session().currentItem()), qPrintable(title));
        QCOMPARE(window.project().itemsInSection(PLSection::Characters).size(), size_t(1));
    }
    window.performCommand(PLCommand::TrashSelectedItem, 0);
    QCOMPARE(window.project().itemsInSection(PLSection::Characters).size(), size_t(0));
    QCOMPARE(PLNamesIn(path(u"data/Trash/files"_s)).size(), 1);
}

/// A disk takes names that the program would not give.
void PLHostileTitlesTest::pagesMadeByOthers()
{
    const QStringList titles = hostileTitles();
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(notebook()));
    QVERIFY(project);
    int made = 0;
    for (const QString &title : titles) {
        const QString name = title.left(60) + u".md"_s;
        const bool canBe = !name.contains(u'/') && !name.contains(QChar(0)) && name.isValidUtf16();
        made += canBe && PLMakeFile(notebook() + u"/Notes/"_s + name, "text") ? 1 : 0;
    }
    QVERIFY(made > 30);
    const auto pages = project->itemsInSection(PLSection::Notes);
    QVERIFY(pages.size() > 30);
    for (const PLProjectItemPointer &page : pages) {
        QCOMPARE(page->readContents(), u"text"_s);
        QVERIFY(project->renameItem(*page, page->title() + u"/../x"_s));
        QVERIFY2(isInSection(*page), qPrintable(page->title()));
        QVERIFY2(project->trashItem(*page), qPrintable(page->title()));
    }
    QCOMPARE(project->itemsInSection(PLSection::Notes).size(), size_t(0));
    QCOMPARE(PLNamesIn(path(u"data/Trash/files"_s)).size(), qsizetype(pages.size()));
}

/// What the panel lets through is one name, below the folder that was chosen.
void PLHostileTitlesTest::namesOfNewNotebooks()
{
    PLNewFolderPanel panel({u"Nouveau"_s, u"Créer"_s, u"Texte"_s}, u"Nom"_s, u"Mon roman"_s, nullptr);
    auto *field = panel.findChild<QLineEdit *>();
    const QList<QPushButton *> buttons = panel.findChildren<QPushButton *>();
    const auto create = std::find_if(buttons.begin(), buttons.end(),
                                     [](const QPushButton *button) { return button->text() == u"Créer"; });
    QVERIFY(field && create != buttons.end());
    int accepted = 0;
    for (const QString &name : hostileTitles()) {
        field->setText(name);
        if (!(*create)->isEnabled())
            continue;
        ++accepted;
        QCOMPARE(QFileInfo(QDir::cleanPath(panel.path())).path(), path(u"home"_s));
        QVERIFY2(!panel.path().contains(QChar(0)), qPrintable(name));
    }
    QVERIFY(accepted > 30);
}

/// A title stays one line of the notebook's file.
void PLHostileTitlesTest::titlesOfNotebooks()
{
    for (const QString &title : hostileTitles()) {
        const QUrl folder = QUrl::fromLocalFile(notebook() + u"/neuf"_s);
        QVERIFY(PLProject::createProjectAtURL(folder, title));
        const auto fields = PLProject::metadataOfProjectAtURL(folder);
        QVERIFY(fields);
        QCOMPARE(fields->value(u"format"_s), u"aquilane-1"_s);
        QCOMPARE(fields->size(), 4);
        QVERIFY(QDir(notebook() + u"/neuf"_s).removeRecursively());
    }
}

QTEST_MAIN(PLHostileTitlesTest)
#include "PLHostileTitlesTest.moc"
