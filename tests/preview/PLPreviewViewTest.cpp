// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewBench.h"
#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWheelEvent>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

QString paragraphs(int count)
{
    QString html;
    for (int number = 1; number <= count; ++number)
        html += u"<p>Paragraphe %1 : l’été, la forêt et le cœur.</p>\n"_s.arg(number);
    return html;
}

/// Clicks near the top left until that is heard of: the engine paints in its own time, and a click before
/// that meets nothing.
bool clickUntil(const PLPreviewBench &bench, const QSignalSpy &heard)
{
    for (int attempt = 0; attempt < 200 && heard.isEmpty(); ++attempt) {
        QTest::mouseClick(bench.surface(), Qt::LeftButton, {}, QPoint(60, 60));
        QTest::qWait(50);
    }
    return !heard.isEmpty();
}

} // namespace

class PLPreviewViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theContentIsInTheDocument();
    void theStyleIsApplied();
    void theContentIsReplacedInPlace();
    void whateverTheContentHolds_data();
    void whateverTheContentHolds();
    void theScrollPositionOutlivesAReplacement();
    void theRatioIsFollowed_data();
    void theRatioIsFollowed();
    void aReplacementAndARatioGoTogether();
    void aMissingElementIsToldOf();
    void replacingBeforeAnyLoadAsksForTheDocument();
    void theLatestOfManyLoadsIsShown();
    void theLatestOfManyReplacementsIsShown();
    void aReplacementDuringALoadIsShown();
    void aPageOfFiveMegabytesIsShown();
    void aLinkClickIsHandedOverAndThePageStays_data();
    void aLinkClickIsHandedOverAndThePageStays();
    void aLinkClickedWhileAPageLoadsLosesNothing();
    void aLoadThatTheEngineBreaksOffIsRepeated();
    void aLoadThatIsRepeatedInVainIsShownOnce();
    void aLinkToAnEmptyPageBringsThePageBack_data();
    void aLinkToAnEmptyPageBringsThePageBack();
    void theFocusStaysInTheText();
    void aPreviewAddedToAShownWindowLeavesTheFocus();
    void aDeadEngineComesBack();
    void aPageThatAlwaysKillsTheEngineIsGivenUp();
    void twoPreviewsShareAProfileThatKeepsNothing();
    void previewsMayGoInAnyOrder();
    void aPreviewThatGoesSaysNoMore_data();
    void aPreviewThatGoesSaysNoMore();

private:
    PLTestEnvironment m_environment;
};

void PLPreviewViewTest::theContentIsInTheDocument()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(u"<h1>Été</h1><p>Il était une fois.</p>"_s)));
    QCOMPARE(bench.content(), u"<h1>Été</h1><p>Il était une fois.</p>"_s);
    QCOMPARE(bench.evaluate(u"document.compatMode"_s).toString(), u"CSS1Compat"_s);
    QCOMPARE(bench.evaluate(u"document.documentElement.lang"_s).toString(), u"fr"_s);
}

void PLPreviewViewTest::theStyleIsApplied()
{
    PLPreviewBench bench;
    QVERIFY(
        bench.load(bench.document(u"<p>x</p>"_s, u"body { background: #faf6ea; } p { font-size: 31px; }"_s)));
    QCOMPARE(bench.evaluate(u"getComputedStyle(document.querySelector('p')).fontSize"_s).toString(),
             u"31px"_s);
    QCOMPARE(bench.evaluate(u"getComputedStyle(document.body).backgroundColor"_s).toString(),
             u"rgb(250, 246, 234)"_s);
}

void PLPreviewViewTest::theContentIsReplacedInPlace()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(u"<p>un</p>"_s)));
    bench.evaluate(u"document.body.setAttribute('data-mark', 'same document')"_s);
    QSignalSpy finished(bench.preview, &PLPreviewView::didFinishLoad);
    bench.preview->replaceContent(u"<p>deux</p>"_s);
    QTRY_COMPARE_WITH_TIMEOUT(bench.content(), u"<p>deux</p>"_s, 30'000);
    QCOMPARE(bench.evaluate(u"document.body.dataset.mark"_s).toString(), u"same document"_s);
    QCOMPARE(finished.count(), 0);
}

void PLPreviewViewTest::whateverTheContentHolds_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << u""_s;
    QTest::newRow("quotes and backslashes") << u"« \"l'heure\" » \\ \\n \\u0041 `${1}`"_s;
    QTest::newRow("line ends") << u"un\ndeux\ttrois"_s;
    QTest::newRow("line separators") << u"un\u2028deux\u2029trois\u0085"_s;
    QTest::newRow("the end of a script") << u"&lt;/script&gt; &lt;!-- ]]&gt;"_s;
    QTest::newRow("no-break spaces") << u"« été » ?"_s.replace(u' ', u"&nbsp;"_s);
    QTest::newRow("beyond the plane") << u"\U0001F600 \U00020000"_s;
    QTest::newRow("half a pair") << u"avant "_s + QChar(0xd83d) + u" après "_s + QChar(0xde00);
    QTest::newRow("marks of direction") << u"\u202e abc \u202c \ufeff"_s;
}

void PLPreviewViewTest::whateverTheContentHolds()
{
    QFETCH(QString, text);
    PLPreviewBench bench;
    const QString html = u"<p>"_s + text + u"</p>"_s;
    QVERIFY(bench.load(bench.document(html)));
    // The code units one by one: half a pair would not come through as text.
    const auto units = [&bench] {
        return bench
            .evaluate(
                u"Array.from({length: contenu.innerHTML.length}, (_, i) => contenu.innerHTML.charCodeAt(i))"
                ".join(' ')"_s)
            .toString();
    };
    QStringList wanted;
    for (const QChar unit : html)
        wanted.append(QString::number(unit.unicode()));
    QCOMPARE(units(), wanted.join(u' '));
    bench.preview->replaceContent(u"<i>"_s + html + u"</i>"_s);
    QTRY_COMPARE_WITH_TIMEOUT(units(), u"60 105 62 "_s + wanted.join(u' ') + u" 60 47 105 62"_s, 30'000);
}

void PLPreviewViewTest::theScrollPositionOutlivesAReplacement()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(paragraphs(300))));
    bench.evaluate(u"window.scrollTo(0, 1234)"_s);
    QCOMPARE(bench.evaluate(u"window.scrollY"_s).toInt(), 1234);
    bench.preview->replaceContent(paragraphs(299));
    QTRY_COMPARE_WITH_TIMEOUT(bench.evaluate(u"document.querySelectorAll('p').length"_s).toInt(), 299,
                              30'000);
    QCOMPARE(bench.evaluate(u"window.scrollY"_s).toInt(), 1234);
}

void PLPreviewViewTest::theRatioIsFollowed_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<double>("followed");
    QTest::newRow("top") << 0.0 << 0.0;
    QTest::newRow("third") << 1.0 / 3.0 << 0.3333;
    QTest::newRow("bottom") << 1.0 << 1.0;
    QTest::newRow("above the top") << -3.0 << 0.0;
    QTest::newRow("below the bottom") << 7.0 << 1.0;
    QTest::newRow("no number") << double(NAN) << 0.0;
}

void PLPreviewViewTest::theRatioIsFollowed()
{
    QFETCH(double, ratio);
    QFETCH(double, followed);
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(paragraphs(300))));
    bench.evaluate(u"window.scrollTo(0, 50)"_s);
    bench.preview->scrollToRatio(ratio);
    const double range = bench.evaluate(u"document.body.scrollHeight - window.innerHeight"_s).toDouble();
    QVERIFY(range > 1000);
    QTRY_VERIFY_WITH_TIMEOUT(qAbs(bench.evaluate(u"window.scrollY"_s).toDouble() - followed * range) <= 1.0,
                             30'000);
}

void PLPreviewViewTest::aReplacementAndARatioGoTogether()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(paragraphs(3))));
    bench.preview->replaceContent(paragraphs(500));
    bench.preview->scrollToRatio(1);
    // The ratio is one of the new content's height.
    QTRY_VERIFY_WITH_TIMEOUT(bench.evaluate(u"window.scrollY"_s).toDouble() > 5000, 30'000);
    QCOMPARE(bench.evaluate(u"document.querySelectorAll('p').length"_s).toInt(), 500);
}

void PLPreviewViewTest::aMissingElementIsToldOf()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(u"<!DOCTYPE html><html><body><p>Rien d'autre.</p></body></html>"_s));
    QSignalSpy missing(bench.preview, &PLPreviewView::contentMissing);
    bench.preview->replaceContent(u"<p>perdu</p>"_s);
    QVERIFY(missing.wait(30'000));
    QVERIFY(bench.load(bench.document(u"<p>retrouvé</p>"_s)));
    QCOMPARE(bench.content(), u"<p>retrouvé</p>"_s);
    QCOMPARE(missing.count(), 1);
}

void PLPreviewViewTest::replacingBeforeAnyLoadAsksForTheDocument()
{
    PLPreviewBench bench;
    QSignalSpy missing(bench.preview, &PLPreviewView::contentMissing);
    bench.preview->replaceContent(u"<p>trop tôt</p>"_s);
    QVERIFY(missing.wait(30'000));
}

void PLPreviewViewTest::theLatestOfManyLoadsIsShown()
{
    PLPreviewBench bench;
    QSignalSpy finished(bench.preview, &PLPreviewView::didFinishLoad);
    for (int number = 1; number <= 20; ++number)
        bench.preview->loadDocument(bench.document(u"<p>page %1</p>"_s.arg(number)), QUrl());
    QVERIFY(finished.wait(30'000));
    QCOMPARE(bench.content(), u"<p>page 20</p>"_s);
    QCOMPARE(finished.count(), 1);
}

void PLPreviewViewTest::theLatestOfManyReplacementsIsShown()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(u"<p>début</p>"_s)));
    bench.evaluate(u"window.seen = 0; new MutationObserver(() => ++window.seen)"
                   ".observe(document.getElementById('contenu'), {childList: true});"_s);
    for (int number = 1; number <= 200; ++number)
        bench.preview->replaceContent(u"<p>texte %1</p>"_s.arg(number));
    QTRY_COMPARE_WITH_TIMEOUT(bench.content(), u"<p>texte 200</p>"_s, 30'000);
    // What came while the engine was busy was not put in one by one.
    const int seen = bench.evaluate(u"window.seen"_s).toInt();
    QVERIFY2(seen >= 1 && seen <= 3, qPrintable(QString::number(seen)));
}

void PLPreviewViewTest::aReplacementDuringALoadIsShown()
{
    PLPreviewBench bench;
    QSignalSpy finished(bench.preview, &PLPreviewView::didFinishLoad);
    bench.preview->loadDocument(bench.document(u"<p>vieux</p>"_s), QUrl());
    bench.preview->replaceContent(u"<p>neuf</p>"_s);
    QVERIFY(finished.wait(30'000));
    QCOMPARE(bench.content(), u"<p>neuf</p>"_s);
    bench.preview->replaceContent(u"<p>pour l'ancienne page</p>"_s);
    QVERIFY(bench.load(bench.document(u"<p>autre page</p>"_s)));
    QCOMPARE(bench.content(), u"<p>autre page</p>"_s);
}

void PLPreviewViewTest::aPageOfFiveMegabytesIsShown()
{
    const QString paragraph =
        u"<p>"_s + u"Les élèves où l’été préféré ; à côté, déjà. "_s.repeated(20) + u"</p>\n"_s;
    const int count = int(5'000'000 / paragraph.toUtf8().size()) + 1;
    const QString content = paragraph.repeated(count);
    QVERIFY(content.toUtf8().size() >= 5'000'000);

    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(content)));
    QCOMPARE(bench.evaluate(u"document.querySelectorAll('p').length"_s).toInt(), count);
    QCOMPARE(bench.evaluate(u"contenu.innerHTML.length"_s).toInt(), content.size());
    bench.preview->replaceContent(content + u"<h2>Fin</h2>"_s);
    bench.preview->scrollToRatio(1);
    QTRY_COMPARE_WITH_TIMEOUT(bench.evaluate(u"document.querySelectorAll('h2').length"_s).toInt(), 1, 30'000);
    QTRY_VERIFY_WITH_TIMEOUT(bench.evaluate(u"window.scrollY"_s).toDouble() > 100'000, 30'000);
}

void PLPreviewViewTest::aLinkClickIsHandedOverAndThePageStays_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("handedOver");
    QTest::newRow("https") << u"<a href='https://exemple.invalid/a?b=c#d'>%1</a>"_s
                           << u"https://exemple.invalid/a?b=c#d"_s;
    QTest::newRow("mailto") << u"<a href='mailto:moi@exemple.invalid'>%1</a>"_s
                            << u"mailto:moi@exemple.invalid"_s;
    QTest::newRow("relative") << u"<a href='autre.md'>%1</a>"_s << u"file:///tmp/roman/Livre/autre.md"_s;
    QTest::newRow("in a new window") << u"<a target='_blank' href='https://exemple.invalid/b'>%1</a>"_s
                                     << u"https://exemple.invalid/b"_s;
}

void PLPreviewViewTest::aLinkClickIsHandedOverAndThePageStays()
{
    QFETCH(QString, link);
    PLPreviewBench bench;
    const QString content = link.arg(u"<span style='display:block;height:200px'>ici</span>"_s);
    QVERIFY(bench.load(bench.document(content), QUrl::fromLocalFile(u"/tmp/roman/Livre"_s)));
    bench.evaluate(u"document.body.setAttribute('data-mark', 'same document')"_s);
    const QString before = bench.content();
    QSignalSpy clicked(bench.preview, &PLPreviewView::linkClicked);
    QVERIFY(clickUntil(bench, clicked));
    QTEST(clicked.first().first().toUrl().toString(), "handedOver");
    QCOMPARE(bench.content(), before);
    QCOMPARE(bench.evaluate(u"document.body.dataset.mark"_s).toString(), u"same document"_s);
}

void PLPreviewViewTest::aLinkClickedWhileAPageLoadsLosesNothing()
{
    PLPreviewBench bench;
    const QString link = u"<a href='https://exemple.invalid/' style='display:block;height:200px'>%1</a>"_s;
    const QString style = u"p { color: red; }\n"_s.repeated(20'000); // so that a load takes its time
    QSignalSpy clicked(bench.preview, &PLPreviewView::linkClicked);
    QVERIFY(bench.load(bench.document(link.arg(0), style)));
    QVERIFY(clickUntil(bench, clicked)); // a click of the writer goes before what a program asks for
    clicked.clear();
    QSignalSpy missing(bench.preview, &PLPreviewView::contentMissing);
    for (int number = 1; number <= 20; ++number) {
        QSignalSpy finished(bench.preview, &PLPreviewView::didFinishLoad);
        QTest::mouseClick(bench.surface(), Qt::LeftButton, {}, QPoint(60, 60));
        QTest::qWait(number % 5);
        bench.preview->loadDocument(bench.document(link.arg(number), style), QUrl());
        QTest::mouseClick(bench.surface(), Qt::LeftButton, {}, QPoint(60, 60));
        QVERIFY2(finished.wait(30'000), qPrintable(QString::number(number)));
        QCOMPARE(bench.content(), link.arg(number).replace(u'\'', u'"'));
    }
    QCOMPARE(missing.count(), 0);
    QVERIFY(clicked.count() > 0);
}

/// As it does when a link is clicked at the wrong moment.
void PLPreviewViewTest::aLoadThatTheEngineBreaksOffIsRepeated()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(u"<p>avant</p>"_s)));
    int breaks = 0;
    connect(bench.view->page(), &QWebEnginePage::loadingChanged, this,
            [&breaks](const QWebEngineLoadingInfo &info) {
                breaks += info.status() == QWebEngineLoadingInfo::LoadStoppedStatus;
            });
    QSignalSpy finished(bench.preview, &PLPreviewView::didFinishLoad);
    QSignalSpy started(bench.view->page(), &QWebEnginePage::loadStarted);
    const auto process = pid_t(bench.view->page()->renderProcessPid());
    QVERIFY(process > 1);
    ::kill(process, SIGSTOP); // so that the load cannot end first
    bench.preview->loadDocument(bench.document(u"<p>x</p>"_s), QUrl());
    const bool isStarted = started.wait(30'000);
    bench.view->stop();
    ::kill(process, SIGCONT);
    QVERIFY(isStarted);
    QVERIFY(finished.wait(30'000));
    QCOMPARE(breaks, 1);
    QCOMPARE(bench.content(), u"<p>x</p>"_s);
    QCOMPARE(finished.count(), 1);
}

/// The engine tells of a refused link, but has not dropped the load: the frame of the second must not replace
/// a filled one.
void PLPreviewViewTest::aLoadThatIsRepeatedInVainIsShownOnce()
{
    PLPreviewBench bench;
    QVERIFY(QTest::qWaitForWindowActive(&bench.window));
    QTRY_COMPARE(QApplication::focusWidget(), bench.text);
    QVERIFY(bench.load(bench.document(u"<p>avant</p>"_s)));
    QSignalSpy focusMoves(qApp, &QApplication::focusChanged);
    QSignalSpy missing(bench.preview, &PLPreviewView::contentMissing);
    QSignalSpy finished(bench.preview, &PLPreviewView::didFinishLoad);
    for (int number = 1; number <= 10; ++number) {
        const QString content = u"<p>%1</p>"_s.arg(number);
        finished.clear();
        bench.preview->loadDocument(bench.document(content), QUrl());
        QTest::qWait(number);
        QVERIFY(QMetaObject::invokeMethod(bench.view->page(), "navigationRefused"));
        QVERIFY(!finished.isEmpty() || finished.wait(30'000));
        QTest::qWait(50); // what is on its way yet arrives
        QCOMPARE(bench.content(), content);
        QCOMPARE(finished.count(), 1);
    }
    QCOMPARE(missing.count(), 0);
    QCOMPARE(focusMoves.count(), 0);
}

void PLPreviewViewTest::aLinkToAnEmptyPageBringsThePageBack_data()
{
    QTest::addColumn<QString>("href");
    QTest::newRow("an empty page") << u"about:blank"_s;
    QTest::newRow("no address at all") << u"http:///"_s;
}

/// The engine goes there without asking; the preview then asks for its document again. So too while one
/// loads.
void PLPreviewViewTest::aLinkToAnEmptyPageBringsThePageBack()
{
    QFETCH(QString, href);
    PLPreviewBench bench;
    const QString link = u"<a href=\"%1\" style=\"display:block;height:200px\">%2</a>"_s;
    int number = 0;
    const auto load = [&] {
        bench.preview->loadDocument(bench.document(link.arg(href).arg(number)), QUrl());
    };
    QSignalSpy missing(bench.preview, &PLPreviewView::contentMissing);
    connect(bench.preview, &PLPreviewView::contentMissing, this, load);
    load();
    QVERIFY(clickUntil(bench, missing));
    QTRY_COMPARE_WITH_TIMEOUT(bench.content(), link.arg(href).arg(number), 30'000);
    for (number = 1; number <= 5; ++number) {
        QTest::mouseClick(bench.surface(), Qt::LeftButton, {}, QPoint(60, 60));
        QTest::qWait(number);
        load();
        QTest::mouseClick(bench.surface(), Qt::LeftButton, {}, QPoint(60, 60));
        QTRY_COMPARE_WITH_TIMEOUT(bench.content(), link.arg(href).arg(number), 30'000);
    }
    QVERIFY(missing.count() < 20); // it does not go round
}

void PLPreviewViewTest::theFocusStaysInTheText()
{
    PLPreviewBench bench;
    QVERIFY(QTest::qWaitForWindowActive(&bench.window));
    QTRY_COMPARE(QApplication::focusWidget(), bench.text);
    QSignalSpy moves(qApp, &QApplication::focusChanged);

    QVERIFY(bench.load(bench.document(paragraphs(300) + u"<input autofocus>"_s)));
    // The engine does so, and scrolls there, with the first frame that it paints.
    const QString activeElement = u"document.activeElement.tagName"_s;
    QTRY_COMPARE_WITH_TIMEOUT(bench.evaluate(activeElement).toString(), u"INPUT"_s, 30'000);
    bench.preview->replaceContent(paragraphs(200));
    bench.preview->scrollToRatio(0.5);
    QTRY_VERIFY_WITH_TIMEOUT(bench.evaluate(u"window.scrollY"_s).toDouble() > 100, 30'000);

    QWidget *target = bench.surface();
    const double before = bench.evaluate(u"window.scrollY"_s).toDouble();
    const QPointF place(100, 100);
    QWheelEvent wheel(place, target->mapToGlobal(place), QPoint(0, -120), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    const auto scroll = [&] {
        QApplication::sendEvent(target, &wheel);
        return bench.evaluate(u"window.scrollY"_s).toDouble() > before;
    };
    QVERIFY(QTest::qWaitFor(scroll, 30'000));

    const auto select = [&] {
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(100, 100));
        QTest::mousePress(target, Qt::LeftButton, {}, QPoint(50, 100));
        QTest::mouseMove(target, QPoint(120, 110));
        QTest::mouseMove(target, QPoint(150, 200));
        QTest::mouseRelease(target, Qt::LeftButton, {}, QPoint(150, 200));
        return QTest::qWaitFor([&bench] { return !bench.view->selectedText().isEmpty(); }, 500);
    };
    QVERIFY(QTest::qWaitFor(select, 30'000)); // the engine has seen it
    QCOMPARE(QApplication::focusWidget(), bench.text);
    QCOMPARE(moves.count(), 0);
    QTest::keyClicks(QApplication::focusWidget(), u"abc"_s);
    QCOMPARE(bench.text->toPlainText(), u"abc"_s);
}

void PLPreviewViewTest::aPreviewAddedToAShownWindowLeavesTheFocus()
{
    QWidget window;
    auto *layout = new QHBoxLayout(&window);
    auto *text = new QTextEdit;
    layout->addWidget(text);
    window.show();
    window.activateWindow();
    text->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QString reason;
    PLPreviewView *preview = PLLoadPreviewView(&window, &reason);
    QVERIFY2(preview, qPrintable(reason));
    layout->addWidget(preview->widget());
    QSignalSpy finished(preview, &PLPreviewView::didFinishLoad);
    preview->loadDocument(PLPreviewBench::document(u"<p>x</p>"_s), QUrl());
    QVERIFY(finished.wait(30'000));
    QTRY_COMPARE(QApplication::focusWidget(), text);
    QTest::keyClicks(QApplication::focusWidget(), u"abc"_s);
    QCOMPARE(text->toPlainText(), u"abc"_s);
}

void PLPreviewViewTest::aDeadEngineComesBack()
{
    PLPreviewBench bench;
    QVERIFY(bench.load(bench.document(u"<p>avant</p>"_s)));
    QSignalSpy missing(bench.preview, &PLPreviewView::contentMissing);
    const qint64 process = bench.view->page()->renderProcessPid();
    QVERIFY(process > 1);
    QCOMPARE(::kill(pid_t(process), SIGKILL), 0);
    QVERIFY(missing.wait(30'000));
    QVERIFY(bench.load(bench.document(u"<p>après</p>"_s)));
    QCOMPARE(bench.content(), u"<p>après</p>"_s);
    QVERIFY(bench.view->page()->renderProcessPid() != process);
    bench.preview->replaceContent(u"<p>encore</p>"_s);
    QTRY_COMPARE_WITH_TIMEOUT(bench.content(), u"<p>encore</p>"_s, 30'000);
}

void PLPreviewViewTest::aPageThatAlwaysKillsTheEngineIsGivenUp()
{
    PLPreviewBench bench;
    QSignalSpy deaths(bench.view, &QWebEngineView::renderProcessTerminated);
    QSignalSpy missing(bench.preview, &PLPreviewView::contentMissing);
    // As the editor does: load again when asked to.
    const auto loadAgain = [&bench] {
        bench.preview->loadDocument(bench.document(u"<p>fatal</p>"_s), QUrl());
    };
    QObject::connect(bench.preview, &PLPreviewView::contentMissing, &bench.window, loadAgain);
    QObject::connect(bench.preview, &PLPreviewView::didFinishLoad, &bench.window,
                     [&bench] { ::kill(pid_t(bench.view->page()->renderProcessPid()), SIGKILL); });
    loadAgain();
    QTRY_COMPARE_WITH_TIMEOUT(deaths.count(), 4, 30'000);
    QCoreApplication::processEvents();
    QCOMPARE(missing.count(), 3);
    // A further change of the text is one more try.
    bench.preview->replaceContent(u"<p>corrigé</p>"_s);
    QTRY_COMPARE_WITH_TIMEOUT(deaths.count(), 5, 30'000);
    QCOMPARE(missing.count(), 4);
}

void PLPreviewViewTest::twoPreviewsShareAProfileThatKeepsNothing()
{
    PLPreviewBench one;
    PLPreviewBench two;
    QVERIFY(one.view->page()->profile() == two.view->page()->profile());
    QVERIFY(one.view->page()->profile()->isOffTheRecord());
    QVERIFY(one.load(one.document(u"<p>un</p>"_s)));
    QVERIFY(two.load(two.document(u"<p>deux</p>"_s)));
    QCOMPARE(one.content(), u"<p>un</p>"_s);
}

void PLPreviewViewTest::previewsMayGoInAnyOrder()
{
    auto one = std::make_unique<PLPreviewBench>();
    auto two = std::make_unique<PLPreviewBench>();
    QVERIFY(one->load(one->document(u"<p>un</p>"_s)));
    one->preview->replaceContent(paragraphs(1000)); // still under way
    one.reset();
    QVERIFY(two->load(two->document(u"<p>deux</p>"_s)));
    delete two->preview;
    QVERIFY(two->window.findChildren<QWebEngineView *>().isEmpty());
    two.reset();
    PLPreviewBench three;
    QVERIFY(three.load(three.document(u"<p>trois</p>"_s)));
}

void PLPreviewViewTest::aPreviewThatGoesSaysNoMore_data()
{
    QTest::addColumn<bool>("isLoading");
    QTest::addColumn<bool>("widgetGoesFirst");
    QTest::newRow("while it loads") << true << false;
    QTest::newRow("while it loads, the widget first") << true << true;
    QTest::newRow("while its content is replaced") << false << false;
    QTest::newRow("while its content is replaced, the widget first") << false << true;
}

/// The engine answers what is still under way when its page is destroyed, and who would hear of it is half
/// destroyed by then.
void PLPreviewViewTest::aPreviewThatGoesSaysNoMore()
{
    QFETCH(const bool, isLoading);
    QFETCH(const bool, widgetGoesFirst);
    auto bench = std::make_unique<PLPreviewBench>();
    QStringList said;
    connect(bench->preview, &PLPreviewView::didFinishLoad, this, [&said] { said.append(u"loaded"_s); });
    connect(bench->preview, &PLPreviewView::contentMissing, this, [&said] { said.append(u"missing"_s); });
    pid_t process = 0; // stopped, so that it cannot answer before
    const auto stop = [&] {
        process = pid_t(bench->view->page()->renderProcessPid());
        ::kill(process, SIGSTOP);
    };
    if (isLoading) {
        connect(bench->view->page(), &QWebEnginePage::loadFinished, this, stop); // only its frame is there
        bench->preview->loadDocument(bench->document(paragraphs(20'000)), QUrl());
        QTRY_VERIFY_WITH_TIMEOUT(process > 1, 30'000);
    } else {
        QVERIFY(bench->load(bench->document(u"<p>un</p>"_s)));
        said.clear();
        stop();
        QVERIFY(process > 1);
        bench->preview->replaceContent(u"<p>deux</p>"_s);
    }
    QCOMPARE(said, QStringList());
    if (widgetGoesFirst)
        delete bench->preview->widget();
    bench.reset();
    ::kill(process, SIGCONT);
    QCOMPARE(said, QStringList());
}

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    PLPreviewViewTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "PLPreviewViewTest.moc"
