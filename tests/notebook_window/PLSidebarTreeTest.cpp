// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarTree.h"

#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString page(const QString &tags)
{
    return u"---\ntags: %1\n---\n\nTexte."_s.arg(tags);
}

QStringList titlesOf(const PLSidebarNode &node)
{
    QStringList titles;
    for (const PLSidebarNode *child : node.children())
        titles.append(PLItemOfNode(child)->title());
    return titles;
}

} // namespace

class PLSidebarTreeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionsComeInOrderAndTheTagsLast();
    void aNotebookWithoutTagsHasAnEmptyTagSection();
    void tagsThatDifferInCaseAreOneSpelledAsFirstMet();
    void accentsKeepTagsApart();
    void tagsAreSortedWithNumbersByValue();
    void aTagIsFoundWhateverItsCase();
    void aPageIsFoundByItsStandardisedPath();
    void anEmptyTreeAnswersNothing();

private:
    PLTestEnvironment m_environment;
};

void PLSidebarTreeTest::sectionsComeInOrderAndTheTagsLast()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/2 - B.md"_s, u""_s);
    notebook.write(u"Livre/1 - A.md"_s, u""_s);
    notebook.write(u"Lieux/Paris.md"_s, u""_s);
    const PLSidebarTree tree(*notebook.open());

    QCOMPARE(tree.root()->childCount(), 6);
    for (const PLSection section : PLAllSections) {
        QCOMPARE(tree.section(section)->section, section);
        QCOMPARE(tree.section(section)->row(), int(section));
        QVERIFY(!tree.section(section)->isTagSection);
    }
    QCOMPARE(tree.tagSection()->row(), 5);
    QCOMPARE(titlesOf(*tree.section(PLSection::Book)), QStringList({u"A"_s, u"B"_s}));
    QCOMPARE(titlesOf(*tree.section(PLSection::Places)), QStringList({u"Paris"_s}));
}

void PLSidebarTreeTest::aNotebookWithoutTagsHasAnEmptyTagSection()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/1 - A.md"_s, u"tags: pas ici"_s);
    const PLSidebarTree tree(*notebook.open());

    QVERIFY(tree.tagSection());
    QCOMPARE(tree.tagSection()->childCount(), 0);
    QVERIFY(tree.allTags().isEmpty());
}

void PLSidebarTreeTest::tagsThatDifferInCaseAreOneSpelledAsFirstMet()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/1 - A.md"_s, page(u"Paris"_s));
    notebook.write(u"Fiches/F.md"_s, page(u"paris"_s));
    const PLSidebarTree tree(*notebook.open());

    QCOMPARE(tree.allTags(), QStringList{u"Paris"_s});
    const PLSidebarTag *tag = tree.sidebarTagNamed(u"Paris"_s);
    QCOMPARE(titlesOf(*tag), QStringList({u"A"_s, u"F"_s}));
    for (const PLSidebarNode *reference : tag->children())
        QCOMPARE(static_cast<const PLTagReference *>(reference)->parentTagName, u"Paris"_s);
    QCOMPARE(PLItemOfNode(tag->children()[0]), PLItemOfNode(tree.section(PLSection::Book)->children()[0]));
}

void PLSidebarTreeTest::accentsKeepTagsApart()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/1 - A.md"_s, page(u"Été"_s));
    notebook.write(u"Livre/2 - B.md"_s, page(u"ete"_s));
    notebook.write(u"Livre/3 - C.md"_s, page(u"ÉTÉ"_s));
    const PLSidebarTree tree(*notebook.open());

    QCOMPARE(tree.allTags(), QStringList({u"ete"_s, u"Été"_s}));
    QCOMPARE(titlesOf(*tree.sidebarTagNamed(u"été"_s)), QStringList({u"A"_s, u"C"_s}));
}

void PLSidebarTreeTest::tagsAreSortedWithNumbersByValue()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/1 - A.md"_s, page(u"acte 10, Zoé, acte 2, été, abbé"_s));
    const PLSidebarTree tree(*notebook.open());

    QCOMPARE(tree.allTags(), QStringList({u"abbé"_s, u"acte 2"_s, u"acte 10"_s, u"été"_s, u"Zoé"_s}));
}

void PLSidebarTreeTest::aTagIsFoundWhateverItsCase()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/1 - A.md"_s, page(u"Été"_s));
    const PLSidebarTree tree(*notebook.open());

    QCOMPARE(tree.sidebarTagNamed(u"ÉTÉ"_s)->name, u"Été"_s);
    QVERIFY(!tree.sidebarTagNamed(u"ete"_s));
    QVERIFY(!tree.sidebarTagNamed(QString()));
}

void PLSidebarTreeTest::aPageIsFoundByItsStandardisedPath()
{
    PLTestNotebook notebook;
    notebook.write(u"Lieux/c.md"_s, page(u"x"_s));
    const PLSidebarTree tree(*notebook.open());

    PLSidebarPage *found = tree.sectionItemForURL(notebook.url(u"Livre/../Lieux/c.md"_s));
    QVERIFY(found);
    QCOMPARE(found->item->title(), u"c"_s);
    QVERIFY(!tree.sectionItemForURL(notebook.url(u"Lieux/C.md"_s)));
    QVERIFY(!tree.sectionItemForURL(QUrl()));
}

void PLSidebarTreeTest::anEmptyTreeAnswersNothing()
{
    const PLSidebarTree tree;

    QVERIFY(tree.isEmpty());
    QVERIFY(!tree.section(PLSection::Book));
    QVERIFY(!tree.section(PLSection::None));
    QVERIFY(!tree.tagSection());
    QVERIFY(!tree.sidebarTagNamed(u"a"_s));
    QVERIFY(!PLItemOfNode(nullptr));
}

QTEST_GUILESS_MAIN(PLSidebarTreeTest)
#include "PLSidebarTreeTest.moc"
