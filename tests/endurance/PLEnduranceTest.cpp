// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endurance/PLLongNotebook.h"
#include "endurance/PLProcessUse.h"
#include "endurance/PLTypist.h"
#include "notebook_window/PLNotebookWindowFixture.h"
#include "platform/PLSpellChecker.h"

#include <QElapsedTimer>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int tenths = 10;
constexpr int boutsOfTenth = 10; ///< of writing, each in another page
constexpr auto longestAutosave = 10s;
constexpr int charactersInSight = 5000; ///< at the end of a page, where the typist writes

/// A tenth of the whole, unless AQUILANE_ENDURANCE=full asks for 10,000 switches and 100,000 keys. What is
/// read or remembered once for each page is so in the first tenth of either: every page is opened there.
struct Amount
{
    int switchesOfBout = 10;
    int keysOfBout = 100;
    int boutsToPause = 40; ///< after as many the writer waits for the autosave
};

Amount chosenAmount()
{
    return qEnvironmentVariable("AQUILANE_ENDURANCE") == u"full" ? Amount{100, 1000, 4} : Amount{};
}

} // namespace

/// A writer changes pages and types, on and on, in a notebook of a whole year: at the end the program holds
/// no more than after the first tenth.
class PLEnduranceTest final : public QObject
{
    Q_OBJECT

public:
    /// The whole takes longer than Qt Test gives a test.
    PLEnduranceTest() { qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number(INT_MAX)); }

private Q_SLOTS:
    void aLongYearLeavesNothingBehind();

private:
    void writeForATenth();
    /// The spelling remembers the words that it has seen, up to a limit: it sees them now.
    void openEveryPage();
    void openRandomPage();
    void waitForAutosave();
    /// With the notebook as it was at first, and its first page open: what was typed, and may be undone, is
    /// in other pages.
    PLProcessUse useAtRest();

    PLNotebookWindowFixture m_window;
    PLLongNotebook m_pages{m_window.notebook};
    PLTypist m_typist{m_window};
    QRandomGenerator m_random{10'000};
    Amount m_amount = chosenAmount();
    int m_bouts = 0;
};

void PLEnduranceTest::openEveryPage()
{
    for (const QString &path : m_pages.paths()) {
        m_window.select(path);
        QCoreApplication::processEvents();
        PLSpellChecker::shared()->misspellings(m_window.editor()->text().right(charactersInSight));
    }
}

void PLEnduranceTest::openRandomPage()
{
    const int chapter = 1 + m_random.bounded(PLLongNotebook::ChapterCount - 1);
    m_window.select(m_pages.paths().at(chapter));
    QCoreApplication::processEvents();
}

void PLEnduranceTest::waitForAutosave()
{
    QTRY_VERIFY_WITH_TIMEOUT(!m_window.session().isDirty(),
                             int(std::chrono::milliseconds(longestAutosave).count()));
}

void PLEnduranceTest::writeForATenth()
{
    for (int bout = 0; bout < boutsOfTenth; ++bout) {
        for (int page = 0; page < m_amount.switchesOfBout; ++page)
            openRandomPage();
        m_typist.addTag();
        m_typist.type(m_amount.keysOfBout);
        QVERIFY(m_window.session().isDirty());
        if (++m_bouts % m_amount.boutsToPause == 0)
            waitForAutosave();
    }
}

PLProcessUse PLEnduranceTest::useAtRest()
{
    m_window.select(m_pages.paths().constFirst());
    m_pages.restore();
    m_window.controller->windowDidBecomeKey();
    QTest::qWait(500); // what is done a moment after typing: words counted, spelling marked, pages laid out
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return PLProcessUse::now({m_window.controller.get(), &m_window.session(), &m_window.sidebar()});
}

void PLEnduranceTest::aLongYearLeavesNothingBehind()
{
    QElapsedTimer clock;
    clock.start();
    m_window.open();
    openEveryPage();
    PLProcessUse first;
    PLProcessUse last;
    for (int tenth = 1; tenth <= tenths; ++tenth) {
        writeForATenth();
        if (QTest::currentTestFailed())
            return;
        last = useAtRest();
        qInfo("%2d/10, %4lld s: %s", tenth, clock.elapsed() / 1000, qPrintable(last.description()));
        if (tenth == 1)
            first = last;
    }
    QVERIFY2(last.heapBytes * 100 <= first.heapBytes * 102, "the heap has grown by more than 2 %");
    QVERIFY2(last.privateBytes * 100 <= first.privateBytes * 102, "the memory has grown by more than 2 %");
    QVERIFY(last.files <= first.files);
    QVERIFY(last.threads <= first.threads);
    QVERIFY(last.children <= first.children);
    QVERIFY(last.objects <= first.objects);
    QVERIFY(last.timers <= first.timers);
    QVERIFY(m_window.alerts.isEmpty());
}

QTEST_MAIN(PLEnduranceTest)
#include "PLEnduranceTest.moc"
