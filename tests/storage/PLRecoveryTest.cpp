// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLRecovery.h"

#include "storage/PLFiles.h"
#include "storage/PLProject.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A temporary name that says this old name.
QString leftOver(const QByteArray &oldName)
{
    const QByteArray encoded =
        oldName.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    return u"aquilane-0123456789abcdefABCD-_."_s + QString::fromLatin1(encoded) + u".tmp"_s;
}

} // namespace

class PLRecoveryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void temporaryNamesFitAndAreUnique_data();
    void temporaryNamesFitAndAreUnique();
    void aCrashInARenameLosesNoPage_data();
    void aCrashInARenameLosesNoPage();
    void leftOversGetANameOfAPage_data();
    void leftOversGetANameOfAPage();
    void otherFilesAreLeftAlone();
    void everySectionIsLookedAt();
    void unfinishedWritesAreSwept();
    void recoveringTwiceChangesNothingMore();
    void aListingGivesAPageItsNameBack();
    void aRenameFindsThePageUnderItsTemporaryName();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    bool open() const
    {
        return PLProject::openProjectAtURL(QUrl::fromLocalFile(m_folder->path())) != nullptr;
    }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLRecoveryTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(PLMakeFile(path(u"projet.md"_s)));
}

void PLRecoveryTest::temporaryNamesFitAndAreUnique_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a short name") << u"marie.md"_s;
    QTest::newRow("the longest name that is written in") << QString(160, u'x') + u".md"_s;
    QTest::newRow("the longest name of all") << QString(252, u'x') + u".md"_s;
}

void PLRecoveryTest::temporaryNamesFitAndAreUnique()
{
    QFETCH(QString, name);
    const QString temporary = PLTemporaryPathForRename(path(name));
    QCOMPARE(QFileInfo(temporary).path(), m_folder->path());
    QVERIFY(QFileInfo(temporary).fileName().toUtf8().size() <= 255);
    QVERIFY(QFileInfo(temporary).fileName().startsWith(u"aquilane-"_s));
    QVERIFY(temporary.endsWith(u".tmp"_s));
    QVERIFY(temporary != PLTemporaryPathForRename(path(name)));
}

void PLRecoveryTest::aCrashInARenameLosesNoPage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("recovered");
    QTest::newRow("a page") << u"marie.md"_s << u"marie.md"_s;
    QTest::newRow("a chapter") << u"03 - la fuite.md"_s << u"03 - la fuite.md"_s;
    QTest::newRow("signs of an address") << u"100%20 #1?.MD"_s << u"100%20 #1?.MD"_s;
    QTest::newRow("a line end") << u"a\nb.md"_s << u"a\nb.md"_s;
    QTest::newRow("a name too long to be written in") << QString(80, u'漢') + u".md"_s << u"Sans titre.md"_s;
}

/// A rename whose second move never came.
void PLRecoveryTest::aCrashInARenameLosesNoPage()
{
    QFETCH(QString, name);
    QFETCH(QString, recovered);
    const QString page = path(u"Livre/"_s + name);
    QVERIFY(PLMakeFile(page, "text"));
    QVERIFY(PLMoveFile(page, PLTemporaryPathForRename(page)));
    QVERIFY(open());
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), QStringList{recovered});
    QCOMPARE(PLBytesOf(path(u"Livre/"_s + recovered)), "text");
}

void PLRecoveryTest::leftOversGetANameOfAPage_data()
{
    QTest::addColumn<QString>("leftOverName");
    QTest::addColumn<QString>("recovered");
    QTest::newRow("the old name") << leftOver("03 - A.md") << u"03 - A.md"_s;
    QTest::newRow("a chapter's name that is taken") << leftOver("01 - Pris.md") << u"01 - Pris 2.md"_s;
    QTest::newRow("an unnumbered name that is taken") << leftOver("Pris.md") << u"Pris 2.md"_s;
    QTest::newRow("no old name") << u"aquilane-0123456789abcdefABCD-_.tmp"_s << u"Sans titre.md"_s;
    QTest::newRow("a way out of the folder") << leftOver("../../evil.md") << u"Sans titre.md"_s;
    QTest::newRow("an absolute path") << leftOver("/tmp/evil.md") << u"Sans titre.md"_s;
    QTest::newRow("a hidden name") << leftOver(".evil.md") << u"Sans titre.md"_s;
    QTest::newRow("not a page's name") << leftOver("evil.sh") << u"Sans titre.md"_s;
    QTest::newRow("a NUL") << leftOver(QByteArray("a\0.md", 5)) << u"Sans titre.md"_s;
    QTest::newRow("not UTF-8") << leftOver("caf\xE9.md") << u"Sans titre.md"_s;
    QTest::newRow("not base64") << u"aquilane-0123456789abcdefABCD-_.a.tmp"_s << u"Sans titre.md"_s;
    QTest::newRow("a long name") << leftOver(QByteArray(150, 'x') + ".md") << QString(150, u'x') + u".md"_s;
}

void PLRecoveryTest::leftOversGetANameOfAPage()
{
    QFETCH(QString, leftOverName);
    QFETCH(QString, recovered);
    QVERIFY(PLMakeFile(path(u"Livre/01 - Pris.md"_s), "other"));
    QVERIFY(PLMakeFile(path(u"Livre/Pris.md"_s), "other"));
    QVERIFY(PLMakeFile(path(u"Livre/"_s + leftOverName), "text"));
    QVERIFY(open());
    QStringList expected{u"01 - Pris.md"_s, u"Pris.md"_s, recovered};
    expected.sort();
    QCOMPARE(PLNamesIn(path(u"Livre"_s)), expected);
    QCOMPARE(PLBytesOf(path(u"Livre/"_s + recovered)), "text");
    QCOMPARE(PLBytesOf(path(u"Livre/Pris.md"_s)), "other");
    QCOMPARE(PLBytesOf(path(u"Livre/01 - Pris.md"_s)), "other");
}

void PLRecoveryTest::otherFilesAreLeftAlone()
{
    QStringList names{
        u"aquilane-.tmp"_s, u"aquilane-notes.tmp"_s, u"aquilane-0123456789abcdefABCD-_.YS5tZA.tmp.md"_s,
        u"xaquilane-0123456789abcdefABCD-_.YS5tZA.tmp"_s, u"aquilane-0123456789abcdefABCD-_.YS5tZA.tmp~"_s};
    names.sort();
    for (const QString &name : names)
        QVERIFY(PLMakeFile(path(u"Notes/"_s + name), "a"));
    QVERIFY(open());
    QCOMPARE(PLNamesIn(path(u"Notes"_s)), names);
}

void PLRecoveryTest::everySectionIsLookedAt()
{
    for (const PLSection section : PLAllSections)
        QVERIFY(PLMakeFile(path(PLProject::folderNameForSection(section) + u'/' + leftOver("a.md")), "a"));
    QVERIFY(open());
    for (const PLSection section : PLAllSections)
        QCOMPARE(PLNamesIn(path(PLProject::folderNameForSection(section))), QStringList{u"a.md"_s});
}

void PLRecoveryTest::unfinishedWritesAreSwept()
{
    const QString name = u".aquilane-0123abcd.tmp"_s;
    QVERIFY(PLMakeFile(path(name)));
    QVERIFY(PLMakeFile(path(u"Photos/"_s + name))); // not a folder of ours
    for (const PLSection section : PLAllSections)
        QVERIFY(PLMakeFile(path(PLProject::folderNameForSection(section) + u'/' + name)));
    QVERIFY(open());
    QVERIFY(!QFile::exists(path(name)));
    QVERIFY(QFile::exists(path(u"Photos/"_s + name)));
    for (const PLSection section : PLAllSections)
        QCOMPARE(PLNamesIn(path(PLProject::folderNameForSection(section))), QStringList{});
}

/// As when the disk has failed in the middle of a change of case and works again: the notebook stays open.
void PLRecoveryTest::aListingGivesAPageItsNameBack()
{
    const PLProject project(QUrl::fromLocalFile(m_folder->path()));
    QVERIFY(PLMakeFile(path(u"Lieux/"_s + leftOver("port.md")), "quai"));
    const std::vector<PLProjectItemPointer> items = project.itemsInSection(PLSection::Places);
    QCOMPARE(items.size(), size_t(1));
    QCOMPARE(items.front()->title(), u"port"_s);
    QCOMPARE(PLBytesOf(path(u"Lieux/port.md"_s)), "quai");
}

void PLRecoveryTest::aRenameFindsThePageUnderItsTemporaryName()
{
    const PLProject project(QUrl::fromLocalFile(m_folder->path()));
    QVERIFY(PLMakeFile(path(u"Lieux/"_s + leftOver("port.md")), "quai"));
    const PLProjectItemPointer item =
        PLProjectItem::itemWithURL(QUrl::fromLocalFile(path(u"Lieux/port.md"_s)), PLSection::Places);
    QVERIFY(project.renameItem(*item, u"Port"_s));
    QCOMPARE(PLNamesIn(path(u"Lieux"_s)), QStringList{u"Port.md"_s});
}

void PLRecoveryTest::recoveringTwiceChangesNothingMore()
{
    QVERIFY(PLMakeFile(path(u"Notes/"_s + leftOver("a.md")), "1"));
    QVERIFY(PLMakeFile(path(u"Notes/aquilane-0123456789abcdefABCDEF.tmp"_s), "2"));
    QVERIFY(open());
    const QStringList names{u"Sans titre.md"_s, u"a.md"_s};
    QCOMPARE(PLNamesIn(path(u"Notes"_s)), names);
    QVERIFY(open());
    QCOMPARE(PLNamesIn(path(u"Notes"_s)), names);
}

QTEST_GUILESS_MAIN(PLRecoveryTest)
#include "PLRecoveryTest.moc"
