// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLWebPreview.h"

#include "preview/PLPreviewDocument.h"
#include "preview/PLPreviewPage.h"
#include "preview/PLPreviewProfile.h"
#include "preview/PLPreviewScripts.h"
#include "preview/PLUnfocusedWebView.h"
#include "theme/PLTheme.h"

#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>

namespace {

// A page that kills the engine each time it is shown is given up after so many deaths, each within this time
// of the one before.
constexpr int mostDeaths = 3;
constexpr qint64 deathsTogetherMilliseconds = 60'000;

} // namespace

PLWebPreview::PLWebPreview(QWidget *parent)
    : PLPreviewView(parent), m_profile(PLPreviewProfile()), m_view(new PLUnfocusedWebView(parent))
{
    makePage();
}

/// In silence: the engine answers what is still under way when its page goes, and who listens may be half
/// gone.
PLWebPreview::~PLWebPreview()
{
    m_page->disconnect(this);
    forgetDocument();
    delete m_view;
    m_page.reset();
}

QWidget *PLWebPreview::widget() const
{
    return m_view;
}

void PLWebPreview::makePage()
{
    auto page = std::make_unique<PLPreviewPage>(m_profile.get());
    page->setBackgroundColor(PLTheme::paperColor()); // no white flash before the first document
    connect(page.get(), &PLPreviewPage::linkClicked, this, &PLWebPreview::linkClicked);
    connect(page.get(), &PLPreviewPage::navigationRefused, this, &PLWebPreview::repeatLoad);
    connect(page.get(), &QWebEnginePage::loadingChanged, this, &PLWebPreview::loadingDidChange);
    connect(page.get(), &QWebEnginePage::renderProcessTerminated, this, &PLWebPreview::renderProcessDied);
    if (m_view)
        m_view->setPage(page.get());
    if (m_page)
        m_page->disconnect(this);
    m_page = std::move(page);
}

/// A load that is under way is not broken off: the engine could not tell its end from that of the next one.
void PLWebPreview::loadDocument(const QString &html, const QUrl &baseURL)
{
    m_nextContent.reset();
    m_nextRatio.reset();
    if (m_state == State::Loading)
        m_nextDocument = Document{html, baseURL};
    else
        startLoad({html, baseURL});
}

void PLWebPreview::replaceContent(const QString &fragment)
{
    if (m_state == State::Empty) {
        askForDocument();
        return;
    }
    m_nextContent = fragment;
    sendNext();
}

void PLWebPreview::scrollToRatio(double ratio)
{
    m_nextRatio = ratio;
    sendNext();
}

void PLWebPreview::startLoad(const Document &document)
{
    const PLPreviewDocument parts = PLPreviewDocument::fromHTML(document.html);
    // What was asked for while another load was under way is meant for this document.
    if (!m_nextContent && !parts.content.isNull())
        m_nextContent = parts.content;
    m_frame = {parts.frame, document.baseURL};
    showFrame();
}

void PLWebPreview::showFrame()
{
    ++m_load;
    m_state = State::Loading;
    m_isBusy = false;
    m_page->showDocument(m_frame.html, m_frame.baseURL);
}

/// A link was clicked while the frame was on its way: the engine may have dropped it without a word
/// (Qt 6.4.2), or may show it after all. In a page of its own the second load is the only one. Not at once:
/// the page is still busy with what it tells of.
void PLWebPreview::repeatLoad()
{
    const auto repeat = [this, load = m_load] {
        if (load != m_load || m_state != State::Loading)
            return;
        makePage();
        showFrame();
    };
    QMetaObject::invokeMethod(this, repeat, Qt::QueuedConnection);
}

void PLWebPreview::loadingDidChange(const QWebEngineLoadingInfo &info)
{
    const bool isThere = info.status() == QWebEngineLoadingInfo::LoadSucceededStatus;
    // A link was clicked that leads to an empty page, or is none ("http:///"): the engine shows one and asks
    // nobody (Qt 6.4.2).
    const bool isElsewhere = isThere && info.url().scheme() == u"about";
    if (m_state != State::Loading) {
        if (isElsewhere)
            loseDocument();
    } else if (isElsewhere || info.status() == QWebEngineLoadingInfo::LoadStoppedStatus) {
        repeatLoad();
    } else if (isThere) {
        frameDidLoad();
    } else if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus) {
        renderProcessDied();
    }
}

void PLWebPreview::frameDidLoad()
{
    if (m_nextDocument) {
        startLoad(*std::exchange(m_nextDocument, std::nullopt));
        return;
    }
    m_state = State::Filling;
    fill();
}

void PLWebPreview::fill()
{
    if (!m_nextContent) {
        didFill();
        return;
    }
    const QString content = *std::exchange(m_nextContent, std::nullopt);
    runScript(PLReplaceContentScript(content), [this](const QVariant &) { didFill(); });
}

void PLWebPreview::didFill()
{
    m_state = State::Shown;
    Q_EMIT didFinishLoad();
    sendNext();
}

/// Sends the latest content, or else the latest ratio, once the engine has answered to what was sent before.
void PLWebPreview::sendNext()
{
    if (m_state != State::Shown || m_isBusy)
        return;
    if (m_nextContent)
        sendContent(*std::exchange(m_nextContent, std::nullopt));
    else if (m_nextRatio)
        sendRatio(*std::exchange(m_nextRatio, std::nullopt));
}

void PLWebPreview::sendContent(const QString &fragment)
{
    runScript(PLReplaceContentScript(fragment), [this](const QVariant &isReplaced) {
        if (isReplaced.toBool())
            sendNext();
        else
            Q_EMIT contentMissing();
    });
}

void PLWebPreview::sendRatio(double ratio)
{
    runScript(PLScrollScript(ratio), [this](const QVariant &) { sendNext(); });
}

void PLWebPreview::runScript(const QString &script, const std::function<void(const QVariant &)> &then)
{
    m_isBusy = true;
    // The engine answers even while the page is being destroyed, and after the next document was asked for.
    const auto answer = [self = QPointer(this), load = m_load, then](const QVariant &value) {
        if (!self || load != self->m_load)
            return;
        self->m_isBusy = false;
        then(value);
    };
    m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld, answer);
}

void PLWebPreview::forgetDocument()
{
    ++m_load;
    m_state = State::Empty;
    m_isBusy = false;
    m_nextDocument.reset();
    m_nextContent.reset();
    m_nextRatio.reset();
}

void PLWebPreview::loseDocument()
{
    forgetDocument();
    askForDocument();
}

void PLWebPreview::renderProcessDied()
{
    forgetDocument();
    if (!m_sinceDeath.isValid() || m_sinceDeath.hasExpired(deathsTogetherMilliseconds))
        m_deaths = 0;
    m_sinceDeath.start();
    if (++m_deaths <= mostDeaths)
        askForDocument();
}

/// Not at once: whoever hears it loads, and the engine is still busy with the death it tells of.
void PLWebPreview::askForDocument()
{
    const auto ask = [this] {
        if (m_state == State::Empty)
            Q_EMIT contentMissing();
    };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
}
