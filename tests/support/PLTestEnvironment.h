// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"

#include <QTemporaryDir>

/// What a test stands on: preferences of its own, in a folder that goes with it, and a chosen interface
/// language. Make one as a member of the test class; nothing of the person who runs the tests is read or
/// written then.
class PLTestEnvironment final
{
public:
    explicit PLTestEnvironment(const QString &language = QStringLiteral("fr"))
    {
        forgetPreferences();
        setLanguage(language);
    }
    ~PLTestEnvironment() { PLPreferences::store().sync(); }

    PLTestEnvironment(const PLTestEnvironment &) = delete;
    PLTestEnvironment &operator=(const PLTestEnvironment &) = delete;

    /// The interface language from now on, "fr" or "en".
    void setLanguage(const QString &code)
    {
        PLPreferences::store().setValue(QStringLiteral("PLInterfaceLanguage"), code);
        PLLocalization::forgetCurrentLanguage();
    }

    /// Starts again with empty preferences; the language is then the system's.
    void forgetPreferences()
    {
        PLPreferences::useFile(m_folder.filePath(QStringLiteral("preferences-%1.ini").arg(++m_files)));
        PLPreferences::store().setValue(QStringLiteral("PLPreviewVisible"),
                                        false); // its engine is slow to load
        PLLocalization::forgetCurrentLanguage();
    }

    /// The file that the preferences are kept in now.
    QString preferencesFile() const { return PLPreferences::store().fileName(); }

private:
    QTemporaryDir m_folder;
    int m_files = 0;
};
