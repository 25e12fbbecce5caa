// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

/// Every request of a page passes here. The page's own document and the pictures of its notebook go on, all
/// else is blocked: nothing remote is ever fetched, and no file but a picture is ever read.
class PLPreviewGate final : public QWebEngineUrlRequestInterceptor
{
    Q_OBJECT

public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    /// The folder of the page that is shown; without one no picture goes on.
    void setBaseURL(const QUrl &baseURL) { m_baseURL = baseURL; }

    void interceptRequest(QWebEngineUrlRequestInfo &request) override;

private:
    bool mayGoOn(const QWebEngineUrlRequestInfo &request) const;

    QUrl m_baseURL;
};
