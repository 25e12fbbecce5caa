// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"
#include "notebook_window/PLNotebookWindowFixture.h"
#include "theme/PLTheme.h"

#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace {

QString page(const QString &tags, const QString &body = u"texte"_s)
{
    return u"---\ntags: %1\n---\n\n%2"_s.arg(tags, body);
}

void dragDividerBy(const PLNotebookWindowFixture &window, int distance)
{
    QWidget *handle = window.controller->splitView()->handle(1);
    const QPoint start = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, {}, start);
    QTest::mouseMove(handle, start + QPoint(distance, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, start + QPoint(distance, 0));
}

} // namespace

class PLProjectWindowControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePreviewAndTheFindPanelAreReachedFromTheSidebar();
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
    void aTypedTagIsSavedAndListed();
    void aTagLeftForAnotherPageChangesThatOneNot();
    void closingAsksIfThePageCannotBeSaved();
    void aKeyGoesFromTheTextToTheSidebarAndBack();
    void theWindowHasItsSizes();
    void theFrameIsRememberedByNotebook();
    void thePlaceholderStandsOnPaper();
    void theWindowStandsForItsFolder();
    void theEditedMarkFollowsTheText();
    void aProposedTagIsTaken();
    void commandsAreEnabledByWhatIsSelected();
    void aBracketedTitleIsShownAsItIs();
};

void PLProjectWindowControllerTest::theFirstChapterIsOpenAtOnce()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/2 - B.md"_s, u"deux"_s);
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();

    QCOMPARE(window.session().currentItem()->title(), u"A"_s);
    QCOMPARE(window.editor()->text(), u"un"_s);
    QVERIFY(window.editor()->isVisible());
    QVERIFY(!window.controller->placeholderLabel()->isVisible());
    QCOMPARE(window.controller->window()->windowTitle(), u"Roman — A[*]"_s);
    QCOMPARE(window.selectedText(), u"A"_s);
}

void PLProjectWindowControllerTest::anEmptyBookShowsItsPlaceholder()
{
    PLNotebookWindowFixture window;
    window.open();

    QCOMPARE(window.session().currentItem(), nullptr);
    QVERIFY(window.controller->placeholderLabel()->isVisible());
    QCOMPARE(window.controller->placeholderLabel()->text(),
             u"Le livre est encore vide.\nAjoutez un chapitre avec le + à côté de la catégorie."_s);
    QCOMPARE(window.controller->window()->windowTitle(), u"Roman[*]"_s);
}

void PLProjectWindowControllerTest::placeholdersSayWhatToDo_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("expected");

    QTest::newRow("section with pages")
        << u"fr"_s << u"section 0"_s
        << u"Choisissez un chapitre dans la liste,\nou ajoutez-en un avec le + à côté de la catégorie."_s;
    QTest::newRow("another section with pages")
        << u"en"_s << u"section 1"_s
        << u"Choose an item in the list,\nor add one with the + next to the category."_s;
    QTest::newRow("empty section")
        << u"en"_s << u"section 2"_s
        << u"Places is still empty.\nAdd an item with the + next to the category."_s;
    QTest::newRow("tags") << u"fr"_s << u"tags"_s
                          << u"Cliquez sur un tag pour voir les éléments qui le portent."_s;
    QTest::newRow("tag on one page")
        << u"fr"_s << u"tag seul"_s
        << u"Le tag « seul » est porté par 1 élément.\nChoisissez-en un sous le tag, dans la liste."_s;
    QTest::newRow("tag on two pages")
        << u"fr"_s << u"tag bal"_s
        << u"Le tag « bal » est porté par 2 éléments.\nChoisissez-en un sous le tag, dans la liste."_s;
    QTest::newRow("tag on two pages, English")
        << u"en"_s << u"tag bal"_s << u"The tag “bal” is on 2 items.\nPick one under the tag, in the list."_s;
    QTest::newRow("nothing")
        << u"fr"_s << u"nothing"_s
        << u"Choisissez une page dans la liste,\nou ajoutez-en une avec le + d'une catégorie."_s;
}

void PLProjectWindowControllerTest::placeholdersSayWhatToDo()
{
    PLNotebookWindowFixture window;
    QFETCH(QString, language);
    QFETCH(QString, row);
    QFETCH(QString, expected);
    window.environment.setLanguage(language);
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal, seul"_s));
    window.notebook.write(u"Personnages/Emma.md"_s, page(u"Bal"_s));
    window.open();

    const PLSidebarTree &tree = window.sidebar().tree();
    const PLSidebarNode *node = nullptr;
    if (row.startsWith(u"section "))
        node = tree.section(PLSection(row.last(1).toUInt()));
    else if (row == u"tags")
        node = tree.tagSection();
    else if (row.startsWith(u"tag "))
        node = tree.sidebarTagNamed(row.sliced(4));
    window.sidebar().selectSidebarObject(node);

    QCOMPARE(window.controller->placeholderLabel()->text(), expected);
    QVERIFY(!window.editor()->isVisible());
    QCOMPARE(window.session().currentItem(), nullptr);
}

void PLProjectWindowControllerTest::choosingAnotherPageSavesTheFirst()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/2 - B.md"_s, u"deux"_s);
    window.open();
    window.type(u"x"_s);
    QVERIFY(window.controller->window()->isWindowModified());

    window.select(u"Livre/2 - B.md"_s);

    QCOMPARE(window.notebook.read(u"Livre/1 - A.md"_s), u"xun"_s);
    QCOMPARE(window.editor()->text(), u"deux"_s);
    QVERIFY(!window.controller->window()->isWindowModified());
    QCOMPARE(window.controller->window()->windowTitle(), u"Roman — B[*]"_s);
}

void PLProjectWindowControllerTest::choosingATagSavesThePage()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    window.open();
    window.type(u"x"_s);

    window.sidebar().selectSidebarObject(window.sidebar().tree().sidebarTagNamed(u"bal"_s));

    QCOMPARE(window.notebook.read(u"Livre/1 - A.md"_s), page(u"bal"_s, u"xtexte"_s));
    QVERIFY(window.sidebar().view()->isExpanded(window.sidebar().view()->currentIndex()));
}

void PLProjectWindowControllerTest::thePageChosenAgainThroughItsTagIsNotLoadedAgain()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    window.open();
    const PLSidebarTag *tag = window.sidebar().tree().sidebarTagNamed(u"bal"_s);
    window.sidebar().expandNode(tag);
    window.type(u"x"_s);

    window.sidebar().selectSidebarObject(tag->children()[0]);

    QCOMPARE(window.editor()->text(), u"xtexte"_s);
    QVERIFY(window.session().isDirty());
    QCOMPARE(window.notebook.read(u"Livre/1 - A.md"_s), page(u"bal"_s));
}

void PLProjectWindowControllerTest::anUnreadablePageGivesWayToThePlaceholder()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/2 - B.md"_s, u"deux"_s);
    window.open();
    QVERIFY(QFile::remove(window.notebook.path(u"Livre/2 - B.md"_s)));

    window.select(u"Livre/2 - B.md"_s);

    QCOMPARE(window.alerts, QStringList{u"Le fichier ou le dossier n'existe pas ou plus."_s});
    QCOMPARE(window.session().currentItem(), nullptr);
    QVERIFY(window.controller->placeholderLabel()->isVisible());
}

void PLProjectWindowControllerTest::selectionChangesAreToldOnce()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    window.open();
    QSignalSpy changes(&window.sidebar(), &PLSidebarController::selectionChanged);
    const PLSidebarNode *reference = window.sidebar().tree().sidebarTagNamed(u"bal"_s)->children()[0];

    window.sidebar().selectSidebarObject(reference); // out of sight: its tag is closed
    QCOMPARE(changes.count(), 1);
    QCOMPARE(window.sidebar().selectedNode(), nullptr);

    window.sidebar().selectSidebarObject(window.sidebar().tree().section(PLSection::Places));
    QCOMPARE(changes.count(), 2);
    QTest::keyClick(window.sidebar().view(), Qt::Key_Up);
    QCOMPARE(changes.count(), 3);
    window.controller->refreshSidebar();
    QCOMPARE(changes.count(), 4);
}

void PLProjectWindowControllerTest::aTagTheWriterOpenedStaysOpen()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    window.open();
    const auto tagIndex = [&window] {
        const PLSidebarModel *model = static_cast<PLSidebarModel *>(window.sidebar().view()->model());
        return model->indexForNode(window.sidebar().tree().sidebarTagNamed(u"bal"_s));
    };
    QVERIFY(!window.sidebar().view()->isExpanded(tagIndex()));
    window.sidebar().expandNode(window.sidebar().tree().sidebarTagNamed(u"bal"_s));
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"BAL"_s));
    window.controller->refreshSidebar();
    QVERIFY(window.sidebar().view()->isExpanded(tagIndex()));

    window.sidebar().view()->collapse(tagIndex());
    window.notebook.write(u"Livre/2 - B.md"_s, u""_s);
    window.controller->refreshSidebar();
    QVERIFY(!window.sidebar().view()->isExpanded(tagIndex()));
}

void PLProjectWindowControllerTest::aSectionIsOpenAgainAfterARebuild()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u""_s);
    window.open();
    window.sidebar().view()->collapse(window.sidebar().view()->model()->index(0, 0));

    window.controller->refreshSidebar();

    QVERIFY(window.sidebar().view()->isExpanded(window.sidebar().view()->model()->index(0, 0)));
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
    PLNotebookWindowFixture window;
    QFETCH(QString, row);
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    window.notebook.write(u"Livre/2 - B.md"_s, page(u"bal"_s));
    window.open();
    const PLSidebarTag *tag = window.sidebar().tree().sidebarTagNamed(u"bal"_s);
    window.sidebar().expandNode(tag);
    const PLSidebarNode *node = nullptr;
    if (row == u"page")
        node = window.sidebar().tree().sectionItemForURL(window.notebook.url(u"Livre/2 - B.md"_s));
    else if (row == u"reference")
        node = tag->children()[1];
    else if (row == u"tag")
        node = tag;
    else if (row == u"section")
        node = window.sidebar().tree().section(PLSection::Places);
    else if (row == u"tags")
        node = window.sidebar().tree().tagSection();
    window.sidebar().selectSidebarObject(node);
    const QString before = window.selectedText();
    const auto kind = node ? std::optional(node->kind()) : std::nullopt;
    window.notebook.write(u"Livre/0 - Avant.md"_s, page(u"autre"_s));

    window.controller->refreshSidebar();

    if (!kind) {
        QCOMPARE(window.sidebar().selectedNode(), nullptr);
        return;
    }
    QVERIFY(window.sidebar().selectedNode());
    QCOMPARE(window.sidebar().selectedNode()->kind(), *kind);
    QCOMPARE(window.selectedText().section(u"  "_s, 0, 0), before.section(u"  "_s, 0, 0));
}

void PLProjectWindowControllerTest::aReferenceThatIsGoneGivesWayToThePage()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    window.open();
    const PLSidebarTag *tag = window.sidebar().tree().sidebarTagNamed(u"bal"_s);
    window.sidebar().expandNode(tag);
    window.sidebar().selectSidebarObject(tag->children()[0]);
    window.notebook.write(u"Livre/1 - A.md"_s, u"sans tag"_s);

    window.controller->refreshSidebar();

    QCOMPARE(window.sidebar().selectedNode()->kind(), PLSidebarNode::Kind::Page);
    QCOMPARE(window.selectedText(), u"A"_s);
}

void PLProjectWindowControllerTest::aRefreshDoesNotScrollTheList()
{
    PLNotebookWindowFixture window;
    for (int chapter = 1; chapter <= 100; ++chapter)
        window.notebook.write(u"Livre/%1 - Chapitre.md"_s.arg(chapter), u""_s);
    window.open();
    window.select(u"Livre/50 - Chapitre.md"_s);
    QScrollBar *bar = window.sidebar().view()->verticalScrollBar();
    bar->setValue(bar->value() + 100);
    const int before = bar->value();
    QVERIFY(before > 0);

    window.controller->refreshSidebar();

    QCOMPARE(bar->value(), before);
}

void PLProjectWindowControllerTest::pagesFromOutsideAppearWhenTheWindowBecomesKey()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    window.type(u"x"_s);
    window.notebook.write(u"Livre/2 - B.md"_s, u"deux"_s);

    window.controller->windowDidResignKey();
    window.controller->windowDidBecomeKey();

    QCOMPARE(window.sidebar().tree().section(PLSection::Book)->childCount(), 2);
    QCOMPARE(window.notebook.read(u"Livre/1 - A.md"_s), u"xun"_s);
    QCOMPARE(window.editor()->text(), u"xun"_s);
    QCOMPARE(window.selectedText(), u"A"_s);
}

void PLProjectWindowControllerTest::aTypedTagIsSavedAndListed()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/2 - B.md"_s, page(u"Été"_s));
    window.open();
    PLTagField *field = window.editor()->tagField();

    QTest::keyClicks(field, u"ete,Bal"_s);
    QVERIFY(window.session().isDirty());
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Return);

    QTRY_COMPARE(window.notebook.read(u"Livre/1 - A.md"_s), page(u"Été, Bal"_s, u"un"_s));
    QTRY_COMPARE(window.sidebar().allTags(), QStringList({u"Bal"_s, u"Été"_s}));
    QCOMPARE(window.selectedText(), u"A"_s);
}

void PLProjectWindowControllerTest::aTagLeftForAnotherPageChangesThatOneNot()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/01 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/02 - B.md"_s, u"deux"_s);
    window.open();
    QVERIFY(QTest::qWaitForWindowActive(window.controller->window()));
    window.editor()->tagField()->setFocus();
    QTest::keyClicks(window.editor()->tagField(), u"bal"_s);

    window.sidebar().view()->setFocus(Qt::MouseFocusReason); // as a click on a row does first
    window.select(u"Livre/02 - B.md"_s);
    QTest::qWait(50);

    QVERIFY(!window.session().isDirty());
    QCOMPARE(window.notebook.read(u"Livre/01 - A.md"_s), u"---\ntags: bal\n---\n\nun"_s);
}

void PLProjectWindowControllerTest::closingAsksIfThePageCannotBeSaved()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"texte"_s);
    window.open();
    window.type(u"x"_s);
    window.notebook.hideSection(u"Livre"_s);
    QSignalSpy closed(window.controller.get(),
                      &PLProjectWindowController::PLProjectWindowWillCloseNotification);

    window.answers = {PLAlert::FirstButton, PLAlert::FirstButton};
    QVERIFY(!window.controller->window()->close());
    QCOMPARE(window.alerts,
             QStringList({u"Impossible d'enregistrer « A »"_s, u"Fermer sans enregistrer ?"_s}));
    QVERIFY(window.controller->window()->isVisible());
    QCOMPARE(window.editor()->text(), u"xtexte"_s);
    QCOMPARE(closed.count(), 0);

    window.answers = {PLAlert::FirstButton, PLAlert::SecondButton};
    QVERIFY(window.controller->window()->close());
    QCOMPARE(closed.count(), 1);
    window.notebook.showSection(u"Livre"_s);
    QCOMPARE(window.notebook.read(u"Livre/1 - A.md"_s), u"texte"_s);
}

void PLProjectWindowControllerTest::aKeyGoesFromTheTextToTheSidebarAndBack()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    QWidget *frame = window.controller->window();
    QVERIFY(QTest::qWaitForWindowActive(frame)); // shortcuts are for the active window
    window.textView()->setFocus();

    QTest::keyClick(frame, Qt::Key_F6);
    QCOMPARE(frame->focusWidget(), window.sidebar().view());
    QTest::keyClick(frame, Qt::Key_F6);
    QCOMPARE(frame->focusWidget(), window.textView());
    window.sidebar().selectSidebarObject(window.sidebar().tree().section(PLSection::Book));
    QTest::keyClick(frame, Qt::Key_F6);
    QCOMPARE(frame->focusWidget(), window.sidebar().view());
}

void PLProjectWindowControllerTest::theWindowHasItsSizes()
{
    PLNotebookWindowFixture window;
    window.open();
    PLWindow *frame = window.controller->window();
    QSplitter *split = window.controller->splitView();

    frame->resize(1100, 720);
    QCOMPARE(frame->minimumSize(), QSize(780, 440));
    frame->resize(10, 10);
    QCOMPARE(frame->size(), QSize(780, 440));

    dragDividerBy(window, -500);
    QCOMPARE(split->sizes().first(), 170);
    dragDividerBy(window, 500);
    QCOMPARE(split->sizes().first(), 420);
    QCOMPARE(split->sizes().last(), 780 - 420 - 1);
    const int sidebarWidth = split->sizes().first();
    frame->resize(1500, 700);
    QCOMPARE(split->sizes().first(), sidebarWidth);
}

void PLProjectWindowControllerTest::theFrameIsRememberedByNotebook()
{
    PLNotebookWindowFixture window;
    const PLTestNotebook other;
    window.open();
    const QRect first = window.controller->window()->geometry();
    window.controller->window()->setGeometry(10, 50, 785, 500);
    window.controller.reset();
    window.open();

    QCOMPARE(window.controller->window()->geometry(), QRect(10, 50, 785, 500));
    const PLProjectWindowController otherWindow(other.open());
    QCOMPARE(otherWindow.window()->geometry(), first);
}

void PLProjectWindowControllerTest::thePlaceholderStandsOnPaper()
{
    PLNotebookWindowFixture window;
    window.open();
    const QLabel *label = window.controller->placeholderLabel();

    const QImage page = window.controller->splitView()->widget(1)->grab().toImage();
    QCOMPARE(page.pixelColor(5, 5).name(), PLTheme::paperColor().name());
    QCOMPARE(label->font(), PLTheme::sidebarFont());
    QCOMPARE(label->palette().color(QPalette::WindowText).name(), PLTheme::faintInkColor().name());
    QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(label->contentsRect().left(), 20);
    QCOMPARE(label->contentsRect().width(), page.width() - 40);
    QCOMPARE(label->geometry().center().y(), (page.height() - 1) / 2);
}

void PLProjectWindowControllerTest::theWindowStandsForItsFolder()
{
    PLNotebookWindowFixture window;
    window.open();

    QCOMPARE(window.controller->window()->windowFilePath(), window.notebook.path());
}

void PLProjectWindowControllerTest::theEditedMarkFollowsTheText()
{
    PLNotebookWindowFixture window;
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    const QWidget *frame = window.controller->window();

    QVERIFY(!frame->isWindowModified());
    window.type(u"x"_s);
    QVERIFY(frame->isWindowModified());
    window.controller->performCommand(PLCommand::SaveDocument, 0);
    QVERIFY(!frame->isWindowModified());
    window.type(u"y"_s);
    window.controller->performCommand(PLCommand::TrashSelectedItem, 0);
    QVERIFY(!frame->isWindowModified());
}

void PLProjectWindowControllerTest::aProposedTagIsTaken()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.notebook.write(u"Livre/2 - B.md"_s, page(u"Pékin, Paris"_s));
    window.open();
    QVERIFY(QTest::qWaitForWindowActive(window.controller->window()));
    PLTagField *field = window.editor()->tagField();
    field->setFocus();

    QTest::keyClicks(field, u"pe"_s);
    QTRY_VERIFY(field->shownCompletion());
    QTest::keyClick(field, Qt::Key_Down);
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Return);

    QTRY_COMPARE(window.notebook.read(u"Livre/1 - A.md"_s), page(u"Pékin"_s, u"un"_s));
    QTRY_COMPARE(PLSidebarText(*window.sidebar().tree().sidebarTagNamed(u"pékin"_s)), u"# Pékin  (2)"_s);
}

void PLProjectWindowControllerTest::commandsAreEnabledByWhatIsSelected()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"texte"_s);
    window.open();
    const auto isEnabled = [&window](PLCommand command) {
        return window.controller->stateOfCommand(command, 0)->enabled;
    };

    QVERIFY(isEnabled(PLCommand::RenameSelectedItem));
    QVERIFY(isEnabled(PLCommand::TrashSelectedItem));
    QVERIFY(isEnabled(PLCommand::SaveDocument));
    window.sidebar().selectSidebarObject(window.sidebar().tree().section(PLSection::Book));
    QVERIFY(!isEnabled(PLCommand::RenameSelectedItem));
    QVERIFY(!isEnabled(PLCommand::TrashSelectedItem));
    QVERIFY(!isEnabled(PLCommand::SaveDocument));
    QVERIFY(isEnabled(PLCommand::NewChapter));
    QVERIFY(isEnabled(PLCommand::RevealInFinder));
}

void PLProjectWindowControllerTest::aBracketedTitleIsShownAsItIs()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A[-]B.md"_s, u"texte"_s);
    window.notebook.write(u"projet.md"_s, u"---\ntitre: Roman [*]\n---\n"_s);
    window.open();

    QCOMPARE(window.controller->window()->windowTitle(), u"Roman [*][*] — A[-]B[*]"_s);
}

void PLProjectWindowControllerTest::thePreviewAndTheFindPanelAreReachedFromTheSidebar()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    window.sidebar().view()->setFocus();
    const PLProjectWindowController &controller = *window.controller;

    QVERIFY(!controller.stateOfCommand(PLCommand::TogglePreview, 0)->checked);
    window.controller->performCommand(PLCommand::TogglePreview, 0);
    QVERIFY(window.editor()->isPreviewVisible());
    QVERIFY(controller.stateOfCommand(PLCommand::TogglePreview, 0)->checked);
    QVERIFY(controller.stateOfCommand(PLCommand::PerformFindPanelAction, 1)->enabled);
    QVERIFY(controller.stateOfCommand(PLCommand::CheckSpelling, 0)->enabled);

    window.sidebar().selectSidebarObject(window.sidebar().tree().section(PLSection::Places));
    QVERIFY(controller.stateOfCommand(PLCommand::TogglePreview, 0)->enabled);
    QVERIFY(!controller.stateOfCommand(PLCommand::PerformFindPanelAction, 1)->enabled);
    QVERIFY(!controller.stateOfCommand(PLCommand::FormatBold, 0));
}

QTEST_MAIN(PLProjectWindowControllerTest)
#include "PLProjectWindowControllerTest.moc"
