// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notebook_window/PLNotebookWindowFixture.h"

#include <QRandomGenerator>

/// Writes in the page that is open: words, paragraphs, now and then a correction or a format. The event loop
/// turns after each key.
class PLTypist final
{
public:
    explicit PLTypist(const PLNotebookWindowFixture &window) : m_window(window) {}

    void type(int keys);
    void addTag();

private:
    void press(QChar character);
    void press(Qt::Key key);
    void formatLastWord();

    const PLNotebookWindowFixture &m_window;
    QRandomGenerator m_random{7};
};
