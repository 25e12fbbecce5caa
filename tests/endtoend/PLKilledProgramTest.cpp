// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endtoend/PLTypist.h"
#include "support/PLTestFiles.h"

#include <QTest>

#include <algorithm>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

constexpr int defaultKills = 40;
constexpr int mostTypists = 8; // most of their time is pauses
constexpr qint64 second = 1'000'000'000;

int killsWanted()
{
    bool isGiven = false;
    const int kills = qEnvironmentVariableIntValue("AQUILANE_GUI_KILLS", &isGiven);
    return isGiven ? kills : defaultKills;
}

/// What several typists, each in a thread, share.
class Day final
{
public:
    explicit Day(int kills) : m_left(kills) {}

    void work(quint32 seed)
    {
        PLTypist typist(seed);
        QString complaint = typist.sitDown();
        while (complaint.isEmpty() && m_left-- > 0)
            complaint = typist.typeUntilKilled();
        const std::lock_guard lock(m_mutex);
        if (!complaint.isEmpty()) {
            m_left = 0; // for the others too
            m_complaints.append(u"seed %1: "_s.arg(seed) + complaint);
        }
        add(typist.figures());
    }

    const QStringList &complaints() const { return m_complaints; }
    const PLTypedNotebook::Figures &figures() const { return m_figures; }

private:
    void add(const PLTypedNotebook::Figures &figures)
    {
        using Figures = PLTypedNotebook::Figures;
        for (const auto figure :
             {&Figures::kills, &Figures::words, &Figures::due, &Figures::lost, &Figures::cutShort,
              &Figures::creations, &Figures::renames, &Figures::switches})
            m_figures.*figure += figures.*figure;
    }

    std::atomic<int> m_left;
    std::mutex m_mutex;
    QStringList m_complaints;
    PLTypedNotebook::Figures m_figures;
};

/// One second after another, for a page that was typed by hand.
PLMoment after(qint64 tenths)
{
    return {second + tenths * second / 10, 0};
}

} // namespace

/// The built program is killed while somebody types into it under an X server, at any moment, again and
/// again. The pages are the beginning of what was typed, whole up to two seconds before the kill, and the
/// next start finds nothing in its way.
class PLKilledProgramTest final : public QObject
{
    Q_OBJECT

public:
    /// Hundreds of kills take longer than a test is given as a rule.
    static void initMain() { qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000"); } // milliseconds

private Q_SLOTS:
    void noKillLosesWhatIsTwoSecondsOld();
    void whatIsWrongWouldBeFound_data();
    void whatIsWrongWouldBeFound();
    void aPageUnderTwoNamesWouldBeFound();
    void aWaitForTheProcessorIsForgiven();
};

void PLKilledProgramTest::noKillLosesWhatIsTwoSecondsOld()
{
    const int kills = killsWanted();
    Day day(kills);
    std::vector<std::thread> typists;
    for (int typist = 0; typist < std::min(kills, mostTypists); ++typist)
        typists.emplace_back([&day] { day.work(QRandomGenerator::global()->generate()); });
    for (std::thread &typist : typists)
        typist.join();
    QVERIFY2(day.complaints().isEmpty(), qPrintable(day.complaints().join(u'\n')));
    const PLTypedNotebook::Figures &figures = day.figures();
    qInfo(
        "%d kills while %d words were typed, %d pages made, %d renamed and %d left for others; %d words lost "
        "within the two seconds, %d saves cut short; of the %d words that had to be on the disk none is lost",
        figures.kills, figures.words, figures.creations, figures.renames, figures.switches, figures.lost,
        figures.cutShort, figures.due);
    QCOMPARE(figures.kills, kills);
    QVERIFY2(figures.due > figures.words / 10 && figures.lost > 0, "the kills came at no moment that counts");
}

void PLKilledProgramTest::whatIsWrongWouldBeFound_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("complaint");

    const QString page = u"Livre/01 - Page 1.md"_s;
    QTest::newRow("nothing, with all there") << page << QByteArray("one two three ") << QString();
    QTest::newRow("nothing, without the young word") << page << QByteArray("one two ") << QString();
    QTest::newRow("nothing, with half of the young word") << page << QByteArray("one two thr") << QString();
    QTest::newRow("nothing, with a save cut short")
        << u"Livre/.aquilane-01234567.tmp"_s << QByteArray() << QString();
    QTest::newRow("an old word lost") << page << QByteArray("one ") << u"has lost “two ”"_s;
    QTest::newRow("half of an old word lost") << page << QByteArray("one tw") << u"has lost “o ”"_s;
    QTest::newRow("all lost") << page << QByteArray() << u"has lost “one two ”"_s;
    QTest::newRow("a hole") << page << QByteArray("one three ") << u"is torn"_s;
    QTest::newRow("zeros") << page << QByteArray("one two \0\0", 10) << u"is torn"_s;
    QTest::newRow("what nobody typed") << page << QByteArray("one two three four ") << u"is torn"_s;
    QTest::newRow("a page twice") << u"Livre/01 - Page 1 2.md"_s << QByteArray() << u"strays: "_s;
    QTest::newRow("a hidden file") << u"Livre/.x"_s << QByteArray() << u"strays: .x"_s;
    QTest::newRow("a file in another section")
        << u"Notes/x.md"_s << QByteArray() << u"a stray file in Notes"_s;
    QTest::newRow("a file beside the sections") << u"x"_s << QByteArray() << u"in the notebook: "_s;
    QTest::newRow("the notebook's own file") << u"projet.md"_s << QByteArray() << u"projet.md is changed"_s;
}

void PLKilledProgramTest::whatIsWrongWouldBeFound()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, complaint);
    const QTemporaryDir folder;
    PLTypedNotebook notebook(folder.filePath(u"Roman"_s));
    QVERIFY(notebook.make(1) && notebook.show(u"Page 1"_s));
    notebook.willType(u"one "_s, after(0));
    notebook.hasTyped(after(1));
    notebook.willType(u"two "_s, after(20));
    notebook.hasTyped(after(21));
    notebook.willType(u"three "_s, after(47)); // 2.6 seconds later
    notebook.hasTyped(after(48));
    QVERIFY(PLMakeFile(notebook.path() + u"/Livre/01 - Page 1.md"_s, "one two "));
    QVERIFY(PLMakeFile(notebook.path() + u'/' + file, bytes));

    const QString said = notebook.lookAfterKill(after(60));

    QCOMPARE(said.isEmpty(), complaint.isEmpty());
    QVERIFY2(said.contains(complaint), qPrintable(said));
}

void PLKilledProgramTest::aPageUnderTwoNamesWouldBeFound()
{
    const QTemporaryDir folder;
    PLTypedNotebook notebook(folder.filePath(u"Roman"_s));
    QVERIFY(notebook.make(1) && notebook.show(u"Page 1"_s));
    notebook.willRename(u"Page 2"_s);
    QVERIFY(PLMakeFile(notebook.path() + u"/Livre/01 - Page 2.md"_s));
    QCOMPARE(notebook.lookAfterKill(after(0)), u"there twice: Page 1"_s);
    QVERIFY(notebook.show(u"Page 1"_s));
    notebook.willRename(u"Page 2"_s);
    QVERIFY(QFile::remove(notebook.path() + u"/Livre/01 - Page 1.md"_s));
    QCOMPARE(notebook.lookAfterKill(after(0)), QString());
    QVERIFY(QFile::remove(notebook.path() + u"/Livre/01 - Page 2.md"_s));
    QCOMPARE(notebook.lookAfterKill(after(0)), u"not there: Page 2"_s);
}

/// But not more than that wait; and not what was on a page that was left.
void PLKilledProgramTest::aWaitForTheProcessorIsForgiven()
{
    const QTemporaryDir folder;
    PLTypedNotebook notebook(folder.filePath(u"Roman"_s));
    QVERIFY(notebook.make(1) && notebook.show(u"Page 1"_s));
    notebook.willType(u"one "_s, after(0));
    notebook.hasTyped(after(0));
    QCOMPARE(notebook.lookAfterKill({after(29).time, second / 2}), QString());
    QVERIFY(notebook.show(u"Page 1"_s));
    notebook.willType(u"two "_s, after(0));
    notebook.hasTyped(after(0));
    QVERIFY(!notebook.lookAfterKill({after(30).time, second / 2}).isEmpty());
    QVERIFY(notebook.show(u"Page 1"_s));
    notebook.willType(u"three "_s, after(0));
    notebook.hasTyped(after(0));
    QVERIFY(notebook.show(u"Page 1"_s));
    QVERIFY(!notebook.lookAfterKill(after(1)).isEmpty());
}

QTEST_GUILESS_MAIN(PLKilledProgramTest)
#include "PLKilledProgramTest.moc"
