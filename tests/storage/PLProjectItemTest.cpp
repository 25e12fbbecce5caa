// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLProjectItem.h"

#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QElapsedTimer>
#include <QTest>

#include <cerrno>
#include <limits>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class PLProjectItemTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nameGivesNumberAndTitle_data();
    void nameGivesNumberAndTitle();
    void aNumberAloneIsAChapterInTheInterfaceLanguage();
    void titleGivesFileName_data();
    void titleGivesFileName();
    void tagsAreNormalized_data();
    void tagsAreNormalized();

    void contentsAreReadAndWrittenBack_data();
    void contentsAreReadAndWrittenBack();
    void aPageInAnotherEncodingOpensAndIsSavedAsUTF8();
    void whatCannotBeReadIsAnError_data();
    void whatCannotBeReadIsAnError();
    void anEmptyPageIsNotAMissingOne();
    void writingANewPageDoesNotOverwrite();

    void tagsOfThePageAreRead_data();
    void tagsOfThePageAreRead();
    void tagsAreThoseOfTheWholeText_data();
    void tagsAreThoseOfTheWholeText();
    void tagsOfWhatCannotBeReadAreNone();
    void tagsOfALargePageAreReadFromItsStart();

    void sameFileIsSameStandardizedPath();
    void aNewURLMakesItAnotherPage();
    void descriptionNamesTitleAndNumber();

private:
    PLProjectItemPointer pageWith(const QByteArray &bytes) const
    {
        const QString path = m_folder->filePath(u"page.md"_s);
        return PLMakeFile(path, bytes)
                   ? PLProjectItem::itemWithURL(QUrl::fromLocalFile(path), PLSection::Notes)
                   : nullptr;
    }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLProjectItemTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_environment.setLanguage(u"fr"_s);
}

void PLProjectItemTest::nameGivesNumberAndTitle_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint64>("number");
    QTest::addColumn<QString>("title");
    QTest::newRow("number, dash, title") << u"07 - Le départ.md"_s << qint64(7) << u"Le départ"_s;
    QTest::newRow("number, full stop, title") << u"3.Retour.md"_s << qint64(3) << u"Retour"_s;
    QTest::newRow("only a number") << u"12.md"_s << qint64(12) << u"Chapitre 12"_s;
    QTest::newRow("a number and a dash") << u"12 - .md"_s << qint64(12) << u"Chapitre 12"_s;
    QTest::newRow("no number") << u"Prologue.md"_s << qint64(0) << u"Prologue"_s;
    QTest::newRow("zero") << u"0 - Prologue.md"_s << qint64(0) << u"Prologue"_s;
    QTest::newRow("en dash") << u"4 – A.md"_s << qint64(4) << u"A"_s;
    QTest::newRow("em dash") << u"4—A.md"_s << qint64(4) << u"A"_s;
    QTest::newRow("low line") << u"4_A.md"_s << qint64(4) << u"A"_s;
    QTest::newRow("no separator") << u"4A.md"_s << qint64(4) << u"A"_s;
    QTest::newRow("only one separator is taken") << u"4 - - A.md"_s << qint64(4) << u"- A"_s;
    QTest::newRow("spaces before") << u"  4 A.md"_s << qint64(4) << u"A"_s;
    QTest::newRow("a number inside") << u"Acte 2.md"_s << qint64(0) << u"Acte 2"_s;
    QTest::newRow("a full stop in the title") << u"112 - Fin. Ou pas.md"_s << qint64(112) << u"Fin. Ou pas"_s;
    QTest::newRow("capitals in the extension") << u"1 - A.MD"_s << qint64(1) << u"A"_s;
    QTest::newRow("a line end, which ends a match") << u"3 - a\nb.md"_s << qint64(0) << u"3 - a\nb"_s;
    QTest::newRow("Arabic digits") << u"١٢ - A.md"_s << qint64(12) << u"A"_s;
    QTest::newRow("digits beyond the first plane") << u"𝟙𝟚 - A.md"_s << qint64(12) << u"A"_s;
    const qint64 largest = std::numeric_limits<qint64>::max();
    QTest::newRow("the largest number") << u"9223372036854775807 - A.md"_s << largest << u"A"_s;
    QTest::newRow("one more") << u"9223372036854775808 - A.md"_s << largest << u"A"_s;
    QTest::newRow("200 digits") << QString(200, u'9') + u" - A.md"_s << largest << u"A"_s;
    QTest::newRow("signs of an address") << u"1 - 100%20 #? .md"_s << qint64(1) << u"100%20 #? "_s;
}

void PLProjectItemTest::nameGivesNumberAndTitle()
{
    QFETCH(QString, name);
    QFETCH(qint64, number);
    QFETCH(QString, title);
    const QUrl url = QUrl::fromLocalFile(u"/carnet/Livre/"_s + name);
    const PLProjectItemPointer chapter = PLProjectItem::itemWithURL(url, PLSection::Book);
    QCOMPARE(chapter->number(), number);
    QCOMPARE(chapter->title(), title);
    QCOMPARE(chapter->section(), PLSection::Book);
    QCOMPARE(chapter->fileURL(), url);

    const PLProjectItemPointer sheet = PLProjectItem::itemWithURL(url, PLSection::Sheets);
    QCOMPARE(sheet->number(), 0);
    QCOMPARE(sheet->title() + u".md"_s, name.chopped(2) + u"md"_s);
}

void PLProjectItemTest::aNumberAloneIsAChapterInTheInterfaceLanguage()
{
    m_environment.setLanguage(u"en"_s);
    const QUrl url = QUrl::fromLocalFile(u"/carnet/Livre/12.md"_s);
    QCOMPARE(PLProjectItem::itemWithURL(url, PLSection::Book)->title(), u"Chapter 12"_s);
}

void PLProjectItemTest::titleGivesFileName_data()
{
    QTest::addColumn<qint64>("number");
    QTest::addColumn<PLSection>("section");
    QTest::addColumn<QString>("name");
    QTest::newRow("a chapter") << qint64(3) << PLSection::Book << u"03 - La fuite.md"_s;
    QTest::newRow("a three-digit chapter") << qint64(112) << PLSection::Book << u"112 - La fuite.md"_s;
    QTest::newRow("an unnumbered chapter") << qint64(0) << PLSection::Book << u"La fuite.md"_s;
    QTest::newRow("a negative number") << qint64(-1) << PLSection::Book << u"La fuite.md"_s;
    QTest::newRow("another section") << qint64(3) << PLSection::Notes << u"La fuite.md"_s;
}

void PLProjectItemTest::titleGivesFileName()
{
    QFETCH(qint64, number);
    QFETCH(PLSection, section);
    QFETCH(QString, name);
    QCOMPARE(PLProjectItem::fileNameForTitle(u"La fuite"_s, number, section), name);
}

void PLProjectItemTest::tagsAreNormalized_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("tags");
    QTest::newRow("spaces, an empty one, a repeated one")
        << u"Paris, paris , ,Lyon"_s << QStringList{u"Paris"_s, u"Lyon"_s};
    QTest::newRow("nothing") << QString() << QStringList{};
    QTest::newRow("only commas") << u",,,"_s << QStringList{};
    QTest::newRow("the writer's order") << u"b, a"_s << QStringList{u"b"_s, u"a"_s};
    QTest::newRow("accents make a difference") << u"été, ETE, ÉTÉ"_s << QStringList{u"été"_s, u"ETE"_s};
    QTest::newRow("spaces inside") << u"la  mer"_s << QStringList{u"la  mer"_s};
}

void PLProjectItemTest::tagsAreNormalized()
{
    QFETCH(QString, text);
    QFETCH(QStringList, tags);
    QCOMPARE(PLProjectItem::tagsFromString(text), tags);
    QCOMPARE(PLProjectItem::stringFromTags(tags), tags.join(u", "_s));
    QCOMPARE(PLProjectItem::normalizedTags({u" a,b "_s, u"\nA B\t"_s, u","_s}),
             (QStringList{u"a b"_s, u" "_s})); // a comma alone is trimmed of nothing
}

void PLProjectItemTest::contentsAreReadAndWrittenBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a text") << QByteArray("# Été\n\ntexte\n");
    QTest::newRow("a byte-order mark") << QByteArray("\xEF\xBB\xBF---\ntags: a\n---\n");
    QTest::newRow("every line end") << QByteArray("a\r\nb\rc\nd");
    QTest::newRow("no-break spaces and separators") << u"a\u00A0b\u202Fc\u2028d\u2029e"_s.toUtf8();
    QTest::newRow("characters that are none") << u"\uFDD0\uFDD1\uFFFE"_s.toUtf8();
    QTest::newRow("a NUL") << QByteArray("a\0b", 3);
    QTest::newRow("emoji") << u"👩‍👩‍👧‍👦"_s.toUtf8();
}

void PLProjectItemTest::contentsAreReadAndWrittenBack()
{
    QFETCH(QByteArray, bytes);
    const PLProjectItemPointer page = pageWith(bytes);
    const QString text = page->readContents();
    QCOMPARE(text.toUtf8(), bytes);
    QVERIFY(page->writeContents(text));
    QCOMPARE(PLBytesOf(PLStandardizedPath(page->fileURL())), bytes);
}

void PLProjectItemTest::aPageInAnotherEncodingOpensAndIsSavedAsUTF8()
{
    const PLProjectItemPointer page = pageWith("\xC9t\xE9\n");
    QCOMPARE(page->readContents(), u"Été\n"_s);
    QVERIFY(page->writeContents(page->readContents()));
    QCOMPARE(PLBytesOf(PLStandardizedPath(page->fileURL())), u"Été\n"_s.toUtf8());
}

void PLProjectItemTest::whatCannotBeReadIsAnError_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("code");
    QTest::newRow("nothing") << u"nothing.md"_s << ENOENT;
    QTest::newRow("a folder") << u"folder.md"_s << EISDIR;
    QTest::newRow("a pipe") << u"pipe.md"_s << EINVAL;
    QTest::newRow("broken UTF-16") << u"broken.md"_s << EILSEQ;
}

void PLProjectItemTest::whatCannotBeReadIsAnError()
{
    QFETCH(QString, name);
    QFETCH(int, code);
    QVERIFY(QDir().mkpath(m_folder->filePath(u"folder.md"_s)));
    QCOMPARE(::mkfifo(QFile::encodeName(m_folder->filePath(u"pipe.md"_s)).constData(), 0600), 0);
    QVERIFY(PLMakeFile(m_folder->filePath(u"broken.md"_s), QByteArray("\xFF\xFE\x00", 3)));
    const auto page =
        PLProjectItem::itemWithURL(QUrl::fromLocalFile(m_folder->filePath(name)), PLSection::Notes);
    PLError error;
    QVERIFY(page->readContents(&error).isNull());
    QCOMPARE(error.code, code);
    QCOMPARE(page->readTags(), QStringList{});
}

void PLProjectItemTest::anEmptyPageIsNotAMissingOne()
{
    const QString text = pageWith("")->readContents();
    QVERIFY(text.isEmpty());
    QVERIFY(!text.isNull());
}

void PLProjectItemTest::writingANewPageDoesNotOverwrite()
{
    const PLProjectItemPointer page = pageWith("old");
    PLError error;
    QVERIFY(!page->writeContents(u"new"_s, &error, PLWriteMode::CreateNew));
    QCOMPARE(error.code, EEXIST);
    QCOMPARE(page->readContents(), u"old"_s);
}

void PLProjectItemTest::tagsOfThePageAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("tags");
    const QStringList ab{u"a"_s, u"b"_s};
    const QStringList summer{u"été"_s};
    QTest::newRow("a repeated tag") << QByteArray("---\ntags: a, A, b\n---\n") << ab;
    QTest::newRow("capitals in the key") << QByteArray("---\nTags: a, b\n---\n") << ab;
    QTest::newRow("no tags in the header") << QByteArray("---\ntype: lieu\n---\n") << QStringList{};
    QTest::newRow("no header") << QByteArray("tags: a, b\n") << QStringList{};
    QTest::newRow("an empty page") << QByteArray("") << QStringList{};
    QTest::newRow("a header that is never closed") << QByteArray("---\ntags: a, b\n") << QStringList{};
    QTest::newRow("a scene break first") << QByteArray("---\n\ntags: a\n") << QStringList{};
    QTest::newRow("dashes first") << QByteArray("----\ntags: a\n---\n") << QStringList{};
    QTest::newRow("carriage returns") << QByteArray("---\r\ntags: a, b\r\n---\r\n\r\ntext") << ab;
    QTest::newRow("no line end at the end") << QByteArray("---\ntags: a, b\n---") << ab;
    QTest::newRow("a carriage return at the end") << QByteArray("---\ntags: a, b\n---\r") << QStringList{};
    QTest::newRow("a byte-order mark") << QByteArray("\xEF\xBB\xBF---\ntags: a, b\n---\n") << ab;
    QTest::newRow("UTF-8") << QByteArray("---\ntags: \xC3\xA9t\xC3\xA9\n---\n") << summer;
    QTest::newRow("Latin-1") << QByteArray("---\ntags: \xE9t\xE9\n---\n\xE9") << summer;
    QByteArray wide = QByteArray("\xFF\xFE", 2);
    for (const char character : QByteArray("---\ntags: a, b\n---\n"))
        wide += QByteArray(1, character) + QByteArray(1, '\0');
    QTest::newRow("UTF-16") << wide << ab;
    const QByteArray filler = "x: " + QByteArray(4000, 'y') + '\n';
    QTest::newRow("a header longer than a chunk") << "---\n" + filler + filler + "tags: a, b\n---\n" << ab;
    QTest::newRow("a character at the end of a chunk")
        << QByteArray("---\nx: ") + QByteArray(504, 'y') + "\xC3\xA9\ntags: \xC3\xA9t\xC3\xA9\n---\n"
        << summer;
}

void PLProjectItemTest::tagsOfThePageAreRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, tags);
    QCOMPARE(pageWith(bytes)->readTags(), tags);
}

void PLProjectItemTest::tagsAreThoseOfTheWholeText_data()
{
    QTest::addColumn<int>("position");
    for (const int chunk : {512, 4096}) {
        for (int position = chunk - 26; position <= chunk + 14; ++position)
            QTest::addRow("the fence ends at %d", position) << position;
    }
}

/// Moves the end of the header over the end of the first two chunks, byte by byte.
void PLProjectItemTest::tagsAreThoseOfTheWholeText()
{
    QFETCH(int, position);
    const QByteArray start = "---\ntags: a, b\nx: ";
    for (const char *end : {"\n---\n", "\r\n---\r\n", "\n---", "\n----\n---\n"}) {
        const QByteArray header = start + QByteArray(position - start.size() - qstrlen(end), 'y') + end;
        QCOMPARE(header.size(), position);
        QCOMPARE(pageWith(header)->readTags(), (QStringList{u"a"_s, u"b"_s}));
        const bool isStillClosed = header.endsWith('\n');
        QCOMPARE(pageWith(header + "text\n")->readTags().isEmpty(), !isStillClosed);
    }
}

void PLProjectItemTest::tagsOfWhatCannotBeReadAreNone()
{
    const QUrl url = QUrl::fromLocalFile(m_folder->filePath(u"nothing.md"_s));
    QCOMPARE(PLProjectItem::itemWithURL(url, PLSection::Notes)->readTags(), QStringList{});
}

void PLProjectItemTest::tagsOfALargePageAreReadFromItsStart()
{
    const QByteArray header = "---\ntags: a\n---\n";
    const PLProjectItemPointer page = pageWith(header);
    QFile file(PLStandardizedPath(page->fileURL()));
    QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(200'000'000)); // a hole: no disk is used
    QElapsedTimer timer;
    timer.start();
    for (int count = 0; count < 100; ++count)
        QCOMPARE(page->readTags(), QStringList{u"a"_s});
    QVERIFY(timer.elapsed() < 1000); // reading it whole takes longer than this for one
}

void PLProjectItemTest::sameFileIsSameStandardizedPath()
{
    const auto page = [](const QString &path) {
        return PLProjectItem::itemWithURL(QUrl::fromLocalFile(path), PLSection::Notes);
    };
    const PLProjectItemPointer marie = page(u"/a/Marie.md"_s);
    QVERIFY(marie->isSameFileAsItem(marie.get()));
    QVERIFY(marie->isSameFileAsItem(page(u"/a/b/../Marie.md"_s).get()));
    QVERIFY(!marie->isSameFileAsItem(page(u"/a/marie.md"_s).get()));
    QVERIFY(!marie->isSameFileAsItem(page(u"/b/Marie.md"_s).get()));
    QVERIFY(!marie->isSameFileAsItem(nullptr));
}

void PLProjectItemTest::aNewURLMakesItAnotherPage()
{
    const auto page =
        PLProjectItem::itemWithURL(QUrl::fromLocalFile(u"/a/Livre/01 - A.md"_s), PLSection::Book);
    page->setFileURL(QUrl::fromLocalFile(u"/a/Livre/02 - B.md"_s));
    QCOMPARE(page->number(), 2);
    QCOMPARE(page->title(), u"B"_s);
    QCOMPARE(page->section(), PLSection::Book);
}

void PLProjectItemTest::descriptionNamesTitleAndNumber()
{
    const QUrl url = QUrl::fromLocalFile(u"/a/Livre/07 - Le départ.md"_s);
    QCOMPARE(PLProjectItem::itemWithURL(url, PLSection::Book)->debugDescription(),
             u"<PLProjectItem Le départ (7)>"_s);
}

QTEST_GUILESS_MAIN(PLProjectItemTest)
#include "PLProjectItemTest.moc"
