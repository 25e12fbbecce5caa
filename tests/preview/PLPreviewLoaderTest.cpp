// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPreviewLoader.h"

#include "editor/PLPreviewSandbox.h"
#include "editor/PLPreviewView.h"
#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

/// This program is linked without the engine, as the program itself is.
class PLPreviewLoaderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aMissingPluginIsTold();
    void aLibraryThatIsNoPluginIsTold();
    void theAdministratorGetsNoPreview();
    void theSandboxIsAskedForBefore();
    void thePluginWorksWhenLoadedLate();

private:
    static QStringList engineLibrariesInMemory();

    PLTestEnvironment m_environment;
};

void PLPreviewLoaderTest::init()
{
    m_environment.setLanguage(u"fr"_s);
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

QStringList PLPreviewLoaderTest::engineLibrariesInMemory()
{
    QFile maps(u"/proc/self/maps"_s);
    if (!maps.open(QIODevice::ReadOnly))
        return {u"unknown"_s};
    return QString::fromUtf8(maps.readAll()).split(u'\n').filter(u"WebEngine"_s);
}

void PLPreviewLoaderTest::aMissingPluginIsTold()
{
    QWidget parent;
    QString reason;
    QVERIFY(!PLLoadPreviewViewFromPlugin(u"/nowhere/aquilane_preview"_s, &parent, &reason));
    QCOMPARE(reason, u"L'aperçu n'est pas installé (paquet aquilane-preview)."_s);
    m_environment.setLanguage(u"en"_s);
    QVERIFY(!PLLoadPreviewViewFromPlugin(u"/nowhere/aquilane_preview"_s, &parent, &reason));
    QCOMPARE(reason, u"The preview isn't installed (package aquilane-preview)."_s);
    QVERIFY(!PLLoadPreviewViewFromPlugin(u"/nowhere/aquilane_preview"_s, &parent, nullptr));
}

void PLPreviewLoaderTest::aLibraryThatIsNoPluginIsTold()
{
    QWidget parent;
    QString reason;
    QVERIFY(!PLLoadPreviewViewFromPlugin(QCoreApplication::applicationFilePath(), &parent, &reason));
    QVERIFY(!reason.isEmpty());
}

void PLPreviewLoaderTest::theAdministratorGetsNoPreview()
{
    if (!PLIsSuperUser())
        QSKIP("not run by the administrator");
    qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
    QVERIFY(!PLCanSandboxPreview());
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "0");
    QWidget parent;
    QString reason;
    QVERIFY(!PLLoadPreviewView(&parent, &reason));
    QCOMPARE(reason,
             u"L'aperçu n'est pas affiché : Aquilane a été ouvert par l'administrateur du système."_s);
    m_environment.setLanguage(u"en"_s);
    QVERIFY(!PLLoadPreviewView(&parent, &reason));
    QCOMPARE(reason, u"The preview isn't shown: Aquilane was opened by the system's administrator."_s);
    QCOMPARE(engineLibrariesInMemory(), QStringList());
}

/// The answer is the one of the system's own tool, which makes the same two namespaces.
void PLPreviewLoaderTest::theSandboxIsAskedForBefore()
{
    if (PLIsSuperUser())
        QSKIP("the administrator gets no preview at all");
    qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
    const int answer = QProcess::execute(u"unshare"_s, {u"-c"_s, u"unshare"_s, u"-c"_s, u"true"_s});
    if (answer < 0)
        QSKIP("there is no unshare to compare with");
    QCOMPARE(PLCanSandboxPreview(), answer == 0);
}

void PLPreviewLoaderTest::thePluginWorksWhenLoadedLate()
{
    QCOMPARE(engineLibrariesInMemory(), QStringList());
    QWidget window;
    window.show();
    QString reason;
    PLPreviewView *preview = PLLoadPreviewView(&window, &reason);
    QVERIFY2(preview, qPrintable(reason));
    QVERIFY(!engineLibrariesInMemory().isEmpty());
    QCOMPARE(preview->widget()->parentWidget(), &window);
    preview->widget()->show();
    QSignalSpy finished(preview, &PLPreviewView::didFinishLoad);
    preview->loadDocument(u"<html><body><div id=\"contenu\"><p>x</p></div></body></html>"_s, QUrl());
    QVERIFY(finished.wait(30'000));
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    PLPreviewLoaderTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "PLPreviewLoaderTest.moc"
