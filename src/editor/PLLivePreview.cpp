// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLLivePreview.h"

#include "editor/PLPageTextView.h"
#include "editor/PLPreviewView.h"
#include "editor/PLTypingPause.h"
#include "markdown/PLMarkdown.h"
#include "platform/PLKeyHold.h"
#include "theme/PLTheme.h"

#include <QDesktopServices>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto previewDelay = 300ms;
constexpr auto quietTime = 300ms;

} // namespace

PLLivePreview::PLLivePreview(PLPageTextView &textView, Loader loader)
    : m_textView(textView), m_loader(std::move(loader)), m_timer(this)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_timer.setSingleShot(true);
    m_timer.setInterval(previewDelay);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        updatePreview();
        Q_EMIT previewTimerFired();
    });
    connect(textView.verticalScrollBar(), &QScrollBar::valueChanged, this, &PLLivePreview::syncPreviewScroll);
}

void PLLivePreview::pageDidLoad(const QUrl &baseURL)
{
    m_baseURL = baseURL;
    m_isLoaded = false;
    m_timer.stop();
    updatePreview();
}

void PLLivePreview::updatePreview()
{
    if (!isVisible() || !m_view) {
        m_needsUpdate = true;
        return;
    }
    m_needsUpdate = false;
    const QString fragment = PLMarkdown::HTMLFromMarkdown(m_textView.pageText());
    if (!m_isLoaded)
        return m_view->loadDocument(PLMarkdown::pageWithBodyHTML(fragment), m_baseURL);
    m_view->replaceContent(fragment);
    syncPreviewScroll();
}

void PLLivePreview::syncPreviewScroll()
{
    if (m_view && m_isLoaded && isVisible())
        m_view->scrollToRatio(scrollRatio());
}

double PLLivePreview::scrollRatio() const
{
    const QScrollBar *bar = m_textView.verticalScrollBar();
    return bar->maximum() > 0 ? qBound(0.0, double(bar->value()) / bar->maximum(), 1.0) : 0;
}

void PLLivePreview::prepareWindow()
{
    if (!window()->testAttribute(Qt::WA_WState_Created))
        PLPreparePreviewWindow(this);
}

/// The plugin is loaded when the event loop turns: first the window is on screen.
void PLLivePreview::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    QMetaObject::invokeMethod(
        this,
        [this] {
            makeView();
            if (m_needsUpdate || !m_isLoaded)
                updatePreview();
        },
        Qt::QueuedConnection);
}

void PLLivePreview::makeView()
{
    if (m_view || m_isMissing || !isVisible())
        return;
    QString reason;
    m_view = m_loader(nullptr, &reason);
    if (m_view)
        return takeView();
    m_isMissing = true;
    showReason(reason);
}

void PLLivePreview::takeView()
{
    m_view->setParent(this);
    connectView(m_view);
    if (PLIsPreviewWindowReady(window()))
        return showView();
    // The window will be created anew, for which a pause of the writer's is the best moment.
    auto *pause = new PLTypingPause(quietTime, this);
    connect(pause, &PLTypingPause::reached, this,
            [this] { PLRemakeHoldingKeys(*window(), [this] { showView(); }); });
    connect(pause, &PLTypingPause::reached, pause, &QObject::deleteLater);
}

void PLLivePreview::showView()
{
    layout()->addWidget(m_view->widget());
}

void PLLivePreview::connectView(PLPreviewView *view)
{
    connect(view, &PLPreviewView::linkClicked, this, &PLLivePreview::openLink);
    connect(view, &PLPreviewView::didFinishLoad, this, [this] {
        m_isLoaded = true;
        syncPreviewScroll();
    });
    connect(view, &PLPreviewView::contentMissing, this, [this] {
        m_isLoaded = false;
        updatePreview();
    });
}

void PLLivePreview::showReason(const QString &reason)
{
    auto *label = new QLabel(reason);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setContentsMargins(20, 20, 20, 20);
    label->setFont(PLTheme::sidebarFont());
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, PLTheme::faintInkColor());
    label->setPalette(colors);
    layout()->addWidget(label);
}

/// The preview itself never goes anywhere; only the web and mail are handed to the desktop.
void PLLivePreview::openLink(const QUrl &url) const
{
    const QString scheme = url.scheme();
    if (scheme.startsWith(u"http") || scheme == u"mailto")
        QDesktopServices::openUrl(url);
}
