// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAlertScript.h"
#include "app/PLAppDelegate.h"
#include "library/PLLibraryWindowController.h"
#include "notebook_window/PLProjectWindowController.h"
#include "storage/PLRecentProjects.h"
#include "support/PLCanary.h"
#include "support/PLTestEnvironment.h"

#include <QElapsedTimer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <climits>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// A window's place in the form in which the toolkit stores it.
QByteArray storedFrame(const QRect &frame, int screen = 0, int screenWidth = 800)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    stream << quint32(0x1D9D0CB) << quint16(3) << quint16(0) << frame << frame << qint32(screen) << quint8(0)
           << quint8(0) << qint32(screenWidth) << frame;
    return bytes;
}

QRect rect(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

/// What a list of folders may hold instead.
QVariantList notFolders()
{
    return {u".."_s,
            u"../../../../../../etc"_s,
            u"."_s,
            u""_s,
            u"~"_s,
            u"$(touch canary)"_s,
            u"`touch canary`"_s,
            u"http://exemple.invalid/carnet"_s,
            u"smb://exemple.invalid/carnet"_s,
            u"file:///etc"_s,
            u"javascript:1"_s,
            u"/dev/zero"_s,
            u"/proc/self/mem"_s,
            u"/etc/passwd"_s,
            u"/a\0b"_s,
            u"-rf"_s,
            u"a\nb"_s,
            QString(100'000, u'x'),
            QString(QChar(0xD800)),
            QByteArray("/etc"),
            12,
            1e300,
            QVariant(),
            QVariantMap{{u"a"_s, 1}},
            QVariantList{u"/etc"_s},
            QUrl(u"http://exemple.invalid/"_s)};
}

} // namespace

/// Whatever the preferences hold, the program starts as if they were not there: nothing is run, read or
/// written for them, and no window is out of reach.
class PLHostilePreferencesTest final : public QObject
{
    Q_OBJECT

private:
    const QString m_before = QDir::currentPath();
    std::unique_ptr<PLTestEnvironment> m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_tree;

    QString path(const QString &relative) const { return m_folder->filePath(relative); }
    /// A start, with every window once; the alerts change nothing.
    void startProgram() const;
    static QStringList windowsOutOfReach();

private Q_SLOTS:
    void init();
    void cleanup();

    void values_data();
    void values();
    void files_data();
    void files();
    void theLanguageIsOneOfTwo_data();
    void theLanguageIsOneOfTwo();
    void framesOfWindows_data();
    void framesOfWindows();
    void aVeryLongListOfNotebooks();
    void aNotebookWhoseFileIsAPipe();
};

// The toolkit reads such a list character by character into a text that grows; each time it does, the address
// sanitizer gives it a new place, of as many pages.
#ifdef __SANITIZE_ADDRESS__
constexpr qsizetype longList = 10'000;
#else
constexpr qsizetype longList = 100'000;
#endif

void PLHostilePreferencesTest::startProgram() const
{
    PLLocalization::forgetCurrentLanguage();
    PLAlertScript alerts;
    PLAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    delegate.showLibrary();
    delegate.showPreferences();
    QVERIFY(delegate.openFile(path(u"carnet"_s)));
    QCoreApplication::processEvents();
    QCOMPARE(windowsOutOfReach().join(u'\n'), QString());
}

/// Those that the writer could not see or take hold of.
QStringList PLHostilePreferencesTest::windowsOutOfReach()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QStringList lost;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        const QRect frame = window->frameGeometry();
        const QRect seen = frame & screen;
        if (!window->isVisible() ||
            (seen.width() >= 100 && seen.height() >= 100 && frame.top() >= screen.top() &&
             frame.width() <= screen.width() * 2 && frame.height() <= screen.height() * 2))
            continue;
        QDebug(&lost.emplaceBack()) << window->windowTitle() << frame;
    }
    return lost;
}

void PLHostilePreferencesTest::init()
{
    m_environment = std::make_unique<PLTestEnvironment>();
    m_folder = std::make_unique<QTemporaryDir>();
    for (const QString &file : {u"carnet/projet.md"_s, u"here/file"_s, u"x"_s})
        QVERIFY(PLMakeFile(path(file), "as it was"));
    for (const QString &section : {u"Livre"_s, u"Personnages"_s, u"Lieux"_s, u"Fiches"_s, u"Notes"_s})
        QVERIFY(QDir().mkpath(path(u"carnet/"_s + section)));
    QVERIFY(QDir::setCurrent(path(u"here"_s)));
    m_tree = PLTreeOf(m_folder->path());
}

void PLHostilePreferencesTest::cleanup()
{
    QVERIFY(QDir::setCurrent(m_before));
    QCOMPARE(PLTreeOf(m_folder->path()), m_tree);
}

void PLHostilePreferencesTest::values_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"PLRecentProjects", "PLReopenProjects", "PLInterfaceLanguage", "AppleLanguages",
                            "PLPreviewVisible", "PLShelfSpineMode", "PLContinuousSpellChecking",
                            "PLWindowFrame PLLibrary", "../../x", "PLWindowFrame %2e%2e"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void PLHostilePreferencesTest::values()
{
    QFETCH(const QString, key);
    QVariantList hostile{QVariant(notFolders()), QVariant(QStringList{u"../../x"_s, u"$(touch canary)"_s})};
    if (!key.endsWith(u"Projects"_s)) // for which the list holds them all
        hostile += notFolders().mid(18);
    for (const QVariant &value : std::as_const(hostile)) {
        PLPreferences::store().setValue(key, value);
        PLPreferences::store().sync();
        PLPreferences::useFile(m_environment->preferencesFile()); // read again from the disk
        startProgram();
        PLPreferences::store().clear();
    }
}

void PLHostilePreferencesTest::files_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("zeros") << QByteArray(100'000, '\0');
    QTest::newRow("brackets") << QByteArray(100'000, '[');
    QTest::newRow("backslashes") << QByteArray("[General]\nPLRecentProjects=") + QByteArray(100'000, '\\');
    QTest::newRow("one line") << QByteArray(1'000'000, 'x');
    QTest::newRow("no text") << QByteArray("\xFF\xFE\x00\xD8=\xC0\x80\xFF\n=\n=\n[\n]\n[]\n%=\nx", 22);
    QTest::newRow("values of other types") << QByteArray(
        "[General]\nPLRecentProjects=@Variant(\\0\\0\\0\\x46\\0\\0\\0\\x1)\nPLReopenProjects=@Variant("
        "\\0\\0\\0@)\n"
        "PLInterfaceLanguage=@Invalid()\nPLShelfSpineMode=@Rect(1 2 3)\nPLPreviewVisible=@ByteArray(\\xff)\n"
        "PLWindowFrame%20PLLibrary=@Size(-1 -1)\n");
    QTest::newRow("a list that says it is long")
        << QByteArray("[General]\nPLRecentProjects=@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff\\0\\0\\0\\n)\n");
}

void PLHostilePreferencesTest::files()
{
    QFETCH(const QByteArray, bytes);
    const QTemporaryDir folder;
    QVERIFY(PLMakeFile(folder.filePath(u"preferences.ini"_s), bytes));
    PLPreferences::useFile(folder.filePath(u"preferences.ini"_s));
    startProgram();
    m_environment->forgetPreferences();
}

void PLHostilePreferencesTest::theLanguageIsOneOfTwo_data()
{
    QTest::addColumn<QVariant>("value");
    for (const QString &value : {u"../../x"_s, u"fr/../../x"_s, u"fr.UTF-8"_s, u"FR"_s, u"fr\0"_s, u" fr"_s,
                                 u"$(touch canary)"_s, u"en_US"_s, u""_s})
        QTest::newRow(qPrintable(value)) << QVariant(value);
    QTest::newRow("a list") << QVariant(QStringList{u"fr"_s, u"en"_s});
    QTest::newRow("a number") << QVariant(1);
}

void PLHostilePreferencesTest::theLanguageIsOneOfTwo()
{
    QFETCH(const QVariant, value);
    PLPreferences::store().setValue(u"PLInterfaceLanguage"_s, value);
    PLLocalization::forgetCurrentLanguage();
    QCOMPARE(PLLocalization::currentLanguage(), PLLocalization::systemLanguage());
    QVERIFY(PLLocalization::availableLanguages().contains(PLLocalization::currentLanguage()));
    const QString locale = PLLocalization::localeIdentifier(); // which names the dictionary
    QVERIFY(locale == u"fr_FR" || locale == u"en_US");
    const QString before = PLPreferences::store().value(u"PLInterfaceLanguage"_s).toString();
    PLLocalization::setPreferredLanguage(value.toString());
    QCOMPARE(PLPreferences::store().value(u"PLInterfaceLanguage"_s).toString(), before);
}

void PLHostilePreferencesTest::framesOfWindows_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("NaN") << QByteArray("nan nan nan nan");
    QTest::newRow("cut off") << storedFrame(rect(10, 10, 700, 500)).left(20);
    QTest::newRow("garbage behind") << storedFrame(rect(10, 10, 700, 500)) + QByteArray(10'000, '\xFF');
    QTest::newRow("0 by 0") << storedFrame(QRect(10, 10, 0, 0));
    QTest::newRow("turned round") << storedFrame(rect(500, 500, -500, -500));
    QTest::newRow("far away") << storedFrame(QRect(1'000'000, 1'000'000, 900, 640));
    QTest::newRow("far away, negative") << storedFrame(QRect(-1'000'000, -1'000'000, 900, 640));
    QTest::newRow("above the screen") << storedFrame(QRect(10, -600, 700, 500));
    QTest::newRow("vast") << storedFrame(QRect(0, 0, 1'000'000, 1'000'000));
    QTest::newRow("as vast as can be") << storedFrame(rect(0, 0, INT_MAX - 1, INT_MAX - 1));
    QTest::newRow("vaster") << storedFrame(rect(INT_MIN, INT_MIN, INT_MAX, INT_MAX));
    QTest::newRow("at the end of numbers")
        << storedFrame(rect(INT_MAX - 900, INT_MAX - 640, INT_MAX, INT_MAX));
    QTest::newRow("at their beginning") << storedFrame(rect(INT_MIN, INT_MIN, INT_MIN + 900, INT_MIN + 640));
    QTest::newRow("another screen") << storedFrame(QRect(10, 10, 700, 500), 99, 0);
    QTest::newRow("a negative screen") << storedFrame(QRect(10, 10, 700, 500), INT_MIN, INT_MIN);
}

void PLHostilePreferencesTest::framesOfWindows()
{
    QFETCH(const QByteArray, frame);
    {
        PLAppDelegate delegate;
        delegate.showLibrary();
        QVERIFY(delegate.openFile(path(u"carnet"_s)));
    }
    // The names of the windows are those that they have just stored theirs under.
    const QStringList keys = PLPreferences::store().allKeys().filter(u"PLWindowFrame"_s);
    QCOMPARE(keys.size(), 2);
    for (const QString &key : keys)
        PLPreferences::store().setValue(key, frame);
    startProgram();
}

void PLHostilePreferencesTest::aVeryLongListOfNotebooks()
{
    QStringList list(longList, path(u"perdu"_s));
    list.append(path(u"carnet"_s));
    PLPreferences::store().setValue(u"PLRecentProjects"_s, list);
    PLPreferences::store().setValue(u"PLReopenProjects"_s, list.mid(0, longList));
    QElapsedTimer timer;
    timer.start();
    startProgram();
    QVERIFY2(timer.elapsed() < 20'000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(PLRecentProjects::paths().size(), 15); // the opening has shortened it
}

void PLHostilePreferencesTest::aNotebookWhoseFileIsAPipe()
{
    const QTemporaryDir folder;
    QVERIFY(QDir().mkpath(folder.filePath(u"Tuyau"_s)));
    QCOMPARE(mkfifo(QFile::encodeName(folder.filePath(u"Tuyau/projet.md"_s)).constData(), 0600), 0);
    PLPreferences::store().setValue(u"PLRecentProjects"_s, QStringList{folder.filePath(u"Tuyau"_s)});
    PLPreferences::store().setValue(u"PLReopenProjects"_s, QStringList{folder.filePath(u"Tuyau"_s)});
    startProgram(); // it would wait for ever
}

QTEST_MAIN(PLHostilePreferencesTest)
#include "PLHostilePreferencesTest.moc"
