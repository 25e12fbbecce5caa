// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLLivePreview.h"

#include "editor/PLPageTextView.h"
#include "editor/PLPreviewView.h"
#include "support/PLTestEnvironment.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// Keeps what it is asked for.
class NotedPreview final : public PLPreviewView
{
    Q_OBJECT

public:
    ~NotedPreview() override { delete m_widget; }

    QWidget *widget() const override { return m_widget; }
    void loadDocument(const QString &html, const QUrl &baseURL) override
    {
        documents.append(html);
        baseURLs.append(baseURL);
    }
    void replaceContent(const QString &fragment) override { fragments.append(fragment); }
    void scrollToRatio(double ratio) override { ratios.append(ratio); }

    QStringList documents;
    QList<QUrl> baseURLs;
    QStringList fragments;
    QList<double> ratios;

private:
    QPointer<QWidget> m_widget = new QWidget;
};

class PLLivePreviewTest final : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void keepURL(const QUrl &url) { m_openedURLs.append(url); }

private Q_SLOTS:
    void init();
    void cleanup();
    void thePluginIsLoadedWhenThePaneIsFirstShown();
    void aPageIsLoadedWholeWithItsFolder();
    void typingReplacesTheContentOncePaused();
    void aChangeRestartsTheDelay();
    void anotherPageForgetsThePendingRefresh();
    void aHiddenPreviewRendersNothingAndOnceWhenShown();
    void anUnchangedPreviewIsNotRenderedWhenShownAgain();
    void aMissingContentLoadsTheWholeDocument();
    void theScrollPositionFollowsTheText();
    void aTextThatFitsIsAtItsTop();
    void nothingIsScrolledBeforeThePageIsThere();
    void linksOfTheWebAndMailAreHandedOver_data();
    void linksOfTheWebAndMailAreHandedOver();
    void aMissingPluginIsSaidInThePane();

private:
    NotedPreview *preview() const;
    void show();

    PLTestEnvironment m_environment;
    std::unique_ptr<QWidget> m_window;
    PLPageTextView *m_textView = nullptr;
    PLLivePreview *m_live = nullptr;
    QList<QUrl> m_openedURLs;
    int m_loads = 0;
    bool m_isInstalled = true;
};

void PLLivePreviewTest::init()
{
    m_loads = 0;
    m_isInstalled = true;
    m_openedURLs.clear();
    m_window = std::make_unique<QWidget>();
    m_window->resize(900, 400);
    auto *layout = new QHBoxLayout(m_window.get());
    m_textView = new PLPageTextView;
    m_live = new PLLivePreview(*m_textView, [this](QWidget *, QString *reason) -> PLPreviewView * {
        ++m_loads;
        if (m_isInstalled)
            return new NotedPreview;
        *reason = u"Il n'y en a pas."_s;
        return nullptr;
    });
    layout->addWidget(m_textView);
    layout->addWidget(m_live);
    connect(m_textView, &PLPageTextView::textDidChange, m_live, &PLLivePreview::textDidChange);
}

void PLLivePreviewTest::cleanup()
{
    m_window.reset();
}

NotedPreview *PLLivePreviewTest::preview() const
{
    return static_cast<NotedPreview *>(m_live->previewView());
}

/// Shows a page, and its preview until it is loaded.
void PLLivePreviewTest::show()
{
    m_textView->setPageText(u"Un *mot*"_s);
    m_live->pageDidLoad(QUrl(u"file:///roman/Livre/"_s));
    m_window->show();
    QTRY_VERIFY(preview());
    QTRY_COMPARE(preview()->documents.size(), 1);
    Q_EMIT preview()->didFinishLoad();
}

void PLLivePreviewTest::thePluginIsLoadedWhenThePaneIsFirstShown()
{
    m_live->hide();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCoreApplication::processEvents();
    QCOMPARE(m_loads, 0);
    m_live->show();
    QTRY_COMPARE(m_loads, 1);
    m_live->hide();
    m_live->show();
    QCoreApplication::processEvents();
    QCOMPARE(m_loads, 1);
}

void PLLivePreviewTest::aPageIsLoadedWholeWithItsFolder()
{
    show();
    QVERIFY(preview()->documents.constFirst().contains(u"<div id=\"contenu\"><p>Un <em>mot</em></p>"_s));
    QCOMPARE(preview()->baseURLs.constFirst(), QUrl(u"file:///roman/Livre/"_s));
    m_textView->setPageText(u"Autre"_s);
    m_live->pageDidLoad(QUrl(u"file:///roman/Lieux/"_s));
    QVERIFY(!m_live->isLoaded());
    QCOMPARE(preview()->documents.size(), 2);
    QCOMPARE(preview()->baseURLs.constLast(), QUrl(u"file:///roman/Lieux/"_s));
    QVERIFY(preview()->fragments.isEmpty());
}

void PLLivePreviewTest::typingReplacesTheContentOncePaused()
{
    show();
    QSignalSpy fired(m_live, &PLLivePreview::previewTimerFired);
    QTest::keyClicks(m_textView, u"abc"_s);
    QVERIFY(preview()->fragments.isEmpty());
    QVERIFY(fired.wait(5000));
    QCOMPARE(preview()->fragments, QStringList{u"<p>abcUn <em>mot</em></p>\n"_s});
    QCOMPARE(preview()->documents.size(), 1);
}

void PLLivePreviewTest::aChangeRestartsTheDelay()
{
    show();
    QSignalSpy fired(m_live, &PLLivePreview::previewTimerFired);
    QElapsedTimer clock;
    clock.start();
    qint64 lastKey = 0;
    for (int key = 0; key < 5; ++key) {
        QTest::keyClick(m_textView, Qt::Key_A);
        lastKey = clock.elapsed();
        QTest::qWait(100);
    }
    const bool wasEarly = !fired.isEmpty();
    QTRY_COMPARE(fired.size(), 1);
    QVERIFY(wasEarly || clock.elapsed() - lastKey >= 290);
}

void PLLivePreviewTest::anotherPageForgetsThePendingRefresh()
{
    show();
    QTest::keyClicks(m_textView, u"abc"_s);
    m_textView->setPageText(u"Autre"_s);
    m_live->pageDidLoad(QUrl(u"file:///roman/Lieux/"_s));
    QSignalSpy fired(m_live, &PLLivePreview::previewTimerFired);
    QVERIFY(!fired.wait(600));
    QCOMPARE(preview()->documents.size(), 2);
}

void PLLivePreviewTest::aHiddenPreviewRendersNothingAndOnceWhenShown()
{
    show();
    m_live->hide();
    QSignalSpy fired(m_live, &PLLivePreview::previewTimerFired);
    QTest::keyClicks(m_textView, u"abc"_s);
    QVERIFY(fired.wait(5000));
    QTest::keyClicks(m_textView, u"d"_s);
    QVERIFY(fired.wait(5000));
    QVERIFY(preview()->fragments.isEmpty());
    m_live->show();
    QTRY_COMPARE(preview()->fragments, QStringList{u"<p>abcdUn <em>mot</em></p>\n"_s});
    QCoreApplication::processEvents();
    QCOMPARE(preview()->fragments.size(), 1);
    QCOMPARE(preview()->documents.size(), 1);
}

void PLLivePreviewTest::anUnchangedPreviewIsNotRenderedWhenShownAgain()
{
    show();
    m_live->hide();
    m_live->show();
    QCoreApplication::processEvents();
    QVERIFY(preview()->fragments.isEmpty());
    QCOMPARE(preview()->documents.size(), 1);
}

void PLLivePreviewTest::aMissingContentLoadsTheWholeDocument()
{
    show();
    Q_EMIT preview()->contentMissing();
    QCOMPARE(preview()->documents.size(), 2);
    QCOMPARE(preview()->documents.at(1), preview()->documents.at(0));
}

void PLLivePreviewTest::theScrollPositionFollowsTheText()
{
    m_window->show();
    QTRY_VERIFY(preview());
    m_textView->setPageText(u"Une ligne.\n\n"_s.repeated(200));
    m_live->pageDidLoad(QUrl());
    Q_EMIT preview()->didFinishLoad();
    QCOMPARE(preview()->ratios, QList<double>{0});
    QScrollBar *bar = m_textView->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    bar->setValue(bar->maximum());
    QCOMPARE(preview()->ratios.constLast(), 1.0);
    bar->setValue(bar->maximum() / 2);
    QCOMPARE(preview()->ratios.constLast(), double(bar->value()) / bar->maximum());
    m_live->hide();
    const qsizetype count = preview()->ratios.size();
    bar->setValue(0);
    QCOMPARE(preview()->ratios.size(), count);
}

void PLLivePreviewTest::aTextThatFitsIsAtItsTop()
{
    show();
    QCOMPARE(m_textView->verticalScrollBar()->maximum(), 0);
    QCOMPARE(m_live->scrollRatio(), 0.0);
}

void PLLivePreviewTest::nothingIsScrolledBeforeThePageIsThere()
{
    show();
    preview()->ratios.clear();
    m_live->pageDidLoad(QUrl());
    m_live->syncPreviewScroll();
    QVERIFY(preview()->ratios.isEmpty());
    Q_EMIT preview()->didFinishLoad();
    QCOMPARE(preview()->ratios.size(), 1);
}

void PLLivePreviewTest::linksOfTheWebAndMailAreHandedOver_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("isOpened");
    QTest::newRow("http") << u"http://exemple.fr/"_s << true;
    QTest::newRow("https") << u"https://exemple.fr/"_s << true;
    QTest::newRow("HTTPS") << u"HTTPS://exemple.fr/"_s << true;
    QTest::newRow("mail") << u"mailto:anne@exemple.fr"_s << true;
    QTest::newRow("file") << u"file:///etc/passwd"_s << false;
    QTest::newRow("script") << u"javascript:alert(1)"_s << false;
    QTest::newRow("data") << u"data:text/html,x"_s << false;
    QTest::newRow("relative") << u"autre.md"_s << false;
    QTest::newRow("telephone") << u"tel:123"_s << false;
}

void PLLivePreviewTest::linksOfTheWebAndMailAreHandedOver()
{
    QFETCH(QString, link);
    QFETCH(bool, isOpened);
    show();
    for (const QString &scheme : {QUrl(link).scheme()}) {
        QDesktopServices::setUrlHandler(scheme, this, "keepURL");
        Q_EMIT preview()->linkClicked(QUrl(link));
        QDesktopServices::unsetUrlHandler(scheme);
    }
    QCOMPARE(m_openedURLs, isOpened ? QList<QUrl>{QUrl(link)} : QList<QUrl>());
    QCOMPARE(preview()->documents.size(), 1);
}

void PLLivePreviewTest::aMissingPluginIsSaidInThePane()
{
    m_isInstalled = false;
    m_window->show();
    QTRY_COMPARE(m_loads, 1);
    const auto *label = m_live->findChild<QLabel *>();
    QVERIFY(label);
    QCOMPARE(label->text(), u"Il n'y en a pas."_s);
    QTest::keyClicks(m_textView, u"abc"_s);
    m_live->hide();
    m_live->show();
    QCoreApplication::processEvents();
    QCOMPARE(m_loads, 1);
    QCOMPARE(m_textView->pageText(), u"abc"_s);
}

QTEST_MAIN(PLLivePreviewTest)
#include "PLLivePreviewTest.moc"
