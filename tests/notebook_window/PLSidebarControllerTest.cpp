// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLNotebookWindowFixture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLabel>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

QString page(const QString &tags)
{
    return u"---\ntags: %1\n---\n\ntexte"_s.arg(tags);
}

} // namespace

/// The sidebar of a notebook window, kept in step with the disk.
class PLSidebarControllerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aTargetIsThePageElseTheSectionElseNothing_data();
    void aTargetIsThePageElseTheSectionElseNothing();
    void thePageStaysOpenWhenItsRowIsClosed_data();
    void thePageStaysOpenWhenItsRowIsClosed();
    void aRowInAClosedSectionIsNotSelected();
    void aTagThatComesBackIsStillOpen();
    void aTagStaysOpenWhenItsOnlyPageIsRenamed();
    void whatIsGoneGivesWay_data();
    void whatIsGoneGivesWay();
    void thePageThatIsGoneIsClosed();
    void rowsHaveTheirHeights();
    void theModelKeepsTheRulesThroughAWritersDay();

private:
    PLSidebarController &sidebar() const { return m_window->sidebar(); }
    PLSidebarView *view() const { return sidebar().view(); }
    const PLSidebarTag *tagNamed(const QString &name) const { return sidebar().tree().sidebarTagNamed(name); }
    QModelIndex indexOf(const PLSidebarNode *node) const
    {
        return static_cast<PLSidebarModel *>(view()->model())->indexForNode(node);
    }

    std::unique_ptr<PLNotebookWindowFixture> m_window;
};

void PLSidebarControllerTest::init()
{
    m_window = std::make_unique<PLNotebookWindowFixture>();
    m_window->notebook.write(u"Livre/01 - A.md"_s, page(u"bal"_s));
    m_window->notebook.write(u"Livre/02 - B.md"_s, u"sans tag"_s);
    m_window->open();
}

void PLSidebarControllerTest::cleanup()
{
    m_window.reset();
}

void PLSidebarControllerTest::aTargetIsThePageElseTheSectionElseNothing_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<PLSection>("section");
    QTest::addColumn<QString>("selected");

    QTest::newRow("page") << u"Livre/02 - B.md"_s << PLSection::None << u"B"_s;
    QTest::newRow("page before section") << u"Livre/02 - B.md"_s << PLSection::Notes << u"B"_s;
    QTest::newRow("section") << QString() << PLSection::Places << u"LIEUX"_s;
    QTest::newRow("section for a page that is gone")
        << u"Livre/9.md"_s << PLSection::Book << u"LE LIVRE  ·  2"_s;
    QTest::newRow("neither") << QString() << PLSection::None << QString();
    QTest::newRow("page that is gone") << u"Livre/9.md"_s << PLSection::None << QString();
}

void PLSidebarControllerTest::aTargetIsThePageElseTheSectionElseNothing()
{
    QFETCH(QString, file);
    QFETCH(PLSection, section);
    QFETCH(QString, selected);
    QSignalSpy changes(&sidebar(), &PLSidebarController::selectionChanged);

    sidebar().reloadSidebarSelectingURL(file.isNull() ? QUrl() : m_window->notebook.url(file), section);

    QCOMPARE(m_window->selectedText(), selected);
    QCOMPARE(changes.count(), 1);
}

void PLSidebarControllerTest::thePageStaysOpenWhenItsRowIsClosed_data()
{
    QTest::addColumn<bool>("isUnderTag");

    QTest::newRow("section") << false;
    QTest::newRow("tag") << true;
}

void PLSidebarControllerTest::thePageStaysOpenWhenItsRowIsClosed()
{
    QFETCH(bool, isUnderTag);
    const PLSidebarNode *parent = isUnderTag ? static_cast<const PLSidebarNode *>(tagNamed(u"bal"_s))
                                             : sidebar().tree().section(PLSection::Book);
    sidebar().expandNode(parent);
    sidebar().selectSidebarObject(parent->children()[0]);
    view()->collapse(indexOf(parent));

    QCOMPARE(sidebar().selectedNode(), nullptr);
    QCOMPARE(m_window->session().currentItem()->title(), u"A"_s);
    m_window->controller->refreshSidebar();

    QVERIFY(m_window->editor()->isVisible());
    QCOMPARE(m_window->session().currentItem()->title(), u"A"_s);
    QCOMPARE(sidebar().selectedNode()->kind(), PLSidebarNode::Kind::Page);
    QCOMPARE(m_window->selectedText(), u"A"_s);
}

void PLSidebarControllerTest::aRowInAClosedSectionIsNotSelected()
{
    const PLSidebarNode *book = sidebar().tree().section(PLSection::Book);
    view()->collapse(indexOf(book));
    QSignalSpy changes(&sidebar(), &PLSidebarController::selectionChanged);

    sidebar().selectSidebarObject(book->children()[1]);

    QCOMPARE(sidebar().selectedNode(), nullptr);
    QVERIFY(view()->selectionModel()->selectedIndexes().isEmpty());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(m_window->controller->placeholderLabel()->text(),
             u"Choisissez une page dans la liste,\nou ajoutez-en une avec le + d'une catégorie."_s);
}

void PLSidebarControllerTest::aTagThatComesBackIsStillOpen()
{
    sidebar().expandNode(tagNamed(u"bal"_s));
    m_window->notebook.write(u"Livre/01 - A.md"_s, u"sans tag"_s);
    m_window->controller->refreshSidebar();
    QVERIFY(!tagNamed(u"bal"_s));
    m_window->notebook.write(u"Livre/02 - B.md"_s, page(u"Bal"_s));
    m_window->controller->refreshSidebar();

    QVERIFY(view()->isExpanded(indexOf(tagNamed(u"Bal"_s))));
}

void PLSidebarControllerTest::aTagStaysOpenWhenItsOnlyPageIsRenamed()
{
    sidebar().expandNode(tagNamed(u"bal"_s));

    m_window->controller->pageCommands().endTitleEditing(m_window->session().currentItem(), u"Autre"_s);

    QTRY_COMPARE(PLSidebarText(*tagNamed(u"bal"_s)->children()[0]), u"Autre"_s);
    QVERIFY(view()->isExpanded(indexOf(tagNamed(u"bal"_s))));
}

void PLSidebarControllerTest::whatIsGoneGivesWay_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("selected");

    QTest::newRow("a tag gives way to the tags") << u"tag"_s << u"TAGS"_s;
    QTest::newRow("a page under a tag gives way to the page") << u"reference"_s << u"A"_s;
}

void PLSidebarControllerTest::whatIsGoneGivesWay()
{
    QFETCH(QString, kind);
    QFETCH(QString, selected);
    const PLSidebarTag *tag = tagNamed(u"bal"_s);
    sidebar().expandNode(tag);
    sidebar().selectSidebarObject(kind == u"tag" ? static_cast<const PLSidebarNode *>(tag)
                                                 : tag->children()[0]);
    m_window->notebook.write(u"Livre/01 - A.md"_s, u"sans tag"_s);

    m_window->controller->refreshSidebar();

    QCOMPARE(m_window->selectedText(), selected);
}

void PLSidebarControllerTest::thePageThatIsGoneIsClosed()
{
    QVERIFY(QFile::remove(m_window->notebook.path(u"Livre/01 - A.md"_s)));

    m_window->controller->refreshSidebar();

    QCOMPARE(sidebar().selectedNode(), nullptr);
    QCOMPARE(m_window->session().currentItem(), nullptr);
    QVERIFY(m_window->controller->placeholderLabel()->isVisible());
    QVERIFY(!m_window->notebook.exists(u"Livre/01 - A.md"_s));
    QVERIFY(m_window->alerts.isEmpty());
}

void PLSidebarControllerTest::rowsHaveTheirHeights()
{
    constexpr int spacing = 2;
    const PLSidebarNode *book = sidebar().tree().section(PLSection::Book);
    const PLSidebarTag *tag = tagNamed(u"bal"_s);
    sidebar().expandNode(tag);
    const auto height = [this](const PLSidebarNode *node) {
        return view()->visualRect(indexOf(node)).height();
    };

    QCOMPARE(height(book), 28 + spacing);
    QCOMPARE(height(sidebar().tree().tagSection()), 28 + spacing);
    QCOMPARE(height(book->children()[0]), 22 + spacing);
    QCOMPARE(height(tag), 22 + spacing);
    QCOMPARE(height(tag->children()[0]), 22 + spacing);
    QCOMPARE(view()->indentation(), 12);
}

void PLSidebarControllerTest::theModelKeepsTheRulesThroughAWritersDay()
{
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    QAbstractItemModelTester tester(view()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    PLPageCommands &commands = m_window->controller->pageCommands();

    commands.createItemInSection(PLSection::Places);
    QTest::keyClicks(m_window->titleField(), u"Paris"_s);
    QTest::keyClick(m_window->titleField(), Qt::Key_Return);
    QTRY_COMPARE(m_window->selectedText(), u"Paris"_s);
    m_window->editor()->setTags({u"ville"_s});
    m_window->session().saveChangedTags();
    m_window->controller->refreshSidebar();
    sidebar().expandNode(tagNamed(u"ville"_s));
    sidebar().selectSidebarObject(tagNamed(u"ville"_s)->children()[0]);
    commands.trashItem(m_window->session().currentItem());

    QVERIFY(!tagNamed(u"ville"_s));
    QCOMPARE(m_window->selectedText(), u"LIEUX"_s);
    QCOMPARE(sidebar().allTags(), QStringList{u"bal"_s});
}

QTEST_MAIN(PLSidebarControllerTest)
#include "PLSidebarControllerTest.moc"
