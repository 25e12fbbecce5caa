// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLProjectWindowController.h"

#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "notebook_window/PLPageCommands.h"
#include "notebook_window/PLPageSession.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarRowDelegate.h"
#include "notebook_window/PLSidebarView.h"
#include "platform/PLAlert.h"
#include "platform/PLReveal.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"

#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString page(const QString &tags, const QString &body = u"texte"_s)
{
    return u"---\ntags: %1\n---\n\n%2"_s.arg(tags, body);
}

QUrl revealedLocation;

} // namespace

/// A whole notebook window, its alerts answered by the test.
class PLProjectWindowControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theFirstChapterIsOpenAtOnce();
    void anEmptyBookShowsItsPlaceholder();
    void placeholdersSayWhatToDo_data();
    void placeholdersSayWhatToDo();
    void choosingAnotherPageSavesTheFirst();
    void choosingATagSavesThePage();
    void thePageChosenAgainThroughItsTagIsNotLoadedAgain();
    void anUnreadablePageGivesWayToThePlaceholder();
    void selectionChangesAreToldOnce();
    void aTagTheWriterOpenedStaysOpen();
    void aSectionIsOpenAgainAfterARebuild();
    void theSelectionSurvivesARefresh_data();
    void theSelectionSurvivesARefresh();
    void aReferenceThatIsGoneGivesWayToThePage();
    void aRefreshDoesNotScrollTheList();
    void pagesFromOutsideAppearWhenTheWindowBecomesKey();
    void aNewPageIsOpenAndItsTitleTyped();
    void aTypedTitleRenamesThePage_data();
    void aTypedTitleRenamesThePage();
    void aPageThatCannotBeSavedIsNotRenamed();
    void aRenameThatFailsIsTold();
    void aTrashedPageGivesWayToItsSection();
    void trashingIsAskedFirst();
    void withoutAPageThereIsNothingToTrash();
    void whatIsRevealedIsTheRowsPlace();
    void closingAsksIfThePageCannotBeSaved();
    void theWindowHasItsSizes();
    void commandsAreEnabledByWhatIsSelected();
    void aBracketedTitleIsShownAsItIs();

private:
    void open();
    PLSidebarController &sidebar() const { return m_controller->sidebar(); }
    PLPageSession &session() const { return m_controller->session(); }
    void select(const QString &relative);
    void type(const QString &text);
    QLineEdit *titleField() const { return sidebar().view()->findChild<QLineEdit *>(); }
    QString selectedText() const;
    void dragDividerBy(int distance);

    PLTestEnvironment m_environment;
    std::unique_ptr<PLTestNotebook> m_notebook;
    std::unique_ptr<PLProjectWindowController> m_controller;
    QStringList m_alerts;
    QList<int> m_answers;
};

void PLProjectWindowControllerTest::init()
{
    m_environment.setLanguage(u"fr"_s);
    m_notebook = std::make_unique<PLTestNotebook>();
    m_alerts.clear();
    m_answers.clear();
    PLAlert::setResponder([this](const PLAlert &alert) {
        m_alerts.append(alert.message);
        return m_answers.isEmpty() ? PLAlert::FirstButton : m_answers.takeFirst();
    });
    PLSetRevealHandler([](const QUrl &location) { revealedLocation = location; });
}

void PLProjectWindowControllerTest::cleanup()
{
    m_controller.reset();
    PLAlert::setResponder({});
    PLSetRevealHandler(nullptr);
}

void PLProjectWindowControllerTest::open()
{
    m_controller = std::make_unique<PLProjectWindowController>(m_notebook->open());
    m_controller->showWindow();
}

void PLProjectWindowControllerTest::select(const QString &relative)
{
    sidebar().selectSidebarObject(sidebar().tree().sectionItemForURL(m_notebook->url(relative)));
}

void PLProjectWindowControllerTest::type(const QString &text)
{
    QTest::keyClicks(m_controller->editorView()->textView(), text);
}

void PLProjectWindowControllerTest::dragDividerBy(int distance)
{
    QWidget *handle = m_controller->splitView()->handle(1);
    const QPoint start = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, {}, start);
    QTest::mouseMove(handle, start + QPoint(distance, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, start + QPoint(distance, 0));
}

QString PLProjectWindowControllerTest::selectedText() const
{
    return sidebar().selectedNode() ? PLSidebarText(*sidebar().selectedNode()) : QString();
}

void PLProjectWindowControllerTest::theFirstChapterIsOpenAtOnce()
{
    m_notebook->write(u"Livre/2 - B.md"_s, u"deux"_s);
    m_notebook->write(u"Livre/1 - A.md"_s, u"un"_s);
    open();

    QCOMPARE(session().currentItem()->title(), u"A"_s);
    QCOMPARE(m_controller->editorView()->text(), u"un"_s);
    QVERIFY(m_controller->editorView()->isVisible());
    QVERIFY(!m_controller->placeholderLabel()->isVisible());
    QCOMPARE(m_controller->window()->windowTitle(), u"Roman — A[*]"_s);
    QCOMPARE(selectedText(), u"A"_s);
}

void PLProjectWindowControllerTest::anEmptyBookShowsItsPlaceholder()
{
    open();

    QCOMPARE(session().currentItem(), nullptr);
    QVERIFY(m_controller->placeholderLabel()->isVisible());
    QCOMPARE(m_controller->placeholderLabel()->text(),
             u"Le livre est encore vide.\nAjoutez un chapitre avec le + à côté de la catégorie."_s);
    QCOMPARE(m_controller->window()->windowTitle(), u"Roman[*]"_s);
}

void PLProjectWindowControllerTest::placeholdersSayWhatToDo_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("expected");

    QTest::newRow("section with pages") << u"fr"_s << u"section 0"_s
        << u"Choisissez un chapitre dans la liste,\nou ajoutez-en un avec le + à côté de la catégorie."_s;
    QTest::newRow("another section with pages") << u"en"_s << u"section 1"_s
        << u"Choose an item in the list,\nor add one with the + next to the category."_s;
    QTest::newRow("empty section") << u"en"_s << u"section 2"_s
        << u"Places is still empty.\nAdd an item with the + next to the category."_s;
    QTest::newRow("tags") << u"fr"_s << u"tags"_s
        << u"Cliquez sur un tag pour voir les éléments qui le portent."_s;
    QTest::newRow("tag on one page") << u"fr"_s << u"tag seul"_s
        << u"Le tag « seul » est porté par 1 élément.\nChoisissez-en un sous le tag, dans la liste."_s;
    QTest::newRow("tag on two pages") << u"fr"_s << u"tag bal"_s
        << u"Le tag « bal » est porté par 2 éléments.\nChoisissez-en un sous le tag, dans la liste."_s;
    QTest::newRow("tag on two pages, English") << u"en"_s << u"tag bal"_s
        << u"The tag “bal” is on 2 items.\nPick one under the tag, in the list."_s;
    QTest::newRow("nothing") << u"fr"_s << u"nothing"_s
        << u"Choisissez une page dans la liste,\nou ajoutez-en une avec le + d'une catégorie."_s;
}

void PLProjectWindowControllerTest::placeholdersSayWhatToDo()
{
    QFETCH(QString, language);
    QFETCH(QString, row);
    QFETCH(QString, expected);
    m_environment.setLanguage(language);
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal, seul"_s));
    m_notebook->write(u"Personnages/Emma.md"_s, page(u"Bal"_s));
    open();

    const PLSidebarTree &tree = sidebar().tree();
    const PLSidebarNode *node = nullptr;
    if (row.startsWith(u"section "))
        node = tree.section(PLSection(row.last(1).toUInt()));
    else if (row == u"tags")
        node = tree.tagSection();
    else if (row.startsWith(u"tag "))
        node = tree.sidebarTagNamed(row.sliced(4));
    sidebar().selectSidebarObject(node);

    QCOMPARE(m_controller->placeholderLabel()->text(), expected);
    QVERIFY(!m_controller->editorView()->isVisible());
    QCOMPARE(session().currentItem(), nullptr);
}

void PLProjectWindowControllerTest::choosingAnotherPageSavesTheFirst()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"un"_s);
    m_notebook->write(u"Livre/2 - B.md"_s, u"deux"_s);
    open();
    type(u"x"_s);
    QVERIFY(m_controller->window()->isWindowModified());

    select(u"Livre/2 - B.md"_s);

    QCOMPARE(m_notebook->read(u"Livre/1 - A.md"_s), u"xun"_s);
    QCOMPARE(m_controller->editorView()->text(), u"deux"_s);
    QVERIFY(!m_controller->window()->isWindowModified());
    QCOMPARE(m_controller->window()->windowTitle(), u"Roman — B[*]"_s);
}

void PLProjectWindowControllerTest::choosingATagSavesThePage()
{
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    open();
    type(u"x"_s);

    sidebar().selectSidebarObject(sidebar().tree().sidebarTagNamed(u"bal"_s));

    QCOMPARE(m_notebook->read(u"Livre/1 - A.md"_s), page(u"bal"_s, u"xtexte"_s));
    QVERIFY(sidebar().view()->isExpanded(sidebar().view()->currentIndex()));
}

void PLProjectWindowControllerTest::thePageChosenAgainThroughItsTagIsNotLoadedAgain()
{
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    open();
    const PLSidebarTag *tag = sidebar().tree().sidebarTagNamed(u"bal"_s);
    sidebar().expandNode(tag);
    type(u"x"_s);

    sidebar().selectSidebarObject(tag->children()[0].get());

    QCOMPARE(m_controller->editorView()->text(), u"xtexte"_s);
    QVERIFY(session().isDirty());
    QCOMPARE(m_notebook->read(u"Livre/1 - A.md"_s), page(u"bal"_s));
}

void PLProjectWindowControllerTest::anUnreadablePageGivesWayToThePlaceholder()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"un"_s);
    m_notebook->write(u"Livre/2 - B.md"_s, u"deux"_s);
    open();
    QVERIFY(QFile::remove(m_notebook->path(u"Livre/2 - B.md"_s)));

    select(u"Livre/2 - B.md"_s);

    QCOMPARE(m_alerts, QStringList{u"Le fichier ou le dossier n'existe pas ou plus."_s});
    QCOMPARE(session().currentItem(), nullptr);
    QVERIFY(m_controller->placeholderLabel()->isVisible());
}

void PLProjectWindowControllerTest::selectionChangesAreToldOnce()
{
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    open();
    QSignalSpy changes(&sidebar(), &PLSidebarController::selectionChanged);
    const PLSidebarNode *reference = sidebar().tree().sidebarTagNamed(u"bal"_s)->children()[0].get();

    sidebar().selectSidebarObject(reference); // out of sight: its tag is closed
    QCOMPARE(changes.count(), 1);
    QCOMPARE(sidebar().selectedNode(), nullptr);

    sidebar().selectSidebarObject(sidebar().tree().section(PLSection::Places));
    QCOMPARE(changes.count(), 2);
    QTest::keyClick(sidebar().view(), Qt::Key_Up);
    QCOMPARE(changes.count(), 3);
    m_controller->refreshSidebar();
    QCOMPARE(changes.count(), 4);
}

void PLProjectWindowControllerTest::aTagTheWriterOpenedStaysOpen()
{
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    open();
    const auto tagIndex = [this] {
        const PLSidebarModel *model = static_cast<PLSidebarModel *>(sidebar().view()->model());
        return model->indexForNode(sidebar().tree().sidebarTagNamed(u"bal"_s));
    };
    QVERIFY(!sidebar().view()->isExpanded(tagIndex()));
    sidebar().expandNode(sidebar().tree().sidebarTagNamed(u"bal"_s));
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"BAL"_s));
    m_controller->refreshSidebar();
    QVERIFY(sidebar().view()->isExpanded(tagIndex()));

    sidebar().view()->collapse(tagIndex());
    m_notebook->write(u"Livre/2 - B.md"_s, u""_s);
    m_controller->refreshSidebar();
    QVERIFY(!sidebar().view()->isExpanded(tagIndex()));
}

void PLProjectWindowControllerTest::aSectionIsOpenAgainAfterARebuild()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u""_s);
    open();
    sidebar().view()->collapse(sidebar().view()->model()->index(0, 0));

    m_controller->refreshSidebar();

    QVERIFY(sidebar().view()->isExpanded(sidebar().view()->model()->index(0, 0)));
}

void PLProjectWindowControllerTest::theSelectionSurvivesARefresh_data()
{
    QTest::addColumn<QString>("row");

    QTest::newRow("page") << u"page"_s;
    QTest::newRow("page under a tag") << u"reference"_s;
    QTest::newRow("tag") << u"tag"_s;
    QTest::newRow("section") << u"section"_s;
    QTest::newRow("tag section") << u"tags"_s;
    QTest::newRow("nothing") << u"nothing"_s;
}

void PLProjectWindowControllerTest::theSelectionSurvivesARefresh()
{
    QFETCH(QString, row);
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    m_notebook->write(u"Livre/2 - B.md"_s, page(u"bal"_s));
    open();
    const PLSidebarTag *tag = sidebar().tree().sidebarTagNamed(u"bal"_s);
    sidebar().expandNode(tag);
    const PLSidebarNode *node = nullptr;
    if (row == u"page")
        node = sidebar().tree().sectionItemForURL(m_notebook->url(u"Livre/2 - B.md"_s));
    else if (row == u"reference")
        node = tag->children()[1].get();
    else if (row == u"tag")
        node = tag;
    else if (row == u"section")
        node = sidebar().tree().section(PLSection::Places);
    else if (row == u"tags")
        node = sidebar().tree().tagSection();
    sidebar().selectSidebarObject(node);
    const QString before = selectedText();
    const auto kind = node ? std::optional(node->kind()) : std::nullopt;
    m_notebook->write(u"Livre/0 - Avant.md"_s, page(u"autre"_s));

    m_controller->refreshSidebar();

    if (!kind) {
        QCOMPARE(sidebar().selectedNode(), nullptr);
        return;
    }
    QVERIFY(sidebar().selectedNode());
    QCOMPARE(sidebar().selectedNode()->kind(), *kind);
    QCOMPARE(selectedText().section(u"  "_s, 0, 0), before.section(u"  "_s, 0, 0));
}

void PLProjectWindowControllerTest::aReferenceThatIsGoneGivesWayToThePage()
{
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    open();
    const PLSidebarTag *tag = sidebar().tree().sidebarTagNamed(u"bal"_s);
    sidebar().expandNode(tag);
    sidebar().selectSidebarObject(tag->children()[0].get());
    m_notebook->write(u"Livre/1 - A.md"_s, u"sans tag"_s);

    m_controller->refreshSidebar();

    QCOMPARE(sidebar().selectedNode()->kind(), PLSidebarNode::Kind::Page);
    QCOMPARE(selectedText(), u"A"_s);
}

void PLProjectWindowControllerTest::aRefreshDoesNotScrollTheList()
{
    for (int chapter = 1; chapter <= 100; ++chapter)
        m_notebook->write(u"Livre/%1 - Chapitre.md"_s.arg(chapter), u""_s);
    open();
    select(u"Livre/50 - Chapitre.md"_s);
    QScrollBar *bar = sidebar().view()->verticalScrollBar();
    bar->setValue(bar->value() + 100);
    const int before = bar->value();
    QVERIFY(before > 0);

    m_controller->refreshSidebar();

    QCOMPARE(bar->value(), before);
}

void PLProjectWindowControllerTest::pagesFromOutsideAppearWhenTheWindowBecomesKey()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"un"_s);
    open();
    type(u"x"_s);
    m_notebook->write(u"Livre/2 - B.md"_s, u"deux"_s);

    m_controller->windowDidResignKey();
    m_controller->windowDidBecomeKey();

    QCOMPARE(sidebar().tree().section(PLSection::Book)->childCount(), 2);
    QCOMPARE(m_notebook->read(u"Livre/1 - A.md"_s), u"xun"_s);
    QCOMPARE(m_controller->editorView()->text(), u"xun"_s);
    QCOMPARE(selectedText(), u"A"_s);
}

void PLProjectWindowControllerTest::aNewPageIsOpenAndItsTitleTyped()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"un"_s);
    open();
    type(u"x"_s);

    m_controller->performCommand(PLCommand::NewCharacter, 0);

    QCOMPARE(m_notebook->read(u"Livre/1 - A.md"_s), u"xun"_s);
    QCOMPARE(selectedText(), u"Nouveau personnage"_s);
    QCOMPARE(session().currentItem()->fileURL(), m_notebook->url(u"Personnages/Nouveau personnage.md"_s));
    QVERIFY(titleField());
    QCOMPARE(titleField()->selectedText(), u"Nouveau personnage"_s);
    QTest::keyClicks(titleField(), u"Emma"_s);
    QTest::keyClick(titleField(), Qt::Key_Return);

    QTRY_VERIFY(m_notebook->exists(u"Personnages/Emma.md"_s));
    QTRY_COMPARE(selectedText(), u"Emma"_s);
    QTRY_COMPARE(m_controller->window()->focusWidget(), m_controller->editorView()->textView());
    QCOMPARE(m_controller->window()->windowTitle(), u"Roman — Emma[*]"_s);
}

void PLProjectWindowControllerTest::aTypedTitleRenamesThePage_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");

    QTest::newRow("spaces at both ends") << u"  Title "_s << u"Livre/01 - Title.md"_s;
    QTest::newRow("nothing but spaces") << u"   "_s << u"Livre/01 - chapitre.md"_s;
    QTest::newRow("the same") << u"chapitre"_s << u"Livre/01 - chapitre.md"_s;
    QTest::newRow("another case") << u"Chapitre"_s << u"Livre/01 - Chapitre.md"_s;
    QTest::newRow("a path") << u"a/b"_s << u"Livre/01 - a-b.md"_s;
}

void PLProjectWindowControllerTest::aTypedTitleRenamesThePage()
{
    QFETCH(QString, typed);
    QFETCH(QString, file);
    m_notebook->write(u"Livre/01 - chapitre.md"_s, u"texte"_s);
    open();
    type(u"x"_s);

    sidebar().view()->setFocus();
    QTest::keyClick(sidebar().view(), Qt::Key_F2);
    titleField()->setText(typed);
    QTest::keyClick(titleField(), Qt::Key_Return);

    QTRY_COMPARE(m_controller->window()->focusWidget(), m_controller->editorView()->textView());
    QTRY_VERIFY(m_notebook->exists(file));
    QCOMPARE(QDir(m_notebook->path(u"Livre"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1);
    QCOMPARE(session().currentItem()->fileURL(), m_notebook->url(file));
    QVERIFY(session().saveCurrentItem());
    QCOMPARE(m_notebook->read(file), u"xtexte"_s);
}

void PLProjectWindowControllerTest::aPageThatCannotBeSavedIsNotRenamed()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"texte"_s);
    open();
    const PLProjectItemPointer item = session().currentItem();
    type(u"x"_s);
    m_notebook->hideSection(u"Livre"_s);

    m_controller->pageCommands().endTitleEditing(item, u"B"_s);

    QCOMPARE(m_alerts, QStringList{u"Impossible d'enregistrer « A »"_s});
    QCOMPARE(item->title(), u"A"_s);
    QVERIFY(session().isDirty());
}

void PLProjectWindowControllerTest::aRenameThatFailsIsTold()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"texte"_s);
    open();
    const PLProjectItemPointer item = session().currentItem();
    m_notebook->hideSection(u"Livre"_s);

    m_controller->pageCommands().endTitleEditing(item, u"B"_s);

    QCOMPARE(m_alerts, QStringList{u"Le fichier ou le dossier n'existe pas ou plus."_s});
    QCOMPARE(item->title(), u"A"_s);
}

void PLProjectWindowControllerTest::aTrashedPageGivesWayToItsSection()
{
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    m_notebook->write(u"Livre/1 - A.md"_s, u"texte"_s);
    m_notebook->write(u"Livre/2 - B.md"_s, u"texte"_s);
    open();
    type(u"x"_s);

    m_controller->performCommand(PLCommand::TrashSelectedItem, 0);

    QCOMPARE(m_alerts, QStringList{u"Mettre « A » à la corbeille ?"_s});
    QVERIFY(!m_notebook->exists(u"Livre/1 - A.md"_s));
    QCOMPARE(session().currentItem(), nullptr);
    QCOMPARE(selectedText(), u"LE LIVRE  ·  1"_s);
    QVERIFY(m_controller->placeholderLabel()->isVisible());
    QVERIFY(!m_controller->window()->isWindowModified());
    QFile trashed(data.filePath(u"Trash/files/1 - A.md"_s));
    QVERIFY(trashed.open(QIODevice::ReadOnly));
    QCOMPARE(trashed.readAll(), "texte");
}

void PLProjectWindowControllerTest::trashingIsAskedFirst()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"texte"_s);
    open();
    m_answers = {PLAlert::SecondButton};

    QTest::keyClick(sidebar().view(), Qt::Key_Delete);

    QCOMPARE(m_alerts.size(), 1);
    QVERIFY(m_notebook->exists(u"Livre/1 - A.md"_s));
    QCOMPARE(session().currentItem()->title(), u"A"_s);
}

void PLProjectWindowControllerTest::withoutAPageThereIsNothingToTrash()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"texte"_s);
    open();
    sidebar().selectSidebarObject(sidebar().tree().section(PLSection::Book));

    m_controller->performCommand(PLCommand::TrashSelectedItem, 0);

    QVERIFY(m_alerts.isEmpty());
    QVERIFY(m_notebook->exists(u"Livre/1 - A.md"_s));
}

void PLProjectWindowControllerTest::whatIsRevealedIsTheRowsPlace()
{
    m_notebook->write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    open();
    const PLSidebarTag *tag = sidebar().tree().sidebarTagNamed(u"bal"_s);
    const auto revealed = [this](const PLSidebarNode *node) {
        m_controller->pageCommands().revealInFinder(node);
        return PLStandardizedPath(revealedLocation);
    };

    QCOMPARE(revealed(sidebar().selectedNode()), m_notebook->path(u"Livre/1 - A.md"_s));
    QCOMPARE(revealed(tag->children()[0].get()), m_notebook->path(u"Livre/1 - A.md"_s));
    QCOMPARE(revealed(sidebar().tree().section(PLSection::Places)), m_notebook->path(u"Lieux"_s));
    QCOMPARE(revealed(sidebar().tree().tagSection()), m_notebook->path());
    QCOMPARE(revealed(tag), m_notebook->path());
    QCOMPARE(revealed(nullptr), m_notebook->path());
}

void PLProjectWindowControllerTest::closingAsksIfThePageCannotBeSaved()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"texte"_s);
    open();
    type(u"x"_s);
    m_notebook->hideSection(u"Livre"_s);
    QSignalSpy closed(m_controller.get(), &PLProjectWindowController::PLProjectWindowWillCloseNotification);

    m_answers = {PLAlert::FirstButton, PLAlert::FirstButton};
    QVERIFY(!m_controller->window()->close());
    QCOMPARE(m_alerts, QStringList({u"Impossible d'enregistrer « A »"_s, u"Fermer sans enregistrer ?"_s}));
    QVERIFY(m_controller->window()->isVisible());
    QCOMPARE(m_controller->editorView()->text(), u"xtexte"_s);
    QCOMPARE(closed.count(), 0);

    m_answers = {PLAlert::FirstButton, PLAlert::SecondButton};
    QVERIFY(m_controller->window()->close());
    QCOMPARE(closed.count(), 1);
    m_notebook->showSection(u"Livre"_s);
    QCOMPARE(m_notebook->read(u"Livre/1 - A.md"_s), u"texte"_s);
}

void PLProjectWindowControllerTest::theWindowHasItsSizes()
{
    open();
    PLWindow *window = m_controller->window();
    QSplitter *split = m_controller->splitView();

    window->resize(1100, 720);
    QCOMPARE(window->minimumSize(), QSize(780, 440));
    window->resize(10, 10);
    QCOMPARE(window->size(), QSize(780, 440));

    dragDividerBy(-500);
    QCOMPARE(split->sizes().first(), 170);
    dragDividerBy(500);
    QCOMPARE(split->sizes().first(), 420);
    QCOMPARE(split->sizes().last(), 780 - 420 - 1);
    const int sidebarWidth = split->sizes().first();
    window->resize(1500, 700);
    QCOMPARE(split->sizes().first(), sidebarWidth);
}

void PLProjectWindowControllerTest::commandsAreEnabledByWhatIsSelected()
{
    m_notebook->write(u"Livre/1 - A.md"_s, u"texte"_s);
    open();
    const auto isEnabled = [this](PLCommand command) { return m_controller->stateOfCommand(command, 0)->enabled; };

    QVERIFY(isEnabled(PLCommand::RenameSelectedItem));
    QVERIFY(isEnabled(PLCommand::TrashSelectedItem));
    QVERIFY(isEnabled(PLCommand::SaveDocument));
    sidebar().selectSidebarObject(sidebar().tree().section(PLSection::Book));
    QVERIFY(!isEnabled(PLCommand::RenameSelectedItem));
    QVERIFY(!isEnabled(PLCommand::TrashSelectedItem));
    QVERIFY(!isEnabled(PLCommand::SaveDocument));
    QVERIFY(isEnabled(PLCommand::NewChapter));
    QVERIFY(isEnabled(PLCommand::RevealInFinder));
}

void PLProjectWindowControllerTest::aBracketedTitleIsShownAsItIs()
{
    m_notebook->write(u"Livre/1 - A[-]B.md"_s, u"texte"_s);
    m_notebook->write(u"projet.md"_s, u"---\ntitre: Roman [*]\n---\n"_s);
    open();

    QCOMPARE(m_controller->window()->windowTitle(), u"Roman [*][*] — A[-]B[*]"_s);
}

QTEST_MAIN(PLProjectWindowControllerTest)
#include "PLProjectWindowControllerTest.moc"
