// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

/// A label in one font and colour, whatever the desktop's theme; its text is plain, never markup.
QLabel *PLMakeLabel(const QFont &font, const QColor &color, QWidget *parent = nullptr);
