// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLRelaunch.h"

#include "app/PLAlertScript.h"
#include "app/PLAppDelegate.h"
#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "notebook_window/PLProjectWindowController.h"
#include "storage/PLProject.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString reopenKey = u"PLReopenProjects"_s;

QStringList &startedPrograms()
{
    static QStringList programs;
    return programs;
}

bool rememberProgram(qint64 processIdentifier, const QString &program)
{
    startedPrograms().append(QString::number(processIdentifier) + u' ' + program);
    return true;
}

/// A program that writes whether the process was still there when it was started.
bool makeProgram(const QString &path, qint64 waitedFor, const QString &answer)
{
    const QString script =
        u"#!/bin/sh\nif kill -0 %1 2>/dev/null; then echo early; else echo later; fi >'%2'\n"_s;
    return PLMakeFile(path, script.arg(QString::number(waitedFor), answer).toUtf8()) &&
           QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

class PLRelaunchTest final : public QObject
{
    Q_OBJECT

private:
    QString makeNotebook(const QString &name) const;
    QStringList openTitles(const PLAppDelegate &delegate) const;
    void storeReopenList(const QVariant &list) const;

    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init();
    void cleanup();

    void theScriptIsAsItShouldBe();
    void theProgramStartsAgainWhenTheOldOneIsGone_data();
    void theProgramStartsAgainWhenTheOldOneIsGone();
    void noCharacterOfTheProgramsPathIsReadByTheShell();
    void aRelaunchStoresTheOpenNotebooks();
    void aRelaunchWithoutNotebooksReopensNone();
    void anOrdinaryQuitStoresNothing();
    void aCancelledRelaunchStoresNothing();
    void aQuitAfterACancelledRelaunchStoresNothing();
    void theNextStartReopensThemInOrder();
    void theNextStartForgetsTheList();
    void theListIsForgottenBeforeAnythingIsOpened();
    void vanishedNotebooksAreSkippedWithoutAnAlert();
    void whatIsNotTextIsSkipped();
};

QString PLRelaunchTest::makeNotebook(const QString &name) const
{
    const QString path = m_folder->filePath(name);
    const bool made = PLMakeFile(path + u"/projet.md"_s, "---\ntitre: " + name.toUtf8() + "\n---\n") &&
                      PLMakeFile(path + u"/Livre/01 - A.md"_s, "text\n");
    return made ? path : QString();
}

QStringList PLRelaunchTest::openTitles(const PLAppDelegate &delegate) const
{
    QStringList titles;
    for (const auto &controller : delegate.projectWindows())
        titles.append(controller->project().title());
    return titles;
}

/// As a run that has ended would have left it.
void PLRelaunchTest::storeReopenList(const QVariant &list) const
{
    PLPreferences::store().setValue(reopenKey, list);
    PLPreferences::store().sync();
}

void PLRelaunchTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
    startedPrograms().clear();
    PLSetRelaunchHandler(rememberProgram);
}

void PLRelaunchTest::cleanup()
{
    PLSetRelaunchHandler(nullptr);
    m_folder.reset();
    m_environment.reset();
}

void PLRelaunchTest::theScriptIsAsItShouldBe()
{
    QCOMPARE(PLRelaunchScript(4321), u"i=0; while kill -0 4321 2>/dev/null && [ $i -lt 100 ]; do sleep 0.2; "
                                     u"i=$((i+1)); done; exec \"$0\""_s);
}

void PLRelaunchTest::theProgramStartsAgainWhenTheOldOneIsGone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"aquilane"_s;
    QTest::newRow("spaces") << u"  my  program  "_s;
    QTest::newRow("quotes") << u"a\"b'c\"; touch canary; \""_s;
    QTest::newRow("a command") << u"$(touch canary)"_s;
    QTest::newRow("back-ticks") << u"`touch canary`"_s;
    QTest::newRow("variables") << u"$HOME $0 ${PATH} \\"_s;
    QTest::newRow("a new line") << u"a\ntouch canary\nb"_s;
    QTest::newRow("an option") << u"-c touch canary"_s;
    QTest::newRow("accents and an emoji") << u"été — \U0001F58B"_s;
}

void PLRelaunchTest::theProgramStartsAgainWhenTheOldOneIsGone()
{
    QFETCH(const QString, name);
    PLSetRelaunchHandler(nullptr);
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    QProcess old;
    old.start(u"sleep"_s, {u"60"_s});
    QVERIFY(old.waitForStarted());
    const QString answer = m_folder->filePath(u"answer"_s);
    const QString program = m_folder->filePath(name);
    QVERIFY(makeProgram(program, old.processId(), answer));

    QVERIFY(PLStartRelaunchScript(old.processId(), program));
    old.kill();
    QVERIFY(old.waitForFinished());
    QTRY_COMPARE_WITH_TIMEOUT(PLBytesOf(answer), QByteArray("later\n"), 10000);
    QCOMPARE(PLNamesIn(m_folder->path()).size(), 2); // no canary
    QVERIFY(QDir::setCurrent(before));
}

/// Fifty names, and bytes that are no text. Nobody is waited for, so that it does not take a minute.
void PLRelaunchTest::noCharacterOfTheProgramsPathIsReadByTheShell()
{
    QList<QByteArray> names{"\xFF\xFE", "\xC0\x80", "a\xE9", "\xED\xA0\x80", "\x01\x02\x1B[2J"};
    for (const char *command :
         {"touch canary", "$(touch canary)", "`touch canary`", "${IFS}touch${IFS}canary", "$((1))"}) {
        for (const char *shape :
             {"%1", ";%1;", "\";%1;\"", "';%1;'", "&%1&", "|%1", "\n%1\n", "-c %1", "#\n%1"})
            names.append(QByteArray(shape).replace("%1", command));
    }
    QCOMPARE(names.size(), 50);
    const QByteArray script = PLRelaunchScript(99'999'999).toUtf8(); // no process has such a number
    const QString here = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    for (const QByteArray &name : names) {
        const QByteArray program = QFile::encodeName(m_folder->path()) + '/' + name;
        QCOMPARE(::symlink("/bin/true", program.constData()), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            ::execl("/bin/sh", "/bin/sh", "-c", script.constData(), program.constData(), nullptr);
            ::_exit(127);
        }
        int status = -1;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QVERIFY2(WIFEXITED(status) && WEXITSTATUS(status) == 0, name.toPercentEncoding().constData());
        QCOMPARE(::unlink(program.constData()), 0);
    }
    QVERIFY(QDir::setCurrent(here));
    QCOMPARE(PLNamesIn(m_folder->path()), QStringList()); // no canary
}

void PLRelaunchTest::aRelaunchStoresTheOpenNotebooks()
{
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QStringList paths{makeNotebook(u"Un"_s), makeNotebook(u"Deux, \"été\""_s)};
    for (const QString &path : paths)
        QVERIFY(delegate.openFile(path));
    delegate.relaunch();
    QCOMPARE(ends.count(), 1);
    QCOMPARE(PLPreferences::store().value(reopenKey).toStringList(), paths);
    QCOMPARE(startedPrograms(), QStringList{QString::number(QCoreApplication::applicationPid()) + u' ' +
                                            QCoreApplication::applicationFilePath()});
}

void PLRelaunchTest::aRelaunchWithoutNotebooksReopensNone()
{
    {
        PLAppDelegate delegate;
        delegate.showLibrary();
        delegate.relaunch();
    }
    QCOMPARE(startedPrograms().size(), 1);
    PLAlertScript alerts;
    PLAppDelegate next;
    next.applicationDidFinishLaunching();
    QCOMPARE(alerts.count(), 0);
    QVERIFY(next.projectWindows().empty());
    QVERIFY(!PLPreferences::store().contains(reopenKey));
}

void PLRelaunchTest::anOrdinaryQuitStoresNothing()
{
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(makeNotebook(u"Roman"_s)));
    delegate.terminate();
    QVERIFY(!PLPreferences::store().contains(reopenKey));
    QCOMPARE(startedPrograms(), QStringList());
}

void PLRelaunchTest::aCancelledRelaunchStoresNothing()
{
    PLAlertScript alerts({PLAlert::FirstButton, PLAlert::FirstButton});
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path));
    delegate.projectWindows().front()->editorView()->textView()->textCursor().insertText(u"new "_s);
    QVERIFY(QDir().rename(path + u"/Livre"_s, path + u"/gone"_s));
    delegate.relaunch();
    QCOMPARE(alerts.count(), 2);
    QCOMPARE(ends.count(), 0);
    QVERIFY(!PLPreferences::store().contains(reopenKey));
    QCOMPARE(startedPrograms(), QStringList());
}

void PLRelaunchTest::aQuitAfterACancelledRelaunchStoresNothing()
{
    PLAlertScript alerts(
        {PLAlert::FirstButton, PLAlert::FirstButton, PLAlert::FirstButton, PLAlert::SecondButton});
    PLAppDelegate delegate;
    QSignalSpy ends(&delegate, &PLAppDelegate::willTerminate);
    const QString path = makeNotebook(u"Roman"_s);
    QVERIFY(delegate.openFile(path));
    delegate.projectWindows().front()->editorView()->textView()->textCursor().insertText(u"new "_s);
    QVERIFY(QDir().rename(path + u"/Livre"_s, path + u"/gone"_s));
    delegate.relaunch();
    delegate.terminate();
    QCOMPARE(ends.count(), 1);
    QVERIFY(!PLPreferences::store().contains(reopenKey));
    QCOMPARE(startedPrograms(), QStringList());
}

void PLRelaunchTest::theNextStartReopensThemInOrder()
{
    storeReopenList(QStringList{makeNotebook(u"Un"_s), makeNotebook(u"Deux"_s)});
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    QCOMPARE(openTitles(delegate), QStringList({u"Un"_s, u"Deux"_s}));
    QVERIFY(!delegate.library());
}

void PLRelaunchTest::theNextStartForgetsTheList()
{
    storeReopenList(QStringList{makeNotebook(u"Un"_s)});
    {
        PLAppDelegate delegate;
        delegate.applicationDidFinishLaunching();
    }
    PLPreferences::useFile(m_environment->preferencesFile());
    QVERIFY(!PLPreferences::store().contains(reopenKey));
    PLAppDelegate next;
    next.applicationDidFinishLaunching();
    QVERIFY(next.projectWindows().empty());
}

void PLRelaunchTest::theListIsForgottenBeforeAnythingIsOpened()
{
    const QString plain = m_folder->filePath(u"Vrac"_s);
    QVERIFY(QDir().mkpath(plain));
    storeReopenList(QStringList{plain});
    bool wasForgotten = false;
    PLAlert::setResponder([&](const PLAlert &alert) {
        wasForgotten = !PLBytesOf(m_environment->preferencesFile()).contains("PLReopenProjects");
        return alert.escapeButton;
    });
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    PLAlert::setResponder({});
    QVERIFY(wasForgotten);
}

void PLRelaunchTest::vanishedNotebooksAreSkippedWithoutAnAlert()
{
    PLAlertScript alerts;
    storeReopenList(QStringList{m_folder->filePath(u"Perdu"_s), makeNotebook(u"Roman"_s), QString()});
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    QCOMPARE(alerts.count(), 0);
    QCOMPARE(openTitles(delegate), QStringList{u"Roman"_s});
    QVERIFY(!PLPreferences::store().contains(reopenKey));
}

void PLRelaunchTest::whatIsNotTextIsSkipped()
{
    PLAlertScript alerts;
    storeReopenList(
        QVariantList{QByteArray(makeNotebook(u"Octets"_s).toUtf8()), QPoint(1, 2), makeNotebook(u"Roman"_s)});
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    QCOMPARE(alerts.count(), 0);
    QCOMPARE(openTitles(delegate), QStringList{u"Roman"_s});
}

QTEST_MAIN(PLRelaunchTest)
#include "PLRelaunchTest.moc"
