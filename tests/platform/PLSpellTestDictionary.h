// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLSpellDictionary.h"

#include <QSet>

/// A dictionary of a few words that notes what it is asked; what it notes outlives it.
class PLSpellTestDictionary final : public PLSpellDictionary
{
public:
    struct Notes
    {
        QSet<QString> words;
        QStringList checked;
        QStringList learned;
        QStringList ignored;
        int loads = 0;
        int suggestionRequests = 0;
    };

    explicit PLSpellTestDictionary(Notes &notes) : m_notes(notes) { ++m_notes.loads; }

    bool contains(const QString &word) const override
    {
        m_notes.checked.append(word);
        return m_notes.words.contains(word) || m_notes.words.contains(word.toLower());
    }

    QStringList suggestions(const QString &word) const override
    {
        ++m_notes.suggestionRequests;
        return word == QStringLiteral("rien") ? QStringList()
                                              : QStringList{word + u'1', QStringLiteral("l'") + word};
    }

    void learn(const QString &word) override
    {
        m_notes.learned.append(word);
        m_notes.words.insert(word);
    }

    void ignore(const QString &word) override
    {
        m_notes.ignored.append(word);
        m_notes.words.insert(word);
    }

private:
    Notes &m_notes;
};
