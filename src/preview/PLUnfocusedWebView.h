// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWebEngineView>

/// A web view that leaves the keyboard focus where it is, whatever the engine thinks of it: the writer types
/// in the text while the preview loads, is scrolled or is clicked.
class PLUnfocusedWebView final : public QWebEngineView
{
    Q_OBJECT

public:
    explicit PLUnfocusedWebView(QWidget *parent);

protected:
    void childEvent(QChildEvent *event) override;
};
