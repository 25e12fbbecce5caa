// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Usage: aquilane_screenshots fr|en <folder of example notebooks> <folder for the pictures> [dark]
// With "dark", as on a desktop with dark colours.

#include "PLScreenshots.h"
#include "app/PLTranslations.h"
#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"

#include <QApplication>
#include <QPalette>

#include <cstdio>

namespace {

void wearDarkColors()
{
    QPalette colors(QColor(45, 45, 48));
    colors.setColor(QPalette::Base, QColor(30, 30, 32));
    colors.setColor(QPalette::Highlight, QColor(60, 110, 180));
    QApplication::setPalette(colors);
}

/// What tells these pictures from others: the language, the colours, the scale.
QString suffixOf(const QString &language, bool isDark)
{
    const qreal scale = qGuiApp->devicePixelRatio();
    return language + (isDark ? QStringLiteral("-dark") : QString()) +
           (scale > 1 ? QStringLiteral("-%1x").arg(scale) : QString());
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const bool isDark = arguments.size() == 5 && arguments[4] == u"dark";
    if (arguments.size() != (isDark ? 5 : 4) ||
        !PLLocalization::availableLanguages().contains(arguments[1])) {
        std::fputs("usage: aquilane_screenshots fr|en <example notebooks> <pictures> [dark]\n", stderr);
        return 2;
    }
    // Static, to be deleted after the store, which writes into it to the last.
    static const QTemporaryDir preferences;
    PLPreferences::useFile(preferences.filePath(QStringLiteral("preferences.ini")));
    PLLocalization::setPreferredLanguage(arguments[1]);
    PLInstallTranslations(application);

    if (isDark)
        wearDarkColors();
    PLScreenshots screenshots(arguments[1], suffixOf(arguments[1], isDark), arguments[2], arguments[3]);
    if (screenshots.drawAll())
        return 0;
    std::fputs("aquilane_screenshots: a notebook or a picture could not be read or written\n", stderr);
    return 1;
}
