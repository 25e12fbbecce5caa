// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLSpellDictionary.h"
#include "platform/PLTextTarget.h"

#include <QHash>
#include <QList>
#include <QObject>

#include <functional>
#include <memory>

/// Tells which words of a text are unknown to the dictionary of the interface language, which is loaded when
/// it is first needed, and whether the writer wants to be told while typing. All windows share one.
class PLSpellChecker final : public QObject
{
    Q_OBJECT

public:
    using Loader = std::function<std::unique_ptr<PLSpellDictionary>(const QString &localeIdentifier)>;

    /// For an empty identifier, the interface language's.
    explicit PLSpellChecker(const QString &localeIdentifier = QString(),
                            Loader loader = PLLoadSpellDictionary);
    ~PLSpellChecker() override;

    /// The one that the windows share; it goes with the last of them, and its dictionary too.
    static std::shared_ptr<PLSpellChecker> shared();

    /// Whether the dictionary has been asked for; until then nothing has been read.
    bool isLoaded() const { return m_isLoaded; }
    /// Whether there is a dictionary; loads it.
    bool isAvailable();
    /// The package that brings the dictionary, such as "hunspell-fr".
    QString packageName() const;

    /// The unknown words of a line, in order; of compounds the part that is wrong. Nothing without a
    /// dictionary.
    QList<PLTextRange> misspellings(QStringView line);
    /// The first unknown word that begins at `from` or later, if any. Line ends are "\n".
    std::optional<PLTextRange> nextMisspelling(const QString &text, int from);
    /// The unknown word that `position` is in, or right behind.
    std::optional<PLTextRange> misspellingAt(const QString &text, int position);

    /// What the word may have been meant to be, with the apostrophe that the word has.
    QStringList suggestions(const QString &word);
    void learn(const QString &word);
    void ignore(const QString &word);

    /// Whether unknown words are marked while the writer types; kept as PLContinuousSpellChecking.
    bool isContinuous() const;
    void setContinuous(bool continuous);

    /// How many words are remembered at most.
    static constexpr int CacheLimit = 20000;
    int cachedWordCount() const { return int(m_known.size()); }

Q_SIGNALS:
    /// A word has been learned or ignored: what was found before is out of date.
    void wordsDidChange();
    void continuousDidChange(bool continuous);

private:
    PLSpellDictionary *dictionary();
    bool isKnown(QStringView word);
    void appendMisspelledParts(QStringView word, int position, QList<PLTextRange> &result);
    PLTextRange withoutElision(QStringView part) const;
    void forgetWords();

    QString m_localeIdentifier;
    Loader m_loader;
    std::unique_ptr<PLSpellDictionary> m_dictionary;
    QHash<QString, bool> m_known;
    bool m_isLoaded = false;
};
