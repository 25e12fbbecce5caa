// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFileNames.h"

#include "storage/PLFiles.h"
#include "storage/PLProjectItem.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestFileName = 240; // bytes

/// A title made of what has given file names trouble.
QString randomTitle(QRandomGenerator &random)
{
    static const QStringList pieces{u"a"_s,
                                    u"É"_s,
                                    u" "_s,
                                    u"."_s,
                                    u"/"_s,
                                    u"\\"_s,
                                    u":"_s,
                                    u"\n"_s,
                                    u"\t"_s,
                                    u"\u00A0"_s,
                                    u"😀"_s,
                                    u"👩‍👩‍👧‍👦"_s,
                                    u"e\u0301"_s,
                                    u"漢"_s,
                                    u"\u2028"_s,
                                    u"-"_s,
                                    u"%20"_s,
                                    u"#"_s,
                                    u"\0"_s,
                                    u"\u202E"_s,
                                    u"Marie"_s,
                                    u".."_s,
                                    u"1"_s,
                                    QString(QChar(0xD800)),
                                    QString(QChar(0xDC00)),
                                    u"العربية"_s,
                                    u"\uFEFF"_s,
                                    u"\x7F"_s,
                                    u"\r\n"_s,
                                    u"XXXXXX"_s,
                                    u"\""_s,
                                    u"~"_s};
    QString title;
    const int count = random.bounded(60);
    for (int index = 0; index < count; ++index)
        title += pieces[random.bounded(int(pieces.size()))];
    return title;
}

QString fileNameOf(const QUrl &url)
{
    const QString path = PLStandardizedPath(url);
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

} // namespace

class PLFileNamesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void titlesAreMadeSafe_data();
    void titlesAreMadeSafe();
    void anEmptyTitleIsUntitledInTheInterfaceLanguage();
    void everyTitleGivesANameThatEverySystemTakes();
    void titlesBecomePagesOnTheDiskAndComeBack();

    void aFreeNameIsTheTitleOrTheNextNumber();
    void aDanglingLinkTakesAName();
    void aPageMayKeepItsName_data();
    void aPageMayKeepItsName();
    void aLongTitleIsCutAtAGrapheme_data();
    void aLongTitleIsCutAtAGrapheme();
    void cutTitlesAreNumberedToo();
    void aLongNameMadeElsewhereIsKept();

private:
    QUrl folder() const { return QUrl::fromLocalFile(m_folder->path()); }

    PLTestEnvironment m_environment;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLFileNamesTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_environment.setLanguage(u"fr"_s);
}

void PLFileNamesTest::titlesAreMadeSafe_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::newRow("as it is") << u"La fuite"_s << u"La fuite"_s;
    QTest::newRow("a way out of the folder") << u"../Secret: v1?"_s << u"-Secret- v1-"_s;
    QTest::newRow("only spaces") << u"  \t \u00A0"_s << u"Sans titre"_s;
    QTest::newRow("no title") << QString() << u"Sans titre"_s;
    QTest::newRow("only full stops") << u"..."_s << u"Sans titre"_s;
    QTest::newRow("every refused character") << u"a/\\:*?\"<>|b"_s << u"a---------b"_s;
    QTest::newRow("line ends inside") << u"a\nb\r\nc\u2028d"_s << u"a b  c d"_s;
    QTest::newRow("line ends around") << u"\n a \r\n"_s << u"a"_s;
    QTest::newRow("leading full stops") << u"..brouillon"_s << u"brouillon"_s;
    QTest::newRow("a full stop behind a space") << u". .x"_s << u"x"_s;
    QTest::newRow("full stops inside and last") << u"a.b."_s << u"a.b."_s;
    QTest::newRow("a space after full stops") << u". a"_s << u"a"_s;
    QTest::newRow("120 units") << QString(120, u'x') << QString(120, u'x');
    QTest::newRow("121 units") << QString(121, u'x') << QString(120, u'x');
    QTest::newRow("a space at the cut") << QString(119, u'x') + u" yy"_s << QString(119, u'x');
    QTest::newRow("a surrogate pair at the cut") << QString(119, u'x') + u"😀"_s << QString(119, u'x');
    QTest::newRow("NUL") << u"a\0b"_s << u"a-b"_s;
    QTest::newRow("accents stay") << u"Éléonore"_s << u"Éléonore"_s;
}

void PLFileNamesTest::titlesAreMadeSafe()
{
    QFETCH(QString, title);
    QFETCH(QString, name);
    QCOMPARE(PLSanitizedFileName(title), name);
}

void PLFileNamesTest::anEmptyTitleIsUntitledInTheInterfaceLanguage()
{
    QCOMPARE(PLSanitizedFileName(u" "_s), u"Sans titre"_s);
    m_environment.setLanguage(u"en"_s);
    QCOMPARE(PLSanitizedFileName(u" "_s), u"Untitled"_s);
}

void PLFileNamesTest::everyTitleGivesANameThatEverySystemTakes()
{
    QRandomGenerator random(20260101);
    for (int count = 0; count < 10'000; ++count) {
        const QString title = randomTitle(random);
        const QString name = PLSanitizedFileName(title);
        QVERIFY2(!name.isEmpty() && name.size() <= 120, qPrintable(title));
        QVERIFY2(!name.startsWith(u'.') && !name.startsWith(u' ') && !name.endsWith(u' '), qPrintable(title));
        QVERIFY2(name.isValidUtf16(), qPrintable(title));
        for (const QChar character : name) {
            QVERIFY2(!u"/\\:*?\"<>|\n\r"_s.contains(character) && !character.isNull(), qPrintable(title));
        }
        QCOMPARE(PLSanitizedFileName(name), name); // safe already

        const PLSection section = count % 2 == 0 ? PLSection::Book : PLSection::Notes;
        const qint64 number = random.bounded(200);
        const QUrl url = PLAvailableURL(folder(), name, number, section, QUrl());
        const QString fileName = fileNameOf(url);
        QVERIFY2(fileName.toUtf8().size() <= longestFileName, qPrintable(title));
        QCOMPARE(PLStandardizedPath(url), m_folder->path() + u'/' + fileName); // not out of the folder
        QVERIFY2(fileName.endsWith(u".md"_s) && !fileName.startsWith(u'.'), qPrintable(title));
    }
}

void PLFileNamesTest::titlesBecomePagesOnTheDiskAndComeBack()
{
    QRandomGenerator random(42);
    QStringList names;
    for (int count = 0; count < 500; ++count) {
        const QString title = PLSanitizedFileName(randomTitle(random));
        const QUrl url = PLAvailableURL(folder(), title, 0, PLSection::Notes, QUrl());
        QVERIFY(PLMakeFile(PLStandardizedPath(url), "a"));
        names.append(fileNameOf(url));
        QCOMPARE(PLProjectItem::itemWithURL(url, PLSection::Notes)->title() + u".md"_s, names.last());
    }
    QStringList onDisk = PLFileNamesInFolder(m_folder->path());
    names.sort();
    onDisk.sort();
    QCOMPARE(onDisk, names); // each under the name it was given, and none over another
}

void PLFileNamesTest::aFreeNameIsTheTitleOrTheNextNumber()
{
    const auto nextName = [this] {
        return fileNameOf(PLAvailableURL(folder(), u"Marie"_s, 0, PLSection::Characters, QUrl()));
    };
    for (const QString &name : {u"Marie.md"_s, u"Marie 2.md"_s, u"Marie 3.md"_s}) {
        QCOMPARE(nextName(), name);
        QVERIFY(PLMakeFile(m_folder->filePath(name)));
    }
    QVERIFY(QFile::remove(m_folder->filePath(u"Marie 2.md"_s)));
    QCOMPARE(nextName(), u"Marie 2.md"_s);
    QCOMPARE(fileNameOf(PLAvailableURL(folder(), u"Marie"_s, 7, PLSection::Book, QUrl())),
             u"07 - Marie.md"_s);
}

void PLFileNamesTest::aDanglingLinkTakesAName()
{
    QVERIFY(QFile::link(u"not there"_s, m_folder->filePath(u"Marie.md"_s)));
    QCOMPARE(fileNameOf(PLAvailableURL(folder(), u"Marie"_s, 0, PLSection::Characters, QUrl())),
             u"Marie 2.md"_s);
}

void PLFileNamesTest::aPageMayKeepItsName_data()
{
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::newRow("its own") << u"Marie.md"_s << u"Marie"_s << u"Marie.md"_s;
    QTest::newRow("in another case") << u"marie.md"_s << u"MARIE"_s << u"MARIE.md"_s;
    QTest::newRow("an accent in another case") << u"élise.md"_s << u"Élise"_s << u"Élise.md"_s;
    QTest::newRow("its own numbered one") << u"Paul 2.md"_s << u"Paul"_s << u"Paul 2.md"_s;
    QTest::newRow("a new one") << u"Marie.md"_s << u"Jeanne"_s << u"Jeanne.md"_s;
}

void PLFileNamesTest::aPageMayKeepItsName()
{
    QFETCH(QString, own);
    QFETCH(QString, title);
    QFETCH(QString, name);
    QVERIFY(PLMakeFile(m_folder->filePath(u"Paul.md"_s)));
    QVERIFY(PLMakeFile(m_folder->filePath(own)));
    const QUrl ignored = QUrl::fromLocalFile(m_folder->filePath(own));
    QCOMPARE(fileNameOf(PLAvailableURL(folder(), title, 0, PLSection::Characters, ignored)), name);
}

void PLFileNamesTest::aLongTitleIsCutAtAGrapheme_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("cut");
    const QString family = u"👩‍👩‍👧‍👦"_s; // 25 bytes, one grapheme
    const QString accented = u"e\u0301\u0323"_s;           // 5 bytes, one grapheme
    // 240 bytes less ".md" are 237.
    QTest::newRow("120 Chinese characters") << QString(120, u'漢') << QString(79, u'漢');
    QTest::newRow("emoji families") << family.repeated(10) << family.repeated(9);
    const QString marked = u"漢\u0301"_s; // 5 bytes, one grapheme
    QTest::newRow("combining marks") << marked.repeated(60) << marked.repeated(47);
    QTest::newRow("combining marks at the cut")
        << QString(118, u'漢').first(78) + accented << QString(78, u'漢');
    QTest::newRow("a space at the cut") << QString(78, u'漢') + u"   漢漢"_s << QString(78, u'漢');
    // Qt (6.4) sees a boundary within each pair here.
    QTest::newRow("emoji beside a Burmese letter")
        << u"\u100d"_s + u"😀"_s.repeated(59) << u"\u100d"_s + u"😀"_s.repeated(58);
    QTest::newRow("a letter with 119 accents")
        << u"e"_s + QString(119, u'\u0301') << u"e"_s + QString(118, u'\u0301');
}

void PLFileNamesTest::aLongTitleIsCutAtAGrapheme()
{
    QFETCH(QString, title);
    QFETCH(QString, cut);
    QCOMPARE(PLSanitizedFileName(title), title);
    const QUrl url = PLAvailableURL(folder(), title, 0, PLSection::Notes, QUrl());
    QCOMPARE(fileNameOf(url), cut + u".md"_s);
    QVERIFY(fileNameOf(url).toUtf8().size() <= longestFileName);
    QVERIFY(PLMakeFile(PLStandardizedPath(url)));
}

void PLFileNamesTest::cutTitlesAreNumberedToo()
{
    const QString title(120, u'漢');
    for (int count = 1; count <= 12; ++count) {
        const QUrl url = PLAvailableURL(folder(), title, 100, PLSection::Book, QUrl());
        const QString name = fileNameOf(url);
        QVERIFY(name.toUtf8().size() <= longestFileName);
        QVERIFY(name.startsWith(u"100 - 漢"_s));
        QVERIFY(count == 1 || name.endsWith(u"漢 %1.md"_s.arg(count)));
        QVERIFY(PLMakeFile(PLStandardizedPath(url)));
    }
    QCOMPARE(PLNamesIn(m_folder->path()).size(), 12);
}

void PLFileNamesTest::aLongNameMadeElsewhereIsKept()
{
    const QString title(84, u'漢'); // 252 bytes
    const QString path = m_folder->filePath(title + u".md"_s);
    QVERIFY(PLMakeFile(path));
    const QUrl own = QUrl::fromLocalFile(path);
    QCOMPARE(PLAvailableURL(folder(), title, 0, PLSection::Notes, own), own);
}

QTEST_GUILESS_MAIN(PLFileNamesTest)
#include "PLFileNamesTest.moc"
