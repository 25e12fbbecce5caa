// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLRecentProjects.h"

#include "support/PLTestEnvironment.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString key = u"PLRecentProjects"_s;

QUrl folder(const QString &path)
{
    return QUrl::fromLocalFile(path);
}

} // namespace

class PLRecentProjectsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theListIsEmptyAtFirst();
    void theLastAddedComesFirst();
    void addingTwiceLeavesOneEntryInFront();
    void aSixteenthFolderDropsTheOldest();
    void pathsAreStandardized_data();
    void pathsAreStandardized();
    void pathsDifferByCase();
    void removingDropsTheEntry();
    void removingWhatIsNotThereChangesNothing();
    void urlsAreThoseOfFolders();
    void entriesOfAnotherKindAreKeptButSkipped();
    void bytesByHandAreOneEntry();
    void theListSurvivesTheProgram_data();
    void theListSurvivesTheProgram();
    void aListMadeLongerByHandIsCutAtTheNextAdding();

private:
    /// Makes the preferences be read from the disk, as by the next start of the program.
    void startAgain() { PLPreferences::useFile(m_environment.preferencesFile()); }

    PLTestEnvironment m_environment;
};

void PLRecentProjectsTest::init()
{
    m_environment.forgetPreferences();
}

void PLRecentProjectsTest::theListIsEmptyAtFirst()
{
    QCOMPARE(PLRecentProjects::paths(), QStringList{});
    QCOMPARE(PLRecentProjects::URLs(), QList<QUrl>{});
}

void PLRecentProjectsTest::theLastAddedComesFirst()
{
    PLRecentProjects::addURL(folder(u"/a/Un"_s));
    PLRecentProjects::addURL(folder(u"/a/Deux"_s));
    QCOMPARE(PLRecentProjects::paths(), (QStringList{u"/a/Deux"_s, u"/a/Un"_s}));
}

void PLRecentProjectsTest::addingTwiceLeavesOneEntryInFront()
{
    PLRecentProjects::addURL(folder(u"/a/Un"_s));
    PLRecentProjects::addURL(folder(u"/a/Deux"_s));
    PLRecentProjects::addURL(folder(u"/a/Un/"_s));
    QCOMPARE(PLRecentProjects::paths(), (QStringList{u"/a/Un"_s, u"/a/Deux"_s}));
}

void PLRecentProjectsTest::aSixteenthFolderDropsTheOldest()
{
    QStringList expected;
    for (int number = 1; number <= 40; ++number) {
        const QString path = u"/a/Roman %1"_s.arg(number);
        PLRecentProjects::addURL(folder(path));
        expected.prepend(path);
        expected = expected.first(qMin(15, expected.size()));
        QCOMPARE(PLRecentProjects::paths(), expected);
    }
    QCOMPARE(PLRecentProjects::paths().size(), 15);
    QCOMPARE(PLRecentProjects::paths().last(), u"/a/Roman 26"_s);
}

void PLRecentProjectsTest::pathsAreStandardized_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a way round") << u"/a/Roman/../Roman"_s;
    QTest::newRow("a slash at the end") << u"/a/Roman/"_s;
    QTest::newRow("full stops and slashes") << u"/a/.//Roman/."_s;
}

void PLRecentProjectsTest::pathsAreStandardized()
{
    QFETCH(QString, path);
    PLRecentProjects::addURL(folder(path));
    QCOMPARE(PLRecentProjects::paths(), QStringList{u"/a/Roman"_s});
    PLRecentProjects::addURL(folder(u"/a/Roman"_s));
    QCOMPARE(PLRecentProjects::paths(), QStringList{u"/a/Roman"_s});
    PLRecentProjects::removeURL(folder(path));
    QCOMPARE(PLRecentProjects::paths(), QStringList{});
}

void PLRecentProjectsTest::pathsDifferByCase()
{
    PLRecentProjects::addURL(folder(u"/a/roman"_s));
    PLRecentProjects::addURL(folder(u"/a/Roman"_s));
    QCOMPARE(PLRecentProjects::paths(), (QStringList{u"/a/Roman"_s, u"/a/roman"_s}));
}

void PLRecentProjectsTest::removingDropsTheEntry()
{
    PLRecentProjects::addURL(folder(u"/a/Un"_s));
    PLRecentProjects::addURL(folder(u"/a/Deux"_s));
    PLRecentProjects::removeURL(folder(u"/a/Deux"_s));
    QCOMPARE(PLRecentProjects::paths(), QStringList{u"/a/Un"_s});
    PLRecentProjects::removeURL(folder(u"/a/Un"_s));
    startAgain();
    QCOMPARE(PLRecentProjects::paths(), QStringList{});
}

void PLRecentProjectsTest::removingWhatIsNotThereChangesNothing()
{
    PLRecentProjects::removeURL(folder(u"/a/Un"_s));
    QCOMPARE(PLRecentProjects::paths(), QStringList{});
    PLRecentProjects::addURL(folder(u"/a/Un"_s));
    PLRecentProjects::removeURL(folder(u"/a/Deux"_s));
    QCOMPARE(PLRecentProjects::paths(), QStringList{u"/a/Un"_s});
}

void PLRecentProjectsTest::urlsAreThoseOfFolders()
{
    PLRecentProjects::addURL(folder(u"/a/100%25 #1?"_s));
    PLRecentProjects::addURL(folder(u"/"_s));
    QCOMPARE(PLRecentProjects::URLs(), (QList<QUrl>{folder(u"/"_s), folder(u"/a/100%25 #1?/"_s)}));
    QCOMPARE(PLRecentProjects::URLs().last().toLocalFile(), u"/a/100%25 #1?/"_s);
}

void PLRecentProjectsTest::entriesOfAnotherKindAreKeptButSkipped()
{
    const QVariantMap other{{u"path"_s, u"/a/Autre"_s}};
    PLPreferences::store().setValue(key, QVariantList{u"/a/Un"_s, other, 42, u"/a/Deux"_s});
    QCOMPARE(PLRecentProjects::URLs(), (QList<QUrl>{folder(u"/a/Un/"_s), folder(u"/a/Deux/"_s)}));
    PLRecentProjects::addURL(folder(u"/a/Deux"_s));
    QCOMPARE(PLPreferences::store().value(key).toList(), (QVariantList{u"/a/Deux"_s, u"/a/Un"_s, other, 42}));
    QCOMPARE(PLRecentProjects::paths(), (QStringList{u"/a/Deux"_s, u"/a/Un"_s}));
    startAgain();
    QCOMPARE(PLPreferences::store().value(key).toList()[2].toMap(), other);
    PLRecentProjects::removeURL(folder(u"/a/Un"_s));
    QCOMPARE(PLPreferences::store().value(key).toList()[1].toMap(), other);
}

void PLRecentProjectsTest::bytesByHandAreOneEntry()
{
    PLPreferences::store().setValue(key, "abc"_ba);
    PLRecentProjects::addURL(QUrl::fromLocalFile(u"/a/Un"_s));
    QCOMPARE(PLPreferences::store().value(key).toList(), (QVariantList{u"/a/Un"_s, "abc"_ba}));
    startAgain();
    QCOMPARE(PLRecentProjects::paths(), QStringList{u"/a/Un"_s});
}

void PLRecentProjectsTest::theListSurvivesTheProgram_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::newRow("one") << QStringList{u"/a/Roman"_s};
    QTest::newRow("two") << QStringList{u"/a/Roman"_s, u"/b/Roman"_s};
    QTest::newRow("signs of the file format")
        << QStringList{u"/a/Un, deux; \"trois\" = \\4"_s, u"/@Variant(x)"_s, u"/a\nb"_s, u"/%20"_s, u"/#;"_s};
    QTest::newRow("one with a comma") << QStringList{u"/a/Un, deux"_s};
    QTest::newRow("one with a list in it") << QStringList{u"/a, /b"_s};
    QTest::newRow("other scripts") << QStringList{u"/小説/🐉 é"_s};
}

void PLRecentProjectsTest::theListSurvivesTheProgram()
{
    QFETCH(QStringList, paths);
    for (qsizetype index = paths.size() - 1; index >= 0; --index)
        PLRecentProjects::addURL(folder(paths[index]));
    startAgain();
    QCOMPARE(PLRecentProjects::paths(), paths);
    PLRecentProjects::addURL(folder(u"/nouveau"_s));
    startAgain();
    QCOMPARE(PLRecentProjects::paths(), QStringList{u"/nouveau"_s} + paths);
}

void PLRecentProjectsTest::aListMadeLongerByHandIsCutAtTheNextAdding()
{
    QVariantList entries;
    for (int number = 1; number <= 30; ++number)
        entries.append(u"/a/%1"_s.arg(number));
    PLPreferences::store().setValue(key, entries);
    PLRecentProjects::addURL(folder(u"/a/20"_s));
    QCOMPARE(PLRecentProjects::paths().size(), 15);
    QCOMPARE(PLRecentProjects::paths().first(), u"/a/20"_s);
    QCOMPARE(PLRecentProjects::paths().last(), u"/a/14"_s);
}

QTEST_GUILESS_MAIN(PLRecentProjectsTest)
#include "PLRecentProjectsTest.moc"
