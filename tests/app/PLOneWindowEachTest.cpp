// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"
#include "foundation/PLPreferences.h"
#include "notebook_window/PLProjectWindowController.h"
#include "platform/PLAlert.h"
#include "storage/PLProject.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

/// Two windows of one notebook would overwrite each other's pages: there is one, by whatever name and on
/// whatever road it is opened.
class PLOneWindowEachTest final : public QObject
{
    Q_OBJECT

private:
    using Road = std::function<void(PLAppDelegate &, const QString &name)>;

    QString path(const QString &name) const { return m_folder->filePath(name); }
    bool makeNotebook(const QString &name, const QByteArray &chapter = "text\n") const;
    static QMap<QString, Road> roads();

    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    int m_alerts = 0;

private Q_SLOTS:
    void init();
    void cleanup();

    void aNotebookHasOneWindow_data();
    void aNotebookHasOneWindow();
    void aRelaunchOpensOneWindow();
    void theCommandLineOpensOneWindow();
    void aCopyOfANotebookHasAWindowOfItsOwn();
    void aNotebookInThePlaceOfAnotherHasNoSecondWindow();
    void aRequestDuringTheQuestionOpensNoSecondWindow();
    void aRequestDuringAnAlertOfTheNewWindowOpensNoSecondOne();
};

bool PLOneWindowEachTest::makeNotebook(const QString &name, const QByteArray &chapter) const
{
    return PLMakeFile(path(name + u"/projet.md"_s), "---\ntitre: Roman\n---\n") &&
           PLMakeFile(path(name + u"/Livre/01 - A.md"_s), chapter);
}

void PLOneWindowEachTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_alerts = 0;
    PLAlert::setResponder([this](const PLAlert &) {
        ++m_alerts;
        return PLAlert::FirstButton;
    });
    QVERIFY(makeNotebook(u"Roman"_s));
    QVERIFY(QFile::link(path(u"Roman"_s), path(u"lien"_s)));
    QVERIFY(QFile::link(m_folder->path(), path(u"detour"_s)));
}

void PLOneWindowEachTest::cleanup()
{
    PLAlert::setResponder({});
    m_folder.reset();
    m_environment.reset();
}

QMap<QString, PLOneWindowEachTest::Road> PLOneWindowEachTest::roads()
{
    return {
        {u"the library"_s, [](PLAppDelegate &delegate,
                              const QString &name) { delegate.openProjectAtURL(QUrl::fromLocalFile(name)); }},
        {u"a file that is opened"_s,
         [](PLAppDelegate &delegate, const QString &name) { delegate.openFile(name); }},
        {u"another start"_s,
         [](PLAppDelegate &delegate, const QString &name) {
             delegate.applicationHandleRequest({name}, QString());
         }},
        {u"the open panel"_s,
         [](PLAppDelegate &delegate, const QString &name) {
             QTimer::singleShot(0, &delegate, [name] {
                 auto *panel = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
                 panel->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(name);
                 QMetaObject::invokeMethod(panel, "accept");
             });
             delegate.openProject();
         }},
    };
}

void PLOneWindowEachTest::aNotebookHasOneWindow_data()
{
    QTest::addColumn<QString>("road");
    QTest::addColumn<QString>("name");
    const QStringList names{u"Roman"_s,
                            u"Roman/"_s,
                            u"Roman//"_s,
                            u"./Roman/."_s,
                            u"Roman/projet.md"_s,
                            u"Roman/Livre/../../Roman"_s,
                            u"lien"_s,
                            u"lien/"_s,
                            u"lien/projet.md"_s,
                            u"detour/Roman"_s,
                            u"detour/detour/lien"_s};
    const QStringList known = roads().keys();
    for (const QString &road : known) {
        for (const QString &name : names)
            QTest::newRow(qPrintable(road + u", "_s + name)) << road << name;
    }
}

void PLOneWindowEachTest::aNotebookHasOneWindow()
{
    QFETCH(const QString, road);
    QFETCH(const QString, name);
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(path(u"Roman"_s)));
    QVERIFY(makeNotebook(u"Autre"_s) && delegate.openFile(path(u"Autre"_s)));
    QTRY_VERIFY(delegate.projectWindows().back()->window()->isActiveWindow());

    roads().value(road)(delegate, m_folder->path() + u'/' + name);

    QCOMPARE(m_alerts, 0);
    QCOMPARE(delegate.projectWindows().size(), size_t(2));
    QTRY_VERIFY(delegate.projectWindows().front()->window()->isActiveWindow());
}

void PLOneWindowEachTest::aRelaunchOpensOneWindow()
{
    PLPreferences::store().setValue(u"PLReopenProjects"_s,
                                    QStringList{path(u"lien"_s), path(u"Roman"_s), path(u"Roman/"_s)});
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching({path(u"detour/Roman"_s)});
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
    QCOMPARE(m_alerts, 0);
}

void PLOneWindowEachTest::theCommandLineOpensOneWindow()
{
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching(
        {path(u"Roman"_s), path(u"lien"_s), path(u"Roman/projet.md"_s), path(u"Roman"_s)});
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
    QCOMPARE(m_alerts, 0);
}

/// The same title, the same pages, the same name: but another folder.
void PLOneWindowEachTest::aCopyOfANotebookHasAWindowOfItsOwn()
{
    QVERIFY(makeNotebook(u"copie/Roman"_s));
    QVERIFY(QFile::link(path(u"copie"_s), path(u"autre lien"_s)));
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(path(u"Roman"_s)));
    QVERIFY(delegate.openFile(path(u"copie/Roman"_s)));
    QCOMPARE(delegate.projectWindows().size(), size_t(2));
    QVERIFY(delegate.openFile(path(u"autre lien/Roman"_s)));
    QCOMPARE(delegate.projectWindows().size(), size_t(2));
}

/// The folder was taken away under the window, and another one has its path now.
void PLOneWindowEachTest::aNotebookInThePlaceOfAnotherHasNoSecondWindow()
{
    PLAppDelegate delegate;
    QVERIFY(delegate.openFile(path(u"Roman"_s)));
    QVERIFY(QDir().rename(path(u"Roman"_s), path(u"Ancien"_s)));
    QVERIFY(makeNotebook(u"Roman"_s));
    QVERIFY(delegate.openFile(path(u"Roman"_s)));
    QVERIFY(delegate.openFile(path(u"lien"_s)));
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
    QVERIFY(delegate.openFile(path(u"Ancien"_s))); // which no window writes to
    QCOMPARE(delegate.projectWindows().size(), size_t(2));
}

/// A question lets the event loop run, and with it another start of the program.
void PLOneWindowEachTest::aRequestDuringTheQuestionOpensNoSecondWindow()
{
    QVERIFY(QDir().mkdir(path(u"Vrac"_s)));
    QVERIFY(QFile::link(path(u"Vrac"_s), path(u"lien au vrac"_s)));
    PLAppDelegate delegate;
    PLAlert::setResponder([&](const PLAlert &) {
        if (++m_alerts == 1) {
            delegate.applicationHandleRequest({path(u"Vrac"_s)}, QString());
            delegate.applicationHandleRequest({path(u"lien au vrac"_s)}, QString());
        }
        return PLAlert::FirstButton;
    });
    QVERIFY(delegate.openFile(path(u"Vrac"_s)));
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
    QCOMPARE(m_alerts, 1);
    QVERIFY(delegate.openFile(path(u"Vrac"_s)));
    QCOMPARE(delegate.projectWindows().size(), size_t(1));
}

/// As does the alert of a first chapter that cannot be read, before the window is there.
void PLOneWindowEachTest::aRequestDuringAnAlertOfTheNewWindowOpensNoSecondOne()
{
    QVERIFY(makeNotebook(u"Illisible"_s, QByteArray("\xff\xfe\x00", 3))); // half of UTF-16
    PLAppDelegate delegate;
    PLAlert::setResponder([&](const PLAlert &) {
        if (++m_alerts == 1)
            delegate.applicationHandleRequest({path(u"Illisible"_s), path(u"Roman"_s)}, QString());
        return PLAlert::FirstButton;
    });
    QVERIFY(delegate.openFile(path(u"Illisible"_s)));
    QCOMPARE(m_alerts, 1);
    QCOMPARE(delegate.projectWindows().size(), size_t(2)); // the other one is a window of its own
}

QTEST_MAIN(PLOneWindowEachTest)
#include "PLOneWindowEachTest.moc"
