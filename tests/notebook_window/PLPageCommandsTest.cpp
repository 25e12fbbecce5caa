// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLNotebookWindowFixture.h"

#include <QDir>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

QString page(const QString &tags, const QString &body = u"texte"_s)
{
    return u"---\ntags: %1\n---\n\n%2"_s.arg(tags, body);
}

} // namespace

class PLPageCommandsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewPageIsOpenAndItsTitleTyped();
    void aTypedTitleRenamesThePage_data();
    void aTypedTitleRenamesThePage();
    void aPageThatCannotBeSavedIsNotRenamed();
    void aRenameThatFailsIsTold();
    void aTrashedPageGivesWayToItsSection();
    void trashingIsAskedFirst();
    void withoutAPageThereIsNothingToTrash();
    void whatIsRevealedIsTheRowsPlace();
};

void PLPageCommandsTest::aNewPageIsOpenAndItsTitleTyped()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"un"_s);
    window.open();
    window.type(u"x"_s);

    window.controller->performCommand(PLCommand::NewCharacter, 0);

    QCOMPARE(window.notebook.read(u"Livre/1 - A.md"_s), u"xun"_s);
    QCOMPARE(window.selectedText(), u"Nouveau personnage"_s);
    QCOMPARE(window.session().currentItem()->fileURL(),
             window.notebook.url(u"Personnages/Nouveau personnage.md"_s));
    QVERIFY(window.titleField());
    QCOMPARE(window.titleField()->selectedText(), u"Nouveau personnage"_s);
    QTest::keyClicks(window.titleField(), u"Emma"_s);
    QTest::keyClick(window.titleField(), Qt::Key_Return);

    QTRY_VERIFY(window.notebook.exists(u"Personnages/Emma.md"_s));
    QTRY_COMPARE(window.selectedText(), u"Emma"_s);
    QTRY_COMPARE(window.controller->window()->focusWidget(), window.textView());
    QCOMPARE(window.controller->window()->windowTitle(), u"Roman — Emma[*]"_s);
}

void PLPageCommandsTest::aTypedTitleRenamesThePage_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");

    QTest::newRow("spaces at both ends") << u"  Title "_s << u"Livre/01 - Title.md"_s;
    QTest::newRow("nothing but spaces") << u"   "_s << u"Livre/01 - chapitre.md"_s;
    QTest::newRow("the same") << u"chapitre"_s << u"Livre/01 - chapitre.md"_s;
    QTest::newRow("another case") << u"Chapitre"_s << u"Livre/01 - Chapitre.md"_s;
    QTest::newRow("a path") << u"a/b"_s << u"Livre/01 - a-b.md"_s;
}

void PLPageCommandsTest::aTypedTitleRenamesThePage()
{
    PLNotebookWindowFixture window;
    QFETCH(QString, typed);
    QFETCH(QString, file);
    window.notebook.write(u"Livre/01 - chapitre.md"_s, u"texte"_s);
    window.open();
    window.type(u"x"_s);

    window.sidebar().view()->setFocus();
    QTest::keyClick(window.sidebar().view(), Qt::Key_F2);
    window.titleField()->setText(typed);
    QTest::keyClick(window.titleField(), Qt::Key_Return);

    QTRY_COMPARE(window.controller->window()->focusWidget(), window.textView());
    QTRY_VERIFY(window.notebook.exists(file));
    QCOMPARE(QDir(window.notebook.path(u"Livre"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1);
    QCOMPARE(window.session().currentItem()->fileURL(), window.notebook.url(file));
    QVERIFY(window.session().saveCurrentItem());
    QCOMPARE(window.notebook.read(file), u"xtexte"_s);
}

void PLPageCommandsTest::aPageThatCannotBeSavedIsNotRenamed()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"texte"_s);
    window.open();
    const PLProjectItemPointer item = window.session().currentItem();
    window.type(u"x"_s);
    window.notebook.hideSection(u"Livre"_s);

    window.controller->pageCommands().endTitleEditing(item, u"B"_s);

    QCOMPARE(window.alerts, QStringList{u"Impossible d'enregistrer « A »"_s});
    QCOMPARE(item->title(), u"A"_s);
    QVERIFY(window.session().isDirty());
}

void PLPageCommandsTest::aRenameThatFailsIsTold()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"texte"_s);
    window.open();
    const PLProjectItemPointer item = window.session().currentItem();
    window.notebook.hideSection(u"Livre"_s);

    window.controller->pageCommands().endTitleEditing(item, u"B"_s);

    QCOMPARE(window.alerts, QStringList{u"Le fichier ou le dossier n'existe pas ou plus."_s});
    QCOMPARE(item->title(), u"A"_s);
}

void PLPageCommandsTest::aTrashedPageGivesWayToItsSection()
{
    PLNotebookWindowFixture window;
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    window.notebook.write(u"Livre/1 - A.md"_s, u"texte"_s);
    window.notebook.write(u"Livre/2 - B.md"_s, u"texte"_s);
    window.open();
    window.type(u"x"_s);

    window.controller->performCommand(PLCommand::TrashSelectedItem, 0);

    QCOMPARE(window.alerts, QStringList{u"Mettre « A » à la corbeille ?"_s});
    QVERIFY(!window.notebook.exists(u"Livre/1 - A.md"_s));
    QCOMPARE(window.session().currentItem(), nullptr);
    QCOMPARE(window.selectedText(), u"LE LIVRE  ·  1"_s);
    QVERIFY(window.controller->placeholderLabel()->isVisible());
    QVERIFY(!window.controller->window()->isWindowModified());
    QFile trashed(data.filePath(u"Trash/files/1 - A.md"_s));
    QVERIFY(trashed.open(QIODevice::ReadOnly));
    QCOMPARE(trashed.readAll(), "texte");
}

void PLPageCommandsTest::trashingIsAskedFirst()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"texte"_s);
    window.open();
    window.answers = {PLAlert::SecondButton};

    QTest::keyClick(window.sidebar().view(), Qt::Key_Delete);

    QCOMPARE(window.alerts.size(), 1);
    QVERIFY(window.notebook.exists(u"Livre/1 - A.md"_s));
    QCOMPARE(window.session().currentItem()->title(), u"A"_s);
}

void PLPageCommandsTest::withoutAPageThereIsNothingToTrash()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, u"texte"_s);
    window.open();
    window.sidebar().selectSidebarObject(window.sidebar().tree().section(PLSection::Book));

    window.controller->performCommand(PLCommand::TrashSelectedItem, 0);

    QVERIFY(window.alerts.isEmpty());
    QVERIFY(window.notebook.exists(u"Livre/1 - A.md"_s));
}

void PLPageCommandsTest::whatIsRevealedIsTheRowsPlace()
{
    PLNotebookWindowFixture window;
    window.notebook.write(u"Livre/1 - A.md"_s, page(u"bal"_s));
    window.open();
    const PLSidebarTag *tag = window.sidebar().tree().sidebarTagNamed(u"bal"_s);
    const auto revealed = [&window](const PLSidebarNode *node) {
        window.controller->pageCommands().revealInFinder(node);
        return PLStandardizedPath(PLNotebookWindowFixture::revealedLocation());
    };

    QCOMPARE(revealed(window.sidebar().selectedNode()), window.notebook.path(u"Livre/1 - A.md"_s));
    QCOMPARE(revealed(tag->children()[0]), window.notebook.path(u"Livre/1 - A.md"_s));
    QCOMPARE(revealed(window.sidebar().tree().section(PLSection::Places)), window.notebook.path(u"Lieux"_s));
    QCOMPARE(revealed(window.sidebar().tree().tagSection()), window.notebook.path());
    QCOMPARE(revealed(tag), window.notebook.path());
    QCOMPARE(revealed(nullptr), window.notebook.path());
}

QTEST_MAIN(PLPageCommandsTest)
#include "PLPageCommandsTest.moc"
