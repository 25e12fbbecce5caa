// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "i18n/PLLocalization.h"

#include "foundation/PLPreferences.h"
#include "i18n/PLStringTable.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

QString &cachedLanguage()
{
    static QString language;
    return language;
}

bool isLanguage(const QString &userLanguage, const QString &code)
{
    return userLanguage == code || userLanguage.startsWith(code + u'-') ||
           userLanguage.startsWith(code + u'_');
}

} // namespace

QStringList PLLocalization::availableLanguages()
{
    return {u"fr"_s, u"en"_s};
}

QString PLLocalization::nameOfLanguage(const QString &code)
{
    return code == u"en" ? u"English"_s : u"Français"_s;
}

QString PLLocalization::systemLanguage()
{
    return systemLanguage(QLocale::system().uiLanguages());
}

QString PLLocalization::systemLanguage(const QStringList &userLanguages)
{
    const QStringList codes = availableLanguages();
    for (const QString &userLanguage : userLanguages) {
        for (const QString &code : codes) {
            if (isLanguage(userLanguage, code))
                return code;
        }
    }
    return u"en"_s;
}

QString PLLocalization::preferredLanguage()
{
    const QString chosen = PLPreferences::store().value(u"PLInterfaceLanguage"_s).toString();
    return availableLanguages().contains(chosen) ? chosen : systemLanguage();
}

void PLLocalization::setPreferredLanguage(const QString &code)
{
    if (!availableLanguages().contains(code))
        return;
    QSettings &store = PLPreferences::store();
    store.setValue(u"PLInterfaceLanguage"_s, code);
    store.setValue(u"AppleLanguages"_s, QStringList{code});
    store.sync();
}

QString PLLocalization::currentLanguage()
{
    if (cachedLanguage().isNull())
        cachedLanguage() = preferredLanguage();
    return cachedLanguage();
}

bool PLLocalization::isEnglish()
{
    return currentLanguage() == u"en";
}

QString PLLocalization::localeIdentifier()
{
    return isEnglish() ? u"en_US"_s : u"fr_FR"_s;
}

bool PLLocalization::isPlural(qint64 count)
{
    return isEnglish() ? count != 1 : count > 1;
}

QString PLLocalization::string(const QString &french, const QString &language)
{
    if (french.isNull() || language != u"en")
        return french;
    return PLEnglishString(french);
}

void PLLocalization::forgetCurrentLanguage()
{
    cachedLanguage().clear();
}

QString PLLocalizedString(const QString &french)
{
    return PLLocalization::string(french, PLLocalization::currentLanguage());
}
