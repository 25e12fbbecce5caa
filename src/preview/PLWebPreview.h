// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPreviewView.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QWebEnginePage>

#include <functional>
#include <memory>
#include <optional>

class PLPreviewPage;
class PLUnfocusedWebView;
class QWebEngineLoadingInfo;

/// The preview drawn by the web engine. The engine works in other processes, so everything is asked for and
/// comes later: one thing at a time, and of what is asked for meanwhile only the latest.
class PLWebPreview final : public PLPreviewView
{
    Q_OBJECT

public:
    explicit PLWebPreview(QWidget *parent);
    ~PLWebPreview() override;

    QWidget *widget() const override;

    void loadDocument(const QString &html, const QUrl &baseURL) override;
    void replaceContent(const QString &fragment) override;
    void scrollToRatio(double ratio) override;

private:
    enum class State {
        Empty,   ///< nothing is shown, or the engine has died
        Loading, ///< the document's frame is on its way
        Filling, ///< the frame is there, its content is being put in
        Shown,
    };
    struct Document
    {
        QString html;
        QUrl baseURL;
    };

    void makePage();
    void startLoad(const Document &document);
    void showFrame();
    void repeatLoad();
    void loadingDidChange(const QWebEngineLoadingInfo &info);
    void frameDidLoad();
    void fill();
    void didFill();
    void sendNext();
    void sendContent(const QString &fragment);
    void sendRatio(double ratio);
    void runScript(const QString &script, const std::function<void(const QVariant &)> &then);
    void forgetDocument();
    void loseDocument();
    void renderProcessDied();
    void askForDocument();

    std::shared_ptr<QWebEngineProfile> m_profile; // let go of after the page
    std::unique_ptr<PLPreviewPage> m_page;
    QPointer<PLUnfocusedWebView> m_view; ///< the pane that it is shown in may delete it first

    State m_state = State::Empty;
    int m_load = 0; // counts the loads, so that an answer from an earlier one is known
    bool m_isBusy = false;
    Document m_frame; // without its content
    std::optional<Document> m_nextDocument;
    std::optional<QString> m_nextContent;
    std::optional<double> m_nextRatio;

    int m_deaths = 0;
    QElapsedTimer m_sinceDeath;
};
