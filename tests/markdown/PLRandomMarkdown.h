// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <random>

/// Makes text that meets the dialect's rules: its marks, spaces and line ends of every kind, letters,
/// entities, back-quotes, surrogates whole and broken.
class PLRandomMarkdown final
{
public:
    explicit PLRandomMarkdown(quint64 seed);

    /// One line of up to `pieceCount` pieces; it may hold line ends that "\n" is not.
    QString line(int pieceCount);
    /// Several lines, with front matter now and then.
    QString page(int lineCount);
    /// Characters from every class of the word-boundary rules.
    QString words(int characterCount);

    /// A number from 0 to `count` - 1.
    int below(int count);

private:
    QString piece();

    std::mt19937_64 m_random;
};
