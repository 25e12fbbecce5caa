// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLPreferences.h"

#include "foundation/PLPreferencesFile.h"

#include <QStandardPaths>

#include <memory>

namespace {

std::unique_ptr<QSettings> &currentStore()
{
    static std::unique_ptr<QSettings> store;
    return store;
}

QString defaultPath()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder + QStringLiteral("/aquilane/aquilane.ini");
}

} // namespace

QSettings &PLPreferences::store()
{
    if (!currentStore())
        useFile(defaultPath());
    return *currentStore();
}

void PLPreferences::useFile(const QString &path)
{
    // Below a file there can be none: the preferences then last as long as the program.
    const QString usable = PLSetAsideDamagedPreferences(path) ? path : path + QStringLiteral("/none");
    currentStore() = std::make_unique<QSettings>(usable, QSettings::IniFormat);
}
