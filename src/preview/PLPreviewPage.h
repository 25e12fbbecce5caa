// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>
#include <QWebEnginePage>

class PLPreviewGate;

/// A page that shows what it is given and goes nowhere: links are handed over, everything else is refused.
class PLPreviewPage final : public QWebEnginePage
{
    Q_OBJECT

public:
    explicit PLPreviewPage(QWebEngineProfile *profile);

    /// Shows a document; the pictures in it are relative to the folder `baseURL`.
    void showDocument(const QString &html, const QUrl &baseURL);

Q_SIGNALS:
    void linkClicked(const QUrl &url);
    /// The page wanted to go somewhere. It stays, but a document that was on its way is lost by that.
    void navigationRefused();

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList &oldFiles,
                            const QStringList &acceptedMimeTypes) override;

private:
    void handOverNewWindow(const QWebEngineNewWindowRequest &request);

    PLPreviewGate *m_gate;
};
