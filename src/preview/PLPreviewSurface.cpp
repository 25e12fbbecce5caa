// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include <QOpenGLWidget>

/// A widget that is never shown. A window that holds it when it is created is one that the graphics driver
/// can draw into, and so need not be created anew when a web view is put into it (Qt 6.4.2).
extern "C" Q_DECL_EXPORT QWidget *PLMakePreviewSurface(QWidget *parent)
{
    auto *surface = new QOpenGLWidget(parent);
    surface->hide();
    return surface;
}
