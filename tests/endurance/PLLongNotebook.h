// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRandomGenerator>
#include <QStringList>

class PLTestNotebook;

/// One of some two thousand words, as many as a writer uses: what is remembered of each (the spelling, up to
/// a limit) is so soon.
QString PLMadeWord(QRandomGenerator &random);

/// A notebook of 365 chapters of some thousand characters each: made, or copied from the Markdown files below
/// the folder that AQUILANE_CORPUS names.
class PLLongNotebook final
{
public:
    static constexpr int ChapterCount = 365;

    explicit PLLongNotebook(const PLTestNotebook &notebook);

    const QStringList &paths() const { return m_paths; }
    /// Writes every chapter as it was at first.
    void restore() const;

private:
    const PLTestNotebook &m_notebook;
    QStringList m_paths; ///< in the notebook
    QStringList m_texts;
};
