// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "storage/PLFrontMatter.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PLFrontMatterTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readingSplitsHeaderAndBody_data();
    void readingSplitsHeaderAndBody();
    void outArgumentsMayBeLeftOut();
    void linesThatWouldBeLostAreKnown_data();
    void linesThatWouldBeLostAreKnown();
    void writingBuildsTheHeader_data();
    void writingBuildsTheHeader();
    void whatIsWrittenReadsBack();
};

namespace {

using Fields = PLFrontMatter::Fields;

void addReading(const char *name, const QString &text, const QStringList &keys, const QStringList &values,
                const QString &body)
{
    QTest::newRow(name) << text << keys << values << body;
}

void addTextWithoutHeader(const char *name, const QString &text)
{
    addReading(name, text, {}, {}, text);
}

} // namespace

void PLFrontMatterTest::readingSplitsHeaderAndBody_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("body");

    addReading("an empty header", u"---\n---\n\nBody"_s, {}, {}, u"Body"_s);
    addReading("no line end after the closing fence", u"---\ntitre: A\n---"_s, {u"titre"_s}, {u"A"_s}, u""_s);
    addReading("a value with a colon", u"---\nkey: a: b\n---\n"_s, {u"key"_s}, {u"a: b"_s}, u""_s);
    addReading("spaces and capitals", u"---\n  Titre :  Mon carnet  \n---\n"_s, {u"titre"_s},
               {u"Mon carnet"_s}, u""_s);
    addReading("tabs are trimmed", u"---\n\ta\t:\tb\t\n---\n"_s, {u"a"_s}, {u"b"_s}, u""_s);
    addReading("four dashes do not close", u"---\na: 1\n----\nb: 2\n---\nX"_s, {u"a"_s, u"b"_s},
               {u"1"_s, u"2"_s}, u"X"_s);
    addReading("dashes and a letter do not close", u"---\na: 1\n---x\nb: 2\n---\nX"_s, {u"a"_s, u"b"_s},
               {u"1"_s, u"2"_s}, u"X"_s);
    addReading("carriage returns", u"---\r\ntags: a\r\n---\r\n\r\ntext\r\nmore"_s, {u"tags"_s}, {u"a"_s},
               u"text\nmore"_s);
    addReading("a lone carriage return stays", u"---\na: 1\n---\n\nx\ry"_s, {u"a"_s}, {u"1"_s}, u"x\ry"_s);
    addReading("only two line ends are skipped", u"---\na: 1\n---\n\n\nX"_s, {u"a"_s}, {u"1"_s}, u"\nX"_s);
    addReading("a repeated key", u"---\na: 1\nb: 2\nA: 3\n---\n"_s, {u"a"_s, u"b"_s}, {u"3"_s, u"2"_s},
               u""_s);
    addReading("a line without a colon", u"---\nnothing\na: 1\n---\n"_s, {u"a"_s}, {u"1"_s}, u""_s);
    addReading("a line without a key", u"---\n: 1\n \t: 2\n---\n"_s, {}, {}, u""_s);
    addReading("a key without a value", u"---\ntags:\n---\n"_s, {u"tags"_s}, {u""_s}, u""_s);
    addReading("a body that looks like a header", u"---\n---\n---\na: 1\n---\n"_s, {}, {},
               u"---\na: 1\n---\n"_s);
    addReading("three fences in a row", u"---\n---\n---"_s, {}, {}, u"---"_s);

    addTextWithoutHeader("an empty text", u""_s);
    addTextWithoutHeader("plain text", u"Il était une fois"_s);
    addTextWithoutHeader("a header that is never closed", u"---\ntitre: A\nTexte"_s);
    addTextWithoutHeader("only fences that do not close", u"---\n----\n---x\n"_s);
    addTextWithoutHeader("only an opening fence", u"---\n"_s);
    addTextWithoutHeader("only dashes", u"---"_s);
    addTextWithoutHeader("a space before the fence", u" ---\na: 1\n---\n"_s);
    addTextWithoutHeader("a space after the fence", u"--- \na: 1\n---\n"_s);
    addTextWithoutHeader("a closing fence with a space", u"---\na: 1\n--- \n"_s);
    addReading("a text without header has its line ends made one", u"a\r\nb\rc"_s, {}, {}, u"a\nb\rc"_s);
}

void PLFrontMatterTest::readingSplitsHeaderAndBody()
{
    QFETCH(QString, text);
    QFETCH(QStringList, keys);
    QFETCH(QStringList, values);
    QFETCH(QString, body);

    QString readBody = u"left over"_s;
    QStringList readKeys{u"left over"_s};
    const Fields fields = PLFrontMatter::fieldsFromString(text, &readBody, &readKeys);

    QCOMPARE(readKeys, keys);
    QCOMPARE(fields.size(), keys.size());
    for (qsizetype index = 0; index < keys.size(); ++index)
        QCOMPARE(fields.value(keys[index]), values[index]);
    for (const QString &key : keys)
        QCOMPARE(PLFrontMatter::fieldInString(text, key), fields.value(key));
    QCOMPARE(PLFrontMatter::fieldInString(text, u"nowhere"), QString());
    QCOMPARE(readBody, body);
}

void PLFrontMatterTest::linesThatWouldBeLostAreKnown_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isLost");

    QTest::newRow("no header") << u"Texte\n---\nTexte\n---\n"_s << false;
    QTest::newRow("a scene break that comes first") << u"---\nTexte."_s << false;
    QTest::newRow("prose between scene breaks") << u"---\nIl pleut.\n---\nFin."_s << true;
    QTest::newRow("prose between scene breaks, CRLF") << u"---\r\nIl pleut.\r\n---\r\nFin."_s << true;
    QTest::newRow("prose after a field") << u"---\ntags: a\nIl pleut.\n---\n"_s << true;
    QTest::newRow("a speech") << u"---\nIl dit : viens.\nIl dit : va.\n---\n"_s << true;
    QTest::newRow("no key") << u"---\n: a\n---\n"_s << true;
    QTest::newRow("fields") << u"---\ntags: a\n\n \ntype: b\n---\nFin."_s << false;
    QTest::newRow("an empty header") << u"---\n---\n\n---\nIl pleut.\n---\n"_s << false;
}

void PLFrontMatterTest::linesThatWouldBeLostAreKnown()
{
    QFETCH(QString, text);
    QFETCH(bool, isLost);
    QCOMPARE(PLFrontMatter::losesLinesOfString(text), isLost);
    const QString kept = PLFrontMatter::stringWithKeys({}, {}, text);
    QString body;
    QVERIFY(PLFrontMatter::fieldsFromString(kept, &body).isEmpty());
    QCOMPARE(body, QString(text).replace(u"\r\n"_s, u"\n"_s));
}

void PLFrontMatterTest::outArgumentsMayBeLeftOut()
{
    const Fields fields = PLFrontMatter::fieldsFromString(u"---\na: 1\n---\n"_s);
    QCOMPARE(fields, (Fields{{u"a"_s, u"1"_s}}));
}

void PLFrontMatterTest::writingBuildsTheHeader_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("text");

    QTest::newRow("a line end in a value, a missing value")
        << QStringList{u"a"_s, u"b"_s} << QStringList{u"x\ny"_s} << u"B"_s << u"---\na: x y\nb:\n---\n\nB"_s;
    QTest::newRow("every line end") << QStringList{u"a"_s}
                                    << QStringList{u"1\r2\u20283\u20294\u00855\v6\f7\r\n8"_s} << u""_s
                                    << u"---\na: 1 2 3 4 5 6 7  8\n---\n\n"_s;
    QTest::newRow("no key") << QStringList{} << QStringList{} << u"B"_s << u"---\n---\n\nB"_s;
    QTest::newRow("no body") << QStringList{u"a"_s} << QStringList{u"1"_s} << QString()
                             << u"---\na: 1\n---\n\n"_s;
    QTest::newRow("keys are written as they are")
        << QStringList{u"Titre"_s} << QStringList{u"A"_s} << u""_s << u"---\nTitre: A\n---\n\n"_s;
    QTest::newRow("values are not trimmed")
        << QStringList{u"a"_s} << QStringList{u"  x "_s} << u""_s << u"---\na:   x \n---\n\n"_s;
}

void PLFrontMatterTest::writingBuildsTheHeader()
{
    QFETCH(QStringList, keys);
    QFETCH(QStringList, values);
    QFETCH(QString, body);
    QFETCH(QString, text);

    Fields fields{{u"not in the order"_s, u"dropped"_s}};
    for (qsizetype index = 0; index < values.size(); ++index)
        fields.insert(keys[index], values[index]);
    QCOMPARE(PLFrontMatter::stringWithKeys(keys, fields, body), text);
}

void PLFrontMatterTest::whatIsWrittenReadsBack()
{
    const QStringList keys{u"type"_s, u"tags"_s, u"vide"_s};
    const Fields fields{{u"type"_s, u"lieu"_s}, {u"tags"_s, u"a, b: c"_s}, {u"vide"_s, u""_s}};
    const QString body = u"\n\n---\n# Titre\n"_s;

    QString readBody;
    QStringList readKeys;
    const QString text = PLFrontMatter::stringWithKeys(keys, fields, body);
    QCOMPARE(PLFrontMatter::fieldsFromString(text, &readBody, &readKeys), fields);
    QCOMPARE(readKeys, keys);
    // What the reader skips is what the writer added: the body keeps its own blank lines.
    QCOMPARE(readBody, body);
}

QTEST_GUILESS_MAIN(PLFrontMatterTest)
#include "PLFrontMatterTest.moc"
