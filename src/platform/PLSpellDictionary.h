// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <memory>

/// A dictionary of one language. Words are never empty, and have the plain apostrophe.
class PLSpellDictionary
{
public:
    virtual ~PLSpellDictionary() = default;

    virtual bool contains(const QString &word) const = 0;
    /// The best first. Slow: up to a seventh of a second.
    virtual QStringList suggestions(const QString &word) const = 0;
    /// Puts the word into the writer's own list, for good.
    virtual void learn(const QString &word) = 0;
    /// Takes the word for right until the program ends.
    virtual void ignore(const QString &word) = 0;
};

/// The dictionary installed on this machine for a locale such as "fr_FR", null if there is none: American
/// spelling is no answer to somebody who asks for "en_GB". Takes about 50 ms.
std::unique_ptr<PLSpellDictionary> PLLoadSpellDictionary(const QString &localeIdentifier);
