// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewPage.h"

#include "preview/PLPreviewGate.h"

#include <QWebEngineFullScreenRequest>
#include <QWebEngineNewWindowRequest>

using namespace Qt::StringLiterals;

namespace {

/// A relative name is looked up in the folder only if the folder's URL ends in "/".
QUrl folderURL(QUrl url)
{
    if (!url.isEmpty() && !url.path().endsWith(u'/'))
        url.setPath(url.path() + u'/');
    return url;
}

} // namespace

PLPreviewPage::PLPreviewPage(QWebEngineProfile *profile)
    : QWebEnginePage(profile), m_gate(new PLPreviewGate(this))
{
    setUrlRequestInterceptor(m_gate);
    connect(this, &QWebEnginePage::newWindowRequested, this, &PLPreviewPage::handOverNewWindow);
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl &origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.reject(); });
}

void PLPreviewPage::showDocument(const QString &html, const QUrl &baseURL)
{
    const QUrl folder = folderURL(baseURL);
    m_gate->setBaseURL(folder);
    setHtml(html, folder);
}

bool PLPreviewPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    // setHtml() navigates to a data URL, as if it had been typed; a page cannot.
    if (isMainFrame && type == NavigationTypeTyped && url.scheme() == u"data"_s)
        return true;
    if (type == NavigationTypeLinkClicked)
        Q_EMIT linkClicked(url);
    if (isMainFrame)
        Q_EMIT navigationRefused();
    return false;
}

QStringList PLPreviewPage::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &)
{
    return QStringList();
}

/// A link clicked with Ctrl held or with the middle button asks for a new window. None is ever opened.
void PLPreviewPage::handOverNewWindow(const QWebEngineNewWindowRequest &request)
{
    if (request.isUserInitiated())
        Q_EMIT linkClicked(request.requestedUrl());
}
