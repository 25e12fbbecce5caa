// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewProfile.h"

#include <QLoggingCategory>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;

namespace {

constexpr QWebEngineSettings::WebAttribute switchedOff[] = {
    QWebEngineSettings::JavascriptEnabled,
    QWebEngineSettings::JavascriptCanOpenWindows,
    QWebEngineSettings::JavascriptCanAccessClipboard,
    QWebEngineSettings::JavascriptCanPaste,
    QWebEngineSettings::AllowWindowActivationFromJavaScript,
    QWebEngineSettings::LinksIncludedInFocusChain,
    QWebEngineSettings::FocusOnNavigationEnabled,
    QWebEngineSettings::SpatialNavigationEnabled,
    QWebEngineSettings::NavigateOnDropEnabled,
    QWebEngineSettings::LocalStorageEnabled,
    QWebEngineSettings::LocalContentCanAccessRemoteUrls,
    QWebEngineSettings::AllowRunningInsecureContent,
    QWebEngineSettings::AllowGeolocationOnInsecureOrigins,
    QWebEngineSettings::HyperlinkAuditingEnabled,
    QWebEngineSettings::DnsPrefetchEnabled,
    QWebEngineSettings::AutoLoadIconsForPage,
    QWebEngineSettings::TouchIconsEnabled,
    QWebEngineSettings::ErrorPageEnabled,
    QWebEngineSettings::PluginsEnabled,
    QWebEngineSettings::PdfViewerEnabled,
    QWebEngineSettings::FullScreenSupportEnabled,
    QWebEngineSettings::ScreenCaptureEnabled,
    QWebEngineSettings::WebGLEnabled,
    QWebEngineSettings::Accelerated2dCanvasEnabled,
    QWebEngineSettings::ScrollAnimatorEnabled,
};

std::shared_ptr<QWebEngineProfile> makeProfile()
{
    // The engine's report on itself at its start; QT_LOGGING_RULES brings it back.
    QLoggingCategory::setFilterRules(u"qt.webenginecontext.debug=false\nqt.webenginecontext.info=false"_s);
    auto profile = std::make_shared<QWebEngineProfile>(); // without a name it is off the record
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    for (const QWebEngineSettings::WebAttribute attribute : switchedOff)
        profile->settings()->setAttribute(attribute, false);
    profile->settings()->setUnknownUrlSchemePolicy(
        QWebEngineSettings::AllowUnknownUrlSchemesFromUserInteraction);
    QObject::connect(profile.get(), &QWebEngineProfile::downloadRequested, profile.get(),
                     [](QWebEngineDownloadRequest *download) { download->cancel(); });
    return profile;
}

} // namespace

std::shared_ptr<QWebEngineProfile> PLPreviewProfile()
{
    static std::weak_ptr<QWebEngineProfile> current;
    std::shared_ptr<QWebEngineProfile> profile = current.lock();
    if (!profile) {
        profile = makeProfile();
        current = profile;
    }
    return profile;
}
