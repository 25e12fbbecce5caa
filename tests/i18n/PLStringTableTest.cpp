// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "i18n/PLStringTable.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Entry
{
    int number = 0;
    QString french;
    QString english;
};

QString withLineEnds(QString text)
{
    return text.replace(u"\\n"_s, u"\n"_s);
}

/// The table as it was written down a second time, apart from the code.
QList<Entry> transcription()
{
    QFile file(QStringLiteral(AQUILANE_SOURCE_DIR "/tests/i18n/string_table.tsv"));
    QList<Entry> entries;
    if (!file.open(QIODevice::ReadOnly))
        return entries;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(u'\t');
        if (fields.size() == 3)
            entries.append({fields[0].toInt(), withLineEnds(fields[1]), withLineEnds(fields[2])});
    }
    return entries;
}

QStringList placeholders(const QString &text)
{
    static const QRegularExpression pattern(u"%(?:@|ld|lu)"_s);
    QStringList found;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
        found.append(match.captured());
    return found;
}

} // namespace

class PLStringTableTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTableHas152DifferentEntries();
    void entriesAreThoseOfTheTranscription_data();
    void entriesAreThoseOfTheTranscription();
    void placeholdersAreTheSameInTheSameOrder_data();
    void placeholdersAreTheSameInTheSameOrder();
    void aTextThatIsNotInTheTableStays();
};

void PLStringTableTest::theTableHas152DifferentEntries()
{
    QSet<QString> texts;
    for (const PLStringPair &pair : PLStringTable())
        texts.insert(QString::fromUtf16(pair.french));
    QCOMPARE(PLStringTable().size(), 152U);
    QCOMPARE(texts.size(), 152);
    QCOMPARE(transcription().size(), 152);
}

void PLStringTableTest::entriesAreThoseOfTheTranscription_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("french");
    QTest::addColumn<QString>("english");
    const QList<Entry> entries = transcription();
    for (const Entry &entry : entries)
        QTest::addRow("%d", entry.number) << entry.number << entry.french << entry.english;
}

void PLStringTableTest::entriesAreThoseOfTheTranscription()
{
    QFETCH(int, number);
    QFETCH(QString, french);
    QFETCH(QString, english);
    QVERIFY(number >= 1 && size_t(number) <= PLStringTable().size());
    const PLStringPair &pair = PLStringTable()[size_t(number) - 1];
    QCOMPARE(QString::fromUtf16(pair.french), french);
    QCOMPARE(QString::fromUtf16(pair.english), english);
    QCOMPARE(PLEnglishString(french), english);
}

void PLStringTableTest::placeholdersAreTheSameInTheSameOrder_data()
{
    entriesAreThoseOfTheTranscription_data();
}

void PLStringTableTest::placeholdersAreTheSameInTheSameOrder()
{
    QFETCH(QString, french);
    QFETCH(QString, english);
    QCOMPARE(placeholders(PLEnglishString(french)), placeholders(french));
    QCOMPARE(english.count(u'\n'), french.count(u'\n'));
    QCOMPARE(english.trimmed().isEmpty(), false);
}

void PLStringTableTest::aTextThatIsNotInTheTableStays()
{
    for (const QString &text : {u"Un texte qui n'y est pas"_s, u"fichier"_s, u" Fichier"_s, u""_s})
        QCOMPARE(PLEnglishString(text), text);
}

QTEST_GUILESS_MAIN(PLStringTableTest)
#include "PLStringTableTest.moc"
