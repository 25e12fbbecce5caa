// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPreviewLoader.h"

#include "editor/PLPreviewSandbox.h"
#include "editor/PLPreviewView.h"
#include "i18n/PLDesktopStrings.h"

#include <QCoreApplication>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

namespace {

PLPreviewView *refuse(QString *reason, const QString &text)
{
    if (reason)
        *reason = PLDesktopString(text);
    return nullptr;
}

} // namespace

PLPreviewView *PLLoadPreviewView(QWidget *parent, QString *reason)
{
    const QString folder = QCoreApplication::applicationDirPath() + u"/" AQUILANE_PLUGINS_FROM_BIN u"/"_s;
    return PLLoadPreviewViewFromPlugin(folder + u"aquilane_preview"_s, parent, reason);
}

PLPreviewView *PLLoadPreviewViewFromPlugin(const QString &path, QWidget *parent, QString *reason)
{
    if (!PLCanSandboxPreview())
        return refuse(
            reason,
            PLIsSuperUser()
                ? u"L'aperçu n'est pas affiché : Aquilane a été ouvert par l'administrateur du système."_s
                : u"L'aperçu n'est pas affiché : le système ne permet pas de l'isoler."_s);
    // Never unloaded: the engine cannot be started a second time in a process.
    QPluginLoader loader(path);
    auto *factory = qobject_cast<PLPreviewFactory *>(loader.instance());
    if (!factory)
        return refuse(reason, u"L'aperçu n'est pas installé (paquet aquilane-preview)."_s);
    return factory->createPreviewView(parent);
}
