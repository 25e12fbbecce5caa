// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLNotebookWindowFixture.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QTimer>

using namespace Qt::StringLiterals;

/// What a notebook window does when the disk does not do its part.
class PLNotebookFailuresTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aPageThatCannotBeSavedDoesNotHoldTheWriter_data();
    void aPageThatCannotBeSavedDoesNotHoldTheWriter();
    void aPageThatCannotBeMadeIsTold();
    void aPageThatCannotBeTrashedIsTold();
    void aPageThatCannotBeReadIsTold();
    void aPageThatCannotBeReadIsToldOnce();
    void aFirstChapterThatCannotBeReadIsTold();
    void aPageThatIsNotSavedStaysWhenTheListIsGone();
    void onlyTheFirstOfTwoAlertsIsShown();
    void aPageThatWasTakenAwayIsWrittenAgain();
    void closingAnywayAsksOnce();
    void anAlertDoesNotSaveAgain();

private:
    void makeUnsaveable() const
    {
        m_window->type(u"x"_s);
        m_window->notebook.hideSection(u"Livre"_s);
    }

    std::unique_ptr<PLNotebookWindowFixture> m_window;
    QTemporaryDir m_data;
};

void PLNotebookFailuresTest::init()
{
    m_window = std::make_unique<PLNotebookWindowFixture>();
    m_window->notebook.write(u"Livre/01 - A.md"_s, u"---\ntags: bal\n---\n\nun"_s);
    m_window->notebook.write(u"Personnages/Emma.md"_s, u"deux"_s);
    m_window->open();
    qputenv("XDG_DATA_HOME", m_data.path().toUtf8());
}

void PLNotebookFailuresTest::cleanup()
{
    m_window.reset();
}

void PLNotebookFailuresTest::aPageThatCannotBeSavedDoesNotHoldTheWriter_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("title");

    QTest::newRow("another page") << u"page"_s << u"Roman — Emma[*]"_s;
    QTest::newRow("a tag") << u"tag"_s << u"Roman[*]"_s;
    QTest::newRow("nothing") << u"nothing"_s << u"Roman[*]"_s;
}

void PLNotebookFailuresTest::aPageThatCannotBeSavedDoesNotHoldTheWriter()
{
    QFETCH(QString, chosen);
    QFETCH(QString, title);
    const PLSidebarTree &tree = m_window->sidebar().tree();
    makeUnsaveable();

    const PLSidebarNode *node = nullptr;
    if (chosen == u"page")
        node = tree.section(PLSection::Characters)->children()[0];
    else if (chosen == u"tag")
        node = tree.sidebarTagNamed(u"bal"_s);
    m_window->sidebar().selectSidebarObject(node);

    QCOMPARE(m_window->alerts, QStringList{u"Impossible d'enregistrer « A »"_s});
    QCOMPARE(m_window->controller->window()->windowTitle(), title);
    QVERIFY(!m_window->session().isDirty());
    QVERIFY(!m_window->controller->window()->isWindowModified());
    m_window->notebook.showSection(u"Livre"_s);
    QCOMPARE(m_window->notebook.read(u"Livre/01 - A.md"_s), u"---\ntags: bal\n---\n\nun"_s);
}

void PLNotebookFailuresTest::aPageThatCannotBeMadeIsTold()
{
    QVERIFY(QDir(m_window->notebook.path(u"Lieux"_s)).removeRecursively());
    m_window->notebook.write(u"Lieux"_s, u"un fichier"_s);

    m_window->controller->performCommand(PLCommand::NewPlace, 0);

    QCOMPARE(m_window->alerts, QStringList{u"Un élément du chemin n'est pas un dossier."_s});
    QVERIFY(!m_window->titleField());
    QCOMPARE(m_window->selectedText(), u"A"_s);
    QCOMPARE(m_window->session().currentItem()->title(), u"A"_s);
    QCOMPARE(m_window->notebook.read(u"Lieux"_s), u"un fichier"_s);
}

void PLNotebookFailuresTest::aPageThatCannotBeTrashedIsTold()
{
    qputenv("XDG_DATA_HOME", m_window->notebook.path(u"projet.md"_s).toUtf8()); // no folder for a trash
    m_window->notebook.write(u"Livre/02 - B.md"_s, u"deux"_s);
    m_window->type(u"x"_s);

    m_window->controller->performCommand(PLCommand::TrashSelectedItem, 0);

    QCOMPARE(m_window->alerts, QStringList({u"Mettre « A » à la corbeille ?"_s,
                                            u"Impossible de mettre « A » à la corbeille."_s}));
    QCOMPARE(m_window->notebook.read(u"Livre/01 - A.md"_s), u"---\ntags: bal\n---\n\nun"_s);
    QCOMPARE(m_window->selectedText(), u"LE LIVRE  ·  2"_s); // read again
    QCOMPARE(m_window->session().currentItem(), nullptr);
}

void PLNotebookFailuresTest::aPageThatCannotBeReadIsTold()
{
    const QString path = m_window->notebook.path(u"Personnages/Emma.md"_s);
    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    const QString before = m_window->controller->placeholderLabel()->text();
    m_window->type(u"x"_s);

    m_window->select(u"Personnages/Emma.md"_s);

    QCOMPARE(m_window->alerts, QStringList{u"C'est un dossier, pas un fichier."_s});
    QCOMPARE(m_window->notebook.read(u"Livre/01 - A.md"_s), u"---\ntags: bal\n---\n\nxun"_s);
    QVERIFY(m_window->controller->placeholderLabel()->isVisible());
    QCOMPARE(m_window->controller->placeholderLabel()->text(), before);
    QCOMPARE(m_window->controller->window()->windowTitle(), u"Roman[*]"_s);
}

/// The alert itself gives the keyboard back to the window, which then follows the disk.
void PLNotebookFailuresTest::aPageThatCannotBeReadIsToldOnce()
{
    const QString file = u"Personnages/Emma.md"_s;
    QVERIFY(QFile::resize(m_window->notebook.path(file), PLLargestFileSize + 1));

    m_window->select(file);
    QCOMPARE(m_window->alerts.size(), 1);
    m_window->controller->windowDidBecomeKey();
    QCOMPARE(m_window->alerts.size(), 1);
    QCOMPARE(m_window->selectedText(), u"Emma"_s);

    m_window->select(u"Livre/01 - A.md"_s);
    m_window->select(file); // the writer asks for it again
    QCOMPARE(m_window->alerts.size(), 2);

    m_window->notebook.write(file, u"trois"_s);
    m_window->controller->windowDidBecomeKey();
    QCOMPARE(m_window->textView()->pageText(), u"trois"_s);
    QVERIFY(m_window->editor()->isVisible());
    QCOMPARE(m_window->alerts.size(), 2);
}

void PLNotebookFailuresTest::aFirstChapterThatCannotBeReadIsTold()
{
    QFile chapter(m_window->notebook.path(u"Livre/01 - A.md"_s));
    QVERIFY(chapter.open(QIODevice::WriteOnly) && chapter.write("\xff\xfe\x00", 3) == 3); // half of UTF-16
    chapter.close();

    m_window->open();

    QCOMPARE(m_window->alerts,
             QStringList{u"Le texte de ce fichier ne peut pas être lu : son codage est inconnu."_s});
    QCOMPARE(m_window->controller->placeholderLabel()->text(),
             u"Choisissez une page dans la liste,\nou ajoutez-en une avec le + d'une catégorie."_s);
    QVERIFY(m_window->controller->placeholderLabel()->isVisible());
    QCOMPARE(m_window->controller->window()->windowTitle(), u"Roman[*]"_s);
}

void PLNotebookFailuresTest::aPageThatIsNotSavedStaysWhenTheListIsGone()
{
    makeUnsaveable();

    m_window->controller->windowDidResignKey();
    m_window->controller->windowDidBecomeKey();

    QCOMPARE(m_window->alerts, QStringList{u"Impossible d'enregistrer « A »"_s});
    QCOMPARE(m_window->editor()->text(), u"xun"_s);
    QCOMPARE(m_window->selectedText(), u"A"_s);
    QVERIFY(m_window->session().isDirty());
    m_window->notebook.showSection(u"Livre"_s);
    m_window->controller->windowDidResignKey();
    QCOMPARE(m_window->notebook.read(u"Livre/01 - A.md"_s), u"---\ntags: bal\n---\n\nxun"_s);
}

/// While the first is up, all that would save has its turn: another window, the timer, the Save command.
void PLNotebookFailuresTest::onlyTheFirstOfTwoAlertsIsShown()
{
    makeUnsaveable();
    int alerts = 0;
    PLAlert::setResponder([&](const PLAlert &) {
        ++alerts;
        m_window->controller->windowDidResignKey();
        m_window->controller->windowDidBecomeKey();
        m_window->controller->performCommand(PLCommand::SaveDocument, 0);
        return PLAlert::FirstButton;
    });

    QVERIFY(!m_window->session().saveCurrentItem());

    QCOMPARE(alerts, 1);
    QCOMPARE(m_window->editor()->text(), u"xun"_s);
    QVERIFY(m_window->session().isDirty());
}

void PLNotebookFailuresTest::aPageThatWasTakenAwayIsWrittenAgain()
{
    m_window->type(u"x"_s);
    QVERIFY(QFile::remove(m_window->notebook.path(u"Livre/01 - A.md"_s)));

    m_window->controller->windowDidResignKey();
    m_window->controller->windowDidBecomeKey();

    QCOMPARE(m_window->notebook.read(u"Livre/01 - A.md"_s), u"---\ntags: bal\n---\n\nxun"_s);
    QCOMPARE(m_window->selectedText(), u"A"_s);
}

void PLNotebookFailuresTest::closingAnywayAsksOnce()
{
    makeUnsaveable();
    m_window->answers = {PLAlert::FirstButton, PLAlert::SecondButton};

    QVERIFY(m_window->controller->window()->close());
    QApplication::processEvents();
    m_window->controller.reset();

    QCOMPARE(m_window->alerts,
             QStringList({u"Impossible d'enregistrer « A »"_s, u"Fermer sans enregistrer ?"_s}));
}

void PLNotebookFailuresTest::anAlertDoesNotSaveAgain()
{
    makeUnsaveable();
    QVERIFY(QTest::qWaitForWindowActive(m_window->controller->window()));
    PLAlert::setResponder({});
    int shown = 0;
    QTimer presser;
    presser.callOnTimeout([&shown] {
        if (QWidget *alert = QApplication::activeModalWidget()) {
            ++shown;
            alert->close();
        }
    });
    presser.start(20);

    QVERIFY(!m_window->session().saveCurrentItem());
    m_window->controller->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window->controller->window()));
    QApplication::processEvents();

    QCOMPARE(shown, 1);
    QCOMPARE(m_window->editor()->text(), u"xun"_s);
    QVERIFY(m_window->session().isDirty());
    QCOMPARE(m_window->selectedText(), u"A"_s);
}

QTEST_MAIN(PLNotebookFailuresTest)
#include "PLNotebookFailuresTest.moc"
