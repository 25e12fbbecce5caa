// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

/// The known notebooks, most recently opened first, at most 15, kept in the preferences under
/// "PLRecentProjects". Nothing is cached: every call reads the preferences.
class PLRecentProjects final
{
public:
    PLRecentProjects() = delete;

    /// The stored folder paths; elements of another kind are skipped.
    static QStringList paths();
    /// The same as directory URLs. Missing folders are in the list too.
    static QList<QUrl> URLs();
    /// Puts the folder first, dropping its earlier entry and what comes after the fifteenth.
    static void addURL(const QUrl &folder);
    static void removeURL(const QUrl &folder);
};
