// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QString>

/// Makes a writer's other notebooks in this folder, so that the shelf of the pictures is a real one: titles
/// in the language, one notebook that has gone missing. They become known. False if one cannot be written.
[[nodiscard]] bool PLMakeExampleShelf(const QDir &folder, const QString &language);

/// Gives the notebook in this folder a painted cover.
[[nodiscard]] bool PLPaintExampleCover(const QString &notebook, int picture);
