// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Usage: aquilane_screenshots fr|en <folder of example notebooks> <folder for the pictures>

#include "PLScreenshots.h"
#include "app/PLTranslations.h"
#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4 || !PLLocalization::availableLanguages().contains(arguments[1])) {
        std::fputs("usage: aquilane_screenshots fr|en <example notebooks> <pictures>\n", stderr);
        return 2;
    }
    // Static, to be deleted after the store, which writes into it to the last.
    static const QTemporaryDir preferences;
    PLPreferences::useFile(preferences.filePath(QStringLiteral("preferences.ini")));
    PLLocalization::setPreferredLanguage(arguments[1]);
    PLInstallTranslations(application);

    PLScreenshots screenshots(arguments[1], arguments[2], arguments[3]);
    if (screenshots.drawAll())
        return 0;
    std::fputs("aquilane_screenshots: a notebook or a picture could not be read or written\n", stderr);
    return 1;
}
