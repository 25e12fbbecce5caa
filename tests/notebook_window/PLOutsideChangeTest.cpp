// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"
#include "notebook_window/PLNotebookWindowFixture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QScrollBar>

#include <csignal>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

/// Another program writes into the page that is open: no word of either is lost.
class PLOutsideChangeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void bothTextsAreKept_data();
    void bothTextsAreKept();
    void aFolderThatWasRenamedIsNotMadeAnew_data();
    void aFolderThatWasRenamedIsNotMadeAnew();
    void theNextSaveKeepsNothingMore();
    void theSameTextFromOutsideIsNoChange();
    void aFileThatWasOnlyTouchedIsNoChange();
    void everyByteFromOutsideIsKept();
    void withoutRoomForBothNothingIsOverwritten();
    void aFileThatCannotBeReadIsNotOverwritten();
    void theEndOfTheProgramKeepsBothWithoutAWord();
    void theListShowsBothWithoutAWord();
    void anUntouchedPageFollowsTheDisk();
    void aPageThatIsWrittenInDoesNot();
    void aPageThatCanNoLongerBeReadStays();

private:
    PLPageSession &session() const { return m_window->session(); }
    QStringList chapters() const
    {
        return QDir(m_window->notebook.path(u"Livre"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    const QString file = u"Livre/01 - A.md"_s;

    std::unique_ptr<PLNotebookWindowFixture> m_window;
};

void PLOutsideChangeTest::init()
{
    m_window = std::make_unique<PLNotebookWindowFixture>();
    m_window->notebook.write(file, u"---\ntags: bal\n---\n\nun"_s);
    m_window->notebook.write(u"Personnages/Emma.md"_s, u"elle"_s);
    m_window->open();
}

void PLOutsideChangeTest::cleanup()
{
    m_window.reset();
}

void PLOutsideChangeTest::bothTextsAreKept_data()
{
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QString>("kept");

    QTest::newRow("chapter") << file << u"---\ntags: bal\n---\n\nxun"_s << u"Livre/01 - A 2.md"_s;
    QTest::newRow("character") << u"Personnages/Emma.md"_s << u"xelle"_s << u"Personnages/Emma 2.md"_s;
}

void PLOutsideChangeTest::bothTextsAreKept()
{
    QFETCH(QString, opened);
    QFETCH(QString, saved);
    QFETCH(QString, kept);
    m_window->select(opened);
    m_window->type(u"x"_s);
    m_window->notebook.write(opened, u"du dehors"_s);

    QVERIFY(session().saveCurrentItem());

    QCOMPARE(m_window->notebook.read(kept), u"du dehors"_s);
    QCOMPARE(m_window->notebook.read(opened), saved);
    QVERIFY(!session().isDirty());
    QCOMPARE(session().currentItem()->fileURL(), m_window->notebook.url(opened));
}

void PLOutsideChangeTest::aFolderThatWasRenamedIsNotMadeAnew_data()
{
    QTest::addColumn<QString>("folder");

    QTest::newRow("the section") << u"Livre"_s;
    QTest::newRow("the notebook") << QString();
}

/// The save fails, and works as soon as the folder has its name back.
void PLOutsideChangeTest::aFolderThatWasRenamedIsNotMadeAnew()
{
    QFETCH(QString, folder);
    const QString path = m_window->notebook.path(folder);
    m_window->type(u"x"_s);
    QVERIFY(QDir().rename(path, path + u" ailleurs"_s));

    QVERIFY(!session().saveCurrentItem());

    QCOMPARE(m_window->alerts.size(), 1);
    QVERIFY(session().isDirty());
    QVERIFY(!QFileInfo::exists(path));
    QVERIFY(QDir().rename(path + u" ailleurs"_s, path));
    QVERIFY(session().saveCurrentItem());
    QCOMPARE(m_window->notebook.read(file), u"---\ntags: bal\n---\n\nxun"_s);
}

void PLOutsideChangeTest::theNextSaveKeepsNothingMore()
{
    m_window->type(u"x"_s);
    m_window->notebook.write(file, u"du dehors"_s);
    QVERIFY(session().saveCurrentItem());
    m_window->type(u"y"_s);
    QVERIFY(session().saveCurrentItem());
    QCOMPARE(chapters(), QStringList({u"01 - A 2.md"_s, u"01 - A.md"_s}));

    m_window->type(u"z"_s);
    m_window->notebook.write(file, u"encore du dehors"_s);
    QVERIFY(session().saveCurrentItem());
    QCOMPARE(chapters(), QStringList({u"01 - A 2.md"_s, u"01 - A 3.md"_s, u"01 - A.md"_s}));
    QCOMPARE(m_window->notebook.read(u"Livre/01 - A 3.md"_s), u"encore du dehors"_s);
    QCOMPARE(m_window->notebook.read(file), u"---\ntags: bal\n---\n\nxyzun"_s);
}

void PLOutsideChangeTest::theSameTextFromOutsideIsNoChange()
{
    m_window->type(u"x"_s);
    m_window->notebook.write(file, u"---\ntags: bal\n---\n\nxun"_s);

    QVERIFY(session().saveCurrentItem());

    QCOMPARE(chapters(), QStringList{u"01 - A.md"_s});
}

void PLOutsideChangeTest::aFileThatWasOnlyTouchedIsNoChange()
{
    m_window->type(u"x"_s);
    m_window->notebook.write(file, m_window->notebook.read(file));

    QVERIFY(session().saveCurrentItem());

    QCOMPARE(chapters(), QStringList{u"01 - A.md"_s});
    QCOMPARE(m_window->notebook.read(file), u"---\ntags: bal\n---\n\nxun"_s);
}

void PLOutsideChangeTest::everyByteFromOutsideIsKept()
{
    const QByteArray bytes("\xe9t\xe9\r\n\0\xff", 7); // neither UTF-8 nor text
    m_window->type(u"x"_s);
    QFile outside(m_window->notebook.path(file));
    QVERIFY(outside.open(QIODevice::WriteOnly) && outside.write(bytes) == bytes.size());
    outside.close();

    QVERIFY(session().saveCurrentItem());

    QFile kept(m_window->notebook.path(u"Livre/01 - A 2.md"_s));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), bytes);
}

void PLOutsideChangeTest::withoutRoomForBothNothingIsOverwritten()
{
    const QString theirs(5000, u'd');
    m_window->type(u"x"_s);
    m_window->notebook.write(file, theirs);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before;
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{1000, before.rlim_max}; // bytes: enough for ours, not for theirs
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool saved = session().saveCurrentItem();
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);

    QVERIFY(!saved);
    QCOMPARE(m_window->alerts, QStringList{u"Impossible d'enregistrer « A »"_s});
    QCOMPARE(chapters(), QStringList{u"01 - A.md"_s});
    QCOMPARE(m_window->notebook.read(file), theirs);
    QVERIFY(session().isDirty());
    QVERIFY(session().saveCurrentItem());
    QCOMPARE(m_window->notebook.read(u"Livre/01 - A 2.md"_s), theirs);
}

/// Too large a file, as root can read any other.
void PLOutsideChangeTest::aFileThatCannotBeReadIsNotOverwritten()
{
    m_window->type(u"x"_s);
    QFile large(m_window->notebook.path(file));
    QVERIFY(large.resize(PLLargestFileSize + 1));

    QVERIFY(!session().saveCurrentItem());

    QCOMPARE(m_window->alerts, QStringList{u"Impossible d'enregistrer « A »"_s});
    QCOMPARE(large.size(), PLLargestFileSize + 1);
    QVERIFY(session().isDirty());
    QVERIFY(large.remove());
    QVERIFY(session().saveCurrentItem());
    QCOMPARE(m_window->notebook.read(file), u"---\ntags: bal\n---\n\nxun"_s);
}

void PLOutsideChangeTest::theEndOfTheProgramKeepsBothWithoutAWord()
{
    m_window->type(u"x"_s);
    m_window->notebook.write(file, u"du dehors"_s);

    QVERIFY(m_window->controller->saveCurrentItemQuietly());
    m_window->controller.reset();

    QCOMPARE(m_window->notebook.read(u"Livre/01 - A 2.md"_s), u"du dehors"_s);
    QVERIFY(m_window->alerts.isEmpty());
}

void PLOutsideChangeTest::theListShowsBothWithoutAWord()
{
    m_window->type(u"x"_s);
    m_window->notebook.write(file, u"---\ntags: mer\n---\n\ndu dehors"_s);

    QVERIFY(session().saveCurrentItem());

    QTRY_COMPARE(m_window->sidebar().tree().section(PLSection::Book)->childCount(), 2);
    QCOMPARE(m_window->alerts, QStringList());
    QCOMPARE(m_window->sidebar().allTags(), QStringList({u"bal"_s, u"mer"_s}));
    QCOMPARE(m_window->selectedText(), u"A"_s);
    QCOMPARE(m_window->editor()->text(), u"xun"_s);
}

void PLOutsideChangeTest::anUntouchedPageFollowsTheDisk()
{
    m_window->notebook.write(file, u"---\ntags: mer\n---\n\n"_s + u"ligne\n"_s.repeated(200));
    m_window->controller->windowDidBecomeKey();
    QTextCursor cursor = m_window->textView()->textCursor();
    cursor.setPosition(700);
    m_window->textView()->setTextCursor(cursor);
    m_window->textView()->ensureCursorVisible();
    QApplication::processEvents();
    const int scroll = m_window->textView()->verticalScrollBar()->value();
    m_window->notebook.write(file, u"---\ntags: port\n---\n\n"_s + u"LIGNE\n"_s.repeated(200));

    m_window->controller->windowDidResignKey();
    m_window->controller->windowDidBecomeKey();

    QCOMPARE(m_window->editor()->text(), u"LIGNE\n"_s.repeated(200));
    QCOMPARE(m_window->editor()->tags(), QStringList{u"port"_s});
    QCOMPARE(m_window->textView()->textCursor().position(), 700);
    QCOMPARE(m_window->textView()->verticalScrollBar()->value(), scroll);
    QVERIFY(!session().isDirty());
    QCOMPARE(m_window->sidebar().allTags(), QStringList{u"port"_s});
    m_window->notebook.write(file, u"court"_s);
    m_window->controller->windowDidBecomeKey();
    QCOMPARE(m_window->editor()->text(), u"court"_s);
    QCOMPARE(m_window->textView()->textCursor().position(), 5);
    QCOMPARE(chapters(), QStringList{u"01 - A.md"_s});
}

void PLOutsideChangeTest::aPageThatIsWrittenInDoesNot()
{
    m_window->type(u"x"_s);
    m_window->notebook.write(file, u"du dehors"_s);

    m_window->controller->windowDidBecomeKey();

    QCOMPARE(m_window->editor()->text(), u"xun"_s);
    QVERIFY(session().isDirty());
}

void PLOutsideChangeTest::aPageThatCanNoLongerBeReadStays()
{
    QFile outside(m_window->notebook.path(file));
    QVERIFY(outside.open(QIODevice::WriteOnly) && outside.write("\xff\xfe\x00", 3) == 3); // half of UTF-16
    outside.close();

    m_window->controller->windowDidBecomeKey();
    QCOMPARE(m_window->editor()->text(), u"un"_s);
    m_window->type(u"x"_s);
    QVERIFY(session().saveCurrentItem());

    QCOMPARE(m_window->notebook.read(file), u"---\ntags: bal\n---\n\nxun"_s);
    QFile kept(m_window->notebook.path(u"Livre/01 - A 2.md"_s));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), QByteArray("\xff\xfe\x00", 3));
}

QTEST_MAIN(PLOutsideChangeTest)
#include "PLOutsideChangeTest.moc"
