// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLAppDelegate.h"
#include "app/PLTranslations.h"
#include "app/PLWindowIcon.h"
#include "i18n/PLDesktopStrings.h"
#include "platform/PLAlert.h"
#include "platform/PLExitSignals.h"
#include "platform/PLSingleInstance.h"
#include "platform/PLStartupNotice.h"
#include "platform/PLStyle.h"

#include <QApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The notebooks named at the start, as absolute paths.
QStringList pathsOfArguments(int count, char *arguments[])
{
    QStringList paths;
    for (int index = 1; index < count; ++index)
        paths.append(QFileInfo(QFile::decodeName(arguments[index])).absoluteFilePath());
    return paths;
}

void tellNoAnswer()
{
    PLAlert alert;
    alert.message = PLDesktopString(u"Aquilane est déjà ouvert, mais ne répond pas."_s);
    alert.informativeText =
        PLDesktopString(u"Attendez un instant, ou quittez l'autre Aquilane, puis réessayez."_s);
    alert.runModal();
}

} // namespace

int main(int argc, char *argv[])
{
    const QStringList paths = pathsOfArguments(argc, argv);
    PLSingleInstance instance;
    const PLSingleInstance::Role role = instance.start(paths);
    if (role == PLSingleInstance::Role::HandedOver) {
        PLCompleteStartup();
        return 0;
    }

    QApplication application(argc, argv);
    QApplication::setStyle(new PLStyle);
    QApplication::setApplicationName(u"Aquilane"_s);
    QApplication::setApplicationVersion(QStringLiteral(AQUILANE_VERSION));
    QGuiApplication::setDesktopFileName(u"io.github.aquilane"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    PLInstallWindowIcon();
    PLInstallTranslations(application);
    if (role == PLSingleInstance::Role::NoAnswer) {
        tellNoAnswer();
        return 1;
    }

    PLAppDelegate delegate;
    PLExitSignals exitSignals;
    QObject::connect(&delegate, &PLAppDelegate::willTerminate, &application,
                     [] { QCoreApplication::exit(0); });
    QObject::connect(&exitSignals, &PLExitSignals::exitRequested, &delegate,
                     &PLAppDelegate::terminateQuietly);
    QObject::connect(&exitSignals, &PLExitSignals::sessionWillEnd, &delegate, &PLAppDelegate::saveAllQuietly);
    QObject::connect(&instance, &PLSingleInstance::requestReceived, &delegate,
                     &PLAppDelegate::applicationHandleRequest);
    instance.listen();
    // From within the event loop: an alert may come up, and what ends the program then ends the whole of it.
    QMetaObject::invokeMethod(
        &delegate, [&] { delegate.applicationDidFinishLaunching(paths); }, Qt::QueuedConnection);
    return QApplication::exec();
}
