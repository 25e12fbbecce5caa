// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtPlugin>

class QWidget;

/// The pane that shows a page as HTML. What draws it is a plugin, loaded when a preview is first shown: the
/// HTML engine would cost every start its time and its memory.
class PLPreviewView : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The widget to put into the pane; it never takes the keyboard focus. Its parent owns it, and it goes
    /// with the view.
    virtual QWidget *widget() const = 0;

    /// Loads a whole document of any size; local pictures are relative to `baseURL`, the page's folder, and
    /// are shown if they are in its notebook. didFinishLoad follows; of several loads in a row, for the last
    /// alone.
    virtual void loadDocument(const QString &html, const QUrl &baseURL) = 0;
    /// Replaces the inner HTML of the element "contenu" and keeps the scroll position; `contentMissing`
    /// follows if there is no such element. While a document is on its way, the fragment is its content.
    virtual void replaceContent(const QString &fragment) = 0;
    /// Scrolls to a part of the scrollable height, from 0 at the top to 1 at the bottom, once what was asked
    /// for before is done.
    virtual void scrollToRatio(double ratio) = 0;

Q_SIGNALS:
    /// The document is there, with its content.
    void didFinishLoad();
    /// The content could not be replaced in place, or the engine has died: the whole document must be loaded.
    /// Not said again and again for a page that always kills the engine; the next replaceContent() is then
    /// one more try.
    void contentMissing();
    /// A link of any scheme was clicked; the preview itself never goes anywhere.
    void linkClicked(const QUrl &url);
};

/// What the plugin exports.
class PLPreviewFactory
{
public:
    virtual ~PLPreviewFactory() = default;

    virtual PLPreviewView *createPreviewView(QWidget *parent) = 0;
};

#define PLPreviewFactory_iid "io.github.aquilane.PLPreviewFactory/1"
Q_DECLARE_INTERFACE(PLPreviewFactory, PLPreviewFactory_iid)
