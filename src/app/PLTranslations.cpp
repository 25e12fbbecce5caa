// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLTranslations.h"

#include "i18n/PLLocalization.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

void PLInstallTranslations(QCoreApplication &application)
{
    QLocale::setDefault(QLocale(PLLocalization::localeIdentifier()));
    if (PLLocalization::isEnglish())
        return; // the toolkit's source language
    auto *translator = new QTranslator(&application);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (translator->load(u"qtbase_"_s + PLLocalization::currentLanguage(), folder))
        QCoreApplication::installTranslator(translator);
}
