// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLUnfocusedWebView.h"

#include <QChildEvent>

PLUnfocusedWebView::PLUnfocusedWebView(QWidget *parent) : QWebEngineView(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::PreventContextMenu); // the engine's own menu speaks English only
    setAcceptDrops(false);
}

void PLUnfocusedWebView::childEvent(QChildEvent *event)
{
    QWebEngineView::childEvent(event);
    auto *child = qobject_cast<QWidget *>(event->child());
    if (child && event->added())
        child->setFocusPolicy(Qt::NoFocus);
}
