// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLPreviewLoader.h"
#include "editor/PLPreviewView.h"

#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <memory>
#include <optional>

/// A window with a text and a preview side by side, and a way to look into the document that the engine
/// shows.
class PLPreviewBench final
{
public:
    PLPreviewBench()
    {
        window.resize(900, 600);
        auto *layout = new QHBoxLayout(&window);
        text = new QTextEdit;
        layout->addWidget(text, 1);
        preview = PLLoadPreviewView(&window, &reason);
        if (!preview)
            qFatal("no preview: %s", qPrintable(reason));
        layout->addWidget(preview->widget(), 1);
        view = qobject_cast<QWebEngineView *>(preview->widget());
        window.show();
        window.activateWindow();
        text->setFocus();
    }

    /// A document made as the renderer makes it.
    static QString document(const QString &content, const QString &style = QString())
    {
        return QStringLiteral("<!DOCTYPE html>\n<html lang=\"fr\"><head><meta charset=\"utf-8\"><style>") +
               style + QStringLiteral("</style></head><body><div id=\"contenu\">") + content +
               QStringLiteral("</div></body></html>");
    }

    /// Loads a document, and waits until it is there.
    bool load(const QString &html, const QUrl &baseURL = QUrl()) const
    {
        QSignalSpy finished(preview, &PLPreviewView::didFinishLoad);
        preview->loadDocument(html, baseURL);
        return finished.wait(30'000);
    }

    /// The value of a script run beside the page's own; invalid if it throws or does not end.
    QVariant evaluate(const QString &script) const
    {
        const auto value = std::make_shared<std::optional<QVariant>>();
        view->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                                    [value](const QVariant &answer) { *value = answer; });
        if (!QTest::qWaitFor([value] { return value->has_value(); }, 30'000))
            return QVariant();
        return **value;
    }

    /// The inner HTML of the element "contenu".
    QString content() const
    {
        return evaluate(QStringLiteral("document.getElementById('contenu').innerHTML")).toString();
    }

    /// The widget that the engine draws on, where the mouse is.
    QWidget *surface() const { return view->findChildren<QWidget *>().constFirst(); }

    QWidget window;
    QString reason;
    QTextEdit *text = nullptr;
    PLPreviewView *preview = nullptr;
    QWebEngineView *view = nullptr;
};
