// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/PLAppDelegate.h"

#include <QDir>
#include <QTemporaryDir>

class QWidget;

/// Walks through the program and draws its windows into PNG files named "<what>-<language>.png". Works on
/// copies of the example notebooks, so that nothing of the person at the keyboard is read or written.
class PLProjectWindowController;

class PLScreenshots final
{
public:
    /// The suffix, such as "fr-dark", ends the names of the pictures.
    PLScreenshots(const QString &language, const QString &suffix, const QDir &examples, const QDir &pictures);

    /// Draws every picture and prints its path; false if a notebook or a picture cannot be written.
    [[nodiscard]] bool drawAll();

private:
    [[nodiscard]] bool copyExamples();
    [[nodiscard]] bool drawNotebook(const QString &folder);
    [[nodiscard]] bool drawSizes(PLProjectWindowController &controller) const;
    [[nodiscard]] bool draw(QWidget &window, const QString &what) const;
    [[nodiscard]] bool drawLibrary(const QString &what);
    [[nodiscard]] bool drawFullLibrary(const QString &notebook);

    QString m_language;
    QString m_suffix;
    QDir m_examples;
    QDir m_pictures;
    QTemporaryDir m_copies;
    QTemporaryDir m_shelf; ///< the writer's other notebooks
    PLAppDelegate m_delegate;
};
