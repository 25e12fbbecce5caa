// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPreviewLoader.h"

#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <functional>

class PLPageTextView;
class PLPreviewView;

/// The pane beside the page that shows it as it would be printed: rendered 0.3 seconds after the last change,
/// replaced in place, and scrolled along with the text. While it is hidden nothing is rendered.
class PLLivePreview final : public QWidget
{
    Q_OBJECT

public:
    /// Answers the preview to show, or null and the reason for it.
    using Loader = std::function<PLPreviewView *(QWidget *parent, QString *reason)>;

    explicit PLLivePreview(PLPageTextView &textView, Loader loader = PLLoadPreviewView);

    /// To be called before the window is created, if the preview will be shown in it from the start.
    void prepareWindow();

    /// Another page is open; its document is loaded afresh. Pictures are relative to this folder.
    void pageDidLoad(const QUrl &baseURL);
    /// The text has changed: the preview follows in 0.3 seconds.
    void textDidChange() { m_timer.start(); }
    void updatePreview();
    void syncPreviewScroll();

    /// The part of its scrollable height that the text is scrolled by, from 0 to 1.
    double scrollRatio() const;
    /// What the pane holds, null until it has been shown.
    PLPreviewView *previewView() const { return m_view; }
    bool isLoaded() const { return m_isLoaded; }

Q_SIGNALS:
    /// The writer has paused: what is derived from the text may follow.
    void previewTimerFired();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void makeView();
    void takeView();
    void connectView(PLPreviewView *view);
    void showView();
    void showReason(const QString &reason);
    void openLink(const QUrl &url) const;

    PLPageTextView &m_textView;
    Loader m_loader;
    PLPreviewView *m_view = nullptr;
    QUrl m_baseURL;
    QTimer m_timer;
    bool m_isLoaded = false;
    bool m_needsUpdate = true;
    bool m_isMissing = false; ///< there is no plugin: the pane says so
};
