// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class PLPreviewView;
class QWidget;

/// Makes the window that will hold `pane` fit for a preview, without loading the engine. A preview that is
/// put into any other window already on the screen makes the toolkit create that window anew: it flickers,
/// and a key pressed at that moment is lost (Qt 6.4.2, xcb). To be called before the window is created; it
/// loads the graphics driver, some 30 ms. Does nothing where no preview can be shown.
void PLPreparePreviewWindow(QWidget *pane);

/// True if a preview can be put into the window without that: it was prepared, or is not created yet.
bool PLIsPreviewWindowReady(const QWidget *window);

/// A new preview, from the plugin, which the first call loads. Null if there is none or if it must not be
/// loaded; `reason` then says why, to the writer. `parent` owns it.
PLPreviewView *PLLoadPreviewView(QWidget *parent, QString *reason);

/// The same from a plugin of one's own, a path without the system's ending for libraries.
PLPreviewView *PLLoadPreviewViewFromPlugin(const QString &path, QWidget *parent, QString *reason);
