// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class PLPreviewView;
class QWidget;

/// A new preview, from the plugin, which the first call loads. Null if there is none or if it must not be
/// loaded; `reason` then says why, to the writer. `parent` owns it. Better made before its window is first
/// shown: the first preview in a window on the screen makes the toolkit create that window anew (Qt 6.4.2),
/// which flickers.
PLPreviewView *PLLoadPreviewView(QWidget *parent, QString *reason);

/// The same from a plugin of one's own, a path without the system's ending for libraries.
PLPreviewView *PLLoadPreviewViewFromPlugin(const QString &path, QWidget *parent, QString *reason);
