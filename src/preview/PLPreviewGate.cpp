// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewGate.h"

#include "preview/PLPreviewImages.h"

using namespace Qt::StringLiterals;

void PLPreviewGate::interceptRequest(QWebEngineUrlRequestInfo &request)
{
    if (!mayGoOn(request))
        request.block(true);
}

bool PLPreviewGate::mayGoOn(const QWebEngineUrlRequestInfo &request) const
{
    switch (request.resourceType()) {
    case QWebEngineUrlRequestInfo::ResourceTypeMainFrame:
        return request.requestUrl().scheme() == u"data"_s;
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
        return PLPreviewMayShowImage(request.requestUrl(), m_baseURL);
    default:
        return false;
    }
}
