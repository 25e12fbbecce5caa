// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// The interface language of this run, and the French-to-English string table.
/// Languages are the codes "fr" and "en".
class PLLocalization final
{
public:
    PLLocalization() = delete;

    static QStringList availableLanguages();
    static QString nameOfLanguage(const QString &code);

    /// The first of the user's languages, as the desktop lists them, that is available; else "en".
    static QString systemLanguage();
    /// The same rule on a given list such as {"de", "fr-CA"}.
    static QString systemLanguage(const QStringList &userLanguages);

    /// The stored choice if it is an available language, else `systemLanguage`.
    static QString preferredLanguage();
    /// Stores the choice for the next launch; this run keeps its language. Ignored for an unavailable code.
    static void setPreferredLanguage(const QString &code);

    /// The language of this run: the preferred one at the first call, the same ever after.
    static QString currentLanguage();
    static bool isEnglish();
    /// "en_US" or "fr_FR": the locale of dates, numbers, sorting and spelling.
    static QString localeIdentifier();

    /// Whether a text about `count` things is in the plural: not 1 in English, above 1 in French.
    static bool isPlural(qint64 count);

    /// The English text of a French one under "en"; the text itself for another language or if not in the
    /// table.
    static QString string(const QString &french, const QString &language);

    /// Tests only: makes the next `currentLanguage` look at the preferences again.
    static void forgetCurrentLanguage();
};

/// The text in the interface language, from the string table.
QString PLLocalizedString(const QString &french);
