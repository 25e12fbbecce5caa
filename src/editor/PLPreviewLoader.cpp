// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPreviewLoader.h"

#include "editor/PLPreviewSandbox.h"
#include "editor/PLPreviewView.h"
#include "i18n/PLDesktopStrings.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QOpenGLContext>
#include <QPluginLoader>
#include <QWidget>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

QT_BEGIN_NAMESPACE
/// Qt exports this without declaring it to programs.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext *context);
QT_END_NAMESPACE

namespace {

/// Makes the drawing context that the engine shares with the windows. Qt makes one at the start of a program
/// that sets AA_ShareOpenGLContexts then, and so loads the graphics driver, 23 MB and 30 ms of it (Qt 6.4,
/// xcb). The engine only looks whether both are there when it is loaded.
void shareDrawingContext()
{
    if (QOpenGLContext::globalShareContext())
        return;
    auto context = std::make_unique<QOpenGLContext>();
    context->setFormat(QSurfaceFormat::defaultFormat());
    context->create(); // without a driver too there has to be one to look at
    qt_gl_set_global_share_context(context.release());
    qAddPostRoutine([] {
        delete QOpenGLContext::globalShareContext();
        qt_gl_set_global_share_context(nullptr);
    });
    // Qt says that this is too late; for what it does itself it is.
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    qInstallMessageHandler(previous);
}

QString pluginPath(const QString &name)
{
    return QCoreApplication::applicationDirPath() + u"/" AQUILANE_PLUGINS_FROM_BIN u"/"_s + name;
}

PLPreviewView *refuse(QString *reason, const QString &text)
{
    if (reason)
        *reason = PLDesktopString(text);
    return nullptr;
}

} // namespace

void PLPreparePreviewWindow(QWidget *pane)
{
    QLibrary library(pluginPath(u"aquilane_preview_surface"_s));
    if (!PLCanSandboxPreview() || !library.load())
        return;
    shareDrawingContext();
    if (!QOpenGLContext::globalShareContext()->isValid())
        return; // no driver: a window for it would stay black
    if (const auto makeSurface =
            reinterpret_cast<QWidget *(*)(QWidget *)>(library.resolve("PLMakePreviewSurface")))
        makeSurface(pane);
}

bool PLIsPreviewWindowReady(const QWidget *window)
{
    return !window->testAttribute(Qt::WA_WState_Created) ||
           window->windowHandle()->surfaceType() == QSurface::OpenGLSurface;
}

PLPreviewView *PLLoadPreviewView(QWidget *parent, QString *reason)
{
    return PLLoadPreviewViewFromPlugin(pluginPath(u"aquilane_preview"_s), parent, reason);
}

PLPreviewView *PLLoadPreviewViewFromPlugin(const QString &path, QWidget *parent, QString *reason)
{
    if (!PLCanSandboxPreview())
        return refuse(
            reason,
            PLIsSuperUser()
                ? u"L'aperçu n'est pas affiché : Aquilane a été ouvert par l'administrateur du système."_s
                : u"L'aperçu n'est pas affiché : le système ne permet pas de l'isoler."_s);
    shareDrawingContext();
    // Never unloaded: the engine cannot be started a second time in a process.
    QPluginLoader loader(path);
    auto *factory = qobject_cast<PLPreviewFactory *>(loader.instance());
    if (!factory)
        return refuse(reason, u"L'aperçu n'est pas installé (paquet aquilane-preview)."_s);
    return factory->createPreviewView(parent);
}
